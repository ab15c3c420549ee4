// The reduction of a full TK0 table against reading the same texts once: what the T90 construction costs beyond the
// least that any program must do that keeps its numbers as text. `ratio` is the figure to watch.

#include <benchmark/benchmark.h>
#include <fmt/core.h>

#include <cmath>
#include <vector>

#include "k0/opening_pass.h"
#include "k0/settlement.h"
#include "timing.h"

namespace triaxlab {
namespace {

constexpr std::size_t kSamples = 1001;

using Table = std::vector<TK0SampleRecord>;

/// Ten stages of 21 rows each: a settlement that bends, and a pressure that falls a little.
TK0SampleRecord fullSample(std::size_t number) {
  TK0SampleRecord record;
  SetText(record.k0.projectNo, "2024-018");
  SetText(record.k0.sampleNo, fmt::format("ZK{}", number));
  record.stageCount = static_cast<std::int16_t>(kLoadStages);
  record.timeRowCount = static_cast<std::int16_t>(kSettlementRows + 1);
  for (std::size_t row = 1; row <= kSettlementRows; ++row) {
    const auto minutes = 0.1 * std::pow(1.45, static_cast<double>(row));
    record.elapsedSeconds[row] = static_cast<std::int32_t>(60 * minutes);
    const double consolidated = 1 - std::exp(-0.6 * std::sqrt(minutes));
    for (std::size_t stage = 0; stage < kLoadStages; ++stage) {
      const double load = 50.0 * static_cast<double>(stage + 1);
      SetNumber(record.deformationSeries[row][stage], (0.8 + 0.01 * static_cast<double>(number % 17)) * consolidated,
                NumberFormat::Thousandths);
      SetNumber(record.pressureSeries[row][stage], load * (0.6 - 0.1 * consolidated), NumberFormat::Tenths);
    }
  }
  for (std::size_t stage = 0; stage < kLoadStages; ++stage)
    SetNumber(record.k0.axialPressure[stage], 50.0 * static_cast<double>(stage + 1), NumberFormat::Tenths);
  return record;
}

Table fullTable() {
  Table table;
  table.reserve(kSamples);
  for (std::size_t number = 0; number < kSamples; ++number) table.push_back(fullSample(number));
  return table;
}

/// Loads, series and the pressures that the line is fitted through.
double parseOnce(const Table& table) {
  double sum = 0;
  for (const TK0SampleRecord& record : table)
    for (std::size_t stage = 0; stage < kLoadStages; ++stage) {
      sum += readByFromChars(record.k0.axialPressure[stage]) + readByFromChars(record.k0.lateralPressure[stage]);
      for (std::size_t row = 1; row <= kSettlementRows; ++row)
        sum +=
            readByFromChars(record.deformationSeries[row][stage]) + readByFromChars(record.pressureSeries[row][stage]);
    }
  return sum;
}

void ReductionAgainstParsing(benchmark::State& state) {
  Table table = fullTable();
  reduceAllTK0Samples(table);  // the reduction of reduced samples changes nothing
  compare(
      state, Seconds::Computed, [&] { reduceAllTK0Samples(table); },
      [&] { benchmark::DoNotOptimize(parseOnce(table)); });
}
BENCHMARK(ReductionAgainstParsing)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
