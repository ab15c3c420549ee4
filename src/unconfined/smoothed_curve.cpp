#include "unconfined/smoothed_curve.h"

#include <cmath>

namespace triaxlab {

std::vector<Point> curvePoints(const UnconfinedSampleRecord& record, Specimen specimen, double largestStrain) {
  const UnconfinedColumn& stresses = stressOf(record, specimen);
  const UnconfinedColumn& strains = strainOf(record, specimen);
  std::vector<Point> points{{0, 0}};
  points.reserve(kUnconfinedRows + 1);
  for (std::size_t row = 0; row < kUnconfinedRows; ++row) {
    const Point point{strains[row].number(), stresses[row].number()};
    if (point.y != 0 && std::isfinite(point.y) && point.x > 0 && point.x <= largestStrain) points.push_back(point);
  }
  return points;
}

Point peakOfCurve(std::span<const Point> points, Point peak) {
  constexpr double kLastSegmentStart = 15;
  walkCurve(points, [&peak](const CurveChord& chord) {
    if (!chord.isSmooth || !(chord.segmentStart < kLastSegmentStart)) return;
    for (const Point point : {chord.from, chord.to})
      if (std::isfinite(point.y) && point.y > peak.y) peak = point;
  });
  return peak;
}

}  // namespace triaxlab
