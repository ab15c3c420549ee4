#pragma once

#include <cstddef>

#include "sessions/cell_keys.h"

namespace triaxlab {

/// Some lines of a table of readings, scrolled over its rows, and which of their cells is chosen. The cells on display
/// are counted line by line.
class ReadingGrid {
 public:
  struct Shape {
    int lines;    // on display
    int columns;  //
    int rows;     // of the table, at least as many as lines
  };
  explicit ReadingGrid(Shape shape) : m_shape(shape) {}

  int cellCount() const { return m_shape.lines * m_shape.columns; }
  int scrollMax() const { return m_shape.rows - m_shape.lines; }
  int cell() const { return m_cell; }
  /// The row on the first line.
  int top() const { return m_top; }
  std::size_t rowOf(int cell) const {
    return static_cast<std::size_t>(cell / m_shape.columns) + static_cast<std::size_t>(m_top);
  }
  std::size_t columnOf(int cell) const { return static_cast<std::size_t>(cell % m_shape.columns); }

  void reset() { *this = ReadingGrid(m_shape); }
  /// False for what is no cell.
  bool select(int cell);
  /// Held within the range; the chosen cell keeps its place on display.
  void scroll(int top);
  /// Up, Down and Enter go a line back or on and scroll at the edges, Left and Right leave the cell at the ends of its
  /// text. True when the key left the cell or would have but for the end of the table.
  bool key(CellKey key, CursorPlace cursor);

 private:
  void moveLine(int step);

  Shape m_shape;
  int m_cell = 0;
  int m_top = 0;
};

}  // namespace triaxlab
