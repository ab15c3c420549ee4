#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "common/fixed_text.h"
#include "common/text_number.h"

namespace triaxlab {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t skipSign(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

std::size_t skipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && isDigit(text[at])) ++at;
  return at;
}

/// True when the whole text is a number: a sign or none; digits, digits with a point behind or among them, or a point
/// with digits; then an exponent with digits or none.
bool isWholeNumber(std::string_view text) {
  const std::size_t first = skipSign(text, 0);
  std::size_t at = skipDigits(text, first), digits = at - first;
  if (at < text.size() && text[at] == '.') {
    const std::size_t behind = skipDigits(text, at + 1);
    digits += behind - (at + 1);
    at = behind;
  }
  if (digits == 0) return false;
  if (at == text.size()) return true;
  if (std::string_view("EeDd").find(text[at]) == std::string_view::npos) return false;
  const std::size_t power = skipSign(text, at + 1);
  return power < text.size() && skipDigits(text, power) == text.size();
}

/// The slow way: leading blanks off, then the longest beginning that is a number, read by the C library.
double parsedSlowly(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (!text.empty() && !isWholeNumber(text)) text.remove_suffix(1);
  std::string plain(text);
  for (char& c : plain)
    if (c == 'D' || c == 'd' || c == 'E') c = 'e';
  return plain.empty() ? 0 : std::strtod(plain.c_str(), nullptr);
}

testing::AssertionResult readsAsTheSlowWay(std::string_view text) {
  const double expected = parsedSlowly(text), actual = ParseNumber(text);
  if (expected == actual) return testing::AssertionSuccess();
  return testing::AssertionFailure() << '"' << text << "\" reads " << actual << ", not " << expected;
}

template <std::size_t N>
testing::AssertionResult fieldReadsAsTheSlowWay(std::string_view text) {
  FixedText<N> field;
  SetText(field, text);
  const double expected = parsedSlowly(field.view()), actual = field.number();
  if (expected == actual) return testing::AssertionSuccess();
  return testing::AssertionFailure() << '"' << field.view() << "\" in a field reads " << actual << ", not " << expected;
}

/// The text by itself, and in fields that it fills, that cut it, and that pad it.
testing::AssertionResult readsEverywhereAsTheSlowWay(std::string_view text) {
  for (const auto& result : {readsAsTheSlowWay(text), fieldReadsAsTheSlowWay<3>(text), fieldReadsAsTheSlowWay<4>(text),
                             fieldReadsAsTheSlowWay<5>(text), fieldReadsAsTheSlowWay<6>(text),
                             fieldReadsAsTheSlowWay<7>(text), fieldReadsAsTheSlowWay<9>(text)})
    if (!result) return result;
  return testing::AssertionSuccess();
}

constexpr std::string_view kAlphabet = " +-.0123456789EeDdx";

