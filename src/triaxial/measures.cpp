#include "triaxial/measures.h"

#include "common/conversions.h"

namespace triaxlab {

std::uint8_t failureLimitOf(double tenths) {
  constexpr double kSmallest = 35, kLargest = 220;
  constexpr std::uint8_t kUsual = 150;
  if (!(tenths >= kSmallest && tenths <= kLargest)) return kUsual;
  return static_cast<std::uint8_t>(toInt16(tenths).value_or(kUsual));
}

PerStage<double> ClampFailureLimit(TriaxialSampleRecord& record) {
  PerStage<double> limits;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    std::uint8_t& limit = record.failureStrainLimit[stage];
    limit = failureLimitOf(limit);
    limits[stage] = limit / 10.0;
  }
  return limits;
}

}  // namespace triaxlab
