#pragma once

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "shell/shell_windows.h"
#include "store/workspace.h"

namespace triaxlab {

/// SETPRINTFORM for the curve window, which is loaded. What the status bar is to say of it.
Remarks printCurves(Workspace& workspace, Dialogs& dialogs, ShellWindows& windows);

}  // namespace triaxlab
