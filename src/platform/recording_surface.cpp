#include "platform/recording_surface.h"

#include <fmt/format.h>

#include <iterator>
#include <nlohmann/json.hpp>

#include "common/text_number.h"

namespace triaxlab {
namespace {

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
  m_operations.emplace_back(DrawnLine{wholeTwips(from), wholeTwips(to), stroke});
}

void RecordingSurface::box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) {
  m_operations.emplace_back(DrawnBox{wholeTwips(corner), wholeTwips(opposite), stroke, fill});
}

void RecordingSurface::circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) {
  m_operations.emplace_back(DrawnCircle{wholeTwips(centre), wholeTwips(radius), stroke, fill});
}

void RecordingSurface::polyline(std::span<const Point> points, Stroke stroke) {
  std::vector<TwipPoint> drawn;
  drawn.reserve(points.size());
  for (const Point& point : points) drawn.push_back(wholeTwips(point));
  m_operations.emplace_back(DrawnPolyline{std::move(drawn), stroke});
}

void RecordingSurface::text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) {
  m_operations.emplace_back(DrawnText{wholeTwips(upperLeft), std::string(utf8), font, colour, rotated});
}

std::string jsonOf(const DrawnOperation& operation) {
  return std::visit([](const auto& drawn) { return json(drawn); }, operation);
}

}  // namespace triaxlab
