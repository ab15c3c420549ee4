#include "platform/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "common/user_error.h"
#include "support/full_disk.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

Bytes bytesOfText(std::string_view text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

void write(const fs::path& path, std::string_view text) { std::ofstream(path, std::ios::binary) << text; }

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

/// The sentence of the UserError that `deed` throws; empty when it throws none.
std::string complaintOf(const std::function<void()>& deed) {
  try {
    deed();
  } catch (const UserError& error) {
    return error.what();
  }
  return {};
}

/// For as long as it lives the process may do no more than any user, also when the tests run as root.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (m_wasRoot && seteuid(kNobody) != 0) throw std::runtime_error("the rights can't be given up");
  }
  ~OrdinaryUser() {
    if (m_wasRoot && seteuid(0) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  const bool m_wasRoot = geteuid() == 0;
};

class Files : public ::testing::Test {
 protected:
  testing::TemporaryFolder folder;

  std::string read(const File& file, std::uint64_t offset, std::size_t size) {
    std::string text(size, '#');
    const std::size_t got = file.readAt(offset, std::as_writable_bytes(std::span(text)));
    return text.substr(0, got);
  }
};

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
  EXPECT_EQ(contentOf(folder / "a"), "ab");
}

TEST_F(Files, WritesInPlaceAndFillsGapsWithZeros) {
  write(folder / "a", "0123");
  File file(folder / "a", File::Mode::Update);
  file.writeAt(1, bytesOfText("XY"));
  EXPECT_EQ(contentOf(folder / "a"), "0XY3");
  file.writeAt(6, bytesOfText("Z"));
  EXPECT_EQ(contentOf(folder / "a"), std::string("0XY3\0\0Z", 7));
  file.writeAt(0, {});
  EXPECT_EQ(file.size(), 7U);
  file.resize(2);
  EXPECT_EQ(contentOf(folder / "a"), "0X");
  file.resize(4);
  EXPECT_EQ(contentOf(folder / "a"), std::string("0X\0\0", 4));
  EXPECT_NO_THROW(file.sync());
}

TEST_F(Files, ModesTellWhatBecomesOfTheFile) {
  EXPECT_NE(complaintOf([&] { File(folder / "none", File::Mode::Read); }), "");
  EXPECT_NE(complaintOf([&] { File(folder / "none", File::Mode::Update); }), "");
  EXPECT_THAT(namesIn(folder.path()), IsEmpty());

  write(folder / "kept", "old");
  File(folder / "kept", File::Mode::Shared).writeAt(0, bytesOfText("n"));
  EXPECT_EQ(contentOf(folder / "kept"), "nld");
  File(folder / "made", File::Mode::Shared).writeAt(0, bytesOfText("n"));
  EXPECT_EQ(contentOf(folder / "made"), "n");
  File(folder / "kept", File::Mode::Create).writeAt(0, bytesOfText("x"));
  EXPECT_EQ(contentOf(folder / "kept"), "x");
}

