#include "sessions/line_keys.h"

#include "common/angles.h"

namespace triaxlab {

void moveLine(double& intercept, double& tangent, ArrowKey key, double step) {
  constexpr double kDegrees = 0.1;
  switch (key) {
    case ArrowKey::Left:
      intercept -= step;
      break;
    case ArrowKey::Right:
      intercept += step;
      break;
    case ArrowKey::Up:
      tangent = steppedTangent(tangent, kDegrees);
      break;
    case ArrowKey::Down:
      tangent = steppedTangent(tangent, -kDegrees);
      break;
  }
}

}  // namespace triaxlab
