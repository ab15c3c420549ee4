#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "platform/file_lock.h"

class QFileSystemWatcher;

namespace triaxlab {

/// Held while the program runs: one copy for each user and application folder. What counts is the system's lock on a
/// file, which ends with its program however that dies; the file itself stays, and nothing is read from it.
class InstanceLock {
 public:
  explicit InstanceLock(const std::filesystem::path& applicationFolder);
  ~InstanceLock();
  /// False when another copy holds it. Where no lock can be made at all the program runs without.
  bool take();
  /// Told each time that another copy was started and called. Pre: this one took the lock.
  void setCalled(std::function<void()> called);
  /// Asks the copy that holds the lock to come to the front.
  void call() const;

 private:
  QString callFile() const;

  std::filesystem::path m_file;
  std::optional<FileLock> m_lock;
  std::unique_ptr<QFileSystemWatcher> m_calls;
};

}  // namespace triaxlab
