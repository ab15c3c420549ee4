#pragma once

#include <filesystem>

namespace triaxlab {

// A run of this program with an application folder of its own, in which everything is made up: nobody can spoil
// anything there.

/// Where it has its settings and data, beside those of the laboratory.
std::filesystem::path demonstrationFolder(const std::filesystem::path& applicationFolder);
/// True for such a folder.
bool isDemonstration(const std::filesystem::path& applicationFolder);

/// Gives the folder copies of the demonstration databases, source folders that name them, and projects of each kind of
/// test. What is there already stays. UserError: there are no such databases, or the folder can't be written.
void prepareDemonstration(const std::filesystem::path& folder, const std::filesystem::path& databases);

}  // namespace triaxlab
