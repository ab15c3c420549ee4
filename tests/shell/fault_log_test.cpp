#include "shell/fault_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "platform/folders.h"
#include "shell/guarded_end.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class FaultLogTest : public ::testing::Test {
 protected:
  TemporaryFolder folder;
  FaultLog log{folder.path(), "triaxlab", "9.8.7"};
  std::string report() const { return folder.read("triaxlab-fault.txt"); }
};

TEST_F(FaultLogTest, AReportTellsTheVersionAndWhereTheFaultWas) {
  try {
    throw std::logic_error("words");
  } catch (...) {
    ASSERT_TRUE(log.write(thrownText()));
  }
  EXPECT_THAT(report(), HasSubstr("triaxlab 9.8.7\nstd::logic_error: words\n"));
  EXPECT_THAT(report(), HasSubstr("位置:\n"));
#ifndef __SANITIZE_ADDRESS__
  EXPECT_THAT(report(), HasSubstr("(shell_test"));
#endif
}

TEST_F(FaultLogTest, NothingLongGoesIntoAReportWhole) {
  const std::string text(1'000'000, 'x');
  for (int i = 0; i < 100; ++i) {
    log.noteCommand(text);
    log.noteMessage(text);
  }
  ASSERT_TRUE(log.write(text));
  EXPECT_LT(report().size(), 64U * 1024);
}

TEST_F(FaultLogTest, NoCharacterIsCutInTwo) {
  std::string text = "x";
  while (text.size() < 2000) text += "试";
  ASSERT_TRUE(log.write(text));
  EXPECT_THAT(report(), HasSubstr("试\n命令"));
}

TEST_F(FaultLogTest, FaultsThatComeBackAllDayDoNotFillTheDisk) {
  const std::string text(900, 'x');
  for (int i = 0; i < 2000; ++i) ASSERT_TRUE(log.write(text));
  EXPECT_LT(report().size(), 300U * 1024);
  EXPECT_GT(report().size(), 900U);
}

TEST_F(FaultLogTest, WhatWasShownStandsAsideAndTakesThePlaceOfWhatWasShownBefore) {
  EXPECT_THAT(log.unseen(), IsEmpty());
  log.write("the first");
  EXPECT_THAT(log.unseen(), HasSubstr("the first"));
  EXPECT_EQ(log.setAside(), folder.path() / "triaxlab-fault-seen.txt");
  EXPECT_THAT(log.unseen(), IsEmpty());
  log.write("the second");
  log.setAside();
  EXPECT_THAT(folder.read("triaxlab-fault-seen.txt"), HasSubstr("the second"));
  EXPECT_THAT(folder.read("triaxlab-fault-seen.txt"), Not(HasSubstr("the first")));
}

TEST_F(FaultLogTest, WhatCanNotBeSetAsideStays) {
  log.write("the first");
  std::filesystem::create_directories(folder.path() / "triaxlab-fault-seen.txt" / "taken");
  EXPECT_EQ(log.setAside(), log.file());
  EXPECT_THAT(log.unseen(), HasSubstr("the first"));
}

TEST_F(FaultLogTest, AReportThatCanNotBeReadIsNoneThatIsNotThere) {
  folder.write("triaxlab-fault.txt", std::string(2'000'000, 'x'));
  EXPECT_THAT(log.unseen(), HasSubstr("triaxlab-fault.txt"));
}

TEST_F(FaultLogTest, EachProgramHasItsOwn) {
  FaultLog other(folder.path(), "triaxlab-cli");
  other.write("the other's");
  EXPECT_THAT(log.unseen(), IsEmpty());
  EXPECT_THAT(folder.read("triaxlab-cli-fault.txt"), HasSubstr("the other's"));
}

TEST_F(FaultLogTest, WithoutAFolderNothingIsWritten) {
  const FaultLog nowhere({});
  EXPECT_FALSE(nowhere.write("words"));
  EXPECT_THAT(nowhere.unseen(), IsEmpty());
}

// ---- the end of the process

void endHere(const char* thrown) { std::fprintf(stderr, "ends by %s\n", thrown); }
void fallThrough(const std::function<void()>& operation) noexcept { operation(); }

#ifdef _WIN32
void crash() {
  volatile std::uintptr_t nowhere = 8;
  *reinterpret_cast<volatile int*>(nowhere) = 0;
}
#else
void crash() { std::raise(SIGSEGV); }
#endif

/// Where a program can't be split in two, the one that is to end runs the test from its beginning, and learns by the
/// environment where the first one looks for its report.
class GuardedEnd : public FaultLogTest {
 protected:
  GuardedEnd() {
    if (const auto reports = folderNamedBy(kVariable); !reports.empty())
      log.keepIn(reports);
    else
      setVariable(kVariable, folder.path().string().c_str());
  }
  ~GuardedEnd() override { unsetVariable(kVariable); }

 private:
  static constexpr const char* kVariable = "TRIAXLAB_TEST_REPORTS";
};

TEST_F(GuardedEnd, AnExceptionThatNobodyCatchesIsReportedOnce) {
  EXPECT_DEATH(
      {
        guardTheEnd(log, endHere);
        fallThrough([] { throw std::logic_error("never"); });
      },
      "ends by std::logic_error: never");
  EXPECT_THAT(report(), HasSubstr("\nstd::logic_error: never\n"));
  EXPECT_THAT(report(), Not(HasSubstr("SIGABRT")));
}

TEST_F(GuardedEnd, ASignalLeavesANote) {
  EXPECT_DEATH(
      {
        guardTheEnd(log, endHere);
        log.noteCommand("NEW");
        log.noteCommand("ZMOPEN");
        crash();
      },
      "程序意外中断（SIGSEGV）");
  EXPECT_THAT(report(), StartsWith("triaxlab 9.8.7，"));
  EXPECT_THAT(report(), EndsWith(" 启动，意外中断\nSIGSEGV\n命令: NEW ZMOPEN\n\n"));
}

TEST_F(GuardedEnd, AnUnwritableFolderIsNoFurtherFault) {
  FaultLog nowhere(folder.path() / "gone", "triaxlab", "9.8.7");
  EXPECT_DEATH(
      {
        guardTheEnd(nowhere, endHere);
        fallThrough([] { throw std::logic_error("never"); });
      },
      "程序意外中断（std::logic_error: never）.*\n.*ends by std::logic_error: never");
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "gone"));
}

}  // namespace
}  // namespace triaxlab::testing
