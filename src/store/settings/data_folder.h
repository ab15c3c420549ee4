#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "store/workspace.h"

namespace triaxlab {

// The data folder as qvb.sys names it: behind one character that carries nothing but "this field is set".

/// The stored text, UTF-8; nothing in settings that are new. UserError when they can't be read.
std::optional<std::string> storedDataFolder(const Workspace& workspace);

/// The folder that a stored text names. One without a root is taken from the application folder, unless it begins with
/// a drive: where there are no drives such a folder doesn't exist, and that is what reads and saves then find.
std::filesystem::path dataFolderNamed(const Workspace& workspace, std::string_view text);

/// True when the field can hold the name whole; a cut path would name another folder.
bool isStorableDataFolder(const std::filesystem::path& folder);
/// Stores a folder for this start and the next ones. UserError when the settings can't be written. Pre: it is storable.
void storeDataFolder(const Workspace& workspace, const std::filesystem::path& folder);

/// The folder that a person has typed or chosen: one that exists, can be written to and is no part of a data folder
/// itself. UserError says what is wrong with any other.
std::filesystem::path chosenDataFolder(std::string_view typed);

/// Makes what a data folder holds, HSZS, ZMSJ and PTU, where it isn't there. UserError when one of them can't be made,
/// or leads elsewhere.
void makeDataFolders(const std::filesystem::path& folder);

}  // namespace triaxlab
