#include "platform/whole_twips.h"

#include <cmath>
#include <limits>

namespace triaxlab {

int wholeTwips(double value) {
  constexpr double kEdge = std::numeric_limits<int>::max() / 2;
  if (!(std::abs(value) <= kEdge)) return value > 0 ? static_cast<int>(kEdge) : -static_cast<int>(kEdge);
  return static_cast<int>(std::lround(value));
}

}  // namespace triaxlab
