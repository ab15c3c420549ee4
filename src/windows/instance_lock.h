#pragma once

#include <QLockFile>
#include <filesystem>

namespace triaxlab {

/// Held while the program runs: one copy for each user and application folder. A lock that a dead process left is void.
class InstanceLock {
 public:
  explicit InstanceLock(const std::filesystem::path& applicationFolder);
  /// False when another copy holds it. Where no lock can be made at all the program runs without.
  bool take() { return m_lock.tryLock(0) || m_lock.error() != QLockFile::LockFailedError; }

 private:
  QLockFile m_lock;
};

}  // namespace triaxlab
