#pragma once

#include <span>
#include <string>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// Where a box of results stands and how it looks; its lines stand `pitch` apart. Twips of the canvas.
struct ResultsBox {
  Point corner = {}, opposite = {};
  Point firstLine = {};
  double pitch = 0;
  Colour outline = Colour::Black, fill = Colour::LightCyan;
};

/// One line of a results box.
struct ResultLine {
  std::string text;
  bool degrees = false;  // a raised degree mark follows
};

void drawResultsBox(DrawingSurface& surface, const ResultsBox& box, std::span<const ResultLine> lines, const Font& font,
                    int lineWeight);

}  // namespace triaxlab
