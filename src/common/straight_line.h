#pragma once

#include <cmath>
#include <optional>

#include "common/conversions.h"

namespace triaxlab {

/// y = slope x + intercept
struct StraightLine {
  double slope = 0;
  double intercept = 0;
  bool operator==(const StraightLine&) const = default;
};

/// The sums over points from which a line is fitted. Products are doubles; `Number` is the precision in which the sums
/// themselves are kept.
template <class Number>
struct LineSums {
  Number x = 0, y = 0, xx = 0, xy = 0;

  void add(double px, double py) {
    x = static_cast<Number>(x + px);
    y = static_cast<Number>(y + py);
    xx = static_cast<Number>(xx + px * px);
    xy = static_cast<Number>(xy + px * py);
  }
};

/// The slope of least squares through `count` points; nothing when they stand above each other. The count may differ
/// from the points that were added, where a test has it so.
template <class Number>
std::optional<double> fittedSlope(const LineSums<Number>& sums, double count) {
  const double x = sums.x, y = sums.y, xx = sums.xx, xy = sums.xy;
  return quotient(y * x - xy * count, x * x - count * xx);
}

/// The line of least squares; nothing when there is no point or they stand above each other.
template <class Number>
std::optional<StraightLine> fittedLine(const LineSums<Number>& sums, double count) {
  const auto slope = fittedSlope(sums, count);
  if (!slope || count == 0) return std::nullopt;
  const double intercept = sums.y / count - *slope * sums.x / count;
  if (!std::isfinite(intercept)) return std::nullopt;
  return StraightLine{*slope, intercept};
}

}  // namespace triaxlab
