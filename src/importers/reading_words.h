#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "common/little.h"
#include "triaxial/time_axes.h"

namespace triaxlab {

// The 16-bit words in which the controllers of the .KU files store measures and readings.

template <std::size_t count>
using Words = std::array<Little<std::int16_t>, count>;
/// Reading i of the shear phase stands at index i; index 0 is not used.
using ShearWords = Words<kImportedShearRows>;
using ConsolidationWords = Words<kImportedConsolidationRows>;

/// The controllers write this word where they took no reading.
inline constexpr std::int16_t kNoReading = -30000;

/// A word whose absence counts as 0.
constexpr std::int16_t readingOrZero(std::int16_t word) { return word == kNoReading ? std::int16_t{0} : word; }

/// A 16-bit word that holds sign and magnitude: the top bit means minus.
constexpr std::int16_t fromSignAndMagnitude(std::int16_t word) {
  return static_cast<std::int16_t>(word < 0 ? -(word + 32768) : word);
}

/// A word of tenths as the format "0" shows it: half away from zero.
constexpr std::int16_t wholeOfTenths(std::int16_t tenths) {
  return static_cast<std::int16_t>((tenths + (tenths < 0 ? -5 : 5)) / 10);
}

}  // namespace triaxlab
