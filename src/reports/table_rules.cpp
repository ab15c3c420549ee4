#include "reports/table_rules.h"

namespace triaxlab {

void drawTableRules(DrawingSurface& surface, const TableRules& rules, Stroke stroke) {
  const auto [left, top] = rules.corner;
  const auto [right, bottom] = rules.opposite;
  surface.box(rules.corner, rules.opposite, stroke, std::nullopt);
  for (const double y : rules.rows) surface.line({left, y}, {right, y}, stroke);
  for (const double x : rules.columns) surface.line({x, top}, {x, bottom}, stroke);
}

}  // namespace triaxlab
