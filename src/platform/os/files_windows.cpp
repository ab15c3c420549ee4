// Files on Windows. A file is open for all: others may read, write, rename and remove it meanwhile, as they may
// everywhere else, and programs that must not do so at once ask for a lock.
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <thread>
#include <utility>
#include <vector>

#include "platform/os/windows_calls.h"
#include "platform/process.h"

namespace triaxlab {
namespace {

struct OpenWay {
  DWORD access, creation, flags;
};

OpenWay wayOf(File::Mode mode) {
  constexpr DWORD kReadAndWrite = GENERIC_READ | GENERIC_WRITE;
  switch (mode) {
    case File::Mode::Read:
      return {GENERIC_READ, OPEN_EXISTING, 0};
    case File::Mode::Update:
      return {kReadAndWrite, OPEN_EXISTING, 0};
    case File::Mode::Create:
      return {kReadAndWrite, OPEN_ALWAYS, FILE_FLAG_OPEN_REPARSE_POINT};  // emptied once it is known to be no link
    case File::Mode::Shared:
      return {kReadAndWrite, OPEN_ALWAYS, 0};
  }
  return {GENERIC_READ, OPEN_EXISTING, 0};
}

/// A call again for a moment: what looks through new files for viruses holds them shortly, with all others kept out.
template <class Call>
bool patiently(Call call) {
  constexpr int kMostTries = 20;
  constexpr std::chrono::milliseconds kPause{10};
  for (int tries = 1;; ++tries) {
    if (call()) return true;
    if (GetLastError() != ERROR_SHARING_VIOLATION || tries == kMostTries) return false;
    Sleep(static_cast<DWORD>(kPause.count()));
  }
}

struct Opened {
  int descriptor = -1;
  int error = 0;
};

Opened refuse(int error) { return {-1, error}; }

/// The number of the C library for the handle, which goes with it.
Opened numberFor(Handle handle) {
  const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle.get()), _O_BINARY | _O_NOINHERIT);
  if (descriptor < 0) return refuse(EMFILE);
  handle.release();
  return {descriptor, 0};
}

bool setSize(HANDLE file, std::uint64_t size) {
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
  return SetFileInformationByHandle(file, FileEndOfFileInfo, &end, sizeof end) != 0;
}

