#pragma once

#include <QColor>
#include <QFont>
#include <QTransform>
#include <map>
#include <string>
#include <tuple>

#include "platform/drawing_surface.h"

class QPainter;

namespace triaxlab {

QColor colourOf(Colour colour);

/// Draws through a QPainter whose unit is a twip. The painter is only borrowed: the surface must not outlive it.
class PainterSurface : public DrawingSurface {
 public:
  /// What a line width of 1 is.
  enum class Medium : std::uint8_t {
    Screen,   // a logical pixel
    Paper,    // 1/600 inch
    Picture,  // 1/600 inch, made up to whole pixels of the picture: a frame is as strong on each of its sides
  };
  PainterSurface(QPainter& painter, Medium medium);

  void line(Point from, Point to, Stroke stroke) override;
  void box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) override;
  void circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) override;
  void polyline(std::span<const Point> points, Stroke stroke) override;
  void text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) override;

 private:
  /// A piece of a text whose place and direction are `toText`.
  void drawRun(std::string_view run, const Font& font, const QTransform& toText);
  /// What a line is to the eye: curves and circles stand out from rules, and those from the grid.
  enum class Ink : std::uint8_t { Grid, Rule, Curve };
  void usePen(Stroke stroke, Ink ink);
  double screenWidth(int width, Ink ink) const;
  void useFill(std::optional<Colour> fill);
  const QFont& fontFor(const Font& font);

  QPainter& m_painter;
  QTransform m_base;  // twips to the device
  Medium m_medium;
  double m_pixelTwips;  // twips to a pixel of the device
  using FontKey = std::tuple<std::string, double, bool>;
  std::map<FontKey, QFont> m_fonts;
};

}  // namespace triaxlab
