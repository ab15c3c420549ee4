#include "platform/files.h"

#include <limits>
#include <optional>
#include <utility>

#include "platform/files_fixture.h"
#include "support/posix_only.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST_F(Files, ReadsAtAnyPlace) {
  write(folder / "a", "0123456789");
  const File file(folder / "a", File::Mode::Read);
  EXPECT_EQ(file.size(), 10U);
  EXPECT_EQ(file.path(), folder / "a");
  EXPECT_EQ(read(file, 0, 10), "0123456789");
  EXPECT_EQ(read(file, 3, 2), "34");
  EXPECT_EQ(read(file, 3, 0), "");
}

TEST_F(Files, ReadsWhatThereIsBeforeTheEnd) {
  write(folder / "a", "0123456789");
  const File file(folder / "a", File::Mode::Read);
  EXPECT_EQ(read(file, 8, 10), "89");
  EXPECT_EQ(read(file, 10, 1), "");
  EXPECT_EQ(read(file, 1'000'000'000'000, 5), "");
}

TEST_F(Files, LeavesTheRestOfTheBufferAlone) {
  write(folder / "a", "ab");
  std::string text = "....";
  EXPECT_EQ(File(folder / "a", File::Mode::Read).readAt(0, std::as_writable_bytes(std::span(text))), 2U);
  EXPECT_EQ(text, "ab..");
}

TEST_F(Files, AnImpossiblePlaceIsAnError) {
  write(folder / "a", "ab");
  File file(folder / "a", File::Mode::Update);
  const auto beyond = std::numeric_limits<std::uint64_t>::max() - 1;
  EXPECT_THAT(complaintOf([&] { read(file, beyond, 1); }), HasSubstr((folder / "a").string()));
  EXPECT_THAT(complaintOf([&] { file.writeAt(beyond, bytesOfText("x")); }), HasSubstr((folder / "a").string()));
  EXPECT_EQ(fileBytes(folder / "a"), "ab");
}

TEST_F(Files, WritesInPlaceAndFillsGapsWithZeros) {
  write(folder / "a", "0123");
  File file(folder / "a", File::Mode::Update);
  file.writeAt(1, bytesOfText("XY"));
  EXPECT_EQ(fileBytes(folder / "a"), "0XY3");
  file.writeAt(6, bytesOfText("Z"));
  EXPECT_EQ(fileBytes(folder / "a"), std::string("0XY3\0\0Z", 7));
  file.writeAt(0, {});
  EXPECT_EQ(file.size(), 7U);
  file.resize(2);
  EXPECT_EQ(fileBytes(folder / "a"), "0X");
  file.resize(4);
  EXPECT_EQ(fileBytes(folder / "a"), std::string("0X\0\0", 4));
  EXPECT_NO_THROW(file.sync());
}

TEST_F(Files, ModesTellWhatBecomesOfTheFile) {
  EXPECT_NE(complaintOf([&] { File(folder / "none", File::Mode::Read); }), "");
  EXPECT_NE(complaintOf([&] { File(folder / "none", File::Mode::Update); }), "");
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());

  write(folder / "kept", "old");
  File(folder / "kept", File::Mode::Shared).writeAt(0, bytesOfText("n"));
  EXPECT_EQ(fileBytes(folder / "kept"), "nld");
  File(folder / "made", File::Mode::Shared).writeAt(0, bytesOfText("n"));
  EXPECT_EQ(fileBytes(folder / "made"), "n");
  File(folder / "kept", File::Mode::Create).writeAt(0, bytesOfText("x"));
  EXPECT_EQ(fileBytes(folder / "kept"), "x");
}

TEST_F(Files, AFileToReadIsNotWritten) {
  write(folder / "a", "old");
  File file(folder / "a", File::Mode::Read);
  EXPECT_NE(complaintOf([&] { file.writeAt(0, bytesOfText("new")); }), "");
  EXPECT_NE(complaintOf([&] { file.resize(0); }), "");
  EXPECT_EQ(fileBytes(folder / "a"), "old");
}

TEST_F(Files, AnOpenFileCanBeHandedOn) {
  write(folder / "a", "aaa");
  write(folder / "b", "bbb");
  File first(folder / "a", File::Mode::Read);
  File moved(std::move(first));
  EXPECT_EQ(read(moved, 0, 3), "aaa");
  moved = File(folder / "b", File::Mode::Read);
  EXPECT_EQ(read(moved, 0, 3), "bbb");
  EXPECT_EQ(moved.path(), folder / "b");
}

