#include "charts/plot.h"

#include <algorithm>

#include "charts/clipping.h"

namespace triaxlab {
namespace {

constexpr double kTickHeight = 20;

/// A curve that touches the frame stays whole: the last digits of a division must not cut it.
Rectangle windowOf(const PlotFrame& frame) {
  constexpr double kOnTheFrame = 0.01;
  return {frame.left - kOnTheFrame, frame.top - kOnTheFrame, frame.right + kOnTheFrame, frame.bottom + kOnTheFrame};
}

}  // namespace

double stepsToReach(double reach, double size) {
  if (reach <= 0) return 0;
  double steps = std::ceil(reach / size);
  // The quotient may have been rounded across a whole number.
  if (steps * size < reach) ++steps;
  if ((steps - 1) * size >= reach) --steps;
  return steps;
}

CurveReach reachOf(std::span<const std::vector<Point>> curves) {
  CurveReach reach;
  for (const auto& curve : curves)
    for (const Point& point : curve)
      reach = {std::max(reach.x, point.x), std::max(reach.y, point.y), std::max(reach.depth, -point.y)};
  return reach;
}

void Plot::curve(std::span<const Point> values, Stroke stroke) const {
  std::vector<Point> places;
  places.reserve(values.size());
  for (const Point& value : values) places.push_back(m_scale.place(value));
  for (const auto& part : clipPolyline(places, windowOf(m_scale.frame))) m_surface.polyline(part, stroke);
}

void Plot::line(Point from, Point to, Stroke stroke) const {
  if (const auto inside = clipLine({m_scale.place(from), m_scale.place(to)}, windowOf(m_scale.frame)))
    m_surface.line(inside->from, inside->to, stroke);
}

void Plot::dot(Point value, double radius, Stroke stroke, std::optional<Colour> fill) const {
  if (const Point place = m_scale.place(value); m_scale.frame.contains(place))
    m_surface.circle(place, radius, stroke, fill);
}

void Plot::tick(double x, Colour colour) const {
  const double place = m_scale.place({x, 0}).x;
  const PlotFrame& frame = m_scale.frame;
  if (const auto inside = clipLine({{place, frame.placeY(0)}, {place, frame.placeY(kTickHeight)}}, windowOf(frame)))
    m_surface.line(inside->from, inside->to, {colour, 1});
}

}  // namespace triaxlab
