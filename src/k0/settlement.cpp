#include "k0/settlement.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "common/conversions.h"
#include "common/parabola.h"

namespace triaxlab {
namespace {

/// A reading of the series at the square root of its time.
struct Reading {
  double x = 0, y = 0;
};

Reading readingAt(const Settlement& settlement, std::size_t k) {
  return {settlement.rootTime[k], settlement.deformation[k]};
}

double lineAt(const StraightLine& line, double rootTime) { return line.slope * rootTime + line.intercept; }

/// What is no number counts as the result of a division by zero: the value stays 0.
double finiteOrZero(double value) { return std::isfinite(value) ? value : 0; }

/// Where, counted from the last reading back, the line first passes from one side of the curve to the other: the index
/// of the later of the two readings. A reading on the line is a crossing, too.
std::optional<std::size_t> crossingOf(const Settlement& settlement, const StraightLine& line) {
  for (std::size_t k = settlement.count - 1; k > 0; --k) {
    const double here = lineAt(line, settlement.rootTime[k]), before = lineAt(line, settlement.rootTime[k - 1]);
    const double y = settlement.deformation[k], yBefore = settlement.deformation[k - 1];
    if ((y > here || yBefore < before) && (y < here || yBefore > before)) continue;
    return k;
  }
  return std::nullopt;
}

/// The three readings about a crossing. At the end of the series they go backward; a third that isn't there is (0, 0).
std::array<Reading, 3> readingsAbout(const Settlement& settlement, std::size_t k) {
  if (k + 1 < settlement.count)
    return {readingAt(settlement, k - 1), readingAt(settlement, k), readingAt(settlement, k + 1)};
  return {readingAt(settlement, k), readingAt(settlement, k - 1), k >= 2 ? readingAt(settlement, k - 2) : Reading{}};
}

double crossChord(const Reading& first, const Reading& second, const StraightLine& line) {
  const double slope = quotient(second.y - first.y, second.x - first.x).value_or(0);
  const double intercept = first.y - first.x * slope;
  return quotient(intercept - line.intercept, line.slope - slope).value_or(0);
}

/// Where the line meets the parabola through the three readings; nothing when it doesn't. The line is put into the
/// parabola and the equation solved for the deformation.
std::optional<double> crossParabola(const std::array<Reading, 3>& readings, const StraightLine& line) {
  const auto parabola = parabolaThrough(readings[0], readings[1], readings[2]);
  if (!parabola || line.slope == 0) return std::nullopt;
  const double s = line.slope, b = line.intercept;
  const double a2 = finiteOrZero(parabola->a / (s * s));
  const double a1 = finiteOrZero(parabola->b / s - 1 - 2 * a2 * b);
  const double a0 = finiteOrZero(a2 * (b * b) - parabola->b * b / s + parabola->c);
  const double discriminant = a1 * a1 - 4 * a2 * a0;
  if (a2 == 0 || discriminant < 0) return std::nullopt;
  const auto rootTimeOf = [&](double root) { return ((-a1 + root) / (2 * a2) - b) / s; };
  const double plus = rootTimeOf(std::sqrt(discriminant));
  // Of readings that go backward this nearly always takes the other crossing, as it should.
  if (plus > readings[0].x && plus < readings[2].x) return plus;
  return rootTimeOf(-std::sqrt(discriminant));
}

double rootTimeOf(const Settlement& settlement, const StraightLine& second) {
  const std::optional<std::size_t> crossing = crossingOf(settlement, second);
  if (!crossing) return 0;
  const std::array<Reading, 3> readings = readingsAbout(settlement, *crossing);
  if (const auto rootTime = crossParabola(readings, second)) return finiteOrZero(*rootTime);
  return crossChord(readings[0], readings[1], second);
}

/// The pressure on the straight line through reading k and the one behind it.
double pressureAlong(const Settlement& settlement, std::size_t k, double rootTime) {
  const double x0 = settlement.rootTime[k], x1 = settlement.rootTime[k + 1];
  const double p0 = settlement.pressure[k], p1 = settlement.pressure[k + 1];
  const auto slope = quotient(p1 - p0, x1 - x0);
  return slope ? finiteOrZero(p0 + *slope * (rootTime - x0)) : 0;
}

double pressureAt(const Settlement& settlement, double rootTime) {
  if (settlement.count == 1) return settlement.pressure[0];
  for (std::size_t k = 0; k + 1 < settlement.count; ++k) {
    const double x0 = settlement.rootTime[k], x1 = settlement.rootTime[k + 1];
    if (x0 <= rootTime && rootTime <= x1 && x0 != x1) return pressureAlong(settlement, k, rootTime);
  }
  return pressureAlong(settlement, settlement.count - 2, rootTime);
}

/// The rows that have a time, the same for all stages of a sample.
struct TimedRows {
  Settlement::Rows<float> rootTime{};
  Settlement::Rows<std::size_t> row{};
  std::size_t count = 0;
};

TimedRows timedRowsOf(const TK0SampleRecord& record) {
  TimedRows rows;
  for (std::size_t row = 1; row <= kSettlementRows; ++row) {
    const std::int32_t seconds = record.elapsedSeconds[row];
    if (seconds == 0) continue;
    rows.rootTime[rows.count] = rootOfMinutes(seconds);
    rows.row[rows.count] = row;
    ++rows.count;
  }
  return rows;
}

Settlement settlementOf(const TK0SampleRecord& record, std::size_t stage, const TimedRows& rows) {
  Settlement settlement;
  settlement.rootTime = rows.rootTime;
  for (std::size_t k = 0; k < rows.count; ++k) {
    assignIf(settlement.deformation[k], toSingle(record.deformationSeries[rows.row[k]][stage].number()));
    assignIf(settlement.pressure[k], toSingle(record.pressureSeries[rows.row[k]][stage].number()));
  }
  settlement.count = std::max<std::size_t>(rows.count, 1);
  return settlement;
}

T90 computeStageResult(TK0SampleRecord& record, std::size_t stage, const TimedRows& rows) {
  if (!isLoaded(record.k0, stage)) return {};
  const Settlement settlement = settlementOf(record, stage, rows);
  if (record.t90Adjusted[stage] != 1) {
    const StraightLine fitted = firstLineOf(settlement);
    record.t90Slope[stage] = fitted.slope;
    record.t90Intercept[stage] = fitted.intercept;
  }
  const T90 t90 = constructT90(settlement, storedFirstLineOf(record, stage));
  SetNumber(record.k0.lateralPressure[stage], t90.pressure, NumberFormat::Tenths);
  return t90;
}

}  // namespace

float rootOfMinutes(std::int32_t seconds) {
  const double root = seconds > 0 ? std::sqrt(seconds / 60.0) : 0;
  return static_cast<float>(ParseNumber(FormatNumber(root, NumberFormat::Thousandths)));
}

Settlement settlementOf(const TK0SampleRecord& record, std::size_t stage) {
  return settlementOf(record, stage, timedRowsOf(record));
}

StraightLine firstLineOf(const Settlement& settlement) {
  constexpr int kReadings = 5;
  LineSums<float> sums;
  for (std::size_t k = 0; k < kReadings; ++k) sums.add(settlement.rootTime[k], settlement.deformation[k]);
  return fittedLine(sums, kReadings).value_or(StraightLine{});
}

StraightLine secondLineOf(const StraightLine& first) { return {first.slope / 1.15, first.intercept}; }

T90 constructT90(const Settlement& settlement, const StraightLine& first) {
  T90 t90;
  t90.rootTime = rootTimeOf(settlement, secondLineOf(first));
  t90.pressure = std::max(0.0, pressureAt(settlement, t90.rootTime));
  return t90;
}

T90 computeStageResult(TK0SampleRecord& record, std::size_t stage) {
  return computeStageResult(record, stage, timedRowsOf(record));
}

PerLoadStage<T90> computeStageResults(TK0SampleRecord& record) {
  const TimedRows rows = timedRowsOf(record);
  PerLoadStage<T90> results{};
  for (std::size_t stage = 0; stage < kLoadStages; ++stage) results[stage] = computeStageResult(record, stage, rows);
  return results;
}

StraightLine storedFirstLineOf(const TK0SampleRecord& record, std::size_t stage) {
  return {record.t90Slope[stage], record.t90Intercept[stage]};
}

void storeAdjustedT90Line(TK0SampleRecord& record, std::size_t stage, const StraightLine& first) {
  record.t90Adjusted[stage] = 1;
  record.t90Intercept[stage] = first.intercept;
  record.t90Slope[stage] = first.slope;
}

}  // namespace triaxlab
