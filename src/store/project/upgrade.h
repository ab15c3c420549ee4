#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "common/user_error.h"
#include "store/project/project_kinds.h"
#include "store/safety/data_lock.h"
#include "store/workspace.h"

namespace triaxlab {

// Triaxial files once had records of 38366 bytes, without the last four fields, and unconfined files records of 916
// bytes, with 23 rows where there are 51 today. The first four places of `versionTag` tell: a file of these kinds in
// which they aren't "V2.0" is an old one, whatever its size. K0 and TK0 files have had one format only.

/// Brings an old project file into today's format, in place: the fields that the old record has are carried over, the
/// others are blank, the end text of a triaxial file comes along. A current file, a missing one and one of another kind
/// are left alone.
///
/// The new file is made in the applicationFolder (b.….bak, WCX.….BAK), synced, and put in the old one's place in one
/// step. UserError when that fails, or when the head is damaged: the old file is then as it was. A file that holds
/// fewer samples than it says gets blank ones, and a remark. A copy of the old file is kept (store/safety/backup.h).
/// The lock is that of a save; without one, an old file is locked for the time of it.
Remarks upgradeProject(Workspace& workspace, DataLock& lock, const ProjectKindInfo& info,
                       const std::filesystem::path& file);
Remarks upgradeProject(Workspace& workspace, const ProjectKindInfo& info, const std::filesystem::path& file);

/// Writes what a file of any format holds in today's format into an empty file. A file that holds fewer samples than it
/// says gets blank ones if it is an old one, and then a remark. UserError as above.
std::optional<std::string> writeInTodaysFormat(const File& from, const ProjectKindInfo& info, File& to);

}  // namespace triaxlab
