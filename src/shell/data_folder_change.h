#pragma once

#include <filesystem>

#include "common/user_error.h"
#include "store/workspace.h"

namespace triaxlab {

/// Goes over to another data folder: gives it its three folders, stores it for the next starts, completes a save that
/// was cut off there. No file is moved. What is in the tables stays and is saved there from now on; a project file that
/// is there already counts as one that the tables don't come from, so that a save asks before it writes over it.
/// UserError when the folder can't be taken: nothing has changed then. Pre: it comes from chosenDataFolder.
Remarks changeDataFolder(Workspace& workspace, const std::filesystem::path& folder);

}  // namespace triaxlab
