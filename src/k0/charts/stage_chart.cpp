#include "k0/charts/stage_chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "charts/results_box.h"
#include "charts/walk.h"
#include "common/gbk.h"

namespace triaxlab {
namespace {

// Twips of the canvas.
constexpr double kNumbersBelowY = 3140, kNumbersLeftX = 660, kNumbersRightX = 4740, kTimeY = 3340;
constexpr Point kDeformationPlace{100, 60}, kPressurePlace{4740, 1060};
constexpr double kPointRadius = 25;
constexpr ResultsBox kBox{.corner = {3000, 300},
                          .opposite = {4700, 1100},
                          .firstLine = {3060, 350},
                          .pitch = 250,
                          .outline = Colour::Blue,
                          .fill = Colour::White};
constexpr int kMovedLineWidth = 2;

const Font kNumberFont{.name = kArialNarrow, .size = 9};
constexpr AxisNumbers kNumbersBelow{.at = kNumbersBelowY, .end = AxisEnd::Closed};
constexpr AxisNumbers kNumbersLeft{
    .at = kNumbersLeftX, .every = 2, .format = NumberFormat::Hundredths, .end = AxisEnd::Closed, .firstHangs = true};
constexpr AxisNumbers kNumbersRight{
    .at = kNumbersRightX, .every = 2, .format = NumberFormat::Tenths, .end = AxisEnd::Closed};

/// The readings of a stage that are drawn: the zero reading, which takes no part in the construction, and those that
/// do. Their abscissae are roots of minutes.
struct StageCurves {
  std::vector<Point> deformation, pressure;
};

StageCurves curvesOf(const TK0SampleRecord& record, std::size_t stage) {
  StageCurves curves;
  for (std::size_t row = 0; row <= kSettlementRows; ++row) {
    const std::int32_t seconds = record.elapsedSeconds[row];
    if (row > 0 && seconds == 0) continue;
    const double x = rootOfMinutes(seconds);
    curves.deformation.push_back({x, plottedNumber(record.deformationSeries[row][stage])});
    curves.pressure.push_back({x, plottedNumber(record.pressureSeries[row][stage])});
  }
  return curves;
}

/// The readings of the construction, after which the axes are laid out; a stage without any counts as one of zeros.
std::vector<Point> timed(const std::vector<Point>& curve) {
  if (curve.size() == 1) return {{0, 0}};
  return {curve.begin() + 1, curve.end()};
}

/// Millionths of a millimetre. Texts of a record have no further decimals, so steps of the axis that are counted in
/// these never miss a reading by a rounding.
using Nanometres = std::int64_t;
Nanometres nanometres(double mm) { return std::llround(mm * 1e6); }

constexpr Nanometres kSpanStep = 320'000;  // of all 16 divisions

constexpr Nanometres stepsAbove(Nanometres reach, Nanometres step) { return reach < 0 ? 0 : reach / step + 1; }

/// Where the axis of a stage behind the first begins: a grain above its first reading, and three divisions more.
Nanometres startAbove(Nanometres first, Nanometres span) {
  constexpr Nanometres kHighest = 20'000'000, kGrain = 40'000;
  const Nanometres start = kHighest - stepsAbove(kHighest - first, kGrain) * kGrain;
  return std::max<Nanometres>(start - 3 * span / kStagePlot.rows, 0);
}

/// The font in which a text has its own size once the canvas is scaled.
Font scaledFont(const Font& font, double scale) {
  Font scaled = font;
  scaled.size /= scale;
  return scaled;
}

void drawSeries(const Plot& plot, const std::vector<Point>& values, Stroke stroke) {
  plot.curve(values, stroke);
  for (const Point& value : values) plot.dot(value, kPointRadius, stroke, stroke.colour);
}

void drawAxes(DrawingSurface& surface, const PlotScale& deformations, const PlotScale& pressures, double scale) {
  const Font font = scaledFont(kNumberFont, scale), nameFont = scaledFont({}, scale);
  drawNumbersBelow(surface, deformations, kNumbersBelow, font);
  drawNumbersLeft(surface, deformations, kNumbersLeft, font);
  drawNumbersRight(surface, pressures, kNumbersRight, font);
  surface.textRightAligned(kStagePlot.right, kTimeY, "√t(min)", nameFont, Colour::Black);
  surface.text(kDeformationPlace, "D(mm)", nameFont, Colour::Black);
  surface.text(kPressurePlace, "P(kPa)", nameFont, Colour::Black);
}

void drawLine(DrawingSurface& surface, const PlotScale& scale, const StraightLine& line, Stroke stroke) {
  if (const auto seen = t90LineOnCanvas(scale, line)) surface.line(seen->from, seen->to, stroke);
}

/// In type that leaves the longest line in the box.
void drawBox(DrawingSurface& surface, const std::array<ResultLine, 3>& lines, const StageChartOptions& options) {
  constexpr double kTenth = 10, kRoom = kBox.opposite.x - kBox.firstLine.x;
  Font font = scaledFont({}, options.scale);
  double widest = 0;
  for (const ResultLine& line : lines) widest = std::max(widest, textWidth(line.text, font));
  if (widest > kRoom) font.size = std::floor(font.size * kRoom / widest * kTenth) / kTenth;
  drawResultsBox(surface, kBox, lines, font, options.lineWeight);
}

}  // namespace

PlotScale deformationScale(const TK0SampleRecord& record, std::size_t stage) {
  constexpr Nanometres kSmallRange = 150'000;
  const std::vector<Point> curve = timed(curvesOf(record, stage).deformation);
  const Nanometres first = nanometres(curve.front().y), last = nanometres(curve.back().y);
  Nanometres span = kSpanStep;
  if (last - first >= kSmallRange) span += stepsAbove(last - first, kSpanStep) * kSpanStep;
  const Nanometres start = stage == 0 ? 0 : startAbove(first, span);
  if (const Nanometres missing = last - start - span; missing > 0)
    span += (missing + kSpanStep - 1) / kSpanStep * kSpanStep;
  const auto mm = [](Nanometres length) { return static_cast<double>(length) / 1e6; };
  return {kStagePlot, 1, mm(span) / kStagePlot.rows, mm(start)};
}

PlotScale pressureScale(const TK0SampleRecord& record, std::size_t stage) {
  constexpr double kSmallestReach = 100, kGrain = 12.5;
  double reach = kSmallestReach;
  for (const Point& reading : timed(curvesOf(record, stage).pressure)) reach = std::max(reach, reading.y);
  return {kPressurePlot, 1, kGrain * stepsToReach(reach, kPressurePlot.rows * kGrain)};
}

std::optional<Segment> t90LineOnCanvas(const PlotScale& deformations, const StraightLine& line) {
  constexpr double kStep = 0.001;  // mm
  if (line.slope == 0) return std::nullopt;
  const double top = deformations.yStart, bottom = deformations.yEnd(), right = deformations.right();
  // The far end lies at the bottom; where that is beyond the right edge it rises until it is in sight. A line that
  // isn't when the end has come to the top lies above the plot.
  const auto far = [&](double steps) { return bottom - steps * kStep; };
  const auto xAt = [&line](double y) { return (y - line.intercept) / line.slope; };
  const auto steps = stepsUntil(std::ceil((bottom - top) / kStep), [&](double n) { return xAt(far(n)) <= right; });
  if (!steps) return std::nullopt;
  const double y = far(*steps);
  const Segment segment{deformations.place({0, line.intercept}), deformations.place({xAt(y), y})};
  if (!std::isfinite(segment.from.y) || !std::isfinite(segment.to.x)) return std::nullopt;
  return clipLine(segment, {kStagePlot.left, kStagePlot.top, kStagePlot.right, kStagePlot.bottom});
}

void drawStageChart(DrawingSurface& surface, const TK0SampleRecord& record, std::size_t stage,
                    const StageConstruction& construction, const StageChartOptions& options) {
  const PlotScale deformations = deformationScale(record, stage), pressures = pressureScale(record, stage);
  const StageCurves curves = curvesOf(record, stage);
  drawGrid(surface, deformations, AxisEnd::Closed);
  drawAxes(surface, deformations, pressures, options.scale);
  drawSeries({surface, deformations}, curves.deformation, {Colour::LightRed, options.lineWeight});
  drawSeries({surface, pressures}, curves.pressure, {Colour::LightBlue, options.lineWeight});
  const int width = construction.isMoved ? kMovedLineWidth : options.lineWeight;
  drawLine(surface, deformations, construction.first, {Colour::Black, width});
  drawLine(surface, deformations, secondLineOf(construction.first), {Colour::Blue, width});
  const auto tenths = [](double value) { return FormatNumber(value, NumberFormat::Tenths); };
  drawBox(surface,
          {ResultLine{"压力：" + gbkToUtf8(record.k0.axialPressure[stage].trimmed()) + "kPa"},
           ResultLine{"P" + std::to_string(stage + 1) + "  = " + tenths(construction.t90.pressure) + " kPa"},
           ResultLine{"T90 = " + tenths(construction.t90.minutes()) + " min"}},
          options);
}

void drawStageChartEdges(DrawingSurface& surface, const TK0SampleRecord& record, std::size_t stage,
                         const ChartView& view) {
  drawNumbersAtEdges(surface, deformationScale(record, stage), view, kNumbersBelow, kNumbersLeft, kNumberFont);
}

std::string stageReadout(const TK0SampleRecord& record, std::size_t stage, Point place) {
  if (!kStagePlot.contains(place)) return {};
  const auto [rootTime, deformation] = deformationScale(record, stage).valueAt(place);
  std::string text = "√t:" + FormatNumber(rootTime, NumberFormat::Hundredths) +
                     "   t:" + FormatNumber(rootTime * rootTime, NumberFormat::Tenths) +
                     "min   D:" + FormatNumber(deformation, NumberFormat::Thousandths) + "mm";
  if (kPressurePlot.contains(place))
    text += "   P:" + FormatNumber(pressureScale(record, stage).valueAt(place).y, NumberFormat::Tenths) + "kPa";
  return text;
}

}  // namespace triaxlab
