#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>

#include "platform/file_lock.h"

namespace triaxlab {

/// How long a program waits for another that is writing.
inline constexpr std::chrono::milliseconds kLockPatience{5000};

/// The file in the folder of the project files that whoever changes files of the data folder makes and holds. Shares of
/// a network keep the lock of a folder to the machine, that of a file they pass on.
inline constexpr std::string_view kLockFileName = "triaxlab.lock";

/// The right to change the files of a data folder, for the time of one save, rewrite, upgrade or recovery: against
/// other runs of this program by the folder of the project files and the lock file, against sibling tools by the files
/// themselves. The save journal belongs to whoever has it. A person is not asked anything while it is held.
class DataLock {
 public:
  /// UserError that names the folder when another program has it for as long as `patience`, or the disk has no place
  /// for the lock file. A folder that is missing or can't be written to keeps nobody out.
  DataLock(const std::filesystem::path& dataFolder, std::chrono::milliseconds patience);
  ~DataLock();
  DataLock(const DataLock&) = delete;
  DataLock& operator=(const DataLock&) = delete;

  /// Locks a project or summary file that exists; again when another has taken its place since. All the waiting for
  /// folder and files together takes no longer than `patience`. UserError that names the file when that isn't enough.
  void take(const std::filesystem::path& file);

 private:
  FileLock takeOrFail(const std::filesystem::path& path) const;
  std::optional<FileLock> takeOwnership() const;
  [[noreturn]] void failBusy(const std::filesystem::path& path) const;

  std::chrono::milliseconds m_patience;
  FileLock::Clock::time_point m_until;
  std::filesystem::path m_dataFolder;
  FileLock m_folder;
  std::optional<FileLock> m_owner;
  std::map<std::filesystem::path, FileLock> m_files;
};

/// Where the lock file of a data folder is, or would be.
std::filesystem::path lockFileOf(const std::filesystem::path& dataFolder);

}  // namespace triaxlab
