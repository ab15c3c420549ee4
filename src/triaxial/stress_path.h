#pragma once

#include "common/straight_line.h"
#include "triaxial/record.h"

namespace triaxlab {

/// The line through the effective failure points (centre, radius) of a CU sample, kPa. The angle shown is that of the
/// line.
using PathLine = StraightLine;

/// Fitted and stored, or, once adjusted by hand, read back from the record. Other methods have none; their records stay
/// as they are.
PathLine stressPathOfPage(TriaxialSampleRecord& record);

/// Keeps a line that a person has set: from now on it is read back and no longer fitted.
void storeAdjustedPath(TriaxialSampleRecord& record, const PathLine& line);

}  // namespace triaxlab
