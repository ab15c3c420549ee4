#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

namespace triaxlab {

/// The right to change a file or the files of a folder, against other programs that ask for it too; it ends with the
/// object or with the program, however that dies. Nothing stops a program that doesn't ask. A file is locked in both
/// ways that programs know, flock and a record lock over all of it; a folder by flock, so that nothing lies about in
/// it. Two locks of one program on one file exclude each other as well.
class FileLock {
 public:
  using Clock = std::chrono::steady_clock;

  /// Nothing when another holds it until then; at least one attempt is made. What doesn't exist, may not be written or
  /// lies where nothing can be locked gives a lock that holds nothing: whoever writes there will see for himself.
  /// UserError when the file can't be looked at or opened for another reason.
  static std::optional<FileLock> take(const std::filesystem::path& path, Clock::time_point until);

  /// False when another file has taken the place of the one that was locked, or nothing was locked. UserError when the
  /// file can't be looked at.
  bool isOn(const std::filesystem::path& path) const;

  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  ~FileLock();

 private:
  explicit FileLock(int descriptor) : m_descriptor(descriptor) {}
  int m_descriptor;  // -1: holds nothing
};

}  // namespace triaxlab
