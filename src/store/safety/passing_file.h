#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/file_lock.h"
#include "platform/files.h"

namespace triaxlab {

/// The name of a file that is there for a moment: what stands before and behind the word that is its maker's own.
struct PassingName {
  std::string_view begin, end;
};
/// True for the name of such a file, whoever made it.
bool isPassing(std::string_view fileName, const PassingName& name);

/// A file that is there for a moment: a content in the making, which is then put in its place. No other program uses
/// its name, on this machine or another, and its maker holds it, so that a later start tells it from one that was left
/// behind. It goes with the object, unless it was moved.
class PassingFile {
 public:
  PassingFile(const std::filesystem::path& folder, const PassingName& name);
  ~PassingFile();
  PassingFile(const PassingFile&) = delete;
  PassingFile& operator=(const PassingFile&) = delete;

  const std::filesystem::path& path() const { return m_path; }
  /// Makes the file, empty.
  File make();
  /// For a file that something else has made.
  void hold();
  /// As moveFile. It is held no longer then.
  void moveTo(const std::filesystem::path& target);
  /// It is held no longer, and stays: something else answers for it now.
  void leave();

 private:
  std::filesystem::path m_path;
  bool m_isLeft = false;
  std::optional<FileLock> m_lock;
};

/// Removes a file that a dead program has left. One that somebody holds stays, and so does one that can't be removed:
/// the next start tries again.
void removeLeftBehind(const std::filesystem::path& file);

}  // namespace triaxlab
