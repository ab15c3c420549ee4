#include "unconfined/reduction.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "common/conversions.h"
#include "unconfined/smoothed_curve.h"

namespace triaxlab {
namespace {

constexpr std::uint8_t kSmallestStrainLimit = 35, kLargestStrainLimit = 220, kUsualStrainLimit = 150;

double workingLimit(UnconfinedSampleRecord& record, Specimen specimen) {
  std::uint8_t& limit = record.strainLimit[indexOf(specimen)];
  if (limit < kSmallestStrainLimit || limit > kLargestStrainLimit) limit = kUsualStrainLimit;
  return limit / 10.0;
}

template <std::size_t N>
void blankIfZero(FixedText<N>& field) {
  if (field.number() == 0) field.clear();
}

/// Readings are taken at every half percent, or at every percent when the first two stand further apart.
double strainStep(const UnconfinedSampleRecord& record) {
  const auto isWide = [](const UnconfinedColumn& strain) { return strain[1].number() - strain[0].number() > 0.51; };
  return isWide(record.remouldedStrain) || isWide(record.undisturbedStrain) ? 1.0 : 0.5;
}

void tidyRows(UnconfinedSampleRecord& record) {
  const double step = strainStep(record);
  const bool hasNumber = !record.sampleNo.isBlank();
  for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
    for (const Specimen specimen : kSpecimens) {
      if (!hasNumber)
        SetNumber(strainOf(record, specimen)[row], static_cast<double>(row + 1) * step, NumberFormat::Tenths);
      blankIfZero(readingOf(record, specimen)[row]);
    }
  }
}

/// Force of the load ring over the area that the specimen has at this strain; kPa, in single precision at each step.
std::optional<float> stressAt(double newtonsPerDivision, double divisions, double strain, double area) {
  std::optional<float> stress = toSingle(newtonsPerDivision * 10 * divisions);
  if (stress) stress = toSingle(*stress * (1 - strain / 100));
  if (stress) stress = toSingle(*stress / area);
  return stress;
}

void computeStresses(UnconfinedSampleRecord& record, Specimen specimen) {
  constexpr double kNoReading = 0.01;
  const double area = record.sampleArea[indexOf(specimen)].number();
  if (area == 0) return;
  const double newtonsPerDivision = record.ringCoefficient[indexOf(specimen)] / 1000.0;
  for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
    const double divisions = readingOf(record, specimen)[row].number();
    if (!(divisions > kNoReading)) continue;
    const std::optional<float> stress =
        stressAt(newtonsPerDivision, divisions, strainOf(record, specimen)[row].number(), area);
    if (stress && *stress != 0) SetText(stressOf(record, specimen)[row], FormatNumber(*stress, NumberFormat::Tenths));
  }
}

/// A text beyond any number has no part in a result.
bool areNumbers(std::initializer_list<double> values) {
  return std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
}

/// Of rows with the same stress the first counts.
Point highestRow(const UnconfinedSampleRecord& record, Specimen specimen, double largestStrain) {
  Point peak{0, 0};
  for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
    const double stress = stressOf(record, specimen)[row].number();
    if (!(stress > peak.y)) continue;
    const double strain = strainOf(record, specimen)[row].number();
    if (strain <= largestStrain && areNumbers({strain, stress})) peak = {strain, stress};
  }
  return peak;
}

/// Neither the strain limit of the sample nor the end of the chart's axis counts here.
Point refinedPeak(const UnconfinedSampleRecord& record, Specimen specimen, Point peak) {
  constexpr double kLargestStrain = 21.5;
  return peakOfCurve(curvePoints(record, specimen, kLargestStrain), peak);
}

void storePeaks(UnconfinedSampleRecord& record, BothSpecimens<double> peaks, NumberFormat sensitivityFormat) {
  record.sensitivity.clear();
  for (const Specimen specimen : kSpecimens) {
    FixedText<6>& strength = strengthOf(record, specimen);
    strength.clear();
    if (peaks[indexOf(specimen)] > 0) SetNumber(strength, peaks[indexOf(specimen)], NumberFormat::Tenths);
  }
  if (peaks[0] != 0 && peaks[1] != 0) SetNumber(record.sensitivity, peaks[0] / peaks[1], sensitivityFormat);
}

}  // namespace

void reduceUnconfinedSample(UnconfinedSampleRecord& record, NumberFormat sensitivityFormat) {
  BothSpecimens<double> limits{};
  for (const Specimen specimen : kSpecimens) {
    limits[indexOf(specimen)] = workingLimit(record, specimen);
    blankIfZero(record.sampleArea[indexOf(specimen)]);
    blankIfZero(record.sampleHeight[indexOf(specimen)]);
  }
  tidyRows(record);
  BothSpecimens<double> peaks{};
  for (const Specimen specimen : kSpecimens) {
    computeStresses(record, specimen);
    peaks[indexOf(specimen)] = highestRow(record, specimen, limits[indexOf(specimen)]).y;
  }
  storePeaks(record, peaks, sensitivityFormat);
  refineUnconfinedPeaks(record, sensitivityFormat);
}

void refineUnconfinedPeaks(UnconfinedSampleRecord& record, NumberFormat sensitivityFormat) {
  BothSpecimens<double> peaks{};
  for (const Specimen specimen : kSpecimens)
    peaks[indexOf(specimen)] = refinedPeak(record, specimen, {0, strengthOf(record, specimen).number()}).y;
  storePeaks(record, peaks, sensitivityFormat);
}

void reduceAllUnconfinedSamples(std::span<UnconfinedSampleRecord> table, NumberFormat sensitivityFormat) {
  for (UnconfinedSampleRecord& record : table)
    if (isLive(record)) reduceUnconfinedSample(record, sensitivityFormat);
}

std::optional<double> strainAtPeak(const UnconfinedSampleRecord& record, Specimen specimen) {
  if (strengthOf(record, specimen).isBlank()) return std::nullopt;
  Point peak = highestRow(record, specimen, record.strainLimit[indexOf(specimen)] / 10.0);
  // The curve has to rise above the strength as the row would have it: one decimal, in six places.
  FixedText<6> ofRow;
  peak.y = SetAndRead(ofRow, peak.y, NumberFormat::Tenths);
  return refinedPeak(record, specimen, peak).x;
}

HalfPeak halfPeakOf(const UnconfinedSampleRecord& record, Specimen specimen) {
  constexpr double kLargestStrain = 15;
  const UnconfinedColumn& strains = strainOf(record, specimen);
  const UnconfinedColumn& stresses = stressOf(record, specimen);
  HalfPeak half{.stress = highestRow(record, specimen, kLargestStrain).y / 2, .strain = 0};
  if (!(half.stress > 0)) return half;
  for (std::size_t row = 0; row + 1 < kUnconfinedRows; ++row) {
    const double strain = strains[row].number(), nextStrain = strains[row + 1].number();
    const double stress = stresses[row].number(), nextStress = stresses[row + 1].number();
    if (!(stress <= half.stress && nextStress >= half.stress) || !areNumbers({strain, nextStrain, stress, nextStress}))
      continue;
    half.strain = strain;
    if (strain == nextStrain) continue;
    if (const auto slope = quotient(strain - nextStrain, stress - nextStress))
      if (const double crossing = strain + *slope * (half.stress - stress); std::isfinite(crossing))
        half.strain = crossing;
    break;
  }
  return half;
}

}  // namespace triaxlab
