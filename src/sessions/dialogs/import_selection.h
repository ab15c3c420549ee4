#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "importers/importer.h"
#include "platform/dialogs.h"

namespace triaxlab {

/// What the selection window of a raw database shows besides its grid, UTF-8.
struct SelectionState {
  std::string label1;       // "文件总数: 05"; without a number while no database is open
  std::string label2;       // "选中的试样组数：2"
  bool canRead = false;     // Command1 处理 is enabled
  bool thirdButton = true;  // Command3 is
};

/// Where the source looks for its database, by the settings; "c:\qvb" when none is set. UTF-8.
std::string importFolder(const Importer& importer, const Workspace& workspace);

/// Behind the selection window of every source: which database is open, which of its rows are marked. The window calls
/// `load` when it is shown, `toggleMark` on a double click, `read` on 处理, and shows `columns`, `cell` and `state`.
class ImportSelection {
 public:
  /// Takes the source folder over into the workspace's sourceFolder.
  ImportSelection(const Importer& importer, Workspace& workspace);

  const Importer& importer() const { return m_importer; }

  bool isOpen() const { return m_source != nullptr; }

  /// Opens the default file of the source folder; asks for a file when it isn't there. A cancelled question leaves the
  /// grid empty. UserError when the file can't be read; the grid is empty then, too.
  void load(Dialogs& dialogs);
  /// Asks for a file and opens it; false when the question was cancelled. UserError as `load`.
  bool choose(Dialogs& dialogs);
  /// Opens this database instead.
  void open(const std::filesystem::path& sourcePath);

  /// Heading and width of all columns: 序号, those of the source, 处理选择.
  std::vector<SourceColumn> columns() const;
  std::size_t rowCount() const { return m_marked.size(); }
  /// Text of a cell, UTF-8; rows count from 1, row 0 has the headings. Pre: row <= rowCount().
  std::string cell(std::size_t row, std::size_t column) const;
  bool isMarked(std::size_t row) const { return row >= 1 && row <= rowCount() && m_marked[m_order[row - 1]]; }
  SelectionState state() const;
  /// What was damaged in the index of the open database; for the status bar.
  Remarks remarks() const;

  /// A double click on a row: marks it or takes the mark off. Row 0 and rows past the last are passed over. A row that
  /// doesn't go with those that are marked is refused with a message, as are more than 999 marks.
  void toggleMark(std::size_t row, Dialogs& dialogs);

  /// Marks every row, as far as the limit allows.
  void markAll();

  /// Sorts the rows by the column of one of the importer's sorts, ascending at first and the other way at each further
  /// time. Rows that are equal stay as they stand; marks go with their rows.
  void sort(std::size_t button);

  /// 处理: reads the marked rows into the tables of the workspace; see RawSource::read. An import that brings no sample
  /// says so. The document window is then prepared as for an opened project. Nothing when no row is marked any more,
  /// which a message says. Pre: state().canRead.
  std::optional<ImportReport> read(Dialogs& dialogs, const Progress& progress = {});

  /// Command3. 转EXCEL asks for a file and writes all tests of the open database into it, marked or not; 输出接口数据
  /// does nothing. UserError when a file fails. Pre: state().thirdButton.
  void pressThirdButton(Dialogs& dialogs, const Progress& progress = {});

 private:
  bool goesWithMarked(std::size_t place) const;
  std::string markLabel() const;

  const Importer& m_importer;
  Workspace& m_workspace;
  std::unique_ptr<RawSource> m_source;  // nothing while no database is open
  std::filesystem::path m_path;         // of the open database
  std::vector<std::size_t> m_order;     // the source's rows as the grid shows them
  std::vector<bool> m_marked;           // one a row of the source
  std::vector<bool> m_sortsAscending;   // how each of the importer's sorts ran last
  std::size_t m_markCount = 0;
  bool m_wasMarked = false;  // some row, since the database was opened
};

}  // namespace triaxlab
