#include "triaxial/failure.h"

#include <algorithm>
#include <cmath>

#include "common/conversions.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

/// The largest values of a stage, each over rows of its own, all whole numbers of 16 bits.
struct Maxima {
  double peak = 0, centreSum = 0, centreSumEff = 0, sigma1 = 0, sigma1Eff = 0;
  double poreAtPeak = 0, sigma3Eff = 0;  // as they stand
};

/// The largest of the values above 0 that a 16-bit integer can hold.
class Largest {
 public:
  void take(double value) {
    constexpr double kBeyondInt16 = 32767.5;
    m_value = std::max(m_value, value < kBeyondInt16 ? value : 0);  // without a branch that a curve leads astray
  }
  /// Rounded at the end: the rounding keeps the order, so no value before changes the result.
  double whole() const { return toInt16(m_value).value_or(0); }

 private:
  double m_value = 0;
};

Maxima findMaxima(const TriaxialSampleRecord& record, std::size_t stage, double strainLimit,
                  const StageCurves& curves) {
  const double sigma3 = record.cellPressure[stage].number();
  const bool oneSpecimen = record.shearMode == 2;
  Maxima found;
  Largest centreSum, centreSumEff, sigma1, sigma1Eff;
  for (std::size_t row = 0; row < kShearRows; ++row) {
    if (!withinLimit(record, stage, row, strainLimit)) continue;
    const double q = curves.deviatorStress[row], u = curves.porePressure[row], sigma3Eff = curves.sigma3Eff[row];
    if (q > found.peak) {
      assignIf(found.peak, toInt16(q));
      found.poreAtPeak = u;
      if (!oneSpecimen) found.sigma3Eff = sigma3Eff;
    }
    centreSum.take(2 * sigma3 + q);
    centreSumEff.take(2 * sigma3 + q - 2 * u);
    sigma1.take(q + sigma3);
    sigma1Eff.take(curves.sigma1Eff[row]);
    if (oneSpecimen && sigma3Eff > found.sigma3Eff) found.sigma3Eff = sigma3Eff;
  }
  found.centreSum = centreSum.whole();
  found.centreSumEff = centreSumEff.whole();
  found.sigma1 = sigma1.whole();
  found.sigma1Eff = sigma1Eff.whole();
  return found;
}

/// Stores the value, or blanks the field when it is not to be shown.
template <std::size_t N>
void storeOrBlank(FixedText<N>& field, bool shown, double value) {
  if (shown)
    SetNumber(field, value, NumberFormat::Whole);
  else
    field.clear();
}

void blankFailureValues(TriaxialSampleRecord& record, std::size_t stage) {
  record.failureRadius[stage].clear();
  record.failureCentre[stage].clear();
  record.sigma1Failure[stage].clear();
  record.sigma1FailureEff[stage].clear();
  record.sigma3FailureEff[stage].clear();
  record.failureRadiusEff[stage].clear();
  record.failureCentreEff[stage].clear();
}

void storeCoefficientAf(TriaxialSampleRecord& record, std::size_t stage, const Maxima& found) {
  if (std::fabs(record.coefficientAf[stage]) >= kSmallestCoefficient) return;
  const double b = record.coefficientB[stage];
  if (b == 0) {
    record.coefficientAf[stage] = 0;
  } else if (const auto af = quotient(found.poreAtPeak, found.peak * b)) {
    assignIf(record.coefficientAf[stage], toSingle(*af));
  }
}

void storeMaxima(TriaxialSampleRecord& record, std::size_t stage, const Maxima& found) {
  const bool cu = record.testMethod == kCU;
  storeOrBlank(record.failureRadius[stage], found.peak != 0, found.peak / 2);
  storeOrBlank(record.failureRadiusEff[stage], found.peak != 0 && cu, found.peak / 2);
  storeCoefficientAf(record, stage, found);
  storeOrBlank(record.failureCentre[stage], found.centreSum != 0, found.centreSum / 2);
  storeOrBlank(record.failureCentreEff[stage], found.centreSumEff != 0 && cu, found.centreSumEff / 2);
  storeOrBlank(record.sigma1Failure[stage], found.sigma1 != 0, found.sigma1);
  if (found.sigma1 == 0) return;  // and sigma1', sigma3' keep what they held
  storeOrBlank(record.sigma1FailureEff[stage], cu && found.sigma1Eff >= 1, found.sigma1Eff);
  // Without a sigma3' above 0 it is sigma1' that is blanked again; sigma3' keeps what it held.
  if (cu && found.sigma3Eff > 0)
    SetNumber(record.sigma3FailureEff[stage], found.sigma3Eff, NumberFormat::Whole);
  else
    record.sigma1FailureEff[stage].clear();
}

