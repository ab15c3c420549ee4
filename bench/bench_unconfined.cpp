// The reduction of a full unconfined table against reading the same texts once: what the stresses, their texts and the
// walk along the smoothed curves cost beyond the least that any program must do that keeps its numbers as text. `ratio`
// of ReductionAgainstParsing is the figure to watch.

#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "timing.h"
#include "unconfined/reduction.h"
#include "unconfined/smoothed_curve.h"

namespace triaxlab {
namespace {

constexpr std::size_t kSamples = 1001;
constexpr NumberFormat kSt = NumberFormat::Hundredths;

using Table = std::vector<UnconfinedSampleRecord>;

/// Both sides with every row filled, a reading each half percent; the curves rise to a top and soften behind it.
UnconfinedSampleRecord fullSample(std::size_t number) {
  UnconfinedSampleRecord record;
  SetText(record.projectNo, "BENCH");
  SetText(record.sampleNo, std::to_string(number + 1));
  record.ringCoefficient = {1250, 1250};
  for (const Specimen specimen : kSpecimens) {
    const double top = (150.0 + static_cast<double>(number % 50)) / (specimen == Specimen::Remoulded ? 4 : 1);
    SetText(record.sampleHeight[indexOf(specimen)], "8.00");
    SetText(record.sampleArea[indexOf(specimen)], "12.00");
    for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
      const double strain = 0.5 * static_cast<double>(row + 1), risen = strain / 8;
      SetNumber(strainOf(record, specimen)[row], strain, NumberFormat::Tenths);
      SetNumber(readingOf(record, specimen)[row], top * risen * std::exp(1 - risen), NumberFormat::Tenths);
    }
  }
  return record;
}

Table fullTable() {
  Table table;
  for (std::size_t number = 0; number < kSamples; ++number) table.push_back(fullSample(number));
  reduceAllUnconfinedSamples(table, kSt);  // the reduction of reduced samples does the same work and changes nothing
  return table;
}

double parseOnce(const Table& table) {
  double sum = 0;
  for (const UnconfinedSampleRecord& record : table)
    for (const Specimen specimen : kSpecimens)
      for (const UnconfinedColumn* column :
           {&stressOf(record, specimen), &strainOf(record, specimen), &readingOf(record, specimen)})
        for (const FixedText<6>& field : *column) sum += readByFromChars(field);
  return sum;
}

double walkAll(const std::vector<std::vector<Point>>& curves) {
  double sum = 0;
  for (const std::vector<Point>& points : curves) sum += peakOfCurve(points, {0, 0}).y;
  return sum;
}

void ReductionAgainstParsing(benchmark::State& state) {
  Table table = fullTable();
  compare(
      state, Seconds::Computed, [&] { reduceAllUnconfinedSamples(table, kSt); },
      [&] { benchmark::DoNotOptimize(parseOnce(table)); });
}
BENCHMARK(ReductionAgainstParsing)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The part of the reduction that goes along the smoothed curves, from their beginning.
void WalkAlongTheCurves(benchmark::State& state) {
  std::vector<std::vector<Point>> curves;
  for (const UnconfinedSampleRecord& record : fullTable())
    for (const Specimen specimen : kSpecimens) curves.push_back(curvePoints(record, specimen, 21.5));
  for ([[maybe_unused]] auto turn : state) benchmark::DoNotOptimize(walkAll(curves));
}
BENCHMARK(WalkAlongTheCurves)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
