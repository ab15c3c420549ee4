#include "sessions/sample_list.h"

#include <algorithm>

#include "sessions/cell_moves.h"

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
  if (key == CellKey::PageUp || key == CellKey::PageDown) {
    scroll(m_top + (key == CellKey::PageUp ? -kPageStep : kPageStep));
    return true;
  }
  return moveByKey(
      key, cursor, [this](int step) { moveLine(step); }, [this](int step) { return select(m_cell + step); });
}

}  // namespace triaxlab
