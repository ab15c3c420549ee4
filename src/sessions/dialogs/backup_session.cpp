#include "sessions/dialogs/backup_session.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <utility>

#include "sessions/dialogs/error_display.h"

namespace triaxlab {
namespace {

struct CopyColumn {
  std::string_view heading;
  int width;                       // twips
  std::string ProjectCopy::*text;  // null: the row's number
};
constexpr auto kCount = &ProjectCopy::sampleCount;
constexpr std::array kColumns{
    CopyColumn{"序号", 600, nullptr},
    CopyColumn{"备份日期", 2300, &ProjectCopy::time},
    CopyColumn{"试样总数", 1000, kCount},
    CopyColumn{"恢复以后", 5000, &ProjectCopy::difference},
};

}  // namespace

BackupSession::BackupSession(Workspace& workspace, Dialogs& dialogs, ProjectKind kind, std::string fileName,
                             std::string project)
    : m_workspace(workspace),
      m_dialogs(dialogs),
      m_kind(kind),
      m_fileName(std::move(fileName)),
      m_project(std::move(project)),
      m_copies(listCopies(workspace, kind, m_fileName)) {}

std::string BackupSession::heading() const {
  const std::string project = fmt::format("{}:{}", m_workspace.settings.habits.projectNoLabel, m_project);
  return m_copies.empty() ? project + "    还没有备份" : project;
}

std::vector<GridColumn> BackupSession::columns() {
  std::vector<GridColumn> columns;
  columns.reserve(kColumns.size());
  for (const CopyColumn& column : kColumns)
    columns.push_back({std::string(column.heading), column.width, column.text == kCount});
  return columns;
}

std::string BackupSession::cell(int row, int column) const {
  if (row < 1 || row > rowCount() || column < 0 || column >= static_cast<int>(kColumns.size())) return {};
  const CopyColumn& shown = kColumns[static_cast<std::size_t>(column)];
  return shown.text == nullptr ? std::to_string(row) : m_copies[static_cast<std::size_t>(row - 1)].*shown.text;
}

void BackupSession::chooseRow(int row) { m_row = std::clamp(row, 1, std::max(1, rowCount())); }

bool BackupSession::restore() {
  if (!canRestore()) return false;
  const ProjectCopy& copy = m_copies[static_cast<std::size_t>(m_row - 1)];
  if (!copy.isReadable) {
    m_dialogs.message(kCaption, copy.difference, MessageIcon::Exclamation);
    return false;
  }
  const std::string question = fmt::format("把“{}”恢复成 {} 的备份吗？\n恢复以后：{}。\n现在的文件先留一份备份。",
                                           m_fileName, copy.time, copy.difference);
  if (!m_dialogs.ask(kCaption, question, MessageIcon::Exclamation)) return false;
  runShowingErrors(m_dialogs, [&] {
    const RestoreReport report = restoreProject(m_workspace, m_kind, m_fileName, copy.name);
    m_isRestored = true;
    m_remarks = report.remarks;
    m_dialogs.message(kCaption, fmt::format("“{}”已恢复。", m_fileName), MessageIcon::None);
    if (!report.errors.empty())
      throw UserError(std::string(kCaption), fmt::format("{}", fmt::join(report.errors, "\n")));
  });
  return m_isRestored;
}

}  // namespace triaxlab
