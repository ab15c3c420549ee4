#pragma once

#include <string>

namespace triaxlab {

/// A column of a grid; widths in twips.
struct GridColumn {
  std::string heading;  // UTF-8
  int width = 0;
  bool isCount = false;  // numbers that are read one below the other
};

}  // namespace triaxlab
