#include "platform/os/windows_calls.h"

#include <fmt/core.h>
#include <io.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cwchar>
#include <memory>
#include <utility>

namespace triaxlab {
namespace {

struct KnownError {
  DWORD code;
  int error;
};
constexpr std::array kKnownErrors{
    KnownError{ERROR_FILE_NOT_FOUND, ENOENT},
    KnownError{ERROR_PATH_NOT_FOUND, ENOENT},
    KnownError{ERROR_INVALID_DRIVE, ENOENT},
    KnownError{ERROR_INVALID_NAME, ENOENT},
    KnownError{ERROR_BAD_PATHNAME, ENOENT},
    KnownError{ERROR_DIRECTORY, ENOTDIR},
    KnownError{ERROR_ACCESS_DENIED, EACCES},
    KnownError{ERROR_PRIVILEGE_NOT_HELD, EACCES},
    KnownError{ERROR_NETWORK_ACCESS_DENIED, EACCES},
    KnownError{ERROR_SHARING_VIOLATION, EBUSY},
    KnownError{ERROR_LOCK_VIOLATION, EBUSY},
    KnownError{ERROR_USER_MAPPED_FILE, EBUSY},
    KnownError{ERROR_DELETE_PENDING, EBUSY},
    KnownError{ERROR_DISK_FULL, ENOSPC},
    KnownError{ERROR_HANDLE_DISK_FULL, ENOSPC},
    KnownError{ERROR_FILE_TOO_LARGE, EFBIG},
    KnownError{ERROR_WRITE_PROTECT, EROFS},
    KnownError{ERROR_CRC, EIO},
    KnownError{ERROR_IO_DEVICE, EIO},
    KnownError{ERROR_READ_FAULT, EIO},
    KnownError{ERROR_WRITE_FAULT, EIO},
    KnownError{ERROR_SECTOR_NOT_FOUND, EIO},
    KnownError{ERROR_NOT_READY, ENXIO},
    KnownError{ERROR_DEV_NOT_EXIST, ENXIO},
    KnownError{ERROR_DEVICE_NOT_CONNECTED, ENXIO},
    KnownError{ERROR_BAD_NETPATH, ENOTCONN},
    KnownError{ERROR_BAD_NET_NAME, ENOTCONN},
    KnownError{ERROR_NETNAME_DELETED, ENOTCONN},
    KnownError{ERROR_UNEXP_NET_ERR, ENOTCONN},
    KnownError{ERROR_NETWORK_UNREACHABLE, ENETUNREACH},
    KnownError{ERROR_HOST_UNREACHABLE, EHOSTUNREACH},
    KnownError{ERROR_SEM_TIMEOUT, ETIMEDOUT},
    KnownError{ERROR_NOT_SAME_DEVICE, EXDEV},
    KnownError{ERROR_BAD_EXE_FORMAT, ENOEXEC},
    KnownError{ERROR_EXE_MACHINE_TYPE_MISMATCH, ENOEXEC},
    KnownError{ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    KnownError{ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    KnownError{ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    KnownError{ERROR_OUTOFMEMORY, ENOMEM},
    KnownError{ERROR_COMMITMENT_LIMIT, ENOMEM},
    KnownError{ERROR_CANT_RESOLVE_FILENAME, ELOOP},
    KnownError{ERROR_FILE_EXISTS, EEXIST},
    KnownError{ERROR_ALREADY_EXISTS, EEXIST},
};

/// The system's own codes that have no number of the C library stand beyond all of those.
constexpr int kSystemCodes = 1'000'000;

/// The system counts hundreds of nanoseconds since 1601.
std::int64_t nanosecondsOf(LARGE_INTEGER time) {
  constexpr std::int64_t kFrom1601To1970 = 116'444'736'000'000'000;
  return (time.QuadPart - kFrom1601To1970) * 100;
}

PathKind kindOfAttributes(DWORD attributes, DWORD tag) {
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
      (tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT))
    return PathKind::Link;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Folder : PathKind::File;
}

std::uint64_t joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

}  // namespace

int lastError() {
  const DWORD code = GetLastError();
  const auto* const known = std::ranges::find(kKnownErrors, code, &KnownError::code);
  return known != kKnownErrors.end() ? known->error : kSystemCodes + static_cast<int>(code);
}

std::string systemWordsFor(int error) {
  const DWORD code = error >= kSystemCodes ? static_cast<DWORD>(error - kSystemCodes) : 0;
  if (code == 0) return fmt::format("系统错误 {}", error);
  std::array<wchar_t, 512> words{};
  DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                              words.data(), static_cast<DWORD>(words.size()), nullptr);
  while (size > 0 && (words[size - 1] <= L' ' || words[size - 1] == L'.')) --size;
  return fmt::format("系统错误 {}（{}）", code, utf8Of({words.data(), size}));
}

std::wstring systemName(const std::filesystem::path& path) {
  // Folders end some characters sooner than files, for they must leave room for a short name.
  constexpr std::size_t kLongest = MAX_PATH - 14;
  std::filesystem::path name = path;
  name.make_preferred();
  if (name.native().size() < kLongest) return name.native();
  std::error_code ignored;
  std::wstring whole = std::filesystem::absolute(name, ignored).lexically_normal().make_preferred().native();
  if (whole.starts_with(LR"(\\?\)")) return whole;
  return whole.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + whole.substr(1) : LR"(\\?\)" + whole;
}

std::string utf8Of(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

std::wstring wideOf(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  const int size = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, text.data(), size);
  return text;
}

Handle openToLook(const std::filesystem::path& path, Links links) {
  const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | (links == Links::LookAt ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
  return Handle(CreateFileW(systemName(path).c_str(), FILE_READ_ATTRIBUTES, kSharedByAll, nullptr, OPEN_EXISTING, flags,
                            nullptr));
}

HANDLE handleOf(int descriptor) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): as the C library hands it out
  return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
}

std::optional<FileState> stateOf(HANDLE file) {
  if (const DWORD type = GetFileType(file); type != FILE_TYPE_DISK) {
    if (type == FILE_TYPE_UNKNOWN && GetLastError() != NO_ERROR) return std::nullopt;
    return FileState{PathKind::Other, {}, {}};
  }
  BY_HANDLE_FILE_INFORMATION whole{};
  FILE_BASIC_INFO times{};
  if (GetFileInformationByHandle(file, &whole) == 0 ||
      GetFileInformationByHandleEx(file, FileBasicInfo, &times, sizeof times) == 0)
    return std::nullopt;
  FILE_ATTRIBUTE_TAG_INFO tag{};
  if ((whole.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
    GetFileInformationByHandleEx(file, FileAttributeTagInfo, &tag, sizeof tag);
  const std::uint64_t node = joined(whole.nFileIndexHigh, whole.nFileIndexLow);
  return FileState{kindOfAttributes(whole.dwFileAttributes, tag.ReparseTag),
                   {whole.dwVolumeSerialNumber, node},
                   {joined(whole.nFileSizeHigh, whole.nFileSizeLow), nanosecondsOf(times.LastWriteTime),
                    nanosecondsOf(times.ChangeTime), node}};
}

std::optional<FileState> stateOf(const std::filesystem::path& path, Links links) {
  if (path.empty() || holdsZeroByte(path)) return std::nullopt;
  const Handle file = openToLook(path, links);
  std::optional<FileState> state;
  if (file.isOpen()) state = stateOf(file.get());
  if (!state) {
    const int error = lastError();
    if (!meansMissing(error)) failCall("查看文件", path, error);
  }
  return state;
}

PathKind kindOf(const std::filesystem::path& path, Links links) {
  const auto state = stateOf(path, links);
  return state ? state->kind : PathKind::Nothing;
}

void takePermissions(const std::filesystem::path& /*file*/, const std::filesystem::path& /*from*/) {
  // The folder hands its rights on to every file in it.
}

void dropFile(const std::filesystem::path& path) { DeleteFileW(systemName(path).c_str()); }

std::string nameOfMachine() {
  std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
  DWORD size = static_cast<DWORD>(name.size());
  return GetComputerNameW(name.data(), &size) != 0 ? utf8Of({name.data(), size}) : "";
}

int numberOfProcess() { return static_cast<int>(GetCurrentProcessId()); }

}  // namespace triaxlab

/// In place of the C library's own, which knows no UTF-8: by this function the standard library makes paths of texts,
/// and texts are UTF-8 in this program. A character beyond 16 bits is two here: the first goes for all its bytes but
/// the last, and the second waits in the state for that one.
extern "C" std::size_t mbrtowc(wchar_t* character, const char* text, std::size_t size, std::mbstate_t* state) {
  constexpr auto kNotWhole = static_cast<std::size_t>(-2), kWrong = static_cast<std::size_t>(-1);
  if (text == nullptr) return 0;
  if (size == 0) return kNotWhole;
  if (state != nullptr && *state != 0) {
    if (character != nullptr) *character = static_cast<wchar_t>(std::exchange(*state, 0));
    return 1;
  }
  const auto lead = static_cast<unsigned char>(*text);
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length > size) return kNotWhole;
  std::array<wchar_t, 2> decoded{};
  const int count = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text, static_cast<int>(length), decoded.data(),
                                        static_cast<int>(decoded.size()));
  const bool isPair = length == 4;
  if (count != (isPair ? 2 : 1) || (isPair && state == nullptr)) {
    errno = EILSEQ;
    return kWrong;
  }
  if (character != nullptr) *character = decoded[0];
  if (isPair) *state = decoded[1];
  return decoded[0] == 0 ? 0 : isPair ? length - 1 : length;
}
