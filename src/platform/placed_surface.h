#pragma once

#include "platform/drawing_surface.h"

namespace triaxlab {

/// A canvas laid onto another surface: its origin comes to `corner`, and places and lengths are multiplied by `scale`;
/// line widths stay as they are. Texts are multiplied by a scale of their own: a chart whose text is to keep a size of
/// its own on a scaled canvas must lay that text out in the size that it has there.
class PlacedSurface : public DrawingSurface {
 public:
  PlacedSurface(DrawingSurface& target, Point corner, double scale = 1) : PlacedSurface(target, corner, scale, scale) {}
  PlacedSurface(DrawingSurface& target, Point corner, double scale, double textScale)
      : m_target(target), m_corner(corner), m_scale(scale), m_textScale(textScale) {}

  void line(Point from, Point to, Stroke stroke) override;
  void box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) override;
  void circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) override;
  void polyline(std::span<const Point> points, Stroke stroke) override;
  void text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) override;

 private:
  Point placed(Point point) const { return {m_corner.x + m_scale * point.x, m_corner.y + m_scale * point.y}; }

  DrawingSurface& m_target;
  Point m_corner;
  double m_scale, m_textScale;
};

}  // namespace triaxlab
