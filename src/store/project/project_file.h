#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "common/user_error.h"
#include "platform/files.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// First and last sequence number, from 1.
struct SampleRange {
  int first = 1, last = 1;
};

/// The range that a request comes to: each cut to 1..10000, exchanged if reversed, at most 2000 rows.
SampleRange limitedRange(SampleRange wanted);

/// Asks which samples of a file of more than 100 to read, given its count; the answer is already limited.
using RangeChooser = std::function<SampleRange(int sampleCount)>;

/// What a file is opened for.
enum class OpenFor : std::uint8_t {
  Work,     // what dead programs left is finished first, and a file of an old format is upgraded in place
  Reading,  // the data folder stays as it is: no lock, no recovery, and an old format is brought into today's in memory
};

/// Opens a project file (name without folder) into the table of its kind, with the project date, the processing date,
/// and for a triaxial file the controlledDocNo; clears rawImportPending. The workspace changes only when nothing can
/// fail any more. The display table is filled by `readLocations` afterwards, the records are not reduced. UserError:
/// missing, unreadable, damaged head, an upgrade that fails, more than 1001 rows asked for.
Remarks openProject(Workspace& workspace, ProjectKind kind, std::string_view fileName, const RangeChooser& chooseRange,
                    OpenFor purpose = OpenFor::Work);

/// Takes samples of an open file of any format, wherever it lies, into the tables as above: what an open does once
/// it has found the file. UserError: a damaged head, more than 1001 rows asked for, a change while it is read.
Remarks takeSamples(Workspace& workspace, ProjectKind kind, const File& file, const RangeChooser& chooseRange);

}  // namespace triaxlab
