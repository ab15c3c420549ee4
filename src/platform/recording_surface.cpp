#include "platform/recording_surface.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>

#include "common/text_number.h"

namespace triaxlab {
namespace {

int twips(double value) {
  // Far outside any paper; a coordinate that is no number has no place at all.
  constexpr double kEdge = std::numeric_limits<int>::max() / 2;
  if (!(std::abs(value) <= kEdge)) return value > 0 ? static_cast<int>(kEdge) : -static_cast<int>(kEdge);
  return static_cast<int>(std::lround(value));
}
TwipPoint twips(Point point) { return {twips(point.x), twips(point.y)}; }

int number(Colour colour) { return static_cast<int>(colour); }

std::string fillOf(std::optional<Colour> fill) { return fill ? fmt::to_string(number(*fill)) : "null"; }

/// A byte that is no UTF-8 becomes U+FFFD: a settings file may hold anything.
std::string quoted(const std::string& utf8) {
  return nlohmann::json(utf8).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string ends(TwipPoint from, TwipPoint to) {
  return fmt::format(R"("x1": {}, "y1": {}, "x2": {}, "y2": {})", from.x, from.y, to.x, to.y);
}

std::string json(const DrawnLine& line) {
  return fmt::format(R"({{"op": "line", {}, "color": {}, "width": {}}})", ends(line.from, line.to),
                     number(line.stroke.colour), line.stroke.width);
}

std::string json(const DrawnBox& box) {
  return fmt::format(R"({{"op": "box", {}, "color": {}, "fill": {}}})", ends(box.corner, box.opposite),
                     number(box.stroke.colour), fillOf(box.fill));
}

std::string json(const DrawnCircle& circle) {
  return fmt::format(R"({{"op": "circle", "x": {}, "y": {}, "r": {}, "color": {}, "fill": {}}})", circle.centre.x,
                     circle.centre.y, circle.radius, number(circle.stroke.colour), fillOf(circle.fill));
}

std::string json(const DrawnPolyline& polyline) {
  std::string points;
  for (const TwipPoint& point : polyline.points)
    fmt::format_to(std::back_inserter(points), "{}[{}, {}]", points.empty() ? "" : ", ", point.x, point.y);
  return fmt::format(R"({{"op": "polyline", "points": [{}], "color": {}, "width": {}}})", points,
                     number(polyline.stroke.colour), polyline.stroke.width);
}

std::string json(const DrawnText& text) {
  return fmt::format(
      R"({{"op": "text", "x": {}, "y": {}, "text": {}, "font": {}, "size": {}, "bold": {}, "color": {}, "rotated": {}}})",
      text.upperLeft.x, text.upperLeft.y, quoted(text.text), quoted(text.font.name), PlainNumber(text.font.size),
      text.font.bold, number(text.colour), text.rotated);
}

}  // namespace

void RecordingSurface::line(Point from, Point to, Stroke stroke) {
  m_operations.emplace_back(DrawnLine{twips(from), twips(to), stroke});
}

void RecordingSurface::box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) {
  m_operations.emplace_back(DrawnBox{twips(corner), twips(opposite), stroke, fill});
}

void RecordingSurface::circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) {
  m_operations.emplace_back(DrawnCircle{twips(centre), twips(radius), stroke, fill});
}

void RecordingSurface::polyline(std::span<const Point> points, Stroke stroke) {
  std::vector<TwipPoint> drawn;
  drawn.reserve(points.size());
  for (const Point& point : points) drawn.push_back(twips(point));
  m_operations.emplace_back(DrawnPolyline{std::move(drawn), stroke});
}

void RecordingSurface::text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) {
  m_operations.emplace_back(DrawnText{twips(upperLeft), std::string(utf8), font, colour, rotated});
}

std::string jsonOf(const DrawnOperation& operation) {
  return std::visit([](const auto& drawn) { return json(drawn); }, operation);
}

}  // namespace triaxlab
