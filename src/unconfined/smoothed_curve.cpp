#include "unconfined/smoothed_curve.h"

#include <algorithm>
#include <cmath>

namespace triaxlab {
namespace {

/// False when no point of the segment's parabola, nor of its last chord, can lie above this stress: most of a curve
/// does not have to be walked for its top.
bool mayRiseAbove(double stress, const CurveSegment& segment) {
  const auto& [a, b, c] = *segment.parabola;
  const double from = segment.begin.x, to = segment.end.x + 2 * kChordLength;
  double highest = std::max((*segment.parabola)(from), (*segment.parabola)(to));
  const bool hasTop = 2 * a * from + b > 0 && 2 * a * to + b < 0;
  if (hasTop) highest = (*segment.parabola)(-b / (2 * a));
  constexpr double kRounding = 1e-6;  // far more than the steps of the walk can add
  const double size = std::fabs(a * (to * to)) + std::fabs(b * to) + std::fabs(c);
  return !(highest + kRounding * size < stress);
}

}  // namespace

CurveRows curveRows(const UnconfinedSampleRecord& record, Specimen specimen) {
  CurveRows rows;
  for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
    rows.strain[row] = strainOf(record, specimen)[row].number();
    rows.stress[row] = stressOf(record, specimen)[row].number();
  }
  return rows;
}

std::vector<Point> curvePoints(const CurveRows& rows, double largestStrain) {
  std::vector<Point> points{{0, 0}};
  points.reserve(kUnconfinedRows + 1);
  for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
    const Point point{rows.strain[row], rows.stress[row]};
    if (point.y != 0 && std::isfinite(point.y) && point.x > 0 && point.x <= largestStrain) points.push_back(point);
  }
  return points;
}

Point peakOfCurve(std::span<const Point> points, Point peak) {
  constexpr double kLastSegmentStart = 15;
  forEachSegment(points, [&peak](const CurveSegment& segment) {
    if (!segment.parabola || !(segment.begin.x < kLastSegmentStart) || !mayRiseAbove(peak.y, segment)) return;
    segment.walk([&peak](const CurveChord& chord) {
      for (const Point point : {chord.from, chord.to})
        if (std::isfinite(point.y) && point.y > peak.y) peak = point;
    });
  });
  return peak;
}

}  // namespace triaxlab
