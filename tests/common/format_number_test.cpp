#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "common/text_number.h"

namespace triaxlab {
namespace {

constexpr NumberFormat kFormats[] = {NumberFormat::Whole, NumberFormat::Tenths, NumberFormat::Hundredths,
                                     NumberFormat::Thousandths, NumberFormat::TenThousandths};
constexpr std::uint64_t kPowers[] = {1,
                                     10,
                                     100,
                                     1'000,
                                     10'000,
                                     100'000,
                                     1'000'000,
                                     10'000'000,
                                     100'000'000,
                                     1'000'000'000,
                                     10'000'000'000,
                                     100'000'000'000,
                                     1'000'000'000'000,
                                     10'000'000'000'000,
                                     100'000'000'000'000,
                                     1'000'000'000'000'000,
                                     10'000'000'000'000'000};

/// "-12.34" of 1234 hundredths: the units of the last decimal with the point put in.
std::string pointed(std::string units, std::size_t decimals, bool negative) {
  units.insert(0, decimals + 1 - std::min(decimals + 1, units.size()), '0');
  const bool zero = units.find_first_not_of('0') == std::string::npos;
  if (decimals > 0) units.insert(units.size() - decimals, ".");
  return negative && !zero ? "-" + units : units;
}

/// The slow way: the C library renders the significant digits exactly, whole numbers do the rest.
struct Rendered {
  std::uint64_t digits = 0;
  int power = 0;  // the value is digits x 10^power
  bool negative = false;
};

Rendered renderSlowly(double value, int significant) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*e", significant - 1, std::fabs(value));
  Rendered rendered;
  const char* at = text;
  for (; *at != 'e'; ++at)
    if (*at >= '0' && *at <= '9') rendered.digits = rendered.digits * 10 + static_cast<unsigned>(*at - '0');
  rendered.power = std::atoi(at + 1) - (significant - 1);
  rendered.negative = value < 0;
  return rendered;
}

std::string formatSlowly(const Rendered& value, std::size_t decimals) {
  // In units of the last decimal: zeros to be appended, or digits to be cut off with half away from zero.
  const int shift = value.power + static_cast<int>(decimals);
  std::string units = "0";
  if (shift >= 0 && value.digits != 0) {
    units = std::to_string(value.digits) + std::string(static_cast<std::size_t>(shift), '0');
  } else if (shift < 0 && -shift <= 16) {
    const std::uint64_t divisor = kPowers[-shift];
    units = std::to_string(value.digits / divisor + (value.digits % divisor * 2 >= divisor ? 1 : 0));
  }
  return pointed(units, decimals, value.negative);
}

template <class T>
testing::AssertionResult formatsAsTheSlowWay(T value) {
  const Rendered rendered = renderSlowly(static_cast<double>(value), std::is_same_v<T, float> ? 7 : 15);
  for (const NumberFormat format : kFormats) {
    const std::string expected = formatSlowly(rendered, static_cast<std::size_t>(format));
    const std::string actual = FormatNumber(value, format);
    if (actual != expected) {
      char exact[64];
      std::snprintf(exact, sizeof exact, "%.20g (%a)", static_cast<double>(value), static_cast<double>(value));
      return testing::AssertionFailure() << exact << " gives " << actual << ", not " << expected;
    }
  }
  return testing::AssertionSuccess();
}

/// A value as measurements have it: a few digits before and many behind the point.
double measured(std::mt19937_64& random) {
  const double magnitude = std::pow(10.0, static_cast<double>(random() % 16) - 6);
  const double value = static_cast<double>(random() % 2'000'000'000) / 1e9 * magnitude;
  return random() % 2 == 0 ? value : -value;
}

TEST(FormatNumber, RoundsTheDecimalThatAPersonSees) {
  EXPECT_EQ(FormatNumber(2.675, NumberFormat::Hundredths), "2.68");  // in binary below the half
  EXPECT_EQ(FormatNumber(1.005, NumberFormat::Hundredths), "1.01");
  EXPECT_EQ(FormatNumber(-0.5, NumberFormat::Whole), "-1");
  EXPECT_EQ(FormatNumber(0.5, NumberFormat::Whole), "1");
  EXPECT_EQ(FormatNumber(1.5, NumberFormat::Whole), "2");
  EXPECT_EQ(FormatNumber(2.5, NumberFormat::Whole), "3");
  EXPECT_EQ(FormatNumber(0.04999999, NumberFormat::Tenths), "0.0");
  EXPECT_EQ(FormatNumber(99.995, NumberFormat::Hundredths), "100.00");
  EXPECT_EQ(FormatNumber(12.3456, NumberFormat::TenThousandths), "12.3456");
  EXPECT_EQ(FormatNumber(7.0, NumberFormat::Thousandths), "7.000");
  // A double keeps 15 digits, so the sixteenth decides nothing.
  EXPECT_EQ(FormatNumber(0.499999999999999, NumberFormat::Whole), "0");
  EXPECT_EQ(FormatNumber(0.4999999999999999, NumberFormat::Whole), "1");
}

TEST(FormatNumber, AFloatRoundsOnSevenDigits) {
  EXPECT_EQ(FormatNumber(2.675F, NumberFormat::Hundredths), "2.68");
  EXPECT_EQ(FormatNumber(0.4999999F, NumberFormat::Whole), "0");
  EXPECT_EQ(FormatNumber(0.49999997F, NumberFormat::Whole), "1");  // next to the half, renders 0.5000000
  EXPECT_EQ(FormatNumber(1.4999999F, NumberFormat::Whole), "2");   // renders 1.500000
  EXPECT_EQ(FormatNumber(16777217.0F, NumberFormat::Whole), "16777220");
  EXPECT_EQ(FormatNumber(123456.75F, NumberFormat::Hundredths), "123456.80");
}

TEST(FormatNumber, ZeroHasNoSign) {
  for (const NumberFormat format : kFormats) {
    const std::string zero = pointed("0", static_cast<std::size_t>(format), false);
    for (const double value : {0.0, -0.0, 1e-9, -1e-9, -0.00001, -0.00004999, 5e-324, -5e-324})
      EXPECT_EQ(FormatNumber(value, format), zero);
    for (const float value : {0.0F, -0.0F, -1e-9F, 1e-45F}) EXPECT_EQ(FormatNumber(value, format), zero);
  }
}

TEST(FormatNumber, WhatIsNotFiniteHasNoText) {
  for (const NumberFormat format : kFormats) {
    for (const double value : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()})
      EXPECT_EQ(FormatNumber(value, format), "");
    EXPECT_EQ(FormatNumber(std::numeric_limits<float>::infinity(), format), "");
    EXPECT_EQ(FormatNumber(std::numeric_limits<float>::quiet_NaN(), format), "");
  }
}

TEST(FormatNumber, HugeValuesEndInZeros) {
  EXPECT_EQ(FormatNumber(1e300, NumberFormat::Whole), "1" + std::string(300, '0'));
  EXPECT_EQ(FormatNumber(-1e22, NumberFormat::Tenths), "-1" + std::string(22, '0') + ".0");
  EXPECT_EQ(FormatNumber(123456789012345678.0, NumberFormat::Hundredths), "123456789012346000.00");
  EXPECT_EQ(FormatNumber(999999999999999.9, NumberFormat::Whole), "1000000000000000");
  for (const double value : {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(), 1e9, 999999999.5,
                             999999999.9999, 1e15, 1e16, 4503599627370496.5})
    EXPECT_TRUE(formatsAsTheSlowWay(value));
  EXPECT_TRUE(formatsAsTheSlowWay(std::numeric_limits<float>::max()));
  EXPECT_TRUE(formatsAsTheSlowWay(std::numeric_limits<float>::denorm_min()));
}

TEST(FormatNumber, EveryHalfWayValueRoundsAway) {
  // (k + 1/2) units of the last decimal, and the doubles next to it: all three read the same in 15 digits.
  for (const NumberFormat format : kFormats) {
    const auto decimals = static_cast<std::size_t>(format);
    const auto parts = static_cast<double>(2 * kPowers[decimals]);
    for (std::uint64_t k = 0; k < 1'000'000; ++k) {
      const double half = static_cast<double>(2 * k + 1) / parts;
      const std::string away = pointed(std::to_string(k + 1), decimals, false);
      ASSERT_EQ(FormatNumber(half, format), away) << half;
      if (k % 16 != 0) continue;
      ASSERT_EQ(FormatNumber(-half, format), "-" + away) << half;
      ASSERT_EQ(FormatNumber(std::nextafter(half, 0.0), format), away) << half;
      ASSERT_EQ(FormatNumber(std::nextafter(half, 1e9), format), away) << half;
    }
  }
}

TEST(FormatNumber, EveryHalfWayFloatRoundsAway) {
  // A decimal of six digits is safe in a float: the nearest float reads the same in seven digits.
  for (const NumberFormat format : kFormats) {
    const auto decimals = static_cast<std::size_t>(format);
    const auto parts = static_cast<double>(2 * kPowers[decimals]);
    for (std::uint64_t k = 0; k < 100'000; ++k) {
      const auto half = static_cast<float>(static_cast<double>(2 * k + 1) / parts);
      const std::string away = pointed(std::to_string(k + 1), decimals, false);
      ASSERT_EQ(FormatNumber(half, format), away) << half;
      ASSERT_EQ(FormatNumber(-half, format), "-" + away) << half;
    }
  }
}

TEST(FormatNumber, HalfWayValuesOfManyDigits) {
  std::mt19937_64 random{15};
  for (int i = 0; i < 100'000; ++i) {
    const auto whole = random() % 10'000'000'000'000;
    const double parts = static_cast<double>(2 * kPowers[random() % 5]);
    ASSERT_TRUE(formatsAsTheSlowWay(static_cast<double>(2 * whole + 1) / parts));
  }
}

TEST(FormatNumber, AMillionMeasuredValues) {
  std::mt19937_64 random{1};
  for (int i = 0; i < 700'000; ++i) ASSERT_TRUE(formatsAsTheSlowWay(measured(random)));
  for (int i = 0; i < 300'000; ++i) {
    const auto anything = std::bit_cast<double>(random());
    ASSERT_TRUE(!std::isfinite(anything) || formatsAsTheSlowWay(anything));
  }
}

TEST(FormatNumber, AMillionFloats) {
  std::mt19937_64 random{7};
  for (int i = 0; i < 700'000; ++i) ASSERT_TRUE(formatsAsTheSlowWay(static_cast<float>(measured(random))));
  for (int i = 0; i < 300'000; ++i) {
    const auto anything = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    ASSERT_TRUE(!std::isfinite(anything) || formatsAsTheSlowWay(anything));
  }
}

TEST(FormatNumber, WhatIsPrintedReadsBack) {
  for (std::int64_t units = -30'000; units <= 30'000; ++units) {
    const double value = static_cast<double>(units) / 100;
    EXPECT_EQ(ParseNumber(FormatNumber(value, NumberFormat::Hundredths)), value);
  }
}

TEST(ThroughSevenDigits, IsTheDecimalThatAPersonWouldRead) {
  EXPECT_EQ(ThroughSevenDigits(0.2F), 0.2);
  EXPECT_EQ(ThroughSevenDigits(15.0F), 15.0);
  EXPECT_EQ(ThroughSevenDigits(3.45F), 3.45);
  EXPECT_EQ(ThroughSevenDigits(-22.1F), -22.1);
  EXPECT_EQ(ThroughSevenDigits(16777216.0F), 16777220.0);
  EXPECT_EQ(ThroughSevenDigits(0.0F), 0.0);
  EXPECT_EQ(ThroughSevenDigits(std::numeric_limits<float>::infinity()), std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(ThroughSevenDigits(std::numeric_limits<float>::quiet_NaN())));
}

testing::AssertionResult goesThroughSevenDigits(float value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.6e", static_cast<double>(value));
  const double expected = std::strtod(text, nullptr), actual = ThroughSevenDigits(value);
  if (actual == expected) return testing::AssertionSuccess();
  return testing::AssertionFailure() << text << " gives " << actual;
}

TEST(ThroughSevenDigits, AgreesWithTheSlowWay) {
  // Every strain that an apparatus can tell, in thousandths of a percent, then floats of any kind.
  for (int thousandths = 0; thousandths <= 300'000; ++thousandths)
    ASSERT_TRUE(goesThroughSevenDigits(static_cast<float>(thousandths) / 1000.0F));
  std::mt19937 random{77};
  for (int i = 0; i < 1'000'000; ++i) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    ASSERT_TRUE(!std::isfinite(value) || goesThroughSevenDigits(value));
  }
  for (const float value : {std::numeric_limits<float>::max(), std::numeric_limits<float>::min(),
                            std::numeric_limits<float>::denorm_min(), 9999999.5F, 9999999.0F, 0.99999994F})
    EXPECT_TRUE(goesThroughSevenDigits(value));
}

TEST(FormatPadded, FillsWithZeros) {
  EXPECT_EQ(FormatPadded(0, 4), "0000");
  EXPECT_EQ(FormatPadded(7, 4), "0007");
  EXPECT_EQ(FormatPadded(9999, 4), "9999");
  EXPECT_EQ(FormatPadded(12345, 4), "12345");
  EXPECT_EQ(FormatPadded(-7, 4), "-0007");
  EXPECT_EQ(FormatPadded(std::numeric_limits<std::int64_t>::min(), 4), "-9223372036854775808");
}

TEST(PlainNumber, HasNoTrailingZeros) {
  EXPECT_EQ(PlainNumber(0.5), "0.5");
  EXPECT_EQ(PlainNumber(12), "12");
  EXPECT_EQ(PlainNumber(3.25), "3.25");
  EXPECT_EQ(PlainNumber(-0.0), "0");
  EXPECT_EQ(PlainNumber(0.1 + 0.2), "0.3");  // 15 digits, not 17
  EXPECT_EQ(PlainNumber(100), "100");
  EXPECT_EQ(PlainNumber(std::numeric_limits<double>::infinity()), "");
}

}  // namespace
}  // namespace triaxlab
