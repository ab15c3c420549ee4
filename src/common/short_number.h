#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace triaxlab::detail {

// Nearly every number field of a record holds a number of a few digits behind an optional minus, whole or with one
// decimal, left-justified and blank-padded. These read and write such a field as one machine word, several times faster
// than the general ParseNumber and FormatNumber and with the same result. They say false, and change nothing, when the
// field or the value is of another form, which is then the general functions' business.

inline constexpr std::uint64_t kEachByte = 0x0101010101010101;

/// Fields of 4 to 7 places: they leave a blank behind them in a word of eight.
template <std::size_t N>
inline constexpr bool kFitsAWord = N >= 4 && N < sizeof(std::uint64_t) && std::endian::native == std::endian::little;

template <class Part>
std::uint64_t loadPart(const char* at) {
  Part part;
  std::memcpy(&part, at, sizeof part);
  return part;
}

/// The places with the first as the lowest byte, and blanks behind them. Put together in a register: a copy into a word
/// in memory would be read back before it is whole there, which stalls.
template <std::size_t N>
std::uint64_t loadPlaces(const char* places) {
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
bool readShortNumber(const char* places, double& value) {
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
void storePlaces(char* places, std::uint64_t text, bool negative) {
  static_assert(kFitsAWord<N>);
  if (negative) text = text << 8 | '-';
  std::memcpy(places, &text, N);
}

/// Writes the value rounded to a whole number of up to four digits, if the field holds them all, and says which number
/// it was. Near a half the decimal rendering decides, which is the general functions' business.
template <std::size_t N>
bool writeWholeNumber(char* places, double value, double& written) {
  static_assert(kFitsAWord<N>);
  constexpr double kMost = 9999, kLeast = N == 4 ? -999 : -kMost;
  if (!(value >= kLeast && value <= kMost)) return false;
  auto whole = static_cast<std::int32_t>(value);
  if (const double fraction = std::fabs(value - whole); fraction != 0) {
    if (std::fabs(fraction - 0.5) < 0.01) return false;
    whole = static_cast<std::int32_t>(value + std::copysign(0.5, value));
  }
  written = whole;
  storePlaces<N>(places, kShortTexts[static_cast<std::size_t>(std::abs(whole))], whole < 0);
  return true;
}

/// The same with one decimal.
template <std::size_t N>
bool writeTenths(char* places, double value, double& written) {
  constexpr double kMost = N == 7 ? 9999.8 : 999.8;  // behind a minus, too
  const double scaled = std::fabs(value) * 10;
  if (N < 6 || !(scaled < kMost * 10)) return false;
  const auto below = static_cast<std::int32_t>(scaled);
  const double rest = scaled - below;
  if (std::fabs(rest - 0.5) < 0.01) return false;
  const std::int32_t tenths = rest > 0.5 ? below + 1 : below;
  const bool negative = value < 0 && tenths != 0;
  written = (negative ? -tenths : tenths) / 10.0;
  const int whole = tenths / 10;
  const auto digits = 1U + (whole > 9) + (whole > 99) + (whole > 999);
  // The point and the decimal go into blanks.
  const std::uint64_t behind = std::uint64_t{'.' - ' '} | static_cast<std::uint64_t>('0' - ' ' + tenths % 10) << 8;
  storePlaces<N>(places, kShortTexts[static_cast<std::size_t>(whole)] + (behind << 8 * digits), negative);
  return true;
}

}  // namespace triaxlab::detail
