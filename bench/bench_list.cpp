// What a technician waits for over the longest sample list: reading it, sorting it and saving it, each beside the least
// that any program must do. Of the file of 9999 triaxial samples the list needs 9999 short reads; a sort is compared
// with std::sort of the same texts; a rewrite with a copy of the file through a buffer of a megabyte, synced, since the
// new file must be on the disk before the old one goes; a save of a full table into it with writing and syncing the
// same bytes twice. What a run of the program does once, the copy that it keeps of a file before it first changes it,
// is done before anything is measured.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "full_sample.h"
#include "plain_write.h"
#include "platform/files.h"
#include "store/project/project_frame.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/sample_list_order.h"
#include "store/project/save_project.h"
#include "store/summary/summary_record.h"
#include "timing.h"

namespace triaxlab {
namespace {

constexpr int kSamples = 9999;

/// A project file of 9999 samples, of which only the first places are on the disk: the rest are holes, as large as the
/// readings of the samples would be. Removed at the end.
class LongProject {
 public:
  /// `isWhole` fills the holes.
  explicit LongProject(bool isWhole)
      : m_folder(std::filesystem::temp_directory_path() / ("triaxlab_bench_" + std::to_string(nowNs()))) {
    for (const char* name : {"HSZS", "ZMSJ"}) std::filesystem::create_directories(m_folder / name);
    workspace.applicationFolder = workspace.dataFolder = m_folder;
    ProjectHeader header;
    SetText(header.sampleCount, std::to_string(kSamples));
    SetText(header.projectNo, "BENCH");
    SetText(header.versionTag, "V2.0");
    File file(path(), File::Mode::Create);
    file.writeAt(0, bytesOf(header));
    for (int i = 0; i < kSamples; ++i) {
      TriaxialSampleRecord record;
      SetText(record.projectNo, "BENCH");
      SetText(record.sampleNo, sampleNo(i));
      record.testMethod = kCU;
      const auto bytes = bytesOf(record);
      file.writeAt(recordPosition(sizeof record, static_cast<std::uint32_t>(i)), isWhole ? bytes : bytes.first(64));
    }
    file.resize(recordPosition(sizeof(TriaxialSampleRecord), kSamples) + kEndTextWidth);
    file.sync();
  }
  LongProject(const LongProject&) = delete;
  LongProject& operator=(const LongProject&) = delete;
  ~LongProject() { std::filesystem::remove_all(m_folder); }

  static std::string sampleNo(int i) { return "ZK" + std::to_string(i % 97) + "-" + std::to_string(i); }
  std::filesystem::path path() const { return m_folder / "HSZS" / kName; }
  std::filesystem::path scratchFile() const { return m_folder / "copy"; }

  static constexpr const char* kName = "WKSZBENCH.txt";
  Workspace workspace;

 private:
  static long long nowNs() { return std::chrono::steady_clock::now().time_since_epoch().count(); }
  std::filesystem::path m_folder;
};

void readList(benchmark::State& state) {
  LongProject project(false);
  compare(
      state, Seconds::Elapsed,
      [&] {
        SampleListTable rows = listSamples(project.workspace, ProjectKind::Triaxial, LongProject::kName);
        benchmark::DoNotOptimize(rows);
      },
      [&] {
        const File file(project.path(), File::Mode::Read);
        std::array<std::byte, 64> start{};
        for (std::uint32_t i = 0; i < kSamples; ++i)
          benchmark::DoNotOptimize(file.readAt(recordPosition(sizeof(TriaxialSampleRecord), i), start));
      });
}
BENCHMARK(readList)->UseManualTime()->Unit(benchmark::kMillisecond);

void sortList(benchmark::State& state, SortMethod method) {
  std::mt19937 random(1);
  SampleListTable shuffled(kSamples), rows;
  std::vector<std::string> unsorted, texts;
  for (SampleListRow& row : shuffled) {
    row.sampleNo = "ZK" + std::to_string(random() % 100) + "-" + std::to_string(random() % 1000);
    unsorted.push_back(row.sampleNo);
  }
  compare(
      state, Seconds::Computed,
      [&] {
        sortSampleList(rows, {1, kSamples}, &SampleListRow::sampleNo, method, SortDirection::Ascending);
      },
      [&] { std::sort(texts.begin(), texts.end()); },
      [&] {
        rows = shuffled;
        texts = unsorted;
      });
}
BENCHMARK_CAPTURE(sortList, ByText, SortMethod::ByText)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortList, ByTextAndNumber, SortMethod::ByTextAndNumber)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void copyThroughBuffer(const File& from, const std::filesystem::path& to) {
  File copy(to, File::Mode::Create);
  Bytes buffer(std::size_t{1} << 20);
  std::uint64_t done = 0;
  while (const std::size_t got = from.readAt(done, buffer)) {
    copy.writeAt(done, std::span(buffer).first(got));
    done += got;
  }
  copy.sync();
}

void rewriteList(benchmark::State& state) {
  LongProject project(true);
  std::vector<std::uint32_t> order(kSamples);
  std::iota(order.begin(), order.end(), 0U);
  rewriteProject(project.workspace, ProjectKind::Triaxial, LongProject::kName, order);
  std::shuffle(order.begin(), order.end(), std::mt19937(2));
  compare(
      state, Seconds::Elapsed,
      [&] { rewriteProject(project.workspace, ProjectKind::Triaxial, LongProject::kName, order); },
      [&] { copyThroughBuffer(File(project.path(), File::Mode::Read), project.scratchFile()); },
      [&] { std::filesystem::remove(project.scratchFile()); });
}
BENCHMARK(rewriteList)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

/// A range of samples from the middle, as it is opened, is written over with its records in the summary file. The file
/// is whole: the blocks of one that was filled hole by hole lie all over the disk.
void saveIntoLongProject(benchmark::State& state) {
  LongProject project(true);
  SampleTable<TriaxialSampleRecord>& table = project.workspace.TriaxialSampleTable;
  for (std::size_t row = 0; row < table.size(); ++row) {
    table[row] = fullSample(row);
    SetText(table[row].sampleNo, LongProject::sampleNo(4000 + static_cast<int>(row)));
  }
  saveProject(project.workspace, ProjectKind::Triaxial, {});
  const Bytes bytes(table.size() * (sizeof(TriaxialSampleRecord) + sizeof(SummaryRecord)), std::byte{'5'});
  const std::filesystem::path standing = project.scratchFile(), journal = standing.string() + "2";
  writeAndSync(standing, bytes);
  compare(
      state, Seconds::Elapsed, [&] { saveProject(project.workspace, ProjectKind::Triaxial, {}); },
      [&] {
        writeAndSync(journal, bytes);
        writeAndSync(standing, bytes);
      },
      [&] { std::filesystem::remove(journal); });
}
BENCHMARK(saveIntoLongProject)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

}  // namespace
}  // namespace triaxlab
