#include "sessions/reading_grid.h"

#include <algorithm>

#include "sessions/cell_moves.h"

namespace triaxlab {

bool ReadingGrid::select(int cell) {
  if (cell < 0 || cell >= cellCount()) return false;
  m_cell = cell;
  return true;
}

void ReadingGrid::scroll(int top) { m_top = std::clamp(top, 0, scrollMax()); }

void ReadingGrid::moveLine(int step) {
  if (!select(m_cell + step * m_shape.columns)) scroll(m_top + step);
}

bool ReadingGrid::key(CellKey key, CursorPlace cursor) {
  return moveByKey(
      key, cursor, [this](int step) { moveLine(step); }, [this](int step) { return select(m_cell + step); });
}

}  // namespace triaxlab
