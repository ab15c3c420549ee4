#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "triaxial/curve_page.h"

namespace triaxlab {

struct Settings;

/// What of a document goes on paper; the values are those of the option buttons of the print dialogs.
enum class PrintScope : std::uint8_t {
  All = 1,      // 全部: every live sample
  Current = 2,  // 当前土样: the sample on display
  Range = 3,    // 序号: live samples by their number, from 1
  Pages = 4,    // 页码: pages of the whole job, from 1
};

/// The print job that a dialog fills and the page routines read. Of a pair of numbers either may be the larger one; a
/// number below 1 counts as 1, one beyond the count as the count.
struct PrintJob {
  PrintScope scope = PrintScope::All;
  std::int16_t printRangeFrom = 1;  // samples of Range, pages of Pages
  std::int16_t printRangeTo = 1;
  std::int16_t printAuxFrom = 0;  // pages again, for a job that chooses samples and pages; 0: every page
  std::int16_t printAuxTo = 0;
  std::size_t currentRow = 0;     // table row of the sample on display, for Current
  std::int16_t testKindCode = 0;  // the window asking: 2 and 7 triaxial tables, 10 unconfined, 20 K0, 30 TK0
  std::int16_t copies = 1;

  std::int16_t lineWeight = 4;       // 1/600 inch; 2 with a dot-matrix printer, whose paper the pages then take
  bool printToPicture = false;       // 打印到图片文件
  bool printToA3 = false;            // 打印到A3: two pages side by side, except in pictures
  bool printPageNumbers = true;      // 打印页码
  std::int16_t firstPageNumber = 1;  // 起始页码

  std::vector<CurvePage> curves;                      // the ticked curve types, in the order of the dialog
  bool totalCircles = true;                           // 总应力圆
  bool effectiveCircles = true;                       // 有效应力圆
  FailureMode checkedMode = FailureMode::PeakStress;  // as the menu of the curve window has it

  // Chart sheets
  bool printDataSheet = false;  // 打印数表
  std::int16_t pageRows = 1;    // 页面曲线排列
  std::int16_t pageColumns = 1;
  double leftMarginTwips = 0;  // centimetres x 10 x 57.2
  double rightMarginTwips = 0;

  int curvesPerPage() const { return pageRows * pageColumns; }
  std::int16_t selectedCurveCount() const { return static_cast<std::int16_t>(curves.size()); }
  bool dotMatrix() const { return lineWeight == 2; }
};

/// A job of all samples with the printer and the circles of the stored choices, and the curves that a dialog ticks at
/// first: 主应力差与轴向应变曲线 and 应力差强度包线.
PrintJob defaultPrintJob(const Settings& settings);

}  // namespace triaxlab
