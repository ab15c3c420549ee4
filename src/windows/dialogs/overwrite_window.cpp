#include "windows/dialogs/overwrite_window.h"

#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "windows/controls/click_label.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 14200, 6750};
constexpr int kTop = 150, kPitch = 300;
/// Label5, Label1, Label6 to Label9, Label2: the parts of a line from the left.
struct Column {
  const char *head, *cells;
  int x, width;
};
constexpr std::array kColumns{
    Column{"Label3", "Label5", 200, 700},    Column{"Label4", "Label1", 900, 2000},
    Column{"Label10", "Label6", 2900, 2300}, Column{"Label11", "Label7", 5200, 1700},
    Column{"Label12", "Label8", 6900, 2300}, Column{"Label13", "Label9", 9200, 1700},
    Column{nullptr, "Label2", 10900, 1200},
};
constexpr Place kScroll{12130, kTop + kPitch, 255, kPitch* OverwriteSession::kVisibleRows};
constexpr int kButtonX = 12700, kButtonWidth = 1300, kButtonHeight = 400;

constexpr Place linePlace(int line, int x, int width) { return {x, kTop + kPitch * line, width, kPitch}; }

}  // namespace

Form10::Form10(QWidget* parent, OverwriteSession& session)
    : SessionDialog(parent), m_session(session), m_scroll(put(new QScrollBar(this), "VScroll1", kScroll)) {
  setObjectName("Form10");
  setWindowTitle(words(OverwriteSession::kCaption));
  setFixedSize(rectangle(kWindow).size());
  makeLines();
  makeButtons();
  m_scroll->setPageStep(OverwriteSession::kVisibleRows);
  m_scroll->setRange(0, m_session.largestScroll());
  connect(m_scroll, &QScrollBar::valueChanged, this,
          [this](int value) { act([this, value] { m_session.setScroll(value); }); });
  refresh();
}

void Form10::makeLines() {
  const std::vector<std::string> headings = m_session.headings();
  for (std::size_t column = 0; column < kColumns.size(); ++column)
    if (const Column& place = kColumns.at(column); place.head != nullptr)
      put(new ClickLabel(this, words(headings.at(column)), ClickLabel::Look::Head), place.head,
          linePlace(0, place.x, place.width));
  for (int i = 0; i < OverwriteSession::kVisibleRows; ++i) {
    const auto label = [&](std::size_t column) {
      const Column& place = kColumns.at(column);
      auto* const made = put(new ClickLabel(this, {}, ClickLabel::Look::Cell), arrayName(place.cells, i),
                             linePlace(i + 1, place.x, place.width));
      connect(made, &ClickLabel::clicked, this, [this, i] { act([this, i] { m_session.flip(i); }); });
      return made;
    };
    m_lines.at(static_cast<std::size_t>(i)) = {label(0), label(1), label(2), label(3), label(4), label(5), label(6)};
  }
}

void Form10::makeButtons() {
  const auto button = [this](const char* name, std::string_view caption, int y) {
    return put(new QPushButton(words(caption), this), name, {kButtonX, y, kButtonWidth, kButtonHeight});
  };
  QPushButton* const overwrite = button("Command1", OverwriteSession::kOverwriteAll, 450);
  QPushButton* const keep = button("Command2", OverwriteSession::kKeepAll, 1050);
  QPushButton* const accept = button("Command3", OverwriteSession::kAccept, 1950);
  QPushButton* const cancel = button("Command4", OverwriteSession::kCancel, 2550);
  accept->setDefault(true);
  accept->setFocus();
  // Enter ends the dialog whichever button was pressed last.
  for (QPushButton* const all : {overwrite, keep, cancel}) all->setAutoDefault(false);
  connect(overwrite, &QPushButton::clicked, this, [this] { act([this] { m_session.overwriteAll(); }); });
  connect(keep, &QPushButton::clicked, this, [this] { act([this] { m_session.keepAll(); }); });
  connect(accept, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &Form10::reject);
}

void Form10::reject() {
  m_session.drop();
  QDialog::reject();
}

void Form10::showState() {
  for (int i = 0; i < OverwriteSession::kVisibleRows; ++i) {
    const OverwriteSession::Line texts = m_session.line(i);
    const Line& line = m_lines.at(static_cast<std::size_t>(i));
    line.number->setText(words(texts.number));
    line.sampleNo->setText(words(texts.sampleNo));
    line.storedPressures->setText(words(texts.stored.cellPressures));
    line.storedSoil->setText(words(texts.stored.soilName));
    line.comingPressures->setText(words(texts.coming.cellPressures));
    line.comingSoil->setText(words(texts.coming.soilName));
    line.answer->setText(words(texts.answer));
    line.answer->setFocusPolicy(texts.answer.empty() ? Qt::NoFocus : Qt::TabFocus);
  }
  const QSignalBlocker blocked(m_scroll);
  m_scroll->setValue(m_session.scroll());
}

void Form10::wheelEvent(QWheelEvent* event) { m_scroll->event(event); }

}  // namespace triaxlab
