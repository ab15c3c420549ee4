#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "reports/print_job.h"
#include "reports/report.h"
#include "store/workspace.h"
#include "triaxial/charts/curve_chart.h"

namespace triaxlab {

/// One curve of one sample.
struct CurveBlock {
  std::size_t row;
  CurvePage curve;
};

/// The chart of a block, and the sample as showing that curve leaves it, with its failure values. It works on a copy:
/// paper must not change what is saved.
class BlockChart {
 public:
  BlockChart(const PrintJob& job, const Workspace& workspace, const CurveBlock& block);

  const TriaxialSampleRecord& record() const { return m_record; }
  /// How the job's charts look; a layout puts in what is its own.
  ChartOptions options() const;
  /// On a canvas of kChartWidth x kChartHeight.
  void draw(DrawingSurface& canvas, const ChartOptions& options) const;

 private:
  const PrintJob& m_job;
  const Workspace& m_workspace;
  CurvePage m_curve;
  TriaxialSampleRecord m_record;
  PageResults m_results;
};

/// Pages of curve blocks: sample after sample, of each the ticked curves in the order of the dialog, so many to a page.
/// An envelope without circles to lie on makes no block, nor does a curve that the sample's method doesn't have.
class CurveBlockReport : public Report {
 public:
  int pageCount() const final;
  void drawPage(DrawingSurface& surface, int page) final;
  std::vector<SampleNumbers> samplesOf(int page) const final;

 protected:
  CurveBlockReport(const PrintJob& job, const Workspace& workspace, std::size_t blocksPerPage);

  /// Draws a page whose blocks, one at least, are these.
  virtual void drawBlocks(DrawingSurface& surface, int page, std::span<const CurveBlock> blocks) = 0;

  const PrintJob& job() const { return m_job; }
  const Workspace& workspace() const { return m_workspace; }
  const Settings& settings() const { return m_workspace.settings; }
  const TriaxialSampleRecord& recordOf(const CurveBlock& block) const {
    return m_workspace.TriaxialSampleTable[block.row];
  }
  BlockChart chartOf(const CurveBlock& block) const { return {m_job, m_workspace, block}; }

 private:
  std::span<const CurveBlock> blocksOf(int page) const;

  PrintJob m_job;
  const Workspace& m_workspace;
  std::vector<CurveBlock> m_blocks;
  std::size_t m_blocksPerPage;
};

}  // namespace triaxlab
