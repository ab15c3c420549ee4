#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "charts/axes.h"
#include "charts/clipping.h"
#include "charts/plot.h"
#include "common/straight_line.h"
#include "k0/record.h"

namespace triaxlab {

// The chart of lateral over axial pressure with the Ko line. Divisions of both axes are squares of the same worth.

/// Its canvas, twips.
inline constexpr int kKoChartWidth = 9000, kKoChartHeight = 5100;
inline constexpr PlotFrame kKoPlot{2500, 300, 8500, 4120, 22, 14};

/// Whose line is drawn: the record's own, or the one that a person is moving.
enum class KoLineOf : std::uint8_t { Record, Person };

/// Room for the largest pressure.
PlotScale koScale(const K0SampleRecord& record);
/// Where a line is seen on the canvas; nothing of one that lies beside the plot. One that a person moves goes on above
/// the plot, to the edge of the canvas.
std::optional<Segment> koLineOnCanvas(const PlotScale& scale, const StraightLine& line, KoLineOf whose);

/// What stands at the axes: the units alone, or the names of the stresses with them.
enum class KoAxes : std::uint8_t { Units, Stresses };

/// How the chart is drawn; the defaults are those of a screen.
struct KoChartOptions {
  std::optional<StraightLine> moved = std::nullopt;  // by a person; in the place of the record's line
  KoAxes axes = KoAxes::Units;
  int lineWeight = 1;  // of line, points, frame and box; grid lines have 1
};
void drawKoChart(DrawingSurface& surface, const K0SampleRecord& record, const KoChartOptions& options = {});
/// What stays at the edges of the magnified chart.
void drawKoChartEdges(DrawingSurface& surface, const K0SampleRecord& record, const ChartView& view);
/// The pressures at a place of the canvas, UTF-8; empty beside the plot.
std::string koReadout(const K0SampleRecord& record, Point place);

}  // namespace triaxlab
