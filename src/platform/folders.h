#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace triaxlab {

/// Names of the folders in a folder, links to folders too, in ascending order without regard to case; those that the
/// system hides (".name") are left out. None when there is no such folder; UserError when it can't be read.
std::vector<std::string> listFolders(const std::filesystem::path& folder);

/// The folder that a variable of the environment names; empty when the variable is missing.
std::filesystem::path folderNamedBy(const char* variable);

/// Where the system has programs keep what belongs to the person at the machine; empty when the environment doesn't
/// tell it, as that of a service may not.
std::filesystem::path personalDataFolder();
/// The variable of the environment that tells it.
std::string_view personalDataVariable();

/// How the name of a folder begins that needs no other to be found, in the words of a sentence.
std::string_view beginningOfWholeNames();

/// Where a person looks for a disk: "/", then the mounted disks, sticks and shares of the network in ascending order.
/// What the system mounts for itself is left out. `mountTable` has a line for each mount (fstab format).
/// On Windows the letters of the drives.
std::vector<std::filesystem::path> mountedVolumes(const std::filesystem::path& mountTable = "/proc/self/mounts");

}  // namespace triaxlab
