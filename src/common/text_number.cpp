#include "common/text_number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace triaxlab {
namespace {

constexpr std::array kPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

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

/// More digits than a double holds exactly, or a large exponent: left to the library's correctly rounded conversion.
double convertExactly(const ScannedNumber& number) {
  std::string text(number.mantissa);
  text += 'e';
  text += std::to_string(number.exponent);
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    const bool tooLarge = number.digitCount - number.decimals + number.exponent > 0;
    value = tooLarge && number.digitCount > 0 ? std::numeric_limits<double>::infinity() : 0;
  }
  return value;
}

/// `digits` significant decimal digits of a finite value: 0.d1d2d3... x 10^exponent.
struct DecimalDigits {
  std::array<char, 15> digit{};
  int count = 0;
  int exponent = 0;
};

template <class T>
DecimalDigits render(T value, int significant) {
  std::array<char, 40> text{};
  // Scientific form: d.ddd...e[+-]xx
  const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                 std::chars_format::scientific, significant - 1);
  DecimalDigits decimal;
  const char* at = text.data();
  for (; *at != 'e'; ++at)
    if (*at != '.') decimal.digit[static_cast<std::size_t>(decimal.count++)] = *at;
  ++at;
  const bool negative = *at == '-';
  int exponent = 0;
  std::from_chars(at + 1, end.ptr, exponent);
  decimal.exponent = (negative ? -exponent : exponent) + 1;
  return decimal;
}

/// The slow, general road: decimal digits rounded half away from zero at the last decimal that the format shows.
template <class T>
std::string roundDecimally(T value, int decimals, int significant) {
  const DecimalDigits rendered = render(value, significant);
  const int kept = rendered.exponent + decimals;  // digits in front of the cut; may be negative
  std::string digits(rendered.digit.data(), static_cast<std::size_t>(rendered.count));
  if (kept < 0) {
    digits = "0";
  } else if (kept < rendered.count) {
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits.resize(static_cast<std::size_t>(kept));
    digits.insert(digits.begin(), '0');
    if (up) {
      std::size_t at = digits.size() - 1;
      while (digits[at] == '9') digits[at--] = '0';
      ++digits[at];
    }
  } else {
    digits.append(static_cast<std::size_t>(kept - rendered.count), '0');
  }
  // `digits` is now a whole number of units of the last decimal.
  const std::size_t firstDigit = digits.find_first_not_of('0');
  const bool zero = firstDigit == std::string::npos;
  digits.erase(0, zero ? digits.size() : firstDigit);
  const auto wanted = static_cast<std::size_t>(decimals) + 1;
  if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), '0');
  if (decimals > 0) digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, '.');
  if (value < 0 && !zero) digits.insert(digits.begin(), '-');
  return digits;
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

}  // namespace

double ParseNumber(std::string_view text) {
  const ScannedNumber number = scan(text);
  // Whole numbers up to 15 digits and powers of ten up to 10^22 are exact in a double, so one operation rounds
  // correctly.
  const int power = number.exponent - number.decimals;
  double value = 0;
  if (number.digitCount <= 15 && power >= -22 && power <= 22) {
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
  if (!(magnitude < 1e9)) return roundDecimally(value, decimals, 15);
  const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
  auto units = static_cast<std::uint64_t>(scaled);
  const double fraction = scaled - static_cast<double>(units);
  // Near a half only the 15 digits themselves can tell which way they round.
  if (std::fabs(fraction - 0.5) < 0.01) return roundDecimally(value, decimals, 15);
  units += fraction > 0.5;
  return printUnits(units, decimals, value < 0 && units != 0);
}

std::string FormatNumber(float value, NumberFormat format) {
  if (!std::isfinite(value)) return {};
  return roundDecimally(value, static_cast<int>(format), 7);
}

std::string FormatPadded(std::int64_t value, int width) {
  const auto magnitude = static_cast<std::uint64_t>(value);
  std::string digits = std::to_string(value < 0 ? -magnitude : magnitude);
  if (const auto wanted = static_cast<std::size_t>(width); digits.size() < wanted)
    digits.insert(0, wanted - digits.size(), '0');
  return value < 0 ? "-" + digits : digits;
}

std::string PlainNumber(double value) {
  if (!std::isfinite(value)) return {};
  std::array<char, 40> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value == 0 ? 0.0 : value, std::chars_format::general, 15);
  return {text.data(), end.ptr};
}

double ThroughSevenDigits(float value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, 6);
  double parsed = value;
  std::from_chars(text.data(), end.ptr, parsed);
  return parsed;
}

}  // namespace triaxlab
