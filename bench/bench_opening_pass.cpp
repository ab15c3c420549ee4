// The opening pass over a full table against reading the same texts once: what the pass costs beyond the least that any
// program must do that keeps its numbers as text. `ratio` of OpeningPassAgainstParsing is the figure to watch.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "full_sample.h"
#include "timing.h"
#include "triaxial/opening_pass.h"

namespace triaxlab {
namespace {

constexpr std::size_t kSamples = 1001;

using Table = std::vector<TriaxialSampleRecord>;

Table fullTable() {
  Table table;
  table.reserve(kSamples);
  for (std::size_t number = 0; number < kSamples; ++number) table.push_back(fullSample(number));
  return table;
}

double sumOf(const ShearRows<FixedText<6>>& column) {
  double sum = 0;
  for (const auto& row : column)
    for (const FixedText<6>& field : row) sum += readByFromChars(field);
  return sum;
}

double parseOnce(const Table& table) {
  double sum = 0;
  for (const TriaxialSampleRecord& record : table)
    sum +=
        sumOf(record.deviatorStress) + sumOf(record.porePressure) + sumOf(record.sigma1Eff) + sumOf(record.sigma3Eff);
  return sum;
}

void OpeningPassAgainstParsing(benchmark::State& state) {
  const Table fresh = fullTable();
  Table table = fresh;
  compare(
      state, Seconds::Computed, [&] { runOpeningPass(table, NumberFormat::Whole); },
      [&] { benchmark::DoNotOptimize(parseOnce(table)); }, [&] { table = fresh; });  // the pass works in place
}
BENCHMARK(OpeningPassAgainstParsing)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
