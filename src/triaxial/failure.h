#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "triaxial/record.h"
#include "triaxial/stage_curves.h"

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

/// The failure values of a stage on opening: each maximum over the rows within the limit (percent) on its own, an
/// unused stage blank. Stores the failure points and, unless it is known, Af. Returns whether the stage failed.
bool storeIndependentMaxima(TriaxialSampleRecord& record, std::size_t stage, double strainLimit,
                            const StageCurves& curves);

/// Overrides the failure values of the used stages by those of the failure row that the mode finds.
FailureRows applyFailureMode(TriaxialSampleRecord& record, FailureMode mode);

}  // namespace triaxlab
