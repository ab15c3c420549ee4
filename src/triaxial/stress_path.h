#pragma once

#include "triaxial/record.h"

namespace triaxlab {

/// The line through the effective failure points (centre, radius) of a CU sample. The angle shown is that of the line.
struct PathLine {
  double slope = 0;
  double intercept = 0;  // kPa
  bool operator==(const PathLine&) const = default;
};

/// Fitted and stored, or, once adjusted by hand, read back from the record. Other methods have none; their records stay
/// as they are.
PathLine stressPathOfPage(TriaxialSampleRecord& record);

/// Keeps a line that a person has set: from now on it is read back and no longer fitted.
void storeAdjustedPath(TriaxialSampleRecord& record, const PathLine& line);

}  // namespace triaxlab
