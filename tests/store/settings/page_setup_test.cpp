#include "store/settings/page_setup.h"

#include <limits>

#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

class PageSetupTest : public StoreTest {
 protected:
  std::filesystem::path path() const { return workspace.applicationFolder / "zmsz.sys"; }
  std::string content() const {
    const Bytes bytes = readWholeFile(path(), 1'000'000);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }
  void make(std::string_view bytes) const {
    File(path(), File::Mode::Create).writeAt(0, std::as_bytes(std::span(bytes)));
  }
  /// A file with these bytes at a position, zero bytes elsewhere.
  PageSetup with(std::size_t position, std::string_view bytes) const {
    std::string file(83, '\0');
    put(file, position - 1, bytes);
    make(file);
    return readPageSetup(workspace);
  }
  static std::string byte(int value) { return std::string(1, static_cast<char>(value)); }
};

TEST_F(PageSetupTest, WithoutAFilePagesAreLandscapeWithOneChart) {
  const PageSetup setup = readPageSetup(workspace);
  EXPECT_EQ(setup.paperCode, 0);
  EXPECT_EQ(setup.paperOfJob(), SheetPaper::A4);
  EXPECT_EQ(setup.rows, 1);
  EXPECT_EQ(setup.columns, 1);
  EXPECT_FALSE(setup.portrait);
  EXPECT_EQ(setup.leftMarginCm, 0.5F);
  EXPECT_EQ(setup.rightMarginCm, 0.5F);
  EXPECT_FALSE(fileExists(path())) << "reading makes no file";
}

TEST_F(PageSetupTest, EveryValueHasItsPosition) {
  std::string file(83, '\0');
  put(file, 9, byte(3));
  put(file, 19, byte(4));
  put(file, 29, byte(5));
  put(file, 59, byte(1));
  put(file, 69, floatBytes(1.5F));
  put(file, 79, floatBytes(2.25F));
  make(file);
  EXPECT_EQ(readPageSetup(workspace), (PageSetup{3, 4, 5, true, 1.5F, 2.25F}));
}

TEST_F(PageSetupTest, PaperCodes) {
  struct Case {
    int code;
    SheetPaper job, dialog;
  };
  for (const Case& one :
       {Case{0, SheetPaper::A4, SheetPaper::A4}, Case{1, SheetPaper::A3, SheetPaper::A3},
        Case{2, SheetPaper::NarrowForm, SheetPaper::NarrowForm}, Case{3, SheetPaper::WideForm, SheetPaper::WideForm},
        Case{4, SheetPaper::A4, SheetPaper::A3}, Case{255, SheetPaper::A4, SheetPaper::A3}}) {
    const PageSetup setup = with(10, byte(one.code));
    EXPECT_EQ(setup.paperOfJob(), one.job) << one.code;
    EXPECT_EQ(setup.paperOfDialog(), one.dialog) << one.code;
  }
}

TEST_F(PageSetupTest, RowsAndColumnsAreLimitedWhenTheyAreRead) {
  for (const auto& [stored, read] : {std::pair{0, 1}, {1, 1}, {30, 30}, {31, 30}, {255, 30}}) {
    EXPECT_EQ(with(20, byte(stored)).rows, read) << stored;
    EXPECT_EQ(with(30, byte(stored)).columns, read) << stored;
  }
}

TEST_F(PageSetupTest, MarginsAreLimitedWhenTheyAreRead) {
  const float endless = std::numeric_limits<float>::infinity(), none = std::numeric_limits<float>::quiet_NaN();
  for (const auto& [stored, read] : {std::pair{0.4F, 0.5F},
                                     {0.5F, 0.5F},
                                     {10.0F, 10.0F},
                                     {10.1F, 10.0F},
                                     {-3.0F, 0.5F},
                                     {endless, 10.0F},
                                     {-endless, 0.5F},
                                     {none, 0.5F}}) {
    EXPECT_EQ(with(70, floatBytes(stored)).leftMarginCm, read) << stored;
    EXPECT_EQ(with(80, floatBytes(stored)).rightMarginCm, read) << stored;
  }
}

TEST_F(PageSetupTest, OnlyOneIsPortrait) {
  EXPECT_TRUE(with(60, byte(1)).portrait);
  EXPECT_FALSE(with(60, byte('1')).portrait);
}

TEST_F(PageSetupTest, AFileThatEndsEarlyHasZerosBehindItsEnd) {
  make(std::string(19, '\0') + byte(7));  // position 20 is the last
  EXPECT_EQ(readPageSetup(workspace), (PageSetup{0, 7, 1, false, 0.5F, 0.5F}));
  make(std::string(69, '\0') + floatBytes(8).substr(0, 3));
  EXPECT_EQ(readPageSetup(workspace).leftMarginCm, 0.5F) << "8 without its last byte is next to nothing";
}

TEST_F(PageSetupTest, WhatIsTypedIsStoredAsTyped) {
  writePageSetup(workspace, {3, 45, 200, true, 0.4F, 12.5F});
  std::string file(83, '\0');
  put(file, 9, byte(3));
  put(file, 19, byte(45));
  put(file, 29, byte(200));
  put(file, 59, byte(1));
  put(file, 69, floatBytes(0.4F));
  put(file, 79, floatBytes(12.5F));
  EXPECT_EQ(content(), file);
  EXPECT_EQ(readPageSetup(workspace), (PageSetup{3, 30, 30, true, 0.5F, 10}));
}

TEST_F(PageSetupTest, BytesThatItDoesNotHaveAreWrittenBackAsRead) {
  std::string file;
  for (int i = 0; i < 100; ++i) file += byte(i + 100);
  make(file);
  writePageSetup(workspace, {1, 2, 3, false, 1, 2});
  put(file, 9, byte(1));
  put(file, 19, byte(2));
  put(file, 29, byte(3));
  put(file, 59, byte(0));
  put(file, 69, floatBytes(1));
  put(file, 79, floatBytes(2));
  EXPECT_EQ(content(), file) << "positions 40, 50, the gaps and the end too";
}

TEST_F(PageSetupTest, ANumberThatIsNoByteLeavesTheStoredOne) {
  writePageSetup(workspace, {0, 6, 7, false, 1, 1});
  writePageSetup(workspace, {0, 256, -1, false, 1, 1});
  EXPECT_EQ(readPageSetup(workspace).rows, 6);
  EXPECT_EQ(readPageSetup(workspace).columns, 7);
}

TEST_F(PageSetupTest, AFileThatCannotBeUsedReadsAsMissingAndIsNamedWhenItIsWritten) {
  std::filesystem::create_directory(path());
  EXPECT_EQ(readPageSetup(workspace), PageSetup{});
  try {
    writePageSetup(workspace, {});
    FAIL();
  } catch (const UserError& error) {
    EXPECT_NE(std::string(error.what()).find("zmsz.sys"), std::string::npos) << error.what();
  }
}

}  // namespace
}  // namespace triaxlab::testing
