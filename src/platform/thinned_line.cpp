#include "platform/thinned_line.h"

#include <algorithm>
#include <utility>

namespace triaxlab {
namespace {

/// The straight piece between two points.
class Piece {
 public:
  Piece(Point from, Point to)
      : m_from(from), m_dx(to.x - from.x), m_dy(to.y - from.y), m_squaredLength(m_dx * m_dx + m_dy * m_dy) {}

  double squaredDistance(Point point) const {
    const double x = point.x - m_from.x, y = point.y - m_from.y;
    const double along = m_squaredLength > 0 ? std::clamp((x * m_dx + y * m_dy) / m_squaredLength, 0.0, 1.0) : 0;
    const double dx = x - along * m_dx, dy = y - along * m_dy;
    return dx * dx + dy * dy;
  }

 private:
  Point m_from;
  double m_dx, m_dy, m_squaredLength;
};

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
    double most = tolerance * tolerance;
    const Piece piece(points[begin], points[end]);
    for (std::size_t i = begin + 1; i < end; ++i) {
      const double away = piece.squaredDistance(points[i]);
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
