#include "triaxial/charts/envelope_chart.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/angles.h"
#include "triaxial/charts/curve_points.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

constexpr int kMovedLineWidth = 2;

/// A half circle of 300 chords over the x axis.
void drawCircle(const Plot& plot, double centre, double radius, Stroke stroke) {
  constexpr int kChords = 300;
  std::array<Point, kChords + 1> points;
  for (int i = 0; i <= kChords; ++i) {
    const double x = centre - radius + i * (2 * radius / kChords);
    const double square = radius * radius - (x - centre) * (x - centre);
    points[static_cast<std::size_t>(i)] = {x, std::sqrt(std::max(square, 0.0))};
  }
  plot.curve(points, stroke);
  plot.tick(centre, stroke.colour);
}

template <std::size_t RadiusWidth>
void drawCircles(const Plot& plot, const TriaxialSampleRecord& record, const PerStage<FixedText<5>>& centres,
                 const PerStage<FixedText<RadiusWidth>>& radii, Stroke stroke) {
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const double radius = plottedNumber(radii[stage]);
    if (StageUsed(record, stage) && radius > 0) drawCircle(plot, plottedNumber(centres[stage]), radius, stroke);
  }
}

/// The largest circle centre of the stages under pressure.
double largestCentre(const TriaxialSampleRecord& record, const PerStage<FixedText<5>>& centres) {
  double largest = 0;
  for (std::size_t stage = 0; stage < kStages; ++stage)
    if (record.cellPressure[stage].number() > 0) largest = std::max(largest, plottedNumber(centres[stage]));
  return largest;
}

/// From the axes, where the line leaves the corner of the plot, up to the height of the largest centre.
void drawEnvelope(const Plot& plot, const Envelope& envelope, double maxP, Stroke stroke) {
  const double slope = envelope.tanPhi, cohesion = envelope.cohesion;
  if (!envelope.exists || !std::isfinite(slope) || !std::isfinite(cohesion)) return;
  const double right = plot.scale().right();
  if (slope == 0) {
    plot.line({0, cohesion}, {right, cohesion}, stroke);
    return;
  }
  const double start = std::max(-cohesion / slope, 0.0);
  // The end steps back from the right by 1 kPa at a time.
  const double farthest = right - 5;
  const double end = farthest - stepsToReach(farthest * slope + cohesion - maxP, slope);
  if (end > start) plot.line({start, start * slope + cohesion}, {end, end * slope + cohesion}, stroke);
}

Stroke lineStroke(Colour colour, MovedLine which, const ChartOptions& options) {
  return {colour, options.movedLine == which ? kMovedLineWidth : options.lineWeight};
}

void addPair(std::vector<ResultLine>& lines, std::string_view cohesionName, std::string_view angleName, double cohesion,
             double tangent, NumberFormat cohesionFormat) {
  lines.push_back({std::string(cohesionName) + FormatNumber(cohesion, cohesionFormat) + " kPa"});
  lines.push_back({std::string(angleName) + FormatNumber(degreesOfTangent(tangent), NumberFormat::Tenths), true});
}

}  // namespace

PlotScale mohrScale(const TriaxialSampleRecord& record) {
  constexpr double kSmallestReach = 110, kGrain = 5;
  double centre = 0, radius = 0;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    if (!StageUsed(record, stage)) continue;
    centre = std::max(centre, plottedNumber(record.failureCentre[stage]));
    radius = std::max(radius, plottedNumber(record.failureRadius[stage]));
  }
  const double step = kGrain * stepsToReach(std::max(centre + radius, kSmallestReach), kCurvePlot.columns * kGrain);
  return {kCurvePlot, step, step};
}

void drawMohr(const Plot& plot, const TriaxialSampleRecord& record, const PageResults& results,
              const ChartOptions& options) {
  const bool effective = options.effectiveCircles && record.testMethod == kCU;
  if (options.totalCircles)
    drawCircles(plot, record, record.failureCentre, record.failureRadius, {Colour::LightRed, options.lineWeight});
  if (effective)
    drawCircles(plot, record, record.failureCentreEff, record.failureRadiusEff,
                {Colour::LightBlue, options.lineWeight});
  if (options.totalCircles)
    drawEnvelope(plot, results.envelopes.total, largestCentre(record, record.failureCentre),
                 lineStroke(Colour::Black, MovedLine::TotalEnvelope, options));
  if (effective)
    drawEnvelope(plot, results.envelopes.effective, largestCentre(record, record.failureCentreEff),
                 lineStroke(Colour::Blue, MovedLine::EffectiveEnvelope, options));
}

std::vector<ResultLine> strengthLines(const TriaxialSampleRecord& record, const PageResults& results,
                                      NumberFormat cohesionFormat) {
  struct Names {
    std::uint8_t method;
    std::string_view cohesion, angle, adjustedAngle;
  };
  static constexpr std::array kNames{Names{kUU, "Cu = ", "φu = ", "φcu = "}, Names{kCU, "Ccu = ", "φcu = ", "φcu = "},
                                     Names{kCD, "Ccd = ", "φcd = ", "φcd = "}};
  const auto* const names =
      std::find_if(kNames.begin(), kNames.end(), [&](const Names& n) { return n.method == record.testMethod; });
  std::vector<ResultLine> lines;
  if (names == kNames.end()) return lines;
  const auto& [total, effective] = results.envelopes;
  addPair(lines, names->cohesion, record.adjustedFlag == 1 ? names->adjustedAngle : names->angle, total.cohesion,
          total.tanPhi, cohesionFormat);
  if (record.testMethod == kCU) addPair(lines, " C′= ", "φ′ = ", effective.cohesion, effective.tanPhi, cohesionFormat);
  return lines;
}

void drawPathLine(const Plot& plot, const PathLine& line, const ChartOptions& options) {
  if ((line.slope == 0 && line.intercept == 0) || !std::isfinite(line.slope) || !std::isfinite(line.intercept)) return;
  const auto y = [&](double x) { return x * line.slope + line.intercept; };
  const double right = plot.scale().right(), top = plot.scale().yEnd();
  // Both ends move towards each other by 1 kPa until the line is in the plot.
  double low = 0, high = right - 1;
  while (low < high && y(low) < 0) ++low;
  while (high > low && y(high) >= top) --high;
  plot.line({low, y(low)}, {high, y(high)}, lineStroke(Colour::Black, MovedLine::StressPath, options));
}

std::vector<ResultLine> pathLines(const PathLine& line, NumberFormat cohesionFormat) {
  std::vector<ResultLine> lines;
  addPair(lines, " C′= ", " φ′= ", line.intercept, line.slope, cohesionFormat);
  return lines;
}

}  // namespace triaxlab
