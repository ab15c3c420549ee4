// The opening pass over a full table against reading the same texts once: what the pass costs beyond the least that any
// program must do that keeps its numbers as text. `ratio` of OpeningPassAgainstParsing is the figure to watch.

#include <benchmark/benchmark.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <string>
#include <vector>

#include "triaxial/opening_pass.h"

namespace triaxlab {
namespace {

constexpr std::size_t kSamples = 1001;

using Table = std::vector<TriaxialSampleRecord>;

/// A CU sample of five stages, every row filled: stress and pore pressure rise to an asymptote that grows with the cell
/// pressure and differs a little from sample to sample.
TriaxialSampleRecord fullSample(std::size_t number) {
  TriaxialSampleRecord record;
  SetText(record.projectNo, "BENCH");
  SetText(record.sampleNo, std::to_string(number + 1));
  record.testMethod = kCU;
  record.shearMode = 1;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const double sigma3 = 100.0 * static_cast<double>(stage + 1);
    SetNumber(record.cellPressure[stage], sigma3, NumberFormat::Whole);
    record.consolidationPorePressure[0][stage] = static_cast<std::int16_t>(sigma3 * 9.5);
    for (std::size_t row = 0; row < kShearRows; ++row) {
      const double strain = 0.1 * static_cast<double>(row + 1);
      const double risen = 1 - std::exp(-strain / (2 + static_cast<double>(number % 7) / 4));
      SetNumber(record.deviatorStress[row][stage], (1.3 * sigma3 + static_cast<double>(number % 50)) * risen,
                NumberFormat::Whole);
      SetNumber(record.porePressure[row][stage], 0.45 * sigma3 * risen - 4, NumberFormat::Whole);
      record.axialStrain[row][stage] = static_cast<float>(strain);
    }
  }
  return record;
}

Table fullTable() {
  Table table;
  table.reserve(kSamples);
  for (std::size_t number = 0; number < kSamples; ++number) table.push_back(fullSample(number));
  return table;
}

double sumOf(const ShearRows<FixedText<6>>& column) {
  double sum = 0;
  for (const auto& row : column)
    for (const FixedText<6>& field : row) {
      double value = 0;
      const std::string_view places = field.view();
      std::from_chars(places.data(), places.data() + places.size(), value);
      sum += value;
    }
  return sum;
}

double parseOnce(const Table& table) {
  double sum = 0;
  for (const TriaxialSampleRecord& record : table)
    sum +=
        sumOf(record.deviatorStress) + sumOf(record.porePressure) + sumOf(record.sigma1Eff) + sumOf(record.sigma3Eff);
  return sum;
}

template <class Work>
double secondsOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void OpeningPassAgainstParsing(benchmark::State& state) {
  const Table fresh = fullTable();
  Table table = fresh;
  double pass = 0, parse = 0;
  for (auto _ : state) {
    table = fresh;  // the pass works in place; not measured
    const double passSeconds = secondsOf([&] { runOpeningPass(table, NumberFormat::Whole); });
    parse += secondsOf([&] { benchmark::DoNotOptimize(parseOnce(table)); });
    pass += passSeconds;
    state.SetIterationTime(passSeconds);
  }
  const auto runs = static_cast<double>(state.iterations());
  state.counters["pass_ms"] = pass / runs * 1e3;
  state.counters["from_chars_ms"] = parse / runs * 1e3;
  state.counters["ratio"] = pass / parse;
}
BENCHMARK(OpeningPassAgainstParsing)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
