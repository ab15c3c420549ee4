#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// left <= right, top <= bottom.
struct Rectangle {
  double left, top, right, bottom;
};

struct Segment {
  Point from, to;
};

/// The part of a line that lies in the rectangle, its edges included; nothing when it lies outside or only touches.
/// Coordinates are finite.
std::optional<Segment> clipLine(const Segment& line, const Rectangle& window);

/// The parts of a polyline that lie in the rectangle: a curve that leaves and comes back gives several. Each has two
/// points at least.
std::vector<std::vector<Point>> clipPolyline(std::span<const Point> points, const Rectangle& window);

}  // namespace triaxlab
