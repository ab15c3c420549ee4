#include "store/safety/passing_file.h"

#include <string>

#include "common/user_error.h"
#include "platform/process.h"

namespace triaxlab {
namespace {

void removeQuietly(const std::filesystem::path& path) {
  try {
    removeFile(path);
  } catch (const UserError&) {
    // Whoever fails has something else to tell; a later start takes away what is left.
  }
}

}  // namespace

bool isPassing(std::string_view fileName, const PassingName& name) {
  if (!fileName.starts_with(name.begin) || !fileName.ends_with(name.end)) return false;
  if (fileName.size() < name.begin.size() + name.end.size()) return false;
  return isOwnName(fileName.substr(name.begin.size(), fileName.size() - name.begin.size() - name.end.size()));
}

PassingFile::PassingFile(const std::filesystem::path& folder, const PassingName& name)
    : m_path(folder / std::string(name.begin).append(ownName()).append(name.end)) {}

PassingFile::~PassingFile() {
  if (!m_isLeft) removeQuietly(m_path);
}

File PassingFile::make() {
  File file(m_path, File::Mode::Create);
  hold();
  return file;
}

void PassingFile::hold() { m_lock = FileLock::take(m_path, FileLock::Clock::now()); }

void PassingFile::moveTo(const std::filesystem::path& target) {
  moveFile(m_path, target);
  leave();
}

void PassingFile::leave() {
  m_isLeft = true;
  m_lock.reset();
}

void removeLeftBehind(const std::filesystem::path& file) {
  try {
    if (FileLock::take(file, FileLock::Clock::now())) removeFile(file);
  } catch (const UserError&) {
  }
}

}  // namespace triaxlab
