#include "store/safety/file_update.h"

#include <random>

#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

class FileUpdateTest : public StoreTest {
 protected:
  static std::span<const std::byte> asBytes(std::string_view text) { return std::as_bytes(std::span(text)); }
  void writeAt(FileUpdate& update, const std::string& name, std::uint64_t offset, std::string_view text) {
    update.writeAt(data(name), offset, asBytes(text));
  }
  std::string readAt(const FileUpdate& update, const std::string& name, std::uint64_t offset, std::size_t size) {
    std::string text(size, '#');
    text.resize(update.readAt(data(name), offset, std::as_writable_bytes(std::span(text))));
    return text;
  }
};

TEST_F(FileUpdateTest, NothingReachesTheDiskBeforeTheCommit) {
  write("HSZS/a", "old content");
  FileUpdate update(workspace.dataFolder);
  writeAt(update, "HSZS/a", 0, "new");
  writeAt(update, "ZMSJ/b", 2, "x");
  EXPECT_EQ(read("HSZS/a"), "old content");
  EXPECT_FALSE(has("ZMSJ/b"));
  update.commit();
  EXPECT_EQ(read("HSZS/a"), "new content");
  EXPECT_EQ(read("ZMSJ/b"), std::string("\0\0x", 3));
  EXPECT_FALSE(has("journal"));
}

TEST_F(FileUpdateTest, WhatIsNotCommittedIsDropped) {
  write("HSZS/a", "old");
  {
    FileUpdate update(workspace.dataFolder);
    writeAt(update, "HSZS/a", 0, "new");
  }
  EXPECT_EQ(read("HSZS/a"), "old");
}

TEST_F(FileUpdateTest, ReadsSeeThePendingWrites) {
  write("HSZS/a", "0123456789");
  FileUpdate update(workspace.dataFolder);
  writeAt(update, "HSZS/a", 2, "AB");
  writeAt(update, "HSZS/a", 12, "CD");
  EXPECT_TRUE(update.exists(data("HSZS/a")));
  EXPECT_EQ(update.size(data("HSZS/a")), 14U);
  EXPECT_EQ(readAt(update, "HSZS/a", 0, 20), std::string("01AB456789\0\0CD", 14));
  EXPECT_EQ(readAt(update, "HSZS/a", 3, 2), "B4");
  EXPECT_EQ(readAt(update, "HSZS/a", 14, 5), "");
  EXPECT_EQ(readAt(update, "HSZS/a", 100, 5), "");
}

TEST_F(FileUpdateTest, ANewFileExistsFromItsFirstWrite) {
  FileUpdate update(workspace.dataFolder);
  EXPECT_FALSE(update.exists(data("HSZS/a")));
  EXPECT_EQ(update.size(data("HSZS/a")), 0U);
  EXPECT_EQ(readAt(update, "HSZS/a", 0, 5), "");
  writeAt(update, "HSZS/a", 0, "x");
  EXPECT_TRUE(update.exists(data("HSZS/a")));
}

TEST_F(FileUpdateTest, OverlappingWritesGiveWhatWritingInTurnWouldGive) {
  std::mt19937 random(5);
  for (int round = 0; round < 200; ++round) {
    std::string plain(random() % 60, '.');
    write("HSZS/a", plain);
    FileUpdate update(workspace.dataFolder);
    for (int i = 0; i < 12; ++i) {
      const std::size_t offset = random() % 70;
      const std::string text(1 + random() % 25, static_cast<char>('A' + i));
      writeAt(update, "HSZS/a", offset, text);
      if (plain.size() < offset + text.size()) plain.resize(offset + text.size(), '\0');
      put(plain, offset, text);
      ASSERT_EQ(readAt(update, "HSZS/a", 0, 200), plain);
      const std::size_t from = random() % 80, size = random() % 30;
      ASSERT_EQ(readAt(update, "HSZS/a", from, size), from < plain.size() ? plain.substr(from, size) : "");
    }
    if (round % 10 != 0) continue;  // a commit waits for the disk
    update.commit();
    ASSERT_EQ(read("HSZS/a"), plain);
  }
}

