#include "shell/start_up.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/files.h"
#include "platform/folders.h"
#include "shell/demonstration.h"
#include "store/safety/file_update.h"
#include "store/safety/leftovers.h"
#include "store/safety/save_recovery.h"
#include "store/settings/data_folder.h"
#include "store/settings/source_folders.h"
#include "store/settings/text_settings.h"
#include "store/settings/toggles.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

/// What `sourceFolder` holds until an importer opens: the folder of the QVB98 triaxial data.
constexpr const SourceFolder& kFirstSourceFolder = sourceFolderOf(3);

void append(Remarks& remarks, const Remarks& more) { remarks.insert(remarks.end(), more.begin(), more.end()); }

/// Stores the application folder as the data folder of a new settings file.
void storeFirstDataFolder(const Workspace& workspace, Remarks& remarks) {
  if (!isStorableDataFolder(workspace.applicationFolder)) {
    remarks.push_back(fmt::format("文件夹“{}”的名称太长或含有 GBK 以外的字符，不能存入设置文件，本次运行用它存放数据。",
                                  textOfPath(workspace.applicationFolder)));
    return;
  }
  try {
    storeDataFolder(workspace, workspace.applicationFolder);
  } catch (const UserError& error) {
    remarks.push_back(fmt::format("{}设置不能保存，本次按默认设置运行。", error.what()));
  }
}

/// Finds out the data folder. A settings file that can't be read is no new one: it may name another folder than this,
/// and what was saved here would be gone from sight with the next start.
void findDataFolder(Workspace& workspace, Remarks& remarks) {
  workspace.dataFolder.clear();
  workspace.dataFolderProblem.clear();
  try {
    const std::optional<std::string> stored = storedDataFolder(workspace);
    if (!stored) storeFirstDataFolder(workspace, remarks);
    workspace.dataFolder = dataFolderNamed(workspace, stored.value_or(""));
  } catch (const UserError& error) {
    workspace.dataFolderProblem = fmt::format(
        "{}不知道数据放在哪个文件夹：本次运行不能打开和保存工程，设置文件没有改动。请排除故障后重新启动程序。",
        error.what());
    remarks.push_back(workspace.dataFolderProblem);
  }
}

/// Takes a step of the start. What fails in it is told, unless a remark tells of it already, and the start goes on.
template <class Step>
void attempt(Remarks& remarks, Step step) {
  try {
    step();
  } catch (const UserError& error) {
    const std::string_view sentence = error.what();
    if (std::none_of(remarks.begin(), remarks.end(),
                     [&](const std::string& told) { return told.starts_with(sentence); }))
      remarks.emplace_back(sentence);
  }
}

/// An installation that a laboratory carries about, on a stick or a share, together with its settings.
bool isPortable(const fs::path& programs) { return findFile(programs, "qvb.sys") || findFile(programs, ".portable"); }

bool takesSettings(const ProgramParts& parts) {
  return (!parts.isInstalled || isPortable(parts.programs)) && folderIsWritable(parts.programs);
}

}  // namespace

fs::path userDataFolder() {
  const fs::path personal = personalDataFolder();
  return personal.empty() ? personal : personal / "triaxlab";
}

std::optional<fs::path> namedApplicationFolder(const std::optional<fs::path>& option) {
  if (option) return option;
  const fs::path variable = folderNamedBy("TRIAXLAB_APP");
  return variable.empty() ? std::nullopt : std::optional(variable);
}

fs::path chooseApplicationFolder(const std::optional<fs::path>& named, const ProgramParts& parts,
                                 const fs::path& userData) {
  std::error_code ignored;  // what can't be made is told when the settings can't be written
  fs::path folder = parts.programs;
  if (named) {
    folder = *named;
  } else if (!takesSettings(parts)) {
    if (userData.empty())
      throw UserError(
          fmt::format("不知道设置和数据放在哪里：环境变量 {} 没有设置。请用 --app 或 TRIAXLAB_APP 指定文件夹。",
                      personalDataVariable()));
    folder = userData;
    fs::create_directories(folder, ignored);
  }
  folder = fs::absolute(folder, ignored).lexically_normal();
  return folder.has_filename() ? folder : folder.parent_path();  // "/lab/" names the folder "/lab"
}

