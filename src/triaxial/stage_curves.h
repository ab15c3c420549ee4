#pragma once

#include <array>
#include <cstddef>

#include "triaxial/record.h"

namespace triaxlab {

/// A column of a stage as the numbers that its texts read as, kPa.
using StageColumn = std::array<double, kShearRows>;

inline void readColumn(StageColumn& numbers, const ShearRows<FixedText<6>>& texts, std::size_t stage) {
  numbers[0] = texts[0][stage].number();
  // Where a curve is level, one text follows on the same text.
  for (std::size_t row = 1; row < kShearRows; ++row)
    numbers[row] = texts[row][stage] == texts[row - 1][stage] ? numbers[row - 1] : texts[row][stage].number();
}

/// The curves of one stage, read once for all the steps that run over them. Each step that rewrites a text reads its
/// number anew, because the text is what counts: it is rounded, and cut at its width.
struct StageCurves {
  StageColumn deviatorStress;
  StageColumn porePressure;
  StageColumn sigma1Eff;
  StageColumn sigma3Eff;
};

}  // namespace triaxlab
