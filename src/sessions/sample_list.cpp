#include "sessions/sample_list.h"

#include <algorithm>

namespace triaxlab {
namespace {

constexpr int kPageStep = 3;  // rows that PageUp and PageDown scroll

}  // namespace

bool SampleList::select(int cell) {
  if (cell < firstCell() || cell > lastCell()) return false;
  m_cell = cell;
  return true;
}

void SampleList::scroll(int top) { m_top = std::clamp(top, 0, scrollMax()); }

void SampleList::moveLine(int step) {
  if (!select(m_cell + 2 * step)) scroll(m_top + step);
}

bool SampleList::key(CellKey key, CursorPlace cursor) {
  switch (key) {
    case CellKey::Up:
      moveLine(-1);
      return true;
    case CellKey::Down:
    case CellKey::Enter:
      moveLine(+1);
      return true;
    case CellKey::PageUp:
      scroll(m_top - kPageStep);
      return true;
    case CellKey::PageDown:
      scroll(m_top + kPageStep);
      return true;
    case CellKey::Left:
      return cursor.atStart && select(m_cell - 1);
    case CellKey::Right:
      return cursor.atEnd && select(m_cell + 1);
  }
  return false;
}

}  // namespace triaxlab
