#include "importers/import_plan.h"

#include <fmt/ranges.h>

#include "store/project/project_number.h"

namespace triaxlab {

void ImportedProjects::addDate(const SourceRow& source) {
  if (m_dates.size() == kProjectDateRows)
    throw UserError("选中的工程太多，最多只能处理101个，数据没有读入。请减少选中的行。");
  ProjectDate& date = m_dates.emplace_back();
  SetText(date.projectNo, source.projectNo);
  SetText(date.testDate, source.testDate);
  note(date);
}

void ImportedProjects::setDate(const SourceRow& source) {
  ProjectDate wanted;
  SetText(wanted.projectNo, source.projectNo);
  const auto known = std::find_if(m_dates.begin(), m_dates.end(),
                                  [&](const ProjectDate& row) { return row.projectNo == wanted.projectNo; });
  if (known == m_dates.end()) return addDate(source);
  SetText(known->testDate, source.testDate);
  note(*known);
}

void ImportedProjects::setOnlyDate(const SourceRow& source) {
  m_dates.clear();
  m_days.clear();
  addDate(source);
}

void ImportedProjects::setName(std::string_view projectNo, std::string_view name) {
  // It is looked up by the number that the records hold, which is cut at the field's width.
  FixedText<sizeof(ProjectDate::projectNo)> inRecords;
  SetText(inRecords, Trim(projectNo));
  m_names.insert_or_assign(std::string(inRecords.trimmed()), std::string(Trim(name)));
}

void ImportedProjects::note(const ProjectDate& date) {
  if (date.projectNo.isBlank() || date.testDate.isBlank()) return;
  std::vector<std::string>& days = m_days[std::string(date.projectNo.trimmed())];
  if (std::string day = printableText(date.testDate.trimmed()); std::ranges::find(days, day) == days.end())
    days.push_back(std::move(day));
}

Remarks ImportedProjects::remarks(const DocumentData& document) const {
  Remarks remarks;
  for (const auto& [projectNo, days] : m_days)
    if (days.size() > 1)
      remarks.push_back(fmt::format("工程 {} 的试样有 {} 个试验日期（{}），统一印 {}。", printableText(projectNo),
                                    days.size(), fmt::join(days, "、"),
                                    printableText(*document.projectTestDate(projectNo))));
  return remarks;
}

void ImportedProjects::carryOut(DocumentData& document) const {
  document.clearProjectDates();
  std::copy(m_dates.begin(), m_dates.end(), document.ProjectDateTable.begin());
  document.importedProjectNames = m_names;
}

}  // namespace triaxlab
