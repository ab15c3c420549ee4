#include "reports/project_titles.h"

#include <optional>

#include "common/gbk.h"
#include "platform/files.h"
#include "store/summary/summary_file.h"
#include "store/summary/summary_record.h"

namespace triaxlab {
namespace {

/// A typed text is that of every project, another that of the project from which it came.
bool speaksFor(const TitleText& title, std::string_view projectNo) {
  return title.typed || title.projectNo == projectNo;
}

/// A header of blanks where there is no file.
SummaryHeader headerOf(const Workspace& workspace, std::string_view projectNo) {
  SummaryHeader header;
  const std::filesystem::path path = summaryPath(workspace, projectNo);
  if (fileExists(path)) File::below(workspace.dataFolder, path, File::Mode::Read).readAt(0, writableBytesOf(header));
  return header;
}

}  // namespace

const ProjectTitles& TitlesOfProjects::of(std::string_view projectNo) {
  auto known = m_known.find(projectNo);
  if (known == m_known.end()) known = m_known.emplace(projectNo, titlesOf(projectNo)).first;
  return known->second;
}

ProjectTitles TitlesOfProjects::titlesOf(std::string_view projectNo) const {
  const TitleText& name = m_workspace.dataOf(m_tests).projectName;
  const TitleText& archive = m_workspace.dataOf(m_tests).secondTitleLine;
  SummaryHeader header;
  if (!speaksFor(name, projectNo) || !speaksFor(archive, projectNo)) header = headerOf(m_workspace, projectNo);
  return {gbkToUtf8(speaksFor(name, projectNo) ? Trim(name.text) : header.projectName.trimmed()),
          gbkToUtf8(speaksFor(archive, projectNo) ? Trim(archive.text) : header.secondTitleLine.trimmed())};
}

}  // namespace triaxlab
