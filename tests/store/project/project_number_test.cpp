#include "store/project/project_number.h"

#include <gtest/gtest.h>

#include "common/gbk.h"
#include "common/small_letters.h"

namespace triaxlab {
namespace {

TEST(ProjectNumber, OrdinaryOnesAreFileNames) {
  for (const char* text :
       {"1", "2024-015", "A.1", ".a", "岩土勘察甲", "COM", "COM0", "COM10", "CONX", "a b", "LPT", "#%&'"})
    EXPECT_EQ(whyNoFileName(utf8ToGbk(text)), std::nullopt) << text;
}

TEST(ProjectNumber, SeparatorsAndMasksAreNot) {
  for (const char c : std::string_view("\\/:*?\"<>|")) {
    EXPECT_TRUE(whyNoFileName(std::string("a") + c)) << c;
    EXPECT_TRUE(whyNoFileName(std::string(1, c))) << c;
  }
}

TEST(ProjectNumber, ASeparatorsByteInsideAChineseCharacterIsNone) {
  // 乗 is 81 5C, its second byte the code of "\"; 亅 is 81 7C, that of "|".
  EXPECT_EQ(whyNoFileName("\x81\x5C"), std::nullopt);
  EXPECT_EQ(whyNoFileName("\x81\x7C"), std::nullopt);
}

TEST(ProjectNumber, ControlCharactersAreNot) {
  for (int c = 0; c < 0x20; ++c) EXPECT_TRUE(whyNoFileName(std::string("a") + static_cast<char>(c))) << c;
  EXPECT_TRUE(whyNoFileName("a\x7F"));
}

TEST(ProjectNumber, PointsAtTheEndAreNot) {
  for (const char* text : {".", "..", "a.", "2024.."}) EXPECT_TRUE(whyNoFileName(text)) << text;
}

TEST(ProjectNumber, DeviceNamesAreNotInAnyCase) {
  for (const char* text : {"CON", "con", "Prn", "AUX", "nul", "COM1", "com9", "LPT1", "lpt9"})
    EXPECT_TRUE(whyNoFileName(text)) << text;
}

TEST(ProjectNumber, HalfAChineseCharacterIsNot) {
  EXPECT_TRUE(whyNoFileName("\xD1\xD2\xCD"));        // 岩 and the first half of 土
  EXPECT_TRUE(whyNoFileName("12345678901234\xCD"));  // 15 places that end in half a character
  EXPECT_EQ(whyNoFileName("1234567890123\xCD\xC1"), std::nullopt);
}

TEST(ProjectNumber, AnEmptyOneIsNot) { EXPECT_TRUE(whyNoFileName("")); }

TEST(ProjectNumber, FileNamesAreUtf8) { EXPECT_EQ(projectFileName("WKSZ", "\xD1\xD2\xCD\xC1"), "WKSZ岩土.txt"); }

TEST(ProjectNumber, IsShownWithoutWhatATerminalWouldObey) {
  EXPECT_EQ(printableText("a\x1B\x07"
                          "b"),
            "a??b");
}

TEST(ProjectNumber, OnlyTheLettersAToZHaveCases) { EXPECT_EQ(caseless("WKSZÄ岩Z[.TXT"), "wkszÄ岩z[.txt"); }

}  // namespace
}  // namespace triaxlab
