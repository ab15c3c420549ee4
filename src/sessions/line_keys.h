#pragma once

#include <cstdint>

namespace triaxlab {

/// The keys of a phase of intervention.
enum class ArrowKey : std::uint8_t { Left, Right, Up, Down };

/// Left and Right lower and raise a line by `step` (kPa), Up and Down turn it by a tenth of a degree.
void moveLine(double& intercept, double& tangent, ArrowKey key, double step);

}  // namespace triaxlab
