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
#include <limits>
#include <thread>
#include <utility>

namespace triaxlab {
namespace {

enum class Attempt { Locked, Busy };

/// On a share of the Windows world every lock is kept by force, also against this program's other descriptors.
bool locksAreForced(int descriptor) {
  constexpr std::array<unsigned long, 3> kShares{0x517B, 0xFF534D42, 0xFE534D42};  // SMB, CIFS, SMB2
  struct statfs status {};
  return fstatfs(descriptor, &status) == 0 &&
         std::find(kShares.begin(), kShares.end(), static_cast<unsigned long>(status.f_type) & 0xFFFFFFFF) !=
             kShares.end();
}

/// Other errors mean that the file system knows no such locks.
Attempt lockByFlock(int descriptor) {
  int result = flock(descriptor, LOCK_EX | LOCK_NB);
  while (result != 0 && errno == EINTR) result = flock(descriptor, LOCK_EX | LOCK_NB);
  return result != 0 && errno == EWOULDBLOCK ? Attempt::Busy : Attempt::Locked;
}

Attempt lockRecords(int descriptor, bool behindAllData) {
  struct flock range {};
  range.l_type = F_WRLCK;
  range.l_whence = SEEK_SET;
  range.l_start = behindAllData ? std::numeric_limits<off_t>::max() - 1 : 0;
  range.l_len = behindAllData ? 1 : 0;  // 0: to the end, wherever that will be
  const bool isBusy = fcntl(descriptor, F_OFD_SETLK, &range) != 0 && (errno == EAGAIN || errno == EACCES);
  return isBusy ? Attempt::Busy : Attempt::Locked;
}

Attempt lockFile(int descriptor) {
  if (locksAreForced(descriptor)) return lockRecords(descriptor, true);
  const Attempt attempt = lockByFlock(descriptor);
  return attempt == Attempt::Busy ? attempt : lockRecords(descriptor, false);
}

bool isSameFile(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

}  // namespace

std::optional<FileLock> FileLock::take(const std::filesystem::path& path, Clock::time_point until) {
  using std::chrono::milliseconds;
  constexpr milliseconds kFirstPause{2}, kLongestPause{50};
  for (milliseconds pause = kFirstPause;; pause = std::min(2 * pause, kLongestPause)) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return FileLock(-1);
    const bool isFolder = S_ISDIR(status.st_mode);
    // A record lock for writing asks for a file that is open for writing.
    FileLock lock(open(path.c_str(), (isFolder ? O_RDONLY | O_DIRECTORY : O_RDWR) | O_CLOEXEC));
    if (lock.m_descriptor < 0) return lock;
    const Attempt attempt = isFolder ? lockByFlock(lock.m_descriptor) : lockFile(lock.m_descriptor);
    // Whoever held it may have put another file in its place.
    if (attempt == Attempt::Locked && lock.isOn(path)) return lock;
    const Clock::time_point now = Clock::now();
    if (now >= until) return std::nullopt;
    std::this_thread::sleep_for(std::min<Clock::duration>(pause, until - now));
  }
}

bool FileLock::isOn(const std::filesystem::path& path) const {
  struct stat locked {
  }, there{};
  return m_descriptor >= 0 && fstat(m_descriptor, &locked) == 0 && stat(path.c_str(), &there) == 0 &&
         isSameFile(locked, there);
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
