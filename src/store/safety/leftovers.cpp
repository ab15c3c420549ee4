#include "store/safety/leftovers.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "common/small_letters.h"
#include "common/user_error.h"
#include "store/project/project_kinds.h"
#include "store/safety/backup.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

/// Under its own word, or without one and in whatever case.
bool isLeftover(const std::string& fileName, const PassingName& name) {
  return isPassing(fileName, name) ||
         caseless(fileName) == caseless(std::string(name.begin).append(name.end.substr(1)));
}

/// A project file on its way from another disk.
bool isArrivingProject(const std::string& fileName) {
  constexpr std::string_view kEnd = ".txt.new";
  const std::string name = caseless(fileName);
  const auto begins = [&name](const ProjectKindInfo& info) { return name.starts_with(caseless(info.filePrefix)); };
  return name.ends_with(kEnd) && std::any_of(kProjectKinds.begin(), kProjectKinds.end(), begins);
}

template <class IsLeftover>
std::vector<fs::path> leftoversIn(const fs::path& folder, IsLeftover isOne) {
  std::vector<fs::path> files;
  for (const std::string& name : listFiles(folder, "", ""))
    if (isOne(name)) files.push_back(folder / pathFromText(name));
  return files;
}

std::vector<fs::path> leftoversOfApplication(const Workspace& workspace) {
  constexpr std::array kNames{kReorderedFile, kUpgradedTriaxialFile, kUpgradedUnconfinedFile};
  return leftoversIn(workspace.applicationFolder, [&kNames](const std::string& file) {
    return std::any_of(kNames.begin(), kNames.end(),
                       [&file](const PassingName& name) { return isLeftover(file, name); });
  });
}

std::vector<fs::path> leftoversOfData(const Workspace& workspace) {
  const fs::path folder = workspace.projectFolder();
  std::vector<fs::path> files = leftoversIn(folder, isArrivingProject);
  const auto isCopy = [](const std::string& name) { return isLeftover(name, kUnfinishedCopy); };
  for (const fs::path& file : leftoversIn(fileOrNew(folder, kBackupFolder), isCopy)) files.push_back(file);
  return files;
}

void removeAll(const std::vector<fs::path>& files) {
  for (const fs::path& file : files) removeLeftBehind(file);
}

}  // namespace

void takeAwayLeftovers(const Workspace& workspace) {
  try {
    removeAll(leftoversOfApplication(workspace));
    if (leftoversOfData(workspace).empty()) return;
    const DataLock lock(workspace.dataFolder, std::chrono::milliseconds(0));
    removeAll(leftoversOfData(workspace));  // one may have been finished before the lock was had
  } catch (const UserError&) {
    // They are in nobody's way; a later start takes them away.
  }
}

}  // namespace triaxlab
