#include "triaxial/plain_reduction.h"

#include <cmath>
#include <limits>

#include "triaxial/envelope.h"

namespace triaxlab::tests {
namespace {

template <std::size_t N>
double number(const FixedText<N>& field) {
  return ParseNumber(field.view());
}

template <std::size_t N>
void store(FixedText<N>& field, double value) {
  if (std::isfinite(value)) SetText(field, FormatNumber(value, NumberFormat::Whole));
}

template <std::size_t N>
void blank(FixedText<N>& field) {
  SetText(field, "");
}

void toInteger(double& target, double value) {
  const double whole = std::nearbyint(value);
  if (whole >= -32768 && whole <= 32767) target = whole;
}

void toSingle(Little<float>& target, double value) {
  if (std::fabs(value) <= std::numeric_limits<float>::max()) target = static_cast<float>(value);
}

void correctPorePressure(TriaxialSampleRecord& record, std::size_t s) {
  double m = 100;
  for (std::size_t r = 0; r < kShearRows; ++r)
    if (number(record.porePressure[r][s]) < m) m = number(record.porePressure[r][s]);
  for (std::size_t r = 0; r < kShearRows; ++r)
    if (number(record.deviatorStress[r][s]) != 0 && m < -10 && number(record.porePressure[r][s]) < 0)
      store(record.porePressure[r][s], 2 * m - number(record.porePressure[r][s]));
}

void effectiveStresses(TriaxialSampleRecord& record, std::size_t s) {
  const double sigma3 = number(record.cellPressure[s]);
  if (record.testMethod != kCU || sigma3 == 0) {
    for (std::size_t r = 0; r < kShearRows; ++r) {
      blank(record.sigma1Eff[r][s]);
      blank(record.sigma3Eff[r][s]);
    }
    return;
  }
  if (std::fabs(record.coefficientB[s]) < 0.0001) {
    const double b = record.consolidationPorePressure[0][s] / sigma3;
    if (std::isfinite(b)) toSingle(record.coefficientB[s], ParseNumber(FormatNumber(b / 10, NumberFormat::Hundredths)));
  }
  for (std::size_t r = 0; r < kShearRows; ++r) {
    if (number(record.deviatorStress[r][s]) == 0) continue;
    const double sigma1 = number(record.deviatorStress[r][s]) + sigma3;
    store(record.sigma1Eff[r][s], sigma1 - number(record.porePressure[r][s]));
    store(record.sigma3Eff[r][s], sigma3 - number(record.porePressure[r][s]));
  }
}

struct Running {
  double peak = 0, uf = 0, centre = 0, centreEff = 0, sigma1 = 0, sigma1Eff = 0, sigma3Eff = 0;
};

Running runningMaxima(const TriaxialSampleRecord& record, std::size_t s) {
  const double limit = record.failureStrainLimit[s] / 10.0;
  const double sigma3 = number(record.cellPressure[s]);
  Running at;
  for (std::size_t r = 0; r < kShearRows; ++r) {
    if (!(ThroughSevenDigits(record.axialStrain[r][s]) <= limit)) continue;
    const double q = number(record.deviatorStress[r][s]), u = number(record.porePressure[r][s]);
    if (q > at.peak) {
      toInteger(at.peak, q);
      at.uf = u;
      if (record.shearMode != 2) at.sigma3Eff = number(record.sigma3Eff[r][s]);
    }
    if (2 * sigma3 + q > at.centre) toInteger(at.centre, 2 * sigma3 + q);
    if (2 * sigma3 + q - 2 * u > at.centreEff) toInteger(at.centreEff, 2 * sigma3 + q - 2 * u);
    if (q + sigma3 > at.sigma1) toInteger(at.sigma1, q + sigma3);
    if (number(record.sigma1Eff[r][s]) > at.sigma1Eff) toInteger(at.sigma1Eff, number(record.sigma1Eff[r][s]));
    if (record.shearMode == 2 && number(record.sigma3Eff[r][s]) > at.sigma3Eff)
      at.sigma3Eff = number(record.sigma3Eff[r][s]);
  }
  return at;
}

void storeSigma(TriaxialSampleRecord& record, std::size_t s, const Running& at) {
  const bool cu = record.testMethod == kCU;
  blank(record.sigma1Failure[s]);
  if (at.sigma1 == 0) return;
  store(record.sigma1Failure[s], at.sigma1);
  blank(record.sigma1FailureEff[s]);
  if (cu && at.sigma1Eff >= 1) store(record.sigma1FailureEff[s], at.sigma1Eff);
  if (cu && at.sigma3Eff > 0)
    store(record.sigma3FailureEff[s], at.sigma3Eff);
  else
    blank(record.sigma1FailureEff[s]);
}

bool failurePoint(TriaxialSampleRecord& record, std::size_t s) {
  blank(record.failureRadius[s]);
  blank(record.failureRadiusEff[s]);
  blank(record.failureCentre[s]);
  blank(record.failureCentreEff[s]);
  if (number(record.cellPressure[s]) == 0) {
    blank(record.sigma1Failure[s]);
    blank(record.sigma1FailureEff[s]);
    blank(record.sigma3FailureEff[s]);
    return false;
  }
  const Running at = runningMaxima(record, s);
  const bool cu = record.testMethod == kCU;
  if (at.peak != 0) {
    store(record.failureRadius[s], at.peak / 2);
    if (cu) store(record.failureRadiusEff[s], at.peak / 2);
  }
  const double b = record.coefficientB[s];
  if (!(std::fabs(record.coefficientAf[s]) >= 0.0001)) {
    if (b == 0)
      record.coefficientAf[s] = 0.0F;
    else if (at.peak * b != 0)
      toSingle(record.coefficientAf[s], at.uf / (at.peak * b));
  }
  if (at.centre != 0) store(record.failureCentre[s], at.centre / 2);
  if (at.centreEff != 0 && cu) store(record.failureCentreEff[s], at.centreEff / 2);
  storeSigma(record, s, at);
  return at.peak != 0;
}

}  // namespace

void plainOpeningPass(TriaxialSampleRecord& record, NumberFormat cohesionFormat) {
  if (Trim(record.sampleNo.view()).empty() || Trim(record.projectNo.view()).empty()) return;
  for (std::uint8_t& limit : record.failureStrainLimit)
    if (limit < 35 || limit > 220) limit = 150;
  int failed = 0;
  for (std::size_t s = 0; s < kStages; ++s) {
    correctPorePressure(record, s);
    effectiveStresses(record, s);
    failed += failurePoint(record, s);
  }
  if (failed >= 2 && record.adjustedFlag == 0) fitTotalEnvelope(record, failed, cohesionFormat);
}

}  // namespace triaxlab::tests
