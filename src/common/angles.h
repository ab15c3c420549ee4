#pragma once

#include <algorithm>
#include <cmath>

namespace triaxlab {

// Degrees of an angle given by its tangent, and the way back. The two use different values of pi on purpose: an angle
// that goes there and back again loses its last digits, and stored results have always lost them.
inline constexpr double kPiOfDegrees = 3.1415926535, kPiOfRadians = 3.1415926;

inline double degreesOfTangent(double tangent) { return std::atan(tangent) * 180 / kPiOfDegrees; }
inline double radiansOfDegrees(double degrees) { return degrees * kPiOfRadians / 180; }
inline double tangentOfDegrees(double degrees) { return std::tan(radiansOfDegrees(degrees)); }

/// Between which a line can be turned by hand, degrees.
struct AngleRange {
  double lowest = 0, highest = 89.9;
};

/// The tangent of an angle that has been raised or lowered by `step` degrees, held within the range.
inline double steppedTangent(double tangent, double step, const AngleRange& range = {}) {
  const double radians = radiansOfDegrees(std::clamp(degreesOfTangent(tangent) + step, range.lowest, range.highest));
  return std::sin(radians) / std::cos(radians);
}

}  // namespace triaxlab
