#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "sessions/dialogs/grid_column.h"
#include "sessions/dialogs/list_kinds.h"
#include "store/project/project_kinds.h"
#include "store/project/project_list.h"
#include "store/workspace.h"

namespace triaxlab {

class BackupSession;
class SampleListSession;

/// Opens a project file (name without folder) for the document window that shows its kind. UserError when it can't be
/// opened; the tables are then as they were.
using ProjectOpener = std::function<Remarks(ProjectKind kind, std::string_view fileName)>;

/// The session behind the project browser (OPENFORM). The kind of file is `openDialogKind` of the workspace.
/// The hint speaks of the letter T; only Enter, the double click and Labelcz open.
class BrowserSession {
 public:
  /// What the browser opens over itself, each until it is left.
  struct Windows {
    std::function<void(SampleListSession&)> showSampleList;  // Form13, Form14
    std::function<void(BackupSession&)> showBackups;
  };

  /// Lists the project files by file name; row 1, column 1 is current.
  BrowserSession(Workspace& workspace, Dialogs& dialogs, ProjectOpener openProject, Windows windows = {});

  static constexpr std::string_view kSortByProject = "工程编号排序";                       // Command1
  static constexpr std::string_view kSortByDate = "创建日期排序";                          // Command2
  static constexpr std::string_view kSorting = "正在排序中，请稍候......";                 // Labelp
  static constexpr std::string_view kOpen = "打开文件\n恢复所选中的工程数据";              // Labelcz
  static constexpr std::string_view kSampleList = "土样列表\n对所选工程进行土样编号排序";  // Labelsize
  static constexpr std::string_view kBackups = "恢复备份";
  static constexpr std::string_view kFilter = "筛选：工程编号、日期";
  static constexpr std::string_view kHint = "鼠标双击或按\"T\"键选择要处理的文件";

  std::string_view caption() const;   // of the window
  std::string_view listName() const;  // Labelname

  std::vector<GridColumn> columns() const;
  /// Only projects are listed that have this text somewhere in their number or one of their dates, whatever the case of
  /// its letters; an empty one lists all. The current project stays so as long as it is listed.
  void setFilter(std::string_view typed);

  /// Data rows of the grid, at least 1: a list without projects shows one empty row.
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

  /// Command1, Command2: the rows in ascending order of the column's text, by the bytes of its GBK form; rows of equal
  /// texts keep their order. The current project stays so.
  void sortByProject();
  void sortByDate();

  /// False for files that are never written: their samples can't be put in order.
  bool hasSampleLists() const;
  /// Labelsize: the sample list of the current row's project. Each time a list was saved, and when it is left, the
  /// projects are listed anew, in the order that they had, the same project current; then `listed` is called.
  void showSampleList(const std::function<void()>& listed);
  /// The copies of the current row's project; when one was restored the projects are listed anew as above.
  void showBackups(const std::function<void()>& listed);
  /// What sample lists and restores had to say.
  const Remarks& remarks() const { return m_remarks; }

 private:
  using Key = std::string ProjectListRow::*;

  /// The current row, or null when its project cell is empty, which is shown.
  const ProjectListRow* chosenProject();
  void listAnew();
  void sort();
  /// Works out which projects are shown, and finds the row of the one that was current.
  void show(const std::string& currentFile);
  std::string currentFile() const;

  Workspace& m_workspace;
  Dialogs& m_dialogs;
  ProjectOpener m_openProject;
  Windows m_windows;
  const ListKind& m_kind;
  std::vector<ProjectListRow> m_rows;
  std::vector<std::size_t> m_shown;  // places in m_rows
  std::string m_filter;              // in small letters
  Key m_sortKey = &ProjectListRow::fileName;
  int m_currentRow = 1, m_currentColumn = 1;
  std::optional<Remarks> m_opened;
  Remarks m_remarks;
};

}  // namespace triaxlab
