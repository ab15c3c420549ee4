#include "store/project/project_list.h"

#include <algorithm>

#include "platform/files.h"
#include "store/project/project_frame.h"
#include "store/project/upgrade.h"
#include "store/safety/file_update.h"
#include "store/summary/summary_file.h"
#include "store/summary/trial_pit.h"

namespace triaxlab {
namespace {

constexpr std::size_t kLargestList = 1001;

template <std::size_t N>
std::string shown(const FixedText<N>& field) {
  return gbkToUtf8(field.trimmed());
}

ProjectListRow rowOf(const Workspace& workspace, const std::string& fileName) {
  ProjectListRow row;
  row.fileName = fileName;
  row.projectNo = fileName;
  ProjectHeader header;
  try {
    const std::filesystem::path path = workspace.projectFolder() / pathFromText(fileName);
    const File file = File::below(workspace.dataFolder, path, File::Mode::Read);
    if (file.readAt(0, writableBytesOf(header)) < sizeof header) return row;
  } catch (const UserError&) {
    return row;  // listed by its name alone; opening it says what is wrong
  }
  if (!claimedCount(header.sampleCount.view())) return row;
  row.projectNo = shown(header.projectNo);
  row.sampleCount = shown(header.sampleCount);
  row.createdDate = shown(header.createdDate);
  row.processedDate = shown(header.processedDate);
  row.operatorName = shown(header.operatorName);
  return row;
}

/// By position; GBK, trimmed.
std::vector<std::string> readSampleNumbers(const File& file, const ProjectKindInfo& info, int sampleCount) {
  std::vector<std::string> numbers;
  numbers.reserve(static_cast<std::size_t>(sampleCount));
  for (const SampleIndexEntry& entry : loadSampleIndex(readerOf(file), file.size(), info, sampleCount))
    numbers.emplace_back(entry.sampleNo.trimmed());
  return numbers;
}

}  // namespace

std::vector<ProjectListRow> listProjects(const Workspace& workspace, ProjectKind kind) {
  FileUpdate::recover(workspace.knownDataFolder(), workspace.lockPatience);
  std::vector<std::string> names = listFiles(workspace.projectFolder(), infoOf(kind).filePrefix, ".TXT");
  if (names.size() > kLargestList) names.resize(kLargestList);
  std::vector<ProjectListRow> rows;
  rows.reserve(names.size());
  for (const std::string& name : names) rows.push_back(rowOf(workspace, name));
  return rows;
}

SampleListTable listSamples(Workspace& workspace, ProjectKind kind, std::string_view fileName, Remarks* remarks) {
  const ProjectKindInfo& info = infoOf(kind);
  Remarks found;
  const std::filesystem::path path = findFinishedFile(workspace, info, fileName, found);
  for (const std::string& remark : upgradeProject(workspace, info, path)) found.push_back(remark);
  const File file = File::below(workspace.dataFolder, path, File::Mode::Read);
  workspace.fileMemory.remember(FileUse::List, path, file.stamp());
  const ProjectHead head = readProjectHead(readerOf(file), info, path);
  if (const auto shortage = shortageOf(path, file.size(), info.recordSize, head.sampleCount))
    found.push_back(*shortage);
  if (remarks != nullptr) *remarks = std::move(found);
  const std::vector<std::string> numbers = readSampleNumbers(file, info, head.sampleCount);
  SampleListTable rows(numbers.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].recordIndex = i;
    rows[i].sampleNo = gbkToUtf8(numbers[i]);
  }
  try {
    const LaboratoryHabits& habits = workspace.settings.habits;
    const auto fillRow = [&](std::size_t i, const SampleLocation& location) {
      rows[i].boreholeNo = gbkToUtf8(shownBorehole(location.boreholeNo, habits));
      rows[i].samplingDepth = shown(location.samplingDepth);
    };
    visitLocations(workspace, head.header.projectNo.trimmed(), numbers, fillRow);
  } catch (const UserError&) {
    // A list without boreholes is still the list of the samples; opening the project tells of the damaged summary file.
  }
  return rows;
}

bool holdsSamples(const Workspace& workspace, ProjectKind kind, std::string_view fileName,
                  std::span<const std::string> sampleNumbers) {
  const ProjectKindInfo& info = infoOf(kind);
  const std::filesystem::path path = findProjectFile(workspace.projectFolder(), info, fileName);
  const File file = File::below(workspace.dataFolder, path, File::Mode::Read);
  const int sampleCount = readProjectHead(readerOf(file), info, path).sampleCount;
  return std::ranges::equal(readSampleNumbers(file, info, sampleCount), sampleNumbers, {}, gbkToUtf8);
}

}  // namespace triaxlab
