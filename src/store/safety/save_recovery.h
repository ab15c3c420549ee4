#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "store/safety/data_lock.h"
#include "store/safety/save_journal.h"

namespace triaxlab {

/// A save whose journal is complete but can't be brought into its files: one may not be written to, or something else
/// has its name. Or it was, and the journal can't be removed. Its journal waits; the files that it names are not
/// written to until it is gone, since every start brings it into them again.
struct WaitingSave {
  std::filesystem::path journal;
  std::vector<std::string> paths;  // as the journal names them
  std::string sentence;            // what is the matter, and how to get on
  bool isWritten = false;          // the files hold it and may be read
};

/// What became of the saves that dead programs left.
struct Recovery {
  std::vector<WaitingSave> waiting;
  Remarks remarks;

  /// The save that waits for a file (a journal's path); nothing when there is none.
  const WaitingSave* waitingFor(std::string_view path) const;
};

/// Asked without the lock: true also while another program is at its save.
bool mayHoldRemains(const std::filesystem::path& dataFolder);

/// Brings the saves to their end that dead programs began, and drops what they left. UserError when a journal can't be
/// read or another program holds one of its files.
Recovery finishInterrupted(const std::filesystem::path& dataFolder, DataLock& lock);

/// Where the journal of the next save goes: beside those that wait. UserError when too many wait.
std::filesystem::path journalForSave(const std::filesystem::path& dataFolder, const Recovery& recovery);

/// Makes a journal void: removes it, or empties it, or takes its mark away. What hinders all three, as a sentence;
/// nothing when it is void.
std::optional<std::string> dropSaveJournal(const std::filesystem::path& journal);

/// The files of a journal as a person knows them.
std::string namesOf(const std::filesystem::path& dataFolder, const std::vector<SaveJournalFile>& files);

/// That all of a save (这次, 上次) is written, but its journal stands and must be removed.
std::string leftJournalRemark(std::string_view whichTime, const std::filesystem::path& journal, std::string_view cause);

}  // namespace triaxlab
