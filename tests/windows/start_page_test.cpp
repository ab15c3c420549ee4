#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "desk.h"
#include "lone_application.h"
#include "played_program.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

constexpr const char* kImport =
    "click MDIForm1.StartNEWSZ\n"
    "dblcell OPENFORM0.Grid1 1\n"
    "click OPENFORM0.Command1\n";

TEST(StartPage, BeginsAnImportAndGivesWayToItsDocument) {
  const PlayedProgram program;
  const std::string file = (program.folder().path() / "HSZSJ.KU").string();
  const PlayResult played =
      program.play("state MDIForm1.StartPage\nfile " + file + "\n" + kImport + "state MDIForm1.StartPage\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_EQ(played.out,
            "MDIForm1.StartPage: visible enabled not checked\nMDIForm1.StartPage: not visible enabled not checked\n");
}

TEST(StartPage, OffersInTheNextRunWhatWasSaved) {
  const PlayedProgram program;
  const std::string file = (program.folder().path() / "HSZSJ.KU").string();
  ASSERT_EQ(program.play("file " + file + "\n" + kImport + "reply OK\nmenu ZMSAVE\n").status, 0);
  const PlayResult played = program.play(
      "get MDIForm1.StartRECENT1\nclick MDIForm1.StartRECENT1\nget MDIForm1.StatusBar1(2)\nstate MDIForm1.StartPage\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_THAT(played.out, HasSubstr("MDIForm1.StartRECENT1=WKSZ"));
  EXPECT_THAT(played.out, HasSubstr("MDIForm1.StartPage: not visible"));
}

TEST(StartPage, ComesBackWhenTheLastDocumentHasClosed) {
  const PlayedProgram program;
  const PlayResult played = program.play("menu NEW\nclose Form1\nstate MDIForm1.StartPage\n");
  EXPECT_EQ(played.out, "MDIForm1.StartPage: visible enabled not checked\n") << played.errors;
}

TEST(StartPage, TheTitleFollowsTheDocument) {
  makeApplication();
  const Desk desk(kForm1);
  const QString folder = QString::fromStdString(desk.lab.workspace.dataFolder.string());
  EXPECT_EQ(desk.window.windowTitle(), "QVB三轴试验数据处理 - P1 - " + folder);
}

}  // namespace
}  // namespace triaxlab::testing
