#include "reports/chart_grid.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/user_error.h"
#include "triaxial/charts/curve_chart.h"

namespace triaxlab {
namespace {

constexpr PageSize kWideForm{23816, 15870};
constexpr double kTwipsPerCentimetre = 572;
constexpr double kHeadHeight = 900;  // of the frame, over the cells
constexpr double kSideRoom = 250;    // beside the cells, half of it on the left
constexpr float kWidthToHeight = 1.5F;

/// The size lessens until the title fits. Sizes are singles, so the smallest is the 5.0 that 5.6 hundredths of a
/// thousandth of a point of rounding have brought below 5.
double headSize(double cellWidth) {
  constexpr float kLargest = 10.6F, kStep = 0.1F, kSmallest = 5;
  constexpr double kShare = 0.84, kTenths = 10;
  const double room = kShare * cellWidth / 2;
  float size = kLargest;
  while (size >= kSmallest && textWidth(titleOf(CurvePage::StressStrain), Font{.size = size}) > room) size -= kStep;
  return std::round(size * kTenths) / kTenths;
}

}  // namespace

PageSize chartPaper(const PageSetup& setup) {
  switch (setup.paperOfJob()) {
    case SheetPaper::NarrowForm:
      return kDotMatrixPage;
    case SheetPaper::WideForm:
      return kWideForm;
    case SheetPaper::A4:
    case SheetPaper::A3:
      break;
  }
  PageSize size = setup.paperOfJob() == SheetPaper::A3 ? kA3 : kA4;
  if (!setup.portrait) std::swap(size.width, size.height);
  return size;
}

Rectangle insideMargins(const PageSetup& setup, const ChartLayout& layout) {
  const PageSize paper = chartPaper(setup);
  return {setup.leftMarginCm * kTwipsPerCentimetre, layout.topMarginTwips,
          paper.width - setup.rightMarginCm * kTwipsPerCentimetre, paper.height - layout.bottomMarginTwips};
}

ChartGrid chartGrid(const Rectangle& inside, const PageSetup& setup) {
  const std::int16_t rows = std::max<std::int16_t>(setup.rows, 1), columns = std::max<std::int16_t>(setup.columns, 1);
  auto width = static_cast<float>((inside.right - inside.left - kSideRoom) / columns);
  auto height = static_cast<float>((inside.bottom - inside.top - kHeadHeight) / rows);
  if (width <= 0 || height <= 0)
    throw UserError("打印三轴试验成果曲线", "页边距太大，纸上没有画曲线的地方。请减小页边距，或者换大一些的纸。");
  if (height * kWidthToHeight >= width)
    height = width / kWidthToHeight;
  else
    width = height * kWidthToHeight;
  return {.corner = {inside.left + kSideRoom / 2, inside.top + kHeadHeight},
          .width = width,
          .height = height,
          .columns = static_cast<std::size_t>(columns),
          .fontSize = headSize(width)};
}

}  // namespace triaxlab
