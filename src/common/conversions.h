#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace triaxlab {

// The system computes in continue-on-error mode: a statement that can't be carried out is abandoned, its target keeps
// what it held, and the next statement runs. These helpers say so in types: a conversion that fails has no value, and
// `assignIf` leaves the target alone.

/// std::nearbyint without its call: so far from 0 a double has no places for a fraction, and the sum is rounded to the
/// nearest whole number, ties to even in the default rounding mode, which nobody changes. For magnitudes below 2^51.
inline double nearestWhole(double value) {
  constexpr double kNoFractions = 0x1.8p52;
  return (value + kNoFractions) - kNoFractions;
}

namespace detail {
template <class Integer>
std::optional<Integer> nearest(double value) {
  constexpr double kLowest = std::numeric_limits<Integer>::min(), kHighest = std::numeric_limits<Integer>::max();
  if (!(value > kLowest - 1 && value < kHighest + 1)) return std::nullopt;
  const double rounded = nearestWhole(value);
  if (rounded < kLowest || rounded > kHighest) return std::nullopt;
  return static_cast<Integer>(rounded);
}
}  // namespace detail

/// The nearest 16-bit integer, ties to even; nothing when it is out of range.
inline std::optional<std::int16_t> toInt16(double value) { return detail::nearest<std::int16_t>(value); }
/// The nearest 32-bit integer, ties to even; nothing when it is out of range.
inline std::optional<std::int32_t> toInt32(double value) { return detail::nearest<std::int32_t>(value); }

/// The nearest single-precision number; nothing when it is out of range.
inline std::optional<float> toSingle(double value) {
  if (!(std::fabs(value) <= std::numeric_limits<float>::max())) return std::nullopt;
  return static_cast<float>(value);
}

/// Int(x): the floor, Int(-3.5) is -4.
inline double Int(double value) { return std::floor(value); }

/// numerator / denominator, or nothing when the denominator is 0 or the quotient is not finite.
inline std::optional<double> quotient(double numerator, double denominator) {
  if (denominator == 0) return std::nullopt;
  const double result = numerator / denominator;
  if (!std::isfinite(result)) return std::nullopt;
  return result;
}

/// Stores a value that exists; otherwise the target keeps what it held.
template <class Target, class Value>
void assignIf(Target& target, const std::optional<Value>& value) {
  if (value) target = *value;
}

}  // namespace triaxlab
