#include "store/summary/summary_file.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/files.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"
#include "store/summary/summary_frame.h"

namespace triaxlab {
namespace {

/// Until they are typed over, the titles belong to this project: also when its file doesn't exist yet and the name is
/// that of the imported database, but not when the file can't be read, so that no save blanks what it holds.
void readTitles(const Workspace& workspace, DocumentData& data, const std::string& projectNo) {
  data.projectName.projectNo.clear();
  data.secondTitleLine.projectNo.clear();
  const std::filesystem::path path = summaryPath(workspace, projectNo);
  if (fileExists(path)) {
    const File file = File::below(workspace.dataFolder, path, File::Mode::Read);
    const SummaryHead head = readSummaryHead(readerOf(file), path);
    data.projectName.text = head.header.projectName.trimmed();
    data.secondTitleLine.text = head.header.secondTitleLine.trimmed();
  } else {
    data.projectName.text.clear();
    data.secondTitleLine.text.clear();
  }
  if (Trim(data.projectName.text).empty()) data.projectName.text = data.importedProjectName(projectNo);
  data.projectName.projectNo = data.secondTitleLine.projectNo = projectNo;
  data.projectName.typed = data.secondTitleLine.typed = false;
}

/// The sampling depths of some samples: of several records of one number the first counts, where of the locations the
/// last does.
class FirstDepths {
 public:
  explicit FirstDepths(std::size_t sampleCount) : m_depths(sampleCount) {}
  void add(std::size_t sample, const SampleLocation& location) {
    if (!m_depths[sample]) m_depths[sample] = location.samplingDepth;
  }
  FixedText<15> of(std::size_t sample) const { return m_depths[sample].value_or(FixedText<15>()); }

 private:
  std::vector<std::optional<FixedText<15>>> m_depths;
};

/// The live rows of one project.
struct ProjectRows {
  std::vector<std::size_t> rows;
  std::vector<std::string> sampleNumbers;
};

}  // namespace

std::filesystem::path summaryPath(const Workspace& workspace, std::string_view projectNo) {
  if (whyNoFileName(projectNo)) return {};
  return fileOrNew(workspace.summaryFolder(), projectFileName("KHZ", projectNo));
}

void visitLocations(const Workspace& workspace, std::string_view projectNo, std::span<const std::string> sampleNumbers,
                    const std::function<void(std::size_t, const SampleLocation&)>& visit) {
  const std::filesystem::path path = summaryPath(workspace, projectNo);
  if (!fileExists(path)) return;
  std::unordered_multimap<std::string_view, std::size_t> places;
  for (std::size_t i = 0; i < sampleNumbers.size(); ++i)
    if (!sampleNumbers[i].empty()) places.emplace(sampleNumbers[i], i);
  const File file = File::below(workspace.dataFolder, path, File::Mode::Read);
  const ReadAt readAt = readerOf(file);
  visitSummaryRecords(readAt, readSummaryHead(readAt, path).sampleCount, [&](std::size_t, const SummaryRecord& record) {
    const auto [begin, end] = places.equal_range(record.sampleNo.trimmed());
    for (auto place = begin; place != end; ++place)
      visit(place->second, {record.boreholeNo, record.samplingDepth, record.samplingSpot});
  });
}

std::string lookupSamplingDepth(const Workspace& workspace, std::string_view projectNo, std::string_view sampleNo) {
  const std::array sampleNumbers{std::string(Trim(sampleNo))};
  FirstDepths depths(sampleNumbers.size());
  visitLocations(workspace, Trim(projectNo), sampleNumbers,
                 [&](std::size_t i, const SampleLocation& location) { depths.add(i, location); });
  return std::string(depths.of(0).trimmed());
}

namespace {

void readProject(Workspace& workspace, ProjectKind kind, std::string_view projectNo, const ProjectRows& project) {
  FirstDepths depths(project.rows.size());
  visitLocations(workspace, projectNo, project.sampleNumbers, [&](std::size_t i, const SampleLocation& location) {
    workspace.dataOf(kind).SampleDisplayTable[project.rows[i]] = location;
    depths.add(i, location);
  });
  const auto takeDepth = infoOf(kind).takeDepth;
  if (takeDepth == nullptr) return;
  for (std::size_t i = 0; i < project.rows.size(); ++i) takeDepth(workspace, project.rows[i], depths.of(i));
}

}  // namespace

Remarks readLocations(Workspace& workspace, ProjectKind kind) {
  const SampleRows table(workspace, kind);
  DocumentData& data = workspace.dataOf(kind);
  std::map<std::string, ProjectRows, std::less<>> projects;
  std::optional<std::string> firstProject;
  for (std::size_t row = 0; row < table.size(); ++row) {
    if (!table.isLive(row)) continue;
    const std::string projectNo(table.projectNo(row));
    if (!firstProject) firstProject = projectNo;
    projects[projectNo].rows.push_back(row);
    projects[projectNo].sampleNumbers.emplace_back(table.sampleNo(row));
  }
  Remarks remarks;
  const auto remarkOn = [&remarks](auto reading) {
    try {
      reading();
    } catch (const UserError& error) {
      if (std::find(remarks.begin(), remarks.end(), error.what()) == remarks.end()) remarks.emplace_back(error.what());
    }
  };
  if (firstProject) remarkOn([&] { readTitles(workspace, data, *firstProject); });
  for (const auto& project : projects) remarkOn([&] { readProject(workspace, kind, project.first, project.second); });
  return remarks;
}

}  // namespace triaxlab
