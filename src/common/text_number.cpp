#include "common/text_number.h"

#include <array>
#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace triaxlab {
namespace {

constexpr std::array kPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr std::uint64_t kMostExactWhole = std::uint64_t{1} << 53;  // up to here a double holds every whole number

constexpr int kMostDigits = 16;  // of a whole power of ten that is needed below

std::uint64_t wholePowerOfTen(int power) {
  return static_cast<std::uint64_t>(kPowersOfTen[static_cast<std::size_t>(power)]);
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// What the scan of a text found; the digits still stand in the text.
struct ScannedNumber {
  std::string_view mantissa;  // digits with at most one point, no sign
  std::uint64_t digits = 0;   // the mantissa's digits as a whole number, valid while digitCount <= 18
  int digitCount = 0;         // from the first digit that is not 0
  int decimals = 0;           // digits behind the point
  int exponent = 0;
  bool negative = false;
};

/// The exponent behind E or D, or 0 when no digits follow. Held within +-9999: anything beyond is 0 or infinite.
int scanExponent(const char* at, const char* end) {
  if (at == end || (*at != 'E' && *at != 'e' && *at != 'D' && *at != 'd')) return 0;
  ++at;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  int exponent = 0;
  for (; at != end && isDigit(*at); ++at)
    if (exponent < 9999) exponent = exponent * 10 + (*at - '0');
  return negative ? -exponent : exponent;
}

ScannedNumber scan(std::string_view text) {
  ScannedNumber found;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end && *at == ' ') ++at;
  if (at != end && (*at == '-' || *at == '+')) found.negative = *at++ == '-';
  const char* const first = at;
  bool point = false, any = false;
  for (; at != end; ++at) {
    if (isDigit(*at)) {
      any = true;
      found.digits = found.digits * 10 + static_cast<unsigned>(*at - '0');
      found.digitCount += found.digitCount > 0 || *at != '0';
      found.decimals += point;
    } else if (*at == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  if (!any) return {};
  found.mantissa = {first, static_cast<std::size_t>(at - first)};
  found.exponent = scanExponent(at, end);
  return found;
}

/// std::from_chars. LLVM's library lacks it for numbers with a point before its version 20; the C library's conversion
/// is as exact, asks no locale but the one it is given, and is itself infinite or 0 beyond the range.
std::errc readDecimal(const std::string& text, double& value) {
#ifdef __cpp_lib_to_chars
  return std::from_chars(text.data(), text.data() + text.size(), value).ec;
#else
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  value = strtod_l(text.c_str(), nullptr, plain);
  return {};
#endif
}

/// More digits than a double holds exactly, or a large exponent: left to the library's correctly rounded conversion.
double convertExactly(const ScannedNumber& number) {
  std::string text(number.mantissa);
  text += 'e';
  text += std::to_string(number.exponent);
  double value = 0;
  if (readDecimal(text, value) == std::errc::result_out_of_range) {
    const bool tooLarge = number.digitCount - number.decimals + number.exponent > 0;
    value = tooLarge && number.digitCount > 0 ? std::numeric_limits<double>::infinity() : 0;
  }
  return value;
}

/// A magnitude as a person reads it: digits x 10^power.
struct Decimal {
  std::uint64_t digits = 0;
  int power = 0;
};

/// Correctly rounded to that many significant digits.
template <class T>
Decimal render(T magnitude, int significant) {
  std::array<char, 40> text{};
  // d.ddd...e[+-]xx
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific, significant - 1);
  Decimal decimal;
  const char* at = text.data();
  for (; *at != 'e'; ++at)
    if (*at != '.') decimal.digits = decimal.digits * 10 + static_cast<unsigned>(*at - '0');
  ++at;
  if (*at == '+') ++at;  // from_chars knows the minus only
  std::from_chars(at, end.ptr, decimal.power);
  decimal.power -= significant - 1;
  return decimal;
}

// Between these bounds a float times the power of ten that makes seven digits of it is exact in a double: 24 bits of
// the float and at most 28 of 5^12.
constexpr float kLeastExact = 1e-6F, kBeyondExact = 1e7F;

/// For each binary exponent of a float, from that of kLeastExact on, the power of ten that makes seven digits of the
/// least float with it. A larger float may need one less.
constexpr int kLeastExponent = -20;
constexpr auto kPowerBySize = [] {
  std::array<int, 44> powers{};
  double least = 0x1p-20;
  for (auto& power : powers) {
    for (double scaled = least; scaled < 1e6; scaled *= 10) ++power;
    least *= 2;
  }
  return powers;
}();

/// A float's seven significant digits.
Decimal renderSeven(float magnitude) {
  if (!(magnitude >= kLeastExact && magnitude < kBeyondExact)) return render(magnitude, 7);
  const int exponent = static_cast<int>(std::bit_cast<std::uint32_t>(magnitude) >> 23) - 127;
  int power = kPowerBySize[static_cast<std::size_t>(exponent - kLeastExponent)];
  double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(power)];
  if (scaled >= 1e7) scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(--power)];
  return {static_cast<std::uint64_t>(std::nearbyint(scaled)), -power};
}

