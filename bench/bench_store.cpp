// What opening and saving a full project costs beyond the least that any program must do for the same bytes: reading
// them into memory that is not yet there, and writing and syncing them twice, once into a new file, as a journal is,
// and once over a file that stands. The files lie in the system's folder for temporary files. `ratio` of the two
// comparisons is the figure to watch.

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "plain_write.h"
#include "platform/files.h"
#include "store/project/project_file.h"
#include "store/project/save_project.h"
#include "timing.h"

namespace triaxlab {
namespace {

constexpr std::size_t kSamples = kTableRows;

/// Samples with every text and number of the long columns filled, so that no block of the file is like another.
void fillTable(SampleTable<TriaxialSampleRecord>& table) {
  for (std::size_t number = 0; number < kSamples; ++number) {
    TriaxialSampleRecord& record = table[number];
    SetText(record.projectNo, "BENCH");
    SetText(record.sampleNo, std::to_string(number + 1));
    record.testMethod = kCU;
    for (std::size_t stage = 0; stage < kStages; ++stage) {
      SetNumber(record.cellPressure[stage], 100.0 * static_cast<double>(stage + 1), NumberFormat::Whole);
      for (std::size_t row = 0; row < kShearRows; ++row) {
        SetNumber(record.deviatorStress[row][stage], static_cast<double>(number + row * stage), NumberFormat::Whole);
        SetNumber(record.porePressure[row][stage], static_cast<double>(number % 100 + row), NumberFormat::Whole);
        record.axialStrain[row][stage] = 0.1F * static_cast<float>(row + 1);
      }
    }
  }
}

/// A workspace in a folder of its own, which is removed at the end, with the full table saved once.
class SavedWorkspace {
 public:
  SavedWorkspace() : m_folder(std::filesystem::temp_directory_path() / ("triaxlab_bench_" + std::to_string(nowNs()))) {
    for (const char* name : {"HSZS", "ZMSJ"}) std::filesystem::create_directories(m_folder / name);
    workspace.applicationFolder = workspace.dataFolder = m_folder;
    fillTable(workspace.TriaxialSampleTable);
    saveProject(workspace, ProjectKind::Triaxial, {});
  }
  SavedWorkspace(const SavedWorkspace&) = delete;
  SavedWorkspace& operator=(const SavedWorkspace&) = delete;
  ~SavedWorkspace() { std::filesystem::remove_all(m_folder); }

  std::filesystem::path projectFile() const { return workspace.projectFolder() / "WKSZBENCH.txt"; }
  std::filesystem::path scratchFile(const std::string& name) const { return m_folder / name; }

  Workspace workspace;

 private:
  static long long nowNs() { return std::chrono::steady_clock::now().time_since_epoch().count(); }
  std::filesystem::path m_folder;
};

SavedWorkspace& savedWorkspace() {
  static SavedWorkspace saved;
  return saved;
}

void openAll(Workspace& workspace) {
  openProject(workspace, ProjectKind::Triaxial, "WKSZBENCH.txt", [](int count) { return SampleRange{1, count}; });
}

/// The file's bytes in memory that the system gives for it.
void readPlainly(const std::filesystem::path& path) {
  const File file(path, File::Mode::Read);
  const std::size_t size = file.size();
  const auto bytes = std::make_unique_for_overwrite<std::byte[]>(size);
  if (file.readAt(0, {bytes.get(), size}) != size) std::abort();
  benchmark::DoNotOptimize(bytes.get());
}

void writeTwice(const SavedWorkspace& saved, std::span<const std::byte> content) {
  writeAndSync(saved.scratchFile("new"), content);
  writeAndSync(saved.scratchFile("standing"), content);
  removeFile(saved.scratchFile("new"));
}

void OpenAgainstRead(benchmark::State& state) {
  SavedWorkspace& saved = savedWorkspace();
  compare(
      state, Seconds::Elapsed, [&] { openAll(saved.workspace); }, [&] { readPlainly(saved.projectFile()); });
}
BENCHMARK(OpenAgainstRead)->UseManualTime()->Unit(benchmark::kMillisecond);

void SaveAgainstWritingTwice(benchmark::State& state) {
  SavedWorkspace& saved = savedWorkspace();
  openAll(saved.workspace);
  const Bytes content = readWholeFile(saved.projectFile(), std::uint64_t{1} << 30);
  writeAndSync(saved.scratchFile("standing"), content);
  compare(
      state, Seconds::Elapsed, [&] { saveProject(saved.workspace, ProjectKind::Triaxial, {}); },
      [&] { writeTwice(saved, content); });
}
BENCHMARK(SaveAgainstWritingTwice)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
