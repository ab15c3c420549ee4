// An import without a save, from the file to a table that a window can show, against what no import can do without:
// reading the bytes and the opening pass over what they became. 100 rows of the grid, 999 CU samples of five specimens
// with 51 readings each. `ratio` is the figure to watch.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <string>
#include <system_error>
#include <vector>

#include "importers/importer.h"
#include "importers/ku_builder.h"
#include "platform/files.h"
#include "triaxial/opening_pass.h"

namespace triaxlab {
namespace {

using testing::Entry;
using testing::Specimen;

constexpr int kEntries = 100, kGroups = 999;

/// Stress and pore pressure rise to an asymptote that grows with the cell pressure.
Specimen specimen(int sample, int stage) {
  Specimen made{.sampleNo = "S" + std::to_string(sample),
                .projectNo = "BENCH",
                .testMethod = 2,
                .shearMode = 1,
                .cellPressure = 1000 * (stage + 1),
                .initialHeight = 800,
                .consolidatedHeight = 790,
                .initialArea = 1200,
                .consolidatedArea = 1180};
  const double peak = 1300.0 * (stage + 1) + sample % 50;
  for (int reading = 1; reading <= 51; ++reading) {
    const double risen = 1 - std::exp(-reading / 5.0);
    made.stress[reading] = static_cast<int>(peak * risen);
    made.pore[reading] = static_cast<int>(450.0 * (stage + 1) * risen);
  }
  for (int k = 0; k < 25; ++k) made.consolidationPore[k] = 950 * (stage + 1) / (k + 1);
  return made;
}

/// The database in the folder for temporary files, gone at the end.
class Database {
 public:
  Database() : m_path(std::filesystem::temp_directory_path() / "triaxlab-bench-import.ku") {
    std::vector<Entry> entries;
    for (int entry = 0, sample = 0; entry < kEntries; ++entry) {
      std::vector<std::vector<Specimen>> groups;
      for (const int end = (entry + 1) * kGroups / kEntries; sample < end; ++sample) {
        auto& group = groups.emplace_back();
        for (int stage = 0; stage < 5; ++stage) group.push_back(specimen(sample, stage));
      }
      entries.push_back(testing::olderEntry(std::move(groups)));
    }
    std::ofstream(m_path, std::ios::binary) << testing::kuFile(entries);
  }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
  }
  const std::filesystem::path& path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

std::size_t import(const std::filesystem::path& path, Workspace& workspace) {
  const auto source = importerOfId("auto")->open(path);
  std::vector<std::size_t> rows(source->rows().size());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  const ImportReport report = source->read(rows, workspace, {});
  runOpeningPass(workspace.TriaxialSampleTable, NumberFormat::Whole);
  return report.sampleRows;
}

template <class Work>
double secondsOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void ImportAgainstReadingAndPass(benchmark::State& state) {
  const Database database;
  Workspace workspace;
  if (import(database.path(), workspace) != kGroups) state.SkipWithError("the database lost samples");
  double whole = 0, least = 0;
  for (auto _ : state) {
    const double seconds = secondsOf([&] { import(database.path(), workspace); });
    least += secondsOf([&] {
      benchmark::DoNotOptimize(readWholeFile(database.path(), 100'000'000));
      runOpeningPass(workspace.TriaxialSampleTable, NumberFormat::Whole);
    });
    whole += seconds;
    state.SetIterationTime(seconds);
  }
  const auto runs = static_cast<double>(state.iterations());
  state.counters["import_ms"] = whole / runs * 1e3;
  state.counters["floor_ms"] = least / runs * 1e3;
  state.counters["ratio"] = whole / least;
}
BENCHMARK(ImportAgainstReadingAndPass)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
