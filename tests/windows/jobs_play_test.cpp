// The jobs of a laboratory's day, in the steps that the manual tells.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files.h"
#include "played_program.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kImport =
    "input 全自动三轴\n"
    "drop MDIForm1 HSZSJ.KU\n"
    "dblcell OPENFORM0.Grid1 2\n"
    "key Enter\n";
/// The list of samples that are there already is empty.
constexpr const char* kSaveNamed = "type Form1.Text3 粉质粘土\nkey Ctrl+S\nreply OK\nkey Enter\n";

class Job : public ::testing::Test {
 protected:
  /// What the program prints on the way.
  std::string done(const std::string& steps) const {
    const PlayResult played = program.play(steps);
    EXPECT_EQ(played.errors, "");
    return played.out;
  }
  PlayedProgram program;
};

TEST_F(Job, ImportAndPrint) {
  const std::string out = done(std::string(kImport) + kSaveNamed +
                               "key Ctrl+P\nfile out.pdf\nclick SETPRINTFORM.Command1\nget MDIForm1.StatusBar1(1)\n");
  EXPECT_THAT(out, HasSubstr("页已存为"));
  EXPECT_THAT(program.folder().read("out.pdf"), StartsWith("%PDF"));
}

TEST_F(Job, ImportOnceMoreAndKeepTheNames) {
  done(std::string(kImport) + kSaveNamed);
  done(std::string(kImport) + "key Ctrl+S\nclick Form10.Command2\nreply OK\nclick Form10.Command3\n");
  EXPECT_EQ(done("click MDIForm1.StartRECENT1\nget Form1.Text3\n"), "Form1.Text3=粉质粘土\n");
}

TEST_F(Job, ReorderAndRestore) {
  done(std::string(kImport) + kSaveNamed);
  const std::string firstSample = "click MDIForm1.StartRECENT1\nget Form1.Label1(3)\n";
  EXPECT_EQ(done(firstSample), "Form1.Label1(3)=ZK2-03\n");
  done(
      "key Ctrl+O\nclick OPENFORM.Labelsize\nreply OK\nclick Form14.Command5\nkey Enter\n"
      "reply OK\nclick Form14.Command2\n");
  EXPECT_EQ(done(firstSample), "Form1.Label1(3)=ZK2-06\n");
  done("key Ctrl+O\nclick OPENFORM.Backups\nreply Yes\nreply OK\nkey Enter\n");
  EXPECT_EQ(done(firstSample), "Form1.Label1(3)=ZK2-03\n");
}

TEST_F(Job, MoveTheDataFolder) {
  const std::filesystem::path folder = program.folder().path() / "new";
  std::filesystem::create_directory(folder);
  const std::string out = done("menu HABITS\nclick HABITSFORM.ChangeDataFolder\ntype Form5.Text1 " + folder.string() +
                               "\nkey Enter\nclick HABITSFORM.Return\nget MDIForm1.StatusBar1(1)\n");
  EXPECT_THAT(out, HasSubstr("数据现在存放在 " + folder.string()));
  done(std::string(kImport) + kSaveNamed);
  EXPECT_TRUE(fileExists(folder / "HSZS" / "WKSZ2024-018.txt"));
}

TEST_F(Job, ChangeAHabit) {
  done(
      "menu HABITS\ncell HABITSFORM.Keys 25 1\nkey Enter\ntype HABITSFORM.Value 合同号\nclick HABITSFORM.Save\n"
      "click HABITSFORM.Return\n");
  EXPECT_EQ(done("menu ZMOPEN\nget OPENFORM.MSFlexGrid1 0 1\nclose OPENFORM\n"), "OPENFORM.MSFlexGrid1=合同号\n");
}

}  // namespace
}  // namespace triaxlab::testing
