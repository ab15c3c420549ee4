#pragma once

#include <cstddef>

#include "triaxial/record.h"

namespace triaxlab {

/// Rows of a record that the apparatus with fixed steps fill.
inline constexpr std::size_t kImportedShearRows = 52;
inline constexpr std::size_t kImportedConsolidationRows = 25;

/// Time of each consolidation reading of an apparatus that reads at k² minutes and at the end of one day, in all slots;
/// 0 where there is no reading.
void fillConsolidationTimes(TriaxialSampleRecord& row);

/// Strain and time axes of a row from a source that records at fixed steps, in all its slots: a reading each 0.2 % in a
/// test of several stages on one specimen, else each 0.4 %; consolidation by `fillConsolidationTimes`.
void FillSampleTimeAxes(TriaxialSampleRecord& row);

}  // namespace triaxlab
