#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "common/progress.h"
#include "importers/importer.h"
#include "platform/dialogs.h"
#include "store/workspace.h"

namespace triaxlab {

/// Asks where a workbook is to go, first under this name in the data folder. The format follows from the extension;
/// a name that has neither gets ".xls". An old workbook of the name is replaced without another question.
std::optional<std::filesystem::path> askForWorkbook(const Workspace& workspace, Dialogs& dialogs,
                                                    std::string_view title, std::string_view defaultName);

/// Writes all tests of a raw database as a workbook; see writeRawTests. UserError when either file fails. Pre:
/// importer.openTests, isWorkbookName(file).
void saveRawWorkbook(const Importer& importer, const std::filesystem::path& database, const std::filesystem::path& file,
                     const Workspace& workspace, const Progress& progress = {});

}  // namespace triaxlab
