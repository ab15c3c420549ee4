#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "triaxial/record.h"

namespace triaxlab {

// The record of the oldest triaxial files (KSZ), which are read and never written. Like today's it holds up to five
// specimens, with fewer rows, narrower texts, the strain as a whole number and no consolidation times. The table is the
// whole of what is known of the format; no file of a laboratory has settled it yet, and a correction is made here
// alone.

inline constexpr std::size_t kOldShearRows = 52;
inline constexpr std::size_t kOldConsolidationRows = 25;

/// Readings of the shear and of the consolidation phase, [row][stage]: the stage varies fastest on file.
template <class T>
using OldShearRows = std::array<PerStage<T>, kOldShearRows>;
template <class T>
using OldConsolidationRows = std::array<PerStage<T>, kOldConsolidationRows>;

struct OldTriaxialRecord {                                               // offset
  std::array<std::byte, 476> sampleAndSpecimens{};                       //    0  projectNo to sigma3FailureEff
  OldShearRows<FixedText<4>> deviatorStress;                             //  476  kPa
  OldShearRows<FixedText<4>> sigma1Eff;                                  // 1516  kPa
  OldShearRows<FixedText<4>> sigma3Eff;                                  // 2556  kPa
  OldShearRows<FixedText<4>> porePressure;                               // 3596  kPa
  OldConsolidationRows<Little<std::int16_t>> consolidationPorePressure;  // 4636  0.1 kPa
  OldConsolidationRows<Little<std::int16_t>> consolidationVolume;        // 4886  0.01 ml
  OldShearRows<Little<std::int16_t>> volumeChange;                       // 5136  0.01 ml
  OldShearRows<std::uint8_t> axialStrain{};                              // 5656  0.1 %
  std::array<std::byte, 50> flagsAndCoefficients{};                      // 5916  adjustedFlag to coefficientAf
};                                                                       // 5966

/// The sample as today's record: row by row and specimen by specimen, the rest blank. The times of the consolidation
/// readings are those at which that apparatus read.
TriaxialSampleRecord currentRecord(const OldTriaxialRecord& old);

}  // namespace triaxlab
