#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recording_surface.h"

namespace triaxlab {

// How a failed comparison shows an operation.
inline void PrintTo(const DrawnLine& line, std::ostream* out) { *out << jsonOf(line); }
inline void PrintTo(const DrawnBox& box, std::ostream* out) { *out << jsonOf(box); }
inline void PrintTo(const DrawnPolyline& polyline, std::ostream* out) { *out << jsonOf(polyline); }
inline void PrintTo(const DrawnText& text, std::ostream* out) { *out << jsonOf(text); }

}  // namespace triaxlab

namespace triaxlab::testing {

using Drawing = std::vector<DrawnOperation>;

/// The operations of one kind, in order.
template <class Operation>
std::vector<Operation> all(const Drawing& drawing) {
  std::vector<Operation> found;
  for (const DrawnOperation& operation : drawing)
    if (const auto* const one = std::get_if<Operation>(&operation)) found.push_back(*one);
  return found;
}

/// A text of 10.5 point in 宋体, or "@宋体" when it is rotated.
inline DrawnText words(std::string_view text, int x, int y, Colour colour = Colour::Black) {
  return {{x, y}, std::string(text), Font{}, colour, false};
}
/// One of another size.
inline DrawnText sized(double size, std::string_view text, int x, int y, Colour colour = Colour::Black) {
  return {{x, y}, std::string(text), Font{.size = size}, colour, false};
}
inline DrawnText upward(std::string_view text, int x, int y) {
  return {{x, y}, std::string(text), Font{.name = kSongRotated}, Colour::Black, true};
}

inline DrawnLine rule(int x1, int y1, int x2, int y2, Colour colour = Colour::Black, int width = 1) {
  return {{x1, y1}, {x2, y2}, {colour, width}};
}

/// The texts that begin with `start`.
inline std::vector<std::string> textsWith(const Drawing& drawing, std::string_view start) {
  std::vector<std::string> found;
  for (const DrawnText& text : all<DrawnText>(drawing))
    if (text.text.starts_with(start)) found.push_back(text.text);
  return found;
}

/// The texts of a colour, without their places.
inline std::vector<std::string> textsOf(const Drawing& drawing, Colour colour) {
  std::vector<std::string> found;
  for (const DrawnText& text : all<DrawnText>(drawing))
    if (text.colour == colour) found.push_back(text.text);
  return found;
}

}  // namespace triaxlab::testing
