#include "reports/three_in_one.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "common/gbk.h"
#include "common/user_error.h"
#include "platform/placed_surface.h"
#include "reports/block_head.h"
#include "reports/failure_table.h"
#include "reports/fitted_text.h"
#include "reports/job_range.h"
#include "reports/page_frame.h"
#include "reports/page_labels.h"
#include "store/project/project_number.h"
#include "triaxial/charts/curve_chart.h"
#include "triaxial/method_names.h"

namespace triaxlab {
namespace {

constexpr std::array kAllCurves{
    CurvePage::StressStrain, CurvePage::StressRatioEnvelope, CurvePage::StressDifferenceEnvelope,
    CurvePage::StressPath,   CurvePage::PorePressure,        CurvePage::StressRatio};
constexpr int kBlocksPerPage = 2;
constexpr double kFirstBlockTop = 1850, kBlockGap = 250;
constexpr double kChartX = 600;
constexpr Point kHead{7900, 500};  // below the top of the block
constexpr double kHeadLine = 300;
constexpr double kRightHalf = 11905;  // of an A3 page

/// One curve of one sample.
struct Block {
  std::size_t row;
  CurvePage curve;
};

double heightOf(const Block& block) { return kChartHeight + (isEnvelopePage(block.curve) ? kFailureTableHeight : 0); }

bool isWanted(const PrintJob& job, CurvePage curve) {
  // An envelope without circles has nothing to lie on.
  if (isEnvelopePage(curve) && !job.totalCircles && !job.effectiveCircles) return false;
  return std::find(job.curves.begin(), job.curves.end(), curve) != job.curves.end();
}

/// Effective stresses, which most curves show, are those of CU alone.
bool hasCurve(const TriaxialSampleRecord& record, CurvePage curve) {
  return record.testMethod == kCU || curve == CurvePage::StressStrain || curve == CurvePage::StressDifferenceEnvelope;
}

std::vector<Block> blocksOf(const PrintJob& job, const Workspace& workspace) {
  std::vector<Block> blocks;
  for (const std::size_t row : chosenRows(job, workspace))
    for (const CurvePage curve : kAllCurves)
      if (isWanted(job, curve) && hasCurve(workspace.TriaxialSampleTable[row], curve)) blocks.push_back({row, curve});
  return blocks;
}

int pagesFor(std::size_t blocks) { return static_cast<int>(blocks + kBlocksPerPage - 1) / kBlocksPerPage; }

bool sideBySide(const PrintJob& job) { return job.printToA3 && !job.printToPicture; }

/// One job under way.
class ThreeInOne {
 public:
  ThreeInOne(const PrintJob& job, const Workspace& workspace)
      : m_job(job),
        m_workspace(workspace),
        m_labels(pageLabels(workspace.settings)),
        m_blocks(blocksOf(job, workspace)),
        m_frame(job, workspace, m_labels, sideBySide(job) ? kA4.width : threeInOnePageSize(job).width) {}

  int pageCount() const { return pagesFor(m_blocks.size()); }
  /// `page` counts from 1.
  void drawPage(DrawingSurface& surface, int page);

 private:
  void drawBlock(DrawingSurface& surface, double top, const Block& block, BlockPlace place);

  const PrintJob& m_job;
  const Workspace& m_workspace;
  PageLabels m_labels;
  std::vector<Block> m_blocks;
  PageFrame m_frame;
};

void ThreeInOne::drawPage(DrawingSurface& surface, int page) {
  const auto begin = static_cast<std::size_t>(page - 1) * kBlocksPerPage;
  const std::size_t end = std::min(begin + kBlocksPerPage, m_blocks.size());
  const TriaxialSampleRecord& first = m_workspace.TriaxialSampleTable[m_blocks[begin].row];
  m_frame.draw(surface, m_job.firstPageNumber + page - 1, first);
  double blockTop = kFirstBlockTop;
  for (std::size_t i = begin; i < end; ++i) {
    const TriaxialSampleRecord& record = m_workspace.TriaxialSampleTable[m_blocks[i].row];
    drawBlock(surface, blockTop, m_blocks[i],
              {.firstOfPage = i == begin, .pageHasSameMethod = briefTestName(record) == briefTestName(first)});
    blockTop += heightOf(m_blocks[i]) + kBlockGap;
  }
}

void ThreeInOne::drawBlock(DrawingSurface& surface, double top, const Block& block, BlockPlace place) {
  const LaboratoryHabits& habits = m_workspace.settings.habits;
  // Showing a curve stores its failure values; paper must not change what is saved, so it works on a copy.
  TriaxialSampleRecord record = m_workspace.TriaxialSampleTable[block.row];
  const PageResults results = computePage(record, block.curve, m_job.checkedMode, habits.cohesionFormat());

  ChartOptions options;
  options.cohesionFormat = habits.cohesionFormat();
  options.lineWeight = m_job.lineWeight;
  options.totalCircles = m_job.totalCircles;
  options.effectiveCircles = m_job.effectiveCircles;
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

}  // namespace

PageSize threeInOnePageSize(const PrintJob& job) {
  if (sideBySide(job)) return kA3SideBySide;
  return job.dotMatrix() ? kDotMatrixPage : kA4;
}

int threeInOnePageCount(const PrintJob& job, const Workspace& workspace) {
  return pagesFor(blocksOf(job, workspace).size());
}

int runThreeInOne(const PrintJob& job, const Workspace& workspace, PageDevice& device) {
  ThreeInOne pages(job, workspace);
  const PageSize size = threeInOnePageSize(job);
  const auto [first, last] = chosenPages(job, pages.pageCount());
  DrawingSurface* sheet = nullptr;
  for (int page = first; page <= last; ++page) {
    const bool onTheRight = sideBySide(job) && (page - first) % 2 == 1;
    if (!onTheRight) sheet = &device.beginPage(size);
    PlacedSurface half(*sheet, {onTheRight ? kRightHalf : 0, 0});
    pages.drawPage(half, page);
    if (!sideBySide(job) || onTheRight || page == last) device.endPage();
  }
  device.finish();
  return last - first + 1;
}

std::optional<std::filesystem::path> pictureFolderOf(const PrintJob& job, const Workspace& workspace) {
  const std::vector<Block> blocks = blocksOf(job, workspace);
  const int firstPage = chosenPages(job, pagesFor(blocks.size())).first;
  if (blocks.empty()) return std::nullopt;
  const Block& first = blocks[static_cast<std::size_t>(firstPage - 1) * kBlocksPerPage];
  const std::string_view projectNo = workspace.TriaxialSampleTable[first.row].projectNo.trimmed();
  if (const auto why = whyNoFileName(projectNo))
    throw UserError("打印到图片文件",
                    fmt::format("工程编号“{}”{}，不能作为图片文件夹的名称。", printableText(projectNo), *why));
  return workspace.pictureFolder() / pathFromText(gbkToUtf8(projectNo));
}

}  // namespace triaxlab
