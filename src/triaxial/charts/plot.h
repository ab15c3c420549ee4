#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/text_number.h"
#include "platform/drawing_surface.h"

namespace triaxlab {

// The plot that all charts share: a rectangle of the canvas (twips) with 22 divisions to the right and 14 upward.
inline constexpr double kPlotLeft = 700, kPlotRight = 6700, kPlotTop = 500, kPlotBottom = 4300;
inline constexpr double kPlotWidth = kPlotRight - kPlotLeft, kPlotHeight = kPlotBottom - kPlotTop;
inline constexpr int kPlotColumns = 22, kPlotRows = 14;

constexpr bool isInPlot(Point place) {
  return place.x >= kPlotLeft && place.x <= kPlotRight && place.y >= kPlotTop && place.y <= kPlotBottom;
}

/// What a division of the plot stands for, and where the zero of y lies.
struct PlotScale {
  double xStep = 1, yStep = 1;
  int zeroRow = 0;  // horizontal line of y = 0, counted from the bottom

  double right() const { return kPlotColumns * xStep; }
  double top() const { return (kPlotRows - zeroRow) * yStep; }
  double xTwips() const { return kPlotWidth / right(); }               // a unit of x
  double yTwips() const { return kPlotHeight / (kPlotRows * yStep); }  // a unit of y
  /// Where a pair of values lies on the canvas.
  Point place(Point value) const {
    return {kPlotLeft + value.x * xTwips(), kPlotBottom - (value.y + zeroRow * yStep) * yTwips()};
  }
  /// The pair of values at a place of the canvas.
  Point valueAt(Point place) const {
    return {(place.x - kPlotLeft) / xTwips(), (kPlotBottom - place.y) / yTwips() - zeroRow * yStep};
  }
};

/// The smallest whole n with n x size at or above `reach`; at least 0. Pre: size is above 0, reach finite.
double stepsToReach(double reach, double size);

/// Draws curves and lines given in values of a scale, clipped to the plot.
class Plot {
 public:
  Plot(DrawingSurface& surface, const PlotScale& scale) : m_surface(surface), m_scale(scale) {}

  const PlotScale& scale() const { return m_scale; }
  void curve(std::span<const Point> values, Stroke stroke) const;
  void line(Point from, Point to, Stroke stroke) const;
  /// A mark of 20 twips that rises from the base of the plot at x.
  void tick(double x, Colour colour) const;

 private:
  DrawingSurface& m_surface;
  PlotScale m_scale;
};

/// Grid lines and frame. The line of y = 0 is black where it isn't the base.
void drawGrid(DrawingSurface& surface, const PlotScale& scale, int frameWeight);

/// The texts around a plot.
struct PlotTexts {
  std::string_view title;
  std::string_view xUnit;                      // at the end of the x axis
  std::string_view yTitle;                     // upward along the y axis; empty: none
  NumberFormat yFormat = NumberFormat::Whole;  // of the numbers at the y axis
};
void drawPlotTexts(DrawingSurface& surface, const PlotScale& scale, const PlotTexts& texts, const Font& font);

/// Where the title of the y axis begins; it runs upward from there.
Point yTitlePlace(std::string_view yTitle, const Font& font);

/// A text of less weight beside another: 0.7 of its size.
Font smallFont(const Font& font);
/// How far a subscript stands lower and a raised mark higher than the text that it belongs to, twips.
inline double subscriptDrop(const Font& font) { return 8 * font.size; }
inline double raisedLift(const Font& font) { return 4 * font.size; }

/// One line of a results box.
struct ResultLine {
  std::string text;
  bool degrees = false;  // a raised degree mark follows
};
/// The box of results at the upper left of the plot.
void drawResultsBox(DrawingSurface& surface, const std::vector<ResultLine>& lines, const Font& font, int frameWeight);

}  // namespace triaxlab
