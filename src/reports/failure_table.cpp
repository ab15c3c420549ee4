#include "reports/failure_table.h"

#include <array>
#include <string>

#include "common/gbk.h"
#include "reports/table_rules.h"
#include "triaxial/measures.h"
#include "triaxial/result_values.h"

namespace triaxlab {
namespace {

constexpr double kLeft = 600, kStageColumn = 804, kValueColumn = 660, kRowHeight = 300;
constexpr std::size_t kRows = 1 + kStages;
static_assert(kRows * kRowHeight == kFailureTableHeight);
const Font kFont{.size = 9};
constexpr std::array<const char*, kRows> kStageHeads{"围压级号", "一", "二", "三", "四", "五"};

/// Left edge of a value column; that of the last but one is the right edge of the table.
double columnX(std::size_t column) { return kLeft + kStageColumn + kValueColumn * static_cast<double>(column); }

void drawRules(DrawingSurface& surface, double top, int lineWeight) {
  TableRules rules{.corner = {kLeft, top},
                   .opposite = {columnX(kResultValues.size()), top + kFailureTableHeight},
                   .rows = {},
                   .columns = {}};
  for (std::size_t row = 1; row < kRows; ++row) rules.rows.push_back(top + kRowHeight * static_cast<double>(row));
  for (std::size_t column = 0; column < kResultValues.size(); ++column) rules.columns.push_back(columnX(column));
  drawTableRules(surface, rules, {Colour::Black, lineWeight});
}

std::string valueText(const ResultValue& value, const TriaxialSampleRecord& record, std::size_t stage) {
  const bool blank = !StageUsed(record, stage) || (value.effective && record.testMethod != kCU);
  return blank ? std::string() : gbkToUtf8(value.text(record, stage));
}

}  // namespace

void drawFailureTable(DrawingSurface& surface, double top, const TriaxialSampleRecord& record, int lineWeight) {
  drawRules(surface, top, lineWeight);
  for (std::size_t row = 0; row < kRows; ++row) {
    const double y = top + kRowHeight * static_cast<double>(row) + (kRowHeight - textHeight(kFont)) / 2;
    surface.textCentred(kLeft + kStageColumn / 2, y, kStageHeads[row], kFont, Colour::Black);
    for (std::size_t column = 0; column < kResultValues.size(); ++column) {
      const ResultValue& value = kResultValues[column];
      const std::string text = row == 0 ? value.label : valueText(value, record, row - 1);
      if (!text.empty()) surface.textCentred(columnX(column) + kValueColumn / 2, y, text, kFont, Colour::Black);
    }
  }
}

}  // namespace triaxlab
