// Files on POSIX systems. Every call that a signal can interrupt is repeated; every failure names the file.
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <utility>

#include "platform/os/posix_calls.h"

namespace triaxlab {
namespace {

/// Errors of copy_file_range after which reading and writing do the same work.
bool canBeCopiedOtherwise(int error) {
  constexpr std::array kErrors{EXDEV, EINVAL, ENOSYS, EOPNOTSUPP, EBADF, EPERM, ETXTBSY, EOVERFLOW};
  return std::find(kErrors.begin(), kErrors.end(), error) != kErrors.end();
}

/// An open descriptor, or -1.
class Descriptor {
 public:
  explicit Descriptor(int number) : m_number(number) {}
  Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(m_number, other.m_number);
    return *this;
  }
  ~Descriptor() {
    if (m_number >= 0) close(m_number);
  }
  int number() const { return m_number; }

 private:
  int m_number;
};

bool isLink(int folder, const std::filesystem::path& name) {
  struct stat status {};
  return fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode);
}

/// -1 and errno when it fails; of a link that isn't followed errno is kLinkInTheWay.
int openAt(int folder, const std::filesystem::path& path, int flags) {
  errno = ENOENT;
  if (holdsZeroByte(path)) return -1;
  // A pipe that has a file's name must not keep the program waiting for somebody at its other end.
  const int descriptor =
      repeatInterrupted([&] { return openat(folder, path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666); });
  const int error = errno;
  if (descriptor < 0 && (flags & O_NOFOLLOW) != 0 && (error == ELOOP || error == ENOTDIR) && isLink(folder, path))
    errno = kLinkInTheWay;
  else
    errno = error;
  return descriptor;
}

/// The folder in which the last part of `way` lies, reached from `root` without a link.
Descriptor folderOnTheWay(const std::filesystem::path& root, const std::filesystem::path& way,
                          const std::filesystem::path& file) {
  constexpr int kFolder = O_PATH | O_DIRECTORY;
  Descriptor folder(openAt(AT_FDCWD, root, kFolder));
  for (auto part = way.begin(); folder.number() >= 0 && std::next(part) != way.end(); ++part) {
    Descriptor next(openAt(folder.number(), *part, kFolder | O_NOFOLLOW));
    const int error = errno;
    folder = std::move(next);
    errno = error;
  }
  if (folder.number() < 0) failCall("打开文件", file, errno);
  return folder;
}

int openFlags(File::Mode mode) {
  switch (mode) {
    case File::Mode::Read:
      return O_RDONLY;
    case File::Mode::Update:
      return O_RDWR;
    case File::Mode::Create:
      return O_RDWR | O_CREAT | O_TRUNC | O_NOFOLLOW;
    case File::Mode::Shared:
      return O_RDWR | O_CREAT;
  }
  return O_RDONLY;
}

}  // namespace

File::File(const std::filesystem::path& path, Mode mode, std::filesystem::path knownAs)
    : File(std::move(knownAs), openAt(AT_FDCWD, path, openFlags(mode))) {}

File File::below(const std::filesystem::path& root, std::filesystem::path path, Mode mode) {
  const std::filesystem::path way = path.lexically_relative(root);
  if (way.empty() || *way.begin() == ".." || way == ".") failCall("打开文件", path, EXDEV);
  const Descriptor folder = folderOnTheWay(root, way, path);
  const int descriptor = openAt(folder.number(), way.filename(), openFlags(mode) | O_NOFOLLOW);
  return {std::move(path), descriptor};
}

File::File(std::filesystem::path path, int descriptor) : m_path(std::move(path)), m_descriptor(descriptor) {
  struct stat status {};
  int error = 0;
  if (m_descriptor < 0 || fstat(m_descriptor, &status) != 0)
    error = errno;
  else if (S_ISDIR(status.st_mode))
    error = EISDIR;
  else if (S_ISFIFO(status.st_mode))
    error = ESPIPE;
  if (error == 0) return;
  if (m_descriptor >= 0) close(m_descriptor);
  failCall("打开文件", m_path, error);
}

File::~File() {
  if (m_descriptor >= 0) close(m_descriptor);
}

std::uint64_t File::size() const {
  struct stat status {};
  if (fstat(m_descriptor, &status) != 0) failCall("读取文件", m_path, errno);
  return static_cast<std::uint64_t>(status.st_size);
}

