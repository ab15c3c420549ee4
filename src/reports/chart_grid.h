#pragma once

#include <cstddef>

#include "charts/clipping.h"
#include "platform/page_device.h"
#include "store/settings/page_setup.h"

namespace triaxlab {

/// The paper of chart sheets, turned as the page setup has it. The two roll papers have one way round.
PageSize chartPaper(const PageSetup& setup);

/// What is inside the margins of a chart sheet, twips.
Rectangle insideMargins(const PageSetup& setup, const ChartLayout& layout);

/// The cells of a chart sheet, alike and three to two, row by row from the upper left.
struct ChartGrid {
  Point corner;          // of the first
  double width, height;  // of each
  std::size_t columns;
  double fontSize;  // of the heads of the charts: the longest title just fits into half a cell

  Point cornerOf(std::size_t place) const {
    const std::size_t row = place / columns, column = place % columns;
    return {corner.x + width * static_cast<double>(column), corner.y + height * static_cast<double>(row)};
  }
};

/// UserError when the margins leave no room for a chart.
ChartGrid chartGrid(const Rectangle& inside, const PageSetup& setup);

}  // namespace triaxlab
