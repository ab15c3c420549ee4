// Rights, links, pipes, devices and full disks, as POSIX systems have them.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <stdexcept>

#include "platform/files_fixture.h"
#include "support/full_disk.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

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

TEST_F(Files, PlacesBeyondFourGigabytesAreReached) {
  constexpr std::uint64_t kFar = (std::uint64_t{5} << 30) + 3;  // a hole, which takes no room
  {
    File file(folder / "long", File::Mode::Create);
    file.writeAt(3, bytesOfText("near"));
    file.writeAt(kFar, bytesOfText("far"));
    EXPECT_EQ(file.size(), kFar + 3);
    EXPECT_EQ(file.stamp().size, kFar + 3);
  }
  const File file(folder / "long", File::Mode::Read);
  Bytes read(5);
  EXPECT_EQ(file.readAt(kFar, read), 3U);
  EXPECT_EQ(Bytes(read.begin(), read.begin() + 3), bytesOfText("far"));
  EXPECT_EQ(file.readAt(3, read), 5U);
  EXPECT_EQ(read, bytesOfText({"near", 5}));
}

TEST_F(Files, AFileThatNoMemoryHoldsIsTooLargeWhateverTheLimit) {
  constexpr std::uint64_t kLength = std::uint64_t{5} << 30;
  if (kLength <= Bytes().max_size()) GTEST_SKIP() << "memory holds whatever a disk does";
  File(folder / "long", File::Mode::Create).resize(kLength);
  EXPECT_THAT(complaintOf([&] { readWholeFile(folder / "long", 2 * kLength); }),
              AllOf(HasSubstr("long"), HasSubstr("太大"), HasSubstr("5368709120 字节")));
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
  EXPECT_EQ(fileBytes(folder / "secret"), "old");
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

TEST_F(Files, AReplacedFileHasTheNewContentAndTheOldRights) {
  write(folder / "a", "old");
  fs::permissions(folder / "a", fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  writeWholeFile(folder / "a", bytesOfText("new content"));
  EXPECT_EQ(fileBytes(folder / "a"), "new content");
  EXPECT_EQ(fs::status(folder / "a").permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  writeWholeFile(folder / "b", bytesOfText("first"));
  EXPECT_EQ(fileBytes(folder / "b"), "first");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a", "b"));
}

TEST_F(Files, AReplacedLinkStaysALink) {
  fs::create_directory(folder / "server");
  write(folder / "server/qvb.sys", "old");
  fs::create_symlink(folder / "server/qvb.sys", folder / "qvb.sys");
  writeWholeFile(folder / "qvb.sys", bytesOfText("new"));
  EXPECT_TRUE(fs::is_symlink(folder / "qvb.sys"));
  EXPECT_EQ(fileBytes(folder / "server/qvb.sys"), "new");
  EXPECT_THAT(namesIn(folder / "server"), ElementsAre("qvb.sys"));
}

TEST_F(Files, AFailedReplacementLeavesTheOldFileAndNoRemains) {
  write(folder / "a", "old");
  {
    const FullDisk full(100);
    EXPECT_THAT(complaintOf([&] { writeWholeFile(folder / "a", Bytes(101)); }), HasSubstr((folder / "a").string()));
  }
  EXPECT_EQ(fileBytes(folder / "a"), "old");
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
  EXPECT_EQ(fileBytes(folder / "a"), "new content");
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
  EXPECT_EQ(fileBytes(folder / "a"), content);
  EXPECT_FALSE(fs::exists(from));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a"));
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

}  // namespace
}  // namespace triaxlab::testing
