#include "triaxial/charts/table_chart.h"

namespace triaxlab {
namespace {

const Font kTableFont{.size = 10.5};

// Twips of the canvas.
constexpr double kFirstLineY = 250, kSecondLineY = 600;
constexpr double kTopRuleY = 1200, kSymbolY = 1260, kUnitY = 1540, kTitleRuleY = 1850, kBottomRuleY = 7560;
constexpr double kDataColumnX = 800, kDataColumnWidth = 1000;
/// Left edges of the texts in the heading's two lines and in the foot, and the ends of the rules.
struct TextColumns {
  std::array<double, 3> heading, foot;
  double left, right;
};
constexpr TextColumns kDataTable{{300, 4200, 7400}, {300, 3300, 6300}, 300, 12300};
/// Narrower: what stands beside each other must not touch in its longest form.
constexpr TextColumns kConsolidation{{300, 2850, 5270}, {300, 3000, 5200}, 50, 6850};

void drawHeading(DrawingSurface& surface, const TableHeading& heading, const std::array<double, 3>& x) {
  const auto line = [&](double y, std::array<const std::string*, 3> texts) {
    for (std::size_t i = 0; i < texts.size(); ++i)
      if (!texts[i]->empty()) surface.text({x[i], y}, *texts[i], kTableFont, Colour::Black);
  };
  line(kFirstLineY, {&heading.project, &heading.sample, &heading.pressure});
  line(kSecondLineY, {&heading.date, &heading.test, &heading.rate});
}

void drawRules(DrawingSurface& surface, const TextColumns& table) {
  for (const double y : {kTopRuleY, kTitleRuleY, kBottomRuleY}) surface.line({table.left, y}, {table.right, y}, {});
}

/// 破坏孔压 and σ1 - σ3, the last two of the foot.
void drawFailure(DrawingSurface& surface, const TableFoot& foot, const std::array<double, 3>& x) {
  surface.text({x[1], kTableFootY}, kFailurePorePressure + foot.failurePorePressure + kTableUnit, kTableFont,
               Colour::Black);
  surface.text({x[2], kTableFootY}, kFailureStress + foot.deviatorStress + kTableUnit, kTableFont, Colour::Black);
}

double rowY(std::size_t row) { return kTableRowsTop + kTableRowPitch * static_cast<double>(row); }

void drawCell(DrawingSurface& surface, double centreX, std::size_t row, const std::string& text) {
  if (!text.empty()) surface.textCentred(centreX, rowY(row), text, kTableFont, Colour::Black);
}

}  // namespace

void drawDataTable(DrawingSurface& surface, const DataTable& table) {
  const auto columnX = [](std::size_t column) { return kDataColumnX + kDataColumnWidth * static_cast<double>(column); };
  drawHeading(surface, table.heading, kDataTable.heading);
  drawRules(surface, kDataTable);
  for (std::size_t column = 0; column < table.columns.size(); ++column)
    drawColumnTitle(surface, table.columns[column].title, columnX(column), kDataColumnWidth, kSymbolY, kUnitY,
                    kTableFont);
  for (std::size_t row = 0; row < table.rows.size(); ++row)
    for (std::size_t column = 0; column < table.rows[row].size(); ++column)
      drawCell(surface, columnX(column), row, table.rows[row][column]);
  surface.text({kDataTable.foot[0], kTableFootY}, kStartPorePressure + table.foot.startPorePressure + kTableUnit,
               kTableFont, Colour::Black);
  drawFailure(surface, table.foot, kDataTable.foot);
}

void drawConsolidationTable(DrawingSurface& surface, const ConsolidationTable& table) {
  drawHeading(surface, table.heading, kConsolidation.heading);
  drawRules(surface, kConsolidation);
  for (std::size_t column = 0; column < kConsolidationColumns; ++column)
    drawColumnTitle(surface, kConsolidationTitles[column], kConsolidationColumnX[column], kConsolidationColumnWidth,
                    kSymbolY, kUnitY, kTableFont);
  for (std::size_t row = 0; row < table.rows.size(); ++row)
    for (std::size_t column = 0; column < kConsolidationColumns; ++column)
      drawCell(surface, kConsolidationColumnX[column], row, table.rows[row][column]);
  // The value has a place of its own, since it is typed there.
  constexpr double kMargin = 60;
  const Point label{kConsolidation.foot[0], kTableFootY};
  surface.text(label, kStartPorePressure, kTableFont, Colour::Black);
  surface.text({kStartPorePressureX + kMargin, kTableFootY}, table.foot.startPorePressure, kTableFont, Colour::Black);
  surface.text({kStartPorePressureX + kStartPorePressureWidth + kMargin, kTableFootY}, kTableUnit, kTableFont,
               Colour::Black);
  drawFailure(surface, table.foot, kConsolidation.foot);
}

}  // namespace triaxlab
