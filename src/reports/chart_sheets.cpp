#include "reports/chart_sheets.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/gbk.h"
#include "platform/placed_surface.h"
#include "reports/chart_frame.h"
#include "reports/chart_grid.h"
#include "reports/chart_labels.h"
#include "reports/curve_blocks.h"
#include "reports/fitted_text.h"
#include "reports/page_head.h"
#include "store/summary/trial_pit.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

constexpr double kChartShare = 0.8;     // of a cell that has a data sheet below its chart
constexpr Point kChartTitle{250, 250};  // left edge and middle of the title's line on the canvas
constexpr double kChartText = 10.5;     // point on an unscaled canvas

std::size_t blocksPerSheet(const PageSetup& setup) {
  return static_cast<std::size_t>(std::max<std::int16_t>(setup.rows, 1)) *
         static_cast<std::size_t>(std::max<std::int16_t>(setup.columns, 1));
}

PageLabels headLabels(const Settings& settings, const ChartLabels& labels) {
  PageLabels page = pageLabels(settings);
  page.projectNo = labels.projectNo;
  page.projectName = labels.projectName;
  return page;
}

class ChartSheets : public CurveBlockReport {
 public:
  ChartSheets(const PrintJob& job, const Workspace& workspace)
      : CurveBlockReport(job, workspace, blocksPerSheet(job.sheet)),
        m_labels(chartLabels(workspace.settings)),
        m_heads(job, workspace, ProjectKind::Triaxial, headLabels(workspace.settings, m_labels)),
        m_inside(insideMargins(job.sheet, workspace.settings.chart)),
        m_grid(chartGrid(m_inside, job.sheet)),
        m_dataSheet(job.printDataSheet && !workspace.settings.habits.omitPageDateTable) {}

  PageSize pageSize() const override { return chartPaper(job().sheet); }

 private:
  void drawBlocks(DrawingSurface& surface, int page, std::span<const CurveBlock> blocks) override;
  ChartSheetHead headOf(int page, const TriaxialSampleRecord& first);
  void drawCell(DrawingSurface& surface, Point corner, const CurveBlock& block) const;
  std::string chartHead(const CurveBlock& block) const;
  void drawDataSheet(DrawingSurface& surface, Point corner, const TriaxialSampleRecord& record) const;
  /// A text over or under a chart, ending before `right`.
  void print(DrawingSurface& surface, Point place, std::string_view text, double right) const;

  ChartLabels m_labels;
  PageHeads m_heads;
  Rectangle m_inside;
  ChartGrid m_grid;
  bool m_dataSheet;
};

void ChartSheets::drawBlocks(DrawingSurface& surface, int page, std::span<const CurveBlock> blocks) {
  drawChartFrame(surface, pageSize(), m_inside, headOf(page, recordOf(blocks.front())), job().lineWeight);
  for (std::size_t place = 0; place < blocks.size(); ++place) drawCell(surface, m_grid.cornerOf(place), blocks[place]);
}

ChartSheetHead ChartSheets::headOf(int page, const TriaxialSampleRecord& first) {
  PageHead head = m_heads.of(page, {first.projectNo.trimmed(), first.testDate.trimmed()});
  const bool dated = !settings().habits.omitPageDateTable;
  return {.title = chartTitle(settings(), first),
          .controlNumber = std::move(head.controlNumber),
          .laboratory = m_labels.laboratory,
          .projectNo = std::move(head.projectNo),
          .projectName = std::move(head.projectName),
          .pageNumber = m_heads.numberOf(page),
          .pageLabel = std::move(head.pageNumber),
          .signatures = m_labels.signatures,
          .dateLabel = dated ? m_labels.date : std::string(),
          .date = reportDay(workspace())};
}

void ChartSheets::drawCell(DrawingSurface& surface, Point corner, const CurveBlock& block) const {
  const double scale = m_grid.width / kChartWidth * (m_dataSheet ? kChartShare : 1);
  const BlockChart chart = chartOf(block);
  ChartOptions options = chart.options();
  const std::string title = options.title.empty() ? std::string(titleOf(block.curve)) : options.title;
  options.titled = false;
  // Large text in small charts would lie on itself.
  options.textSize = std::min(m_grid.fontSize / scale, kChartText);
  options.xNameSize = kChartText;
  PlacedSurface canvas(surface, corner, scale);
  chart.draw(canvas, options);

  const double y = corner.y + kChartTitle.y * scale - textHeight({.size = m_grid.fontSize}) / 2;
  const double middle = corner.x + m_grid.width / 2;
  print(surface, {corner.x + kChartTitle.x * scale, y}, title, middle);
  print(surface, {middle, y}, chartHead(block), corner.x + m_grid.width);
  if (m_dataSheet) drawDataSheet(surface, corner, chart.record());
}

void ChartSheets::print(DrawingSurface& surface, Point place, std::string_view text, double right) const {
  const Font font{.size = m_grid.fontSize};
  printFitted(surface, place, text, font, right - textWidth(" ", font), std::min(kSmallestType, font.size / 2));
}

std::string ChartSheets::chartHead(const CurveBlock& block) const {
  constexpr std::string_view kGap = "  ";
  const SampleLocation& location = workspace().dataOf(ProjectKind::Triaxial).SampleDisplayTable.at(block.row);
  std::string head = m_labels.sampleNo + gbkToUtf8(recordOf(block).sampleNo.trimmed());
  const std::string borehole = gbkToUtf8(shownBorehole(location.boreholeNo, settings().habits));
  if (!m_labels.borehole.empty() && !borehole.empty()) head.append(kGap).append(m_labels.borehole).append(borehole);
  const std::string depth = m_labels.depth + gbkToUtf8(location.samplingDepth.trimmed());
  if (!depth.empty()) head.append(kGap).append(depth);
  return head;
}

void ChartSheets::drawDataSheet(DrawingSurface& surface, Point corner, const TriaxialSampleRecord& record) const {
  // Shares of the cell.
  constexpr std::array kLines{0.82, 0.88, 0.94};
  constexpr double kLabelX = 0.02, kStagesX = 0.16, kStageWidth = 0.16;
  const auto printColumn = [&](double x, double width, const std::array<std::string, kLines.size()>& texts) {
    for (std::size_t line = 0; line < kLines.size(); ++line)
      print(surface, {corner.x + x * m_grid.width, corner.y + kLines[line] * m_grid.height}, texts[line],
            corner.x + (x + width) * m_grid.width);
  };
  printColumn(kLabelX, kStagesX - kLabelX, {"No", "σ3(kp)", "σ(kp)"});
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    if (!StageUsed(record, stage)) continue;
    const double stress = record.sigma1Failure[stage].number() - record.cellPressure[stage].number();
    printColumn(kStagesX + kStageWidth * static_cast<double>(stage), kStageWidth,
                {std::to_string(stage + 1), gbkToUtf8(record.cellPressure[stage].trimmed()),
                 FormatNumber(stress, NumberFormat::Whole)});
  }
}

std::unique_ptr<Report> makeChartSheets(const PrintJob& job, const Workspace& workspace) {
  return std::make_unique<ChartSheets>(job, workspace);
}

}  // namespace

constinit const Layout kChartSheets{.id = "chart",
                                    .title = "三轴试验成果图表",
                                    .kind = ProjectKind::Triaxial,
                                    .picturePrefix = "SZ",
                                    .hasPageSetup = true,
                                    .make = makeChartSheets};

}  // namespace triaxlab