TEST_F(Files, ComplaintsNameTheFileAndTheCause) {
  fs::create_directory(folder / "folder");
  write(folder / "file", "x");
  const std::string longName(300, 'n');
#ifdef _WIN32
  constexpr const char *kBelowAFile = "没有这个文件或文件夹", *kTooLong = kBelowAFile;  // it tells no difference
#else
  constexpr const char *kBelowAFile = "路径中有一段不是文件夹", *kTooLong = "名称太长";
#endif
  const struct {
    fs::path path;
    std::string cause;
  } cases[] = {
      {folder / "none", "没有这个文件或文件夹"},
      {folder / "none/deep", "没有这个文件或文件夹"},
      {folder / "folder", "它是一个文件夹"},
      {folder / "file/below", kBelowAFile},
      {folder / longName, kTooLong},
  };
  for (const auto& file : cases) {
    const auto names = AllOf(HasSubstr(textOfPath(file.path)), HasSubstr(file.cause));
    EXPECT_THAT(complaintOf([&] { File(file.path, File::Mode::Read); }), names);
    EXPECT_THAT(complaintOf([&] { File(file.path, File::Mode::Update); }), names);
    EXPECT_THAT(complaintOf([&] { readWholeFile(file.path, 100); }), names);
  }
  EXPECT_THAT(complaintOf([&] { File(folder / "folder", File::Mode::Create); }), HasSubstr("它是一个文件夹"));
  EXPECT_THAT(complaintOf([&] { File(folder / "folder", File::Mode::Shared); }), HasSubstr("它是一个文件夹"));
}

TEST_F(Files, ANameWithAZeroByteIsNotCutAtIt) {
  write(folder / "a", "x");
  const fs::path cut = folder / std::string("a\0b", 3);
  EXPECT_NE(complaintOf([&] { File(cut, File::Mode::Shared); }), "");
  EXPECT_FALSE(fileExists(cut));
  EXPECT_EQ(findFile(folder.path(), std::string_view("a\0b", 3)), std::nullopt);
}

TEST_F(Files, AWholeFileComesInOnePiece) {
  write(folder / "a", std::string("x\0y\r\n", 5));
  EXPECT_EQ(readWholeFile(folder / "a", 5), bytesOfText({"x\0y\r\n", 5}));
  write(folder / "empty", "");
  EXPECT_THAT(readWholeFile(folder / "empty", 0), IsEmpty());
  EXPECT_THAT(complaintOf([&] { readWholeFile(folder / "a", 4); }), AllOf(HasSubstr("太大"), HasSubstr("5 字节")));
}

TEST_F(Files, AMoveThatFailsLeavesBothFiles) {
  write(folder / "a.bak", "new");
  fs::create_directory(folder / "folder");
  EXPECT_THAT(complaintOf([&] { moveFile(folder / "a.bak", folder / "folder"); }),
              HasSubstr((folder / "folder").string()));
  EXPECT_NE(complaintOf([&] { moveFile(folder / "a.bak", folder / "none/a"); }), "");
  EXPECT_EQ(fileBytes(folder / "a.bak"), "new");
  EXPECT_NE(complaintOf([&] { moveFile(folder / "none", folder / "a.bak"); }), "");
  EXPECT_EQ(fileBytes(folder / "a.bak"), "new");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a.bak", "folder"));
}

TEST_F(Files, RenamesAndRemoves) {
  write(folder / "a", "a");
  write(folder / "b", "b");
  renameFile(folder / "a", folder / "b");
  EXPECT_EQ(fileBytes(folder / "b"), "a");
  removeFile(folder / "b");
  EXPECT_NO_THROW(removeFile(folder / "b"));  // what should be gone is gone
  EXPECT_THAT(complaintOf([&] { renameFile(folder / "b", folder / "c"); }), HasSubstr((folder / "c").string()));
  fs::create_directory(folder / "folder");
  EXPECT_NE(complaintOf([&] { removeFile(folder / "folder"); }), "");
  EXPECT_TRUE(folderExists(folder / "folder"));
  EXPECT_NO_THROW(syncFolder(folder.path()));
  EXPECT_NE(complaintOf([&] { syncFolder(folder / "none"); }), "");
}

