#include "importers/import_plan.h"

namespace triaxlab {

void ImportedProjects::addDate(const SourceRow& source) {
  if (m_dates.size() == kProjectDateRows)
    throw UserError("选中的工程太多，最多只能处理101个，数据没有读入。请减少选中的行。");
  ProjectDate& date = m_dates.emplace_back();
  SetText(date.projectNo, source.projectNo);
  SetText(date.testDate, source.testDate);
}

void ImportedProjects::setDate(const SourceRow& source) {
  ProjectDate wanted;
  SetText(wanted.projectNo, source.projectNo);
  const auto known = std::find_if(m_dates.begin(), m_dates.end(),
                                  [&](const ProjectDate& row) { return row.projectNo == wanted.projectNo; });
  if (known == m_dates.end()) return addDate(source);
  SetText(known->testDate, source.testDate);
}

void ImportedProjects::setOnlyDate(const SourceRow& source) {
  m_dates.clear();
  addDate(source);
}

void ImportedProjects::setName(std::string_view projectNo, std::string_view name) {
  // It is looked up by the number that the records hold, which is cut at the field's width.
  FixedText<sizeof(ProjectDate::projectNo)> inRecords;
  SetText(inRecords, Trim(projectNo));
  m_names.insert_or_assign(std::string(inRecords.trimmed()), std::string(Trim(name)));
}

void ImportedProjects::carryOut(DocumentData& document) const {
  document.clearProjectDates();
  std::copy(m_dates.begin(), m_dates.end(), document.ProjectDateTable.begin());
  document.importedProjectNames = m_names;
}

}  // namespace triaxlab
