#include "charts/clipping.h"

#include <algorithm>
#include <array>

namespace triaxlab {
namespace {

/// The share of a segment that lies inside, as fractions of its length.
struct Share {
  double begin = 0, end = 1;
};

/// Cuts a segment at the four edges in turn (Liang and Barsky).
std::optional<Share> shareInside(const Segment& line, const Rectangle& window) {
  struct Edge {
    double speed;     // outward, over the whole segment
    double distance;  // from the start to the edge, negative when the start is outside
  };
  const double dx = line.to.x - line.from.x, dy = line.to.y - line.from.y;
  const std::array<Edge, 4> edges{Edge{-dx, line.from.x - window.left}, Edge{dx, window.right - line.from.x},
                                  Edge{-dy, line.from.y - window.top}, Edge{dy, window.bottom - line.from.y}};
  Share share;
  for (const Edge& edge : edges) {
    if (edge.speed == 0 && edge.distance < 0) return std::nullopt;
    if (edge.speed < 0) share.begin = std::max(share.begin, edge.distance / edge.speed);
    if (edge.speed > 0) share.end = std::min(share.end, edge.distance / edge.speed);
  }
  if (share.begin >= share.end) return std::nullopt;
  return share;
}

Point along(const Segment& line, double share) {
  // The ends themselves come back exactly.
  if (share == 0) return line.from;
  if (share == 1) return line.to;
  return {line.from.x + share * (line.to.x - line.from.x), line.from.y + share * (line.to.y - line.from.y)};
}

}  // namespace

std::optional<Segment> clipLine(const Segment& line, const Rectangle& window) {
  const auto share = shareInside(line, window);
  if (!share) return std::nullopt;
  return Segment{along(line, share->begin), along(line, share->end)};
}

std::vector<std::vector<Point>> clipPolyline(std::span<const Point> points, const Rectangle& window) {
  std::vector<std::vector<Point>> parts;
  bool goesOn = false;  // the last part ends where the next segment begins
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Segment segment{points[i - 1], points[i]};
    const auto share = shareInside(segment, window);
    if (share) {
      if (!goesOn || share->begin > 0) parts.push_back({along(segment, share->begin)});
      parts.back().push_back(along(segment, share->end));
    }
    goesOn = share && share->end == 1;
  }
  return parts;
}

}  // namespace triaxlab