Opened openFile(const std::filesystem::path& path, File::Mode mode, Links links) {
  if (holdsZeroByte(path)) return refuse(ENOENT);
  const OpenWay way = wayOf(mode);
  const DWORD flags = way.flags | (links == Links::LookAt ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
  HANDLE raw = INVALID_HANDLE_VALUE;
  const std::wstring name = systemName(path);
  const bool isOpen = patiently([&] {
    raw = CreateFileW(name.c_str(), way.access, kSharedByAll, nullptr, way.creation, flags, nullptr);
    return raw != INVALID_HANDLE_VALUE;
  });
  if (!isOpen) {
    const int error = lastError();
    return refuse(error == EACCES && folderIsAtHand(path) ? EISDIR : error);
  }
  Handle file(raw);
  const auto state = stateOf(file.get());
  if (!state) return refuse(lastError());
  if (state->kind == PathKind::Link) return refuse(kLinkInTheWay);
  if (state->kind == PathKind::Other) return refuse(kNoPlainFile);
  if (mode == File::Mode::Create && !setSize(file.get(), 0)) return refuse(lastError());
  return numberFor(std::move(file));
}

/// Where a piece is read or written.
OVERLAPPED at(std::uint64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

/// Past this the system has no places.
constexpr auto kBeyondAllFiles = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());

bool canHold(std::uint64_t offset, std::size_t size) {
  if (offset <= kBeyondAllFiles && size <= kBeyondAllFiles - offset) return true;
  SetLastError(ERROR_FILE_TOO_LARGE);
  return false;
}

/// How much of `left` one call takes.
DWORD pieceOf(std::size_t left) {
  constexpr std::size_t kAtOnce = std::size_t{64} << 20;
  return static_cast<DWORD>(std::min(left, kAtOnce));
}

/// The wish to rename over a file that others still have open, as the system since Windows 10 takes it; the compiler's
/// headers don't know it yet.
struct OpenRename {
  DWORD flags = 0x1 | 0x2;  // replace what stands there, also while it is open
  HANDLE root = nullptr;
  DWORD nameBytes = 0;
  wchar_t name[1] = {};
};
constexpr auto kOpenRename = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

bool replaceOpenFile(const std::wstring& from, const std::filesystem::path& to) {
  const Handle file(CreateFileW(from.c_str(), DELETE | SYNCHRONIZE, kSharedByAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!file.isOpen()) return false;
  std::error_code ignored;
  const std::wstring name = systemName(std::filesystem::absolute(to, ignored));
  const std::size_t bytes = name.size() * sizeof(wchar_t);
  std::vector<std::byte> room(sizeof(OpenRename) + bytes);
  auto* const wish = new (room.data()) OpenRename;
  wish->nameBytes = static_cast<DWORD>(bytes);
  std::ranges::copy(name, wish->name);
  return SetFileInformationByHandle(file.get(), kOpenRename, wish, static_cast<DWORD>(room.size())) != 0;
}

/// A name beside the file's own that no other file has.
std::wstring nameBeside(const std::wstring& file) { return file + L"." + wideOf(ownName()); }

/// The last means, for an open file that the system doesn't replace. For a moment nothing has the name; what stood
/// there has the other one then, also when the machine stops at that moment.
bool replaceByWayOfAnotherName(const std::wstring& from, const std::wstring& to) {
  const std::wstring aside = nameBeside(to);
  if (MoveFileExW(to.c_str(), aside.c_str(), MOVEFILE_WRITE_THROUGH) == 0) return false;
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0) {
    DeleteFileW(aside.c_str());
    return true;
  }
  const DWORD why = GetLastError();
  MoveFileExW(aside.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH);
  SetLastError(why);
  return false;
}

/// As everywhere else the new file takes the place of one that others still have open. Systems and file servers that
/// don't know that wish are asked in the older ways.
bool replaceFile(const std::wstring& from, const std::wstring& to) {
  if (replaceOpenFile(from, to)) return true;
  if (GetLastError() == ERROR_NOT_SAME_DEVICE) return false;
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) return true;
  const DWORD why = GetLastError();
  if (why != ERROR_ACCESS_DENIED && why != ERROR_SHARING_VIOLATION) return false;
  // Not by ReplaceFile: where it fails, it may have renamed one of the two before.
  if ((GetFileAttributesW(to.c_str()) & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) == 0)
    return replaceByWayOfAnotherName(from, to);
  SetLastError(why);
  return false;
}

/// As everywhere else a name that is removed is free at once, though others have the file open. By itself the system,
/// and above all a file server, may keep it until the last of them is done, this program with its lock among them.
bool removeName(const std::wstring& name) {
  constexpr DWORD kGone = FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT;
  if (Handle(CreateFileW(name.c_str(), DELETE, 0, nullptr, OPEN_EXISTING, kGone, nullptr)).isOpen()) return true;
  if (GetLastError() != ERROR_SHARING_VIOLATION) return false;
  const std::wstring aside = nameBeside(name);
  return MoveFileExW(name.c_str(), aside.c_str(), MOVEFILE_WRITE_THROUGH) != 0 && DeleteFileW(aside.c_str()) != 0;
}

}  // namespace

File::File(const std::filesystem::path& path, Mode mode, std::filesystem::path knownAs) : m_path(std::move(knownAs)) {
  const Opened opened = openFile(path, mode, Links::Follow);
  if (opened.descriptor < 0) failCall("打开文件", m_path, opened.error);
  m_descriptor = opened.descriptor;
}

File File::below(const std::filesystem::path& root, std::filesystem::path path, Mode mode) {
  const std::filesystem::path way = path.lexically_relative(root);
  if (way.empty() || *way.begin() == ".." || way == ".") failCall("打开文件", path, EXDEV);
  std::filesystem::path place = root;
  for (const std::filesystem::path& part : way.parent_path())
    if (kindOf(place /= part, Links::LookAt) == PathKind::Link) failCall("打开文件", path, kLinkInTheWay);
  const Opened opened = openFile(path, mode, Links::LookAt);
  if (opened.descriptor < 0) failCall("打开文件", path, opened.error);
  return {std::move(path), opened.descriptor};
}

