#pragma once

#include <string_view>

#include "store/safety/passing_file.h"
#include "store/workspace.h"

namespace triaxlab {

// Files that are there for a moment, but for the save journal's (save_journal.h). Former versions gave them fixed
// names, without a word of their own between beginning and end: a.bak, b.bak, WCX.BAK, copy.new.

/// A project file with its samples in a new order, in the applicationFolder.
inline constexpr PassingName kReorderedFile{"a.", ".bak"};
/// An upgraded project file, in the applicationFolder.
inline constexpr PassingName kUpgradedTriaxialFile{"b.", ".bak"};
inline constexpr PassingName kUpgradedUnconfinedFile{"WCX.", ".BAK"};
/// A backup in the making.
inline constexpr PassingName kUnfinishedCopy{"copy.", ".new"};

/// At the start of the program: takes away those that dead programs left in the applicationFolder, among the project
/// files and among their backups. A file that somebody holds stays, and all of the data folder's while another program
/// is changing it.
void takeAwayLeftovers(const Workspace& workspace);

}  // namespace triaxlab
