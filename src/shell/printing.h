#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "reports/layouts.h"
#include "sessions/dialogs/print_form.h"
#include "shell/command_table.h"
#include "shell/shell_windows.h"
#include "store/workspace.h"

namespace triaxlab {

/// One row for each way to a print dialog.
struct PrintEntry {
  Action action;
  ActiveDocument document;  // whose window prints
  const PrintForm* form;
  std::string_view layout;  // of the pages
  /// Said instead by the same command of the file menu; empty: there it prints, too.
  std::string_view fileMenuRemark = {};

  /// Null when this version has no such pages.
  const Layout* pages() const { return layoutOfId(layout); }
};

/// Every way to a print dialog.
std::span<const PrintEntry> printEntries();
/// What a command prints with that document in front. Null: nothing, and the command is off.
const PrintEntry* printEntryOf(Action action, std::int16_t activeDocument);
/// True for the commands that open a print dialog.
bool isPrintAction(Action action);

/// Shows the dialog for what the window of the entry has on display. What the status bar is to say of it.
Remarks showPrintDialog(const PrintEntry& entry, Workspace& workspace, Dialogs& dialogs, ShellWindows& windows);

}  // namespace triaxlab
