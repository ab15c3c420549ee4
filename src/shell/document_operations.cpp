#include "shell/document_operations.h"

#include "store/settings/text_settings.h"
#include "store/summary/summary_file.h"

namespace triaxlab {
namespace {

void append(Remarks& remarks, const Remarks& more) { remarks.insert(remarks.end(), more.begin(), more.end()); }

/// What the laboratory has written into its text files since the start.
void readTextFiles(Workspace& workspace, const DocumentKind& document, Remarks& remarks) {
  if (document.readsHabits) append(remarks, ReadIniSettings(workspace));
  append(remarks, ReadEnglishLabels(workspace));
}

/// What happens to a freshly filled table before it is shown.
void prepareTable(Workspace& workspace, const DocumentKind& document, Remarks& remarks) {
  readTextFiles(workspace, document, remarks);
  append(remarks, readLocations(workspace, document.tests));
  if (document.reduce != nullptr) document.reduce(workspace);
}

}  // namespace

Remarks openDocument(Workspace& workspace, ProjectKind kind, std::string_view fileName, const RangeChooser& chooseRange,
                     OpenFor purpose) {
  Remarks remarks = openProject(workspace, kind, fileName, chooseRange, purpose);
  prepareTable(workspace, documentOfTests(kind), remarks);
  return remarks;
}

Remarks importedDocument(Workspace& workspace, const DocumentKind& document) {
  workspace.dataOf(document.tests).controlledDocNo.clear();
  Remarks remarks;
  prepareTable(workspace, document, remarks);
  return remarks;
}

Remarks newDocument(Workspace& workspace, const DocumentKind& document) {
  infoOf(document.tests).table.clear(workspace);
  workspace.dataOf(document.tests) = {};
  workspace.processingDate = {};
  Remarks remarks;
  readTextFiles(workspace, document, remarks);
  return remarks;
}

SaveReport saveDocument(Workspace& workspace, const DocumentKind& document, const OverwriteChooser& chooseOverwrites,
                        const ChangeQuestion& mayOverwriteChanges) {
  if (document.reducesForSave) document.reduce(workspace);
  return saveProject(workspace, document.tests, chooseOverwrites, mayOverwriteChanges);
}

}  // namespace triaxlab
