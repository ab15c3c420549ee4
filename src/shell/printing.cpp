#include "shell/printing.h"

#include "sessions/dialogs/three_in_one_print_session.h"

namespace triaxlab {

Remarks printCurves(Workspace& workspace, Dialogs& dialogs, ShellWindows& windows) {
  const CurveDocument& curves = *windows.curveDocument();
  ThreeInOnePrintSession session(workspace, dialogs,
                                 {.row = curves.sampleRow(), .checkedMode = curves.envelopeEntries().checkedMode()});
  windows.showPrintDialog(session);
  return session.remarks();
}

}  // namespace triaxlab