File::File(std::filesystem::path path, int descriptor) : m_path(std::move(path)), m_descriptor(descriptor) {}

File::~File() {
  if (m_descriptor >= 0) _close(m_descriptor);
}

std::uint64_t File::size() const {
  LARGE_INTEGER size{};
  if (GetFileSizeEx(handleOf(m_descriptor), &size) == 0) failCall("读取文件", m_path, lastError());
  return static_cast<std::uint64_t>(size.QuadPart);
}

FileStamp File::stamp() const {
  const auto state = stateOf(handleOf(m_descriptor));
  if (!state) failCall("读取文件", m_path, lastError());
  return state->stamp;
}

std::size_t File::readAt(std::uint64_t offset, std::span<std::byte> into) const {
  if (!canHold(offset, into.size())) failCall("读取文件", m_path, lastError());
  std::size_t done = 0;
  while (done < into.size()) {
    OVERLAPPED place = at(offset + done);
    DWORD got = 0;
    if (ReadFile(handleOf(m_descriptor), into.data() + done, pieceOf(into.size() - done), &got, &place) == 0 &&
        GetLastError() != ERROR_HANDLE_EOF)
      failCall("读取文件", m_path, lastError());
    if (got == 0) break;
    done += got;
  }
  return done;
}

void File::writeAt(std::uint64_t offset, std::span<const std::byte> from) {
  if (!canHold(offset, from.size())) failCall("写入文件", m_path, lastError());
  std::size_t done = 0;
  while (done < from.size()) {
    OVERLAPPED place = at(offset + done);
    DWORD put = 0;
    if (WriteFile(handleOf(m_descriptor), from.data() + done, pieceOf(from.size() - done), &put, &place) == 0)
      failCall("写入文件", m_path, lastError());
    done += put;
  }
}

void File::resize(std::uint64_t size) {
  if (!canHold(size, 0) || !setSize(handleOf(m_descriptor), size)) failCall("写入文件", m_path, lastError());
}

bool File::shareContentOf(const File& /*from*/) { return false; }

void File::copyContentOf(const File& from) {
  std::uint64_t done = 0;
  Bytes block(std::size_t{1} << 20);
  while (const std::size_t got = from.readAt(done, block)) {
    writeAt(done, std::span(block).first(got));
    done += got;
  }
}

void File::sync() {
  if (FlushFileBuffers(handleOf(m_descriptor)) == 0) failCall("写入文件", m_path, lastError());
}

std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder) {
  ULARGE_INTEGER space{};
  if (GetDiskFreeSpaceExW(systemName(folder).c_str(), &space, nullptr, nullptr) == 0) return std::nullopt;
  return space.QuadPart;
}

bool renameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
  const std::wstring source = systemName(from), target = systemName(to);
  if (patiently([&] { return replaceFile(source, target); })) return true;
  if (const int error = lastError(); error != EXDEV) failCall("写入文件", to, error);
  return false;
}

void removeFile(const std::filesystem::path& path) {
  const std::wstring name = systemName(path);
  if (patiently([&] { return removeName(name); })) return;
  if (const int error = lastError(); !meansMissing(error)) failCall("删除文件", path, error);
}

// The names in a folder are durable by themselves.
void syncFolder(const std::filesystem::path& folder) {
  if (!folder.empty() && !folderExists(folder)) failCall("打开文件夹", folder, ENOENT);
}

std::filesystem::path pathFromText(std::string_view utf8) {
  std::filesystem::path path(utf8);
  // "D:" by itself would be whatever folder of that drive a program has last been in.
  if (path.has_root_name() && path == path.root_name()) path /= "/";
  return path.make_preferred();
}

std::string textOfPath(const std::filesystem::path& path) {
  return std::filesystem::path(path).make_preferred().string();
}

}  // namespace triaxlab
