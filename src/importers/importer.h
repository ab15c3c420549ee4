#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/progress.h"
#include "common/user_error.h"
#include "importers/recognition.h"
#include "store/settings/settings_file.h"
#include "store/settings/source_folders.h"
#include "store/workspace.h"
#include "triaxial/staged_test.h"

namespace triaxlab {

/// A column of a selection grid. Headings are UTF-8, widths are twips.
struct SourceColumn {
  std::string_view heading;
  int width;
  bool isCount = false;  // numbers that are read one below the other
};

/// One entry of a database's index: a row of the selection grid.
struct SourceRow {
  std::vector<std::string> cells;  // UTF-8, one for each of the importer's columns
  std::string projectNo;           // GBK, trimmed: what the project date table takes
  std::string testDate;            // GBK, trimmed: yyyy/mm/dd as far as the database has it
};

/// A button that sorts the grid by one of the source's own columns, ascending and descending in turn.
struct SourceSort {
  std::string_view control;  // object name
  std::string_view caption;
  std::size_t column;
};

/// Which rows of a grid go together, and what the window says of it. As it begins: all rows do.
struct Marking {
  std::span<const std::size_t> sameColumns = {};  // of the importer, in which all marked rows agree
  std::string_view refusal = {};                  // of a row that doesn't
  std::string_view label = "选中的试样组数：";    // Label2, in front of the number of marks; of the first of
                                                  // sameColumns where there is one
  std::string_view withoutMarks = {};             // what 处理 says when the last mark was taken off again; empty:
                                                  // it is off then
};

/// A box that says one sentence.
struct ImportMessage {
  std::string_view title = {}, text = {};
};

/// What reading the marked rows brought.
struct ImportReport {
  std::size_t sampleRows = 0;  // rows of the sample table that the import filled, from 0 upward
  std::size_t samples = 0;     // of them that are no empty slots
  Remarks remarks;             // what a damaged database could not give
};

/// A raw database that was opened: its index is read, its readings are not. The file is not held open.
class RawSource {
 public:
  virtual ~RawSource() = default;
  virtual std::span<const SourceRow> rows() const = 0;
  /// What was damaged in the index.
  virtual const Remarks& remarks() const = 0;
  /// Reads the rows (numbers from 0, in the order of the grid) and replaces the sample table of the test's kind, the
  /// display table and the project date table by what they hold; sets rawImportPending. The workspace changes in the
  /// last statements, when nothing can fail any more, and `progress` goes with them. UserError: the file can't be read,
  /// more samples than the table has rows.
  virtual ImportReport read(std::span<const std::size_t> marked, Workspace& workspace,
                            const Progress& progress) const = 0;
};

/// Every test of a database as it stands there, for those who write it down.
class RawTests {
 public:
  virtual ~RawTests() = default;
  virtual std::size_t count() const = 0;
  /// Pre: index < count().
  virtual StagedTest test(std::size_t index) const = 0;
};

struct RawLayout;

/// One source of raw data: all that its window, its menu entry, its name on the command line, its page in docs/formats
/// and its fuzz target differ in. An importer writes no file.
struct Importer {
  std::string_view id = {};            // on the command line; never renamed
  std::string_view menuCommand = {};   // the command that shows the window
  std::string_view menuCaption = {};   // UTF-8 like all texts here; empty: its command is none of the raw data menu
  std::string_view form = {};          // object name of the window
  std::string_view title = {};         // of the window: what the file is called
  std::string_view defaultFile = {};   // in the source folder
  SettingsField folderField = {0, 0};  // sourceFolderField(kind); a width of 0: the folder stays as the caller left it
  std::string_view messageTitle = {};  //
  std::string_view thirdButton = {};   // caption of Command3; empty: the window has none
  ActiveDocument document = kNoDocument;       // whose table is filled, and which window shows it then
  std::span<const SourceColumn> columns = {};  // between 序号 and 处理选择, which every grid has
  Recognition (*recognise)(const FileHead& head) = nullptr;
  /// Reads the index; see openRawSource, which asks `recognise` first.
  std::unique_ptr<RawSource> (*open)(const std::filesystem::path& path) = nullptr;
  /// Reads the tests that Command3 writes down as a workbook; null: it doesn't.
  std::unique_ptr<RawTests> (*openTests)(const std::filesystem::path& path) = nullptr;
  std::string_view formatPage = {};  // in docs/formats; sources of one file share it. Empty: none, a Jet database
  /// The records of the file, for that page; nothing when it has none of fixed places.
  std::vector<RawLayout> (*layouts)() = nullptr;

  bool lineAbove = false;                         // its menu entry begins another test
  std::string_view fileDialogTitle = {};          // empty: that of the window
  std::string Workspace::*folderInUse = nullptr;  // the source folder of a source that has no folderField
  bool fileFromCommand = false;                   // the command asks for the file before it shows the window
  std::span<const SourceSort> sorts = {};
  Marking marking = {};
  ImportMessage noSamples = {};  // shown when nothing came in; without a text a remark says it
};

/// All sources, in the order of the menu.
std::span<const Importer* const> importers();
/// Nothing when there is no such source.
const Importer* importerOfId(std::string_view id);
const Importer* importerOfMenuCommand(std::string_view menuCommand);

/// The sources that a file is of by its contents, in the order of the menu: sources share layouts, and then the file's
/// name decides as far as it can. A damaged file is that of the source whose name it has. UserError: it can't be read.
std::vector<const Importer*> sourcesOf(const std::filesystem::path& path);
/// The files in a folder that have the name of some source's, in ascending order.
std::vector<std::filesystem::path> namesOfSourcesIn(const std::filesystem::path& folder);

/// Reads the index of a raw file. UserError: the file is missing, a folder, unreadable; or it is none of this source,
/// and then the sentence says which it looks like. An empty file has no rows.
std::unique_ptr<RawSource> openRawSource(const Importer& importer, const std::filesystem::path& path);
/// The same for the tests themselves. Pre: importer.openTests.
std::unique_ptr<RawTests> openRawTests(const Importer& importer, const std::filesystem::path& path);

}  // namespace triaxlab
