#pragma once

#include <cstdint>

namespace triaxlab {

/// Keys in the open cell of a list or table that may leave the cell.
enum class CellKey : std::uint8_t { Up, Down, Left, Right, Enter, PageUp, PageDown };

/// Where the cursor of a text box stands; both in an empty text.
struct CursorPlace {
  bool atStart = true;
  bool atEnd = true;
};

}  // namespace triaxlab
