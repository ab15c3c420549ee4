#include "windows/dialogs/project_browser_window.h"

#include <QFrame>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <functional>

#include "windows/controls/click_label.h"
#include "windows/controls/grid_view.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"
#include "windows/dialogs/session_grid.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 9300, 7800};
constexpr Place kListName{200, 120, 5000, 300}, kHint{200, 420, 6000, 300};
constexpr Place kGrid{200, 780, 8900, 5700};
constexpr Place kOpen{200, 6630, 2700, 600}, kSampleList{3100, 6630, 3300, 600};
constexpr Place kByProject{7200, 6600, 1900, 330}, kByDate{7200, 6960, 1900, 330};
constexpr Place kBackups{7200, 7320, 1900, 330}, kFilter{6200, 330, 2900, 360};
constexpr Place kSorting{200, 7350, 5000, 300};

}  // namespace

OPENFORM::OPENFORM(QWidget* parent, BrowserSession& session)
    : SessionDialog(parent),
      m_session(session),
      m_grid(put(new GridView(this, contentOf(session)), "MSFlexGrid1", kGrid)) {
  setObjectName("OPENFORM");
  setWindowTitle(words(session.caption()));
  setFixedSize(rectangle(kWindow).size());
  makeLabels();
  makeFilter();
  connect(m_grid, &GridView::rowDoubleClicked, this, &OPENFORM::openProject);
  connect(m_grid, &GridView::enterPressed, this, &OPENFORM::openProject);
  connect(m_grid->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& cell) {
    if (cell.isValid()) m_session.setCurrentCell(cell.row() + 1, cell.column());
  });
  m_grid->setCurrentCell(session.currentRow(), session.currentColumn());
  m_grid->setFocus();
}

void OPENFORM::makeLabels() {
  put(new ClickLabel(this, words(m_session.listName())), "Labelname", kListName);
  put(new ClickLabel(this, words(BrowserSession::kHint)), "Label1", kHint);
  const auto clickable = [this](const char* name, std::string_view text, Place place) {
    auto* const label = put(new ClickLabel(this, words(text)), name, place);
    label->setFrameStyle(QFrame::Panel | QFrame::Raised);
    label->setAlignment(Qt::AlignCenter);
    label->setFocusPolicy(Qt::TabFocus);
    return label;
  };
  connect(clickable("Labelcz", BrowserSession::kOpen, kOpen), &ClickLabel::clicked, this, &OPENFORM::openProject);
  auto* const samples = clickable("Labelsize", BrowserSession::kSampleList, kSampleList);
  samples->setEnabled(m_session.hasSampleLists());
  connect(samples, &ClickLabel::clicked, this,
          [this] { act([this] { m_session.showSampleList([this] { refresh(); }); }); });
  const auto button = [this](const char* name, std::string_view caption, Place place, void (BrowserSession::*order)()) {
    auto* const made = put(new QPushButton(words(caption), this), name, place);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, [this, order] { sort(order); });
  };
  button("Command1", BrowserSession::kSortByProject, kByProject, &BrowserSession::sortByProject);
  button("Command2", BrowserSession::kSortByDate, kByDate, &BrowserSession::sortByDate);
  auto* const backups = put(new QPushButton(words(BrowserSession::kBackups), this), "Backups", kBackups);
  backups->setAutoDefault(false);
  backups->setEnabled(m_session.hasSampleLists());
  connect(backups, &QPushButton::clicked, this, [this] {
    act([this] { m_session.showBackups([this] { refresh(); }); });
    m_grid->setFocus();
  });
  m_sorting = put(new ClickLabel(this, words(BrowserSession::kSorting)), "Labelp", kSorting);
  m_sorting->hide();
}

void OPENFORM::makeFilter() {
  auto* const filter = put(new QLineEdit(this), "Filter", kFilter);
  filter->setPlaceholderText(words(BrowserSession::kFilter));
  filter->setClearButtonEnabled(true);
  connect(filter, &QLineEdit::textEdited, this,
          [this](const QString& typed) { act([&] { m_session.setFilter(utf8(typed)); }); });
  connect(filter, &QLineEdit::returnPressed, this, &OPENFORM::openProject);
  connect(new QShortcut(Qt::Key_Down, filter, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, m_grid,
          [this] { m_grid->setFocus(); });
}

void OPENFORM::showState() {
  // The reset forgets the current cell; the session doesn't.
  const int row = m_session.currentRow(), column = m_session.currentColumn();
  m_grid->contentChanged();
  m_grid->setCurrentCell(row, column);
}

void OPENFORM::sort(void (BrowserSession::*order)()) {
  m_sorting->show();
  m_sorting->repaint();
  act([this, order] { std::invoke(order, m_session); });
  m_sorting->hide();
  m_grid->setFocus();
}

void OPENFORM::openProject() {
  actToEnd([this] { return m_session.open(); });
}

}  // namespace triaxlab
