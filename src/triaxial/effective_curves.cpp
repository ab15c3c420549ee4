#include "triaxial/effective_curves.h"

namespace triaxlab {
namespace {

void computeEffectiveCurves(TriaxialSampleRecord& record, std::size_t stage, StageCurves& curves) {
  const double sigma3 = record.cellPressure[stage].number();
  for (std::size_t row = 0; row < kShearRows; ++row) {
    const double q = curves.deviatorStress[row], u = curves.porePressure[row];
    FixedText<6>& sigma1Eff = record.sigma1Eff[row][stage];
    FixedText<6>& sigma3Eff = record.sigma3Eff[row][stage];
    const bool stressed = q != 0;
    curves.sigma1Eff[row] = stressed ? SetAndRead(sigma1Eff, q + sigma3 - u, NumberFormat::Whole) : sigma1Eff.number();
    curves.sigma3Eff[row] = stressed ? SetAndRead(sigma3Eff, sigma3 - u, NumberFormat::Whole) : sigma3Eff.number();
  }
}

void blankEffectiveCurves(TriaxialSampleRecord& record, std::size_t stage, StageCurves& curves) {
  for (auto& row : record.sigma1Eff) row[stage].clear();
  for (auto& row : record.sigma3Eff) row[stage].clear();
  curves.sigma1Eff.fill(0);
  curves.sigma3Eff.fill(0);
}

}  // namespace

void storeEffectiveCurves(TriaxialSampleRecord& record, std::size_t stage, StageCurves& curves) {
  if (hasEffectiveCurves(record, stage))
    computeEffectiveCurves(record, stage, curves);
  else
    blankEffectiveCurves(record, stage, curves);
}

void storeEffectiveCurves(TriaxialSampleRecord& record) {
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    StageCurves curves;
    readColumn(curves.deviatorStress, record.deviatorStress, stage);
    readColumn(curves.porePressure, record.porePressure, stage);
    storeEffectiveCurves(record, stage, curves);
  }
}

}  // namespace triaxlab
