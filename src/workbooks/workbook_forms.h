#pragma once

#include <string_view>

#include "common/progress.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"
#include "workbooks/workbook.h"

namespace triaxlab {

/// Title of what is said when a workbook stands.
inline constexpr std::string_view kWorkbookDoneTitle = "保存数据为Excel";
inline constexpr std::string_view kTriaxialWorkbookDone = "三轴试验数据保存完毕";

/// The workbook of a kind of test.
struct WorkbookForm {
  ProjectKind tests;
  std::string_view question;     // title of the dialog that asks for the file
  std::string_view defaultName;  // of the file, without extension
  std::string_view done;         // what is said when it stands
  std::string_view title;        // in its first row
  /// Adds a block for each sample of the table, a step of progress each.
  void (*addSamples)(const Workspace& workspace, Workbook& workbook, const Progress& progress);
};

/// The form of the tests of a kind of project file.
const WorkbookForm& workbookFormOf(ProjectKind kind);

/// Writes the table of a kind of test as it stands; see writeWorkbook.
void writeSamples(const Workspace& workspace, const WorkbookForm& form, const std::filesystem::path& file,
                  const Progress& progress = {});

}  // namespace triaxlab
