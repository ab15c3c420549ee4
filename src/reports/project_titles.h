#pragma once

#include <map>
#include <string>
#include <string_view>

#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// What stands on the pages of a project besides its number. UTF-8.
struct ProjectTitles {
  std::string projectName;
  std::string archiveNo;
};

/// The titles of the projects of a document: what the document window's boxes hold, where they speak for the project,
/// else what its summary file does. Reads each summary file once.
class TitlesOfProjects {
 public:
  TitlesOfProjects(const Workspace& workspace, ProjectKind tests) : m_workspace(workspace), m_tests(tests) {}
  /// `projectNo` is GBK, trimmed. UserError when its summary file can't be read.
  const ProjectTitles& of(std::string_view projectNo);

 private:
  ProjectTitles titlesOf(std::string_view projectNo) const;

  const Workspace& m_workspace;
  ProjectKind m_tests;
  std::map<std::string, ProjectTitles, std::less<>> m_known;
};

}  // namespace triaxlab
