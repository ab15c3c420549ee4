#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/settings.h"
#include "common/user_error.h"
#include "platform/dialogs.h"
#include "sessions/dialogs/list_kinds.h"
#include "store/project/project_kinds.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/sample_list_order.h"
#include "store/workspace.h"

namespace triaxlab {

class ListRangeDialog;
class RowMoves;

/// A column of a sample list.
struct SampleListColumn {
  std::string heading;                         // UTF-8
  int width = 0;                               // twips
  std::string SampleListRow::*text = nullptr;  // null: the row's sequence number
};
/// The columns that the lists of a kind have, under the laboratory's labels: number and sample, of triaxial tests also
/// borehole and depth.
std::vector<SampleListColumn> sampleListColumns(ProjectKind kind, const LaboratoryHabits& habits);

/// What the window of a sample list does for its session.
class SampleListView {
 public:
  virtual ~SampleListView() = default;
  virtual void askForRange(ListRangeDialog& dialog) = 0;  // Form16, modal
  virtual void showRowMoves(RowMoves& moves) = 0;         // Form17, modal
  virtual void refresh() = 0;                             // the list has changed
};

/// The session behind Form14 (triaxial) and Form13 (the other kinds): the samples of one project file, to be put in
/// order or removed. Nothing reaches the disk before 保 存, which rewrites the file; whatever was done since is dropped
/// when the list closes. The open tables know nothing of it.
class SampleListSession {
 public:
  static constexpr int kVisibleRows = 20;

  /// Reads the list of a project file (name without folder). `saved` is called behind each rewrite. UserError as
  /// `listSamples`.
  SampleListSession(Workspace& workspace, Dialogs& dialogs, ProjectKind kind, std::string fileName,
                    std::string projectNo, std::function<void()> saved);

  std::string_view form() const { return m_kind.sampleListForm.name; }   // name of the window
  std::string_view caption() const { return m_kind.sampleListCaption; }  // of the window
  std::string projectLine() const;                                       // which project it is
  const std::vector<SampleListColumn>& columns() const { return m_columns; }
  std::span<const ListButton> buttons() const { return m_kind.sampleListForm.buttons; }

  int rowCount() const { return static_cast<int>(m_rows.size()); }
  int scroll() const { return m_scroll; }
  int largestScroll() const;
  void setScroll(int value);  // held inside 0 .. largestScroll

  struct Line {
    std::vector<std::string> cells;  // one for each column; blank below the end of the list
    bool isMarked = false;
    bool operator==(const Line&) const = default;
  };
  /// A line of the page, 0 to 19.
  Line line(int index) const;
  /// A click on a line marks its row for deletion or takes the mark back; outside the list nothing happens.
  void flipMark(int index);

  /// True when the list is to close. What can't be saved is shown, and the list stays as it is.
  bool press(const ListButton& button, SampleListView& view);

  /// What listing and rewriting had to say.
  const Remarks& remarks() const { return m_remarks; }

 private:
  void remove(const ListButton& button, SampleListView& view);
  void sort(const ListButton& button, SampleListView& view);
  void move(const ListButton& button, SampleListView& view);
  void save(SampleListView& view);

  bool isInList(int index) const;
  void requireListedSamples() const;
  void rewrite();

  Workspace& m_workspace;
  Dialogs& m_dialogs;
  const ListKind& m_kind;
  std::string m_fileName, m_projectNo;  // listedFileName, listedProject
  std::function<void()> m_saved;
  std::vector<SampleListColumn> m_columns;
  Remarks m_remarks;  // filled while the rows are listed
  SampleListTable m_rows;
  std::vector<std::string> m_numbersInFile;  // sample numbers by position, as the list knows the file
  RewriteReport m_report;                    // of the last save
  bool m_isFileRemoved = false;              // by a save of the empty list
  int m_scroll = 0;
};

}  // namespace triaxlab
