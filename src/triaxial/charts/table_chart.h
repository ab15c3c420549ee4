#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "charts/column_title.h"
#include "platform/drawing_surface.h"
#include "triaxial/reading_tables.h"

namespace triaxlab {

/// Rows of either table on the screen.
inline constexpr std::size_t kTableRowsShown = 16;

// Canvases of the two tables, twips; rows begin at kTableRowsTop, kTableRowPitch apart.
inline constexpr int kDataTableWidth = 12700, kConsolidationTableWidth = 7300, kTableHeight = 8300;
inline constexpr int kTableRowsTop = 1950, kTableRowPitch = 350;
/// Middles of the columns of 固结数据表, and the width that each has.
inline constexpr std::array<int, kConsolidationColumns> kConsolidationColumnX{900, 2600, 4300, 6000};
inline constexpr int kConsolidationColumnWidth = 1700;
/// Where the value of 起始孔压 stands below 固结数据表, and the room that it has.
inline constexpr int kTableFootY = 7650, kStartPorePressureX = 1290, kStartPorePressureWidth = 900;

/// What 三轴试验数据表 shows of a stage. A row without texts stays empty.
struct DataTable {
  TableHeading heading;
  std::span<const DataTableColumn> columns;  // of the column table, which lives for ever
  std::vector<std::vector<std::string>> rows;
  TableFoot foot;
  bool operator==(const DataTable& other) const {
    return heading == other.heading && columns.size() == other.columns.size() && rows == other.rows &&
           foot == other.foot;
  }
};
void drawDataTable(DrawingSurface& surface, const DataTable& table);

/// What 固结数据表 shows of a stage.
struct ConsolidationTable {
  TableHeading heading;
  std::vector<ConsolidationTexts> rows;
  TableFoot foot;
  bool operator==(const ConsolidationTable&) const = default;
};
void drawConsolidationTable(DrawingSurface& surface, const ConsolidationTable& table);

}  // namespace triaxlab
