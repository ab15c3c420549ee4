#include "store/safety/backup.h"

#include <fmt/chrono.h>
#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <ctime>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/small_letters.h"
#include "platform/files.h"
#include "store/project/project_number.h"
#include "store/safety/leftovers.h"
#include "store/safety/passing_file.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTimePattern = "00000000-000000-000000";  // a digit for each 0
constexpr std::size_t kExtensionSize = 4;                            // ".txt", in whatever case

std::string timeText(std::chrono::system_clock::time_point time) {
  using namespace std::chrono;
  const auto second = floor<seconds>(time);
  return fmt::format("{:%Y%m%d-%H%M%S}-{:06}", fmt::localtime(system_clock::to_time_t(second)),
                     duration_cast<microseconds>(time - second).count());
}

/// A copy as its name tells it.
struct Copy {
  std::string name;
  std::string project;  // file name, caseless
  std::string time;
};

bool isTimeText(std::string_view text) {
  return text.size() == kTimePattern.size() &&
         std::equal(text.begin(), text.end(), kTimePattern.begin(),
                    [](char c, char pattern) { return pattern == '0' ? c >= '0' && c <= '9' : c == pattern; });
}

/// Nothing for a name that isn't one of ours.
std::optional<Copy> copyOfName(const std::string& name) {
  if (name.size() < kTimePattern.size() + 1 + kExtensionSize) return std::nullopt;
  const std::size_t extension = name.size() - kExtensionSize, time = extension - kTimePattern.size();
  const std::string_view timePart = std::string_view(name).substr(time, kTimePattern.size());
  if (name[time - 1] != '_' || !isTimeText(timePart)) return std::nullopt;
  return Copy{name, caseless(name.substr(0, time - 1) + name.substr(extension)), std::string(timePart)};
}

/// A name that sorts behind those of the same project but for a clock that was set back, and that no file has.
std::string newName(const fs::path& folder, const std::string& project) {
  auto time = std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
  const std::size_t extension = project.size() - std::min(project.size(), kExtensionSize);
  std::string name;
  do {
    name = project.substr(0, extension) + '_' + timeText(time) + project.substr(extension);
    time += std::chrono::microseconds(1);
  } while (findFile(folder, name));
  return name;
}

fs::path backupFolderBeside(const fs::path& dataFolder, const fs::path& file) {
  fs::path folder = fileOrNew(file.parent_path(), kBackupFolder);
  refuseLinks(dataFolder, folder);
  if (folderExists(folder)) return folder;
  if (!makeFolder(folder)) throw UserError(fmt::format("不能建立文件夹“{}”。", textOfPath(folder)));
  syncFolder(file.parent_path());
  return folder;
}

void copyInto(PassingFile& unfinished, const fs::path& file, std::uint64_t room) {
  const File original(file, File::Mode::Read);
  const std::uint64_t size = original.size();
  if (size > kLargestBackups) throw UserError(fmt::format("它有 {} 字节，大于全部备份的上限。", size));
  const std::optional<std::uint64_t> space = freeSpace(file.parent_path());
  const auto requireSpace = [space](std::uint64_t needed) {
    if (space && *space < needed) throw UserError("磁盘的剩余空间只够保存本身。");
  };
  // Also shared blocks take space of their own as soon as the save writes over them.
  requireSpace(room);
  File copy = unfinished.make();
  if (!copy.shareContentOf(original)) {
    requireSpace(room + size);
    copy.copyContentOf(original);
  }
  copy.sync();
}

/// Makes a copy, whole and on the disk, and returns its name.
std::string makeCopy(const fs::path& folder, const fs::path& file, std::uint64_t room) {
  PassingFile unfinished(folder, kUnfinishedCopy);
  copyInto(unfinished, file, room);
  std::string name = newName(folder, textOfPath(file.filename()));
  renameFile(unfinished.path(), folder / name);
  unfinished.leave();
  syncFolder(folder);
  return name;
}

