#pragma once

#include "sessions/cell_keys.h"

namespace triaxlab {

/// What arrow keys and Enter do in every block of cells: they go a line up or down, or on to the neighbour once the
/// cursor stands at that end of the text. `moveLine` takes -1 or 1, and so does `moveCell`, which tells whether there
/// is such a cell. True when the key left the cell or would have but for the end of the block; false when it moves
/// within the text, and for the page keys.
template <class MoveLine, class MoveCell>
bool moveByKey(CellKey key, CursorPlace cursor, const MoveLine& moveLine, const MoveCell& moveCell) {
  switch (key) {
    case CellKey::Up:
      moveLine(-1);
      return true;
    case CellKey::Down:
    case CellKey::Enter:
      moveLine(+1);
      return true;
    case CellKey::Left:
      return cursor.atStart && moveCell(-1);
    case CellKey::Right:
      return cursor.atEnd && moveCell(+1);
    case CellKey::PageUp:
    case CellKey::PageDown:
      break;
  }
  return false;
}

}  // namespace triaxlab
