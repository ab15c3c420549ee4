#include "store/project/save_project.h"

#include <fmt/core.h>

#include <array>
#include <memory>

#include "store/project/project_save.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

constexpr std::array kBoxFields{kYearField, kMonthField, kDayField};

/// What a box of the document window holds, GBK: the text last typed, else the part of the processing date or, in the
/// windows whose boxes sign the report, the name that the settings remember.
std::string boxText(const Workspace& workspace, const ProjectKindInfo& info, const SettingsFile& settings,
                    std::size_t box) {
  if (info.boxesHoldDate) return workspace.dateText(box);
  return workspace.dataOf(info.kind).typedDateTexts.at(box).value_or(settings.readText(kBoxFields.at(box)));
}

/// The texts of the boxes go into the settings behind each save. The samples don't depend on it.
Remarks storeBoxTexts(const Workspace& workspace, const ProjectKindInfo& info) {
  try {
    SettingsFile settings = sharedSettings(workspace);
    for (std::size_t box = 0; box < kBoxFields.size(); ++box)
      settings.writeText(kBoxFields.at(box), Trim(boxText(workspace, info, settings, box)));
  } catch (const UserError& error) {
    return {fmt::format("日期（签名）栏的三个文本没有记入设置文件。{}", error.what())};
  }
  return {};
}

bool hasLiveRow(const SampleRows& rows) {
  for (std::size_t row = 0; row < rows.size(); ++row)
    if (rows.isLive(row)) return true;
  return false;
}

}  // namespace

std::vector<std::string> SaveReport::failures() const {
  std::vector<std::string> all = errors;
  all.insert(all.end(), summaryErrors.begin(), summaryErrors.end());
  return all;
}

SaveReport saveProject(Workspace& workspace, ProjectKind kind, const OverwriteChooser& chooseOverwrites,
                       const ChangeQuestion& mayOverwriteChanges) {
  const ProjectKindInfo& info = infoOf(infoOf(kind).savedAs);
  const std::unique_ptr<ProjectSave> save = info.makeSave(workspace);
  SaveReport report;
  if (!hasLiveRow(SampleRows(workspace, info.kind))) {
    report.isDropped = !save->askOfEmptyTable(chooseOverwrites);
    return report;
  }
  report.isDropped = !save->begin(chooseOverwrites, {std::string(kSaveTitle), mayOverwriteChanges});
  if (report.isDropped) return report;
  save->finish();
  report.errors = save->errors();
  report.summaryErrors = save->summaryErrors();
  report.remarks = save->remarks();
  for (const std::string& remark : storeBoxTexts(workspace, info)) report.remarks.push_back(remark);
  return report;
}

}  // namespace triaxlab
