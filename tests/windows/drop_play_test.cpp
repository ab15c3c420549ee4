// Files dropped on the main window, with the events of the toolkit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "played_program.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

TEST(PlayDrop, ARawFileOnTheEmptyAreaOpensItsWindow) {
  const PlayedProgram program;
  const PlayResult played = program.play("drop MDIForm1 KSZSJ.KU\nget OPENFORM1.Grid1 1 1\nclose OPENFORM1\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_EQ(played.out, "OPENFORM1.Grid1=XA9911\n");
}

TEST(PlayDrop, AFileThatTwoTestsReadIsAskedAbout) {
  const PlayedProgram program;
  const PlayResult played = program.play("input TK0\ndrop MDIForm1.StartPage tk0/HGJSJ.KU\nget OPENFORM21.Label1\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_EQ(played.out, "OPENFORM21.Label1=文件总数: 01\n");
}

TEST(PlayDrop, AnEditBoxTakesNoFileForAText) {
  const PlayedProgram program;
  const PlayResult played = program.play("menu NEW\nreply OK\ndrop Form1.Text1 README.md\nget Form1.Text1\nmessages\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_THAT(played.out, HasSubstr("Form1.Text1=\n"));
  EXPECT_THAT(played.out, HasSubstr("README.md”不是工程文件"));
}

}  // namespace
}  // namespace triaxlab::testing
