#include "reports/consolidation_table.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "charts/axes.h"
#include "common/text_number.h"
#include "reports/stage_tables.h"
#include "triaxial/reading_tables.h"

namespace triaxlab {
namespace {

constexpr std::size_t kLinesOfHalf = 40;
constexpr std::array kHalfLeft{600.0, 6050.0};
constexpr double kColumnWidth = 1312.5;
constexpr double kCoefficientAX = 5000;

bool isRead(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row) {
  return record.consolidationTime[row][stage] != 0 || record.consolidationPorePressure[row][stage] != 0 ||
         record.consolidationVolume[row][stage] != 0;
}

/// The rows up to the last one with a reading; one without in between keeps its number.
std::vector<std::size_t> consolidationReadings(const TriaxialSampleRecord& record, std::size_t stage) {
  if (record.testMethod == kUU) return {};
  std::size_t count = kConsolidationRows;
  while (count > 0 && !isRead(record, stage, count - 1)) --count;
  std::vector<std::size_t> rows(count);
  std::iota(rows.begin(), rows.end(), 0);
  return rows;
}

void drawHalf(DrawingSurface& surface, double left, const StageReadings& half, std::size_t lines, Stroke rule) {
  static constexpr std::array kWidths{kColumnWidth, kColumnWidth, kColumnWidth, kColumnWidth};
  static_assert(kWidths.size() == kConsolidationColumns);
  const TableColumns table(left, kWidths);
  table.drawRules(surface, lines, rule);
  for (std::size_t column = 0; column < kConsolidationColumns; ++column)
    table.drawHead(surface, column, kConsolidationTitles[column]);
  for (std::size_t line = 0; line < half.rows.size(); ++line)
    table.drawLine(surface, line, consolidationRow(half.record, half.stage, half.rows[line]));
}

/// Two halves side by side; the right one ends with the left.
std::size_t drawConsolidationReadings(DrawingSurface& surface, const StageReadings& page, Stroke rule) {
  const std::size_t lines = std::min(page.rows.size(), kLinesOfHalf);
  drawHalf(surface, kHalfLeft[0], {page.record, page.stage, page.rows.first(lines)}, lines, rule);
  if (page.rows.size() > lines)
    drawHalf(surface, kHalfLeft[1], {page.record, page.stage, page.rows.subspan(lines)}, lines, rule);
  return lines;
}

/// The pore pressure coefficients that the stage has.
void drawCoefficients(DrawingSurface& surface, const TriaxialSampleRecord& record, std::size_t stage, double y) {
  const auto hundredths = [](float value) { return FormatNumber(value, NumberFormat::Hundredths); };
  if (const float b = record.coefficientB[stage]; b != 0)
    surface.text({kTableLeft, y}, "孔隙压力系数 B = " + hundredths(b), kTableFont, Colour::Black);
  if (const float a = record.coefficientAf[stage]; a != 0) {
    constexpr std::string_view kName = "孔隙压力系数 A", kSubscript = "f";
    const double subscriptX = kCoefficientAX + textWidth(kName, kTableFont);
    const double valueX = subscriptX + textWidth(kSubscript, smallFont(kTableFont));
    surface.text({kCoefficientAX, y}, kName, kTableFont, Colour::Black);
    surface.text({subscriptX, y + subscriptDrop(kTableFont)}, kSubscript, smallFont(kTableFont), Colour::Black);
    surface.text({valueX, y}, " = " + hundredths(a), kTableFont, Colour::Black);
  }
}

constexpr StageTableForm kForm{.title = "固  结  数  据  表",
                               .readingsPerPage = 2 * kLinesOfHalf,
                               .readings = consolidationReadings,
                               .draw = drawConsolidationReadings,
                               .drawBelowFoot = drawCoefficients};

std::unique_ptr<Report> makeConsolidationTable(const PrintJob& job, const Workspace& workspace) {
  return makeStageTables(kForm, job, workspace);
}

}  // namespace

constinit const Layout kConsolidationTable{.id = "consolidation",
                                           .title = "固结数据表",
                                           .kind = ProjectKind::Triaxial,
                                           .picturePrefix = "SZ",
                                           .make = makeConsolidationTable};

}  // namespace triaxlab
