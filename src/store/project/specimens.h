#pragma once

#include "triaxial/record.h"

namespace triaxlab {

/// True when the used specimens of the record go by ascending cell pressure, so that `sortSpecimens` changes nothing.
bool specimensAreSorted(const TriaxialSampleRecord& record);

/// Orders the specimens of a sample by cell pressure, with all that belongs to a stage. One of 0.5 kPa or less counts
/// as unused and is not moved forward.
void sortSpecimens(TriaxialSampleRecord& record);

/// Adds the specimens of `row` to the sample as it is stored: one with the pressure of a stored specimen replaces it, a
/// new one takes the first unused slot, and one that finds no slot is lost. The fields of the sample itself come from
/// `row`. What neither names keeps what `stored` holds: consolidation times, B and Af, the test date, and the volume
/// change of the rows from 151 on.
void mergeIntoStored(TriaxialSampleRecord& stored, const TriaxialSampleRecord& row);

}  // namespace triaxlab
