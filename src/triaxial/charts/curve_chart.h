#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/text_number.h"
#include "platform/drawing_surface.h"
#include "triaxial/curve_page.h"
#include "triaxial/record.h"

namespace triaxlab {

/// The canvas of every chart, twips.
inline constexpr double kChartWidth = 7050, kChartHeight = 4700;

/// The working copies of a stress-strain curve while a person corrects it.
struct CurveAdjustment {
  ShearRows<FixedText<6>> workCurve;    // drawn in place of deviatorStress, kPa
  PerStage<std::int16_t> stageShift{};  // rows by which a curve slides to the left, 0 to 50
  std::size_t selectedStage = 0;
};

/// The line that a person moves by keys.
enum class MovedLine : std::uint8_t { None, TotalEnvelope, EffectiveEnvelope, StressPath };

/// How a chart is drawn: the defaults are those of a screen.
struct ChartOptions {
  NumberFormat cohesionFormat = NumberFormat::Whole;
  int lineWeight = 1;                           // of curves, envelopes, circles and frames; grid lines and ticks have 1
  bool totalCircles = true;                     // circles and envelope of total stress
  bool effectiveCircles = true;                 // the same of effective stress; drawn for CU only
  double textSize = 10.5;                       // point
  std::string title;                            // empty: the page's own
  const CurveAdjustment* adjustment = nullptr;  // page 1
  MovedLine movedLine = MovedLine::None;        // pages 2 to 4
};

/// "主应力差与轴向应变曲线" and its five companions.
std::string_view titleOf(CurvePage page);

/// Draws a page of a sample on a canvas of kChartWidth x kChartHeight, the same on screen and on paper. What lies
/// outside the plot is clipped away. `results` are those of computePage, which has run on the record; moved lines come
/// in them. Texts of the record that are no numbers, or beyond all soil, are not drawn.
void drawCurvePage(DrawingSurface& surface, const TriaxialSampleRecord& record, CurvePage page,
                   const PageResults& results, const ChartOptions& options);

}  // namespace triaxlab
