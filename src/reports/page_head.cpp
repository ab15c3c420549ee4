#include "reports/page_head.h"

#include <fmt/format.h>

#include <optional>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "store/settings/settings_file.h"
#include "store/test_date.h"

namespace triaxlab {
namespace {

/// What was last entered under 试验 and 校核 stands in the places of a year and a month: a number is none's name, and
/// leaves room for a hand.
std::string nameAt(const Workspace& workspace, ProjectKind tests, std::size_t box, SettingsField field) {
  const std::optional<std::string>& typed = workspace.textsOf(tests).typedDateTexts.at(box);
  const std::string text = typed ? *typed : sharedSettings(workspace).readText(field);
  return ParseNumber(text) == 0 ? gbkToUtf8(text) : std::string();
}

std::string controlNumber(const Workspace& workspace, ProjectKind tests) {
  const LaboratoryHabits& habits = workspace.settings.habits;
  if (!habits.controlledDocNo) return {};
  const auto number = workspace.textsOf(tests).controlledDocNo.trimmed();
  return number.empty() ? habits.formNumber : gbkToUtf8(number);
}

std::string reportDate(const Workspace& workspace) {
  const std::string year = gbkToUtf8(workspace.processingDate.year.trimmed());
  const std::string month = gbkToUtf8(workspace.processingDate.month.trimmed());
  const std::string day = gbkToUtf8(workspace.processingDate.day.trimmed());
  const bool blank = year.empty() && month.empty() && day.empty();
  if (workspace.settings.toggles.english) return blank ? "      /    /" : fmt::format("{} / {} / {}", year, month, day);
  return blank ? "     年    月    日" : fmt::format("{} 年 {} 月 {} 日", year, month, day);
}

}  // namespace

PageHeads::PageHeads(const PrintJob& job, const Workspace& workspace, ProjectKind tests, const PageLabels& labels,
                     PageFamily family)
    : m_workspace(workspace),
      m_labels(labels),
      m_pageNumbers(job.printPageNumbers),
      m_firstPageNumber(job.firstPageNumber),
      m_withoutPageAndDates(family == PageFamily::Triaxial && workspace.settings.habits.omitPageDateTable),
      m_titles(workspace, tests) {
  const LaboratoryHabits& habits = workspace.settings.habits;
  m_ofJob.title = labels.title;
  if (family == PageFamily::Triaxial) m_ofJob.controlNumber = controlNumber(workspace, tests);
  m_ofJob.wideProjectNo = habits.wideProjectNo;
  m_ofJob.tester = labels.testedBy + nameAt(workspace, tests, 0, kYearField);
  m_ofJob.checker = labels.checkedBy + nameAt(workspace, tests, 1, kMonthField);
  if (!m_withoutPageAndDates) m_ofJob.reportDate = labels.reportDate + reportDate(workspace);
}

PageHead PageHeads::of(int page, FirstSample first) {
  PageHead head = m_ofJob;
  const ProjectTitles& titles = m_titles.of(first.projectNo);
  head.projectNo = m_labels.projectNo + gbkToUtf8(first.projectNo);
  if (!m_workspace.settings.toggles.omitProjectName) head.projectName = m_labels.projectName + titles.projectName;
  if (!titles.archiveNo.empty()) head.archiveNo = m_labels.archiveNo + titles.archiveNo;
  if (!m_withoutPageAndDates) {
    head.pageNumber = pageNumber(page);
    head.testDate = m_labels.testDate + gbkToUtf8(shownTestDate(m_workspace, first.projectNo, first.testDate));
  }
  return head;
}

std::string PageHeads::pageNumber(int page) const {
  if (!m_pageNumbers) return m_workspace.settings.habits.pageLabel;
  return fmt::format("第  {}  页", m_firstPageNumber + page - 1);
}

}  // namespace triaxlab
