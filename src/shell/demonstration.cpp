#include "shell/demonstration.h"

#include <fmt/ranges.h>

#include <array>
#include <numeric>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "common/user_error.h"
#include "importers/importer.h"
#include "platform/files.h"
#include "sessions/dialogs/import_selection.h"
#include "shell/document_operations.h"
#include "shell/recent_projects.h"
#include "shell/start_up.h"
#include "store/project/project_kinds.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolder = "demonstration";
constexpr const char* kRawData = "raw";
/// The settlement-time series have files of the same names as the other K0 tests, and so a folder of their own.
constexpr std::int16_t kSettlementSource = 8;
constexpr const char* kSettlementFolder = "tk0";
/// One source for each kind of test.
constexpr std::array<std::string_view, 4> kImported{"tk0-hgj", "k0-hgj", "unconfined-kzj", "auto"};

void copyMissing(const fs::path& databases, const fs::path& to) {
  if (!folderExists(databases))
    throw UserError(fmt::format("没有演示数据的文件夹“{}”，请重新安装。", textOfPath(databases)));
  std::error_code error;
  fs::create_directories(to, error);
  if (!error) fs::copy(databases, to, fs::copy_options::recursive | fs::copy_options::skip_existing, error);
  if (error) throw UserError(fmt::format("演示数据不能复制到“{}”：{}。", textOfPath(to), error.message()));
}

void setSourceFolders(Workspace& workspace, const fs::path& raw) {
  for (const SourceFolder& source : kSourceFolders)
    if (storedSourceFolder(workspace, source).empty())
      storeSourceFolder(workspace, source,
                        textOfPath(source.kind == kSettlementSource ? raw / kSettlementFolder : raw));
}

void importAndSave(Workspace& workspace, const Importer& importer) {
  workspace.sourceFolder = importFolder(importer, workspace);
  const auto database = findFile(pathFromText(workspace.sourceFolder), importer.defaultFile);
  if (!database) return;
  const auto source = openRawSource(importer, *database);
  std::vector<std::size_t> rows(source->rows().size());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  source->read(rows, workspace, {});
  const DocumentKind& document = documentKindOf(importer.document);
  importedDocument(workspace, document);
  const SaveReport report = saveDocument(workspace, document, [](Workspace&, const auto&) { return true; });
  if (const auto failures = report.failures(); !failures.empty())
    throw UserError(fmt::format("{}", fmt::join(failures, "\n")));
}

bool hasProjects(const Workspace& workspace, ProjectKind tests) {
  return !listFiles(workspace.projectFolder(), infoOf(tests).filePrefix, ".txt").empty();
}

}  // namespace

fs::path demonstrationFolder(const fs::path& applicationFolder) { return applicationFolder / kFolder; }

bool isDemonstration(const fs::path& applicationFolder) { return applicationFolder.filename() == kFolder; }

void prepareDemonstration(const fs::path& folder, const fs::path& databases) {
  copyMissing(databases, folder / kRawData);
  Workspace workspace;
  workspace.applicationFolder = folder;
  startUp(workspace);
  setSourceFolders(workspace, folder / kRawData);
  RecentProjects recent(folder);
  for (const std::string_view source : kImported) {
    const Importer& importer = *importerOfId(source);
    const ProjectKind tests = documentKindOf(importer.document).tests;
    if (hasProjects(workspace, tests)) continue;
    importAndSave(workspace, importer);
    recent.noteSaved(workspace, tests);
  }
}

}  // namespace triaxlab
