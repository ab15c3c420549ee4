#include "charts/results_box.h"

#include "charts/axes.h"

namespace triaxlab {

void drawResultsBox(DrawingSurface& surface, const ResultsBox& box, std::span<const ResultLine> lines, const Font& font,
                    int lineWeight) {
  surface.box(box.corner, box.opposite, {box.outline, lineWeight}, box.fill);
  Point place = box.firstLine;
  for (const ResultLine& line : lines) {
    surface.text(place, line.text, font, Colour::Black);
    if (line.degrees)
      surface.text({place.x + textWidth(line.text, font), place.y - raisedLift(font)}, "o", smallFont(font),
                   Colour::Black);
    place.y += box.pitch;
  }
}

}  // namespace triaxlab
