#pragma once

#include <optional>

namespace triaxlab {

/// y = a x² + b x + c
struct Parabola {
  double a = 0, b = 0, c = 0;
  double operator()(double x) const { return a * (x * x) + b * x + c; }
};

/// Through three points, which have members x and y. Nothing when two of them stand at one x, or so near that the
/// numbers overflow.
template <class Point>
std::optional<Parabola> parabolaThrough(const Point& p0, const Point& p1, const Point& p2) {
  const double x0 = p0.x, x1 = p1.x, x2 = p2.x;
  const double determinant = x2 * x2 * (x1 - x0) + x1 * x1 * (x0 - x2) + x0 * x0 * (x2 - x1);
  if (determinant == 0) return std::nullopt;
  Parabola parabola;
  parabola.a = ((x1 - x0) * p2.y + (x0 - x2) * p1.y + (x2 - x1) * p0.y) / determinant;
  parabola.b = ((p1.y - p0.y) - (x1 * x1 - x0 * x0) * parabola.a) / (x1 - x0);
  parabola.c = p0.y - parabola.a * (x0 * x0) - parabola.b * x0;
  return parabola;
}

}  // namespace triaxlab