TEST_F(Files, AFileToReadIsNotWritten) {
  write(folder / "a", "old");
  File file(folder / "a", File::Mode::Read);
  EXPECT_NE(complaintOf([&] { file.writeAt(0, bytesOfText("new")); }), "");
  EXPECT_NE(complaintOf([&] { file.resize(0); }), "");
  EXPECT_EQ(contentOf(folder / "a"), "old");
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
  const struct {
    fs::path path;
    std::string cause;
  } cases[] = {
      {folder / "none", "没有这个文件或文件夹"}, {folder / "none/deep", "没有这个文件或文件夹"},
      {folder / "folder", "它是一个文件夹"},     {folder / "file/below", "路径中有一段不是文件夹"},
      {folder / longName, "名称太长"},
  };
  for (const auto& [path, cause] : cases) {
    const auto names = AllOf(HasSubstr(path.string()), HasSubstr(cause));
    EXPECT_THAT(complaintOf([&] { File(path, File::Mode::Read); }), names);
    EXPECT_THAT(complaintOf([&] { File(path, File::Mode::Update); }), names);
    EXPECT_THAT(complaintOf([&] { readWholeFile(path, 100); }), names);
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

TEST_F(Files, WhatMayNotBeReadOrWrittenIsSaid) {
  write(folder / "secret", "old");
  fs::create_directory(folder / "closed");
  write(folder / "closed/inside", "old");
  fs::permissions(folder / "secret", fs::perms::none);
  fs::permissions(folder / "closed", fs::perms::none);
  fs::permissions(folder.path(),
                  fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
  {
    const OrdinaryUser user;
    const auto noRight = AllOf(HasSubstr("secret"), HasSubstr("没有读写权限"));
    EXPECT_THAT(complaintOf([&] { File(folder / "secret", File::Mode::Read); }), noRight);
    EXPECT_THAT(complaintOf([&] { readWholeFile(folder / "secret", 100); }), noRight);
    EXPECT_THAT(complaintOf([&] { writeWholeFile(folder / "secret", bytesOfText("new")); }), noRight);
    EXPECT_THAT(complaintOf([&] { removeFile(folder / "secret"); }), noRight);
    EXPECT_FALSE(folderIsWritable(folder.path()));
    EXPECT_FALSE(makeFolder(folder / "new"));
    const auto noLook = AllOf(HasSubstr("closed"), HasSubstr("没有读写权限"));
    const fs::path inside = folder / "closed/inside";
    EXPECT_THAT(complaintOf([&] { fileExists(inside); }), noLook) << "nobody knows that it isn't there";
    EXPECT_THAT(complaintOf([&] { folderExists(inside); }), noLook);
    EXPECT_THAT(complaintOf([&] { stampOf(inside); }), noLook);
    EXPECT_THAT(complaintOf([&] { behindLinks(inside); }), noLook);
    EXPECT_THAT(complaintOf([&] { findFile(folder / "closed", "INSIDE"); }), noLook);
    EXPECT_THAT(complaintOf([&] { fileOrNew(folder / "closed", "INSIDE"); }), noLook);
    EXPECT_THAT(complaintOf([&] { listFiles(folder / "closed", "", ""); }), noLook);
    EXPECT_FALSE(folderIsAtHand(folder / "closed/deep"));
  }
  fs::permissions(folder.path(), fs::perms::owner_all);
  fs::permissions(folder / "closed", fs::perms::owner_all);
  fs::permissions(folder / "secret", fs::perms::owner_all);
  EXPECT_EQ(contentOf(folder / "secret"), "old");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("closed", "secret"));
}

TEST_F(Files, AFullDiskAndADamagedOneAreSaid) {
  File full("/dev/full", File::Mode::Update);
  EXPECT_THAT(complaintOf([&] { full.writeAt(0, bytesOfText("x")); }),
              AllOf(HasSubstr("/dev/full"), HasSubstr("磁盘已满")));
  // Address 0 of a process is never mapped: reading there fails as a bad sector does.
  const File memory("/proc/self/mem", File::Mode::Read);
  EXPECT_THAT(complaintOf([&] { read(memory, 0, 8); }), AllOf(HasSubstr("/proc/self/mem"), HasSubstr("磁盘读写错误")));
}

TEST_F(Files, APipeInAFilesPlaceIsSaidAtOnce) {
  const std::filesystem::path pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const File::Mode mode : {File::Mode::Read, File::Mode::Update, File::Mode::Shared})
    EXPECT_THAT(complaintOf([&] { File(pipe, mode); }), AllOf(HasSubstr("pipe"), HasSubstr("管道")));
}

TEST_F(Files, AWholeFileComesInOnePiece) {
  write(folder / "a", std::string("x\0y\r\n", 5));
  EXPECT_EQ(readWholeFile(folder / "a", 5), bytesOfText({"x\0y\r\n", 5}));
  write(folder / "empty", "");
  EXPECT_THAT(readWholeFile(folder / "empty", 0), IsEmpty());
  EXPECT_THAT(complaintOf([&] { readWholeFile(folder / "a", 4); }), AllOf(HasSubstr("太大"), HasSubstr("5 字节")));
}

TEST_F(Files, AReplacedFileHasTheNewContentAndTheOldRights) {
  write(folder / "a", "old");
  fs::permissions(folder / "a", fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  writeWholeFile(folder / "a", bytesOfText("new content"));
  EXPECT_EQ(contentOf(folder / "a"), "new content");
  EXPECT_EQ(fs::status(folder / "a").permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  writeWholeFile(folder / "b", bytesOfText("first"));
  EXPECT_EQ(contentOf(folder / "b"), "first");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a", "b"));
}

TEST_F(Files, AReplacedLinkStaysALink) {
  fs::create_directory(folder / "server");
  write(folder / "server/qvb.sys", "old");
  fs::create_symlink(folder / "server/qvb.sys", folder / "qvb.sys");
  writeWholeFile(folder / "qvb.sys", bytesOfText("new"));
  EXPECT_TRUE(fs::is_symlink(folder / "qvb.sys"));
  EXPECT_EQ(contentOf(folder / "server/qvb.sys"), "new");
  EXPECT_THAT(namesIn(folder / "server"), ElementsAre("qvb.sys"));
}

TEST_F(Files, AFailedReplacementLeavesTheOldFileAndNoRemains) {
  write(folder / "a", "old");
  {
    const testing::FullDisk full(100);
    EXPECT_THAT(complaintOf([&] { writeWholeFile(folder / "a", Bytes(101)); }), HasSubstr((folder / "a").string()));
  }
  EXPECT_EQ(contentOf(folder / "a"), "old");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a"));

  fs::create_directory(folder / "folder");
  EXPECT_NE(complaintOf([&] { writeWholeFile(folder / "folder", bytesOfText("new")); }), "");
  EXPECT_NE(complaintOf([&] { writeWholeFile(folder / "none/b", bytesOfText("new")); }), "");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a", "folder"));
}

TEST_F(Files, AMovedFileTakesThePlaceAndTheRightsOfTheOldOne) {
  write(folder / "a.bak", "new content");
  write(folder / "a", "old");
  fs::permissions(folder / "a", fs::perms::owner_read | fs::perms::group_read);
  moveFile(folder / "a.bak", folder / "a");
  EXPECT_EQ(contentOf(folder / "a"), "new content");
  EXPECT_EQ(fs::status(folder / "a").permissions(), fs::perms::owner_read | fs::perms::group_read);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a"));
}

TEST_F(Files, AFileMovesFromOneDiskToAnother) {
  struct stat here {
  }, there{};
  fs::create_directories("/dev/shm");
  ASSERT_EQ(stat(folder.path().c_str(), &here), 0);
  ASSERT_EQ(stat("/dev/shm", &there), 0);
  ASSERT_NE(here.st_dev, there.st_dev) << "the test needs two file systems";
  const fs::path from = fs::path("/dev/shm") / ("triaxlab-move-" + std::to_string(getpid()));
  const std::string content(3'000'001, 'x');  // more than one block
  write(from, content);
  write(folder / "a", "old");
  moveFile(from, folder / "a");
  EXPECT_EQ(contentOf(folder / "a"), content);
  EXPECT_FALSE(fs::exists(from));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a"));
}

TEST_F(Files, AMoveThatFailsLeavesBothFiles) {
  write(folder / "a.bak", "new");
  fs::create_directory(folder / "folder");
  EXPECT_THAT(complaintOf([&] { moveFile(folder / "a.bak", folder / "folder"); }),
              HasSubstr((folder / "folder").string()));
  EXPECT_NE(complaintOf([&] { moveFile(folder / "a.bak", folder / "none/a"); }), "");
  EXPECT_EQ(contentOf(folder / "a.bak"), "new");
  EXPECT_NE(complaintOf([&] { moveFile(folder / "none", folder / "a.bak"); }), "");
  EXPECT_EQ(contentOf(folder / "a.bak"), "new");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a.bak", "folder"));
}

TEST_F(Files, RenamesAndRemoves) {
  write(folder / "a", "a");
  write(folder / "b", "b");
  renameFile(folder / "a", folder / "b");
  EXPECT_EQ(contentOf(folder / "b"), "a");
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

TEST_F(Files, OnlyWhatTheSystemDeniesIsMissing) {
  fs::create_symlink("circle", folder / "circle");
  const auto circle = AllOf(HasSubstr("circle"), HasSubstr("链接绕成一圈"));
  EXPECT_THAT(complaintOf([&] { fileExists(folder / "circle"); }), circle);
  EXPECT_THAT(complaintOf([&] { stampOf(folder / "circle"); }), circle);
  EXPECT_THAT(complaintOf([&] { fileOrNew(folder / "circle", "a"); }), circle);
  EXPECT_THAT(complaintOf([&] { listFiles(folder / "circle", "", ""); }), circle);
  EXPECT_THAT(complaintOf([&] { folderIsWritable(folder / "circle"); }), circle);
  // The name itself stands there, and so it is listed; to open it says what is wrong.
  EXPECT_EQ(findFile(folder.path(), "CIRCLE"), folder / "circle");
  EXPECT_THAT(listFiles(folder.path(), "", ""), ElementsAre("circle"));

  write(folder / "file", "x");
  fs::create_symlink(folder / "gone", folder / "broken");
  for (const char* const missing : {"none", "none/deep", "file/below", "broken"}) {
    EXPECT_FALSE(fileExists(folder / missing)) << missing;
    EXPECT_EQ(stampOf(folder / missing), std::nullopt) << missing;
    EXPECT_FALSE(folderIsWritable(folder / missing)) << missing;
  }
}

TEST_F(Files, ANameIsFoundAsSpelledFirst) {
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
  EXPECT_EQ(pathFromText("data\\HSZS\\土样.txt"), fs::path("data/HSZS/土样.txt"));
  EXPECT_EQ(pathFromText("/srv/lab/"), fs::path("/srv/lab/"));
  EXPECT_EQ(textOfPath("/srv/实验室/a"), "/srv/实验室/a");
}

TEST(PathText, ADriveIsAFolderThatDoesNotExist) {
  EXPECT_FALSE(folderExists(pathFromText("c:\\qvb")));
  EXPECT_FALSE(folderExists(pathFromText("c:\\")));
}

}  // namespace
}  // namespace triaxlab
