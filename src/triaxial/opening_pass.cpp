#include "triaxial/opening_pass.h"

#include <algorithm>
#include <cmath>

#include "common/conversions.h"
#include "triaxial/envelope.h"
#include "triaxial/failure.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

void correctNegativePorePressure(TriaxialSampleRecord& record, std::size_t stage) {
  double smallest = 100;
  for (const auto& row : record.porePressure) smallest = std::min(smallest, row[stage].number());
  if (!(smallest < -10)) return;
  for (std::size_t row = 0; row < kShearRows; ++row) {
    const double u = record.porePressure[row][stage].number();
    if (record.deviatorStress[row][stage].number() != 0 && u < 0)
      SetNumber(record.porePressure[row][stage], 2 * smallest - u, NumberFormat::Whole);
  }
}

void computeCoefficientB(TriaxialSampleRecord& record, std::size_t stage) {
  if (!(std::fabs(record.coefficientB[stage]) < 0.0001)) return;
  const auto ratio = quotient(record.consolidationPorePressure[0][stage], record.cellPressure[stage].number());
  if (!ratio) return;
  const auto b = static_cast<float>(ParseNumber(FormatNumber(*ratio / 10, NumberFormat::Hundredths)));
  record.coefficientB[stage] = b;
}

void computeEffectiveCurves(TriaxialSampleRecord& record, std::size_t stage) {
  const double sigma3 = record.cellPressure[stage].number();
  for (std::size_t row = 0; row < kShearRows; ++row) {
    const double q = record.deviatorStress[row][stage].number();
    if (q == 0) continue;
    const double u = record.porePressure[row][stage].number();
    SetNumber(record.sigma1Eff[row][stage], q + sigma3 - u, NumberFormat::Whole);
    SetNumber(record.sigma3Eff[row][stage], sigma3 - u, NumberFormat::Whole);
  }
}

void blankEffectiveCurves(TriaxialSampleRecord& record, std::size_t stage) {
  for (std::size_t row = 0; row < kShearRows; ++row) {
    record.sigma1Eff[row][stage].clear();
    record.sigma3Eff[row][stage].clear();
  }
}

}  // namespace

void runOpeningPass(std::span<TriaxialSampleRecord> table, NumberFormat cohesionFormat) {
  for (TriaxialSampleRecord& record : table) {
    if (!isLive(record)) continue;
    const PerStage<double> limits = ClampFailureLimit(record);
    for (std::size_t stage = 0; stage < kStages; ++stage) {
      correctNegativePorePressure(record, stage);
      if (record.testMethod == kCU && StageUsed(record, stage)) {
        computeCoefficientB(record, stage);
        computeEffectiveCurves(record, stage);
      } else {
        blankEffectiveCurves(record, stage);
      }
    }
    const int failedStages = storeIndependentMaxima(record, limits);
    if (failedStages >= 2 && record.adjustedFlag == 0) fitTotalEnvelope(record, failedStages, cohesionFormat);
  }
}

}  // namespace triaxlab
