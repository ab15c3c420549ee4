#pragma once

#include <cmath>
#include <optional>

namespace triaxlab {

/// After how many steps, 0 to `most`, a walk arrives; nothing when it doesn't. Who has arrived is there after all
/// further steps, too, so nobody has to take them one by one, however long the walk.
template <class Arrived>
std::optional<double> stepsUntil(double most, const Arrived& arrived) {
  if (arrived(0.0)) return 0;
  if (!(most > 0) || !arrived(most)) return std::nullopt;
  double before = 0, there = most;
  while (there - before > 1) {
    const double middle = std::floor((before + there) / 2);
    (arrived(middle) ? there : before) = middle;
  }
  return there;
}

}  // namespace triaxlab
