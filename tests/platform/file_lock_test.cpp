#include "platform/file_lock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <thread>

#include "common/user_error.h"
#include "platform/files.h"
#include "support/lock_holder.h"
#include "support/posix_only.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

using namespace std::chrono_literals;

std::optional<FileLock> takeNow(const std::filesystem::path& path) {
  return FileLock::take(path, FileLock::Clock::now());
}

TEST(FileLocks, TwoOnOneFileExcludeEachOther) {
  const TemporaryFolder folder;
  const auto file = folder.write("a.txt", "content");
  std::optional<FileLock> first = takeNow(file);
  ASSERT_TRUE(first);
  EXPECT_TRUE(first->isOn(file));
  EXPECT_FALSE(takeNow(file));
  first.reset();
  EXPECT_TRUE(takeNow(file));
  EXPECT_EQ(folder.read("a.txt"), "content");
}

TEST(FileLocks, ProgramsThatLockInEitherWayAreRespectedUntilTheyDie) {
  const TemporaryFolder folder;
  const auto file = folder.write("a.txt", "content");
  for (const LockWay way : {LockWay::Flock, LockWay::RecordLock}) {
    LockHolder other(file, way);
    ASSERT_TRUE(other.holds());
    EXPECT_FALSE(takeNow(file));
    other.kill();
    EXPECT_TRUE(takeNow(file));
  }
}

TEST(FileLocks, KeepOutProgramsThatLockInEitherWay) {
  const TemporaryFolder folder;
  const auto file = folder.write("a.txt", "content");
  for (const LockWay way : {LockWay::Flock, LockWay::RecordLock}) {
    std::optional<FileLock> ours = takeNow(file);
    EXPECT_FALSE(LockHolder(file, way).holds());
    ours.reset();
    EXPECT_TRUE(LockHolder(file, way).holds());
  }
}

TEST(FileLocks, WaitUntilTheOtherIsDoneButNoLonger) {
  const TemporaryFolder folder;
  const auto file = folder.write("a.txt", "content");
  LockHolder other(file, LockWay::Flock);
  const auto begin = FileLock::Clock::now();
  EXPECT_FALSE(FileLock::take(file, begin + 120ms));
  EXPECT_GE(FileLock::Clock::now() - begin, 120ms);
  const auto later = std::async(std::launch::async, [&other] {
    std::this_thread::sleep_for(50ms);
    other.kill();
  });
  EXPECT_TRUE(FileLock::take(file, FileLock::Clock::now() + 60s));
}

TEST(FileLocks, AFolderIsLockedWithoutATrace) {
  POSIX_ONLY("locks of folders");
  const TemporaryFolder folder;
  std::optional<FileLock> lock = takeNow(folder.path());
  EXPECT_TRUE(lock && lock->isOn(folder.path()));
  EXPECT_FALSE(LockHolder(folder.path(), LockWay::Flock).holds());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(FileLocks, WhatIsNotThereKeepsNobodyOut) {
  const TemporaryFolder folder;
  const auto missing = folder.path() / "missing";
  std::optional<FileLock> first = takeNow(missing), second = takeNow(missing);
  EXPECT_TRUE(first && second);
  EXPECT_FALSE(first->isOn(missing));
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST(FileLocks, WhatCanNotBeLookedAtIsNotWrittenUnlocked) {
  POSIX_ONLY("links");
  const TemporaryFolder folder;
  std::filesystem::create_symlink("circle", folder / "circle");
  EXPECT_THROW(takeNow(folder / "circle"), UserError);
}

TEST(FileLocks, ALockedFileThatIsReplacedIsNoLongerLocked) {
  const TemporaryFolder folder;
  const auto file = folder.write("a.txt", "old"), newer = folder.write("b.txt", "new");
  const std::optional<FileLock> lock = takeNow(file);
  renameFile(newer, file);
  EXPECT_FALSE(lock->isOn(file));
  EXPECT_TRUE(takeNow(file));
}

TEST(FileLocks, AFileThatIsReplacedWhileOneWaitsIsLockedInItsNewState) {
  const TemporaryFolder folder;
  const auto file = folder.write("a.txt", "old"), newer = folder.write("b.txt", "new");
  LockHolder other(file, LockWay::RecordLock);
  const auto later = std::async(std::launch::async, [&] {
    std::this_thread::sleep_for(50ms);
    renameFile(newer, file);
    other.kill();
  });
  const std::optional<FileLock> lock = FileLock::take(file, FileLock::Clock::now() + 60s);
  ASSERT_TRUE(lock);
  EXPECT_TRUE(lock->isOn(file));
}

}  // namespace
}  // namespace triaxlab::testing