FileStamp File::stamp() const {
  struct stat status {};
  if (fstat(m_descriptor, &status) != 0) failCall("读取文件", m_path, errno);
  return stampOfStatus(status);
}

std::size_t File::readAt(std::uint64_t offset, std::span<std::byte> into) const {
  std::size_t done = 0;
  while (done < into.size()) {
    const ssize_t got = repeatInterrupted(
        [&] { return pread(m_descriptor, into.data() + done, into.size() - done, static_cast<off_t>(offset + done)); });
    if (got < 0) failCall("读取文件", m_path, errno);
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

void File::writeAt(std::uint64_t offset, std::span<const std::byte> from) {
  constexpr std::size_t kAtOnce = std::size_t{4} << 20;
  std::size_t done = 0;
  while (done < from.size()) {
    const auto at = static_cast<off_t>(offset + done);
    const std::size_t size = std::min(kAtOnce, from.size() - done);
    const ssize_t put = repeatInterrupted([&] { return pwrite(m_descriptor, from.data() + done, size, at); });
    if (put < 0) failCall("写入文件", m_path, errno);
    done += static_cast<std::size_t>(put);
    // The disk takes what is there already while the next bytes are copied. A hint: the sync finds out what failed.
    if (from.size() > kAtOnce) sync_file_range(m_descriptor, at, put, SYNC_FILE_RANGE_WRITE);
  }
}

void File::resize(std::uint64_t size) {
  if (repeatInterrupted([&] { return ftruncate(m_descriptor, static_cast<off_t>(size)); }) != 0)
    failCall("写入文件", m_path, errno);
}

// The file changes, though not the object.
bool File::shareContentOf(const File& from) {  // NOLINT(readability-make-member-function-const)
  return ioctl(m_descriptor, FICLONE, from.m_descriptor) == 0;
}

void File::copyContentOf(const File& from) {
  constexpr std::size_t kAtOnce = std::size_t{1} << 30;
  off64_t readFrom = 0, writeTo = 0;
  ssize_t copied = 1;
  while (copied > 0)
    copied = repeatInterrupted(
        [&] { return copy_file_range(from.m_descriptor, &readFrom, m_descriptor, &writeTo, kAtOnce, 0); });
  if (copied < 0 && !canBeCopiedOtherwise(errno)) failCall("写入文件", m_path, errno);
  // What the system didn't copy: nothing as a rule, all of it between some file systems.
  auto done = static_cast<std::uint64_t>(writeTo);
  Bytes block(std::size_t{1} << 20);
  while (const std::size_t got = from.readAt(done, block)) {
    writeAt(done, std::span(block).first(got));
    done += got;
  }
}

void File::sync() {
  // Content and size; the times of the file may come later.
  if (repeatInterrupted([&] { return fdatasync(m_descriptor); }) != 0) failCall("写入文件", m_path, errno);
}

std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder) {
  struct statvfs status {};
  if (repeatInterrupted([&] { return statvfs(folder.c_str(), &status); }) != 0) return std::nullopt;
  return std::uint64_t{status.f_bavail} * status.f_frsize;
}

std::filesystem::path behindLinks(const std::filesystem::path& path) {
  std::error_code failed;
  std::filesystem::path target = std::filesystem::canonical(path, failed);
  if (!failed) return target;
  if (!meansMissing(failed.value())) failCall("查看文件", path, failed.value());
  return path;
}

void removeFile(const std::filesystem::path& path) {
  if (unlink(path.c_str()) != 0 && !meansMissing(errno)) failCall("删除文件", path, errno);
}

void syncFolder(const std::filesystem::path& folder) {
  const char* const name = folder.empty() ? "." : folder.c_str();
  const int descriptor = repeatInterrupted([&] { return open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
  if (descriptor < 0) failCall("打开文件夹", folder, errno);
  const int result = repeatInterrupted([&] { return fsync(descriptor); });
  const int error = errno;
  close(descriptor);
  // Some network file systems can't sync a folder and say so with EINVAL; there is nothing more to be done there.
  if (result != 0 && error != EINVAL) failCall("写入文件夹", folder, error);
}

std::filesystem::path pathFromText(std::string_view utf8) {
  std::string text(utf8);
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

std::string textOfPath(const std::filesystem::path& path) { return path.string(); }

}  // namespace triaxlab
