#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "played_program.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

constexpr const char* kThere = "WarningBar: visible enabled not checked\n";
constexpr const char* kGone = "WarningBar: not visible enabled not checked\n";

/// P1 is saved, and its file then cut in the middle.
void leaveHalfAProject(const PlayedProgram& program) {
  ASSERT_EQ(
      program.play("menu NEW\ntype Form1.Text1 P1\nkey Right\ntype Form1.Text1 S1\nreply OK\nmenu ZMSAVE\n").errors,
      "");
  const std::string whole = program.folder().read("HSZS/WKSZP1.txt");
  program.folder().write("HSZS/WKSZP1.txt", whole.substr(0, whole.size() / 2));
}

TEST(PlayWarnings, AnIncompleteProjectIsToldUntilItIsTakenNoteOf) {
  const PlayedProgram program;
  ASSERT_NO_FATAL_FAILURE(leaveHalfAProject(program));
  const PlayResult played = program.play(
      "state MDIForm1.WarningBar\nmenu ZMOPEN\nkey Enter\nget MDIForm1.WarningText\nstate MDIForm1.WarningBar\n"
      "click MDIForm1.WarningClose\nstate MDIForm1.WarningBar\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_THAT(played.out, HasSubstr("WKSZP1.txt”比文件头所说的短"));
  EXPECT_EQ(played.out.find(kGone), std::string("MDIForm1.").size()) << "nothing to tell yet";
  EXPECT_THAT(played.out, HasSubstr(std::string(kThere) + "MDIForm1." + kGone));
}

TEST(PlayWarnings, AWarningGoesWithItsDocument) {
  const PlayedProgram program;
  ASSERT_NO_FATAL_FAILURE(leaveHalfAProject(program));
  const PlayResult played =
      program.play("menu ZMOPEN\nkey Enter\nstate MDIForm1.WarningBar\nclose Form1\nstate MDIForm1.WarningBar\n");
  EXPECT_EQ(played.out, std::string("MDIForm1.") + kThere + "MDIForm1." + kGone) << played.errors;
}

TEST(PlayWarnings, ADamagedIndexIsToldWhenTheDatabaseIsOpened) {
  const PlayedProgram program;
  // The index takes the first 3500 bytes.
  program.folder().write("cut.KU", program.folder().read("SDSZSJ.KU").substr(0, 3000));
  const PlayResult played = program.play(
      "file cut.KU\nmenu RGSZ\nget OPENFORMZ.WarningText\nclick OPENFORMZ.Command2\n"
      "file SDSZSJ.KU\nmenu RGSZ\nstate OPENFORMZ.WarningBar\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_THAT(played.out, HasSubstr("cut.KU”"));
  EXPECT_THAT(played.out, HasSubstr(std::string("OPENFORMZ.") + kGone)) << "another file";
}

TEST(PlayWarnings, ADataFolderThatIsGoneIsToldAtTheStart) {
  const PlayedProgram program;
  const TemporaryFolder data;
  const std::string folder = (data.path() / "lab").string();
  std::filesystem::create_directory(folder);
  ASSERT_EQ(program.play("").errors, "");
  std::string settings = program.folder().read("qvb.sys");
  std::string field = "9" + folder;
  field.resize(170, ' ');
  program.folder().write("qvb.sys", settings.replace(6998, field.size(), field));
  std::filesystem::remove_all(folder);
  const PlayResult played = program.play("get MDIForm1.WarningText\nget MDIForm1.StatusBar1(1)\n");
  EXPECT_THAT(played.out, HasSubstr("数据文件夹“" + folder + "”不在"));
  EXPECT_THAT(played.out, HasSubstr("MDIForm1.StatusBar1(1)=就绪\n"));
}

}  // namespace
}  // namespace triaxlab::testing
