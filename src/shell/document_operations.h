#pragma once

#include <string_view>

#include "common/user_error.h"
#include "shell/document_kinds.h"
#include "store/project/project_file.h"
#include "store/project/save_project.h"
#include "store/workspace.h"

namespace triaxlab {

// What fills a table, up to the point where a document window can show it and a save can store it. Windows and the
// command line start the same operations; the remarks are for the status bar or standard error.

/// Reads a project file (name without folder), the locations of its samples and the English labels, and reduces the
/// samples as their window does when it opens. UserError as `openProject`; the workspace is then as it was.
Remarks openDocument(Workspace& workspace, ProjectKind kind, std::string_view fileName, const RangeChooser& chooseRange,
                     OpenFor purpose = OpenFor::Work);

/// Goes on behind an importer that has filled the table of the document: locations, English labels, reduction; the
/// controlledDocNo of the document before is dropped.
Remarks importedDocument(Workspace& workspace, const DocumentKind& document);

/// An empty document for typing in.
Remarks newDocument(Workspace& workspace, const DocumentKind& document);

/// Saves the table of the document, reduced first where its row says so; see saveProject.
SaveReport saveDocument(Workspace& workspace, const DocumentKind& document, const OverwriteChooser& chooseOverwrites,
                        const ChangeQuestion& mayOverwriteChanges = {});

}  // namespace triaxlab
