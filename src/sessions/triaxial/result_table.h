#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "sessions/cell_keys.h"
#include "sessions/triaxial/page_steps.h"
#include "sessions/triaxial/result_rows.h"
#include "triaxial/record.h"

namespace triaxlab {

/// The table under the canvas: 12 lines of a first column and three columns a stage. Its cells are
/// counted line by line.
inline constexpr int kTableLines = 12;
inline constexpr int kTableColumns = 1 + 3 * static_cast<int>(kStages);
inline constexpr int kTableCells = kTableLines * kTableColumns;

/// Which page of the table is shown, how far it is scrolled, and its texts as of the last refresh.
class ResultTable {
 public:
  TablePage page() const { return m_page; }
  /// The row on the first line.
  int top() const { return m_top; }
  int scrollMax() const;
  /// Texts of the second head line, UTF-8; the results page has none.
  const std::array<std::string, kTableColumns>& columnHeads() const { return m_columnHeads; }
  const std::array<std::string, kTableCells>& cells() const { return m_cells; }
  /// The value that is open.
  std::optional<ResultCell> openCell() const { return m_openCell; }
  /// The open cell; while none is open the first that could be, -1 when the page has none.
  int textCell() const;

  void reset() { *this = ResultTable(); }
  /// Another page closes the cell. The lines of the results page and the rows of the curves have nothing in common, so
  /// going from one to the other starts at the top.
  void setPage(TablePage page);
  /// Held within the range of the page; closes the cell.
  void scroll(int top);
  /// Opens an editable value of the results page; any other cell closes it.
  void select(int index);
  void close() { m_openCell.reset(); }
  /// A key in the open cell: the arrows and Enter go to the next value that may be edited, scrolled into sight. True
  /// when the key left the cell or would have but for the end of the table; false when it moves within the text.
  bool key(CellKey key, CursorPlace cursor);
  /// Writes all texts anew from the record.
  void refresh(const TriaxialSampleRecord& record);
  /// The page with all its rows down to the last with a value, and its heads in two lines; cells parted by tabs, UTF-8.
  std::string wholePage(const TriaxialSampleRecord& record) const;

 private:
  using TableRow = std::array<std::string, kTableColumns>;
  std::size_t rowCount() const;
  TableRow heads() const;
  TableRow rowTexts(const TriaxialSampleRecord& record, std::size_t row) const;
  bool moveCell(int step);

  TablePage m_page = TablePage::Stresses;
  int m_top = 0;
  std::optional<ResultCell> m_openCell;
  std::array<std::string, kTableColumns> m_columnHeads;
  std::array<std::string, kTableCells> m_cells;
};

}  // namespace triaxlab
