#include "platform/thinned_line.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace triaxlab {
namespace {

/// Of a point from the straight piece between two others.
double distance(Point point, Point from, Point to) {
  const double dx = to.x - from.x, dy = to.y - from.y;
  const double squaredLength = dx * dx + dy * dy;
  const double along =
      squaredLength > 0 ? std::clamp(((point.x - from.x) * dx + (point.y - from.y) * dy) / squaredLength, 0.0, 1.0) : 0;
  return std::hypot(point.x - from.x - along * dx, point.y - from.y - along * dy);
}

}  // namespace

std::vector<Point> thinnedLine(std::span<const Point> points, double tolerance) {
  std::vector<Point> kept;
  if (points.empty()) return kept;
  kept.push_back(points.front());
  // The ends of the pieces that are still to be looked at, the first of them last.
  std::vector<std::size_t> ends{points.size() - 1};
  std::size_t begin = 0;
  while (!ends.empty()) {
    const std::size_t end = ends.back();
    std::size_t farthest = begin;
    double most = tolerance;
    for (std::size_t i = begin + 1; i < end; ++i) {
      const double away = distance(points[i], points[begin], points[end]);
      if (away > most) most = away, farthest = i;
    }
    if (farthest != begin) {
      ends.push_back(farthest);
      continue;
    }
    if (end != begin) kept.push_back(points[end]);
    begin = end;
    ends.pop_back();
  }
  return kept;
}

}  // namespace triaxlab
