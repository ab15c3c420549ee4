#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "common/user_error.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// ZMSJ\KHZ<projectNo>.txt of the data folder; an empty path for a number that can't be part of a file name.
std::filesystem::path summaryPath(const Workspace& workspace, std::string_view projectNo);

/// Calls `visit` with the place in `sampleNumbers` (GBK, trimmed) and what the project's summary file knows of that
/// sample; when the file holds several records of one number, the last call counts. A missing file knows nothing.
/// UserError when it can't be read or its head is damaged.
void visitLocations(const Workspace& workspace, std::string_view projectNo, std::span<const std::string> sampleNumbers,
                    const std::function<void(std::size_t, const SampleLocation&)>& visit);

/// The sampling depth that the project's summary file has for a sample, GBK, trimmed; when it holds several records of
/// one number, the first counts. Empty without such a file or sample. UserError as `visitLocations`.
std::string lookupSamplingDepth(const Workspace& workspace, std::string_view projectNo, std::string_view sampleNo);

/// Fills the display table from the summary files of the projects in the table of a kind, and the title texts from that
/// of the first live row's project. Rows that no file knows stay as they are, which an open and an import left blank.
/// Records that have a sampling depth of their own take that of `lookupSamplingDepth`.
/// A summary file that can't be read is a remark, and the depths of its project stay as the records have them.
Remarks readLocations(Workspace& workspace, ProjectKind kind);

}  // namespace triaxlab
