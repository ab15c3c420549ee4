#pragma once

#include <cstddef>
#include <cstdint>

#include "common/settings.h"
#include "platform/page_device.h"
#include "reports/curve_options.h"
#include "store/settings/page_setup.h"

namespace triaxlab {

/// What of a document goes on paper; the values of the first four are those of the option buttons of most dialogs.
enum class PrintScope : std::uint8_t {
  All = 1,       // 全部: every live sample
  Current = 2,   // 当前土样: the sample on display
  Range = 3,     // 序号: live samples by their number, from 1
  Pages = 4,     // 页码: pages of the whole job, from 1
  CurrentPage,   // 当前页: the page of the stage curve on display
  CurrentCurve,  // 当前曲线: that curve alone
};

/// What a dialog or a command line wants printed. Of a pair of numbers either may be the larger one; a number below 1
/// counts as 1, one beyond the count as the count.
struct PrintJob {
  PrintScope scope = PrintScope::All;
  std::int16_t printRangeFrom = 1;  // samples of Range, pages of Pages
  std::int16_t printRangeTo = 1;
  std::int16_t printAuxFrom = 0;  // pages again, for a job that chooses samples and pages; 0: every page
  std::int16_t printAuxTo = 0;
  std::size_t currentRow = 0;   // table row of the sample on display, for all that is current
  std::size_t currentPart = 0;  // of its stage on display

  std::int16_t copies = 1;
  std::int16_t lineWeight = 4;       // 1/600 inch; 2 with a dot-matrix printer, whose paper the pages then take
  bool printToPicture = false;       // 打印到图片文件
  bool printToA3 = false;            // 打印到A3: two pages side by side, except in pictures
  bool printPageNumbers = true;      // 打印页码
  std::int16_t firstPageNumber = 1;  // 起始页码

  // Options that layouts have of their own; each reads its own alone.
  CurveOptions curves;
  PageSetup sheet;              // paper, margins and grid of chart sheets, as typed
  bool printDataSheet = false;  // 打印数表: the stages under each chart of a sheet

  bool dotMatrix() const { return lineWeight == 2; }
  /// A picture has one page, whatever paper was asked for.
  bool sideBySide() const { return printToA3 && !printToPicture; }
};

/// The pages that a printer is set to unless a layout has a paper of its own.
PageSize usualPage(const PrintJob& job);

/// A job of all samples with the printer and the curve options of the stored choices.
PrintJob defaultPrintJob(const Settings& settings);

}  // namespace triaxlab
