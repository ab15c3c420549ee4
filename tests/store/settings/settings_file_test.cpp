#include "store/settings/settings_file.h"

#include "store/store_fixture.h"
#include "support/posix_only.h"

namespace triaxlab::testing {
namespace {

class SettingsFileTest : public StoreTest {
 protected:
  std::filesystem::path path() const { return workspace.applicationFolder / "qvb.sys"; }
  std::string content() const {
    const Bytes bytes = readWholeFile(path(), 1'000'000);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }
  void make(std::string_view bytes) const {
    File(path(), File::Mode::Create).writeAt(0, std::as_bytes(std::span(bytes)));
  }
};

TEST_F(SettingsFileTest, AMissingFileReadsAsEmpty) {
  const SettingsFile settings = sharedSettings(workspace);
  EXPECT_FALSE(settings.exists());
  EXPECT_EQ(settings.readText(kDataFolderField), "");
  EXPECT_EQ(settings.readByte(27003), 0);
  EXPECT_FALSE(fileExists(path())) << "reading makes no file";
}

TEST_F(SettingsFileTest, PositionsCountFromOne) {
  std::string bytes(2000, 'x');
  put(bytes, 909, field("2024", 60));
  bytes[197] = 1;
  make(bytes);
  EXPECT_EQ(sharedSettings(workspace).readText(kYearField), "2024");
  EXPECT_EQ(sharedSettings(workspace).readByte(198), 1);
  EXPECT_EQ(sharedSettings(workspace).readByte(199), 'x');
}

TEST_F(SettingsFileTest, ATextEndsAtTheFirstZeroByteAndIsTrimmed) {
  std::string bytes(1100, ' ');
  put(bytes, 969, std::string_view("  05 \0junk", 10));
  make(bytes);
  EXPECT_EQ(sharedSettings(workspace).readText(kMonthField), "05");
}

TEST_F(SettingsFileTest, BytesPastTheEndAreZero) {
  make(std::string(909, 'x') + "20");  // positions 910 and 911 are the last
  EXPECT_EQ(sharedSettings(workspace).readText(kYearField), "20");
  EXPECT_EQ(sharedSettings(workspace).readByte(912), 0);
}

TEST_F(SettingsFileTest, AWriteBeyondTheEndFillsTheGapWithZeroBytes) {
  sharedSettings(workspace).writeText({6, 4}, "ab");
  EXPECT_EQ(content(), std::string("\0\0\0\0\0ab  ", 9));
  sharedSettings(workspace).writeByte(12, 1);
  EXPECT_EQ(content(), std::string("\0\0\0\0\0ab  \0\0\1", 12));
}

TEST_F(SettingsFileTest, AWriteTouchesItsFieldAlone) {
  make("0123456789");
  sharedSettings(workspace).writeText({3, 4}, "x");
  EXPECT_EQ(content(), "01x   6789");
}

TEST_F(SettingsFileTest, ALongTextIsCutBeforeTheCharacterThatDoesNotFit) {
  sharedSettings(workspace).writeText({1, 5}, "\xD1\xD2\xCD\xC1\xBF\xB1");  // three Chinese characters
  EXPECT_EQ(content(), "\xD1\xD2\xCD\xC1 ");
}

TEST_F(SettingsFileTest, AFolderInItsPlaceReadsAsEmptyAndCanNotBeWritten) {
  std::filesystem::create_directory(path());
  SettingsFile settings = sharedSettings(workspace);
  EXPECT_FALSE(settings.exists());
  EXPECT_EQ(settings.readText(kYearField), "");
  EXPECT_THAT(sentenceOf([&] { settings.writeByte(1, 1); }), ::testing::HasSubstr("qvb.sys"));
}

TEST_F(SettingsFileTest, WhatCanNotBeReadIsNotEmpty) {
  POSIX_ONLY("links");
  std::filesystem::create_symlink("qvb.sys", path());  // a link that leads to itself
  const SettingsFile settings = sharedSettings(workspace);
  const auto named = ::testing::HasSubstr("qvb.sys");
  EXPECT_THAT(sentenceOf([&] { settings.exists(); }), named);
  EXPECT_THAT(sentenceOf([&] { settings.readText(kDataFolderField); }), named);
  EXPECT_THAT(sentenceOf([&] { settings.readByte(198); }), named);
}

TEST_F(SettingsFileTest, IsFoundWithoutRegardToCase) {
  std::filesystem::rename(folder() / "app", folder() / "moved");
  std::filesystem::create_directory(folder() / "app");
  File(folder() / "app" / "QVB.SYS", File::Mode::Create).writeAt(0, std::as_bytes(std::span("abc", 3)));
  EXPECT_EQ(sharedSettings(workspace).readText({1, 3}), "abc");
}

}  // namespace
}  // namespace triaxlab::testing
