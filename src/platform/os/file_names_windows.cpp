// What stands under a name, and the names in a folder, on Windows.
#include <memory>

#include "platform/os/windows_calls.h"

namespace triaxlab {
namespace {

PathKind kindOfEntry(const WIN32_FIND_DATAW& entry) {
  if ((entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return PathKind::Link;  // one has to look
  return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Folder : PathKind::File;
}

}  // namespace

std::optional<std::string> spelledInFolder(const std::filesystem::path& folder, std::string_view name) {
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(systemName(folder / std::string(name)).c_str(), &entry);
  if (search != INVALID_HANDLE_VALUE) {
    FindClose(search);
    return utf8Of(entry.cFileName);
  }
  if (const int error = lastError(); !meansMissing(error)) failCall("查看文件", folder / std::string(name), error);
  return std::nullopt;
}

std::vector<FolderEntry> entriesOf(const std::filesystem::path& folder) {
  std::vector<FolderEntry> entries;
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileExW(systemName(folder.empty() ? "*" : folder / "*").c_str(), FindExInfoBasic,
                                         &entry, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
  if (search == INVALID_HANDLE_VALUE) {
    const int error = lastError();
    if (!meansMissing(error)) failCall("查看文件夹", folder, error);
    return entries;
  }
  const std::unique_ptr<void, decltype(&FindClose)> open(search, &FindClose);
  do {
    const std::wstring_view name(entry.cFileName);
    if (name != L"." && name != L"..") entries.push_back({utf8Of(name), kindOfEntry(entry)});
  } while (FindNextFileW(search, &entry) != 0);
  if (GetLastError() != ERROR_NO_MORE_FILES) failCall("查看文件夹", folder, lastError());
  return entries;
}

bool folderIsAtHand(const std::filesystem::path& path) {
  const DWORD attributes = GetFileAttributesW(systemName(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<FileStamp> stampOf(const std::filesystem::path& path) {
  const auto state = stateOf(path);
  if (!state || state->kind == PathKind::Folder) return std::nullopt;
  return state->stamp;
}

bool folderIsWritable(const std::filesystem::path& folder) {
  if (!folderExists(folder)) return false;
  const Handle open(CreateFileW(systemName(folder).c_str(), FILE_ADD_FILE, kSharedByAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (open.isOpen()) return true;
  const int error = lastError();
  if (error != EACCES && error != EROFS && !meansMissing(error)) failCall("查看文件夹", folder, error);
  return false;
}

bool makeFolder(const std::filesystem::path& folder) {
  return CreateDirectoryW(systemName(folder).c_str(), nullptr) != 0 || folderIsAtHand(folder);
}

std::filesystem::path behindLinks(const std::filesystem::path& path) {
  if (!stateOf(path)) return path;
  const Handle open = openToLook(path, Links::Follow);
  std::wstring name(32768, L'\0');  // the longest that there is
  DWORD size =
      open.isOpen() ? GetFinalPathNameByHandleW(open.get(), name.data(), static_cast<DWORD>(name.size()), 0) : 0;
  if (size == 0 || size >= name.size()) failCall("查看文件", path, lastError());
  name.resize(size);
  constexpr std::wstring_view kLocal = LR"(\\?\)", kShare = LR"(\\?\UNC\)";
  if (name.starts_with(kShare)) return LR"(\\)" + name.substr(kShare.size());
  return name.starts_with(kLocal) ? name.substr(kLocal.size()) : name;
}

}  // namespace triaxlab
