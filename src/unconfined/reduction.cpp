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

/// What the field reads as; it is blanked when that is 0.
template <std::size_t N>
double numberOrBlank(FixedText<N>& field) {
  const double number = field.number();
  if (number == 0) field.clear();
  return number;
}

/// Readings are taken at every half percent, or at every percent when the first two stand further apart.
double strainStep(const UnconfinedSampleRecord& record) {
  const auto isWide = [](const UnconfinedColumn& strain) { return strain[1].number() - strain[0].number() > 0.51; };
  return isWide(record.remouldedStrain) || isWide(record.undisturbedStrain) ? 1.0 : 0.5;
}

void fillStrains(UnconfinedSampleRecord& record) {
  const double step = strainStep(record);
  for (const Specimen specimen : kSpecimens)
    for (std::size_t row = 0; row < kUnconfinedRows; ++row)
      SetNumber(strainOf(record, specimen)[row], static_cast<double>(row + 1) * step, NumberFormat::Tenths);
}

/// Force of the load ring over the area that the specimen has at this strain; kPa, in single precision at each step.
std::optional<float> stressAt(double newtonsPerDivision, double divisions, double strain, double area) {
  std::optional<float> stress = toSingle(newtonsPerDivision * 10 * divisions);
  if (stress) stress = toSingle(*stress * (1 - strain / 100));
  if (stress) stress = toSingle(*stress / area);
  return stress;
}

/// The stresses of all rows with a reading, and the rows as they then read. Each text is read once.
CurveRows computeStresses(UnconfinedSampleRecord& record, Specimen specimen) {
  constexpr double kNoReading = 0.01;
  const double area = numberOrBlank(record.sampleArea[indexOf(specimen)]);
  const double newtonsPerDivision = record.ringCoefficient[indexOf(specimen)] / 1000.0;
  CurveRows rows;
  for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
    const double divisions = numberOrBlank(readingOf(record, specimen)[row]);
    const double strain = rows.strain[row] = strainOf(record, specimen)[row].number();
    FixedText<6>& text = stressOf(record, specimen)[row];
    std::optional<float> stress;
    if (area != 0 && divisions > kNoReading) stress = stressAt(newtonsPerDivision, divisions, strain, area);
    rows.stress[row] = stress && *stress != 0 ? SetAndReadSingle(text, *stress, NumberFormat::Tenths) : text.number();
  }
  return rows;
}

/// A text beyond any number has no part in a result.
bool areNumbers(std::initializer_list<double> values) {
  return std::ranges::all_of(values, [](double value) { return std::isfinite(value); });
}

/// Of rows with the same stress the first counts.
Point highestRow(const CurveRows& rows, double largestStrain) {
  Point peak{0, 0};
  for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
    const Point point{rows.strain[row], rows.stress[row]};
    if (point.y > peak.y && point.x <= largestStrain && areNumbers({point.x, point.y})) peak = point;
  }
  return peak;
}

/// Neither the strain limit of the sample nor the end of the chart's axis counts here.
Point refinedPeak(const CurveRows& rows, Point peak) {
  constexpr double kLargestStrain = 21.5;
  return peakOfCurve(curvePoints(rows, kLargestStrain), peak);
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

void refinePeaks(UnconfinedSampleRecord& record, const BothSpecimens<CurveRows>& rows, NumberFormat sensitivityFormat) {
  BothSpecimens<double> peaks{};
  for (const Specimen specimen : kSpecimens)
    peaks[indexOf(specimen)] = refinedPeak(rows[indexOf(specimen)], {0, strengthOf(record, specimen).number()}).y;
  storePeaks(record, peaks, sensitivityFormat);
}

}  // namespace

void reduceUnconfinedSample(UnconfinedSampleRecord& record, NumberFormat sensitivityFormat) {
  if (record.sampleNo.isBlank()) fillStrains(record);
  BothSpecimens<CurveRows> rows;
  BothSpecimens<double> peaks{};
  for (const Specimen specimen : kSpecimens) {
    const std::size_t side = indexOf(specimen);
    numberOrBlank(record.sampleHeight[side]);
    rows[side] = computeStresses(record, specimen);
    peaks[side] = highestRow(rows[side], workingLimit(record, specimen)).y;
  }
  storePeaks(record, peaks, sensitivityFormat);
  refinePeaks(record, rows, sensitivityFormat);
}

void refineUnconfinedPeaks(UnconfinedSampleRecord& record, NumberFormat sensitivityFormat) {
  refinePeaks(record, {curveRows(record, Specimen::Undisturbed), curveRows(record, Specimen::Remoulded)},
              sensitivityFormat);
}

void reduceAllUnconfinedSamples(std::span<UnconfinedSampleRecord> table, NumberFormat sensitivityFormat) {
  for (UnconfinedSampleRecord& record : table)
    if (isLive(record)) reduceUnconfinedSample(record, sensitivityFormat);
}

std::optional<double> strainAtPeak(const UnconfinedSampleRecord& record, Specimen specimen) {
  if (strengthOf(record, specimen).isBlank()) return std::nullopt;
  const CurveRows rows = curveRows(record, specimen);
  Point peak = highestRow(rows, record.strainLimit[indexOf(specimen)] / 10.0);
  // The curve has to rise above the strength as the row would have it: one decimal, in six places.
  FixedText<6> ofRow;
  peak.y = SetAndRead(ofRow, peak.y, NumberFormat::Tenths);
  return refinedPeak(rows, peak).x;
}

HalfPeak halfPeakOf(const UnconfinedSampleRecord& record, Specimen specimen) {
  constexpr double kLargestStrain = 15;
  const CurveRows rows = curveRows(record, specimen);
  HalfPeak half{.stress = highestRow(rows, kLargestStrain).y / 2, .strain = 0};
  if (!(half.stress > 0)) return half;
  for (std::size_t row = 0; row + 1 < kUnconfinedRows; ++row) {
    const double strain = rows.strain[row], nextStrain = rows.strain[row + 1];
    const double stress = rows.stress[row], nextStress = rows.stress[row + 1];
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
