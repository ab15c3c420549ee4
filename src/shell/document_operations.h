#pragma once

#include <optional>
#include <string_view>

#include "common/user_error.h"
#include "store/project/project_file.h"
#include "store/workspace.h"
#include "triaxial/curve_page.h"

namespace triaxlab {

// What fills a table, up to the point where a document window can show it and a save can store it. Windows and the
// command line start the same operations; the remarks are for the status bar or standard error.

/// The document window that shows the tests of a kind; nothing as long as this version has none.
std::optional<ActiveDocument> documentOf(ProjectKind kind);

/// Reads a project file (name without folder), the locations of its samples and the English labels, and reduces the
/// samples as their window does when it opens: the triaxial ones by the opening pass, the others stand as they were
/// stored. UserError as `openProject`; the workspace is then as it was.
Remarks openDocument(Workspace& workspace, ProjectKind kind, std::string_view fileName,
                     const RangeChooser& chooseRange);

inline Remarks openTriaxialDocument(Workspace& workspace, std::string_view fileName, const RangeChooser& chooseRange) {
  return openDocument(workspace, ProjectKind::Triaxial, fileName, chooseRange);
}

/// Goes on behind an importer that has filled the triaxial table: locations, English labels, opening pass; the
/// controlledDocNo of the document before is dropped.
Remarks importedTriaxialDocument(Workspace& workspace);

/// An empty triaxial document for typing in.
Remarks newTriaxialDocument(Workspace& workspace);

/// Shows a page of every live sample, as paging through them would: the page's failure values and fits go into the
/// records. A sample that doesn't have the page shows the one that takes its place. The entry that is checked is that
/// of the peak.
void showPageOfEverySample(Workspace& workspace, CurvePage page);

}  // namespace triaxlab
