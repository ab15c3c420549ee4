#include "platform/os/posix_calls.h"

#include <fcntl.h>
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "common/user_error.h"

namespace triaxlab {

std::string causeOf(int error) {
  struct Cause {
    int error;
    const char* words;
  };
  static constexpr std::array kCauses{
      Cause{ENOENT, "没有这个文件或文件夹"},
      Cause{EACCES, "没有读写权限"},
      Cause{EPERM, "没有读写权限"},
      Cause{EBADF, "没有读写权限"},  // a file opened to be read, written to
      Cause{ENOEXEC, "它不是能在本机运行的程序"},
      Cause{EISDIR, "它是一个文件夹"},
      Cause{ESPIPE, "它是一个管道"},
      Cause{ENOTDIR, "路径中有一段不是文件夹"},
      Cause{kLinkInTheWay, "它是一个链接，或在一个链接之后；数据文件不经过链接读写"},
      Cause{kNoPlainFile, "它是一个设备或管道"},
      Cause{ELOOP, "路径中的链接绕成一圈"},
      Cause{ENOSPC, "磁盘已满"},
      Cause{EDQUOT, "磁盘配额已用完"},
      Cause{EFBIG, "文件超过系统允许的大小"},
      Cause{EROFS, "磁盘是只读的"},
      Cause{EIO, "磁盘读写错误"},
      Cause{EREMOTEIO, "磁盘读写错误"},
      Cause{ENXIO, "磁盘已断开"},
      Cause{ENODEV, "磁盘已断开"},
      Cause{ESTALE, "网络磁盘已断开"},
      Cause{ENOTCONN, "网络磁盘已断开"},
      Cause{ESHUTDOWN, "网络磁盘已断开"},
      Cause{ECONNRESET, "网络磁盘已断开"},
      Cause{ECONNABORTED, "网络磁盘已断开"},
      Cause{ENETDOWN, "网络磁盘已断开"},
      Cause{ENETUNREACH, "网络磁盘已断开"},
      Cause{EHOSTDOWN, "网络磁盘没有回答"},
      Cause{EHOSTUNREACH, "网络磁盘没有回答"},
      Cause{ETIMEDOUT, "网络磁盘没有回答"},
      Cause{EBUSY, "它正被别的程序使用"},
      Cause{ETXTBSY, "它正被别的程序使用"},
      Cause{EAGAIN, "它正被别的程序使用"},
      Cause{ENOLCK, "系统不能给它加锁"},
      Cause{ENAMETOOLONG, "名称太长"},
      Cause{EMFILE, "打开的文件太多"},
      Cause{ENFILE, "打开的文件太多"},
      Cause{ENOMEM, "内存不足"},
  };
  const auto* const known =
      std::find_if(kCauses.begin(), kCauses.end(), [error](const Cause& cause) { return cause.error == error; });
  if (known != kCauses.end()) return known->words;
  return fmt::format("系统错误 {}（{}）", error, std::strerror(error));
}

void failCall(std::string_view deed, const std::filesystem::path& path, int error) {
  throw UserError(fmt::format("{}“{}”失败：{}。", deed, textOfPath(path), causeOf(error)));
}

void takePermissions(const std::filesystem::path& file, const std::filesystem::path& from) {
  if (const auto old = statusOf(from)) chmod(file.c_str(), old->st_mode & 07777);
}

FileStamp stampOfStatus(const struct stat& status) {
  const auto inNs = [](const timespec& time) { return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec; };
  return {static_cast<std::uint64_t>(status.st_size), inNs(status.st_mtim), inNs(status.st_ctim), status.st_ino};
}

std::optional<struct stat> statusOf(const std::filesystem::path& path, Links links) {
  // The system ends a name at a zero byte, and would look at another file than the one meant.
  if (path.native().find('\0') != std::string::npos) return std::nullopt;
  struct stat status {};
  const int follow = links == Links::Follow ? 0 : AT_SYMLINK_NOFOLLOW;
  if (repeatInterrupted([&] { return fstatat(AT_FDCWD, path.c_str(), &status, follow); }) == 0) return status;
  if (!meansMissing(errno)) failCall("查看文件", path, errno);
  return std::nullopt;
}

}  // namespace triaxlab
