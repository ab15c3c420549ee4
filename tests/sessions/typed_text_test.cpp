#include "sessions/typed_text.h"

#include <gtest/gtest.h>

#include <string>

namespace triaxlab {
namespace {

using namespace std::string_literals;

// 砂 and 土 in GBK.
constexpr const char* kSandySoilGbk = "\xC9\xB0\xCD\xC1";

TEST(TakenText, IsTheTextInGbk) {
  EXPECT_EQ(takenText("", 15), "");
  EXPECT_EQ(takenText(" K-7 ", 15), " K-7 ");
  EXPECT_EQ(takenText("砂土", 15), kSandySoilGbk);
}

TEST(TakenText, IsCutInFrontOfTheCharacterThatDoesNotFitWhole) {
  EXPECT_EQ(takenText("123456", 5), "12345");
  EXPECT_EQ(takenText("砂土", 4), kSandySoilGbk);
  EXPECT_EQ(takenText("砂土", 3), "\xC9\xB0");
  EXPECT_EQ(takenText("a砂土", 4), "a\xC9\xB0");
  EXPECT_EQ(takenText("砂", 1), "");
}

TEST(TakenText, LeavesOutWhatGbkDoesNotHave) {
  EXPECT_EQ(takenText("a😀b", 15), "ab");
  EXPECT_EQ(takenText("é砂ü土", 15), "\xA8\xA6\xC9\xB0\xA8\xB9\xCD\xC1");  // GBK has é and ü of the pinyin row
  EXPECT_EQ(takenText("ñ€", 15), "\x80");
  EXPECT_EQ(takenText("a\xFF\xC3", 15), "a");  // no UTF-8
  // What is left out takes no room.
  EXPECT_EQ(takenText("😀😀😀12345", 5), "12345");
}

TEST(TakenText, LeavesOutControlCharacters) {
  EXPECT_EQ(takenText("100\r\n", 6), "100");
  EXPECT_EQ(takenText("\t1\v2\x7F\x1A", 6), "12");
  EXPECT_EQ(takenText("1\0"s + "2", 6), "12");
}

TEST(TakenText, ALongPasteIsCutLikeAShortOne) {
  const std::string paste(20 * 1024, 'x');
  EXPECT_EQ(takenText(paste, 14), std::string(14, 'x'));
  std::string chinese;
  for (int i = 0; i < 7000; ++i) chinese += "土";
  EXPECT_EQ(takenText(chinese, 15), "\xCD\xC1\xCD\xC1\xCD\xC1\xCD\xC1\xCD\xC1\xCD\xC1\xCD\xC1");
  EXPECT_EQ(takenText(std::string(20 * 1024, '\n') + "7", 6), "7");
}

TEST(TakenBeside, WhatStandsThereKeepsItsRoom) {
  EXPECT_EQ(takenBeside("12345", "6", 6), "6");
  EXPECT_EQ(takenBeside("123456", "7", 6), "");
  EXPECT_EQ(takenBeside("1234", "567", 6), "56");
  EXPECT_EQ(takenBeside("砂", "土a", 4), "土");
  EXPECT_EQ(takenBeside("砂1", "土", 4), "");
  EXPECT_EQ(takenBeside("砂1", "é2", 4), "");  // é has two bytes
}

TEST(TakenBeside, WhatNoFieldHoldsNeedsNoRoom) { EXPECT_EQ(takenBeside("12345", "😀\t6", 6), "6"); }

TEST(TakenBeside, ATextThatIsTooLongAlreadyTakesNothing) { EXPECT_EQ(takenBeside("1234567", "8", 6), ""); }

}  // namespace
}  // namespace triaxlab
