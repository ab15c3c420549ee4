#include "platform/whole_twips.h"

#include <cmath>
#include <limits>

namespace triaxlab {

int wholeTwips(double value) {
  constexpr int kEdge = std::numeric_limits<int>::max() / 2;
  if (!(std::abs(value) <= kEdge)) return value > 0 ? kEdge : -kEdge;
  return static_cast<int>(std::lround(value));
}

}  // namespace triaxlab
