#include "shell/document_operations.h"

#include <algorithm>

#include "shell/ini_settings.h"
#include "store/summary_file.h"
#include "triaxial/opening_pass.h"

namespace triaxlab {
namespace {

void append(Remarks& remarks, const Remarks& more) { remarks.insert(remarks.end(), more.begin(), more.end()); }

/// What happens to a freshly filled table before it is shown.
void prepareTriaxialTable(Workspace& workspace, Remarks& remarks) {
  append(remarks, ReadEnglishLabels(workspace));
  append(remarks, readLocations(workspace, ProjectKind::Triaxial));
  runOpeningPass(workspace.TriaxialSampleTable, workspace.settings.habits.cohesionFormat());
}

}  // namespace

Remarks openTriaxialDocument(Workspace& workspace, std::string_view fileName, const RangeChooser& chooseRange) {
  Remarks remarks = openProject(workspace, ProjectKind::Triaxial, fileName, chooseRange);
  prepareTriaxialTable(workspace, remarks);
  return remarks;
}

Remarks importedTriaxialDocument(Workspace& workspace) {
  workspace.controlledDocNo.clear();
  Remarks remarks;
  prepareTriaxialTable(workspace, remarks);
  return remarks;
}

Remarks newTriaxialDocument(Workspace& workspace) {
  std::fill(workspace.TriaxialSampleTable.begin(), workspace.TriaxialSampleTable.end(), TriaxialSampleRecord{});
  workspace.clearLocations();
  workspace.clearProjectDates();
  workspace.processingDate = {};
  workspace.controlledDocNo.clear();
  workspace.projectName = {};
  workspace.secondTitleLine = {};
  workspace.keepExisting.reset();
  workspace.rawImportPending = false;
  return ReadEnglishLabels(workspace);
}

void showPageOfEverySample(Workspace& workspace, CurvePage page) {
  const NumberFormat cohesionFormat = workspace.settings.habits.cohesionFormat();
  for (TriaxialSampleRecord& record : workspace.TriaxialSampleTable)
    if (isLive(record)) computePage(record, pageOf(record, page), cohesionFormat);
}

}  // namespace triaxlab
