#include "triaxial/session/sample_list.h"

#include <algorithm>

namespace triaxlab {
namespace {

constexpr int kPageStep = 3;  // rows that PageUp and PageDown scroll

}  // namespace

bool SampleList::select(int labelIndex) {
  if (labelIndex < kFirstLabel || labelIndex > kLastLabel) return false;
  m_labelIndex = labelIndex;
  return true;
}

void SampleList::scroll(int top) { m_top = std::clamp(top, 0, kListScrollMax); }

void SampleList::moveLine(int step) {
  if (!select(m_labelIndex + 2 * step)) scroll(m_top + step);
}

bool SampleList::key(ListKey key, CursorPlace cursor) {
  switch (key) {
    case ListKey::Up:
      moveLine(-1);
      return true;
    case ListKey::Down:
    case ListKey::Enter:
      moveLine(+1);
      return true;
    case ListKey::PageUp:
      scroll(m_top - kPageStep);
      return true;
    case ListKey::PageDown:
      scroll(m_top + kPageStep);
      return true;
    case ListKey::Left:
      return cursor.atStart && select(m_labelIndex - 1);
    case ListKey::Right:
      return cursor.atEnd && select(m_labelIndex + 1);
  }
  return false;
}

}  // namespace triaxlab
