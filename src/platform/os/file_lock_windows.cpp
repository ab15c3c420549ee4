// Locks on Windows, where every lock is kept by force, also against this program's other descriptors: so a file is
// locked behind all its data. A folder can't be locked there. Whoever has the right to change one has a hidden file in
// it open that no other can open meanwhile, and that the system takes away with its last handle, however that dies.
#include "platform/file_lock.h"

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <limits>
#include <thread>
#include <utility>

#include "platform/os/windows_calls.h"

namespace triaxlab {
namespace {

constexpr std::wstring_view kFolderLock = L".triaxlab-lock";

enum class Attempt { Locked, Busy, Impossible };

Attempt attemptOf(const std::filesystem::path& path) {
  switch (const int error = lastError()) {
    case EBUSY:
      return Attempt::Busy;
    case EACCES:
    case EROFS:
    case ENOENT:
    case ENOTDIR:
      return Attempt::Impossible;
    default:
      failCall("打开文件", path, error);
  }
}

HANDLE openFolderLock(const std::filesystem::path& folder) {
  return CreateFileW(systemName(folder / kFolderLock).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                     FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

HANDLE openFile(const std::filesystem::path& file) {
  return CreateFileW(systemName(file).c_str(), GENERIC_READ | GENERIC_WRITE, kSharedByAll, nullptr, OPEN_EXISTING, 0,
                     nullptr);
}

Attempt lockBehindAllData(HANDLE file, const std::filesystem::path& path) {
  OVERLAPPED place{};
  place.Offset = std::numeric_limits<DWORD>::max() - 1;
  place.OffsetHigh = std::numeric_limits<LONG>::max();
  if (LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0)
    return Attempt::Locked;
  const DWORD code = GetLastError();
  if (code == ERROR_IO_PENDING) return Attempt::Busy;
  // On a file server that knows no locks nobody can be kept out.
  if (code == ERROR_INVALID_FUNCTION || code == ERROR_NOT_SUPPORTED) return Attempt::Locked;
  return attemptOf(path);
}

/// The file that stands for the lock of what is locked.
std::filesystem::path lockedFile(const std::filesystem::path& path, PathKind kind) {
  return kind == PathKind::Folder ? path / kFolderLock : path;
}

}  // namespace

std::optional<FileLock> FileLock::take(const std::filesystem::path& path, Clock::time_point until) {
  using std::chrono::milliseconds;
  constexpr milliseconds kFirstPause{2}, kLongestPause{50};
  for (milliseconds pause = kFirstPause;; pause = std::min(2 * pause, kLongestPause)) {
    const PathKind kind = kindOf(path);
    if (kind == PathKind::Nothing) return FileLock(-1);
    const bool isFolder = kind == PathKind::Folder;
    Handle file(isFolder ? openFolderLock(path) : openFile(path));
    Attempt attempt = file.isOpen() ? Attempt::Locked : attemptOf(path);
    if (attempt == Attempt::Impossible) return FileLock(-1);
    if (attempt == Attempt::Locked && !isFolder) attempt = lockBehindAllData(file.get(), path);
    if (attempt == Attempt::Locked) {
      FileLock lock(_open_osfhandle(reinterpret_cast<std::intptr_t>(file.get()), _O_BINARY | _O_NOINHERIT));
      if (lock.m_descriptor >= 0) file.release();
      // Whoever held it may have put another file in its place.
      if (lock.isOn(path)) return lock;
    }
    const Clock::time_point now = Clock::now();
    if (now >= until) return std::nullopt;
    std::this_thread::sleep_for(std::min<Clock::duration>(pause, until - now));
  }
}

bool FileLock::isOn(const std::filesystem::path& path) const {
  if (m_descriptor < 0) return false;
  const auto locked = stateOf(handleOf(m_descriptor));
  if (!locked) failCall("查看文件", path, lastError());
  const auto there = stateOf(lockedFile(path, kindOf(path)));
  return there && locked->identity == there->identity;
}

FileLock::FileLock(FileLock&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(m_descriptor, other.m_descriptor);
  return *this;
}

FileLock::~FileLock() {
  if (m_descriptor >= 0) _close(m_descriptor);
}

}  // namespace triaxlab
