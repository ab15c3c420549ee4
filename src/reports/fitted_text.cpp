#include "reports/fitted_text.h"

#include <algorithm>
#include <cmath>

namespace triaxlab {
namespace {

constexpr double kNarrowest = 0.7, kStepsPerPoint = 2;

}  // namespace

Font fittedFont(std::string_view utf8, const Font& font, double room, double smallest) {
  const double width = textWidth(utf8, font);
  if (width <= room) return font;
  Font fitted = font;
  fitted.stretch = std::max(room / width, kNarrowest) * font.stretch;
  if (const double narrow = textWidth(utf8, fitted); room < width * kNarrowest && font.size > smallest)
    fitted.size = std::max(std::floor(font.size * room / narrow * kStepsPerPoint) / kStepsPerPoint, smallest);
  return fitted;
}

void printFitted(DrawingSurface& surface, Point place, std::string_view utf8, const Font& font, double right,
                 double smallest) {
  if (!utf8.empty()) surface.text(place, utf8, fittedFont(utf8, font, right - place.x, smallest), Colour::Black);
}

void printInLine(DrawingSurface& surface, std::span<const double> x, double y, std::span<const std::string> texts,
                 const Font& font) {
  const double gap = textWidth(" ", font);
  for (std::size_t i = 0; i < x.size(); ++i)
    printFitted(surface, {x[i], y}, texts[i], font, i + 1 < x.size() ? x[i + 1] - gap : kRightMargin);
}

void printFittedCentred(DrawingSurface& surface, double centreX, double y, std::string_view utf8, const Font& font,
                        double right) {
  const Font fitted = fittedFont(utf8, font, 2 * (right - centreX));
  if (!utf8.empty()) surface.textCentred(centreX, y, utf8, fitted, Colour::Black);
}

}  // namespace triaxlab