/// Prints n units of the last decimal with the point inserted.
std::string printUnits(std::uint64_t n, int decimals, bool negative) {
  std::array<char, 24> buffer{};
  char* at = buffer.data() + buffer.size();
  const char* const end = at;
  for (int printed = 0; n != 0 || printed <= decimals; ++printed) {
    if (printed == decimals && decimals > 0) *--at = '.';
    *--at = static_cast<char>('0' + n % 10);
    n /= 10;
  }
  if (negative) *--at = '-';
  return {at, static_cast<std::size_t>(end - at)};
}

/// The decimal number rounded half away from zero at the last decimal.
std::string print(const Decimal& magnitude, int decimals, bool negative) {
  if (magnitude.power >= 0 && magnitude.digits != 0) {
    std::string text = printUnits(magnitude.digits, 0, negative);
    text.append(static_cast<std::size_t>(magnitude.power), '0');
    if (decimals > 0) text.append(1, '.').append(static_cast<std::size_t>(decimals), '0');
    return text;
  }
  const int shift = magnitude.power + decimals;
  std::uint64_t units = 0;
  if (shift >= 0) {
    units = magnitude.digits * wholePowerOfTen(shift);
  } else if (-shift <= kMostDigits) {  // otherwise all digits stand behind the place that rounds
    const std::uint64_t unit = wholePowerOfTen(-shift);
    units = (magnitude.digits + unit / 2) / unit;
  }
  return printUnits(units, decimals, negative && units != 0);
}

}  // namespace

double ParseNumber(std::string_view text) {
  const ScannedNumber number = scan(text);
  // Such whole numbers and powers of ten up to 10^22 are exact in a double, so one operation rounds correctly. No such
  // number is left to the library: the one for 32 bits does the same by the old arithmetic unit, which rounds twice.
  const int power = number.exponent - number.decimals;
  double value = 0;
  if (number.digitCount <= 16 && number.digits <= kMostExactWhole && power >= -22 && power <= 22) {
    value = static_cast<double>(number.digits);
    if (power < 0)
      value /= kPowersOfTen[static_cast<std::size_t>(-power)];
    else if (power > 0)
      value *= kPowersOfTen[static_cast<std::size_t>(power)];
  } else {
    value = convertExactly(number);
  }
  return number.negative ? -value : value;
}

std::string FormatNumber(double value, NumberFormat format) {
  if (!std::isfinite(value)) return {};
  const int decimals = static_cast<int>(format);
  const double magnitude = std::fabs(value);
  const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (magnitude < 1e9) {
    auto units = static_cast<std::uint64_t>(scaled);
    const double fraction = scaled - static_cast<double>(units);
    // Fifteen digits of such a value differ from it by less than a hundredth of a unit, so they decide near a half
    // only.
    if (std::fabs(fraction - 0.5) > 0.01) {
      units += fraction > 0.5;
      return printUnits(units, decimals, value < 0 && units != 0);
    }
  }
  return print(render(magnitude, 15), decimals, value < 0);
}

std::string FormatNumber(float value, NumberFormat format) {
  if (!std::isfinite(value)) return {};
  return print(renderSeven(std::fabs(value)), static_cast<int>(format), value < 0);
}

std::string FormatPadded(std::int64_t value, int width) {
  const auto bits = static_cast<std::uint64_t>(value);
  const std::string digits = std::to_string(value < 0 ? -bits : bits);
  std::string text(value < 0 ? 1 : 0, '-');
  if (const auto wanted = static_cast<std::size_t>(width); digits.size() < wanted)
    text.append(wanted - digits.size(), '0');
  return text.append(digits);
}

std::string PlainNumber(double value) {
  if (!std::isfinite(value)) return {};
  std::array<char, 40> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value == 0 ? 0.0 : value, std::chars_format::general, 15);
  return {text.data(), end.ptr};
}

double ThroughSevenDigits(float value) {
  if (!std::isfinite(value)) return value;
  const float magnitude = std::fabs(value);
  if (!(magnitude >= kLeastExact && magnitude < kBeyondExact)) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, 6);
    return ParseNumber({text.data(), end.ptr});
  }
  const Decimal decimal = renderSeven(magnitude);
  const double read = static_cast<double>(decimal.digits) / kPowersOfTen[static_cast<std::size_t>(-decimal.power)];
  return value < 0 ? -read : read;
}

}  // namespace triaxlab
