// The sample lists of every kind over files that a laboratory has: what their windows show, and the bytes that a save
// leaves.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "played_program.h"
#include "sessions/dialogs/list_kinds.h"
#include "shell/lab.h"

namespace triaxlab::testing {
namespace {

struct KindOfTest {
  ProjectKind kind;
  const char *command, *file, *form, *caption, *sortTitle, *savedTitle;
};
const KindOfTest kKinds[] = {
    {ProjectKind::Triaxial, "ZMOPEN", "HSZS/WKSZP1.TXT", "Form14", "三轴土样列表", "土号升排序", "保存三轴文件"},
    {ProjectKind::Unconfined, "ZMOPEN0", "HSZS/KWCXP1.TXT", "Form13", "无侧限土样列表", "升序排序", "保存无侧限文件"},
    {ProjectKind::K0, "OK0", "HSZS/KOP1.TXT", "Form13", "K0土样列表", "升序排序", "保存K0文件"},
    {ProjectKind::TK0, "TK0", "HSZS/TKOP1.TXT", "Form13", "TK0土样列表", "升序排序", "保存TK0文件"},
};

/// A script for the list of a kind: "$" stands for its window.
std::string inList(const KindOfTest& kind, std::string script) {
  script = std::string("menu ") + kind.command + "\nclick OPENFORM.Labelsize\n" + script;
  for (std::size_t at = script.find('$'); at != std::string::npos; at = script.find('$', at))
    script.replace(at, 1, kind.form);
  return script;
}

/// Lines of output, each behind the name of the window.
std::string shown(const KindOfTest& kind, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (line.starts_with("[") ? "" : kind.form) + line + "\n";
  return text;
}

class ListOfKind : public ::testing::TestWithParam<KindOfTest> {
 protected:
  void write(const std::vector<std::string>& sampleNumbers) const {
    program.folder().write(GetParam().file, sampleFileBytes(GetParam().kind, "P1", sampleNumbers));
  }
  std::string content() const { return contentOfSampleFile(GetParam().kind, program.folder().read(GetParam().file)); }
  PlayedProgram program;
};

TEST_P(ListOfKind, SortsDeletesAndSaves) {
  write({"D", "B", "C", "A"});  // with the letters a b c d
  const PlayResult result = program.play(inList(GetParam(),
                                                "get $\nget $.Label1(3)\nclick $.Label1(0)\nclick $.Command1\n"
                                                "click Form16.Command1\nclick $.Command4\nreply OK\nkey Enter\n"
                                                "get $.Label1(0)\nget $.Label1(2)\nget $.Label1(3)\n"
                                                "messages\nreply OK\nclick $.Command2\nmessages\n"));
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out,
            shown(GetParam(), {"=" + std::string(GetParam().caption), ".Label1(3)=A", ".Label1(0)=A", ".Label1(2)=C",
                               ".Label1(3)=", "[" + std::string(GetParam().sortTitle) + "] 排序完毕！",
                               "[" + std::string(GetParam().savedTitle) + "] 数据保存完毕!"}));
  EXPECT_EQ(content(), "0003 Ad Bb Cc +0");
}

TEST_P(ListOfKind, ASecondSaveBuildsOnTheFirst) {
  write({"C", "A", "B"});
  const PlayResult result = program.play(inList(GetParam(),
                                                "click $.Command4\nreply OK\nkey Enter\nreply OK\nclick $.Command2\n"
                                                "reply OK\nclick $.Command2\nclick $.Command5\nreply OK\nkey Enter\n"
                                                "reply OK\nclick $.Command2\nclick $.Command3\n"));
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(content(), "0003 Ca Bc Ab +0");
}

TEST_P(ListOfKind, WithoutASaveNothingIsWritten) {
  write({"C", "A", "B"});
  for (const char* const way : {"click $.Command3\n", "close $\n", "key Esc\n"}) {
    const std::string before = program.folder().read(GetParam().file);
    const PlayResult result = program.play(
        inList(GetParam(), std::string("click $.Command4\nreply OK\nkey Enter\nclick $.Label1(0)\nclick $.Command1\n"
                                       "click Form16.Command1\n") +
                               way + "get OPENFORM.MSFlexGrid1 1 2\n"));
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.out, "OPENFORM.MSFlexGrid1=0003\n");
    EXPECT_EQ(program.folder().read(GetParam().file), before);
  }
}

