#include "platform/os/posix_calls.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>

namespace triaxlab {

std::string systemWordsFor(int error) { return fmt::format("系统错误 {}（{}）", error, std::strerror(error)); }

void takePermissions(const std::filesystem::path& file, const std::filesystem::path& from) {
  if (const auto old = statusOf(from)) chmod(file.c_str(), old->st_mode & 07777);
}

void dropFile(const std::filesystem::path& path) { unlink(path.c_str()); }

bool renameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (rename(from.c_str(), to.c_str()) == 0) return true;
  if (errno != EXDEV) failCall("写入文件", to, errno);
  return false;
}

FileStamp stampOfStatus(const struct stat& status) {
  const auto inNs = [](const timespec& time) { return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec; };
  return {static_cast<std::uint64_t>(status.st_size), inNs(status.st_mtim), inNs(status.st_ctim), status.st_ino};
}

std::optional<struct stat> statusOf(const std::filesystem::path& path, Links links) {
  if (holdsZeroByte(path)) return std::nullopt;
  struct stat status {};
  const int follow = links == Links::Follow ? 0 : AT_SYMLINK_NOFOLLOW;
  if (repeatInterrupted([&] { return fstatat(AT_FDCWD, path.c_str(), &status, follow); }) == 0) return status;
  if (!meansMissing(errno)) failCall("查看文件", path, errno);
  return std::nullopt;
}

PathKind kindOf(const std::filesystem::path& path, Links links) {
  const auto status = statusOf(path, links);
  if (!status) return PathKind::Nothing;
  if (S_ISREG(status->st_mode)) return PathKind::File;
  if (S_ISDIR(status->st_mode)) return PathKind::Folder;
  return S_ISLNK(status->st_mode) ? PathKind::Link : PathKind::Other;
}

std::string nameOfMachine() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

int numberOfProcess() { return getpid(); }

}  // namespace triaxlab
