#include "platform/ruled_text.h"

#include <cmath>

namespace triaxlab {

double stretchTo(double ruledWidth, double naturalWidth) {
  constexpr double kTolerance = 0.002;
  const double stretch = naturalWidth > 0 ? ruledWidth / naturalWidth : 1;
  return std::abs(stretch - 1) > kTolerance ? stretch : 1;
}

}  // namespace triaxlab
