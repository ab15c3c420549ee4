#include "reports/triaxial_table.h"

#include "reports/stage_tables.h"
#include "triaxial/reading_tables.h"

namespace triaxlab {
namespace {

std::vector<std::size_t> shearReadings(const TriaxialSampleRecord& record, std::size_t stage) {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < kShearRows; ++row)
    if (hasReading(record, stage, row)) rows.push_back(row);
  return rows;
}

bool isHalfOfTwo(DerivedColumn column) {
  return column == DerivedColumn::HalfSum || column == DerivedColumn::HalfDifference ||
         column == DerivedColumn::HalfSumEff || column == DerivedColumn::HalfDifferenceEff;
}

/// Equal shares of the sheet; among the twelve columns of CU those with the long heads have more.
std::vector<double> widthsOf(const TriaxialSampleRecord& record, std::span<const DataTableColumn> columns) {
  constexpr double kLongHead = 1200, kShortHead = 737.5;
  std::vector<double> widths(columns.size(), (kTableRight - kTableLeft) / static_cast<double>(columns.size()));
  if (record.testMethod == kCU)
    for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = isHalfOfTwo(columns[i].value) ? kLongHead : kShortHead;
  return widths;
}

std::size_t drawShearReadings(DrawingSurface& surface, const StageReadings& page, Stroke rule) {
  const std::span<const DataTableColumn> columns = dataTableColumns(page.record);
  const TableColumns table(kTableLeft, widthsOf(page.record, columns));
  table.drawRules(surface, page.rows.size(), rule);
  for (std::size_t column = 0; column < columns.size(); ++column)
    table.drawHead(surface, column, columns[column].title);
  for (std::size_t line = 0; line < page.rows.size(); ++line)
    table.drawLine(surface, line, dataTableRow(page.record, page.stage, page.rows[line]));
  return page.rows.size();
}

constexpr StageTableForm kForm{.title = "三  轴  试  验  数  据  表",
                               .readingsPerPage = 40,
                               .readings = shearReadings,
                               .draw = drawShearReadings,
                               .drawBelowFoot = nullptr};

std::unique_ptr<Report> makeTriaxialTable(const PrintJob& job, const Workspace& workspace) {
  return makeStageTables(kForm, job, workspace);
}

}  // namespace

constinit const Layout kTriaxialTable{.id = "triaxial-table",
                                      .title = "三轴试验数据表",
                                      .kind = ProjectKind::Triaxial,
                                      .picturePrefix = "SZ",
                                      .make = makeTriaxialTable};

}  // namespace triaxlab
