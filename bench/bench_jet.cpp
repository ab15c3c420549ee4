// An import from a database of the Windows edition without a save, 100 samples of 200 readings, from the file to a
// table that a window can show, against mdb-export (package mdbtools) of the same three tables. `ratio` is the figure
// to watch; without mdb-export there is none.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <string>
#include <vector>

#include "importers/importer.h"
#include "support/jet_builder.h"
#include "timing.h"

namespace triaxlab {
namespace {

using testing::Jet;
using testing::JetBuilder;
using testing::JetCell;
using testing::JetColumnSpec;
using testing::JetKind;
using testing::JetRow;

constexpr int kSamples = 100, kStagesEach = 4, kReadingsEach = 200;

std::vector<JetColumnSpec> columns(const std::vector<std::string>& longs, const std::vector<std::string>& doubles) {
  std::vector<JetColumnSpec> all;
  for (const auto& name : longs) all.push_back({name, JetKind::Long});
  for (const auto& name : doubles) all.push_back({name, JetKind::Double});
  return all;
}

/// All columns that the controller writes, the rows of every table stored from the last to the first.
std::string largeDatabase() {
  std::vector<JetRow> projects, stages, readings;
  for (int id = kSamples; id > 0; --id) {
    projects.push_back({double(id), "BENCH", "综合管廊岩土工程勘察", "2024-05-06 09:15:30", 1.0, 2.0, 1.0,
                        "S" + std::to_string(id), 1.0, "0.8", 1.0, 1.0, 15.0, 0.0});
    for (int stage = kStagesEach; stage > 0; --stage)
      stages.push_back({double(id), double(stage), 100.0 * stage, 0.0, 8.012, 7.945, 12.034, 11.876});
    constexpr int kOfStage = kReadingsEach / kStagesEach;
    for (int reading = kReadingsEach; reading > 0; --reading) {
      const int stage = (reading - 1) / kOfStage + 1, i = (reading - 1) % kOfStage;
      const double risen = stage * (1 - std::exp(-i / 5.0));
      const bool consolidates = i < 10;
      readings.push_back({double(id), double(reading), consolidates ? 2.0 : 4.0, 60.0 * i, 100.0 * stage, 0.3,
                          123.45 * risen, 45.67 * risen, 1.234 * risen, 1.1 * risen, 1.3 * risen, 0.05 * i});
    }
  }
  return JetBuilder(Jet::Four)
      .table("Project_Information",
             {{"ID", JetKind::Long},
              {"GCBH", JetKind::Text},
              {"GCMC", JetKind::Text},
              {"BCSJ", JetKind::Text},
              {"SYLX", JetKind::Long},
              {"SYFF", JetKind::Long},
              {"SyangLX", JetKind::Long},
              {"TYBH", JetKind::Text},
              {"UUTZ", JetKind::Long},
              {"JQSL", JetKind::Text},
              {"SYZMJ", JetKind::Long},
              {"GJFF", JetKind::Long},
              {"JTYB", JetKind::Double},
              {"JQKZ", JetKind::Double}},
             projects)
      .table("Datas_GJ", columns({"ID", "StepNO"}, {"SDWY", "SDPY", "SYQSGD", "GJSSGD", "SYQSMJ", "GJSSMJ"}), stages)
      .table("Datas", columns({"ID", "NO", "TZ", "CJSJ"}, {"WY", "FY", "ZYLC", "KY", "PS", "NTB", "WTB", "WeiY"}),
             readings)
      .bytes();
}

/// A database file that is gone at the end.
class DatabaseFile {
 public:
  DatabaseFile() : m_path(std::filesystem::temp_directory_path() / "triaxlab-bench-SZData.dat") {
    std::ofstream(m_path, std::ios::binary) << largeDatabase();
  }
  DatabaseFile(const DatabaseFile&) = delete;
  DatabaseFile& operator=(const DatabaseFile&) = delete;
  ~DatabaseFile() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
  }
  const std::filesystem::path& path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

bool exportTables(const std::filesystem::path& path) {
  const auto command = [&](const char* table) {
    return "mdb-export '" + path.string() + "' " + table + " >/dev/null 2>&1";
  };
  for (const char* const table : {"Project_Information", "Datas_GJ", "Datas"})
    if (std::system(command(table).c_str()) != 0) return false;
  return true;
}

void importDatabase(benchmark::State& state) {
  const DatabaseFile file;
  Workspace workspace;
  const auto import = [&] {
    const auto source = openRawSource(*importerOfId("win"), file.path());
    std::vector<std::size_t> rows(source->rows().size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    if (source->read(rows, workspace, {}).sampleRows != kSamples) state.SkipWithError("not all samples came in");
  };
  if (exportTables(file.path()))
    compare(state, Seconds::Elapsed, import, [&] { exportTables(file.path()); });
  else
    for ([[maybe_unused]] auto turn : state) state.SetIterationTime(secondsOf(import, Seconds::Elapsed));
}
BENCHMARK(importDatabase)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
