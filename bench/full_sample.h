#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "triaxial/record.h"

namespace triaxlab {

/// A CU sample of five stages, every row filled: stress and pore pressure rise to an asymptote that grows with the cell
/// pressure and differs a little from sample to sample; the first pore pressures are below zero.
inline TriaxialSampleRecord fullSample(std::size_t number) {
  TriaxialSampleRecord record;
  SetText(record.projectNo, "BENCH");
  SetText(record.sampleNo, std::to_string(number + 1));
  record.testMethod = kCU;
  record.shearMode = 1;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const double sigma3 = 100.0 * static_cast<double>(stage + 1);
    SetNumber(record.cellPressure[stage], sigma3, NumberFormat::Whole);
    record.consolidationPorePressure[0][stage] = static_cast<std::int16_t>(sigma3 * 9.5);
    for (std::size_t row = 0; row < kShearRows; ++row) {
      const double strain = 0.1 * static_cast<double>(row + 1);
      const double risen = 1 - std::exp(-strain / (2 + static_cast<double>(number % 7) / 4));
      SetNumber(record.deviatorStress[row][stage], (1.3 * sigma3 + static_cast<double>(number % 50)) * risen,
                NumberFormat::Whole);
      SetNumber(record.porePressure[row][stage], 0.45 * sigma3 * risen - 4, NumberFormat::Whole);
      record.axialStrain[row][stage] = static_cast<float>(strain);
    }
  }
  return record;
}

}  // namespace triaxlab