/// The row of failure as a mode finds it. Without one the values are those of a row of no stress.
struct FailureRow {
  bool found = false;
  std::size_t row = 0;
  double q = 0, u = 0, sigma1Eff = 0, sigma3Eff = 0;
};

FailureRow readRow(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row) {
  return {true,
          row,
          record.deviatorStress[row][stage].number(),
          record.porePressure[row][stage].number(),
          record.sigma1Eff[row][stage].number(),
          record.sigma3Eff[row][stage].number()};
}

FailureRow findPeakStress(const TriaxialSampleRecord& record, std::size_t stage, double strainLimit) {
  FailureRow failure;
  for (std::size_t row = 0; row < kShearRows; ++row)
    if (withinLimit(record, stage, row, strainLimit) && record.deviatorStress[row][stage].number() > failure.q)
      failure = readRow(record, stage, row);
  return failure;
}

FailureRow findPeakRatio(const TriaxialSampleRecord& record, std::size_t stage, double strainLimit) {
  FailureRow failure;
  double largest = 0;
  for (std::size_t row = 0; row < kShearRows; ++row) {
    if (!withinLimit(record, stage, row, strainLimit)) continue;
    const auto ratio = quotient(record.sigma1Eff[row][stage].number(), record.sigma3Eff[row][stage].number());
    if (!ratio || !(*ratio > largest)) continue;
    largest = *ratio;
    failure = readRow(record, stage, row);
  }
  return failure;
}

void storeFailureRow(TriaxialSampleRecord& record, std::size_t stage, FailureMode mode, const FailureRow& at) {
  const bool cu = record.testMethod == kCU;
  const double sigma3 = record.cellPressure[stage].number();
  const double centre = (2 * sigma3 + at.q) / 2;
  const double centreEff =
      mode == FailureMode::PeakStress ? (2 * sigma3 + at.q - 2 * at.u) / 2 : (at.sigma1Eff + at.sigma3Eff) / 2;
  storeOrBlank(record.failureRadius[stage], at.q != 0, at.q / 2);
  storeOrBlank(record.failureRadiusEff[stage], at.q != 0 && cu, at.q / 2);
  storeOrBlank(record.failureCentre[stage], centre != 0, centre);
  storeOrBlank(record.failureCentreEff[stage], centreEff != 0 && cu, centreEff);
  storeOrBlank(record.sigma1Failure[stage], at.q + sigma3 != 0, at.q + sigma3);
  storeOrBlank(record.sigma1FailureEff[stage], cu && at.sigma1Eff >= 1, at.sigma1Eff);
  storeOrBlank(record.sigma3FailureEff[stage], cu && at.sigma3Eff > 0, at.sigma3Eff);
}

}  // namespace

bool storeIndependentMaxima(TriaxialSampleRecord& record, std::size_t stage, double strainLimit,
                            const StageCurves& curves) {
  if (!StageUsed(record, stage)) {
    blankFailureValues(record, stage);
    return false;
  }
  const Maxima found = findMaxima(record, stage, strainLimit, curves);
  storeMaxima(record, stage, found);
  return found.peak != 0;
}

FailureRows applyFailureMode(TriaxialSampleRecord& record, FailureMode mode) {
  const PerStage<double> limits = ClampFailureLimit(record);
  const auto find = mode == FailureMode::PeakStress ? findPeakStress : findPeakRatio;
  FailureRows rows;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    if (!StageUsed(record, stage)) continue;
    const FailureRow at = find(record, stage, limits[stage]);
    storeFailureRow(record, stage, mode, at);
    // The row of a peak below 2 kPa is not told of; its values are stored all the same.
    if (!at.found || (mode == FailureMode::PeakStress && at.q < 2)) continue;
    if (record.testMethod != kCD)
      SetText(rows.failureStressAtPeak[stage], record.porePressure[at.row][stage].trimmed());
    rows.failureStrainAtPeak[stage] = PlainNumber(ReadStrain(record, stage, at.row));
  }
  return rows;
}

}  // namespace triaxlab
