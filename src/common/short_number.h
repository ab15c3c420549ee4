#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "common/conversions.h"

namespace triaxlab::detail {

// Nearly every number field of a record holds a number of a few digits behind an optional minus, whole or with a
// decimal or two, left-justified and blank-padded. These read such a field, if it has no second decimal, and write it
// as one machine word, several times faster than the general ParseNumber and FormatNumber and with the same result.
// They say false, and the field stays as it is, when the field or the value is of another form, which is then the
// general functions' business.

inline constexpr std::uint64_t kEachByte = 0x0101010101010101;

/// Fields of 4 to 7 places: they leave a blank behind them in a word of eight.
template <std::size_t N>
inline constexpr bool kFitsAWord = N >= 4 && N < sizeof(std::uint64_t) && std::endian::native == std::endian::little;

template <class Part>
inline std::uint64_t loadPart(const char* at) {
  Part part;
  std::memcpy(&part, at, sizeof part);
  return part;
}

/// The places with the first as the lowest byte, and blanks behind them. Put together in a register: a copy into a word
/// in memory would be read back before it is whole there, which stalls.
template <std::size_t N>
inline std::uint64_t loadPlaces(const char* places) {
  static_assert(kFitsAWord<N>);
  std::uint64_t text = kEachByte * ' ' << 8 * N | loadPart<std::uint32_t>(places);
  if constexpr ((N & 2) != 0) text |= loadPart<std::uint16_t>(places + 4) << 32;
  if constexpr ((N & 1) != 0) text |= loadPart<std::uint8_t>(places + N - 1) << 8 * (N - 1);
  return text;
}

/// The number of eight digits, 0 to 9 a byte, the first in the lowest.
inline double numberOfDigits(std::uint64_t digits) {
  digits = digits * 10 + (digits >> 8);  // pairs, then fours, then all
  constexpr std::uint64_t kEveryFourthByte = 0x000000FF000000FF;
  digits = ((digits & kEveryFourthByte) * (100 + (std::uint64_t{1000000} << 32)) +
            (digits >> 16 & kEveryFourthByte) * (1 + (std::uint64_t{10000} << 32))) >>
           32;
  return static_cast<double>(static_cast<std::uint32_t>(digits));
}

template <std::size_t N>
inline bool readShortNumber(const char* places, double& value) {
  std::uint64_t text = loadPlaces<N>(places);
  if (text == kEachByte * ' ') {
    value = 0;
    return true;
  }
  const bool negative = (text & 0xFF) == '-';
  if (negative) text = text >> 8 | std::uint64_t{' '} << 56;

  // Digits become 0 to 9. The lowest byte above 9 ends them; carries out of it reach only bytes behind it.
  std::uint64_t digits = text ^ kEachByte * '0';
  const std::uint64_t others = (digits + kEachByte * (0x7F - 9)) & kEachByte * 0x80;
  const auto bits = static_cast<unsigned>(std::countr_zero(others | (digits & kEachByte * 0x80))) & ~7U;
  if (bits == 0) return false;
  double magnitude = 0;
  if ((text >> bits & 0xFF) == ' ') {
    magnitude = numberOfDigits(digits << (64 - bits));  // with zeros in front
  } else {
    const std::uint64_t decimal = digits >> bits >> 8 & 0xFF;
    if ((text >> bits & 0xFF) != '.' || decimal > 9 || (text >> bits >> 16 & 0xFF) != ' ') return false;
    digits = (digits & ((std::uint64_t{1} << bits) - 1)) | decimal << bits;  // into the place of the point
    magnitude = numberOfDigits(digits << (56 - bits)) / 10;
  }
  value = negative ? -magnitude : magnitude;
  return true;
}

inline constexpr int kBeyondShort = 10000;

/// The numbers below kBeyondShort as a word of places: the first digit in the lowest byte, blanks behind the last.
extern const std::array<std::uint64_t, kBeyondShort> kShortTexts;

/// A short text in the places of a field.
template <std::size_t N>
inline void storePlaces(char* places, std::uint64_t text, bool negative) {
  static_assert(kFitsAWord<N>);
  if (negative) text = text << 8 | '-';
  std::memcpy(places, &text, N);
}

/// Writes a whole number of up to four digits, if the field holds them all.
template <std::size_t N>
inline bool storeWhole(char* places, std::int32_t whole) {
  constexpr std::int32_t kMost = kBeyondShort - 1, kLeast = N == 4 ? -999 : -kMost;
  if (whole < kLeast || whole > kMost) return false;
  storePlaces<N>(places, kShortTexts[static_cast<std::size_t>(std::abs(whole))], whole < 0);
  return true;
}

/// Writes the value rounded to a whole number of up to four digits, if the field holds them all, and says which number
/// it was. Half a number goes away from zero. Near a half the decimal rendering decides, which is the general
/// functions' business.
template <std::size_t N>
inline bool writeWholeNumber(char* places, double value, double& written) {
  written = nearestWhole(value);
  if (const double rest = std::fabs(value - written); rest > 0.49) {
    if (rest != 0.5) return false;
    written = value + std::copysign(0.5, value);
  }
  return std::fabs(written) < kBeyondShort && storeWhole<N>(places, static_cast<std::int32_t>(written));
}

/// The same with one decimal or two, of up to five digits: so far the seven digits of a float round as the float does.
template <std::size_t N, std::int32_t kUnits>
inline bool writeDecimals(char* places, double value, double& written) {
  static_assert(kUnits == 10 || kUnits == 100);
  constexpr double kMost = 99998, kLeast = N == 7 ? -kMost : -9998;  // the point and the minus take a place each
  const double scaled = value * kUnits;
  if (N < 6 || !(scaled > kLeast && scaled < kMost)) return false;
  const double magnitude = std::fabs(scaled);
  const auto below = static_cast<std::int32_t>(magnitude);
  const double rest = magnitude - below;
  if (std::fabs(rest - 0.5) < 0.01) return false;
  const std::int32_t units = rest > 0.5 ? below + 1 : below;
  const bool negative = value < 0 && units != 0;
  written = (negative ? -units : units) / double{kUnits};
  const std::int32_t whole = units / kUnits;
  const auto digits = 1U + (whole > 9) + (whole > 99) + (whole > 999);
  // The decimals as digits behind a 1, which becomes the point; they go into blanks.
  const std::uint64_t decimals = kShortTexts[static_cast<std::size_t>(kUnits + units % kUnits)] - ('1' - '.');
  const std::uint64_t text =
      kShortTexts[static_cast<std::size_t>(whole)] + ((decimals - kEachByte * ' ') << 8 * digits);
  storePlaces<N>(places, text, negative);
  return true;
}

}  // namespace triaxlab::detail
