#include "sessions/dialogs/workbook_saving.h"

#include "platform/sheet_writer.h"
#include "workbooks/raw_workbook.h"

namespace triaxlab {

std::optional<std::filesystem::path> askForWorkbook(const Workspace& workspace, Dialogs& dialogs,
                                                    std::string_view title, std::string_view defaultName) {
  auto file = dialogs.chooseFileToSave({.title = std::string(title),
                                        .filter = "Log Files (*.xls)|*.xls",
                                        .initial = workspace.dataFolder / defaultName,
                                        .replacesSilently = true});
  if (file && !isWorkbookName(*file)) *file += ".xls";
  return file;
}

void saveRawWorkbook(const Importer& importer, const std::filesystem::path& database, const std::filesystem::path& file,
                     const Workspace& workspace, const Progress& progress) {
  const std::unique_ptr<RawTests> tests = openRawTests(importer, database);
  writeRawTests(
      file, tests->count(), [&tests](std::size_t index) { return tests->test(index); },
      workspace.settings.habits.projectNoLabel, progress);
}

}  // namespace triaxlab
