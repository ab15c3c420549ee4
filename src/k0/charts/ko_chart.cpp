#include "k0/charts/ko_chart.h"

#include <algorithm>
#include <cmath>

#include "charts/results_box.h"
#include "charts/walk.h"
#include "common/gbk.h"
#include "k0/ko_line.h"

namespace triaxlab {
namespace {

// Twips of the canvas.
constexpr double kNumbersBelowY = 4160, kNumbersLeftX = 2460, kUnitLeftY = 60, kUnitBelowY = 4380, kStressLeftX = 1780;
constexpr double kPointRadius = 30;
constexpr ResultsBox kKoBox{.corner = {3600, 400}, .opposite = {7400, 800}};
constexpr Point kKoPlace{5000, 500};
constexpr int kMovedLineWidth = 2;

constexpr AxisNumbers kNumbersBelow{.at = kNumbersBelowY, .every = 5}, kNumbersLeft{.at = kNumbersLeftX, .every = 2};

void drawAxes(DrawingSurface& surface, const PlotScale& scale, KoAxes axes, const Font& font) {
  constexpr const char* kUnit = "(kPa)";
  const bool named = axes == KoAxes::Stresses;
  drawNumbersBelow(surface, scale, kNumbersBelow, font);
  drawNumbersLeft(surface, scale, kNumbersLeft, font);
  surface.textRightAligned(kKoPlot.right, kUnitBelowY, named ? "σ1(kPa)" : kUnit, font, Colour::Black);
  if (named)
    drawTurnedTitle(surface, kStressLeftX, kKoPlot.middle().y, "σ3(kPa)", font);
  else
    surface.textRightAligned(kNumbersLeftX, kUnitLeftY, kUnit, font, Colour::Black);
}

/// The stages that the fit takes.
void drawPoints(const Plot& plot, const K0SampleRecord& record, int lineWeight) {
  for (std::size_t stage = 0; stage < kLoadStages; ++stage) {
    const Point pressures{plottedNumber(record.axialPressure[stage]), plottedNumber(record.lateralPressure[stage])};
    if (pressures.x != 0 && pressures.y != 0) plot.dot(pressures, kPointRadius, {Colour::LightRed, lineWeight});
  }
}

}  // namespace

PlotScale koScale(const K0SampleRecord& record) {
  constexpr double kSmallestReach = 110, kGrain = 5;
  double reach = kSmallestReach;
  for (std::size_t stage = 0; stage < kLoadStages; ++stage)
    reach = std::max({reach, plottedNumber(record.axialPressure[stage]), plottedNumber(record.lateralPressure[stage])});
  const double step = kGrain * stepsToReach(reach, kKoPlot.columns * kGrain);
  return {kKoPlot, step, step};
}

std::optional<Segment> koLineOnCanvas(const PlotScale& scale, const StraightLine& line, KoLineOf whose) {
  const bool moved = whose == KoLineOf::Person;
  const double right = scale.right(), end = moved ? right * kKoPlot.columns / kKoPlot.rows : scale.yEnd();
  const auto y = [&line](double x) { return line.slope * x + line.intercept; };
  // Both ends go by 1 kPa: the low one from the left until the line is no longer below the axis, the high one from the
  // right until it is below the end of the other axis. An end that would leave the plot by its side takes the line
  // with it.
  const auto low = stepsUntil(right, [&](double steps) { return y(steps) >= 0; });
  const auto fromRight = stepsUntil(right - 1, [&](double steps) { return y(right - 1 - steps) < end; });
  if (!low || !fromRight) return std::nullopt;
  const double high = right - 1 - *fromRight;
  const Segment segment{scale.place({*low, y(*low)}), scale.place({high, y(high)})};
  if (!std::isfinite(segment.from.y) || !std::isfinite(segment.to.y)) return std::nullopt;
  return clipLine(segment, {kKoPlot.left, moved ? 0 : kKoPlot.top, kKoPlot.right, kKoPlot.bottom});
}

void drawKoChart(DrawingSurface& surface, const K0SampleRecord& record, const KoChartOptions& options) {
  const auto& [moved, axes, lineWeight] = options;
  const Font font;
  const Plot plot(surface, koScale(record));
  drawGrid(surface, plot.scale());
  drawFrame(surface, kKoPlot, lineWeight);
  drawAxes(surface, plot.scale(), axes, font);
  drawResultsBox(surface, kKoBox, {}, font, lineWeight);
  drawPoints(plot, record, lineWeight);
  if (const auto line =
          koLineOnCanvas(plot.scale(), moved.value_or(koLineOf(record)), moved ? KoLineOf::Person : KoLineOf::Record))
    surface.line(line->from, line->to, {Colour::Black, moved ? kMovedLineWidth : lineWeight});
  const std::string ko =
      moved ? FormatNumber(moved->slope, NumberFormat::Thousandths) : gbkToUtf8(record.koValue.trimmed());
  surface.text(kKoPlace, "Ko = " + ko, font, Colour::Black);
}

void drawKoChartEdges(DrawingSurface& surface, const K0SampleRecord& record, const ChartView& view) {
  drawNumbersAtEdges(surface, koScale(record), view, kNumbersBelow, kNumbersLeft, Font{});
}

std::string koReadout(const K0SampleRecord& record, Point place) {
  if (!kKoPlot.contains(place)) return {};
  constexpr AxisReading kPressure{NumberFormat::Tenths, "kPa"};
  return readoutOf(koScale(record).valueAt(place), kPressure, kPressure);
}

}  // namespace triaxlab
