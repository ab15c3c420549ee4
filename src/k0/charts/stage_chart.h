#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "charts/axes.h"
#include "charts/clipping.h"
#include "charts/plot.h"
#include "common/straight_line.h"
#include "k0/record.h"
#include "k0/settlement.h"

namespace triaxlab {

// The chart of a load stage of the TK0 test: deformation, which grows downward, and lateral pressure over the root of
// time, with the two lines of the T90 construction.

/// Its canvas, twips.
inline constexpr int kStageChartWidth = 5400, kStageChartHeight = 3700;
inline constexpr PlotFrame kStagePlot{700, 300, 4700, 3100, 10, 16, YDirection::Down};
/// The pressures fill the lower part of the plot, upward.
inline constexpr PlotFrame kPressurePlot{700, 1350, 4700, 3100, 10, 10};

/// Millimetres downward over roots of minutes.
PlotScale deformationScale(const TK0SampleRecord& record, std::size_t stage);
/// kPa upward over the same.
PlotScale pressureScale(const TK0SampleRecord& record, std::size_t stage);
/// Where a line of the construction is seen on the canvas; nothing of one that lies beside the plot.
std::optional<Segment> t90LineOnCanvas(const PlotScale& deformations, const StraightLine& line);

/// What of a stage isn't in its readings. `isMoved`: a person is moving the first line.
struct StageConstruction {
  StraightLine first;
  T90 t90;
  bool isMoved = false;
};
/// How the chart is drawn; the defaults are those of a screen.
struct StageChartOptions {
  int lineWeight = 1;  // of curves, lines and box; grid lines have 1
  double scale = 1;    // in which the canvas is shown; its texts keep their size there
};
void drawStageChart(DrawingSurface& surface, const TK0SampleRecord& record, std::size_t stage,
                    const StageConstruction& construction, const StageChartOptions& options = {});
/// What stays at the edges of the magnified chart.
void drawStageChartEdges(DrawingSurface& surface, const TK0SampleRecord& record, std::size_t stage,
                         const ChartView& view);
/// Time, deformation and pressure at a place of the canvas, UTF-8; empty beside the plot.
std::string stageReadout(const TK0SampleRecord& record, std::size_t stage, Point place);

}  // namespace triaxlab
