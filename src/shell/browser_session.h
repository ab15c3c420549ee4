#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "store/project_file.h"
#include "store/project_kinds.h"
#include "store/project_list.h"
#include "store/workspace.h"

namespace triaxlab {

/// A column of a grid; widths in twips.
struct GridColumn {
  std::string heading;  // UTF-8
  int width = 0;
};

/// The session behind the project browser (OPENFORM). The kind of file is `openDialogKind` of the workspace.
class BrowserSession {
 public:
  /// Lists the project files; row 1, column 1 is current.
  BrowserSession(Workspace& workspace, Dialogs& dialogs, RangeChooser chooseRange);

  std::string_view caption() const;    // of the window
  std::string_view listName() const;   // Labelname
  std::string_view openLabel() const;  // Labelcz
  std::string_view listLabel() const;  // Labelsize
  std::string_view hint() const;

  std::vector<GridColumn> columns() const;
  /// Data rows of the grid, at least 1: a folder without files shows one empty row.
  int rowCount() const;
  /// Row 1 is the first data row, column 0 the row's number. Empty outside the grid.
  std::string cell(int row, int column) const;

  int currentRow() const { return m_currentRow; }
  int currentColumn() const { return m_currentColumn; }
  /// Row and column are held inside the data cells; column 0 is fixed.
  void setCurrentCell(int row, int column);

  /// Double click, Enter or Labelcz: opens the project of the current row. True when it is open and the dialog closes;
  /// otherwise the reason has been shown, the dialog stays, and the table is as it was.
  bool open();
  /// The remarks of the open; nothing as long as no project was opened.
  const std::optional<Remarks>& opened() const { return m_opened; }

 private:
  Workspace& m_workspace;
  Dialogs& m_dialogs;
  RangeChooser m_chooseRange;
  ProjectKind m_kind;
  std::vector<ProjectListRow> m_rows;
  int m_currentRow = 1, m_currentColumn = 1;
  std::optional<Remarks> m_opened;
};

}  // namespace triaxlab
