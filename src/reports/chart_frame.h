#pragma once

#include <array>
#include <optional>
#include <string>

#include "charts/clipping.h"
#include "platform/drawing_surface.h"
#include "platform/page_device.h"

namespace triaxlab {

/// What stands around the charts of a sheet, UTF-8, with its labels. An empty text takes no place.
struct ChartSheetHead {
  std::string title;
  std::string controlNumber, laboratory, projectNo, projectName;
  std::optional<int> pageNumber;
  std::string pageLabel;                  // where there is no number
  std::array<std::string, 3> signatures;  // of the checker, the head, and one that a laboratory may add
  std::string dateLabel, date;
};

/// Draws it at the edges of what is inside the margins of the paper.
void drawChartFrame(DrawingSurface& surface, PageSize paper, const Rectangle& inside, const ChartSheetHead& head,
                    int lineWeight);

}  // namespace triaxlab
