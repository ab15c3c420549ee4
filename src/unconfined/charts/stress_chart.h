#pragma once

#include <array>
#include <string>

#include "charts/axes.h"
#include "charts/plot.h"
#include "platform/drawing_surface.h"
#include "unconfined/record.h"

namespace triaxlab {

/// The canvas of the chart, twips.
inline constexpr int kStressChartWidth = 11700, kStressChartHeight = 5150;
/// The table of the specimens' constants on it, twips: where its columns and its first line stand, and its pitch.
inline constexpr std::array kConstantColumns{8000, 9400, 10200, 11000};
inline constexpr int kConstantsTop = 1300, kConstantsPitch = 500;

/// How the chart is drawn: the defaults are those of a screen.
struct StressChartOptions {
  int largestStrain = 22;  // end of the strain axis, %
  bool halfPeaks = false;  // ε50 is shown
  int lineWeight = 1;      // of curves, frame, boxes and table; grid lines have 1
};

inline constexpr AxisReading kStrainReading{NumberFormat::Hundredths, "%"}, kStressReading{NumberFormat::Tenths, "kPa"};

/// What the divisions of the plot stand for.
PlotScale stressChartScale(const UnconfinedSampleRecord& record, const StressChartOptions& options);

/// Draws stress against strain of both specimens, the results and the lines of the constants table; the constants
/// themselves stand in fields over it. `reduceUnconfinedSample` has run on the record. What lies outside the plot is
/// clipped away; texts of the record that are no numbers, or beyond all soil, are not drawn.
void drawStressChart(DrawingSurface& surface, const UnconfinedSampleRecord& record, const StressChartOptions& options);

/// The constants as texts in their table, for pictures that have no fields over it.
void drawConstants(DrawingSurface& surface, const UnconfinedSampleRecord& record);

/// The ring coefficient as it is shown, N/0.01mm.
std::string ringCoefficientText(const UnconfinedSampleRecord& record, Specimen specimen);

/// The numbers of the axes at the edges of a magnified picture that doesn't show them.
void drawStressChartEdges(DrawingSurface& surface, const UnconfinedSampleRecord& record,
                          const StressChartOptions& options, const ChartView& view);

}  // namespace triaxlab
