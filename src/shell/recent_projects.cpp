#include "shell/recent_projects.h"

#include <nlohmann/json.hpp>
#include <optional>

#include "common/user_error.h"
#include "platform/files.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"
#include "store/workspace.h"

namespace triaxlab {
namespace {

using Json = nlohmann::json;

constexpr const char* kFileName = "triaxlab-recent.json";
constexpr const char *kProjects = "projects", *kKind = "kind", *kName = "file", *kFolder = "folder";

std::string textAt(const Json& kept, const char* name) {
  const auto found = kept.find(name);
  return found != kept.end() && found->is_string() ? found->get<std::string>() : std::string();
}

std::optional<RecentProject> projectOf(const Json& kept) {
  if (!kept.is_object()) return std::nullopt;
  const auto kind = projectKindOfId(textAt(kept, kKind));
  const std::string fileName = textAt(kept, kName), folder = textAt(kept, kFolder);
  // A name that leads elsewhere is none of ours.
  const bool isName = !fileName.empty() && pathFromText(fileName).filename() == pathFromText(fileName);
  if (!kind || !isName || folder.empty()) return std::nullopt;
  return RecentProject{*kind, fileName, pathFromText(folder)};
}

bool isAtHand(const RecentProject& project, const Workspace& workspace) {
  try {
    return project.dataFolder == workspace.knownDataFolder() &&
           findFile(workspace.projectFolder(), project.fileName).has_value();
  } catch (const UserError&) {
    return false;  // nobody could open it now
  }
}

}  // namespace

RecentProjects::RecentProjects(const std::filesystem::path& applicationFolder) : m_file(applicationFolder, kFileName) {
  read();
}

void RecentProjects::read() {
  const Json kept = m_file.read();
  for (const Json& entry : kept.value(kProjects, Json::array())) {
    const auto project = projectOf(entry);
    if (project && m_projects.size() < kMost) m_projects.push_back(*project);
  }
}

void RecentProjects::write() const {
  Json projects = Json::array();
  for (const RecentProject& project : m_projects)
    projects.push_back(
        {{kKind, infoOf(project.kind).id}, {kName, project.fileName}, {kFolder, textOfPath(project.dataFolder)}});
  m_file.write({{kProjects, projects}});
}

void RecentProjects::note(ProjectKind kind, std::string_view fileName, const std::filesystem::path& dataFolder) {
  const RecentProject noted{kind, std::string(fileName), dataFolder, true};
  std::erase_if(m_projects, [&](const RecentProject& known) { return known.isSameAs(noted); });
  m_projects.insert(m_projects.begin(), noted);
  if (m_projects.size() > kMost) m_projects.pop_back();
  write();
}

void RecentProjects::noteSaved(const Workspace& workspace, ProjectKind tests) {
  const SampleRows rows(workspace, tests);
  for (std::size_t row = rows.size(); row-- > 0;) {
    if (!rows.isLive(row) || (row > 0 && rows.projectNo(row) == rows.projectNo(row - 1))) continue;
    const std::string name = projectFileName(infoOf(tests).filePrefix, rows.projectNo(row));
    if (const auto file = findFile(workspace.projectFolder(), name))
      note(tests, textOfPath(file->filename()), workspace.dataFolder);
  }
}

void RecentProjects::look(const Workspace& workspace) {
  for (RecentProject& project : m_projects) project.isAtHand = triaxlab::isAtHand(project, workspace);
}

}  // namespace triaxlab
