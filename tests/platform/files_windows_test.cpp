// What Windows has otherwise than POSIX systems: drives, spellings, files that are open.
#include "platform/file_lock.h"
#include "platform/files_fixture.h"
#include "platform/folders.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(PathsOfWindows, AreToldWithBackslashes) {
  EXPECT_EQ(textOfPath(pathFromText("c:/lab/实验室\\a")), "c:\\lab\\实验室\\a");
  EXPECT_TRUE(folderExists(pathFromText("c:\\")));
  EXPECT_EQ(textOfPath(pathFromText("d:")), "d:\\") << "not the folder of that drive in which a program is";
  EXPECT_EQ(textOfPath(pathFromText("d:a")), "d:a");
  EXPECT_THAT(mountedVolumes(), Contains(fs::path("C:\\")));
}

TEST_F(Files, NamesMayHaveCharactersBeyondSixteenBits) {
  const std::string name = "土\U00020BB7样\U0001F600";
  writeWholeFile(folder / name, bytesOfText("content"));
  EXPECT_EQ(listFiles(folder.path(), "", ""), std::vector<std::string>{name});
  EXPECT_EQ(textOfPath((folder / name).filename()), name);
}

TEST_F(Files, OfLongPathsAreReadAndWritten) {
  fs::path deep = folder.path();
  for (int i = 0; i < 20; ++i) {
    deep /= "a folder with a long name";
    ASSERT_TRUE(makeFolder(deep));
  }
  writeWholeFile(deep / "a.txt", bytesOfText("content"));
  EXPECT_EQ(readWholeFile(deep / "a.txt", 100), bytesOfText("content"));
  EXPECT_EQ(listFiles(deep, "", ".txt"), std::vector<std::string>{"a.txt"});
  // The standard library can't take such away.
  removeFile(deep / "a.txt");
  EXPECT_FALSE(fileExists(deep / "a.txt"));
}

TEST_F(Files, AreReplacedAndRemovedWhileTheyAreOpen) {
  write(folder / "a", "old");
  {
    const File open(folder / "a", File::Mode::Read);
    writeWholeFile(folder / "a", bytesOfText("new content"));
    EXPECT_EQ(fileBytes(folder / "a"), "new content");
    EXPECT_EQ(read(open, 0, 10), "old");
  }
  EXPECT_THAT(namesIn(folder.path()), ::testing::ElementsAre("a"));
}

TEST_F(Files, ANameThatIsRemovedIsFreeAtOnce) {
  write(folder / "a", "old");
  const auto lock = FileLock::take(folder / "a", FileLock::Clock::now());
  ASSERT_TRUE(lock && lock->isOn(folder / "a"));
  const File open(folder / "a", File::Mode::Read);
  removeFile(folder / "a");
  EXPECT_FALSE(fileExists(folder / "a"));
  EXPECT_EQ(stampOf(folder / "a"), std::nullopt);
  writeWholeFile(folder / "a", bytesOfText("new"));
  EXPECT_EQ(fileBytes(folder / "a"), "new");
  EXPECT_EQ(read(open, 0, 10), "old");
}

TEST_F(Files, ADevicesNameIsRefused) {
  EXPECT_THAT(complaintOf([&] { File(folder / "NUL", File::Mode::Shared); }), HasSubstr("它是一个设备或管道"));
}

TEST_F(Files, TheLockOfAFolderIsGoneWithItsHolder) {
  {
    const auto lock = FileLock::take(folder.path(), FileLock::Clock::now());
    ASSERT_TRUE(lock);
    EXPECT_FALSE(FileLock::take(folder.path(), FileLock::Clock::now()));
  }
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());
  EXPECT_TRUE(FileLock::take(folder.path(), FileLock::Clock::now()));
}

}  // namespace
}  // namespace triaxlab::testing
