#pragma once

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "shell/shell_windows.h"
#include "store/workspace.h"

namespace triaxlab {

/// True when this version prints something of the document on which the commands act.
bool canPrint(const Workspace& workspace);

/// Shows the print dialog of that document, whose window is loaded. What the status bar is to say of it. Pre: canPrint.
Remarks showPrintDialog(Workspace& workspace, Dialogs& dialogs, ShellWindows& windows);

}  // namespace triaxlab
