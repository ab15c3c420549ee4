#include "windows/dialogs/sample_list_window.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "platform/qt/painter_surface.h"
#include "windows/controls/click_label.h"
#include "windows/controls/layout.h"
#include "windows/controls/scroll_keys.h"
#include "windows/controls/words.h"
#include "windows/dialogs/move_rows_window.h"
#include "windows/dialogs/sort_range_window.h"

namespace triaxlab {
namespace {

constexpr int kMargin = 200;
constexpr int kProjectY = 120, kProjectHeight = 300;
constexpr int kTop = 480, kPitch = 300;
constexpr int kListHeight = kPitch * (SampleListSession::kVisibleRows + 1);
constexpr int kScrollWidth = 255, kButtonGap = 300;
constexpr int kButtonWidth = 1600, kButtonHeight = 400, kButtonPitch = 480, kGroupGap = 240;

/// Cells of a column by the number of its line, in the order of the columns.
constexpr std::array kCellNames{"Label5", "Label1", "Label2", "Label3"};
constexpr const char* kHeadName = "Label4";

constexpr Place linePlace(int line, int x, int width) { return {x, kTop + kPitch * line, width, kPitch}; }

/// What changes the order, what removes and what ends stand apart.
bool beginsGroup(ListAction action) { return action == ListAction::Delete || action == ListAction::Save; }

}  // namespace

SampleListWindow::SampleListWindow(QWidget* parent, SampleListSession& session)
    : SessionDialog(parent), m_session(session) {
  setObjectName(words(session.form()));
  setWindowTitle(words(session.caption()));
  int x = kMargin;
  const std::vector<SampleListColumn>& columns = session.columns();
  for (std::size_t column = 0; column < columns.size(); ++column) {
    makeColumn(column, x);
    x += columns[column].width;
  }
  put(new ClickLabel(this, words(session.projectLine())), "Labelname",
      {kMargin, kProjectY, x - kMargin, kProjectHeight});
  m_scroll = put(new QScrollBar(this), "VScroll1", {x, kTop + kPitch, kScrollWidth, kListHeight - kPitch});
  m_scroll->setPageStep(SampleListSession::kVisibleRows);
  m_scroll->setFocusPolicy(Qt::StrongFocus);
  connect(m_scroll, &QScrollBar::valueChanged, this,
          [this](int value) { act([this, value] { m_session.setScroll(value); }); });
  x += kScrollWidth + kButtonGap;
  makeButtons(x);
  setFixedSize(rectangle({0, 0, x + kButtonWidth + kMargin, kTop + kListHeight + kMargin}).size());
  m_scroll->setFocus();
  refresh();
}

void SampleListWindow::makeColumn(std::size_t column, int x) {
  const SampleListColumn& shown = m_session.columns()[column];
  put(new ClickLabel(this, words(shown.heading), ClickLabel::Look::Head),
      arrayName(kHeadName, static_cast<int>(column)), linePlace(0, x, shown.width));
  for (int i = 0; i < SampleListSession::kVisibleRows; ++i) {
    auto* const cell = put(new ClickLabel(this, {}, ClickLabel::Look::Cell), arrayName(kCellNames.at(column), i),
                           linePlace(i + 1, x, shown.width));
    if (column == 0) cell->setAlignment(kNumberAlignment);
    connect(cell, &ClickLabel::clicked, this, [this, i] { act([this, i] { m_session.flipMark(i); }); });
    m_lines.at(static_cast<std::size_t>(i)).push_back(cell);
  }
}

void SampleListWindow::makeButtons(int x) {
  int y = kTop + kPitch;
  for (const ListButton& button : m_session.buttons()) {
    if (beginsGroup(button.action)) y += kGroupGap;
    auto* const made =
        put(new QPushButton(words(button.caption), this), words(button.control), {x, y, kButtonWidth, kButtonHeight});
    // Enter presses none of them: what it would do can't be seen.
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this,
            [this, &button] { actToEnd([this, &button] { return m_session.press(button, *this); }); });
    y += kButtonPitch;
  }
}

void SampleListWindow::askForRange(ListRangeDialog& dialog) { Form16(this, dialog).exec(); }

void SampleListWindow::showRowMoves(RowMoves& moves) { Form17(this, moves).exec(); }

void SampleListWindow::showState() {
  static const QColor kMarked = colourOf(Colour::LightRed);
  for (int i = 0; i < SampleListSession::kVisibleRows; ++i) {
    const SampleListSession::Line line = m_session.line(i);
    const std::vector<ClickLabel*>& cells = m_lines.at(static_cast<std::size_t>(i));
    cells.front()->setFocusPolicy(line.cells.front().empty() ? Qt::NoFocus : Qt::TabFocus);
    for (std::size_t column = 0; column < cells.size(); ++column) {
      cells[column]->setText(words(line.cells[column]));
      cells[column]->setInk(line.isMarked ? std::optional(kMarked) : std::nullopt);
    }
  }
  const QSignalBlocker blocked(m_scroll);
  m_scroll->setRange(0, m_session.largestScroll());
  m_scroll->setValue(m_session.scroll());
}

void SampleListWindow::wheelEvent(QWheelEvent* event) { m_scroll->event(event); }

void SampleListWindow::keyPressEvent(QKeyEvent* event) {
  if (!scrollByKey(*m_scroll, *event, kScrollKeys)) QDialog::keyPressEvent(event);
}

std::vector<KeyGroup> SampleListWindow::keyHelp() const { return {keyGroup("列表", kScrollKeys)}; }

}  // namespace triaxlab
