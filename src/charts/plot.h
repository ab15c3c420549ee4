#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "charts/plot_frame.h"
#include "common/fixed_text.h"
#include "platform/drawing_surface.h"

namespace triaxlab {

/// A frame with what its divisions stand for. A second axis is a scale of its own in the same frame, or in a part of
/// it.
struct PlotScale {
  PlotFrame frame;
  double xStep = 1, yStep = 1;  // of a division; x begins at 0
  double yStart = 0;            // where y begins

  double right() const { return frame.columns * xStep; }
  double yEnd() const { return yStart + frame.rows * yStep; }
  double xTwips() const { return frame.width() / right(); }                // a unit of x
  double yTwips() const { return frame.height() / (frame.rows * yStep); }  // a unit of y
  /// Where a pair of values lies on the canvas.
  Point place(Point value) const {
    return {frame.left + value.x * xTwips(), frame.placeY((value.y - yStart) * yTwips())};
  }
  /// The pair of values at a place of the canvas.
  Point valueAt(Point place) const {
    return {(place.x - frame.left) / xTwips(), frame.twipsAlongY(place.y) / yTwips() + yStart};
  }
};

/// The smallest whole n with n x size at or above `reach`; at least 0. Pre: size is above 0, reach finite.
double stepsToReach(double reach, double size);

/// The largest x and y of all curves, and how far y goes below 0; none of them below 0.
struct CurveReach {
  double x = 0, y = 0, depth = 0;
};
CurveReach reachOf(std::span<const std::vector<Point>> curves);

/// False beyond six digits, which only an exponent in a damaged field can make, and for what is no number.
inline bool isPlotted(double value) {
  constexpr double kSixDigits = 999999;
  return std::abs(value) <= kSixDigits;
}
/// The number of a field as a chart takes it; one that isn't plotted counts as 0.
template <std::size_t N>
double plottedNumber(const FixedText<N>& field) {
  const double value = field.number();
  return isPlotted(value) ? value : 0;
}

/// Draws curves and lines given in values of a scale, clipped to its frame.
class Plot {
 public:
  Plot(DrawingSurface& surface, const PlotScale& scale) : m_surface(surface), m_scale(scale) {}

  const PlotScale& scale() const { return m_scale; }
  void curve(std::span<const Point> values, Stroke stroke) const;
  void line(Point from, Point to, Stroke stroke) const;
  /// A circle about a value that lies in the plot; `radius` in twips.
  void dot(Point value, double radius, Stroke stroke, std::optional<Colour> fill = std::nullopt) const;
  /// A mark of 20 twips that rises from where y begins at x.
  void tick(double x, Colour colour) const;

 private:
  DrawingSurface& m_surface;
  PlotScale m_scale;
};

}  // namespace triaxlab
