// The command line's own end: a signal leaves a note, which the next run tells of.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/cli_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class Faults : public CliTest {
 protected:
  /// A run that was told of one file, which isn't there, waits for the next, and is ended by a signal.
  ProgramRun crash(const std::vector<std::string>& words) {
    const std::string names = (folder / "names").string();
    setShell("mkfifo '" + names + "'; exec 3<>'" + names + "'; echo NONE.txt >&3; ",
             " <'" + names + "' & child=$!; while [ ! -s '" + (folder / "err").string() +
                 "' ]; do sleep 0.01; done; kill -SEGV $child; wait $child");
    ProgramRun ran = runBare(words);
    setShell("", "");
    return ran;
  }
  ProgramRun crash() { return crash({"--app", app().string(), "results", "triaxial", "-"}); }
};

TEST_F(Faults, ASignalLeavesANoteAndAWord) {
  const ProgramRun ran = crash();
  EXPECT_NE(ran.status, 0);
  EXPECT_THAT(ran.err, HasSubstr("程序意外中断（SIGSEGV）。\n"));
  EXPECT_THAT(folder.read("app/triaxlab-cli-fault.txt"), StartsWith("triaxlab-cli "));
  EXPECT_THAT(folder.read("app/triaxlab-cli-fault.txt"), HasSubstr("意外中断\nSIGSEGV\n命令: --app "));
}

TEST_F(Faults, TheNextRunTellsOnce) {
  crash();
  const ProgramRun next = run({"init"});
  EXPECT_EQ(next.status, 0);
  EXPECT_EQ(next.err, "程序以前运行时出过意外的错误，或者意外中断过，报告在文件“" +
                          (app() / "triaxlab-cli-fault-seen.txt").string() + "”里。\n");
  EXPECT_EQ(run({"init"}).err, "");
  EXPECT_THAT(folder.read("app/triaxlab-cli-fault-seen.txt"), HasSubstr("SIGSEGV"));
}

TEST_F(Faults, ARunThatOnlyReadsAFolderWritesNothing) {
  std::filesystem::create_directories(folder / "data/HSZS");
  const auto before = std::filesystem::last_write_time(folder / "data");
  const ProgramRun ran = crash({"results", "triaxial", "--data", (folder / "data").string(), "-"});
  EXPECT_NE(ran.status, 0);
  EXPECT_EQ(std::filesystem::last_write_time(folder / "data"), before);
  EXPECT_THAT(ran.err, HasSubstr("程序意外中断（SIGSEGV）。\n"));
  EXPECT_TRUE(std::filesystem::is_empty(folder / "data/HSZS"));
}

}  // namespace
}  // namespace triaxlab::testing
