#pragma once

#include <cairo.h>

#include <vector>

#include "platform/cairo/font_faces.h"
#include "platform/drawing_surface.h"
#include "platform/reading_order.h"

namespace triaxlab {

/// Draws on paper through a context whose unit is a twip. Context and fonts are only borrowed: the surface must not
/// outlive them.
class CairoSurface : public DrawingSurface {
 public:
  CairoSurface(cairo_t* context, FontFaces& faces);

  void line(Point from, Point to, Stroke stroke) override;
  void box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) override;
  void circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) override;
  void polyline(std::span<const Point> points, Stroke stroke) override;
  void text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) override;

  /// Draws what was held back: before each shape, for a shape covers what was drawn before it, and at the end of a
  /// page.
  void drawHeldTexts();

 private:
  void drawTexts(const std::vector<PlacedText>& texts);
  void drawText(const PlacedText& text);
  void useColour(Colour colour);
  void paintPath(Stroke stroke, std::optional<Colour> fill);

  cairo_t* m_context;
  FontFaces& m_faces;
  ReadingOrder m_order;
};

}  // namespace triaxlab
