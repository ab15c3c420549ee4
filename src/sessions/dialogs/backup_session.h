#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "sessions/dialogs/grid_column.h"
#include "store/project/restore_project.h"
#include "store/workspace.h"

namespace triaxlab {

/// The session behind 恢复备份: the copies of a project file with what each would change, and the restore of one.
class BackupSession {
 public:
  static constexpr std::string_view kCaption = "恢复备份";
  static constexpr std::string_view kRestore = "恢 复";
  static constexpr std::string_view kReturn = "返 回";

  /// UserError when the copies can't be listed. `project` (UTF-8) is for the person.
  BackupSession(Workspace& workspace, Dialogs& dialogs, ProjectKind kind, std::string fileName, std::string project);

  /// Whose copies these are, and that there are none.
  std::string heading() const;
  static std::vector<GridColumn> columns();
  int rowCount() const { return static_cast<int>(m_copies.size()); }
  /// Row 1 is the first data row, column 0 the row's number.
  std::string cell(int row, int column) const;
  int currentRow() const { return m_row; }
  void chooseRow(int row);
  bool canRestore() const { return !m_copies.empty(); }

  /// Asks, restores the copy of the current row and tells of it. False when nothing was restored: the window stays.
  bool restore();
  bool isRestored() const { return m_isRestored; }
  const Remarks& remarks() const { return m_remarks; }

 private:
  Workspace& m_workspace;
  Dialogs& m_dialogs;
  ProjectKind m_kind;
  std::string m_fileName, m_project;
  std::vector<ProjectCopy> m_copies;
  int m_row = 1;
  bool m_isRestored = false;
  Remarks m_remarks;
};

}  // namespace triaxlab
