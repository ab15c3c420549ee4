#include "triaxial/charts/curve_chart.h"

#include <algorithm>
#include <array>
#include <span>

#include "charts/axes.h"
#include "charts/results_box.h"
#include "triaxial/charts/curve_points.h"
#include "triaxial/charts/envelope_chart.h"

namespace triaxlab {
namespace {

/// What a page is drawn from.
struct Chart {
  const TriaxialSampleRecord& record;
  const PageResults& results;
  const ChartOptions& options;
  Font font;
};

/// What the values of an axis are: the name at its end or along it, how its numbers are set, how a readout tells them.
struct Axis {
  std::string_view name;
  NumberFormat numbers;
  AxisReading reading;
  std::span<const Subscript> subscripts = {};
};

/// One of the six pages: its texts, and what it draws, in this order. An empty function draws nothing.
struct PageForm {
  std::string_view title;
  Axis x, y;
  ChartCurves (*curves)(const Chart&);
  PlotScale (*scale)(const Chart&, const ChartCurves&);
  void (*lines)(const Plot&, const Chart&);          // over the curves
  void (*marks)(DrawingSurface&, const Chart&);      // beside the axes
  std::vector<ResultLine> (*results)(const Chart&);  // in the box
};

// Twips of the canvas.
constexpr double kTitleY = 150, kXNumbersY = 4310, kXNameY = 4500;
constexpr double kYNumbersRight = 660, kYNameX = 20;
constexpr int kXNumberEvery = 5, kYNumberEvery = 2;
constexpr std::size_t kLongNumber = 5;  // characters: it would run into the turned name

// Strain to the right has one percent a division.
constexpr double kPercent = 1;
constexpr double kStressGrain = 5;  // kPa; divisions of stress are whole multiples

ChartCurves noCurves(const Chart&) { return {}; }
void noLines(const Plot&, const Chart&) {}
void noMarks(DrawingSurface&, const Chart&) {}
std::vector<ResultLine> noResults(const Chart&) { return {}; }

PlotScale stressStrainScale(const Chart&, const ChartCurves& curves) {
  constexpr double kSmallestReach = 70;
  const double reach = std::max(reachOf(curves).y, kSmallestReach);
  return {kCurvePlot, kPercent, kStressGrain * stepsToReach(reach, kCurvePlot.rows * kStressGrain)};
}

/// Values below zero get an even number of divisions under the axis.
PlotScale porePressureScale(const Chart&, const ChartCurves& curves) {
  const auto [x, pressure, depth] = reachOf(curves);
  double step = kStressGrain * std::max(stepsToReach(pressure + depth, kCurvePlot.rows * kStressGrain), 1.0);
  for (;; step += kStressGrain) {
    const double below = 2 * stepsToReach(depth, 2 * step);
    if ((kCurvePlot.rows - below) * step >= pressure) return {kCurvePlot, kPercent, step, -below * step};
  }
}

PlotScale stressRatioScale(const Chart&, const ChartCurves& curves) {
  constexpr double kSmallestReach = 1.4, kTenths = 10;
  const double reach = std::max(reachOf(curves).y, kSmallestReach);
  return {kCurvePlot, kPercent, stepsToReach(kTenths * reach, kCurvePlot.rows) / kTenths};
}

PlotScale stressPathScale(const Chart&, const ChartCurves& curves) {
  constexpr double kSmallestReach = 110;
  const CurveReach reach = reachOf(curves);
  const double step =
      kStressGrain * std::max(stepsToReach(std::max(reach.x, kSmallestReach), kCurvePlot.columns * kStressGrain),
                              stepsToReach(reach.y, kCurvePlot.rows * kStressGrain));
  return {kCurvePlot, step, step};
}

/// The name of the shear stress axis stands upright, a character below the other.
void markShearStress(DrawingSurface& surface, const Chart& chart) {
  struct Character {
    const char* text;
    double y;
  };
  for (const auto& [text, y] :
       {Character{"τ", 520}, Character{"ｋ", 760}, Character{"Ｐ", 1000}, Character{"ａ", 1240}})
    surface.text({kYNameX, y}, text, chart.font, Colour::Black);
}

ChartCurves stressStrainOf(const Chart& chart) { return stressStrainCurves(chart.record, chart.options.adjustment); }
ChartCurves pathsOf(const Chart& chart) { return stressPaths(chart.record); }
ChartCurves porePressuresOf(const Chart& chart) { return porePressureCurves(chart.record); }
ChartCurves stressRatiosOf(const Chart& chart) { return stressRatioCurves(chart.record); }

PlotScale envelopeScale(const Chart& chart, const ChartCurves&) { return mohrScale(chart.record); }
void drawEnvelopes(const Plot& plot, const Chart& chart) { drawMohr(plot, chart.record, chart.results, chart.options); }
std::vector<ResultLine> strengthOf(const Chart& chart) {
  return strengthLines(chart.record, chart.results, chart.options.cohesionFormat);
}

void drawPath(const Plot& plot, const Chart& chart) {
  if (chart.record.testMethod == kCU) drawPathLine(plot, chart.results.pathLine, chart.options);
}
std::vector<ResultLine> pathOf(const Chart& chart) {
  if (chart.record.testMethod != kCU) return {};
  return pathLines(chart.results.pathLine, chart.options.cohesionFormat);
}

constexpr auto kWhole = NumberFormat::Whole, kThousandths = NumberFormat::Thousandths;
constexpr AxisReading kPercents{NumberFormat::Hundredths, "%"}, kPressures{NumberFormat::Tenths, "kPa"};
constexpr AxisReading kRatios{kThousandths, ""};

constexpr Axis kStrain{"ε1(%)", kWhole, kPercents};
constexpr Axis kStress{"σ1 - σ3 (kPa)", kWhole, kPressures};
constexpr Axis kNormalStress{"σ", kWhole, kPressures}, kShearStress{"", kWhole, kPressures};
constexpr std::array kPathSubscripts{Subscript{"1", "(σ"}, Subscript{"3", "(σ ′-σ"}};
constexpr Axis kPathCentre{"(σ1′+σ3′)/2 (kPa)", kWhole, kPressures};
constexpr Axis kPathRadius{"(σ ′-σ ′)/2 (kPa)", kWhole, kPressures, kPathSubscripts};
constexpr Axis kPorePressure{"u(kPa)", kWhole, kPressures};
constexpr Axis kStressRatio{"σ1′/σ3′", kThousandths, kRatios};

/// In the order of CurvePage.
constexpr std::array kForms{
    PageForm{"主应力差与轴向应变曲线", kStrain, kStress, stressStrainOf, stressStrainScale, noLines, noMarks,
             noResults},
    PageForm{"应力比强度包线", kNormalStress, kShearStress, noCurves, envelopeScale, drawEnvelopes, markShearStress,
             strengthOf},
    PageForm{"应力差强度包线", kNormalStress, kShearStress, noCurves, envelopeScale, drawEnvelopes, markShearStress,
             strengthOf},
    PageForm{"应力路径曲线", kPathCentre, kPathRadius, pathsOf, stressPathScale, drawPath, noMarks, pathOf},
    PageForm{"孔隙压力与轴向应变曲线", kStrain, kPorePressure, porePressuresOf, porePressureScale, noLines, noMarks,
             noResults},
    PageForm{"有效应力比与轴向应变曲线", kStrain, kStressRatio, stressRatiosOf, stressRatioScale, noLines, noMarks,
             noResults},
};

const PageForm& formOf(CurvePage page) { return kForms.at(static_cast<std::size_t>(page) - 1); }

void drawCurves(const Plot& plot, const ChartCurves& curves, const Chart& chart) {
  constexpr Stroke kSelected{Colour::LightBlue, 2};
  const CurveAdjustment* const adjustment = chart.options.adjustment;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const bool selected = adjustment && adjustment->selectedStage == stage;
    plot.curve(curves[stage], selected ? kSelected : Stroke{Colour::LightRed, chart.options.lineWeight});
  }
}

AxisNumbers numbersBelow(const PageForm& form) {
  return {.at = kXNumbersY, .every = kXNumberEvery, .format = form.x.numbers};
}
/// What of the height of a text its characters take, from above.
constexpr double kInk = 0.9;

/// Up to the name of the axis, which lies on its side.
AxisNumbers numbersLeft(const PageForm& form, const Font& font) {
  return {.at = kYNumbersRight,
          .every = kYNumberEvery,
          .format = form.y.numbers,
          .smallFrom = kLongNumber,
          .room = kYNumbersRight - kYNameX - kInk * textHeight(font)};
}

void drawAxes(DrawingSurface& surface, const PlotScale& scale, const PageForm& form, const Chart& chart) {
  const Font& font = chart.font;
  drawNumbersBelow(surface, scale, numbersBelow(form), font);
  drawNumbersLeft(surface, scale, numbersLeft(form, font), font);
  surface.textRightAligned(scale.frame.right, kXNameY, form.x.name, sizedFont(font, chart.options.xNameSize),
                           Colour::Black);
  if (!form.y.name.empty())
    drawTurnedTitle(surface, kYNameX, scale.frame.middle().y, form.y.name, font, form.y.subscripts);
}

/// At the upper left of the plot, as high as its lines need.
void drawResults(DrawingSurface& surface, std::span<const ResultLine> lines, const Chart& chart) {
  constexpr double kMargin = 80, kLine = 270;
  const double bottom = 600 + kMargin + kLine * static_cast<double>(lines.size());
  const ResultsBox box{.corner = {900, 600}, .opposite = {3000, bottom}, .firstLine = {960, 640}, .pitch = kLine};
  if (!lines.empty()) drawResultsBox(surface, box, lines, chart.font, chart.options.lineWeight);
}

/// A title of the caller's, or the page's own; a curve that is being corrected says so.
std::string titleOf(const PageForm& form, const ChartOptions& options) {
  if (!options.title.empty()) return options.title;
  const std::string title(form.title);
  return options.adjustment ? "曲线" + title + "调整" : title;
}

}  // namespace

