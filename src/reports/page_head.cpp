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
  const std::optional<std::string>& typed = workspace.dataOf(tests).typedDateTexts.at(box);
  const std::string text = typed ? *typed : sharedSettings(workspace).readText(field);
  return ParseNumber(text) == 0 ? gbkToUtf8(text) : std::string();
}

std::string controlNumber(const Workspace& workspace, ProjectKind tests) {
  const LaboratoryHabits& habits = workspace.settings.habits;
  if (!habits.controlledDocNo) return {};
  const auto number = workspace.dataOf(tests).controlledDocNo.trimmed();
  return number.empty() ? habits.formNumber : gbkToUtf8(number);
}

/// The date of the report in the form for three texts; empty when nobody has entered one.
std::string reportDate(const Workspace& workspace, std::string_view form) {
  const std::string year = gbkToUtf8(workspace.processingDate.year.trimmed());
  const std::string month = gbkToUtf8(workspace.processingDate.month.trimmed());
  const std::string day = gbkToUtf8(workspace.processingDate.day.trimmed());
  if (year.empty() && month.empty() && day.empty()) return {};
  return fmt::format(fmt::runtime(form), year, month, day);
}

constexpr std::string_view kEnglishDate = "{} / {} / {}";

/// With room for a hand where there is no date.
std::string reportDateWithRoom(const Workspace& workspace) {
  const bool english = workspace.settings.toggles.english;
  std::string date = reportDate(workspace, english ? kEnglishDate : "{} 年 {} 月 {} 日");
  if (!date.empty()) return date;
  return english ? "      /    /" : "     年    月    日";
}

}  // namespace

std::string reportDay(const Workspace& workspace) {
  if (workspace.settings.habits.omitPageDateTable) return {};
  return reportDate(workspace, workspace.settings.toggles.english ? kEnglishDate : "{}年{}月{}日");
}

PageHeads::PageHeads(const PrintJob& job, const Workspace& workspace, ProjectKind tests, const PageLabels& labels,
                     PageFamily family)
    : m_workspace(workspace),
      m_tests(tests),
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
  if (!m_withoutPageAndDates) m_ofJob.reportDate = labels.reportDate + reportDateWithRoom(workspace);
}

PageHead PageHeads::of(int page, FirstSample first) {
  PageHead head = m_ofJob;
  const ProjectTitles& titles = m_titles.of(first.projectNo);
  head.projectNo = m_labels.projectNo + gbkToUtf8(first.projectNo);
  if (!m_workspace.settings.toggles.omitProjectName) head.projectName = m_labels.projectName + titles.projectName;
  if (!titles.archiveNo.empty()) head.archiveNo = m_labels.archiveNo + titles.archiveNo;
  if (!m_withoutPageAndDates) {
    head.pageNumber = pageNumber(page);
    head.testDate =
        m_labels.testDate + gbkToUtf8(shownTestDate(m_workspace.dataOf(m_tests), first.projectNo, first.testDate));
  }
  return head;
}

std::optional<int> PageHeads::numberOf(int page) const {
  if (!m_pageNumbers || m_withoutPageAndDates) return std::nullopt;
  return m_firstPageNumber + page - 1;
}

std::string PageHeads::pageNumber(int page) const {
  const std::optional<int> number = numberOf(page);
  return number ? fmt::format("第  {}  页", *number) : m_workspace.settings.habits.pageLabel;
}

}  // namespace triaxlab
