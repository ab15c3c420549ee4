#include "shell/document_operations.h"

#include <algorithm>
#include <array>

#include "shell/ini_settings.h"
#include "store/summary/summary_file.h"
#include "triaxial/opening_pass.h"

namespace triaxlab {
namespace {

void append(Remarks& remarks, const Remarks& more) { remarks.insert(remarks.end(), more.begin(), more.end()); }

void reduceTriaxial(Workspace& workspace) {
  runOpeningPass(workspace.TriaxialSampleTable, workspace.settings.habits.cohesionFormat());
}

/// The windows that show tests, by the kind whose table they show.
struct ShownKind {
  ProjectKind documentKind;
  ActiveDocument document;
};
constexpr std::array kShownKinds{ShownKind{ProjectKind::Triaxial, kForm1}};

/// The kinds whose samples are reduced when they are opened.
struct Reduction {
  ProjectKind kind;
  void (*reduceAll)(Workspace&);
};
constexpr std::array kReductions{Reduction{ProjectKind::Triaxial, reduceTriaxial}};

/// What happens to a freshly filled table before it is shown.
void prepareTable(Workspace& workspace, ProjectKind kind, Remarks& remarks) {
  append(remarks, ReadEnglishLabels(workspace));
  append(remarks, readLocations(workspace, kind));
  for (const Reduction& reduction : kReductions)
    if (reduction.kind == infoOf(kind).documentKind) reduction.reduceAll(workspace);
}

}  // namespace

std::optional<ActiveDocument> documentOf(ProjectKind kind) {
  const auto* const row = std::ranges::find(kShownKinds, infoOf(kind).documentKind, &ShownKind::documentKind);
  if (row == kShownKinds.end()) return std::nullopt;
  return row->document;
}

Remarks openDocument(Workspace& workspace, ProjectKind kind, std::string_view fileName,
                     const RangeChooser& chooseRange) {
  Remarks remarks = openProject(workspace, kind, fileName, chooseRange);
  prepareTable(workspace, kind, remarks);
  return remarks;
}

Remarks importedTriaxialDocument(Workspace& workspace) {
  workspace.controlledDocNo.clear();
  Remarks remarks;
  prepareTable(workspace, ProjectKind::Triaxial, remarks);
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
    if (isLive(record)) computePage(record, pageOf(record, page), FailureMode::PeakStress, cohesionFormat);
}

}  // namespace triaxlab
