#pragma once

#include <limits>

#include "common/straight_line.h"
#include "sessions/line_keys.h"

namespace triaxlab {

/// How the keys move a line that a person corrects. A negative step turns their directions round.
struct LineMotion {
  double raise;   // what Right adds to the intercept and Left takes from it
  double turnUp;  // degrees that Up adds to the angle and Down takes from it
  double steepest = std::numeric_limits<double>::infinity();  // degrees that Up doesn't go beyond
  double flattest = -steepest;                                // nor Down
};
/// Axial and lateral pressure in kPa.
inline constexpr LineMotion kKoMotion{.raise = 1, .turnUp = 0.1, .steepest = 89.9, .flattest = 1};
/// Deformation, which is drawn downward, in mm over the root of minutes: the line goes where its arrow points.
inline constexpr LineMotion kT90Motion{.raise = -0.01, .turnUp = -0.1};

/// The line after a key.
StraightLine movedLine(const StraightLine& line, ArrowKey key, const LineMotion& motion);
/// The line after Right and Up have been pressed so often; a negative number is of the opposite key.
StraightLine raisedLine(StraightLine line, double presses, const LineMotion& motion);
StraightLine turnedLine(StraightLine line, double presses, const LineMotion& motion);

}  // namespace triaxlab