TEST_P(ListOfKind, DeletingAllRemovesTheFile) {
  write({"B", "A"});
  const PlayResult result =
      program.play(inList(GetParam(),
                          "click $.Command1\ntype Form16.Text1 1\ntype Form16.Text2 9999\nkey Enter\nreply OK\n"
                          "click $.Command2\nclick $.Command3\nget OPENFORM.MSFlexGrid1 1 1\n"));
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out, "OPENFORM.MSFlexGrid1=\n");
  EXPECT_FALSE(std::filesystem::exists(program.folder() / GetParam().file));
}

TEST_P(ListOfKind, ASaveThatFailsKeepsTheList) {
  write({"B", "A"});
  std::filesystem::create_directories(program.folder() / "ZMSJ/KHZP1.txt");  // no file can be there
  const PlayResult result = program.play(inList(GetParam(),
                                                "click $.Command4\nreply OK\nkey Enter\nmessages\nreply OK\n"
                                                "click $.Command2\nget $.Label1(0)\nget $.Label1(1)\nmessages\n"));
  EXPECT_EQ(result.errors, "");
  const std::string sorted = "[" + std::string(GetParam().sortTitle) + "] 排序完毕！";
  const std::string before = shown(GetParam(), {sorted, ".Label1(0)=A", ".Label1(1)=B", "[QVB三轴试验数据处理] "});
  EXPECT_TRUE(result.out.starts_with(before.substr(0, before.size() - 1))) << result.out;
  EXPECT_NE(result.out.find("KHZP1.txt"), std::string::npos) << result.out;
  EXPECT_TRUE(content().starts_with("0002 Ba Ab")) << content();
}

std::vector<std::string> numbered(int count) {
  std::vector<std::string> numbers;
  for (int i = 1; i <= count; ++i) numbers.push_back("S" + std::to_string(i));
  return numbers;
}

TEST_P(ListOfKind, ScrollsByBarWheelAndKeys) {
  write(numbered(45));
  const PlayResult result = program.play(inList(GetParam(),
                                                "scroll $.VScroll1 3\nget $.Label1(0)\nclick $.Label1(1)\n"
                                                "get $.Label5(1)\nkey PageDown\nget $.Label1(0)\nkey End\n"
                                                "get $.Label5(19)\nget $.VScroll1\nkey Home\nget $.Label5(4)\n"
                                                "click $.Command1\ntype Form16.Text1 2\ntype Form16.Text2 45\n"
                                                "key Enter\nget $.Label1(0)\nget $.Label1(1)\nget $.VScroll1\n"));
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out,
            shown(GetParam(), {".Label1(0)=S4", ".Label5(1)=×5", ".Label1(0)=S24", ".Label5(19)=45", ".VScroll1=25",
                               ".Label5(4)=×5", ".Label1(0)=S1", ".Label1(1)=", ".VScroll1=0"}));
}

INSTANTIATE_TEST_SUITE_P(Windows, ListOfKind, ::testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.command); });

TEST(BrowserOfKind, TheOldestTriaxialFilesOpenIntoForm1) {
  const PlayedProgram program;
  program.folder().write("HSZS/KSZP1.TXT", sampleFileBytes(ProjectKind::OldTriaxial, "P1", {"A-1", "A-2"}));
  const std::string before = program.folder().read("HSZS/KSZP1.TXT");
  const PlayResult result = program.play(
      "menu ZMOPENOLD\nget OPENFORM.MSFlexGrid1 1 1\nclick OPENFORM.Labelsize\nkey Enter\nget Form1.Label1(2)\n"
      "get Form1.Label1(5)\nreply OK\nmenu ZMSAVE\nmenu ZMOPEN\nget OPENFORM.MSFlexGrid1 1 1\nclose OPENFORM\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out, "OPENFORM.MSFlexGrid1=P1\nForm1.Label1(2)=P1\nForm1.Label1(5)=A-2\nOPENFORM.MSFlexGrid1=P1\n");
  EXPECT_EQ(program.folder().read("HSZS/KSZP1.TXT"), before) << "saved as WKSZ; the old file is never written";
}

}  // namespace
}  // namespace triaxlab::testing
