#pragma once

#include <filesystem>
#include <optional>

#include "platform/file_lock.h"

namespace triaxlab {

/// Held while the program runs: one copy for each user and application folder. What counts is the system's lock on a
/// file, which ends with its program however that dies; the file itself stays, and nothing is read from it.
class InstanceLock {
 public:
  explicit InstanceLock(const std::filesystem::path& applicationFolder);
  /// False when another copy holds it. Where no lock can be made at all the program runs without.
  bool take();

 private:
  std::filesystem::path m_file;
  std::optional<FileLock> m_lock;
};

}  // namespace triaxlab
