#pragma once

#include <cstddef>

#include "sessions/cell_keys.h"
#include "store/sample_table.h"

namespace triaxlab {

/// Which cell of a window's sample list is chosen. The cells are counted line by line, project and sample of each; the
/// heads of a list count as well where they are cells.
class SampleList {
 public:
  struct Shape {
    int lines;          // of samples
    int headLines = 0;  // in front of them
  };
  explicit SampleList(Shape shape) : m_shape(shape), m_cell(firstCell()) {}

  int firstCell() const { return 2 * m_shape.headLines; }
  int lastCell() const { return firstCell() + 2 * m_shape.lines - 1; }
  /// The last value of its scroll bar, at which row 1000 stands on the last line.
  int scrollMax() const { return static_cast<int>(kTableRows) - m_shape.lines; }

  /// `currentLabelIndex` and `currentEditCell`.
  int cell() const { return m_cell; }
  /// Heads are lines as well.
  int line() const { return m_cell / 2; }
  static bool isProject(int cell) { return cell % 2 == 0; }
  bool onProject() const { return isProject(m_cell); }
  /// The row on the first line.
  int top() const { return m_top; }
  std::size_t row() const { return rowOfLine(line()); }
  std::size_t rowOfLine(int line) const {
    const int row = line - m_shape.headLines + m_top;
    return static_cast<std::size_t>(row);
  }

  void reset() { *this = SampleList(m_shape); }
  /// False for the heads and for what is no cell.
  bool select(int cell);
  /// Held within the range.
  void scroll(int top);
  /// True when the key left the cell or would have but for the end of the list; false when it moves within the text.
  bool key(CellKey key, CursorPlace cursor);

 private:
  void moveLine(int step);

  Shape m_shape;
  int m_cell;
  int m_top = 0;
};

}  // namespace triaxlab
