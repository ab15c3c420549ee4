#pragma once

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace triaxlab {

/// The cause of a failed system call in the technician's language.
std::string causeOf(int error);

// Causes that no system call tells: a link where none is followed, a device or pipe where a file is to be.
inline constexpr int kLinkInTheWay = -1, kNoPlainFile = -2;

/// UserError: what was being done, to which file, and why it failed.
[[noreturn]] void failCall(std::string_view deed, const std::filesystem::path& path, int error);

/// True for the two errors that mean that there is no such file. Every other one leaves that open, and a file that
/// can't be looked at must never be taken for one that isn't there: a save would then begin it anew.
constexpr bool meansMissing(int error) { return error == ENOENT || error == ENOTDIR; }

enum class Links { Follow, LookAt };

/// What stands under a name; nothing when nothing does. UserError when the system doesn't say.
std::optional<struct stat> statusOf(const std::filesystem::path& path, Links links = Links::Follow);

/// Permissions of a file that takes the place of another; a file without forerunner keeps its own.
void takePermissions(const std::filesystem::path& file, const std::filesystem::path& from);

FileStamp stampOfStatus(const struct stat& status);

/// The call again for as long as a signal interrupts it.
template <class Call>
auto repeatInterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace triaxlab
