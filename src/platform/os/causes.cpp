#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/os/calls.h"

namespace triaxlab {
namespace {

struct Cause {
  int error;
  const char* words;
};

constexpr std::array kCauses{
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
    Cause{EFBIG, "文件超过系统允许的大小"},
    Cause{EROFS, "磁盘是只读的"},
    Cause{EIO, "磁盘读写错误"},
    Cause{ENXIO, "磁盘已断开"},
    Cause{ENODEV, "磁盘已断开"},
    Cause{ENOTCONN, "网络磁盘已断开"},
    Cause{ECONNRESET, "网络磁盘已断开"},
    Cause{ECONNABORTED, "网络磁盘已断开"},
    Cause{ENETDOWN, "网络磁盘已断开"},
    Cause{ENETUNREACH, "网络磁盘已断开"},
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
#ifndef _WIN32  // which has other numbers for these
    Cause{EDQUOT, "磁盘配额已用完"},
    Cause{EREMOTEIO, "磁盘读写错误"},
    Cause{ESTALE, "网络磁盘已断开"},
    Cause{ESHUTDOWN, "网络磁盘已断开"},
    Cause{EHOSTDOWN, "网络磁盘没有回答"},
#endif
};

}  // namespace

std::string causeOf(int error) {
  const auto* const known = std::ranges::find(kCauses, error, &Cause::error);
  return known != kCauses.end() ? known->words : systemWordsFor(error);
}

void failCall(std::string_view deed, const std::filesystem::path& path, int error) {
  throw UserError(fmt::format("{}“{}”失败：{}。", deed, textOfPath(path), causeOf(error)));
}

}  // namespace triaxlab
