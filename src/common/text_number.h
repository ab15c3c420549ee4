#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace triaxlab {

/// Fixed-point formats of the system; the value is the number of decimals ("0", "0.0", ... "0.0000").
enum class NumberFormat : std::uint8_t { Whole, Tenths, Hundredths, Thousandths, TenThousandths };

/// The tolerant parse: blanks, a sign, digits with one point, an exponent of E or D; what follows is ignored, and a
/// text that begins with no number is 0. Independent of any locale. A number beyond the range of a double is infinite.
double ParseNumber(std::string_view text);

/// Fixed-point text. The value is rendered to 15 significant decimal digits (a float to 7) and that decimal number is
/// rounded half away from zero: 2.675 gives "2.68". Zero has no minus sign. A value that is not finite has no text: "".
std::string FormatNumber(double value, NumberFormat format);
std::string FormatNumber(float value, NumberFormat format);

/// A whole number with leading zeros up to `width` digits, as "0000" prints a sample count.
std::string FormatPadded(std::int64_t value, int width);

/// Plain number text of up to 15 significant digits without trailing zeros: 0.5, 12, 3.25.
std::string PlainNumber(double value);

/// A float as its decimal text of seven significant digits reads: 0.2f is 0.2 exactly, and not 0.200000003.
double ThroughSevenDigits(float value);

}  // namespace triaxlab
