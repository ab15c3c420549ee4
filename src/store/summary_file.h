#pragma once

#include <filesystem>
#include <string_view>

#include "store/summary_record.h"
#include "store/workspace.h"

namespace triaxlab {

class FileUpdate;

/// ZMSJ\KHZ<projectNo>.txt of the data folder.
std::filesystem::path summaryPath(const Workspace& workspace, std::string_view projectNo);

/// Fills the display table from the summary files of the projects in the triaxial table, and the title texts of the
/// first live row's project. A missing file leaves its rows blank.
void readTriaxialLocations(Workspace& workspace);

/// Writes the "NO." section, the sampling spot and the whole "SZ:" section of every live triaxial row into the summary
/// file of its project; all other bytes stay. Part of the same update as the save.
void updateTriaxialSummary(const Workspace& workspace, FileUpdate& update);

}  // namespace triaxlab