TEST_F(Files, FoldersAndFilesAreToldApart) {
  write(folder / "file", "x");
  EXPECT_TRUE(fileExists(folder / "file"));
  EXPECT_FALSE(folderExists(folder / "file"));
  EXPECT_FALSE(fileExists(folder.path()));
  EXPECT_TRUE(folderExists(folder.path()));
  EXPECT_FALSE(fileExists(folder / "none"));
  EXPECT_TRUE(folderIsWritable(folder.path()));
  EXPECT_TRUE(makeFolder(folder / "new"));
  EXPECT_TRUE(makeFolder(folder / "new"));
  EXPECT_TRUE(folderExists(folder / "new"));
  EXPECT_FALSE(makeFolder(folder / "file"));
  EXPECT_FALSE(makeFolder(folder / "none/deep"));  // parents are not made
}

TEST_F(Files, ANameIsFoundAsSpelledFirst) {
  POSIX_ONLY("names that differ in their case alone");
  write(folder / "WKSZ1.TXT", "");
  write(folder / "WKSZ1.txt", "");
  write(folder / "wksz1.txt", "");
  EXPECT_EQ(findFile(folder.path(), "WKSZ1.txt"), folder / "WKSZ1.txt");
  EXPECT_EQ(findFile(folder.path(), "wksz1.txt"), folder / "wksz1.txt");
  // Not spelled like any: the first in byte order, capitals before small letters.
  EXPECT_EQ(findFile(folder.path(), "wKSZ1.TXT"), folder / "WKSZ1.TXT");
}

TEST_F(Files, OnlyTheCaseOfAToZIsForgiven) {
  write(folder / "WKSZ土样é.txt", "");
  EXPECT_EQ(findFile(folder.path(), "wksz土样é.TXT"), folder / "WKSZ土样é.txt");
  EXPECT_EQ(findFile(folder.path(), "wksz土样É.TXT"), std::nullopt);
  EXPECT_EQ(findFile(folder.path(), "wksz土样é.tx"), std::nullopt);
  EXPECT_EQ(findFile(folder.path(), "wksz土样é.txt "), std::nullopt);
}

TEST_F(Files, ANameNeverLeavesItsFolder) {
  fs::create_directory(folder / "in");
  write(folder / "out", "");
  for (const char* const name : {"", ".", "..", "../out", "/etc/passwd", "in/../out"})
    EXPECT_EQ(findFile(folder / "in", name), std::nullopt) << name;
  EXPECT_EQ(findFile(folder / "none", "x"), std::nullopt);
}

TEST_F(Files, FoldersAreFoundLikeFiles) {
  fs::create_directory(folder / "hszs");
  EXPECT_EQ(findFile(folder.path(), "HSZS"), folder / "hszs");
}

TEST_F(Files, ANewFileIsSpelledAsGiven) {
  write(folder / "QVB.SYS", "");
  EXPECT_EQ(fileOrNew(folder.path(), "qvb.sys"), folder / "QVB.SYS");
  EXPECT_EQ(fileOrNew(folder.path(), "SZDATX.sys"), folder / "SZDATX.sys");
}

TEST_F(Files, AMaskMatchesToTheEndAndWithoutCase) {
  for (const char* const name : {"WKSZ2.txt", "wksz10.TXT", "WKSZ.txt", "Wksza.Txt", "WKSZ1.txt.new", "KWCX1.txt",
                                 "WKS.txt", "XWKSZ1.txt", "WKSZB.TXT"})
    write(folder / name, "");
  fs::create_directory(folder / "WKSZ9.txt");
  EXPECT_THAT(listFiles(folder.path(), "WKSZ", ".TXT"),
              ElementsAre("WKSZ.txt", "wksz10.TXT", "WKSZ2.txt", "Wksza.Txt", "WKSZB.TXT"));
  EXPECT_THAT(listFiles(folder.path(), "WKSZ1", "1.TXT"), IsEmpty());  // the two parts don't share a place
  EXPECT_THAT(listFiles(folder / "none", "", ""), IsEmpty());
  EXPECT_THAT(listFiles(folder.path(), "kwcx", ""), ElementsAre("KWCX1.txt"));
}

TEST(PathText, BackslashesPartFolders) {
  POSIX_ONLY("folders that a slash parts");
  EXPECT_EQ(pathFromText("data\\HSZS\\土样.txt"), fs::path("data/HSZS/土样.txt"));
  EXPECT_EQ(pathFromText("/srv/lab/"), fs::path("/srv/lab/"));
  EXPECT_EQ(textOfPath("/srv/实验室/a"), "/srv/实验室/a");
}

TEST(PathText, ADriveIsAFolderThatDoesNotExist) {
  POSIX_ONLY("machines without a drive C");
  EXPECT_FALSE(folderExists(pathFromText("c:\\qvb")));
  EXPECT_FALSE(folderExists(pathFromText("c:\\")));
}

}  // namespace
}  // namespace triaxlab::testing
