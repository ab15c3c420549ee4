#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "common/straight_line.h"
#include "k0/record.h"

namespace triaxlab {

// The settlement of a load stage over the square root of time. Its first readings lie on a line; the line with the same
// beginning and 1.15 times the abscissae crosses the curve at the root of T90, the time of 90 % of the consolidation.
// The lateral pressure at that moment is the result of the stage.

/// Rows 1 to 21 of the series can be used; row 0 is the zero reading.
inline constexpr std::size_t kSettlementRows = 21;

/// The root of a time, of three decimals. Of a time before the beginning there is none: it is 0.
float rootOfMinutes(std::int32_t seconds);

/// The readings of a stage in single precision; what is behind `count` is 0. Without readings `count` is 1.
struct Settlement {
  template <class T>
  using Rows = std::array<T, kSettlementRows>;
  Rows<float> rootTime{};     // square roots of minutes, of three decimals
  Rows<float> deformation{};  // mm
  Rows<float> pressure{};     // lateral, kPa
  std::size_t count = 1;
};
Settlement settlementOf(const TK0SampleRecord& record, std::size_t stage);

// A line has its slope in mm per square root of a minute, and its intercept in mm: where the stage begins.

/// Least squares through the first five readings. Five count in all cases, readings that aren't there as zeros, which
/// flattens the line.
StraightLine firstLineOf(const Settlement& settlement);
/// The line of the construction that crosses the curve at T90.
StraightLine secondLineOf(const StraightLine& first);

struct T90 {
  double rootTime = 0;  // square root of minutes; 0 when the second line doesn't cross the curve
  double pressure = 0;  // lateral pressure at that time, kPa; not below 0
  double minutes() const { return rootTime * rootTime; }
  bool operator==(const T90&) const = default;
};
T90 constructT90(const Settlement& settlement, const StraightLine& first);

/// Constructs the T90 of a loaded stage, stores its first line, unless that was set by hand, and the lateral pressure.
/// A stage without axial pressure stays as it is, with a T90 of 0 here.
T90 computeStageResult(TK0SampleRecord& record, std::size_t stage);
/// The same of every stage.
PerLoadStage<T90> computeStageResults(TK0SampleRecord& record);

/// The first line as the record keeps it.
StraightLine storedFirstLineOf(const TK0SampleRecord& record, std::size_t stage);
/// Keeps the first line that a person has set for a stage; it is no longer fitted.
void storeAdjustedT90Line(TK0SampleRecord& record, std::size_t stage, const StraightLine& first);

}  // namespace triaxlab
