#include "reports/ko_results.h"

#include <algorithm>
#include <array>
#include <string>

#include "common/gbk.h"
#include "k0/charts/ko_chart.h"
#include "k0/ko_line.h"
#include "k0/settlement.h"
#include "platform/placed_surface.h"
#include "reports/table_rules.h"
#include "reports/test_pages.h"

namespace triaxlab {
namespace {

// Twips of the block.
constexpr double kSampleX = 1200;
constexpr Point kCanvas{-1300, 150};
constexpr double kTableLeft = 7900, kTableRight = 11300, kTableTop = 450, kHeadHeight = 500, kRowHeight = 330;
constexpr double kFirstRow = kTableTop + kHeadHeight, kTableBottom = kFirstRow + kRowHeight * kLoadStages;
constexpr double kHeadMargin = 40;  // above the first and below the second line of a head

struct ResultColumn {
  const char *name, *unit;
  PerLoadStage<FixedText<6>> K0SampleRecord::*texts;
};
constexpr std::array kColumns{ResultColumn{"轴向变形量", "(mm)", &K0SampleRecord::axialDeformation},
                              ResultColumn{"轴向压力", "(kPa)", &K0SampleRecord::axialPressure},
                              ResultColumn{"侧向压力", "(kPa)", &K0SampleRecord::lateralPressure}};
constexpr double kColumnWidth = (kTableRight - kTableLeft) / kColumns.size();

constexpr double columnX(std::size_t column) { return kTableLeft + kColumnWidth * static_cast<double>(column); }
constexpr double rowY(std::size_t row) { return kFirstRow + kRowHeight * static_cast<double>(row); }

void drawRules(DrawingSurface& surface, int lineWeight) {
  TableRules rules{
      .corner = {kTableLeft, kTableTop}, .opposite = {kTableRight, kTableBottom}, .rows = {}, .columns = {}};
  for (std::size_t column = 1; column < kColumns.size(); ++column) rules.columns.push_back(columnX(column));
  for (std::size_t row = 0; row < kLoadStages; ++row) rules.rows.push_back(rowY(row));
  drawTableRules(surface, rules, {Colour::Black, lineWeight});
}

/// A number in front of its decimal point, and from there on.
struct NumberWidths {
  double whole = 0, fraction = 0;
};
NumberWidths widthsOf(std::string_view number) {
  const std::string_view whole = number.substr(0, number.find('.'));
  return {textWidth(whole, kTestPageFont), textWidth(number.substr(whole.size()), kTestPageFont)};
}

/// The decimal points stand below each other, and the widest number would stand in the middle.
void drawNumbers(DrawingSurface& surface, double centreX, const PerLoadStage<FixedText<6>>& texts) {
  NumberWidths widest;
  for (const FixedText<6>& text : texts) {
    const NumberWidths widths = widthsOf(gbkToUtf8(text.trimmed()));
    widest = {std::max(widest.whole, widths.whole), std::max(widest.fraction, widths.fraction)};
  }
  const double pointX = centreX + (widest.whole - widest.fraction) / 2;
  for (std::size_t row = 0; row < texts.size(); ++row) {
    const std::string text = gbkToUtf8(texts[row].trimmed());
    if (text.empty()) continue;
    const double y = rowY(row) + (kRowHeight - textHeight(kTestPageFont)) / 2;
    surface.text({pointX - widthsOf(text).whole, y}, text, kTestPageFont, Colour::Black);
  }
}

void drawTable(DrawingSurface& surface, const K0SampleRecord& record, int lineWeight) {
  drawRules(surface, lineWeight);
  for (std::size_t column = 0; column < kColumns.size(); ++column) {
    const auto& [name, unit, texts] = kColumns[column];
    const double centreX = columnX(column) + kColumnWidth / 2;
    surface.textCentred(centreX, kTableTop + kHeadMargin, name, kTestPageFont, Colour::Black);
    surface.textCentred(centreX, kFirstRow - kHeadMargin - textHeight(kTestPageFont), unit, kTestPageFont,
                        Colour::Black);
    drawNumbers(surface, centreX, record.*texts);
  }
}

void drawResult(DrawingSurface& surface, const K0SampleRecord& record, int lineWeight) {
  printSampleNo(surface, kSampleX, record.sampleNo.trimmed());
  printSamplingDepth(surface, record.samplingDepth.trimmed());
  PlacedSurface canvas(surface, kCanvas);
  drawKoChart(canvas, record, {.axes = KoAxes::Stresses, .lineWeight = lineWeight});
  drawTable(surface, record, lineWeight);
}

void drawK0(DrawingSurface& surface, const Workspace& workspace, TestBlock block, int lineWeight) {
  K0SampleRecord record = workspace.K0SampleTable[block.row];
  fitKoLine(record);
  drawResult(surface, record, lineWeight);
}

void drawTK0(DrawingSurface& surface, const Workspace& workspace, TestBlock block, int lineWeight) {
  TK0SampleRecord record = workspace.TK0SampleTable[block.row];
  computeStageResults(record);
  fitKoLine(record.k0);
  drawResult(surface, record.k0, lineWeight);
}

constexpr const char* kTitle = "Ko 试 验 成 果 表";
constexpr FrameForm kFrame = testFrame(14000);
constexpr TestPageForm kK0Form{.title = kTitle,
                               .tests = ProjectKind::K0,
                               .omitsTestDate = &LaboratoryHabits::omitK0TestDate,
                               .frame = kFrame,
                               .drawBlock = drawK0};
constexpr TestPageForm kTK0Form{.title = kTitle,
                                .tests = ProjectKind::TK0,
                                .omitsTestDate = &LaboratoryHabits::omitTK0TestDate,
                                .frame = kFrame,
                                .drawBlock = drawTK0};

}  // namespace

constinit const Layout kK0Results{
    .id = "k0",
    .title = "K0试验成果表",
    .kind = ProjectKind::K0,
    .picturePrefix = "",
    .make = [](const PrintJob& job, const Workspace& workspace) { return makeTestPages(kK0Form, job, workspace); }};
constinit const Layout kTK0Results{
    .id = "tk0",
    .title = "TK0试验成果表",
    .kind = ProjectKind::TK0,
    .picturePrefix = "",
    .make = [](const PrintJob& job, const Workspace& workspace) { return makeTestPages(kTK0Form, job, workspace); }};

}  // namespace triaxlab
