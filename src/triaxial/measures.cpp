#include "triaxial/measures.h"

namespace triaxlab {

PerStage<double> ClampFailureLimit(TriaxialSampleRecord& record) {
  constexpr std::uint8_t kSmallest = 35, kLargest = 220, kUsual = 150;  // 0.1 %
  PerStage<double> limits;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    std::uint8_t& limit = record.failureStrainLimit[stage];
    if (limit < kSmallest || limit > kLargest) limit = kUsual;
    limits[stage] = limit / 10.0;
  }
  return limits;
}

}  // namespace triaxlab
