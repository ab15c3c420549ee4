#include "shell/browser_session.h"

#include <algorithm>
#include <array>
#include <utility>

#include "shell/document_operations.h"
#include "shell/error_display.h"

namespace triaxlab {
namespace {

struct BrowserColumn {
  std::string_view heading;
  int width;                          // twips
  std::string ProjectListRow::*text;  // null: the row's number
};
constexpr std::size_t kProjectNoColumn = 1;
constexpr std::array kColumns{
    BrowserColumn{"序号", 700, nullptr},
    BrowserColumn{"", 2000, &ProjectListRow::projectNo},  // headed by the laboratory's label
    BrowserColumn{"试样总数", 1000, &ProjectListRow::sampleCount},
    BrowserColumn{"创建日期", 1500, &ProjectListRow::createdDate},
    BrowserColumn{"处理日期", 1500, &ProjectListRow::processedDate},
    BrowserColumn{"操作者", 1500, &ProjectListRow::operatorName},
};

}  // namespace

BrowserSession::BrowserSession(Workspace& workspace, Dialogs& dialogs, RangeChooser chooseRange)
    : m_workspace(workspace),
      m_dialogs(dialogs),
      m_chooseRange(std::move(chooseRange)),
      m_kind(infoOf(static_cast<ProjectKind>(workspace.openDialogKind))),
      m_rows(listProjects(workspace, m_kind.kind)) {}

std::string_view BrowserSession::caption() const { return m_kind.listCaption; }
std::string_view BrowserSession::listName() const { return m_kind.listHeading; }

std::vector<GridColumn> BrowserSession::columns() const {
  std::vector<GridColumn> columns;
  columns.reserve(kColumns.size());
  for (const BrowserColumn& column : kColumns) columns.push_back({std::string(column.heading), column.width});
  columns[kProjectNoColumn].heading = m_workspace.settings.habits.projectNoLabel;
  return columns;
}

int BrowserSession::rowCount() const { return std::max(1, static_cast<int>(m_rows.size())); }

std::string BrowserSession::cell(int row, int column) const {
  const bool inside =
      row >= 1 && row <= static_cast<int>(m_rows.size()) && column >= 0 && column < static_cast<int>(kColumns.size());
  if (!inside) return {};
  const BrowserColumn& shown = kColumns[static_cast<std::size_t>(column)];
  return shown.text == nullptr ? std::to_string(row) : m_rows[static_cast<std::size_t>(row - 1)].*shown.text;
}

void BrowserSession::setCurrentCell(int row, int column) {
  m_currentRow = std::clamp(row, 1, rowCount());
  m_currentColumn = std::clamp(column, 1, static_cast<int>(kColumns.size()) - 1);
}

bool BrowserSession::open() {
  // The date of the document before is dropped even when nothing is chosen; an open that fails leaves it.
  const ProcessingDate before = std::exchange(m_workspace.processingDate, {});
  if (cell(m_currentRow, kProjectNoColumn).empty()) {
    m_dialogs.message(m_kind.openTitle, "对不起,你没有选中工程!!", MessageIcon::None);
    return false;
  }
  const std::string& fileName = m_rows[static_cast<std::size_t>(m_currentRow - 1)].fileName;
  const bool opened =
      runShowingErrors(m_dialogs, [&] { m_opened = openTriaxialDocument(m_workspace, fileName, m_chooseRange); });
  if (!opened) m_workspace.processingDate = before;
  return opened;
}

}  // namespace triaxlab
