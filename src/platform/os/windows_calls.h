#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/os/calls.h"

namespace triaxlab {

/// The number of the cause, as causeOf knows it, of the last call that failed.
int lastError();

constexpr bool meansMissing(int error) { return error == ENOENT || error == ENOTDIR; }

/// The name as the system's calls take it, also one that is longer than they take by themselves.
std::wstring systemName(const std::filesystem::path& path);

std::string utf8Of(std::wstring_view text);
std::wstring wideOf(std::string_view utf8);

/// A handle that is closed at the end of its scope.
class Handle {
 public:
  explicit Handle(HANDLE handle) : m_handle(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle(Handle&& other) noexcept : m_handle(other.release()) {}
  Handle& operator=(Handle&&) = delete;
  ~Handle() {
    if (isOpen()) CloseHandle(m_handle);
  }
  bool isOpen() const { return m_handle != nullptr && m_handle != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return m_handle; }
  HANDLE release() {
    HANDLE handle = m_handle;
    m_handle = INVALID_HANDLE_VALUE;
    return handle;
  }

 private:
  HANDLE m_handle;
};

/// Whoever opens a file lets all others go on: they may read, write, rename and remove it.
inline constexpr DWORD kSharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A look at what stands under a name, which needs no right to read it.
Handle openToLook(const std::filesystem::path& path, Links links);
/// Of the file behind a number that the C library gave.
HANDLE handleOf(int descriptor);

/// What tells a file from every other one of this machine.
struct FileIdentity {
  DWORD volume = 0;
  std::uint64_t node = 0;
  bool operator==(const FileIdentity&) const = default;
};

struct FileState {
  PathKind kind = PathKind::Nothing;
  FileIdentity identity;
  FileStamp stamp;
};
/// Nothing, and lastError, when the system doesn't say.
std::optional<FileState> stateOf(HANDLE file);
/// Nothing when nothing stands there. UserError when the system doesn't say.
std::optional<FileState> stateOf(const std::filesystem::path& path, Links links = Links::Follow);

}  // namespace triaxlab
