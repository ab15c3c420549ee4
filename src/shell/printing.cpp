#include "shell/printing.h"

#include <algorithm>
#include <array>

#include "sessions/dialogs/three_in_one_print_session.h"

namespace triaxlab {
namespace {

Remarks printCurves(Workspace& workspace, Dialogs& dialogs, ShellWindows& windows) {
  const CurveDocument& curves = *windows.curveDocument();
  ThreeInOnePrintSession session(workspace, dialogs,
                                 {.row = curves.sampleRow(), .checkedMode = curves.envelopeEntries().checkedMode()});
  windows.showPrintDialog(session);
  return session.remarks();
}

struct PrintedDocument {
  ActiveDocument document;
  Remarks (*showDialog)(Workspace& workspace, Dialogs& dialogs, ShellWindows& windows);
};
constexpr std::array kPrintedDocuments{PrintedDocument{kForm1, printCurves}};

/// Null for a document that is not printed.
const PrintedDocument* documentInFront(const Workspace& workspace) {
  const auto* const row =
      std::find_if(kPrintedDocuments.begin(), kPrintedDocuments.end(),
                   [&](const PrintedDocument& printed) { return printed.document == workspace.activeDocument; });
  return row == kPrintedDocuments.end() ? nullptr : row;
}

}  // namespace

bool canPrint(const Workspace& workspace) { return documentInFront(workspace) != nullptr; }

Remarks showPrintDialog(Workspace& workspace, Dialogs& dialogs, ShellWindows& windows) {
  return documentInFront(workspace)->showDialog(workspace, dialogs, windows);
}

}  // namespace triaxlab
