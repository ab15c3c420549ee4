#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "common/user_error.h"
#include "platform/program_parts.h"
#include "store/workspace.h"

namespace triaxlab {

/// This user's own data folder for the program; it need not exist. Empty when the environment doesn't tell it.
std::filesystem::path userDataFolder();

/// The folder that was named for this run: by --app, else by the variable TRIAXLAB_APP.
std::optional<std::filesystem::path> namedApplicationFolder(const std::optional<std::filesystem::path>& option);

/// The application folder of this run: the one named, else that of the programs, else the user's own, which is made.
/// That of the programs is none where they are installed for everybody, unless a laboratory has made it one by a
/// qvb.sys or a file .portable in it, nor where it can't be written. Absolute. UserError when only the user's own is
/// left and nobody knows it.
std::filesystem::path chooseApplicationFolder(const std::optional<std::filesystem::path>& named,
                                              const ProgramParts& parts, const std::filesystem::path& userData);

/// Asked between making ZMSJ and PTU and everything that follows; false ends the start in silence.
using InstanceCheck = std::function<bool()>;

/// The steps of a start that concern folders and settings, in their order: qvb.sys is made when missing, the text
/// settings and the toggles are read, the data folder and its three folders are found or made, a save that was cut off
/// is completed or dropped, the source folders are read. `workspace.applicationFolder` is set by the caller.
///
/// Nothing here ends the program. Folders that can't be made are passed over in silence: the saves will tell. Settings
/// that can't be read or written leave the defaults, and are told once, in the remarks. When qvb.sys can't be read, the
/// data folder stays unknown for this run and `dataFolderProblem` says so: it is then neither read nor written.
/// Nothing is returned when `isOnlyInstance` says no.
std::optional<Remarks> startUp(Workspace& workspace, const InstanceCheck& isOnlyInstance);

/// What a start has to warn a person of that it passes over by itself: the data folder is not there, or projects lie in
/// the application folder while the program works elsewhere.
Remarks startWarnings(const Workspace& workspace);

/// `startUp` for the command line, which minds no other instance.
Remarks startUp(Workspace& workspace);

/// Instead of a start: what is read then is this data folder, as it stands and without any settings. UserError when
/// there is no such folder.
Remarks lookAtDataFolder(Workspace& workspace, const std::filesystem::path& dataFolder);

}  // namespace triaxlab
