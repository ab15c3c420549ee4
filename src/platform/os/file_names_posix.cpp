// What stands under a name, and the names in a folder, on POSIX systems.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <utility>

#include "common/small_letters.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/os/posix_calls.h"

namespace triaxlab {
namespace {

bool comesBefore(const std::string& a, const std::string& b) {
  const std::string lowA = caseless(a), lowB = caseless(b);
  return lowA != lowB ? lowA < lowB : a < b;
}

bool isFolder(const std::optional<struct stat>& status) { return status && S_ISDIR(status->st_mode); }

struct Entry {
  std::string name;
  unsigned char kind;  // as readdir tells it: DT_UNKNOWN where the file system doesn't say
};

/// What is in a folder, in no order; nothing when there is no such folder.
std::vector<Entry> entriesOf(const std::filesystem::path& folder) {
  std::vector<Entry> entries;
  const std::unique_ptr<DIR, int (*)(DIR*)> open{opendir(folder.c_str()), closedir};
  if (!open) {
    if (!meansMissing(errno)) failCall("查看文件夹", folder, errno);
    return entries;
  }
  for (;;) {
    errno = 0;
    const dirent* const entry = readdir(open.get());
    if (entry == nullptr) break;
    entries.push_back({entry->d_name, entry->d_type});
  }
  if (errno != 0) failCall("查看文件夹", folder, errno);
  return entries;
}

/// Whether an entry is a folder or leads to one; nothing for a link that leads nowhere. What can't be looked at stands
/// there all the same: it is no folder, and whoever opens it hears why.
std::optional<bool> leadsToFolder(const std::filesystem::path& folder, const Entry& entry) {
  if (entry.kind == DT_DIR) return true;
  if (entry.kind != DT_LNK && entry.kind != DT_UNKNOWN) return false;
  struct stat status {};
  if (fstatat(AT_FDCWD, (folder / entry.name).c_str(), &status, 0) == 0) return S_ISDIR(status.st_mode);
  if (meansMissing(errno)) return std::nullopt;
  return false;
}

}  // namespace

bool fileExists(const std::filesystem::path& path) {
  const auto status = statusOf(path);
  return status && !S_ISDIR(status->st_mode);
}

bool folderExists(const std::filesystem::path& path) { return isFolder(statusOf(path)); }

bool folderIsAtHand(const std::filesystem::path& path) {
  struct stat status {};
  return fstatat(AT_FDCWD, path.c_str(), &status, 0) == 0 && S_ISDIR(status.st_mode);
}

std::optional<FileStamp> stampOf(const std::filesystem::path& path) {
  const auto status = statusOf(path);
  if (!status || S_ISDIR(status->st_mode)) return std::nullopt;
  return stampOfStatus(*status);
}

bool folderIsWritable(const std::filesystem::path& folder) {
  constexpr std::array kNo{ENOENT, ENOTDIR, EACCES, EPERM, EROFS};
  if (faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0) return true;
  if (std::find(kNo.begin(), kNo.end(), errno) == kNo.end()) failCall("查看文件夹", folder, errno);
  return false;
}

bool makeFolder(const std::filesystem::path& folder) {
  return mkdir(folder.c_str(), 0777) == 0 || (errno == EEXIST && folderIsAtHand(folder));
}

std::optional<std::filesystem::path> findFile(const std::filesystem::path& folder, std::string_view name) {
  if (name.empty() || name == "." || name == ".." ||
      name.find_first_of(std::string_view("/\0", 2)) != std::string_view::npos)
    return std::nullopt;
  std::filesystem::path asSpelled = folder / std::string(name);
  if (statusOf(asSpelled, Links::LookAt)) return asSpelled;
  const std::string wanted = caseless(name);
  std::optional<std::string> first;
  for (Entry& candidate : entriesOf(folder))
    if (caseless(candidate.name) == wanted && (!first || candidate.name < *first)) first = std::move(candidate.name);
  if (!first) return std::nullopt;
  return folder / *first;
}

std::filesystem::path fileOrNew(const std::filesystem::path& folder, std::string_view name) {
  return findFile(folder, name).value_or(folder / std::string(name));
}

std::vector<std::string> listFiles(const std::filesystem::path& folder, std::string_view prefix,
                                   std::string_view suffix) {
  const std::string begin = caseless(prefix), end = caseless(suffix);
  std::vector<std::string> names;
  for (Entry& entry : entriesOf(folder)) {
    const std::string low = caseless(entry.name);
    if (low.size() >= begin.size() + end.size() && low.starts_with(begin) && low.ends_with(end) &&
        leadsToFolder(folder, entry) == false)
      names.push_back(std::move(entry.name));
  }
  std::sort(names.begin(), names.end(), comesBefore);
  return names;
}

std::vector<std::string> listFolders(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (Entry& entry : entriesOf(folder))
    if (!entry.name.starts_with('.') && leadsToFolder(folder, entry) == true) names.push_back(std::move(entry.name));
  std::sort(names.begin(), names.end(), comesBefore);
  return names;
}

}  // namespace triaxlab
