// An import without a save, from the file to a table that a window can show, against what no import can do without:
// reading the bytes and the reduction of what they became. 999 samples with the stages and readings that the apparatus
// of the source has: 5 of 51, 4 of 50 (qvb98), 1 of 201 (nanjing), two sides of 23 (unconfined-kzj) and of 42
// (unconfined-hwx). `ratio` is the figure to watch.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <numeric>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "importers/importer.h"
#include "importers/source_builders.h"
#include "importers/unconfined_builders.h"
#include "platform/files.h"
#include "timing.h"
#include "triaxial/opening_pass.h"
#include "unconfined/reduction.h"

namespace triaxlab {
namespace {

using testing::Entry;
using testing::ManualSpecimen;
using testing::NanjingBlock;
using testing::NewQvbSpecimen;
using testing::QvbSpecimen;
using testing::Specimen;

constexpr int kEntries = 100, kGroups = 999;

/// Reading `reading` of a curve that rises to an asymptote.
int risen(double asymptote, int reading) { return static_cast<int>(asymptote * (1 - std::exp(-reading / 5.0))); }

/// Readings from `first` on of a curve whose asymptote grows with the stage, as the cell pressure does.
std::map<int, int> curve(double asymptote, int stage, int first, int count) {
  std::map<int, int> readings;
  for (int i = 0; i < count; ++i) readings[first + i] = risen(asymptote * (stage + 1), i + 1);
  return readings;
}

std::map<int, int> dissipation(int stage) {
  std::map<int, int> readings;
  for (int k = 0; k < 25; ++k) readings[k] = 950 * (stage + 1) / (k + 1);
  return readings;
}

std::string numberOf(int sample) { return "S" + std::to_string(sample); }

Specimen automaticSpecimen(int sample, int stage) {
  return {.sampleNo = numberOf(sample),
          .projectNo = "BENCH",
          .testMethod = 2,
          .shearMode = 1,
          .cellPressure = 1000 * (stage + 1),
          .initialHeight = 800,
          .consolidatedHeight = 790,
          .initialArea = 1200,
          .consolidatedArea = 1180,
          .consolidationPore = dissipation(stage),
          .stress = curve(1300.0 + sample % 50, stage, 1, 51),
          .pore = curve(450, stage, 1, 51)};
}

QvbSpecimen qvbSpecimen(int sample, int stage) {
  return {.packedSampleNo = {(sample / 100 % 10) << 4 | sample / 10 % 10, (sample % 10) << 4 | 0xF, 0xFF, 0xFF},
          .testMethod = 2,
          .cellPressure = 100 * (stage + 1),
          .consolidatedHeight = 790,
          .drainage = 240,
          .dial = curve(1300.0 + sample % 50, stage, 0, 50),
          .startPore = 95 * (stage + 1),
          .pore = curve(45, stage, 0, 50),
          .volume = curve(300, stage, 0, 50)};
}

NewQvbSpecimen newQvbSpecimen(int sample, int stage) {
  return {.sampleNo = numberOf(sample),
          .projectNo = "BENCH",
          .testMethod = 2,
          .cellPressure = 1000 * (stage + 1),
          .drainage = 240,
          .consolidationPore = dissipation(stage),
          .dial = curve(1300.0 + sample % 50, stage, 1, 51),
          .pore = curve(450, stage, 1, 50)};
}

ManualSpecimen manualSpecimen(int sample, int stage) {
  return {.sampleNo = numberOf(sample),
          .projectNo = "BENCH",
          .testMethod = 2,
          .cellPressure = 100 * (stage + 1),
          .drainage = 240,
          .consolidationPore = dissipation(stage),
          .stress = curve(1300.0 + sample % 50, stage, 1, 51),
          .pore = curve(450, stage, 1, 51)};
}

/// A database of kEntries rows with kGroups samples; `addSample` puts a sample's specimens to the others of its entry.
template <class Specimens, class AddSample, class MakeEntry>
std::string indexedDatabase(AddSample&& addSample, MakeEntry&& makeEntry) {
  std::vector<Entry> entries;
  for (int entry = 0, sample = 0; entry < kEntries; ++entry) {
    Specimens specimens;
    for (const int end = (entry + 1) * kGroups / kEntries; sample < end; ++sample) addSample(sample, specimens);
    entries.push_back(makeEntry(std::move(specimens)));
  }
  return testing::kuFile(entries);
}

template <class OneSpecimen>
auto stagesOf(OneSpecimen oneSpecimen, int sample, int stages) {
  std::vector<decltype(oneSpecimen(sample, 0))> specimens;
  for (int stage = 0; stage < stages; ++stage) specimens.push_back(oneSpecimen(sample, stage));
  return specimens;
}

std::string automaticDatabase() {
  using Groups = std::vector<std::vector<Specimen>>;
  return indexedDatabase<Groups>(
      [](int sample, Groups& groups) { groups.push_back(stagesOf(automaticSpecimen, sample, 5)); },
      [](Groups groups) { return testing::olderEntry(std::move(groups)); });
}

std::string qvbDatabase() {
  using Groups = std::vector<std::vector<QvbSpecimen>>;
  return indexedDatabase<Groups>([](int sample, Groups& groups) { groups.push_back(stagesOf(qvbSpecimen, sample, 4)); },
                                 [](Groups groups) { return testing::qvbEntry(std::move(groups)); });
}

std::string newQvbDatabase() {
  using Specimens = std::vector<NewQvbSpecimen>;
  return indexedDatabase<Specimens>(
      [](int sample, Specimens& specimens) {
        for (int stage = 0; stage < 5; ++stage) specimens.push_back(newQvbSpecimen(sample, stage));
      },
      [](const Specimens& specimens) { return testing::newQvbEntry(specimens); });
}

std::string manualDatabase() {
  std::vector<ManualSpecimen> specimens;
  for (int sample = 0; sample < kGroups; ++sample)
    for (int stage = 0; stage < 5; ++stage) specimens.push_back(manualSpecimen(sample, stage));
  return testing::manualFile({{.projectNo = "BENCH", .count = static_cast<int>(specimens.size())}}, specimens);
}

std::string nanjingDatabase() {
  std::string file;
  for (int sample = 0; sample < kGroups; ++sample) {
    NanjingBlock block{.sampleNo = numberOf(sample)};
    for (int i = 0; i < 201; ++i) block.readings.push_back(risen(20000.0 + sample % 50, i));
    file += block.bytes() + "\n";
  }
  return file;
}

/// A group has both sides, of one number.
std::string kzjDatabase() {
  using Groups = std::vector<testing::KzjGroup>;
  return indexedDatabase<Groups>(
      [](int sample, Groups& groups) {
        const std::array packed{0xFF, (sample / 10 % 10) << 4 | sample % 10, 0xF0 | sample / 100};
        groups.push_back({.packedSampleNo = packed,
                          .packedRemouldedNo = packed,
                          .undisturbed = {.readings = curve(1300.0 + sample % 50, 0, 0, 23)},
                          .remoulded = {.readings = curve(300.0 + sample % 50, 0, 0, 23)}});
      },
      [](const Groups& groups) { return testing::kzjEntry(groups); });
}

std::string hwxDatabase() {
  using Specimens = std::vector<testing::HwxSpecimen>;
  return indexedDatabase<Specimens>(
      [](int sample, Specimens& specimens) {
        for (const int side : {1, 0})
          specimens.push_back({.projectNo = "BENCH",
                               .sampleNo = numberOf(sample),
                               .side = side,
                               .readings = curve(300.0 + 1000 * side + sample % 50, 0, 0, 42)});
      },
      [](const Specimens& specimens) { return testing::hwxEntry(specimens); });
}

void reduceTriaxial(Workspace& workspace) { runOpeningPass(workspace.TriaxialSampleTable.used(), NumberFormat::Whole); }
void reduceUnconfined(Workspace& workspace) {
  reduceAllUnconfinedSamples(workspace.UnconfinedSampleTable.used(), NumberFormat::Hundredths);
}

struct Source {
  const char* id;
  std::string (*database)();
  void (*reduce)(Workspace&) = reduceTriaxial;
};
constexpr std::array kSources{Source{"auto", automaticDatabase},
                              Source{"qvb98", qvbDatabase},
                              Source{"new-qvb", newQvbDatabase},
                              Source{"manual", manualDatabase},
                              Source{"nanjing", nanjingDatabase},
                              Source{"unconfined-kzj", kzjDatabase, reduceUnconfined},
                              Source{"unconfined-hwx", hwxDatabase, reduceUnconfined}};

/// The database in the folder for temporary files, gone at the end.
class Database {
 public:
  explicit Database(const std::string& bytes)
      : m_path(std::filesystem::temp_directory_path() / "triaxlab-bench-import.ku") {
    std::ofstream(m_path, std::ios::binary) << bytes;
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

/// The number of samples that came in.
std::size_t import(const Source& from, const std::filesystem::path& path, Workspace& workspace) {
  const auto source = openRawSource(*importerOfId(from.id), path);
  std::vector<std::size_t> rows(source->rows().size());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  const std::size_t samples = source->read(rows, workspace, {}).samples;
  from.reduce(workspace);
  return samples;
}

void ImportAgainstReadingAndPass(benchmark::State& state) {
  const Source& source = kSources.at(static_cast<std::size_t>(state.range(0)));
  state.SetLabel(source.id);
  const Database database(source.database());
  Workspace workspace;
  if (import(source, database.path(), workspace) != kGroups) state.SkipWithError("the database lost samples");
  compare(
      state, Seconds::Computed, [&] { import(source, database.path(), workspace); },
      [&] {
        benchmark::DoNotOptimize(readWholeFile(database.path(), 100'000'000));
        source.reduce(workspace);
      });
}
BENCHMARK(ImportAgainstReadingAndPass)
    ->DenseRange(0, kSources.size() - 1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
