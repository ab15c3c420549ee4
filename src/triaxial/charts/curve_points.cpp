#include "triaxial/charts/curve_points.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "triaxial/measures.h"

namespace triaxlab {
namespace {

/// The curves that `pointOf`(stage, row) gives; it has none for a row that isn't drawn.
template <class PointOf>
ChartCurves curvesOf(const TriaxialSampleRecord& record, const PointOf& pointOf) {
  ChartCurves curves;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    if (!StageUsed(record, stage)) continue;
    for (std::size_t row = 0; row < kShearRows; ++row)
      if (const std::optional<Point> point = pointOf(stage, row)) curves[stage].push_back(*point);
  }
  return curves;
}

/// Whether a curve against strain has the origin in front. On one specimen a later stage goes on from where the stage
/// before it was unloaded, so the first of its points, the origin, is left out.
bool beginsAtOrigin(const TriaxialSampleRecord& record, std::size_t stage) {
  return stage == 0 || record.shearMode != 2 || record.uuAdjustFlag != 0;
}

ChartCurves fromOrigin(const TriaxialSampleRecord& record, ChartCurves curves) {
  for (std::size_t stage = 0; stage < kStages; ++stage)
    if (!curves[stage].empty() && beginsAtOrigin(record, stage)) curves[stage].insert(curves[stage].begin(), Point{});
  return curves;
}

bool hasStress(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row) {
  return plottedNumber(record.deviatorStress[row][stage]) != 0;
}

/// Nothing for a strain that no specimen can have: a damaged field.
std::optional<Point> atStrain(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row, double y) {
  constexpr double kWhole = 100;
  const double strain = record.axialStrain[row][stage];
  if (!(std::abs(strain) <= kWhole)) return std::nullopt;
  return Point{strain, y};
}

/// The reading that is drawn at the strain of a row. A curve that slides to the left shows a later one there.
std::optional<Point> stressStrainPoint(const TriaxialSampleRecord& record, const CurveAdjustment* adjustment,
                                       std::size_t stage, std::size_t row) {
  const auto& stresses = adjustment ? adjustment->workCurve : record.deviatorStress;
  const auto shift = adjustment ? static_cast<std::size_t>(std::max<int>(adjustment->stageShift[stage], 0)) : 0U;
  if (row + shift >= kShearRows) return std::nullopt;
  const double stress = plottedNumber(stresses[row + shift][stage]);
  if (stress == 0) return std::nullopt;
  return atStrain(record, stage, row, stress);
}

struct EffectiveStresses {
  double sigma1, sigma3;
};
std::optional<EffectiveStresses> effectiveStresses(const TriaxialSampleRecord& record, std::size_t stage,
                                                   std::size_t row) {
  const EffectiveStresses stresses{plottedNumber(record.sigma1Eff[row][stage]),
                                   plottedNumber(record.sigma3Eff[row][stage])};
  if (!hasStress(record, stage, row) || stresses.sigma1 == 0 || stresses.sigma3 == 0) return std::nullopt;
  return stresses;
}

}  // namespace

ChartCurves stressStrainCurves(const TriaxialSampleRecord& record, const CurveAdjustment* adjustment) {
  return fromOrigin(record, curvesOf(record, [&](std::size_t stage, std::size_t row) {
                      return stressStrainPoint(record, adjustment, stage, row);
                    }));
}

std::optional<std::size_t> rowNextTo(const TriaxialSampleRecord& record, const CurveAdjustment& adjustment,
                                     double strain) {
  struct Neighbour {
    double strain;
    std::optional<std::size_t> row;  // the origin has none
  };
  const std::size_t stage = adjustment.selectedStage;
  std::optional<Neighbour> before;
  if (beginsAtOrigin(record, stage) && record.shearMode != 1) before = {0, std::nullopt};
  for (std::size_t row = 0; row < kShearRows; ++row) {
    const auto point = stressStrainPoint(record, &adjustment, stage, row);
    if (!point) continue;
    if (before && before->strain <= strain && strain <= point->x)
      return std::abs(strain - before->strain) <= std::abs(strain - point->x) ? before->row : row;
    before = {point->x, row};
  }
  return std::nullopt;
}

ChartCurves porePressureCurves(const TriaxialSampleRecord& record) {
  return fromOrigin(record, curvesOf(record, [&](std::size_t stage, std::size_t row) -> std::optional<Point> {
                      const auto& pressure = record.porePressure[row][stage];
                      if (!hasStress(record, stage, row) || pressure.isBlank()) return std::nullopt;
                      return atStrain(record, stage, row, plottedNumber(pressure));
                    }));
}

ChartCurves stressRatioCurves(const TriaxialSampleRecord& record) {
  return fromOrigin(record, curvesOf(record, [&](std::size_t stage, std::size_t row) -> std::optional<Point> {
                      const auto stresses = effectiveStresses(record, stage, row);
                      if (!stresses) return std::nullopt;
                      return atStrain(record, stage, row, stresses->sigma1 / stresses->sigma3);
                    }));
}

ChartCurves stressPaths(const TriaxialSampleRecord& record) {
  return curvesOf(record, [&](std::size_t stage, std::size_t row) -> std::optional<Point> {
    const auto stresses = effectiveStresses(record, stage, row);
    if (!stresses) return std::nullopt;
    return Point{(stresses->sigma1 + stresses->sigma3) / 2, (stresses->sigma1 - stresses->sigma3) / 2};
  });
}

}  // namespace triaxlab
