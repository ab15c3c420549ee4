#pragma once

#include <cstddef>

#include "triaxial/measures.h"
#include "triaxial/record.h"
#include "triaxial/stage_curves.h"

namespace triaxlab {

/// Only CU knows the pore pressure of its undrained stages, and so their effective stresses.
inline bool hasEffectiveCurves(const TriaxialSampleRecord& record, std::size_t stage) {
  return record.testMethod == kCU && StageUsed(record, stage);
}

/// Works out the effective principal stresses of a stage's rows from what `curves` holds, and reads them back into it.
/// Rows without stress keep those that they hold; a stage that has none is blanked whole.
void storeEffectiveCurves(TriaxialSampleRecord& record, std::size_t stage, StageCurves& curves);

/// The same for all stages from what the record holds.
void storeEffectiveCurves(TriaxialSampleRecord& record);

}  // namespace triaxlab
