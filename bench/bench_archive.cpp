// The results of an archive of 1000 projects of five full samples, against reading the same bytes and the texts of
// their readings once: what the whole way from file to result costs beyond the least. `ratio` is the figure to watch.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "full_sample.h"
#include "platform/files.h"
#include "shell/document_kinds.h"
#include "shell/document_operations.h"
#include "shell/start_up.h"
#include "store/project/project_header.h"
#include "timing.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kProjects = 1000, kDifferent = 10, kSamples = 5;

/// A data folder of its own. Most files are further names of the first ones, which spares the disk.
class Archive {
 public:
  Archive() {
    std::string name = (fs::temp_directory_path() / "triaxlab-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    m_folder = name;
    fs::create_directories(m_folder / "HSZS");
    for (std::size_t project = 0; project < kProjects; ++project) {
      names.push_back("WKSZ" + std::to_string(project) + ".txt");
      if (project < kDifferent)
        writeProject(project);
      else
        fs::create_hard_link(pathOf(names[project % kDifferent]), pathOf(names[project]));
    }
  }
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;
  ~Archive() {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
  }

  const fs::path& folder() const { return m_folder; }
  fs::path pathOf(const std::string& name) const { return m_folder / "HSZS" / name; }

  std::vector<std::string> names;

 private:
  void writeProject(std::size_t project) const {
    ProjectHeader header;
    SetText(header.sampleCount, "0005");
    SetText(header.projectNo, "BENCH");
    SetText(header.versionTag, "V2.0");
    std::ofstream file(pathOf(names[project]), std::ios::binary);
    const auto write = [&file](std::span<const std::byte> bytes) {
      file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    };
    write(bytesOf(header));
    for (std::size_t sample = 0; sample < kSamples; ++sample) write(bytesOf(fullSample(project * kSamples + sample)));
    file << std::string(100, ' ');
  }

  fs::path m_folder;
};

std::size_t resultsOf(const Archive& archive) {
  Workspace workspace;
  lookAtDataFolder(workspace, archive.folder());
  std::size_t lines = 0;
  for (const std::string& name : archive.names) {
    openDocument(workspace, ProjectKind::Triaxial, name, {}, OpenFor::Reading);
    lines += documentKindOf(kForm1).results(workspace).size();
  }
  return lines;
}

double sumOf(const ShearRows<FixedText<6>>& column) {
  double sum = 0;
  for (const auto& row : column)
    for (const FixedText<6>& field : row) sum += readByFromChars(field);
  return sum;
}

double readOnce(const Archive& archive) {
  constexpr std::uint64_t kLimit = std::uint64_t{1} << 20;
  double sum = 0;
  for (const std::string& name : archive.names) {
    const Bytes bytes = readWholeFile(archive.pathOf(name), kLimit);
    for (std::size_t sample = 0; sample < kSamples; ++sample) {
      const auto& record = *reinterpret_cast<const TriaxialSampleRecord*>(
          &bytes[sizeof(ProjectHeader) + sample * sizeof(TriaxialSampleRecord)]);
      sum +=
          sumOf(record.deviatorStress) + sumOf(record.porePressure) + sumOf(record.sigma1Eff) + sumOf(record.sigma3Eff);
    }
  }
  return sum;
}

void ResultsAgainstReading(benchmark::State& state) {
  const Archive archive;
  compare(
      state, Seconds::Computed, [&] { benchmark::DoNotOptimize(resultsOf(archive)); },
      [&] { benchmark::DoNotOptimize(readOnce(archive)); });
}
BENCHMARK(ResultsAgainstReading)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
