// What tells one state of a file from another, and copies of a state.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>
#include <tuple>

#include "common/user_error.h"
#include "platform/files.h"
#include "support/posix_only.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

namespace fs = std::filesystem;

TEST(FileStamps, TellAChangeAndAnotherFile) {
  POSIX_ONLY("times that the standard library sets to the nanosecond");
  const TemporaryFolder folder;
  const auto file = folder.write("a.txt", "abc");
  const FileStamp before = stampOf(file).value();
  EXPECT_EQ(before.size, 3U);
  EXPECT_EQ(stampOf(file), before);
  EXPECT_EQ(File(file, File::Mode::Read).stamp(), before);

  fs::last_write_time(file, fs::last_write_time(file) + std::chrono::nanoseconds(100));
  const FileStamp later = stampOf(file).value();
  EXPECT_EQ(later.modifiedNs, before.modifiedNs + 100);
  EXPECT_NE(later, before);

  const auto twin = folder.write("b.txt", "abc");
  fs::last_write_time(twin, fs::last_write_time(file));
  fs::rename(twin, file);
  EXPECT_EQ(stampOf(file)->modifiedNs, later.modifiedNs);
  EXPECT_NE(stampOf(file), later) << "another file of the same size and time";

  EXPECT_EQ(stampOf(folder.path() / "missing"), std::nullopt);
  EXPECT_EQ(stampOf(folder.path()), std::nullopt) << "a folder is no file";
}

TEST(FileStamps, TellAChangeThatKeptSizeAndTime) {
  POSIX_ONLY("times that the standard library sets to the nanosecond");
  const TemporaryFolder folder;
  const auto file = folder.write("a.txt", "abc");
  const FileStamp before = stampOf(file).value();
  std::this_thread::sleep_for(std::chrono::milliseconds(30));  // a file system's clock ticks slowly
  const auto time = fs::last_write_time(file);
  folder.write("a.txt", "xyz");
  fs::last_write_time(file, time);
  const FileStamp after = stampOf(file).value();
  EXPECT_EQ(std::tie(after.size, after.modifiedNs, after.node), std::tie(before.size, before.modifiedNs, before.node));
  EXPECT_NE(after, before);
}

TEST(FileCopies, HoldTheSameBytes) {
  const TemporaryFolder folder;
  std::string content(3'000'001, '\0');
  for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i * 7 % 251);
  const auto path = folder.write("a.txt", content);
  const File from(path, File::Mode::Read);
  File to(folder.path() / "b.txt", File::Mode::Create);
  to.copyContentOf(from);
  EXPECT_TRUE(folder.read("b.txt") == content);

  File shared(folder.path() / "c.txt", File::Mode::Create);
  if (shared.shareContentOf(from))
    EXPECT_TRUE(folder.read("c.txt") == content);
  else
    EXPECT_EQ(shared.size(), 0U) << "nothing has happened where blocks can't be shared";
}

TEST(FileCopies, AreMadeByReadingWhereTheSystemDoesNotCopy) {
  POSIX_ONLY("the folder /proc");
  // The system reports files of /proc as empty and doesn't copy them.
  const TemporaryFolder folder;
  const File from("/proc/self/status", File::Mode::Read);
  File to(folder.path() / "status", File::Mode::Create);
  to.copyContentOf(from);
  EXPECT_THAT(folder.read("status"), ::testing::StartsWith("Name:"));
}

TEST(FileCopies, OfAFullDiskAreAUserError) {
  POSIX_ONLY("the device /dev/full");
  const TemporaryFolder folder;
  const File from(folder.write("a.txt", "abc"), File::Mode::Read);
  File full("/dev/full", File::Mode::Update);
  EXPECT_THROW(full.copyContentOf(from), UserError);
}

TEST(FreeSpace, IsToldForAFolderThatExists) {
  const TemporaryFolder folder;
  EXPECT_EQ(freeSpace(folder.path()).has_value(), true);
  EXPECT_EQ(freeSpace(folder.path() / "missing"), std::nullopt);
}

}  // namespace
}  // namespace triaxlab::testing
