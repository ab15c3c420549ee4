#include "windows/dialogs/importer_window.h"

#include <QLabel>
#include <QPushButton>
#include <utility>

#include "sessions/dialogs/error_display.h"
#include "windows/controls/grid_view.h"
#include "windows/controls/layout.h"
#include "windows/controls/warning_bar.h"
#include "windows/controls/words.h"
#include "windows/dialogs/session_grid.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 9000, 7500};
constexpr Place kFileCount{200, 150, 3000, 300}, kMarkCount{3400, 150, 3500, 300};
constexpr Place kGrid{200, 540, 8600, 5900};
/// What is damaged in the index takes the lower part of the grid.
constexpr Place kGridOverWarnings{200, 540, 8600, 4900}, kWarnings{200, 5480, 8600, 960};
constexpr Place kRead{1500, 6700, 1400, 450}, kThird{3400, 6700, 1800, 450}, kReturn{5700, 6700, 1400, 450};
constexpr Place kFirstSort{7300, 6560, 1500, 360}, kSorting{200, 7180, 5000, 300};
constexpr int kSortPitch = 390;
constexpr const char* kSortingNow = "正在排序中，请稍候......";

}  // namespace

ImporterWindow::ImporterWindow(QWidget* parent, ImportSelection& selection, Dialogs& dialogs, Progress progress)
    : SessionDialog(parent),
      m_selection(selection),
      m_dialogs(dialogs),
      m_progress(std::move(progress)),
      m_grid(put(new GridView(this, contentOf(selection)), "Grid1", kGrid)),
      m_warnings(put(new WarningBar(this), "WarningBar", kWarnings)),
      m_fileCount(put(new QLabel(this), "Label1", kFileCount)),
      m_markCount(put(new QLabel(this), "Label2", kMarkCount)) {
  setObjectName(words(selection.importer().form));
  setWindowTitle(words(selection.importer().title));
  setFixedSize(rectangle(kWindow).size());
  makeButtons();
  makeSorts();
  connect(m_warnings, &WarningBar::shown, this,
          [this](bool isThere) { m_grid->setGeometry(rectangle(isThere ? kGridOverWarnings : kGrid)); });
  connect(m_grid, &GridView::rowDoubleClicked, this, &ImporterWindow::toggleMark);
  connect(m_grid, &GridView::enterPressed, m_read, &QPushButton::click);
  load();
}

void ImporterWindow::makeButtons() {
  m_read = put(new QPushButton("处理", this), "Command1", kRead);
  m_read->setDefault(true);
  connect(m_read, &QPushButton::clicked, this, &ImporterWindow::read);
  auto* const leave = put(new QPushButton("返回", this), "Command2", kReturn);
  leave->setAutoDefault(false);
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  if (const auto caption = m_selection.importer().thirdButton; !caption.empty()) {
    m_third = put(new QPushButton(words(caption), this), "Command3", kThird);
    m_third->setAutoDefault(false);
    connect(m_third, &QPushButton::clicked, this,
            [this] { act([this] { m_selection.pressThirdButton(m_dialogs, m_progress); }); });
  }
}

void ImporterWindow::makeSorts() {
  const auto sorts = m_selection.importer().sorts;
  if (sorts.empty()) return;
  m_sorting = put(new QLabel(kSortingNow, this), "Labelp", kSorting);
  m_sorting->hide();
  Place place = kFirstSort;
  for (std::size_t i = 0; i < sorts.size(); ++i, place.y += kSortPitch) {
    auto* const button = put(new QPushButton(words(sorts[i].caption), this), words(sorts[i].control), place);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, i] { sort(i); });
  }
}

void ImporterWindow::load() {
  act([this] {
    if (!m_selection.isOpen()) m_selection.load(m_dialogs);
  });
  m_grid->contentChanged();
  m_grid->setCurrentCell(1, 1);
  m_grid->setFocus();
}

void ImporterWindow::sort(std::size_t button) {
  const int row = m_grid->currentRow();
  m_sorting->show();
  m_sorting->repaint();
  m_selection.sort(button);
  m_grid->contentChanged();
  m_grid->setCurrentCell(row, 1);
  m_sorting->hide();
  m_grid->setFocus();
}

void ImporterWindow::toggleMark(int row) {
  act([this, row] { m_selection.toggleMark(static_cast<std::size_t>(row), m_dialogs); });
  m_grid->rowChanged(row);
}

void ImporterWindow::read() {
  actToEnd([this] {
    const std::optional<ImportReport> report = m_selection.read(m_dialogs, m_progress);
    if (!report) return false;
    m_remarks = m_selection.remarks();
    m_remarks->insert(m_remarks->end(), report->remarks.begin(), report->remarks.end());
    return true;
  });
}

void ImporterWindow::run(const std::function<void()>& operation) { runShowingErrors(m_dialogs, operation); }

void ImporterWindow::showState() {
  const SelectionState now = m_selection.state();
  m_fileCount->setText(words(now.label1));
  m_markCount->setText(words(now.label2));
  m_read->setEnabled(now.canRead);
  m_warnings->show(m_selection.remarks());
  if (m_third != nullptr) m_third->setEnabled(now.thirdButton);
}

}  // namespace triaxlab
