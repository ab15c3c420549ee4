#include "triaxial/time_axes.h"

#include <array>
#include <cstdint>

#include "triaxial/measures.h"

namespace triaxlab {
namespace {

ShearRows<Little<float>> evenStrains(double step) {
  ShearRows<Little<float>> strains;
  for (std::size_t row = 0; row < kShearRows; ++row)
    strains[row].fill(static_cast<float>(static_cast<double>(row + 1) * step));
  return strains;
}

/// Seconds at which the apparatus reads: k² minutes, the last reading after a day.
std::int32_t consolidationSeconds(std::size_t row) {
  constexpr std::int32_t kDay = 86400;
  const auto k = static_cast<std::int32_t>(row);
  return row + 1 == kImportedConsolidationRows ? kDay : k * k * 60;
}

}  // namespace

void fillConsolidationTimes(TriaxialSampleRecord& row) {
  for (std::size_t k = 0; k < kImportedConsolidationRows; ++k) {
    const std::int32_t seconds = consolidationSeconds(k);
    for (std::size_t slot = 0; slot < kStages; ++slot) {
      // The first slot counts as read by its pore pressure alone.
      const bool drained = slot != 0 && row.consolidationVolume[k][slot] != 0;
      const bool isRead = row.consolidationPorePressure[k][slot] != 0 || drained;
      row.consolidationTime[k][slot] = isRead ? seconds : 0;
    }
  }
}

void FillSampleTimeAxes(TriaxialSampleRecord& row) {
  static const auto narrow = evenStrains(0.2), wide = evenStrains(0.4);
  row.axialStrain = isMultiStage(row) ? narrow : wide;
  fillConsolidationTimes(row);
}

}  // namespace triaxlab
