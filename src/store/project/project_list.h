#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// A row of the project browser, texts UTF-8 and trimmed.
struct ProjectListRow {
  std::string fileName;
  std::string projectNo;  // the file name, when the file can't be read as a project file
  std::string sampleCount;
  std::string createdDate;
  std::string processedDate;
  std::string operatorName;
};

/// The project files of a kind by file name; at most 1001.
std::vector<ProjectListRow> listProjects(const Workspace& workspace, ProjectKind kind);

/// A row of a project's sample list, texts UTF-8 and trimmed.
struct SampleListRow {
  std::size_t recordIndex = 0;  // position in the file, from 0
  bool deleteMark = false;
  std::string sampleNo;
  std::string boreholeNo;  // or the trial pit, where the laboratory has these
  std::string samplingDepth;
};

/// The samples of a project file, in the order in which a rewrite is to write them.
using SampleListTable = std::vector<SampleListRow>;

/// The samples of a project file with what the summary file knows of them; a file of an old format is upgraded in place
/// first. A file that holds fewer samples than it says has blank rows, and a remark. UserError as openProject.
SampleListTable listSamples(Workspace& workspace, ProjectKind kind, std::string_view fileName,
                            Remarks* remarks = nullptr);

/// True when the file still holds samples of these numbers (UTF-8, trimmed) in this order. It isn't listed by that: a
/// change by another program is still told. UserError when it can't be read.
bool holdsSamples(const Workspace& workspace, ProjectKind kind, std::string_view fileName,
                  std::span<const std::string> sampleNumbers);

}  // namespace triaxlab
