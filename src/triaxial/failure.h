#pragma once

#include <cstdint>
#include <string>

#include "triaxial/record.h"

namespace triaxlab {

/// How the failure row of a stage is found.
enum class FailureMode : std::uint8_t {
  PeakStress,  // largest deviator stress (QUXIAN3)
  PeakRatio,   // largest effective stress ratio (QUXIAN2)
};

/// Pore pressure and strain at the failure row of each stage; they are shown and not stored in the record.
struct FailureRows {
  PerStage<FixedText<5>> failureStressAtPeak;
  PerStage<std::string> failureStrainAtPeak;
};

/// The failure values on opening: each maximum of a stage on its own. Returns how many stages failed.
int storeIndependentMaxima(TriaxialSampleRecord& record, const PerStage<double>& strainLimits);

/// Overrides the failure values of the used stages by those of the failure row that the mode finds.
FailureRows applyFailureMode(TriaxialSampleRecord& record, FailureMode mode);

}  // namespace triaxlab
