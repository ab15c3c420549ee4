#pragma once

#include <cstddef>

#include "sessions/cell_keys.h"
#include "store/workspace.h"

namespace triaxlab {

inline constexpr int kListLines = 20;
/// The last value of its scroll bar, at which row 1000 stands on the last line.
inline constexpr int kListScrollMax = static_cast<int>(kTableRows) - kListLines;

/// Which cell of the sample list is chosen. The cells are counted line by line: two for the heads, then project and
/// sample of each line.
class SampleList {
 public:
  static constexpr int kFirstCell = 2;
  static constexpr int kLastCell = 2 * kListLines + 1;

  /// `currentLabelIndex`.
  int cell() const { return m_cell; }
  int line() const { return m_cell / 2; }
  bool onProject() const { return m_cell % 2 == 0; }
  /// The row on the first line.
  int top() const { return m_top; }
  std::size_t row() const { return rowOfLine(line()); }
  std::size_t rowOfLine(int line) const {
    const int row = line - 1 + m_top;
    return static_cast<std::size_t>(row);
  }

  void reset() { *this = SampleList(); }
  /// False for the heads and for what is no cell.
  bool select(int cell);
  /// Held within the range.
  void scroll(int top);
  /// True when the key left the cell or would have but for the end of the list; false when it moves within the text.
  bool key(CellKey key, CursorPlace cursor);

 private:
  void moveLine(int step);

  int m_cell = kFirstCell;
  int m_top = 0;
};

}  // namespace triaxlab
