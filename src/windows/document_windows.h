#pragma once

#include <QString>
#include <functional>

#include "platform/dialogs.h"
#include "shell/shell_session.h"
#include "shell/shell_windows.h"
#include "store/workspace.h"

class QWidget;

namespace triaxlab {

/// The main window as the document windows in it need it.
struct DocumentHost {
  Workspace& workspace;
  Dialogs& dialogs;
  ShellSession& shell;
  ShellWindows& windows;
  std::function<void(const QString&)> showHelp;  // in the first panel; an empty text brings the program's own back
  std::function<void(ActiveDocument)> closed;
};

/// A document window that was made.
struct LoadedDocument {
  QWidget* widget;
  DocumentWindow* window;         // the same object
  std::function<void()> load;     // shows its table as a window that was just opened
  std::function<void()> reload;   // the window beside which it stands has a new table
  std::function<void()> refresh;  // records or settings may have changed
};

/// Makes the window of a document, freshly loaded; one beside another needs that to be loaded. What the host refers to
/// outlives it. std::out_of_range for a document that this version has no window for.
LoadedDocument makeDocumentWindow(ActiveDocument document, const DocumentHost& host);

}  // namespace triaxlab
