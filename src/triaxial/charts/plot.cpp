#include "triaxial/charts/plot.h"

#include <cmath>

#include "triaxial/charts/clipping.h"

namespace triaxlab {
namespace {

/// A curve that touches the frame stays whole: the last digits of a division must not cut it.
constexpr double kOnTheFrame = 0.01;
constexpr Rectangle kWindow{kPlotLeft - kOnTheFrame, kPlotTop - kOnTheFrame, kPlotRight + kOnTheFrame,
                            kPlotBottom + kOnTheFrame};

constexpr double kPlotMiddle = (kPlotLeft + kPlotRight) / 2;
constexpr double kTitleY = 150, kXLabelY = 4310, kXUnitY = 4500;
constexpr double kYLabelRight = 660, kYTitleX = 20, kYTitleMiddle = (kPlotTop + kPlotBottom) / 2;
constexpr int kXLabelEvery = 5, kYLabelEvery = 2;
constexpr double kTickHeight = 20;
/// Long labels are set smaller, so that they end before the turned title.
constexpr std::size_t kLongLabel = 5;
/// Of 10.5 point, the size of all other texts of a screen: units and long labels.
constexpr double kTextSize = 10.5, kUnitSize = 9, kLongLabelSize = 8;

constexpr Point kBoxCorner{900, 600};
constexpr double kBoxRight = 3000, kBoxMargin = 80, kBoxLine = 270;
constexpr Point kBoxText{960, 640};

Font sized(Font font, double size) {
  font.size = font.size * size / kTextSize;
  return font;
}

double columnX(int column) { return kPlotLeft + column * kPlotWidth / kPlotColumns; }
double rowY(int row) { return kPlotBottom - row * kPlotHeight / kPlotRows; }

}  // namespace

double stepsToReach(double reach, double size) {
  if (reach <= 0) return 0;
  double steps = std::ceil(reach / size);
  // The quotient may have been rounded across a whole number.
  if (steps * size < reach) ++steps;
  if ((steps - 1) * size >= reach) --steps;
  return steps;
}

void Plot::curve(std::span<const Point> values, Stroke stroke) const {
  std::vector<Point> places;
  places.reserve(values.size());
  for (const Point& value : values) places.push_back(m_scale.place(value));
  for (const auto& part : clipPolyline(places, kWindow)) m_surface.polyline(part, stroke);
}

void Plot::line(Point from, Point to, Stroke stroke) const {
  if (const auto inside = clipLine({m_scale.place(from), m_scale.place(to)}, kWindow))
    m_surface.line(inside->from, inside->to, stroke);
}

void Plot::tick(double x, Colour colour) const {
  const double place = m_scale.place({x, 0}).x;
  if (const auto inside = clipLine({{place, kPlotBottom}, {place, kPlotBottom - kTickHeight}}, kWindow))
    m_surface.line(inside->from, inside->to, {colour, 1});
}

void drawGrid(DrawingSurface& surface, const PlotScale& scale, int frameWeight) {
  for (int column = 0; column < kPlotColumns; ++column)
    surface.line({columnX(column), kPlotTop}, {columnX(column), kPlotBottom}, {Colour::Grey, 1});
  for (int row = 0; row < kPlotRows; ++row) {
    const bool isZero = row != 0 && row == scale.zeroRow;
    surface.line({kPlotLeft, rowY(row)}, {kPlotRight, rowY(row)}, {isZero ? Colour::Black : Colour::Grey, 1});
  }
  surface.box({kPlotLeft, kPlotTop}, {kPlotRight, kPlotBottom}, {Colour::Grey, frameWeight}, std::nullopt);
}

Point yTitlePlace(std::string_view yTitle, const Font& font) {
  return {kYTitleX, kYTitleMiddle + textWidth(yTitle, font) / 2};
}

void drawPlotTexts(DrawingSurface& surface, const PlotScale& scale, const PlotTexts& texts, const Font& font) {
  for (int column = 0; column < kPlotColumns; column += kXLabelEvery)
    surface.textCentred(columnX(column), kXLabelY, FormatNumber(column * scale.xStep, NumberFormat::Whole), font,
                        Colour::Blue);
  for (int row = 0; row < kPlotRows; row += kYLabelEvery) {
    const std::string label = FormatNumber((row - scale.zeroRow) * scale.yStep, texts.yFormat);
    const Font labelFont = label.size() < kLongLabel ? font : sized(font, kLongLabelSize);
    surface.textRightAligned(kYLabelRight, rowY(row) - textHeight(labelFont) / 2, label, labelFont, Colour::Blue);
  }
  surface.textRightAligned(kPlotRight, kXUnitY, texts.xUnit, sized(font, kUnitSize), Colour::Black);
  if (!texts.yTitle.empty()) {
    Font rotated = font;
    rotated.name = kSongRotated;
    surface.text(yTitlePlace(texts.yTitle, rotated), texts.yTitle, rotated, Colour::Black, true);
  }
  surface.textCentred(kPlotMiddle, kTitleY, texts.title, font, Colour::Black);
}

Font smallFont(const Font& font) {
  Font small = font;
  small.size *= 0.7;
  return small;
}

void drawResultsBox(DrawingSurface& surface, const std::vector<ResultLine>& lines, const Font& font, int frameWeight) {
  const double height = kBoxMargin + kBoxLine * static_cast<double>(lines.size());
  surface.box(kBoxCorner, {kBoxRight, kBoxCorner.y + height}, {Colour::Black, frameWeight}, Colour::LightCyan);
  Point place = kBoxText;
  for (const ResultLine& line : lines) {
    surface.text(place, line.text, font, Colour::Black);
    if (line.degrees)
      surface.text({place.x + textWidth(line.text, font), place.y - raisedLift(font)}, "o", smallFont(font),
                   Colour::Black);
    place.y += kBoxLine;
  }
}

}  // namespace triaxlab
