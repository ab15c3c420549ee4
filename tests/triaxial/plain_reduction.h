#pragma once

#include "common/text_number.h"
#include "triaxial/record.h"

namespace triaxlab::tests {

/// The opening pass of one record told as plainly as can be: every value is parsed from its text at every use and
/// written through its format, nothing is kept in between. Slow; what the fast one is measured by.
void plainOpeningPass(TriaxialSampleRecord& record, NumberFormat cohesionFormat);

}  // namespace triaxlab::tests
