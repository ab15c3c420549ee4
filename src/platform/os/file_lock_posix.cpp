// Locks on Linux. A record lock belongs to the open file, as flock does (F_OFD_SETLK): one that belongs to the process
// would be lost whenever any part of the program closed the file.
#include "platform/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <initializer_list>
#include <limits>
#include <thread>
#include <utility>

#include "platform/os/posix_calls.h"

namespace triaxlab {
namespace {

enum class Attempt { Locked, Busy };

/// On a share of the Windows world every lock is kept by force, also against this program's other descriptors.
bool locksAreForced(int descriptor, const std::filesystem::path& path) {
  constexpr std::array<unsigned long, 3> kShares{0x517B, 0xFF534D42, 0xFE534D42};  // SMB, CIFS, SMB2
  struct statfs status {};
  if (repeatInterrupted([&] { return fstatfs(descriptor, &status); }) != 0) failCall("锁定文件", path, errno);
  return std::find(kShares.begin(), kShares.end(), static_cast<unsigned long>(status.f_type) & 0xFFFFFFFF) !=
         kShares.end();
}

bool isOneOf(int error, std::initializer_list<int> errors) {
  return std::find(errors.begin(), errors.end(), error) != errors.end();
}

/// What an attempt came to. On a file system that knows no such locks nobody can be kept out.
Attempt attemptOf(int result, std::initializer_list<int> busy, const std::filesystem::path& path) {
  if (result == 0) return Attempt::Locked;
  if (isOneOf(errno, busy)) return Attempt::Busy;
  if (isOneOf(errno, {ENOLCK, ENOSYS, EOPNOTSUPP, EINVAL, EBADF})) return Attempt::Locked;
  failCall("锁定文件", path, errno);
}

Attempt lockByFlock(int descriptor, const std::filesystem::path& path) {
  const int result = repeatInterrupted([&] { return flock(descriptor, LOCK_EX | LOCK_NB); });
  return attemptOf(result, {EWOULDBLOCK}, path);
}

Attempt lockRecords(int descriptor, bool behindAllData, const std::filesystem::path& path) {
  struct flock range {};
  range.l_type = F_WRLCK;
  range.l_whence = SEEK_SET;
  range.l_start = behindAllData ? std::numeric_limits<off_t>::max() - 1 : 0;
  range.l_len = behindAllData ? 1 : 0;  // 0: to the end, wherever that will be
  const int result = repeatInterrupted([&] { return fcntl(descriptor, F_OFD_SETLK, &range); });
  return attemptOf(result, {EAGAIN, EACCES}, path);
}

Attempt lockFile(int descriptor, const std::filesystem::path& path) {
  if (locksAreForced(descriptor, path)) return lockRecords(descriptor, true, path);
  const Attempt attempt = lockByFlock(descriptor, path);
  return attempt == Attempt::Busy ? attempt : lockRecords(descriptor, false, path);
}

bool isSameFile(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

}  // namespace

std::optional<FileLock> FileLock::take(const std::filesystem::path& path, Clock::time_point until) {
  using std::chrono::milliseconds;
  constexpr milliseconds kFirstPause{2}, kLongestPause{50};
  for (milliseconds pause = kFirstPause;; pause = std::min(2 * pause, kLongestPause)) {
    const auto status = statusOf(path);
    if (!status) return FileLock(-1);
    const bool isFolder = S_ISDIR(status->st_mode);
    // A record lock for writing asks for a file that is open for writing.
    const int flags = (isFolder ? O_RDONLY | O_DIRECTORY : O_RDWR) | O_CLOEXEC | O_NONBLOCK;
    FileLock lock(repeatInterrupted([&] { return open(path.c_str(), flags); }));
    if (lock.m_descriptor < 0) {
      if (!isOneOf(errno, {ENOENT, ENOTDIR, EACCES, EPERM, EROFS, ENXIO, ETXTBSY})) failCall("打开文件", path, errno);
      return lock;
    }
    const Attempt attempt = isFolder ? lockByFlock(lock.m_descriptor, path) : lockFile(lock.m_descriptor, path);
    // Whoever held it may have put another file in its place.
    if (attempt == Attempt::Locked && lock.isOn(path)) return lock;
    const Clock::time_point now = Clock::now();
    if (now >= until) return std::nullopt;
    std::this_thread::sleep_for(std::min<Clock::duration>(pause, until - now));
  }
}

bool FileLock::isOn(const std::filesystem::path& path) const {
  if (m_descriptor < 0) return false;
  struct stat locked {};
  if (fstat(m_descriptor, &locked) != 0) failCall("查看文件", path, errno);
  const auto there = statusOf(path);
  return there && isSameFile(locked, *there);
}

FileLock::FileLock(FileLock&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(m_descriptor, other.m_descriptor);
  return *this;
}

FileLock::~FileLock() {
  if (m_descriptor >= 0) close(m_descriptor);
}

}  // namespace triaxlab