std::string_view titleOf(CurvePage page) { return formOf(page).title; }

PageReadings readingsOf(CurvePage page) { return {formOf(page).x.reading, formOf(page).y.reading}; }

PlotScale scaleOfPage(const TriaxialSampleRecord& record, CurvePage page, const ChartOptions& options) {
  const PageForm& form = formOf(page);
  const PageResults none;
  const Chart chart{record, none, options, Font{}};
  return form.scale(chart, form.curves(chart));
}

void drawPageEdges(DrawingSurface& surface, const TriaxialSampleRecord& record, CurvePage page,
                   const ChartOptions& options, const ChartView& view) {
  const PageForm& form = formOf(page);
  const Font font{.size = options.textSize};
  drawNumbersAtEdges(surface, scaleOfPage(record, page, options), view, numbersBelow(form), numbersLeft(form, font),
                     font);
}

void drawCurvePage(DrawingSurface& surface, const TriaxialSampleRecord& record, CurvePage page,
                   const PageResults& results, const ChartOptions& options) {
  const PageForm& form = formOf(page);
  const Chart chart{record, results, options, Font{.size = options.textSize}};
  const ChartCurves curves = form.curves(chart);
  const Plot plot(surface, form.scale(chart, curves));

  drawGrid(surface, plot.scale());
  drawFrame(surface, kCurvePlot, options.lineWeight);
  drawCurves(plot, curves, chart);
  form.lines(plot, chart);
  drawAxes(surface, plot.scale(), form, chart);
  if (options.titled)
    surface.textCentred(kCurvePlot.middle().x, kTitleY, titleOf(form, options), chart.font, Colour::Black);
  form.marks(surface, chart);
  drawResults(surface, form.results(chart), chart);
}

}  // namespace triaxlab
