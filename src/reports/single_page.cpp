#include "reports/single_page.h"

#include <array>

#include "common/gbk.h"
#include "platform/placed_surface.h"
#include "reports/chart_labels.h"
#include "reports/curve_blocks.h"
#include "reports/fitted_text.h"
#include "reports/page_head.h"
#include "store/summary/trial_pit.h"

namespace triaxlab {
namespace {

const Font kTitle{.size = 19, .bold = true}, kBody{};
constexpr double kTitleY = 500, kHeadY = 1500, kFootY = 15350;
constexpr std::array kHeadX{600.0, 4000.0, 7400.0}, kFootX{600.0, 4700.0, 8800.0};
constexpr Point kChart{600, 1850};
constexpr double kChartScale = 1.5;

class SinglePage : public CurveBlockReport {
 public:
  SinglePage(const PrintJob& job, const Workspace& workspace) : CurveBlockReport(job, workspace, 1) {}

  PageSize pageSize() const override { return usualPage(job()); }

 private:
  void drawBlocks(DrawingSurface& surface, int page, std::span<const CurveBlock> blocks) override;
  std::array<std::string, 3> headOf(const CurveBlock& block) const;
};

void SinglePage::drawBlocks(DrawingSurface& surface, int /*page*/, std::span<const CurveBlock> blocks) {
  const CurveBlock& block = blocks.front();
  printFittedCentred(surface, pageSize().width / 2.0, kTitleY, chartTitle(settings()), kTitle);
  printInLine(surface, kHeadX, kHeadY, headOf(block), kBody);

  const BlockChart chart = chartOf(block);
  ChartOptions options = chart.options();
  options.textSize /= kChartScale;  // only the drawing is magnified
  PlacedSurface canvas(surface, kChart, kChartScale);
  chart.draw(canvas, options);

  const bool dated = !settings().habits.omitPageDateTable;
  const std::string date = dated ? "日期:" + reportDay(workspace()) : std::string();
  printInLine(surface, kFootX, kFootY, std::array<std::string, 3>{"试验审核人：", "试验负责人：", date}, kBody);
}

std::array<std::string, 3> SinglePage::headOf(const CurveBlock& block) const {
  const SampleLocation& location = workspace().dataOf(ProjectKind::Triaxial).SampleDisplayTable.at(block.row);
  const std::string depth = gbkToUtf8(location.samplingDepth.trimmed());
  return {"土样号:" + gbkToUtf8(recordOf(block).sampleNo.trimmed()),
          "孔号:" + gbkToUtf8(shownBorehole(location.boreholeNo, settings().habits)),
          "深度:" + (depth.empty() ? "         m" : depth)};  // room for a hand
}

std::unique_ptr<Report> makeSinglePage(const PrintJob& job, const Workspace& workspace) {
  return std::make_unique<SinglePage>(job, workspace);
}

}  // namespace

constinit const Layout kSinglePage{.id = "single",
                                   .title = "三轴试验成果图表（单页）",
                                   .kind = ProjectKind::Triaxial,
                                   .picturePrefix = "SZ",
                                   .make = makeSinglePage};

}  // namespace triaxlab
