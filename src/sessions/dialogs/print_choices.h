#pragma once

#include "platform/dialogs.h"
#include "sessions/dialogs/print_form.h"
#include "store/workspace.h"

namespace triaxlab {

/// Sets the ticks that print dialogs keep from one opening to the next in qvb.sys: the printer and the circles.
void readKeptTicks(const Workspace& workspace, ByTick<bool>& ticks);

/// Keeps those that the dialog has, for this run and, in the file, for the next. A choice that can't be stored is said:
/// it is no reason not to print.
void storeKeptTicks(Workspace& workspace, const PrintForm& form, const ByTick<bool>& ticks, Dialogs& dialogs);

}  // namespace triaxlab
