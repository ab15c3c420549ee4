#include "reports/document_info.h"

#include <algorithm>

#include "common/gbk.h"
#include "reports/project_titles.h"

namespace triaxlab {

std::vector<std::string_view> projectsOf(const Report& report, const PrintJob& job) {
  std::vector<std::string_view> projects;
  const NumberRange pages = report.pagesOf(job);
  for (int page = pages.first; page <= pages.last; ++page)
    for (const SampleNumbers& sample : report.samplesOf(page))
      if (std::ranges::find(projects, sample.projectNo) == projects.end()) projects.push_back(sample.projectNo);
  return projects;
}

DocumentInfo documentInfo(const Layout& layout, const Report& report, const PrintJob& job, const Workspace& workspace) {
  DocumentInfo information{.title = std::string(layout.title), .subject = {}, .created = workspace.today()};
  TitlesOfProjects titles(workspace, layout.kind);
  for (const std::string_view project : projectsOf(report, job)) {
    if (!information.subject.empty()) information.subject += "；";
    information.subject += gbkToUtf8(project);
    if (const std::string& name = titles.of(project).projectName; !name.empty()) information.subject += ' ' + name;
  }
  return information;
}

}  // namespace triaxlab
