#include "sessions/reading_grid.h"

#include <algorithm>

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
  switch (key) {
    case CellKey::Up:
      moveLine(-1);
      return true;
    case CellKey::Down:
    case CellKey::Enter:
      moveLine(+1);
      return true;
    case CellKey::Left:
      return cursor.atStart && select(m_cell - 1);
    case CellKey::Right:
      return cursor.atEnd && select(m_cell + 1);
    case CellKey::PageUp:
    case CellKey::PageDown:
      break;
  }
  return false;
}

}  // namespace triaxlab
