#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "common/parabola.h"
#include "platform/drawing_surface.h"
#include "unconfined/record.h"

namespace triaxlab {

// The stress-strain curve of a specimen is smoothed by parabolas: the one through points i, i+1 and i+2 stands for the
// curve between points i and i+1, the last one for the last two segments. The peak strength is the top of this curve,
// so it may lie between the readings and above each of them.

/// The rows of a specimen as their texts read.
struct CurveRows {
  std::array<double, kUnconfinedRows> strain, stress;  // %, kPa
};
CurveRows curveRows(const UnconfinedSampleRecord& record, Specimen specimen);

/// The origin, then every row with a stress and a strain above 0 and up to `largestStrain` (%), in the order of the
/// rows: x is the strain in %, y the stress in kPa.
std::vector<Point> curvePoints(const CurveRows& rows, double largestStrain);
inline std::vector<Point> curvePoints(const UnconfinedSampleRecord& record, Specimen specimen, double largestStrain) {
  return curvePoints(curveRows(record, specimen), largestStrain);
}

/// A piece of the curve.
struct CurveChord {
  double segmentStart;  // strain at which the segment begins, %
  Point from, to;
  bool isSmooth;  // of a parabola; otherwise no parabola goes through the points, and the chord is the whole segment
};

/// From chord to chord along a segment, % of strain.
inline constexpr double kChordLength = 0.1;

/// The curve between two points that follow each other.
struct CurveSegment {
  Point begin, end;
  std::optional<Parabola> parabola;

  /// Calls `visit` with each CurveChord from left to right. The strain goes on in single precision, and the last chord
  /// may end behind the segment. Pre: strains of at most some hundred percent.
  template <class Visit>
  void walk(const Visit& visit) const {
    if (!parabola) {
      visit(CurveChord{begin.x, begin, end, false});
      return;
    }
    const auto at = [this](double x) { return Point{x, (*parabola)(x)}; };
    for (auto x = static_cast<float>(begin.x); x <= end.x; x = static_cast<float>(x + kChordLength))
      visit(CurveChord{begin.x, at(x), at(x + kChordLength), true});
  }
};

/// Calls `visit` with each CurveSegment, from left to right.
template <class Visit>
void forEachSegment(std::span<const Point> points, const Visit& visit) {
  if (points.size() < 2) return;
  std::optional<Parabola> last;
  for (std::size_t i = 0; i + 2 < points.size(); ++i) {
    last = parabolaThrough(points[i], points[i + 1], points[i + 2]);
    visit(CurveSegment{points[i], points[i + 1], last});
  }
  visit(CurveSegment{points[points.size() - 2], points.back(), last});
}

/// Walks the whole curve; see CurveSegment::walk.
template <class Visit>
void walkCurve(std::span<const Point> points, const Visit& visit) {
  forEachSegment(points, [&visit](const CurveSegment& segment) { segment.walk(visit); });
}

/// The highest point of the parabolas whose segments begin below 15 % of strain, or `peak` where none is above it.
Point peakOfCurve(std::span<const Point> points, Point peak);

}  // namespace triaxlab
