#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sessions/dialogs/grid_block.h"
#include "sessions/dialogs/grid_column.h"
#include "sessions/sample_texts.h"
#include "store/workspace.h"

namespace triaxlab {

/// The session behind 填写土样资料: what is typed of the samples beside their readings, all of a table in one grid.
/// What is put in goes into the fields of the document window at once; steps can be taken back. Row 1 is the first data
/// row, column 0 the row's number.
class FillInSession {
 public:
  static constexpr std::string_view kCaption = "填写土样资料";
  static constexpr std::string_view kCopyDown = "向下复制";
  static constexpr std::string_view kPaste = "粘 贴";
  static constexpr std::string_view kUndo = "撤 销";
  static constexpr std::string_view kRedo = "重 做";
  static constexpr std::string_view kReturn = "返 回";

  /// The workspace outlives the session. `sampleOnDisplay` is a row of the table; `changed` is told of every change.
  FillInSession(Workspace& workspace, ProjectKind tests, std::size_t sampleOnDisplay, std::function<void()> changed);

  /// How many samples there are, and what to do when there are none.
  std::string heading() const;
  std::vector<GridColumn> columns() const;
  int rowCount() const { return static_cast<int>(m_rows.size()); }
  /// The cell in which typing begins: the first text of the sample on display.
  int firstRow() const { return m_firstRow; }
  static int firstColumn() { return kNumberColumns; }

  /// UTF-8.
  std::string cell(int row, int column) const;
  /// Numbers of the samples are only shown.
  bool isTyped(int column) const;
  /// Bytes of GBK that a typed cell takes.
  std::size_t width(int row, int column) const;

  /// The cell gets this text, as far as its field takes it.
  void type(int row, int column, std::string_view utf8);
  /// Every column of the block gets the text of its first row; a block of one row that of the row above.
  void copyDown(const GridBlock& block);
  /// Lines of cells parted by tabs, as spreadsheets hand them out, from the block's first cell on; a single text goes
  /// into all cells of the block. What could not be put in is told in the remark.
  void paste(const GridBlock& block, std::string_view utf8);
  void clear(const GridBlock& block);
  /// The block as a spreadsheet takes it.
  std::string text(const GridBlock& block) const;

  bool canUndo() const { return m_stepsDone > 0; }
  bool canRedo() const { return m_stepsDone < m_steps.size(); }
  void undo();
  void redo();

  /// What the last action could not do; as a rule empty.
  const std::string& remark() const { return m_remark; }

 private:
  static constexpr int kNumberColumns = 3;  // 序号, project and sample

  struct Change {
    int row, column;
    std::string before, after;  // GBK
  };
  using Step = std::vector<Change>;

  EditableField fieldAt(int row, int column) const;
  bool isInside(int row, int column) const;
  /// False when the field took not all of it.
  bool put(Step& step, int row, int column, std::string_view utf8);
  void finish(Step step);

  Workspace& m_workspace;
  ProjectKind m_tests;
  std::function<void()> m_changed;
  std::span<const SampleText> m_texts;
  std::vector<std::size_t> m_rows;  // of the table
  int m_firstRow = 1;
  std::vector<Step> m_steps;
  std::size_t m_stepsDone = 0;  // those behind were taken back
  std::string m_remark;
};

}  // namespace triaxlab
