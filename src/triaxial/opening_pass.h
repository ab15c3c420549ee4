#pragma once

#include <span>

#include "common/text_number.h"
#include "triaxial/record.h"

namespace triaxlab {

/// What happens to every live record each time the curve window opens: strain limits, negative pore pressures,
/// effective curves and B, the failure values, and the total envelope when at least two stages failed and nobody
/// adjusted it by hand. Works in place; a second pass over the same record goes on from its texts and need not be the
/// identity.
void runOpeningPass(std::span<TriaxialSampleRecord> table, NumberFormat cohesionFormat);

}  // namespace triaxlab
