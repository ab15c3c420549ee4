#pragma once

#include <vector>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// The rules of a table: its outline, and where lines go through it from edge to edge.
struct TableRules {
  Point corner, opposite;
  std::vector<double> rows, columns;  // y of the lines between rows, x of those between columns
};

void drawTableRules(DrawingSurface& surface, const TableRules& rules, Stroke stroke);

}  // namespace triaxlab
