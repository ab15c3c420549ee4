#include "store/workspace.h"

#include <algorithm>

#include "common/user_error.h"
#include "store/project/project_kinds.h"

namespace triaxlab {

DocumentData::DocumentData() : SampleDisplayTable(kTableRows) {}

void DocumentData::clearLocations() { std::ranges::fill(SampleDisplayTable, SampleLocation{}); }

Workspace::Workspace() {
  for (const ProjectKindInfo& info : kProjectKinds) m_data.try_emplace(info.savedAs);
}

DocumentData& Workspace::dataOf(ProjectKind tests) { return m_data.at(infoOf(tests).savedAs); }

const DocumentData& Workspace::dataOf(ProjectKind tests) const { return m_data.at(infoOf(tests).savedAs); }

const std::filesystem::path& Workspace::knownDataFolder() const {
  if (!dataFolderProblem.empty()) throw UserError(dataFolderProblem);
  return dataFolder;
}

std::optional<std::string_view> DocumentData::projectTestDate(std::string_view projectNo) const {
  const auto* const row =
      std::find_if(ProjectDateTable.begin(), ProjectDateTable.end(),
                   [projectNo](const ProjectDate& date) { return date.projectNo.trimmed() == projectNo; });
  if (row == ProjectDateTable.end()) return std::nullopt;
  return row->testDate.trimmed();
}

std::string Workspace::dateText(std::size_t box) const {
  const std::array shown{processingDate.year.trimmed(), processingDate.month.trimmed(), processingDate.day.trimmed()};
  return dataOf(ProjectKind::Triaxial).typedDateTexts.at(box).value_or(std::string(shown.at(box)));
}

void DocumentData::clearProjectDates() {
  ProjectDateTable.fill({});
  importedProjectNames.clear();
}

std::string_view DocumentData::importedProjectName(std::string_view projectNo) const {
  const auto found = importedProjectNames.find(projectNo);
  return found == importedProjectNames.end() ? std::string_view{} : found->second;
}

}  // namespace triaxlab
