#pragma once

#include "platform/dialogs.h"
#include "store/workspace.h"

namespace triaxlab {

/// What print dialogs keep from one opening to the next, in qvb.sys.
struct PrintChoices {
  bool dotMatrix = false;
  bool totalCircles = true, effectiveCircles = true;
};

PrintChoices readPrintChoices(const Workspace& workspace);
/// For this run and, in the file, for the next. A choice that can't be stored is said: it is no reason not to print.
void storePrintChoices(Workspace& workspace, const PrintChoices& choices, Dialogs& dialogs);

}  // namespace triaxlab
