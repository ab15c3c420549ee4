// Unconfined records: whatever their bytes are, the reduction comes to an end, gives numbers and gives them again.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <vector>

#include "unconfined/reduction.h"
#include "unconfined/smoothed_curve.h"

namespace {

using namespace triaxlab;

void check(bool isSo) {
  if (!isSo) std::abort();
}

/// Over the widest axis that a chart has.
void walkWholeCurve(const UnconfinedSampleRecord& record, Specimen specimen) {
  constexpr double kWidestAxis = 50;
  constexpr std::size_t kMostChords = (kUnconfinedRows + 1) * 502;
  const std::vector<Point> points = curvePoints(record, specimen, kWidestAxis);
  std::size_t chords = 0;
  walkCurve(points, [&](const CurveChord&) { ++chords; });
  check(chords <= kMostChords);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  UnconfinedSampleRecord record;
  std::copy_n(data, std::min(size, sizeof record), reinterpret_cast<std::uint8_t*>(&record));
  const auto format = static_cast<NumberFormat>(size % 5);
  reduceUnconfinedSample(record, format);
  for (const Specimen specimen : kSpecimens) {
    check(strengthOf(record, specimen).number() >= 0);
    const HalfPeak half = halfPeakOf(record, specimen);
    check(std::isfinite(half.stress) && std::isfinite(half.strain));
    if (const std::optional<double> strain = strainAtPeak(record, specimen)) check(std::isfinite(*strain));
    walkWholeCurve(record, specimen);
  }
  const UnconfinedSampleRecord before = record;
  reduceUnconfinedSample(record, format);
  check(std::memcmp(&record, &before, sizeof record) == 0);
  return 0;
}
