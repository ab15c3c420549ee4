#include "sessions/k0/line_motion.h"

#include <algorithm>
#include <cmath>

#include "common/angles.h"

namespace triaxlab {
namespace {

/// In this order of division and product: stored lines differ in their last digits by it.
double slopeOfDegrees(double degrees) {
  const double radians = degrees / 180 * kPiOfRadians;
  return std::sin(radians) / std::cos(radians);
}

/// Many times the room of any chart.
constexpr double kMostPresses = 1e6;

StraightLine pressed(StraightLine line, double presses, ArrowKey key, ArrowKey opposite, const LineMotion& motion) {
  const ArrowKey which = presses < 0 ? opposite : key;
  for (double left = std::min(std::abs(presses), kMostPresses); left >= 1; --left)
    line = movedLine(line, which, motion);
  return line;
}

}  // namespace

StraightLine movedLine(const StraightLine& line, ArrowKey key, const LineMotion& motion) {
  switch (key) {
    case ArrowKey::Left:
      return {line.slope, line.intercept - motion.raise};
    case ArrowKey::Right:
      return {line.slope, line.intercept + motion.raise};
    // The end is held behind the step, and each at its own key alone: a falling line may rise bit by bit.
    case ArrowKey::Up:
      return {slopeOfDegrees(std::min(degreesOfTangent(line.slope) + motion.turnUp, motion.steepest)), line.intercept};
    case ArrowKey::Down:
      return {slopeOfDegrees(std::max(degreesOfTangent(line.slope) - motion.turnUp, motion.flattest)), line.intercept};
  }
  return line;
}

StraightLine raisedLine(StraightLine line, double presses, const LineMotion& motion) {
  return pressed(line, presses, ArrowKey::Right, ArrowKey::Left, motion);
}

StraightLine turnedLine(StraightLine line, double presses, const LineMotion& motion) {
  return pressed(line, presses, ArrowKey::Up, ArrowKey::Down, motion);
}

}  // namespace triaxlab
