#include "reports/three_in_one.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "platform/placed_surface.h"
#include "reports/block_head.h"
#include "reports/failure_table.h"
#include "reports/fitted_text.h"
#include "reports/job_range.h"
#include "reports/page_frame.h"
#include "reports/page_labels.h"
#include "triaxial/charts/curve_chart.h"
#include "triaxial/method_names.h"

namespace triaxlab {
namespace {

constexpr int kBlocksPerPage = 2;
constexpr double kFirstBlockTop = 1850, kBlockGap = 250;
constexpr double kChartX = 600;
constexpr Point kHead{7900, 500};  // below the top of the block
constexpr double kHeadLine = 300;

/// One curve of one sample.
struct Block {
  std::size_t row;
  CurvePage curve;
};

double heightOf(const Block& block) { return kChartHeight + (isEnvelopePage(block.curve) ? kFailureTableHeight : 0); }

bool isWanted(const CurveOptions& options, CurvePage curve) {
  // An envelope without circles has nothing to lie on.
  if (isEnvelopePage(curve) && !options.totalCircles && !options.effectiveCircles) return false;
  return std::find(options.pages.begin(), options.pages.end(), curve) != options.pages.end();
}

std::vector<Block> blocksOf(const PrintJob& job, const Workspace& workspace) {
  std::vector<Block> blocks;
  for (const std::size_t row : chosenRows(job, workspace, ProjectKind::Triaxial))
    for (const CurvePage curve : kCurvePages)
      if (isWanted(job.curves, curve) && hasPage(workspace.TriaxialSampleTable[row], curve))
        blocks.push_back({row, curve});
  return blocks;
}

class ThreeInOne : public Report {
 public:
  ThreeInOne(const PrintJob& job, const Workspace& workspace)
      : m_job(job),
        m_workspace(workspace),
        m_labels(pageLabels(workspace.settings)),
        m_blocks(blocksOf(job, workspace)),
        m_heads(job, workspace, ProjectKind::Triaxial, m_labels) {}

  PageSize pageSize() const override { return usualPage(m_job); }
  int pageCount() const override { return static_cast<int>(m_blocks.size() + kBlocksPerPage - 1) / kBlocksPerPage; }
  void drawPage(DrawingSurface& surface, int page) override;
  std::string_view projectNo(int page) const override { return recordOf(firstBlock(page)).projectNo.trimmed(); }

 private:
  const Block& firstBlock(int page) const { return m_blocks.at(static_cast<std::size_t>(page - 1) * kBlocksPerPage); }
  const TriaxialSampleRecord& recordOf(const Block& block) const { return m_workspace.TriaxialSampleTable[block.row]; }
  PageHead headOf(int page, const TriaxialSampleRecord& first);
  void drawBlock(DrawingSurface& surface, double top, const Block& block, BlockPlace place);

  PrintJob m_job;
  const Workspace& m_workspace;
  PageLabels m_labels;
  std::vector<Block> m_blocks;
  PageHeads m_heads;
};

void ThreeInOne::drawPage(DrawingSurface& surface, int page) {
  const auto begin = static_cast<std::size_t>(page - 1) * kBlocksPerPage;
  const std::size_t end = std::min(begin + kBlocksPerPage, m_blocks.size());
  const TriaxialSampleRecord& first = recordOf(firstBlock(page));
  drawPageFrame(surface, kResultFrame, headOf(page, first), pageSize().width);
  double blockTop = kFirstBlockTop;
  for (std::size_t i = begin; i < end; ++i) {
    const TriaxialSampleRecord& record = recordOf(m_blocks[i]);
    drawBlock(surface, blockTop, m_blocks[i],
              {.firstOfPage = i == begin, .pageHasSameMethod = briefTestName(record) == briefTestName(first)});
    blockTop += heightOf(m_blocks[i]) + kBlockGap;
  }
}

PageHead ThreeInOne::headOf(int page, const TriaxialSampleRecord& first) {
  const LaboratoryHabits& habits = m_workspace.settings.habits;
  PageHead head = m_heads.of(page, {first.projectNo.trimmed(), first.testDate.trimmed()});
  if (!habits.omitTestMethod) head.method = pageMethod(first, m_workspace.settings);
  if (habits.omitTriaxialTestDate) head.testDate.clear();
  return head;
}

void ThreeInOne::drawBlock(DrawingSurface& surface, double top, const Block& block, BlockPlace place) {
  const LaboratoryHabits& habits = m_workspace.settings.habits;
  // Showing a curve stores its failure values; paper must not change what is saved, so it works on a copy.
  TriaxialSampleRecord record = m_workspace.TriaxialSampleTable[block.row];
  const PageResults results = computePage(record, block.curve, m_job.curves.checkedMode, habits.cohesionFormat());

  ChartOptions options;
  options.cohesionFormat = habits.cohesionFormat();
  options.lineWeight = m_job.lineWeight;
  options.totalCircles = m_job.curves.totalCircles;
  options.effectiveCircles = m_job.curves.effectiveCircles;
  options.title = curveTitle(block.curve, m_workspace.settings);
  PlacedSurface canvas(surface, {kChartX, top});
  drawCurvePage(canvas, record, block.curve, results, options);

  Point lineStart{kHead.x, top + kHead.y};
  for (const std::string& line : blockHead(m_workspace, m_labels, block.row, place)) {
    printFitted(surface, lineStart, line, {});
    lineStart.y += kHeadLine;
  }
  if (isEnvelopePage(block.curve) && !habits.compactEnvelope && !habits.omitPageDateTable)
    drawFailureTable(surface, top + kChartHeight, record, m_job.lineWeight);
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
