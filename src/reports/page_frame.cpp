#include "reports/page_frame.h"

#include "reports/fitted_text.h"

namespace triaxlab {
namespace {

const Font kTitle{.size = 19, .bold = true};
constexpr double kTesterX = 600, kCheckerX = 2700, kReportDateX = 4700, kArchiveX = 7800;

}  // namespace

void drawPageFrame(DrawingSurface& surface, const FrameForm& form, const PageHead& head, double pageWidth) {
  const Font body{.size = form.bodySize};
  // Each text ends before the one that stands next on its line, or before the margin.
  const auto print = [&](Point place, const std::string& text, double right = kRightMargin) {
    printFitted(surface, place, text, body, right);
  };
  printFittedCentred(surface, pageWidth / 2, form.titleY, head.title, kTitle);
  print(form.controlNumber, head.controlNumber, form.pageNumber.x);
  print(form.pageNumber, head.pageNumber);
  printFittedCentred(surface, pageWidth / 2, form.methodY, head.method, body);

  const Point sample = head.wideProjectNo ? form.sampleNoAside : form.sampleNo;
  const Point date = head.wideProjectNo ? form.testDateAside : form.testDate;
  const auto before = [](Point next, const std::string& text, double y, double right) {
    return text.empty() || next.y != y ? right : next.x;
  };
  const double beforeDate = before(date, head.testDate, form.projectNo.y, kRightMargin);
  print(form.projectNo, head.projectNo, before(sample, head.sampleNo, form.projectNo.y, beforeDate));
  print(form.projectName, head.projectName);
  print(sample, head.sampleNo, before(date, head.testDate, sample.y, kRightMargin));
  print(date, head.testDate);

  print({kTesterX, form.footY}, head.tester, kCheckerX);
  print({kCheckerX, form.footY}, head.checker, kReportDateX);
  print({kReportDateX, form.footY}, head.reportDate, kArchiveX);
  print({kArchiveX, form.footY}, head.archiveNo);
}

}  // namespace triaxlab
