#include "reports/three_in_one.h"

#include "platform/placed_surface.h"
#include "reports/block_head.h"
#include "reports/curve_blocks.h"
#include "reports/failure_table.h"
#include "reports/fitted_text.h"
#include "reports/page_frame.h"
#include "reports/page_labels.h"
#include "triaxial/method_names.h"

namespace triaxlab {
namespace {

constexpr std::size_t kBlocksPerPage = 2;
constexpr double kFirstBlockTop = 1850, kBlockGap = 250;
constexpr double kChartX = 600;
constexpr Point kHead{7900, 500};  // below the top of the block
constexpr double kHeadLine = 300;

double heightOf(const CurveBlock& block) {
  return kChartHeight + (isEnvelopePage(block.curve) ? kFailureTableHeight : 0);
}

class ThreeInOne : public CurveBlockReport {
 public:
  ThreeInOne(const PrintJob& job, const Workspace& workspace)
      : CurveBlockReport(job, workspace, kBlocksPerPage),
        m_labels(pageLabels(workspace.settings)),
        m_heads(job, workspace, ProjectKind::Triaxial, m_labels) {}

  PageSize pageSize() const override { return usualPage(job()); }

 private:
  void drawBlocks(DrawingSurface& surface, int page, std::span<const CurveBlock> blocks) override;
  PageHead headOf(int page, const TriaxialSampleRecord& first);
  void drawBlock(DrawingSurface& surface, double top, const CurveBlock& block, BlockPlace place);

  PageLabels m_labels;
  PageHeads m_heads;
};

void ThreeInOne::drawBlocks(DrawingSurface& surface, int page, std::span<const CurveBlock> blocks) {
  const TriaxialSampleRecord& first = recordOf(blocks.front());
  drawPageFrame(surface, kResultFrame, headOf(page, first), pageSize().width);
  double blockTop = kFirstBlockTop;
  for (const CurveBlock& block : blocks) {
    const bool sameMethod = briefTestName(recordOf(block)) == briefTestName(first);
    drawBlock(surface, blockTop, block, {.firstOfPage = &block == &blocks.front(), .pageHasSameMethod = sameMethod});
    blockTop += heightOf(block) + kBlockGap;
  }
}

PageHead ThreeInOne::headOf(int page, const TriaxialSampleRecord& first) {
  PageHead head = m_heads.of(page, {first.projectNo.trimmed(), first.testDate.trimmed()});
  if (!settings().habits.omitTestMethod) head.method = pageMethod(first, settings());
  if (settings().habits.omitTriaxialTestDate) head.testDate.clear();
  return head;
}

void ThreeInOne::drawBlock(DrawingSurface& surface, double top, const CurveBlock& block, BlockPlace place) {
  const BlockChart chart = chartOf(block);
  PlacedSurface canvas(surface, {kChartX, top});
  chart.draw(canvas, chart.options());

  Point lineStart{kHead.x, top + kHead.y};
  for (const std::string& line : blockHead(workspace(), m_labels, block.row, place)) {
    printFitted(surface, lineStart, line, {});
    lineStart.y += kHeadLine;
  }
  const LaboratoryHabits& habits = settings().habits;
  if (isEnvelopePage(block.curve) && !habits.compactEnvelope && !habits.omitPageDateTable)
    drawFailureTable(surface, top + kChartHeight, chart.record(), job().lineWeight);
}

std::unique_ptr<Report> makeThreeInOne(const PrintJob& job, const Workspace& workspace) {
  return std::make_unique<ThreeInOne>(job, workspace);
}

}  // namespace

constinit const Layout kThreeInOne{.id = "three-in-one",
                                   .title = "三轴试验成果曲线",
                                   .kind = ProjectKind::Triaxial,
                                   .picturePrefix = "SZ",
                                   .make = makeThreeInOne};

}  // namespace triaxlab
