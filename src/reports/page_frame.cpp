#include "reports/page_frame.h"

#include <fmt/format.h>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "reports/fitted_text.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

const Font kBody;
const Font kTitle{.size = 19, .bold = true};

constexpr double kLeft = 600;
constexpr double kTitleY = 500, kMethodY = 1000, kProjectNoY = 1350, kProjectNameY = 1600;
constexpr Point kControlNumber{kLeft, 300}, kPageNumber{9500, 300};
/// The test date, and where it stands below the page number when a long project number has the whole line.
constexpr Point kTestDate{7800, kProjectNoY}, kTestDateAside{9500, 600};
constexpr double kFootY = 15350;
constexpr double kTesterX = 600, kCheckerX = 2700, kReportDateX = 4700, kArchiveX = 7800;

/// What was last entered under 试验 and 校核 stands in the places of a year and a month: a number is none's name.
std::string nameAt(const Workspace& workspace, SettingsField field) {
  const std::string text = sharedSettings(workspace).readText(field);
  return ParseNumber(text) == 0 ? gbkToUtf8(text) : std::string();
}

std::string controlNumber(const Workspace& workspace) {
  const LaboratoryHabits& habits = workspace.settings.habits;
  if (!habits.controlledDocNo) return {};
  const auto number = workspace.controlledDocNo.trimmed();
  return number.empty() ? habits.formNumber : gbkToUtf8(number);
}

std::string reportDate(const Workspace& workspace, const PageLabels& labels) {
  const std::string year = gbkToUtf8(workspace.processingDate.year.trimmed());
  const std::string month = gbkToUtf8(workspace.processingDate.month.trimmed());
  const std::string day = gbkToUtf8(workspace.processingDate.day.trimmed());
  const bool blank = year.empty() && month.empty() && day.empty();
  std::string date;
  if (workspace.settings.toggles.english)
    date = blank ? "      /    /" : fmt::format("{} / {} / {}", year, month, day);
  else
    date = blank ? "     年    月    日" : fmt::format("{} 年 {} 月 {} 日", year, month, day);
  return labels.reportDate + date;
}

std::string testDate(const Workspace& workspace, const TriaxialSampleRecord& record) {
  std::string_view date = record.testDate.trimmed();
  if (date.empty()) date = workspace.projectTestDate(record.projectNo.trimmed()).value_or("");
  return gbkToUtf8(date);
}

/// Ends before the text that stands next on its line, or before the margin.
void print(DrawingSurface& surface, Point place, std::string_view text, double right = kRightMargin) {
  printFitted(surface, place, text, kBody, right);
}

}  // namespace

PageFrame::PageFrame(const PrintJob& job, const Workspace& workspace, const PageLabels& labels, double width)
    : m_workspace(workspace),
      m_labels(labels),
      m_width(width),
      m_pageNumbers(job.printPageNumbers),
      m_titles(workspace),
      m_controlNumber(controlNumber(workspace)),
      m_tester(nameAt(workspace, kYearField)),
      m_checker(nameAt(workspace, kMonthField)),
      m_reportDate(reportDate(workspace, labels)) {}

void PageFrame::draw(DrawingSurface& surface, int pageNumber, const TriaxialSampleRecord& record) {
  drawHead(surface, pageNumber, record);
  drawProject(surface, record);
  drawFoot(surface, record);
}

void PageFrame::drawHead(DrawingSurface& surface, int pageNumber, const TriaxialSampleRecord& record) const {
  const LaboratoryHabits& habits = m_workspace.settings.habits;
  printFittedCentred(surface, m_width / 2, kTitleY, m_labels.title, kTitle);
  print(surface, kControlNumber, m_controlNumber, kPageNumber.x);
  if (!habits.omitPageDateTable) print(surface, kPageNumber, pageNumberText(pageNumber));
  const std::string method = pageMethod(record, m_workspace.settings);
  if (!habits.omitTestMethod) printFittedCentred(surface, m_width / 2, kMethodY, method, kBody);
}

std::string PageFrame::pageNumberText(int pageNumber) const {
  if (!m_pageNumbers) return m_workspace.settings.habits.pageLabel;
  return fmt::format("第  {}  页", pageNumber);
}

void PageFrame::drawProject(DrawingSurface& surface, const TriaxialSampleRecord& record) {
  const auto& habits = m_workspace.settings.habits;
  const std::string_view projectNo = record.projectNo.trimmed();
  const bool dated = !habits.omitTriaxialTestDate && !habits.omitPageDateTable;
  const Point date = habits.wideProjectNo ? kTestDateAside : kTestDate;
  const bool sharesLine = dated && date.y == kProjectNoY;
  print(surface, {kLeft, kProjectNoY}, m_labels.projectNo + gbkToUtf8(projectNo), sharesLine ? date.x : kRightMargin);
  if (!m_workspace.settings.toggles.omitProjectName)
    print(surface, {kLeft, kProjectNameY}, m_labels.projectName + m_titles.of(projectNo).projectName);
  if (dated) print(surface, date, m_labels.testDate + testDate(m_workspace, record));
}

void PageFrame::drawFoot(DrawingSurface& surface, const TriaxialSampleRecord& record) {
  print(surface, {kTesterX, kFootY}, m_labels.testedBy + m_tester, kCheckerX);
  print(surface, {kCheckerX, kFootY}, m_labels.checkedBy + m_checker, kReportDateX);
  if (!m_workspace.settings.habits.omitPageDateTable) print(surface, {kReportDateX, kFootY}, m_reportDate, kArchiveX);
  const std::string& archiveNo = m_titles.of(record.projectNo.trimmed()).archiveNo;
  if (!archiveNo.empty()) print(surface, {kArchiveX, kFootY}, m_labels.archiveNo + archiveNo);
}

}  // namespace triaxlab
