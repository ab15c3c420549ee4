#include "windows/dialogs/backup_window.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>

#include "windows/controls/grid_view.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"
#include "windows/dialogs/session_grid.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 9600, 4500};
constexpr Place kHeading{200, 160, 9200, 300}, kCopies{200, 540, 9200, 3000};
constexpr Place kRestore{5900, 3800, 1650, 450}, kReturn{7750, 3800, 1650, 450};

}  // namespace

BackupWindow::BackupWindow(QWidget* parent, BackupSession& session)
    : SessionDialog(parent),
      m_session(session),
      m_copies(put(new GridView(this, contentOf(session)), "Copies", kCopies)) {
  setObjectName("BACKUPFORM");
  setWindowTitle(words(BackupSession::kCaption));
  setFixedSize(rectangle(kWindow).size());
  put(new QLabel(words(session.heading()), this), "Heading", kHeading);
  m_copies->horizontalHeader()->setStretchLastSection(true);
  connect(m_copies->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& cell) {
    if (cell.isValid()) m_session.chooseRow(cell.row() + 1);
  });
  connect(m_copies, &GridView::rowDoubleClicked, this, &BackupWindow::restore);
  connect(m_copies, &GridView::enterPressed, this, &BackupWindow::restore);
  auto* const restoring = put(new QPushButton(words(BackupSession::kRestore), this), "Restore", kRestore);
  restoring->setAutoDefault(false);
  restoring->setEnabled(session.canRestore());
  connect(restoring, &QPushButton::clicked, this, &BackupWindow::restore);
  auto* const leave = put(new QPushButton(words(BackupSession::kReturn), this), "Return", kReturn);
  leave->setAutoDefault(false);
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  refresh();
  m_copies->setFocus();
}

void BackupWindow::restore() {
  actToEnd([this] { return m_session.restore(); });
}

std::vector<KeyGroup> BackupWindow::keyHelp() const {
  return {{"备份的列表", {{keyName(Qt::Key_Return), "恢复选中的一份"}}}};
}

void BackupWindow::showState() { m_copies->setCurrentCell(m_session.currentRow(), 1); }

}  // namespace triaxlab
