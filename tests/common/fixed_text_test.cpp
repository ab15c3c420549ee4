#include "common/fixed_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "common/gbk.h"

namespace triaxlab {
namespace {

template <std::size_t N>
std::string stored(std::string_view gbk) {
  FixedText<N> field;
  SetText(field, std::string(N, '#'));  // what stood there before must not shine through
  SetText(field, gbk);
  return std::string(field.view());
}

template <std::size_t N>
FixedText<N> fromFile(std::string_view bytes) {
  FixedText<N> field;
  std::memcpy(static_cast<void*>(&field), bytes.data(), N);
  return field;
}

TEST(Trim, TakesBlanksAndNothingElse) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\t1\t"), "\t1\t");
  EXPECT_EQ(Trim("\xA1\xA1x"), "\xA1\xA1x");  // a full-width blank is a character
  EXPECT_EQ(Trim(std::string_view("\0 ", 2)), std::string_view("\0", 1));
}

TEST(FixedText, IsBlankToBeginWith) {
  EXPECT_EQ(FixedText<4>().view(), "    ");
  EXPECT_TRUE(FixedText<4>().isBlank());
  EXPECT_EQ(FixedText<4>().number(), 0);
}

TEST(FixedText, PadsShortTextsAndCutsLongOnes) {
  EXPECT_EQ(stored<6>("12"), "12    ");
  EXPECT_EQ(stored<6>("123456"), "123456");
  EXPECT_EQ(stored<6>("12345678"), "123456");
  EXPECT_EQ(stored<4>("12345"), "1234");
  EXPECT_EQ(stored<3>(""), "   ");
}

TEST(FixedText, IsNeverCutInsideACharacter) {
  const std::string soil = utf8ToGbk("粉质粘土");  // four characters, eight bytes
  EXPECT_EQ(stored<8>(soil), soil);
  EXPECT_EQ(stored<7>(soil), soil.substr(0, 6) + " ");
  EXPECT_EQ(stored<6>(soil), soil.substr(0, 6));
  EXPECT_EQ(stored<1>(soil), " ");
  EXPECT_EQ(stored<4>("A" + soil), "A" + soil.substr(0, 2) + " ");
}

TEST(FixedText, EveryCutOfAMixedText) {
  // Widths of the characters: 1 2 1 2 2; the kept sizes up to each width are the sums that fit.
  const std::string text = "a" + utf8ToGbk("土") + "b" + utf8ToGbk("样号");
  constexpr std::size_t kKept[] = {0, 1, 1, 3, 4, 4, 6, 6, 8};
  for (std::size_t width = 0; width <= text.size(); ++width)
    EXPECT_EQ(cutWhole(text, width), text.substr(0, kKept[width])) << width;
}

TEST(FixedText, EveryByteOfACharacterCanBeItsSecond) {
  // The second byte may look like a letter or a first byte; what matters is where the character begins.
  for (int trail = 0x40; trail <= 0xFE; ++trail) {
    if (trail == 0x7F) continue;
    const std::string two{'\x81', static_cast<char>(trail), '\x81', static_cast<char>(trail)};
    EXPECT_EQ(stored<3>(two), two.substr(0, 2) + " ") << trail;
    EXPECT_EQ(stored<4>(two + "x"), two) << trail;
  }
}

TEST(FixedText, LoneBytesCountOne) {
  EXPECT_EQ(stored<2>("\xFF\xFF\xFF"), "\xFF\xFF");
  EXPECT_EQ(stored<2>("\x80\x80\x80"), "\x80\x80");
  EXPECT_EQ(stored<2>("\xB0\x20\xB0\xA1"), "\xB0 ");  // a first byte before a blank stands alone
  EXPECT_EQ(stored<3>("ab\xB0"), "ab\xB0");           // it fits, so it stays as it came
}

TEST(FixedText, EveryPairOfBytesFromAFileStays) {
  for (int first = 0; first < 256; ++first)
    for (int second = 0; second < 256; ++second) {
      const std::string pair{static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(fromFile<2>(pair).view(), pair);
      ASSERT_EQ(stored<2>(pair), pair);  // what fits is kept to the byte
      ASSERT_EQ(stored<4>(pair), pair + "  ");
      const FixedText<2> copy = fromFile<2>(pair);
      ASSERT_EQ(copy, fromFile<2>(pair));
    }
}

TEST(SetNumber, StoresTheTextThatFits) {
  FixedText<6> stress;
  SetNumber(stress, 123.5, NumberFormat::Whole);
  EXPECT_EQ(stress.view(), "124   ");
  EXPECT_EQ(stress.number(), 124);
  SetNumber(stress, -12.345, NumberFormat::Hundredths);
  EXPECT_EQ(stress.view(), "-12.35");
  SetNumber(stress, 12345678, NumberFormat::Whole);
  EXPECT_EQ(stress.view(), "123456");
  EXPECT_EQ(stress.number(), 123456);  // the cut text is the value
  SetNumber(stress, 1234.567, NumberFormat::Hundredths);
  EXPECT_EQ(stress.view(), "1234.5");
}

template <std::size_t N>
testing::AssertionResult storesItsText(double value, NumberFormat format) {
  FixedText<N> field, expected, read;
  SetText(expected, FormatNumber(value, format));
  SetText(field, "#######");
  SetNumber(field, value, format);
  const double number = SetAndRead(read, value, format);
  if (field == expected && read == expected && number == ParseNumber(expected.view()))
    return testing::AssertionSuccess();
  return testing::AssertionFailure() << value << " stores \"" << field.view() << "\", not \"" << expected.view() << '"';
}

TEST(SetNumber, StoresWhatFormatNumberWritesInFieldsOfAnyWidth) {
  const auto storesEverywhere = [](double value) {
    for (const NumberFormat format : {NumberFormat::Whole, NumberFormat::Tenths, NumberFormat::Hundredths})
      for (const auto& result :
           {storesItsText<3>(value, format), storesItsText<4>(value, format), storesItsText<5>(value, format),
            storesItsText<6>(value, format), storesItsText<7>(value, format), storesItsText<9>(value, format)})
        if (!result) return result;
    return testing::AssertionSuccess();
  };
  for (int n = -11'000; n <= 11'000; ++n) {
    ASSERT_TRUE(storesEverywhere(n));
    ASSERT_TRUE(storesEverywhere(n + 0.5));
    ASSERT_TRUE(storesEverywhere(n / 100.0));
  }
  for (const double edge : {1e5, 1e6, 1e7, 1e8, 1e9, 1e15, 2147483648.0, 4294967296.0, 1e300})
    for (const double value : {edge - 1, edge - 0.5, edge, edge + 1}) {
      ASSERT_TRUE(storesEverywhere(value));
      ASSERT_TRUE(storesEverywhere(-value));
    }
  ASSERT_TRUE(storesEverywhere(-0.0));
}

template <std::size_t N>
void expectWhole(std::int32_t value) {
  FixedText<N> field;
  SetText(field, "#######");
  SetWhole(field, value);
  ASSERT_EQ(field.view(), stored<N>(std::to_string(value))) << value << " in " << N << " places";
}

TEST(SetWhole, StoresTheDigitsInFieldsOfAnyWidth) {
  const auto expectEverywhere = [](std::int32_t value) {
    expectWhole<3>(value);
    expectWhole<4>(value);
    expectWhole<6>(value);
    expectWhole<7>(value);
    expectWhole<9>(value);
  };
  for (std::int32_t value = -11'000; value <= 11'000; ++value) ASSERT_NO_FATAL_FAILURE(expectEverywhere(value));
  for (const std::int32_t value : {-32768, 32767, 99999, 100000, -2147483647 - 1, 2147483647}) expectEverywhere(value);
}

TEST(SetNumber, AValueThatIsNoneIsNotStored) {
  FixedText<6> stress;
  SetText(stress, "88");
  SetNumber(stress, std::numeric_limits<double>::infinity(), NumberFormat::Whole);
  SetNumber(stress, std::numeric_limits<double>::quiet_NaN(), NumberFormat::Whole);
  EXPECT_EQ(stress.view(), "88    ");
}

}  // namespace
}  // namespace triaxlab
