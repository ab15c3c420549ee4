#include "triaxial/opening_pass.h"

#include <algorithm>
#include <cmath>

#include "common/conversions.h"
#include "triaxial/effective_curves.h"
#include "triaxial/envelope.h"
#include "triaxial/failure.h"
#include "triaxial/measures.h"
#include "triaxial/stage_curves.h"

namespace triaxlab {
namespace {

/// A curve that falls below -10 kPa is turned about its lowest reading, as far as it is negative and under stress. It
/// is not remembered that this was done: a second pass turns it again.
void correctNegativePorePressure(TriaxialSampleRecord& record, std::size_t stage, StageCurves& curves) {
  if (std::ranges::none_of(curves.porePressure, [](double u) { return u < -10; })) return;
  const double smallest = *std::ranges::min_element(curves.porePressure);
  for (std::size_t row = 0; row < kShearRows; ++row) {
    double& u = curves.porePressure[row];
    if (curves.deviatorStress[row] == 0 || !(u < 0)) continue;
    u = SetAndRead(record.porePressure[row][stage], 2 * smallest - u, NumberFormat::Whole);
  }
}

void computeCoefficientB(TriaxialSampleRecord& record, std::size_t stage) {
  Little<float>& b = record.coefficientB[stage];
  if (!(std::fabs(b) < kSmallestCoefficient)) return;
  const auto porePressure = quotient(record.consolidationPorePressure[0][stage], record.cellPressure[stage].number());
  if (porePressure) assignIf(b, toSingle(ParseNumber(FormatNumber(*porePressure / 10, NumberFormat::Hundredths))));
}

void reduceSample(TriaxialSampleRecord& record, NumberFormat cohesionFormat) {
  const PerStage<double> limits = ClampFailureLimit(record);
  int failedStages = 0;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    StageCurves curves;
    readColumn(curves.deviatorStress, record.deviatorStress, stage);
    readColumn(curves.porePressure, record.porePressure, stage);
    correctNegativePorePressure(record, stage, curves);
    if (hasEffectiveCurves(record, stage)) computeCoefficientB(record, stage);
    storeEffectiveCurves(record, stage, curves);
    failedStages += storeIndependentMaxima(record, stage, limits[stage], curves);
  }
  if (failedStages >= 2 && record.adjustedFlag == 0) fitTotalEnvelope(record, failedStages, cohesionFormat);
}

}  // namespace

void runOpeningPass(std::span<TriaxialSampleRecord> table, NumberFormat cohesionFormat) {
  for (TriaxialSampleRecord& record : table)
    if (isLive(record)) reduceSample(record, cohesionFormat);
}

}  // namespace triaxlab
