#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/text_number.h"
#include "triaxial/record.h"

namespace triaxlab {

/// A stage whose cell pressure reads as 0 is not used.
inline bool StageUsed(const TriaxialSampleRecord& record, std::size_t stage) {
  return record.cellPressure[stage].number() != 0;
}

/// The axial strain as its seven-digit text reads, percent. Compared with a strain limit in this form.
inline double ReadStrain(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row) {
  return ThroughSevenDigits(record.axialStrain[row][stage]);
}

/// Whether a row takes part in a failure search: ReadStrain at or below the limit, in percent and at most 22. Seven
/// digits move such a strain by less than the reach, so the text is made for the rows next to the limit alone.
inline bool withinLimit(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row, double limit) {
  constexpr double kReach = 1e-5;
  const double strain = record.axialStrain[row][stage];
  if (strain <= limit) return true;
  if (strain > limit + kReach) return false;
  return ReadStrain(record, stage, row) <= limit;
}

/// A coefficient B or Af of a smaller magnitude counts as not yet computed.
inline constexpr double kSmallestCoefficient = 0.0001;

/// A limit of 35 to 220 tenths of a percent stands, any other becomes the usual 150.
std::uint8_t failureLimitOf(double tenths);

/// Mends the limits of a record in the same way. Returns them in percent.
PerStage<double> ClampFailureLimit(TriaxialSampleRecord& record);

/// True for a test of several stages on one specimen, as captions and strain tables see it.
constexpr bool isMultiStage(std::uint8_t shearMode) { return shearMode == 2 || shearMode == 3; }
inline bool isMultiStage(const TriaxialSampleRecord& record) { return isMultiStage(record.shearMode); }

}  // namespace triaxlab
