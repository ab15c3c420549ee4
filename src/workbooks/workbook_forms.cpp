#include "workbooks/workbook_forms.h"

#include <algorithm>
#include <array>

#include "common/gbk.h"

namespace triaxlab {

extern const WorkbookForm kK0Workbook;
extern const WorkbookForm kTK0Workbook;
extern const WorkbookForm kTriaxialWorkbook;
extern const WorkbookForm kUnconfinedWorkbook;

namespace {

constexpr std::array kForms{&kTriaxialWorkbook, &kUnconfinedWorkbook, &kK0Workbook, &kTK0Workbook};

}  // namespace

const WorkbookForm& workbookFormOf(ProjectKind kind) {
  return **std::ranges::find(kForms, infoOf(kind).savedAs, [](const WorkbookForm* form) { return form->tests; });
}

void writeSamples(const Workspace& workspace, const WorkbookForm& form, const std::filesystem::path& file,
                  const Progress& progress) {
  writeWorkbook(file, [&](Workbook& workbook) {
    workbook.addHead(form.title, gbkToUtf8(Trim(workspace.dataOf(form.tests).projectName.text)));
    form.addSamples(workspace, workbook, progress);
  });
}

}  // namespace triaxlab
