#include "triaxial/time_axes.h"

#include <array>
#include <cstdint>

#include "triaxial/measures.h"

namespace triaxlab {
namespace {

std::array<float, kShearRows> evenStrains(double step) {
  std::array<float, kShearRows> strains{};
  for (std::size_t row = 0; row < kShearRows; ++row)
    strains[row] = static_cast<float>(static_cast<double>(row + 1) * step);
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
    for (std::size_t slot = 0; slot < kStages; ++slot) {
      // The first slot counts as read by its pore pressure alone.
      const bool drained = slot != 0 && row.consolidationVolume[k][slot] != 0;
      const bool isRead = row.consolidationPorePressure[k][slot] != 0 || drained;
      row.consolidationTime[k][slot] = isRead ? consolidationSeconds(k) : 0;
    }
  }
}

void FillSampleTimeAxes(TriaxialSampleRecord& row) {
  static const auto narrow = evenStrains(0.2), wide = evenStrains(0.4);
  const auto& strains = isMultiStage(row) ? narrow : wide;
  for (std::size_t i = 0; i < kShearRows; ++i) row.axialStrain[i].fill(strains[i]);
  fillConsolidationTimes(row);
}

}  // namespace triaxlab
