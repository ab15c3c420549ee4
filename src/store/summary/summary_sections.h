#pragma once

#include <cstddef>
#include <string>

#include "store/project/project_kinds.h"
#include "store/summary/summary_record.h"
#include "store/workspace.h"

namespace triaxlab {

// What of a summary record belongs to one kind of test. All else but its "NO." section and the sampling spot is the
// other kinds' or the sibling tools'.

/// Writes the results of the sample in a table row.
void putResults(SummaryRecord& summary, const Workspace& workspace, ProjectKind kind, std::size_t row);

/// Takes the results out, as is done when the project file no longer holds the sample. Of a triaxial sample the pairs
/// of its test methods stay.
void blankResults(SummaryRecord& summary, ProjectKind kind);

/// The day under which a sample's results stand, yyyy/mm/dd: the one that is shown for it, else today.
std::string testDateOf(const Workspace& workspace, ProjectKind kind, std::size_t row);

}  // namespace triaxlab
