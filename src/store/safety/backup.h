#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "store/workspace.h"

namespace triaxlab {

// Copies of project files as they were before a run of the program first changed them lie in the folder `backup` beside
// them. WKSZ17.txt of 2024-05-06 14:30:15 becomes WKSZ17_20240506-143015-000000.txt: local time to the microsecond, so
// that names of one project sort by age. `copy.….new` is one that didn't get finished.

inline constexpr std::string_view kBackupFolder = "backup";
inline constexpr std::size_t kMostBackupsOfAProject = 5;
inline constexpr std::uint64_t kLargestBackups = std::uint64_t{1} << 30;  // bytes, all together

/// Call before a project file is changed, with the right to change it. Keeps a copy of an existing file unless this run
/// has one of this state, and drops copies beyond the limits, the oldest first. The disk keeps `room` bytes for the
/// change itself; shared blocks are used where the file system can. A copy that can't be made is a remark and nothing
/// more.
///
/// `OwnStates` copies also a state that this run itself has made: for an import that replaces what was worked on.
enum class CopyOf : std::uint8_t { OthersStates, OwnStates };
Remarks keepCopy(Workspace& workspace, const std::filesystem::path& file, std::uint64_t room,
                 CopyOf states = CopyOf::OthersStates);

struct BackupCopy {
  std::string name;
  std::string time;  // 2024-05-06 14:30:15
};
/// The copies of a project file of the data folder, the newest first. UserError when they can't be looked at.
std::vector<BackupCopy> copiesOf(const std::filesystem::path& file);
/// Where a copy of the file lies.
std::filesystem::path copyPath(const std::filesystem::path& file, std::string_view copyName);

}  // namespace triaxlab
