#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/drawing_surface.h"
#include "platform/whole_twips.h"

namespace triaxlab {

struct DrawnLine {
  TwipPoint from, to;
  Stroke stroke;
  bool operator==(const DrawnLine&) const = default;
};
struct DrawnBox {
  TwipPoint corner, opposite;
  Stroke stroke;
  std::optional<Colour> fill;
  bool operator==(const DrawnBox&) const = default;
};
struct DrawnCircle {
  TwipPoint centre;
  int radius = 0;
  Stroke stroke;
  std::optional<Colour> fill;
  bool operator==(const DrawnCircle&) const = default;
};
struct DrawnPolyline {
  std::vector<TwipPoint> points;
  Stroke stroke;
  bool operator==(const DrawnPolyline&) const = default;
};
struct DrawnText {
  TwipPoint upperLeft;
  std::string text;  // UTF-8
  Font font;
  Colour colour = Colour::Black;
  bool rotated = false;
  bool operator==(const DrawnText&) const = default;
};
using DrawnOperation = std::variant<DrawnLine, DrawnBox, DrawnCircle, DrawnPolyline, DrawnText>;

/// Keeps what is drawn, in order, with coordinates rounded to the nearest twip: for tests, which compare drawings as
/// data, and for the files of drawing operations.
class RecordingSurface : public DrawingSurface {
 public:
  void line(Point from, Point to, Stroke stroke) override;
  void box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) override;
  void circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) override;
  void polyline(std::span<const Point> points, Stroke stroke) override;
  void text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) override;

  const std::vector<DrawnOperation>& operations() const { return m_operations; }
  void clear() { m_operations.clear(); }

 private:
  std::vector<DrawnOperation> m_operations;
};

/// The operation as one JSON object, {"op": "line", "x1": 0, ...}: colours as numbers, texts in UTF-8.
std::string jsonOf(const DrawnOperation& operation);

}  // namespace triaxlab
