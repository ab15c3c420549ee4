#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "charts/axes.h"
#include "charts/plot.h"
#include "common/text_number.h"
#include "platform/drawing_surface.h"
#include "triaxial/curve_adjustment.h"
#include "triaxial/curve_page.h"
#include "triaxial/record.h"

namespace triaxlab {

/// The canvas of every chart, twips.
inline constexpr double kChartWidth = 7050, kChartHeight = 4700;
/// The plot on it.
inline constexpr PlotFrame kCurvePlot{
    .left = 700, .top = 500, .right = 6700, .bottom = 4300, .columns = 22, .rows = 14};

/// The line that a person moves by keys.
enum class MovedLine : std::uint8_t { None, TotalEnvelope, EffectiveEnvelope, StressPath };

/// How a chart is drawn: the defaults are those of a screen.
struct ChartOptions {
  NumberFormat cohesionFormat = NumberFormat::Whole;
  int lineWeight = 1;                           // of curves, envelopes, circles and frames; grid lines and ticks have 1
  bool totalCircles = true;                     // circles and envelope of total stress
  bool effectiveCircles = true;                 // the same of effective stress; drawn for CU only
  double textSize = 10.5;                       // point
  double xNameSize = 9;                         // of the name at the end of the x axis where all else has 10.5
  bool titled = true;                           // false: the caller puts a title elsewhere
  std::string title;                            // empty: the page's own
  const CurveAdjustment* adjustment = nullptr;  // page 1
  MovedLine movedLine = MovedLine::None;        // pages 2 to 4
};

/// "主应力差与轴向应变曲线" and its five companions.
std::string_view titleOf(CurvePage page);

struct PageReadings {
  AxisReading x, y;
};
PageReadings readingsOf(CurvePage page);

/// What the divisions of a page's plot stand for when it is drawn with these options.
PlotScale scaleOfPage(const TriaxialSampleRecord& record, CurvePage page, const ChartOptions& options);

/// Draws a page of a sample on a canvas of kChartWidth x kChartHeight, the same on screen and on paper. What lies
/// outside the plot is clipped away. `results` are those of computePage, which has run on the record; moved lines come
/// in them. Texts of the record that are no numbers, or beyond all soil, are not drawn.
void drawCurvePage(DrawingSurface& surface, const TriaxialSampleRecord& record, CurvePage page,
                   const PageResults& results, const ChartOptions& options);

/// The numbers of the page's axes at the edges of a magnified picture that doesn't show them.
void drawPageEdges(DrawingSurface& surface, const TriaxialSampleRecord& record, CurvePage page,
                   const ChartOptions& options, const ChartView& view);

}  // namespace triaxlab