TEST(ParseNumber, ReadsWhatTheTechnicianWouldRead) {
  const struct {
    std::string_view text;
    double value;
  } cases[] = {
      {"", 0},       {"      ", 0},   {"100   ", 100}, {"  12.5", 12.5}, {"-3", -3},     {"+7", 7},      {".5", 0.5},
      {"5.", 5},     {"-.25", -0.25}, {".", 0},        {"-", 0},         {"+-1", 0},     {"- 1", 0},     {"1.2.3", 1.2},
      {"12 34", 12}, {"12kPa", 12},   {"kPa12", 0},    {"1E2", 100},     {"1d-2", 0.01}, {"2.5D+1", 25}, {"1E", 1},
      {"1E+", 1},    {"1E 2", 1},     {"1,5", 1},      {"0x10", 0},      {"1e2.5", 100}, {"inf", 0},     {"nan", 0},
      {"\t1", 0},    {"1-2", 1},      {"\xA3\xB1", 0},  // a full-width digit is no digit
      {"007", 7},    {"00.10", 0.1},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(ParseNumber(text), value) << '"' << text << '"';
}

TEST(ParseNumber, EveryTextOfUpToFourCharacters) {
  for (std::size_t size = 1; size <= 4; ++size) {
    std::string text(size, kAlphabet.front());
    std::string places(size, '\0');  // the number of each character in the alphabet, counted like an odometer
    for (std::size_t turned = 0; turned < size;) {
      ASSERT_TRUE(readsEverywhereAsTheSlowWay(text));
      for (turned = 0; turned < size; ++turned) {
        char& place = places[turned];
        place = static_cast<char>((place + 1) % static_cast<int>(kAlphabet.size()));
        text[turned] = kAlphabet[static_cast<std::size_t>(place)];
        if (place != 0) break;
      }
    }
  }
}

TEST(ParseNumber, AMillionTextsOfSixCharacters) {
  std::mt19937 random{6};
  std::string text(6, ' ');
  for (int i = 0; i < 1'000'000; ++i) {
    for (char& c : text) c = kAlphabet[random() % kAlphabet.size()];
    ASSERT_TRUE(readsAsTheSlowWay(text));
    ASSERT_TRUE(fieldReadsAsTheSlowWay<6>(text));
  }
}

TEST(ParseNumber, WholeNumbersInFields) {
  for (int n = -1'100'000; n <= 1'100'000; n += 7) ASSERT_TRUE(readsEverywhereAsTheSlowWay(std::to_string(n)));
  // Any byte may stand before, behind or among the digits.
  for (int byte = 0; byte < 256; ++byte)
    for (std::size_t place = 0; place < 7; ++place) {
      std::string text = "1234567";
      text[place] = static_cast<char>(byte);
      ASSERT_TRUE(readsEverywhereAsTheSlowWay(text));
      text.replace(place, std::string::npos, 1, static_cast<char>(byte));
      ASSERT_TRUE(readsEverywhereAsTheSlowWay(text));
    }
}

TEST(ParseNumber, NumbersOfAllWidthsAndMagnitudes) {
  std::mt19937_64 random{64};
  const auto below = [&random](std::size_t end) { return static_cast<std::size_t>(random() % end); };
  for (int i = 0; i < 300'000; ++i) {
    std::string text(1 + below(24), '0');
    for (char& c : text) c = static_cast<char>('0' + below(10));
    if (below(4) != 0) text.insert(below(text.size() + 1), 1, '.');
    if (below(2) == 0) text += "E" + std::to_string(static_cast<int>(below(700)) - 350);
    ASSERT_TRUE(readsAsTheSlowWay(text));
  }
}

TEST(ParseNumber, WhatADoubleHoldsWholeIsRoundedOnce) {
  std::mt19937_64 random{53};
  for (int i = 0; i < 100'000; ++i) {
    const std::string digits = std::to_string((std::uint64_t{1} << 53) - random() % 1'000'000'000'000'000);
    ASSERT_TRUE(readsAsTheSlowWay(digits + "E" + std::to_string(static_cast<int>(random() % 45) - 22)));
  }
  for (const std::string_view digits : {"9007199254740991", "9007199254740992", "9007199254740993"})
    for (const std::string_view power : {"", "E1", "E-1", "E22", "E-22", "E23", "E-23"})
      ASSERT_TRUE(readsAsTheSlowWay(std::string(digits).append(power)));
}

TEST(ParseNumber, LongTextsRoundAsTheirExactDecimal) {
  EXPECT_EQ(ParseNumber("9007199254740993"), 9007199254740992.0);  // half way, to even
  EXPECT_EQ(ParseNumber("9007199254740993.0000000000000000000001"), 9007199254740994.0);
  EXPECT_EQ(ParseNumber("0.1000000000000000055511151231257827021181583404541015625"), 0.1);
  EXPECT_EQ(ParseNumber(std::string(400, '0') + "1"), 1);
  EXPECT_EQ(ParseNumber("1" + std::string(400, '0') + "E-400"), 1);
  EXPECT_EQ(ParseNumber("0." + std::string(400, '0') + "1E401"), 1);
}

TEST(ParseNumber, BeyondTheRangeOfADouble) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(ParseNumber("1E308"), 1e308);
  EXPECT_EQ(ParseNumber("1E309"), kInfinity);
  EXPECT_EQ(ParseNumber("-1D999"), -kInfinity);
  EXPECT_EQ(ParseNumber("1E99999999999999999999"), kInfinity);
  EXPECT_EQ(ParseNumber("5E-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(ParseNumber("1E-400"), 0);
  EXPECT_EQ(ParseNumber("1E-99999999999999999999"), 0);
  EXPECT_EQ(ParseNumber("0E999"), 0);
}

}  // namespace
}  // namespace triaxlab
