#pragma once

#include <cstdint>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// Which way values grow along the y axis.
enum class YDirection : std::uint8_t { Up, Down };

/// The plot of a chart: a rectangle of its canvas (twips) and how many divisions it has. Every test has its own.
struct PlotFrame {
  double left = 0, top = 0, right = 0, bottom = 0;
  int columns = 1, rows = 1;
  YDirection yDirection = YDirection::Up;

  constexpr double width() const { return right - left; }
  constexpr double height() const { return bottom - top; }
  constexpr Point middle() const { return {(left + right) / 2, (top + bottom) / 2}; }
  /// The edges belong to the plot.
  constexpr bool contains(Point place) const {
    return place.x >= left && place.x <= right && place.y >= top && place.y <= bottom;
  }
  /// Where vertical and horizontal lines lie; lines count from the left, and from where y begins.
  constexpr double columnX(int column) const { return left + column * width() / columns; }
  constexpr double rowY(int row) const { return placeY(row * height() / rows); }
  /// The y of a place that lies `twips` in the direction of y from where it begins, and the way back.
  constexpr double placeY(double twips) const { return yDirection == YDirection::Up ? bottom - twips : top + twips; }
  constexpr double twipsAlongY(double y) const { return yDirection == YDirection::Up ? bottom - y : y - top; }
  bool operator==(const PlotFrame&) const = default;
};

}  // namespace triaxlab
