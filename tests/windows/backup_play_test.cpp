#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "played_program.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

TEST(PlayBackups, ACopyIsRestoredFromTheProjectList) {
  const PlayedProgram program;
  ASSERT_EQ(program
                .play("menu NEW\ntype Form1.Text1 P1\nkey Right\ntype Form1.Text1 S1\ntype Form1.Text3 clay\n"
                      "reply OK\nmenu ZMSAVE\n")
                .errors,
            "");
  const std::string first = program.folder().read("HSZS/WKSZP1.txt");
  // Another run changes the file, so that a copy is kept.
  ASSERT_EQ(program.play("menu ZMOPEN\nkey Enter\ntype Form1.Text3 sand\nreply OK\nmenu ZMSAVE\n").errors, "");
  ASSERT_NE(program.folder().read("HSZS/WKSZP1.txt"), first);
  const PlayResult result = program.play(
      "menu ZMOPEN\nclick OPENFORM.Backups\nget BACKUPFORM.Copies 1 2\nget BACKUPFORM.Copies 1 3\n"
      "reply Yes\nreply OK\ndblcell BACKUPFORM.Copies 1 1\nmessages\nkey Enter\nget Form1.Text3\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_THAT(result.out, HasSubstr("BACKUPFORM.Copies=1\nBACKUPFORM.Copies=改变 1 个：S1\n"));
  EXPECT_THAT(result.out, HasSubstr("[恢复备份] “WKSZP1.txt”已恢复。\nForm1.Text3=clay\n")) << result.out;
  EXPECT_EQ(program.folder().read("HSZS/WKSZP1.txt"), first);
}

}  // namespace
}  // namespace triaxlab::testing