std::optional<Remarks> startUp(Workspace& workspace, const InstanceCheck& isOnlyInstance) {
  Remarks remarks;
  findDataFolder(workspace, remarks);
  append(remarks, ReadIniSettings(workspace));
  workspace.processingDate = {};
  // Folders that can't be made are passed over: the saves will tell.
  attempt(remarks, [&] { makeFolder(workspace.summaryFolder()); });
  attempt(remarks, [&] { makeFolder(workspace.pictureFolder()); });
  attempt(remarks, [&] { readToggles(workspace); });
  if (!isOnlyInstance()) return std::nullopt;

  workspace.sourceFolder.clear();
  attempt(remarks, [&] { workspace.sourceFolder = storedSourceFolder(workspace, kFirstSourceFolder); });
  if (workspace.sourceFolder.empty()) workspace.sourceFolder = kUsualSourceFolder;
  attempt(remarks, [&] { makeFolder(workspace.projectFolder()); });
  // Completes or drops the save during which the program was killed.
  attempt(remarks, [&] { append(remarks, FileUpdate::recover(workspace.knownDataFolder())); });
  if (workspace.dataFolderProblem.empty()) takeAwayLeftovers(workspace);
  for (const SourceFolder& folder : kSourceFolders) {
    if (folder.inUse == nullptr) continue;
    workspace.*folder.inUse = textOfPath(workspace.applicationFolder);
    attempt(remarks, [&] { takeSourceFolderIntoUse(workspace, folder); });
  }
  return remarks;
}

Remarks startWarnings(const Workspace& workspace) {
  Remarks warnings;
  if (isDemonstration(workspace.applicationFolder))
    warnings.push_back(fmt::format("这是演示：里面的试样都是编出来的，放在“{}”里，可以随意改动；实验室的文件不受影响。",
                                   textOfPath(workspace.applicationFolder)));
  if (!workspace.dataFolderProblem.empty()) return warnings;  // which is told as such
  const std::string data = textOfPath(workspace.dataFolder);
  if (!folderIsAtHand(workspace.dataFolder))
    warnings.push_back(
        fmt::format("数据文件夹“{}”不在：工程列表是空的，也不能保存。请接好移动硬盘或网络盘，"
                    "或者在 设置 → 实验室习惯 里另选数据文件夹。",
                    data));
  if (workspace.dataFolder == workspace.applicationFolder) return warnings;
  attempt(warnings, [&] {
    const fs::path beside = fileOrNew(workspace.applicationFolder, "HSZS");
    if (!listFiles(beside, "", ".txt").empty())
      warnings.push_back(fmt::format("程序旁边的文件夹“{}”里有工程文件，而现在使用的数据在“{}”里：那些工程不会列出。",
                                     textOfPath(beside), data));
  });
  return warnings;
}

Remarks lookAtDataFolder(Workspace& workspace, const fs::path& dataFolder) {
  if (!folderExists(dataFolder)) throw UserError(fmt::format("没有文件夹“{}”。", textOfPath(dataFolder)));
  workspace.applicationFolder.clear();
  workspace.dataFolder = fs::absolute(dataFolder);
  workspace.dataFolderProblem.clear();
  if (!mayHoldRemains(workspace.dataFolder)) return {};
  return {fmt::format("文件夹“{}”里有一次没有完成或正在进行的保存，读到的可能是保存之前的内容。",
                      textOfPath(workspace.dataFolder))};
}

Remarks startUp(Workspace& workspace) {
  return startUp(workspace, [] { return true; }).value_or(Remarks{});
}

}  // namespace triaxlab
