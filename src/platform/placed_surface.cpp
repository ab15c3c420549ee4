#include "platform/placed_surface.h"

#include <vector>

namespace triaxlab {

void PlacedSurface::line(Point from, Point to, Stroke stroke) { m_target.line(placed(from), placed(to), stroke); }

void PlacedSurface::box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) {
  m_target.box(placed(corner), placed(opposite), stroke, fill);
}

void PlacedSurface::circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) {
  m_target.circle(placed(centre), m_scale * radius, stroke, fill);
}

void PlacedSurface::polyline(std::span<const Point> points, Stroke stroke) {
  std::vector<Point> moved;
  moved.reserve(points.size());
  for (const Point& point : points) moved.push_back(placed(point));
  m_target.polyline(moved, stroke);
}

void PlacedSurface::text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) {
  Font scaled = font;
  scaled.size *= m_textScale;
  m_target.text(placed(upperLeft), utf8, scaled, colour, rotated);
}

}  // namespace triaxlab
