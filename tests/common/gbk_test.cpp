#include "common/gbk.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace triaxlab {
namespace {

constexpr int kTwoByteCharacters = 21791;

std::string pairOf(int first, int second) { return {static_cast<char>(first), static_cast<char>(second)}; }

/// The C library's own reading of a text, or nothing when it refuses.
class SystemConverter {
 public:
  SystemConverter() : m_converter(iconv_open("UTF-8", "CP936")) {}
  SystemConverter(const SystemConverter&) = delete;
  SystemConverter& operator=(const SystemConverter&) = delete;
  ~SystemConverter() { iconv_close(m_converter); }

  std::optional<std::string> utf8(std::string gbk) {
    std::string out(gbk.size() * 4, '\0');
    char *from = gbk.data(), *to = out.data();
    std::size_t left = gbk.size(), room = out.size();
    iconv(m_converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(m_converter, &from, &left, &to, &room) != 0 || left != 0) return std::nullopt;
    out.resize(out.size() - room);
    return out;
  }

 private:
  iconv_t m_converter;
};

TEST(Gbk, KnownCharacters) {
  EXPECT_EQ(gbkToUtf8("\xB0\xA1"), "啊");
  EXPECT_EQ(gbkToUtf8("\xCD\xC1\xD1\xF9\xB1\xE0\xBA\xC5"), "土样编号");
  EXPECT_EQ(gbkToUtf8("\xA6\xD2\x31\xA1\xE3"), "σ1°");
  EXPECT_EQ(gbkToUtf8("\x81\x40"), "丂");  // the first of the extension
  EXPECT_EQ(gbkToUtf8("C=15 kPa"), "C=15 kPa");
  EXPECT_EQ(gbkToUtf8(""), "");
  EXPECT_EQ(utf8ToGbk("工程编号"), "\xB9\xA4\xB3\xCC\xB1\xE0\xBA\xC5");
}

TEST(Gbk, EveryTwoByteCharacterThereAndBack) {
  SystemConverter system;
  std::set<std::string> seen;
  for (int first = 0x81; first <= 0xFE; ++first)
    for (int second = 0x40; second <= 0xFE; ++second) {
      const std::string gbk = pairOf(first, second);
      if (!isGbk(gbk)) continue;
      const std::string utf8 = gbkToUtf8(gbk);
      ASSERT_EQ(utf8, system.utf8(gbk)) << first << ' ' << second;
      ASSERT_EQ(utf8ToGbk(utf8), gbk);
      ASSERT_EQ(utf8ToGbkExactly(utf8), gbk);
      seen.insert(utf8);
    }
  EXPECT_EQ(seen.size(), kTwoByteCharacters);  // each another character
}

TEST(Gbk, TheOtherPairsAreNoCharacters) {
  SystemConverter system;
  int characters = 0;
  for (int first = 0x80; first <= 0xFF; ++first)
    for (int second = 0; second <= 0xFF; ++second) {
      const std::string gbk = pairOf(first, second), utf8 = gbkToUtf8(gbk);
      const bool character = first != 0x80 && isGbk(gbk);
      characters += character ? 1 : 0;
      if (character) continue;
      // The first byte counts one; the second is looked at afresh.
      const std::string head = first == 0x80 ? "€" : "?";
      ASSERT_EQ(utf8, head + gbkToUtf8(gbk.substr(1))) << first << ' ' << second;
    }
  EXPECT_EQ(characters, kTwoByteCharacters);
}

TEST(Gbk, LoneBytes) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string gbk(1, static_cast<char>(byte));
    const std::string expected = byte < 0x80 ? gbk : byte == 0x80 ? "€" : "?";
    EXPECT_EQ(gbkToUtf8(gbk), expected) << byte;
    EXPECT_EQ(isGbk(gbk), byte <= 0x80) << byte;
    EXPECT_EQ(utf8ToGbk(gbkToUtf8(gbk)), byte <= 0x80 ? gbk : "?") << byte;
  }
}

TEST(Gbk, ACutCharacterDoesNotSpoilItsNeighbours) {
  EXPECT_EQ(gbkToUtf8("\xCD\xC1\xD1"), "土?");
  EXPECT_EQ(gbkToUtf8("\xD1 12"), "? 12");
  EXPECT_EQ(gbkToUtf8("\xFF\xCD\xC1"), "?土");
  EXPECT_FALSE(isGbk("\xCD\xC1\xD1"));
  EXPECT_TRUE(isGbk("\xCD\xC1 A-1"));
}

TEST(Gbk, TheEuroIsOneByte) {
  EXPECT_EQ(gbkToUtf8("\x80"), "€");
  EXPECT_EQ(utf8ToGbk("€"), "\x80");
  EXPECT_EQ(utf8ToGbkExactly("€5"),
            "\x80"
            "5");
}

TEST(Gbk, WhatItLacksIsSubstituted) {
  EXPECT_EQ(utf8ToGbk("cm²"), "cm?");
  EXPECT_EQ(utf8ToGbk("cm³", '_'), "cm_");
  EXPECT_EQ(utf8ToGbk("𠮷A"), "?A");  // beyond the 16 bits
  EXPECT_EQ(utf8ToGbkExactly("cm²"), std::nullopt);
  EXPECT_EQ(utf8ToGbkExactly("𠮷"), std::nullopt);
  EXPECT_EQ(utf8ToGbkExactly("cm"), "cm");
}

TEST(Gbk, EachByteThatIsNoUtf8IsSubstituted) {
  const struct {
    std::string_view utf8, gbk;
  } cases[] = {
      {"\x80", "?"},                 // a continuation alone
      {"\xC0\x80", "??"},            // overlong zero
      {"\xC1\xBF", "??"},            // overlong
      {"\xE0\x9F\xBF", "???"},       // overlong
      {"\xF0\x8F\xBF\xBF", "????"},  // overlong
      {"\xED\xA0\x80", "???"},       // a surrogate
      {"\xF4\x90\x80\x80", "????"},  // beyond the last character
      {"\xFF\xFE", "??"},            // never in UTF-8
      {"\xE5\x9C", "??"},            // cut short
      {"\xE5\x9C"
       "A",
       "??A"},  // cut short, then a letter
  };
  for (const auto& [utf8, gbk] : cases) {
    EXPECT_EQ(utf8ToGbk(utf8), gbk);
    EXPECT_EQ(utf8ToGbkExactly(utf8), std::nullopt);
  }
}

TEST(Gbk, EveryCharacterOfThePlaneIsEitherInGbkOrLacking) {
  int inGbk = 0;
  for (unsigned c = 0x80; c < 0x10000; ++c) {
    if (c >= 0xD800 && c < 0xE000) continue;
    std::string utf8;
    if (c < 0x800) {
      utf8 = {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 0x3F))};
    } else {
      utf8 = {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 0x3F)),
              static_cast<char>(0x80 | (c & 0x3F))};
    }
    const std::optional<std::string> gbk = utf8ToGbkExactly(utf8);
    ASSERT_EQ(utf8ToGbk(utf8), gbk.value_or("?"));
    if (!gbk) continue;
    ++inGbk;
    ASSERT_EQ(gbkToUtf8(*gbk), utf8);
  }
  EXPECT_EQ(inGbk, kTwoByteCharacters + 1);  // and the euro
}

TEST(Gbk, ZeroBytesAndControlsPass) {
  const std::string text("a\0b\r\n\x1A", 6);
  EXPECT_EQ(gbkToUtf8(text), text);
  EXPECT_EQ(utf8ToGbk(text), text);
  EXPECT_TRUE(isGbk(text));
}

}  // namespace
}  // namespace triaxlab
