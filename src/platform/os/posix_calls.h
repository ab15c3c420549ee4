#pragma once

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <optional>

#include "platform/files.h"
#include "platform/os/calls.h"

namespace triaxlab {

/// True for the two errors that mean that there is no such file. Every other one leaves that open, and a file that
/// can't be looked at must never be taken for one that isn't there: a save would then begin it anew.
constexpr bool meansMissing(int error) { return error == ENOENT || error == ENOTDIR; }

/// What stands under a name; nothing when nothing does. UserError when the system doesn't say.
std::optional<struct stat> statusOf(const std::filesystem::path& path, Links links = Links::Follow);

FileStamp stampOfStatus(const struct stat& status);

/// The call again for as long as a signal interrupts it.
template <class Call>
auto repeatInterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace triaxlab
