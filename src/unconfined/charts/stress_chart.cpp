#include "unconfined/charts/stress_chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "charts/results_box.h"
#include "common/gbk.h"
#include "unconfined/reduction.h"
#include "unconfined/smoothed_curve.h"

namespace triaxlab {
namespace {

// Twips of the canvas.
constexpr double kLeft = 1000, kRight = 7000, kTop = 300, kBottom = 4300;
constexpr double kTitleY = kBottom + 500, kXNumbersY = 4340, kXNameX = 7040;
constexpr double kYNumbersRight = 960, kYNameY = 60;
constexpr int kRows = 14;

constexpr AxisNumbers kNumbersBelow{.at = kXNumbersY, .every = 5};
constexpr AxisNumbers kNumbersLeft{.at = kYNumbersRight, .every = 2, .smallFrom = 5};

constexpr ResultsBox kResults{.corner = {5000, 400}, .opposite = {6900, 1300}, .firstLine = {5060, 460}, .pitch = 280};
constexpr ResultsBox kHalfPeaks{
    .corner = {4900, 3700}, .opposite = {7000, 4300}, .firstLine = {4960, 3780}, .pitch = 260};

double largestStress(const UnconfinedSampleRecord& record) {
  double largest = 0;
  for (const Specimen specimen : kSpecimens)
    for (const FixedText<6>& stress : stressOf(record, specimen)) largest = std::max(largest, plottedNumber(stress));
  return largest;
}

std::vector<Point> plottedPoints(const UnconfinedSampleRecord& record, Specimen specimen, double largestStrain) {
  std::vector<Point> points = curvePoints(record, specimen, largestStrain);
  std::erase_if(points, [](Point point) { return !isPlotted(point.y); });
  return points;
}

/// The chords of a curve joined to lines: one, unless the strains go back somewhere. The last chord of a segment, which
/// may end behind it, is left where the next segment begins.
std::vector<std::vector<Point>> linesOfCurve(std::span<const Point> points) {
  std::vector<std::vector<Point>> lines;
  walkCurve(points, [&lines](const CurveChord& chord) {
    if (!isPlotted(chord.from.y) || !isPlotted(chord.to.y)) return;
    constexpr double kOvershoot = 1.01 * kChordLength;
    const bool goesOn = !lines.empty() && std::abs(lines.back().back().x - chord.from.x) <= kOvershoot;
    if (!goesOn) lines.emplace_back();
    std::vector<Point>& line = lines.back();
    if (goesOn) line.pop_back();
    line.push_back(chord.from);
    line.push_back(chord.to);
  });
  // Nor does the whole curve go on behind its last reading.
  if (!lines.empty() && lines.back().back().x > points.back().x) lines.back().back() = points.back();
  return lines;
}

void drawCurves(const Plot& plot, const UnconfinedSampleRecord& record, const StressChartOptions& options) {
  for (const Specimen specimen : kSpecimens)
    for (const auto& line : linesOfCurve(plottedPoints(record, specimen, options.largestStrain)))
      plot.curve(line, {Colour::LightRed, options.lineWeight});
}

void drawResults(DrawingSurface& surface, const UnconfinedSampleRecord& record, const Font& font, int lineWeight) {
  const auto text = [](const FixedText<6>& field) { return std::string(field.trimmed()); };
  const std::array lines{ResultLine{" qu = " + text(record.qu) + "kpa"},
                         ResultLine{"qu' = " + text(record.quRemoulded) + "kpa"},
                         ResultLine{" St = " + text(record.sensitivity)}};
  drawResultsBox(surface, kResults, lines, font, lineWeight);
}

void drawHalfPeaks(const Plot& plot, DrawingSurface& surface, const UnconfinedSampleRecord& record, const Font& font,
                   int lineWeight) {
  constexpr std::array kNames{"原状： ", "重塑： "};
  std::array<ResultLine, kSpecimens.size()> lines;
  BothSpecimens<HalfPeak> halves;
  for (const Specimen specimen : kSpecimens) {
    const HalfPeak half = halves[indexOf(specimen)] = halfPeakOf(record, specimen);
    lines.at(indexOf(specimen)).text = kNames.at(indexOf(specimen)) +
                                       FormatNumber(half.stress, NumberFormat::Hundredths) + "/" +
                                       FormatNumber(half.strain, NumberFormat::Hundredths);
  }
  drawResultsBox(surface, kHalfPeaks, lines, font, lineWeight);
  for (const HalfPeak& half : halves)
    if (half.stress > 0 && isPlotted(half.stress))
      plot.line({half.strain, half.stress}, {half.strain, 0}, {Colour::LightGreen, lineWeight});
}

/// Name and unit of a row of the constants.
struct ConstantRow {
  const char *name, *unit;
  const char* raised = "";  // into the gap of the unit
};
constexpr std::array kConstantRows{ConstantRow{"试样高度", "(cm)"}, ConstantRow{"试样面积", "(cm )", "2"},
                                   ConstantRow{"环系数", "N /0.01mm"}};

/// Of a column of the constants table.
double middleOf(std::size_t column) { return (kConstantColumns.at(column) + kConstantColumns.at(column + 1)) / 2.0; }

void drawConstantsTable(DrawingSurface& surface, const Font& font, int lineWeight) {
  constexpr double kBottomLine = kConstantsTop + kConstantsPitch * (1.0 + kConstantRows.size());
  const Stroke stroke{Colour::Blue, lineWeight};
  for (double y = kConstantsTop; y <= kBottomLine; y += kConstantsPitch)
    surface.line({double{kConstantColumns.front()}, y}, {double{kConstantColumns.back()}, y}, stroke);
  for (const double x : kConstantColumns) surface.line({x, kConstantsTop}, {x, kBottomLine}, stroke);

  const double headY = kConstantsTop + (kConstantsPitch - textHeight(font)) / 2;
  surface.textCentred(middleOf(1), headY, "原状", font, Colour::Black);
  surface.textCentred(middleOf(2), headY, "重塑", font, Colour::Black);
  constexpr double kNameDrop = 35, kUnitDrop = 260;
  double y = kConstantsTop;
  for (const auto& [name, unit, raised] : kConstantRows) {
    y += kConstantsPitch;
    surface.textCentred(middleOf(0), y + kNameDrop, name, font, Colour::Black);
    surface.textCentred(middleOf(0), y + kUnitDrop, unit, font, Colour::Black);
    if (*raised == '\0') continue;
    // In front of the closing parenthesis and its blank.
    const double gap = middleOf(0) + textWidth(unit, font) / 2 - textWidth(" )", font);
    surface.text({gap, y + kUnitDrop - raisedLift(font)}, raised, smallFont(font), Colour::Black);
  }
}

}  // namespace

PlotScale stressChartScale(const UnconfinedSampleRecord& record, const StressChartOptions& options) {
  constexpr double kSmallestReach = 70, kStressGrain = 5;  // kPa; divisions are whole multiples
  const double reach = std::max(largestStress(record), kSmallestReach);
  const PlotFrame frame{
      .left = kLeft, .top = kTop, .right = kRight, .bottom = kBottom, .columns = options.largestStrain, .rows = kRows};
  return {frame, 1, kStressGrain * stepsToReach(reach, kRows * kStressGrain)};
}

void drawStressChart(DrawingSurface& surface, const UnconfinedSampleRecord& record, const StressChartOptions& options) {
  const Font font;
  const Plot plot(surface, stressChartScale(record, options));
  surface.textCentred(plot.scale().frame.middle().x, kTitleY, "轴向应力与轴向应变关系曲线", font, Colour::Black);
  drawGrid(surface, plot.scale());
  drawFrame(surface, plot.scale().frame, options.lineWeight);
  drawNumbersLeft(surface, plot.scale(), kNumbersLeft, font);
  surface.textRightAligned(kYNumbersRight, kYNameY, "(kPa)", font, Colour::Black);
  drawNumbersBelow(surface, plot.scale(), kNumbersBelow, font);
  surface.text({kXNameX, kXNumbersY}, "(%)", font, Colour::Black);
  drawCurves(plot, record, options);
  drawResults(surface, record, font, options.lineWeight);
  if (options.halfPeaks) drawHalfPeaks(plot, surface, record, font, options.lineWeight);
  drawConstantsTable(surface, font, options.lineWeight);
}

void drawConstants(DrawingSurface& surface, const UnconfinedSampleRecord& record) {
  const Font font;
  for (const Specimen specimen : kSpecimens) {
    const std::size_t at = indexOf(specimen);
    double y = kConstantsTop + (kConstantsPitch - textHeight(font)) / 2;
    for (const std::string& text :
         {gbkToUtf8(record.sampleHeight[at].trimmed()), gbkToUtf8(record.sampleArea[at].trimmed()),
          ringCoefficientText(record, specimen)}) {
      y += kConstantsPitch;
      if (!text.empty()) surface.textCentred(middleOf(1 + at), y, text, font, Colour::Black);
    }
  }
}

std::string ringCoefficientText(const UnconfinedSampleRecord& record, Specimen specimen) {
  return FormatNumber(record.ringCoefficient[indexOf(specimen)] / 1000.0, NumberFormat::Thousandths);
}

void drawStressChartEdges(DrawingSurface& surface, const UnconfinedSampleRecord& record,
                          const StressChartOptions& options, const ChartView& view) {
  drawNumbersAtEdges(surface, stressChartScale(record, options), view, kNumbersBelow, kNumbersLeft, Font{});
}

}  // namespace triaxlab