TEST_F(FileUpdateTest, BytesWrittenInPlaceAreTakenAtTheCommit) {
  std::string bytes = "in place";
  FileUpdate update(workspace.dataFolder);
  update.writeInPlace(data("HSZS/a"), 0, asBytes(bytes));
  writeAt(update, "HSZS/a", 3, "PLACE");
  update.commit();
  EXPECT_EQ(read("HSZS/a"), "in PLACE");
  EXPECT_EQ(bytes, "in place");
}

TEST_F(FileUpdateTest, CanGoOnAfterACommit) {
  FileUpdate update(workspace.dataFolder);
  writeAt(update, "HSZS/a", 0, "one");
  update.commit();
  writeAt(update, "HSZS/a", 3, " two");
  EXPECT_EQ(readAt(update, "HSZS/a", 0, 10), "one two");
  update.commit();
  EXPECT_EQ(read("HSZS/a"), "one two");
}

TEST_F(FileUpdateTest, LargeWritesOfManyBlocksArriveWhole) {
  std::string large(5'000'001, ' ');
  for (std::size_t i = 0; i < large.size(); ++i) large[i] = static_cast<char>(i * 2654435761U >> 13);
  FileUpdate update(workspace.dataFolder);
  for (std::size_t i = 0; i < large.size(); i += 700'001) writeAt(update, "HSZS/a", i, large.substr(i, 700'001));
  EXPECT_EQ(difference(readAt(update, "HSZS/a", 0, large.size() + 5), large), "");
  update.commit();
  EXPECT_EQ(difference(read("HSZS/a"), large), "");
}

TEST_F(FileUpdateTest, FilesOutsideAreRefused) {
  FileUpdate update(workspace.dataFolder);
  for (const std::filesystem::path& path :
       {folder() / "app" / "x", data("../x"), data("HSZS/../x"), data("x"), data("HSZS/a/b"), data("PTU/x"),
        data("journal"), std::filesystem::path("/etc/hostname"), std::filesystem::path("HSZS/x")}) {
    EXPECT_THROW(update.writeAt(path, 0, asBytes("x")), UserError) << path;
    EXPECT_THROW(update.exists(path), UserError) << path;
  }
}

TEST_F(FileUpdateTest, AFolderInAFilesPlaceIsRefused) {
  std::filesystem::create_directory(data("HSZS/a"));
  FileUpdate update(workspace.dataFolder);
  EXPECT_THAT(sentenceOf([&] { update.exists(data("HSZS/a")); }), HasSubstr("文件夹"));
}

TEST_F(FileUpdateTest, WhenOneFileCanNotBeWrittenAllStayAsTheyWere) {
  write("HSZS/a", "old content");
  std::filesystem::create_directory(data("ZMSJ/b"));
  FileUpdate update(workspace.dataFolder);
  writeAt(update, "HSZS/a", 0, "new content that is longer");
  writeAt(update, "HSZS/new", 0, "new");
  writeAt(update, "ZMSJ/b", 0, "x");
  EXPECT_THAT(sentenceOf([&] { update.commit(); }), HasSubstr("没有改动"));
  EXPECT_EQ(read("HSZS/a"), "old content");
  EXPECT_FALSE(has("HSZS/new"));
  EXPECT_FALSE(has("journal"));
}

TEST_F(FileUpdateTest, WithoutItsFolderNothingIsWritten) {
  std::filesystem::remove_all(data("ZMSJ"));
  write("HSZS/a", "old");
  FileUpdate update(workspace.dataFolder);
  writeAt(update, "HSZS/a", 0, "new");
  writeAt(update, "ZMSJ/b", 0, "x");
  EXPECT_THROW(update.commit(), UserError);
  EXPECT_EQ(read("HSZS/a"), "old");
  EXPECT_FALSE(has("journal"));
}

}  // namespace
}  // namespace triaxlab::testing
