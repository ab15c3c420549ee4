// What stands under a name, and the names in a folder, on POSIX systems.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include "platform/os/posix_calls.h"

namespace triaxlab {
namespace {

/// As readdir tells it: of a link, and where the file system doesn't say, one has to look.
PathKind kindOfEntry(unsigned char type) {
  if (type == DT_DIR) return PathKind::Folder;
  return type == DT_LNK || type == DT_UNKNOWN ? PathKind::Link : PathKind::File;
}

}  // namespace

std::optional<std::string> spelledInFolder(const std::filesystem::path& folder, std::string_view name) {
  std::string spelled(name);
  if (!statusOf(folder / spelled, Links::LookAt)) return std::nullopt;
  return spelled;
}

std::vector<FolderEntry> entriesOf(const std::filesystem::path& folder) {
  std::vector<FolderEntry> entries;
  const std::unique_ptr<DIR, int (*)(DIR*)> open{opendir(folder.c_str()), closedir};
  if (!open) {
    if (!meansMissing(errno)) failCall("查看文件夹", folder, errno);
    return entries;
  }
  for (;;) {
    errno = 0;
    const dirent* const entry = readdir(open.get());
    if (entry == nullptr) break;
    entries.push_back({entry->d_name, kindOfEntry(entry->d_type)});
  }
  if (errno != 0) failCall("查看文件夹", folder, errno);
  return entries;
}

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

}  // namespace triaxlab
