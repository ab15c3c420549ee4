#pragma once

#include <optional>
#include <span>

#include "common/text_number.h"
#include "unconfined/record.h"

namespace triaxlab {

// From dial readings to stresses, the peak strengths qu and qu' and the sensitivity St = qu / qu'. All numbers are read
// from the record's texts and written back as texts; what has no value leaves its field as it was.

/// The whole reduction of a sample: strain limits brought into their bounds, stresses of all rows with a reading, the
/// largest stress of a row up to the strain limit, then `refineUnconfinedPeaks`. A row without a reading keeps the
/// stress that it came with. A sample without a number, ready for typing, gets its column of strains.
void reduceUnconfinedSample(UnconfinedSampleRecord& record, NumberFormat sensitivityFormat);

/// Raises qu and qu' to the tops of the smoothed curves, and forms St anew from the unrounded tops.
void refineUnconfinedPeaks(UnconfinedSampleRecord& record, NumberFormat sensitivityFormat);

/// `reduceUnconfinedSample` for every row with a project and a sample number.
void reduceAllUnconfinedSamples(std::span<UnconfinedSampleRecord> table, NumberFormat sensitivityFormat);

/// The strain, %, at which the strength of a reduced sample stands on its curve; nothing without a strength.
std::optional<double> strainAtPeak(const UnconfinedSampleRecord& record, Specimen specimen);

/// Half the peak stress and where the curve first reaches it.
struct HalfPeak {
  double stress = 0;  // kPa
  double strain = 0;  // ε50, %; 0 when the curve doesn't cross half its peak
  bool operator==(const HalfPeak&) const = default;
};
/// Of the readings up to 15 % of strain, joined by straight lines.
HalfPeak halfPeakOf(const UnconfinedSampleRecord& record, Specimen specimen);

}  // namespace triaxlab
