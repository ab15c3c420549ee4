#include "store/project/save_project.h"

#include <fmt/core.h>

#include <memory>

#include "store/project/project_save.h"
#include "store/project/triaxial_save.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

/// The texts of the date boxes go into the settings at each save. The samples don't depend on it.
Remarks storeProcessingDate(const Workspace& workspace) {
  try {
    SettingsFile settings = sharedSettings(workspace);
    settings.writeText(kYearField, Trim(workspace.dateText(0)));
    settings.writeText(kMonthField, Trim(workspace.dateText(1)));
    settings.writeText(kDayField, Trim(workspace.dateText(2)));
  } catch (const UserError& error) {
    return {fmt::format("处理日期没有记入设置文件。{}", error.what())};
  }
  return {};
}

bool hasLiveRow(const SampleRows& rows) {
  for (std::size_t row = 0; row < rows.size(); ++row)
    if (rows.isLive(row)) return true;
  return false;
}

std::unique_ptr<ProjectSave> saveOf(Workspace& workspace, ProjectKind kind) {
  if (kind == ProjectKind::Triaxial) return std::make_unique<TriaxialSave>(workspace);
  return std::make_unique<ProjectSave>(workspace, kind);
}

}  // namespace

SaveReport saveProject(Workspace& workspace, ProjectKind kind, const OverwriteChooser& chooseOverwrites,
                       const ChangeQuestion& mayOverwriteChanges) {
  const ProjectKindInfo& info = infoOf(infoOf(kind).documentKind);
  SaveReport report{"保存数据", std::string(info.saveMessage), {}, {}};
  const std::unique_ptr<ProjectSave> save = saveOf(workspace, info.kind);
  if (!hasLiveRow(SampleRows(workspace, info.kind))) {
    save->askOfEmptyTable(chooseOverwrites);
    return report;
  }
  save->begin(chooseOverwrites, {report.title, mayOverwriteChanges});
  report.remarks = storeProcessingDate(workspace);
  save->finish();
  report.errors = save->errors();
  report.remarks.insert(report.remarks.end(), save->remarks().begin(), save->remarks().end());
  return report;
}

}  // namespace triaxlab
