#include "shell/data_folder_change.h"

#include "platform/files.h"
#include "store/project/project_kinds.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"
#include "store/safety/file_update.h"
#include "store/safety/leftovers.h"
#include "store/settings/data_folder.h"

namespace triaxlab {
namespace {

/// No state of a file that exists.
constexpr FileStamp kOtherState{};

void distrustFilesOfTables(Workspace& workspace) {
  for (const ProjectKindInfo& info : kProjectKinds) {
    if (info.makeSave == nullptr) continue;
    const SampleRows rows(workspace, info.kind);
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (!rows.isLive(row) || whyNoFileName(rows.projectNo(row))) continue;
      const auto file = findFile(workspace.projectFolder(), projectFileName(info.filePrefix, rows.projectNo(row)));
      if (file) workspace.fileMemory.remember(FileUse::Document, *file, kOtherState);
    }
  }
}

}  // namespace

Remarks changeDataFolder(Workspace& workspace, const std::filesystem::path& folder) {
  // What isn't known can't be left: the settings that can't be read may name another folder.
  workspace.knownDataFolder();
  makeDataFolders(folder);
  storeDataFolder(workspace, folder);
  workspace.dataFolder = folder;
  Remarks remarks = FileUpdate::recover(folder, workspace.lockPatience);
  takeAwayLeftovers(workspace);
  distrustFilesOfTables(workspace);
  return remarks;
}

}  // namespace triaxlab
