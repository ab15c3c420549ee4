#include "reports/curve_blocks.h"

#include <algorithm>

#include "reports/job_range.h"
#include "reports/page_labels.h"

namespace triaxlab {
namespace {

bool isWanted(const CurveOptions& options, CurvePage curve) {
  // An envelope without circles has nothing to lie on.
  if (isEnvelopePage(curve) && !options.totalCircles && !options.effectiveCircles) return false;
  return std::find(options.pages.begin(), options.pages.end(), curve) != options.pages.end();
}

std::vector<CurveBlock> blocksOfJob(const PrintJob& job, const Workspace& workspace) {
  std::vector<CurveBlock> blocks;
  for (const std::size_t row : chosenRows(job, workspace, ProjectKind::Triaxial))
    for (const CurvePage curve : kCurvePages)
      if (isWanted(job.curves, curve) && hasPage(workspace.TriaxialSampleTable[row], curve))
        blocks.push_back({row, curve});
  return blocks;
}

}  // namespace

BlockChart::BlockChart(const PrintJob& job, const Workspace& workspace, const CurveBlock& block)
    : m_job(job), m_workspace(workspace), m_curve(block.curve), m_record(workspace.TriaxialSampleTable[block.row]) {
  m_results = computePage(m_record, m_curve, job.curves.checkedMode, workspace.settings.habits.cohesionFormat());
}

ChartOptions BlockChart::options() const {
  ChartOptions options;
  options.cohesionFormat = m_workspace.settings.habits.cohesionFormat();
  options.lineWeight = m_job.lineWeight;
  options.totalCircles = m_job.curves.totalCircles;
  options.effectiveCircles = m_job.curves.effectiveCircles;
  options.title = curveTitle(m_curve, m_workspace.settings);
  return options;
}

void BlockChart::draw(DrawingSurface& canvas, const ChartOptions& options) const {
  drawCurvePage(canvas, m_record, m_curve, m_results, options);
}

CurveBlockReport::CurveBlockReport(const PrintJob& job, const Workspace& workspace, std::size_t blocksPerPage)
    : m_job(job), m_workspace(workspace), m_blocks(blocksOfJob(job, workspace)), m_blocksPerPage(blocksPerPage) {}

int CurveBlockReport::pageCount() const {
  return static_cast<int>((m_blocks.size() + m_blocksPerPage - 1) / m_blocksPerPage);
}

std::span<const CurveBlock> CurveBlockReport::blocksOf(int page) const {
  const auto behindFirst = std::span(m_blocks).subspan(static_cast<std::size_t>(page - 1) * m_blocksPerPage);
  return behindFirst.first(std::min(m_blocksPerPage, behindFirst.size()));
}

void CurveBlockReport::drawPage(DrawingSurface& surface, int page) { drawBlocks(surface, page, blocksOf(page)); }

std::vector<SampleNumbers> CurveBlockReport::samplesOf(int page) const {
  std::vector<SampleNumbers> samples;
  for (const CurveBlock& block : blocksOf(page))
    samples.push_back({recordOf(block).projectNo.trimmed(), recordOf(block).sampleNo.trimmed()});
  return samples;
}

}  // namespace triaxlab