/// The copies that are there, `newest` first, whatever the clock says, and then by age.
std::vector<Copy> copiesIn(const fs::path& folder, const std::string& newest) {
  std::vector<Copy> copies;
  for (const std::string& name : listFiles(folder, "", ""))
    if (std::optional<Copy> copy = copyOfName(name)) copies.push_back(std::move(*copy));
  std::sort(copies.begin(), copies.end(), [&newest](const Copy& a, const Copy& b) {
    if ((a.name == newest) != (b.name == newest)) return a.name == newest;
    return a.time != b.time ? a.time > b.time : a.name < b.name;
  });
  return copies;
}

bool holdTheSame(const File& a, const File& b) {
  if (a.size() != b.size()) return false;
  constexpr std::size_t kAtOnce = std::size_t{1} << 18;
  Bytes fromA(kAtOnce), fromB(kAtOnce);
  for (std::uint64_t done = 0;;) {
    const std::size_t got = a.readAt(done, fromA);
    if (b.readAt(done, fromB) != got || std::memcmp(fromA.data(), fromB.data(), got) != 0) return false;
    if (got < kAtOnce) return true;
    done += got;
  }
}

/// A copy of what is there already would push out an older state, and many of them all.
bool newestCopyIs(const fs::path& folder, const fs::path& file) {
  const std::string project = caseless(textOfPath(file.filename()));
  try {
    for (const Copy& copy : copiesIn(folder, ""))
      if (copy.project == project)
        return holdTheSame(File(folder / copy.name, File::Mode::Read), File(file, File::Mode::Read));
  } catch (const UserError&) {
    // A copy that can't be read is none.
  }
  return false;
}

void dropTooManyCopies(const fs::path& folder, const std::string& newest) {
  std::map<std::string, std::size_t> countOfProject;
  std::uint64_t total = 0;
  for (const Copy& copy : copiesIn(folder, newest)) {
    const fs::path path = folder / copy.name;
    const std::optional<FileStamp> stamp = stampOf(path);
    if (!stamp) continue;
    const bool isOneTooMany = countOfProject[copy.project]++ >= kMostBackupsOfAProject;
    if (!isOneTooMany) total += stamp->size;
    std::error_code ignored;  // one that can't be removed is tried again behind the next copy
    if (isOneTooMany || total > kLargestBackups) fs::remove(path, ignored);
  }
}

/// Where the copies can't be looked at, the next one tries again; this one is made.
void dropOldCopies(const fs::path& folder, const std::string& newest) {
  try {
    dropTooManyCopies(folder, newest);
  } catch (const UserError&) {
  }
}

}  // namespace

Remarks keepCopy(Workspace& workspace, const fs::path& file, std::uint64_t room, CopyOf states) {
  const std::optional<FileStamp> stamp = stampOf(file);
  if (!stamp) return {};
  if (states == CopyOf::OthersStates && workspace.fileMemory.hasCopy(file, *stamp)) return {};
  try {
    const fs::path folder = backupFolderBeside(workspace.dataFolder, file);
    if (!newestCopyIs(folder, file)) dropOldCopies(folder, makeCopy(folder, file, room));
    workspace.fileMemory.noteCopy(file, *stamp);
  } catch (const UserError& cause) {
    return {fmt::format("文件“{}”改动之前没有留下备份。{}", textOfPath(file), cause.what())};
  }
  return {};
}

std::vector<BackupCopy> copiesOf(const fs::path& file) {
  const std::string project = caseless(textOfPath(file.filename()));
  std::vector<BackupCopy> copies;
  for (const Copy& copy : copiesIn(copyPath(file, ""), "")) {
    if (copy.project != project) continue;
    const std::string_view t = copy.time;  // kTimePattern
    copies.push_back({copy.name, fmt::format("{}-{}-{} {}:{}:{}", t.substr(0, 4), t.substr(4, 2), t.substr(6, 2),
                                             t.substr(9, 2), t.substr(11, 2), t.substr(13, 2))});
  }
  return copies;
}

fs::path copyPath(const fs::path& file, std::string_view copyName) {
  const fs::path folder = fileOrNew(file.parent_path(), kBackupFolder);
  return copyName.empty() ? folder : fileOrNew(folder, copyName);
}

}  // namespace triaxlab
