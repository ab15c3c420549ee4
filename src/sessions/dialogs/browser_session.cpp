#include "sessions/dialogs/browser_session.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/small_letters.h"
#include "sessions/dialogs/backup_session.h"
#include "sessions/dialogs/error_display.h"
#include "sessions/dialogs/sample_list_session.h"

namespace triaxlab {
namespace {

struct BrowserColumn {
  std::string_view heading;
  int width;                          // twips
  std::string ProjectListRow::*text;  // null: the row's number
};
constexpr std::size_t kProjectNoColumn = 1;
constexpr auto kCount = &ProjectListRow::sampleCount;
constexpr std::array kColumns{
    BrowserColumn{"序号", 700, nullptr},
    BrowserColumn{"", 2000, &ProjectListRow::projectNo},  // headed by the laboratory's label
    BrowserColumn{"试样总数", 1000, kCount},
    BrowserColumn{"创建日期", 1500, &ProjectListRow::createdDate},
    BrowserColumn{"处理日期", 1500, &ProjectListRow::processedDate},
    BrowserColumn{"操作者", 1500, &ProjectListRow::operatorName},
};

constexpr std::array kFiltered{&ProjectListRow::projectNo, &ProjectListRow::createdDate,
                               &ProjectListRow::processedDate};

}  // namespace

BrowserSession::BrowserSession(Workspace& workspace, Dialogs& dialogs, ProjectOpener openProject, Windows windows)
    : m_workspace(workspace),
      m_dialogs(dialogs),
      m_openProject(std::move(openProject)),
      m_windows(std::move(windows)),
      m_kind(listKindOf(static_cast<ProjectKind>(workspace.openDialogKind))),
      m_rows(listProjects(workspace, m_kind.kind)) {
  show("");
}

std::string_view BrowserSession::caption() const { return m_kind.caption; }
std::string_view BrowserSession::listName() const { return m_kind.heading; }

std::vector<GridColumn> BrowserSession::columns() const {
  std::vector<GridColumn> columns;
  columns.reserve(kColumns.size());
  for (const BrowserColumn& column : kColumns)
    columns.push_back({std::string(column.heading), column.width, column.text == kCount});
  columns[kProjectNoColumn].heading = m_workspace.settings.habits.projectNoLabel;
  return columns;
}

int BrowserSession::rowCount() const { return std::max(1, static_cast<int>(m_shown.size())); }

std::string BrowserSession::cell(int row, int column) const {
  const bool inside =
      row >= 1 && row <= static_cast<int>(m_shown.size()) && column >= 0 && column < static_cast<int>(kColumns.size());
  if (!inside) return {};
  const BrowserColumn& shown = kColumns[static_cast<std::size_t>(column)];
  return shown.text == nullptr ? std::to_string(row) : m_rows[m_shown[static_cast<std::size_t>(row - 1)]].*shown.text;
}

void BrowserSession::setCurrentCell(int row, int column) {
  m_currentRow = std::clamp(row, 1, rowCount());
  m_currentColumn = std::clamp(column, 1, static_cast<int>(kColumns.size()) - 1);
}

const ProjectListRow* BrowserSession::chosenProject() {
  if (cell(m_currentRow, kProjectNoColumn).empty()) {
    m_dialogs.message(m_kind.messageTitle, "对不起,你没有选中工程!!", MessageIcon::None);
    return nullptr;
  }
  return &m_rows[m_shown[static_cast<std::size_t>(m_currentRow - 1)]];
}

bool BrowserSession::open() {
  // The date of the document before is dropped even when nothing is chosen; an open that fails leaves it.
  const ProcessingDate before = std::exchange(m_workspace.processingDate, {});
  const ProjectListRow* const project = chosenProject();
  if (project == nullptr) return false;
  const bool opened = runShowingErrors(m_dialogs, [&] {
    m_opened = m_openProject(m_kind.kind, project->fileName);
    m_opened->insert(m_opened->begin(), m_remarks.begin(), m_remarks.end());
  });
  if (!opened) m_workspace.processingDate = before;
  return opened;
}

// ---- which projects, and their order

void BrowserSession::setFilter(std::string_view typed) {
  const std::string current = currentFile();
  m_filter = caseless(Trim(typed));
  show(current);
}

std::string BrowserSession::currentFile() const {
  const auto at = static_cast<std::size_t>(m_currentRow - 1);
  return at < m_shown.size() ? m_rows[m_shown[at]].fileName : "";
}

void BrowserSession::show(const std::string& currentFile) {
  const auto isWanted = [this](const ProjectListRow& row) {
    return m_filter.empty() || std::ranges::any_of(kFiltered, [&](auto text) {
             return caseless(row.*text).find(m_filter) != std::string::npos;
           });
  };
  m_shown.clear();
  int currentRow = 0;
  for (std::size_t i = 0; i < m_rows.size(); ++i) {
    if (!isWanted(m_rows[i])) continue;
    m_shown.push_back(i);
    if (m_rows[i].fileName == currentFile) currentRow = static_cast<int>(m_shown.size());
  }
  // A project that is gone leaves its place to the next.
  setCurrentCell(currentRow > 0 ? currentRow : m_currentRow, m_currentColumn);
}

void BrowserSession::sortByProject() {
  m_sortKey = &ProjectListRow::projectNo;
  sort();
}

void BrowserSession::sortByDate() {
  m_sortKey = &ProjectListRow::createdDate;
  sort();
}

void BrowserSession::sort() {
  const std::string current = currentFile();
  if (m_sortKey == &ProjectListRow::fileName) return;      // the folder is listed so
  std::vector<std::pair<std::string, std::size_t>> order;  // key and place, so that equal keys keep their order
  order.reserve(m_rows.size());
  for (std::size_t i = 0; i < m_rows.size(); ++i) order.emplace_back(utf8ToGbk(m_rows[i].*m_sortKey), i);
  std::ranges::sort(order);
  std::vector<ProjectListRow> rows;
  rows.reserve(m_rows.size());
  for (const auto& [key, place] : order) rows.push_back(std::move(m_rows[place]));
  m_rows = std::move(rows);
  show(current);
}

// ---- sample lists

bool BrowserSession::hasSampleLists() const { return infoOf(m_kind.kind).makeSave != nullptr; }

void BrowserSession::showSampleList(const std::function<void()>& listed) {
  if (!hasSampleLists()) return;
  const ProjectListRow* const project = chosenProject();
  if (project == nullptr) return;
  const auto listAgain = [&] {
    listAnew();
    listed();
  };
  runShowingErrors(m_dialogs, [&] {
    SampleListSession list(m_workspace, m_dialogs, m_kind.kind, project->fileName, project->projectNo, listAgain);
    m_windows.showSampleList(list);
    m_remarks.insert(m_remarks.end(), list.remarks().begin(), list.remarks().end());
    listAgain();
  });
}

void BrowserSession::showBackups(const std::function<void()>& listed) {
  const ProjectListRow* const project = chosenProject();
  if (project == nullptr) return;
  runShowingErrors(m_dialogs, [&] {
    BackupSession backups(m_workspace, m_dialogs, m_kind.kind, project->fileName, project->projectNo);
    m_windows.showBackups(backups);
    m_remarks.insert(m_remarks.end(), backups.remarks().begin(), backups.remarks().end());
    if (!backups.isRestored()) return;
    listAnew();
    listed();
  });
}

void BrowserSession::listAnew() {
  const std::string current = currentFile();
  m_rows = listProjects(m_workspace, m_kind.kind);
  show(current);
  sort();
}

}  // namespace triaxlab
