#pragma once

#include <chrono>
#include <filesystem>
#include <map>

#include "platform/file_lock.h"

namespace triaxlab {

/// How long a program waits for another that is writing.
inline constexpr std::chrono::milliseconds kLockPatience{5000};

/// The right to change the files of a data folder, for the time of one save, rewrite, upgrade or recovery: against
/// other runs of this program by the folder of the project files, against sibling tools by the files themselves. The
/// journal belongs to whoever has it. A person is not asked anything while it is held.
class DataLock {
 public:
  /// UserError that names the folder when another program has it for as long as `patience`. A folder that is missing or
  /// can't be locked keeps nobody out.
  DataLock(const std::filesystem::path& dataFolder, std::chrono::milliseconds patience);

  /// Locks a project or summary file that exists; again when another has taken its place since. All the waiting for
  /// folder and files together takes no longer than `patience`. UserError that names the file when that isn't enough.
  void take(const std::filesystem::path& file);

 private:
  FileLock takeOrFail(const std::filesystem::path& path) const;

  std::chrono::milliseconds m_patience;
  FileLock::Clock::time_point m_until;
  FileLock m_folder;
  std::map<std::filesystem::path, FileLock> m_files;
};

}  // namespace triaxlab
