#pragma once

namespace triaxlab {

/// Chosen cells of a grid, from corner to corner; row 1 is the first data row.
struct GridBlock {
  int top = 1, left = 0, bottom = 1, right = 0;

  bool operator==(const GridBlock&) const = default;
};

}  // namespace triaxlab
