#include "common/short_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "common/fixed_text.h"
#include "common/text_number.h"

namespace triaxlab {
namespace {

/// A field read in one word is the number that ParseNumber reads, sign of zero included.
template <std::size_t N>
void expectReadAlike(std::string_view places) {
  FixedText<N> field;
  std::memcpy(static_cast<void*>(&field), places.data(), N);
  const double expected = ParseNumber(places.substr(0, N));
  ASSERT_EQ(field.number(), expected) << '"' << places.substr(0, N) << '"';
  ASSERT_EQ(std::signbit(field.number()), std::signbit(expected)) << '"' << places.substr(0, N) << '"';
}

/// A number written in one word is the text of FormatNumber, cut at the width.
template <std::size_t N>
void expectWrittenAlike(double value,
                        std::initializer_list<NumberFormat> formats = {NumberFormat::Whole, NumberFormat::Tenths}) {
  for (const NumberFormat format : formats) {
    FixedText<N> field, plain;
    SetText(field, "#######");
    SetText(plain, FormatNumber(value, format));
    SetNumber(field, value, format);
    ASSERT_EQ(field.view(), plain.view()) << value;
    ASSERT_EQ(SetAndRead(field, value, format), ParseNumber(plain.view())) << value;
    ASSERT_EQ(field.view(), plain.view()) << value;
  }
}

constexpr std::string_view kAlphabet = " +-.0123456789EDx";

TEST(ShortNumber, EveryFieldOfFourPlacesOverTheAlphabetOfNumbers) {
  std::string places(4, ' ');
  for (const char first : kAlphabet)
    for (const char second : kAlphabet)
      for (const char third : kAlphabet)
        for (const char fourth : kAlphabet) {
          places = {first, second, third, fourth};
          expectReadAlike<4>(places);
        }
}

TEST(ShortNumber, RandomFieldsOverTheAlphabetOfNumbers) {
  std::mt19937 random(1);
  std::string places(7, ' ');
  for (int field = 0; field < 300000; ++field) {
    for (char& place : places) place = kAlphabet[random() % kAlphabet.size()];
    // Half of them end in blanks, as fields do.
    if (field % 2 == 0) std::fill(places.begin() + static_cast<std::ptrdiff_t>(random() % 7), places.end(), ' ');
    expectReadAlike<4>(places);
    expectReadAlike<5>(places);
    expectReadAlike<6>(places);
    expectReadAlike<7>(places);
  }
}

TEST(ShortNumber, RandomBytes) {
  std::mt19937 random(2);
  std::string places(7, ' ');
  for (int field = 0; field < 300000; ++field) {
    for (char& place : places) place = static_cast<char>(random() % 3 == 0 ? random() : '0' + random() % 10);
    expectReadAlike<5>(places);
    expectReadAlike<6>(places);
    expectReadAlike<7>(places);
  }
}

TEST(ShortNumber, EveryByteBehindADigit) {
  for (int byte = 0; byte < 256; ++byte) {
    expectReadAlike<6>(std::string("12") + static_cast<char>(byte) + "34 ");
    expectReadAlike<6>(std::string("-7") + static_cast<char>(byte) + "   ");
    expectReadAlike<6>(std::string(1, static_cast<char>(byte)) + "5    ");
  }
}

TEST(ShortNumber, EveryWholeNumberThatSixPlacesHold) {
  for (int whole = -100100; whole <= 1000100; ++whole) expectWrittenAlike<6>(whole);
}

TEST(ShortNumber, EveryWholeNumberAroundTheOtherWidths) {
  for (int whole = -1100; whole <= 10100; ++whole) expectWrittenAlike<4>(whole);
  for (int whole = -10100; whole <= 100100; ++whole) expectWrittenAlike<5>(whole);
  for (int whole = -1000100; whole <= 1000100; whole += 7) expectWrittenAlike<7>(whole);
  for (int whole = 9999900; whole <= 10000100; ++whole) expectWrittenAlike<7>(whole);
}

TEST(ShortNumber, ValuesOfAnotherForm) {
  const auto allFormats = {NumberFormat::Whole, NumberFormat::Tenths, NumberFormat::Hundredths};
  for (const double value : {0.5, -0.5, 0.49999, -0.4, -0.0, 2.5, 99999.5, 999999.5, -9999.5, 1e9, 1e10, -1e10, 1e15,
                             1e16, 1e-300, 2147483647.0, 2147483648.0, -2147483649.0, 1e300}) {
    expectWrittenAlike<4>(value, allFormats);
    expectWrittenAlike<5>(value, allFormats);
    expectWrittenAlike<6>(value, allFormats);
    expectWrittenAlike<7>(value, allFormats);
  }
}

TEST(ShortNumber, EveryTenthThatSixPlacesHoldAndWhatLiesBetween) {
  for (int hundredths = -1100100; hundredths <= 1100100; hundredths += 1) {
    expectWrittenAlike<6>(hundredths / 100.0);
    if (hundredths % 7 == 0) expectWrittenAlike<7>(hundredths / 100.0 + 0.004);
  }
}

TEST(ShortNumber, EveryHundredthThatSixPlacesHoldAndWhatLiesBetween) {
  for (int thousandths = -110100; thousandths <= 1010100; thousandths += 1) {
    expectWrittenAlike<6>(thousandths / 1000.0, {NumberFormat::Hundredths});
    if (thousandths % 7 == 0) expectWrittenAlike<7>(thousandths / 1000.0 + 0.0004, {NumberFormat::Hundredths});
  }
}

TEST(ShortNumber, EveryHalfGoesAwayFromZeroAndItsNeighboursDoNot) {
  for (int half = -20101; half <= 20101; half += 2) {
    const double value = half / 2.0;
    for (const double near : {value, std::nextafter(value, 1e9), std::nextafter(value, -1e9), value + 0.009}) {
      expectWrittenAlike<4>(near, {NumberFormat::Whole});
      expectWrittenAlike<6>(near, {NumberFormat::Whole});
    }
  }
}

TEST(ShortNumber, AFloatIsWrittenWithItsSevenDigits) {
  std::mt19937 random(3);
  const auto expectAlike = [](float value) {
    for (const NumberFormat format : {NumberFormat::Whole, NumberFormat::Tenths, NumberFormat::Hundredths}) {
      FixedText<6> field, plain;
      SetText(plain, FormatNumber(value, format));
      ASSERT_EQ(SetAndReadSingle(field, value, format), ParseNumber(plain.view())) << value;
      ASSERT_EQ(field.view(), plain.view()) << value;
    }
  };
  for (int number = 0; number < 300000; ++number) {
    const auto tenths = static_cast<float>(random() % 200000) / 10;
    expectAlike(number % 2 == 0 ? tenths : -tenths);
    expectAlike(std::nextafter(tenths + 0.05F, 0.0F));
    expectAlike(tenths + 0.05F);
    expectAlike(std::nextafter(tenths + 0.05F, 1e9F));
    if (number % 8 != 0) continue;
    const float hundredths = tenths / 20;  // to 999.995
    expectAlike(hundredths);
    expectAlike(-hundredths);
    expectAlike(std::nextafter(hundredths + 0.005F, 0.0F));
    expectAlike(std::nextafter(hundredths + 0.005F, 1e9F));
  }
}

TEST(ShortNumber, AValueThatIsNoneLeavesTheField) {
  FixedText<6> field;
  SetText(field, "88");
  for (const double value : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(SetAndRead(field, value, NumberFormat::Whole), 88);
    EXPECT_EQ(field.view(), "88    ");
  }
}

}  // namespace
}  // namespace triaxlab
