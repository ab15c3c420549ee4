#pragma once

#include "platform/drawing_surface.h"

namespace triaxlab {

/// The two lines over a column of a table. A "_" in the symbol makes the character behind it a subscript.
struct ColumnTitle {
  const char* symbol;
  const char* unit;
};

/// The two lines of a title, each centred in a column. A symbol that is wider than the column is set smaller, down to
/// the tenth of a point that fits: titles of neighbours never touch.
void drawColumnTitle(DrawingSurface& surface, const ColumnTitle& title, double centreX, double width, double symbolY,
                     double unitY, const Font& font);

}  // namespace triaxlab
