#include "triaxial/charts/curve_chart.h"

#include <algorithm>
#include <array>

#include "triaxial/charts/curve_points.h"
#include "triaxial/charts/envelope_chart.h"
#include "triaxial/charts/plot.h"

namespace triaxlab {
namespace {

/// What a page is drawn from.
struct Chart {
  const TriaxialSampleRecord& record;
  const PageResults& results;
  const ChartOptions& options;
  Font font;
};

/// One of the six pages: its texts, and what it draws, in this order. An empty function draws nothing.
struct PageForm {
  PlotTexts texts;
  ChartCurves (*curves)(const Chart&);
  PlotScale (*scale)(const Chart&, const ChartCurves&);
  void (*lines)(const Plot&, const Chart&);          // over the curves
  void (*marks)(DrawingSurface&, const Chart&);      // beside the axes
  std::vector<ResultLine> (*results)(const Chart&);  // in the box
};

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
  return {kPercent, kStressGrain * stepsToReach(reach, kPlotRows * kStressGrain)};
}

/// Values below zero get an even number of divisions under the axis.
PlotScale porePressureScale(const Chart&, const ChartCurves& curves) {
  const auto [x, pressure, depth] = reachOf(curves);
  double step = kStressGrain * std::max(stepsToReach(pressure + depth, kPlotRows * kStressGrain), 1.0);
  for (;; step += kStressGrain) {
    const double below = 2 * stepsToReach(depth, 2 * step);
    if ((kPlotRows - below) * step >= pressure) return {kPercent, step, static_cast<int>(below)};
  }
}

PlotScale stressRatioScale(const Chart&, const ChartCurves& curves) {
  constexpr double kSmallestReach = 1.4, kTenths = 10;
  const double reach = std::max(reachOf(curves).y, kSmallestReach);
  return {kPercent, stepsToReach(kTenths * reach, kPlotRows) / kTenths};
}

PlotScale stressPathScale(const Chart&, const ChartCurves& curves) {
  constexpr double kSmallestReach = 110;
  const CurveReach reach = reachOf(curves);
  const double step =
      kStressGrain * std::max(stepsToReach(std::max(reach.x, kSmallestReach), kPlotColumns * kStressGrain),
                              stepsToReach(reach.y, kPlotRows * kStressGrain));
  return {step, step};
}

/// The name of the shear stress axis stands upright, a character below the other.
void markShearStress(DrawingSurface& surface, const Chart& chart) {
  struct Character {
    const char* text;
    double y;
  };
  constexpr double kX = 20;
  for (const auto& [text, y] :
       {Character{"τ", 520}, Character{"ｋ", 760}, Character{"Ｐ", 1000}, Character{"ａ", 1240}})
    surface.text({kX, y}, text, chart.font, Colour::Black);
}

/// The subscripts of the turned title stand in its gaps. Below a turned text is to the right.
constexpr std::string_view kPathTitle = "(σ ′-σ ′)/2 (kPa)";
void markPathSubscripts(DrawingSurface& surface, const Chart& chart) {
  struct Subscript {
    const char* text;
    std::string_view before;  // of the title
  };
  const Point title = yTitlePlace(kPathTitle, chart.font);
  Font small = smallFont(chart.font);
  small.name = kSongRotated;
  for (const auto& [text, before] : {Subscript{"1", "(σ"}, Subscript{"3", "(σ ′-σ"}})
    surface.text({title.x + subscriptDrop(chart.font), title.y - textWidth(before, chart.font)}, text, small,
                 Colour::Black, true);
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

constexpr std::string_view kStrain = "ε1(%)", kStress = "σ";
constexpr auto kWhole = NumberFormat::Whole, kThousandths = NumberFormat::Thousandths;

/// In the order of CurvePage.
constexpr std::array kForms{
    PageForm{{"主应力差与轴向应变曲线", kStrain, "σ1 - σ3 (kPa)", kWhole},
             stressStrainOf,
             stressStrainScale,
             noLines,
             noMarks,
             noResults},
    PageForm{
        {"应力比强度包线", kStress, {}, kWhole}, noCurves, envelopeScale, drawEnvelopes, markShearStress, strengthOf},
    PageForm{
        {"应力差强度包线", kStress, {}, kWhole}, noCurves, envelopeScale, drawEnvelopes, markShearStress, strengthOf},
    PageForm{{"应力路径曲线", "(σ1′+σ3′)/2 (kPa)", kPathTitle, kWhole},
             pathsOf,
             stressPathScale,
             drawPath,
             markPathSubscripts,
             pathOf},
    PageForm{{"孔隙压力与轴向应变曲线", kStrain, "u(kPa)", kWhole},
             porePressuresOf,
             porePressureScale,
             noLines,
             noMarks,
             noResults},
    PageForm{{"有效应力比与轴向应变曲线", kStrain, "σ1′/σ3′", kThousandths},
             stressRatiosOf,
             stressRatioScale,
             noLines,
             noMarks,
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

/// A title of the caller's, or the page's own; a curve that is being corrected says so.
std::string titleOf(const PageForm& form, const ChartOptions& options) {
  if (!options.title.empty()) return options.title;
  const std::string title(form.texts.title);
  return options.adjustment ? "曲线" + title + "调整" : title;
}

}  // namespace

std::string_view titleOf(CurvePage page) { return formOf(page).texts.title; }

PlotScale scaleOfPage(const TriaxialSampleRecord& record, CurvePage page, const ChartOptions& options) {
  const PageForm& form = formOf(page);
  const PageResults none;
  const Chart chart{record, none, options, Font{}};
  return form.scale(chart, form.curves(chart));
}

void drawCurvePage(DrawingSurface& surface, const TriaxialSampleRecord& record, CurvePage page,
                   const PageResults& results, const ChartOptions& options) {
  const PageForm& form = formOf(page);
  const Chart chart{record, results, options, Font{.size = options.textSize}};
  const ChartCurves curves = form.curves(chart);
  const Plot plot(surface, form.scale(chart, curves));

  drawGrid(surface, plot.scale(), options.lineWeight);
  drawCurves(plot, curves, chart);
  form.lines(plot, chart);

  const std::string title = titleOf(form, options);
  PlotTexts texts = form.texts;
  texts.title = title;
  drawPlotTexts(surface, plot.scale(), texts, chart.font);
  form.marks(surface, chart);
  if (const auto lines = form.results(chart); !lines.empty())
    drawResultsBox(surface, lines, chart.font, options.lineWeight);
}

}  // namespace triaxlab
