#include "cli/print_job.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdint>
#include <limits>

#include "cli/page_devices.h"
#include "common/user_error.h"

namespace triaxlab::cli {
namespace {

/// As a box of a dialog takes it: below 1 counts as 1.
std::int16_t boxNumber(int number) {
  return static_cast<std::int16_t>(std::clamp<int>(number, 1, std::numeric_limits<std::int16_t>::max()));
}

void putRange(const Span& span, std::int16_t& from, std::int16_t& to) {
  from = boxNumber(span.from);
  to = boxNumber(span.to);
}

void chooseRange(PrintJob& job, const Print& print) {
  if (print.samples) {
    job.scope = PrintScope::Range;
    putRange(*print.samples, job.printRangeFrom, job.printRangeTo);
    if (print.pages) putRange(*print.pages, job.printAuxFrom, job.printAuxTo);
  } else if (print.pages) {
    job.scope = PrintScope::Pages;
    putRange(*print.pages, job.printRangeFrom, job.printRangeTo);
  }
}

/// Sheets on a paper of their choice, in rows and columns.
void setUpSheet(PrintJob& job, const Print& print, const Workspace& workspace) {
  job.sheet = readPageSetup(workspace);
  job.sheet.rows = boxNumber(print.rows);
  job.sheet.columns = boxNumber(print.columns);
  if (print.paper) job.sheet.paperCode = static_cast<std::uint8_t>(*print.paper);
  if (print.landscape) job.sheet.portrait = false;
}

/// Pages of a fixed form lie upright on A4 or the printer's form, or in twos on A3.
void setUpPage(PrintJob& job, const Print& print, const Layout& layout) {
  const SheetPaper paper = print.paper.value_or(SheetPaper::A4);
  if (print.landscape || (paper != SheetPaper::A4 && paper != SheetPaper::A3))
    throw UserError(fmt::format("{} 版式只能打印到A4纸或A3纸，页面不能横放。", layout.id));
  job.printToA3 = paper == SheetPaper::A3;
}

}  // namespace

PrintJob jobOf(const Print& print, const Layout& layout, const Workspace& workspace) {
  PrintJob job = defaultPrintJob(workspace.settings);
  job.curves.pages = print.curves;
  job.printDataSheet = print.dataSheet;
  job.copies = boxNumber(print.copies);
  job.printToPicture = isPictureFolder(print.out);
  chooseRange(job, print);
  if (layout.hasPageSetup)
    setUpSheet(job, print, workspace);
  else
    setUpPage(job, print, layout);
  return job;
}

}  // namespace triaxlab::cli
