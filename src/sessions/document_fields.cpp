#include "sessions/document_fields.h"

#include <stdexcept>
#include <utility>

#include "common/gbk.h"
#include "common/text_number.h"
#include "common/user_error.h"
#include "store/project/sample_rows.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

constexpr std::array kRememberedTexts{kYearField, kMonthField, kDayField};
// Of the summary file's header.
constexpr std::size_t kProjectNameWidth = 120, kSecondTitleLineWidth = 60;

EditableField titleText(TitleText& title, std::size_t width) {
  return {width, std::string(Trim(title.text)), [&title](std::string_view gbk) {
            title.text = gbk;
            title.typed = true;
          }};
}

void setPart(ProcessingDate& date, int part, std::string_view gbk) {
  if (part == 0) SetText(date.year, gbk);
  if (part == 1) SetText(date.month, gbk);
  if (part == 2) SetText(date.day, gbk);
}

}  // namespace

void DocumentFields::load() {
  m_workspace.dataOf(m_tests).typedDateTexts = {};
  m_remembered = {};
  if (infoOf(m_tests).boxesHoldDate) return;
  try {
    const SettingsFile settings = sharedSettings(m_workspace);
    for (std::size_t box = 0; box < m_remembered.size(); ++box)
      m_remembered.at(box) = settings.readText(kRememberedTexts.at(box));
  } catch (const UserError&) {
    // Told once at the start; a save doesn't write over what it can't read.
  }
}

EditableField DocumentFields::dateText(int box) const {
  const auto at = static_cast<std::size_t>(box);
  DocumentData& data = m_workspace.dataOf(m_tests);
  const std::string shown = infoOf(m_tests).boxesHoldDate ? m_workspace.dateText(at)
                                                          : data.typedDateTexts.at(at).value_or(m_remembered.at(at));
  return {kRememberedTexts.at(at).width, shown, [&data, &date = m_workspace.processingDate, box](std::string_view gbk) {
            data.typedDateTexts.at(static_cast<std::size_t>(box)) = std::string(gbk);
            setPart(date, box, ParseNumber(gbk) == 0 ? std::string_view{} : gbk);
          }};
}

EditableField DocumentFields::projectName() const {
  return titleText(m_workspace.dataOf(m_tests).projectName, kProjectNameWidth);
}

EditableField DocumentFields::secondTitleLine() const {
  return titleText(m_workspace.dataOf(m_tests).secondTitleLine, kSecondTitleLineWidth);
}

std::array<std::string, 2> statusPanels(const Workspace& workspace, ProjectKind tests, std::size_t row,
                                        DateFirst first) {
  const SampleRows rows(workspace, tests);
  const auto ownDate = infoOf(tests).results.testDate;
  const std::string_view projectNo = rows.projectNo(row);
  const std::string_view date = shownTestDate(
      workspace.dataOf(tests), projectNo, ownDate != nullptr ? ownDate(rows.record(row)) : std::string_view{}, first);
  return {workspace.settings.habits.projectNoLabel + ":" + gbkToUtf8(projectNo), "试验日期:" + gbkToUtf8(date)};
}

std::array<std::string, 3> locationLabels(const LaboratoryHabits& habits) {
  constexpr const char* kIndent = "  ";
  const bool own = !habits.boreholeLabel.empty();
  std::string borehole = habits.printBoreholeNumber ? "" : kIndent;
  borehole += own ? habits.boreholeLabel : habits.printBoreholeNumber ? "钻孔编号" : "钻孔号";
  return {borehole, "取样深度", habits.trialPitNumber ? "  探井号" : "取样地点"};
}

}  // namespace triaxlab
