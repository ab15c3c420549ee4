#pragma once

#include "common/progress.h"
#include "common/user_error.h"
#include "exports/columns.h"
#include "platform/dialogs.h"
#include "shell/document_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// Asks for a file and writes the samples of a document into it, as a table for other programs; the extension of the
/// file says in which format. What the status bar is to say; nothing when the question was cancelled. UserError when
/// there is nothing to write, or it can't be written.
Remarks saveAsTable(const Workspace& workspace, const DocumentKind& document, TableContent content, Dialogs& dialogs,
                    const Progress& progress);

}  // namespace triaxlab
