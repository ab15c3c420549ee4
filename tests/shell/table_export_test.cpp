#include "shell/table_export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/fakes.h"
#include "shell/lab.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class TableExport : public ::testing::Test {
 protected:
  TableExport() { lab.workspace.TriaxialSampleTable[0] = testing::sample("P1", "A-1"); }

  /// Presses a command with this document in front, and answers its question with a file of the folder.
  void press(ActiveDocument document, std::string_view command, const std::string& file) {
    shell.documentActivated(kForm1);
    shell.documentActivated(document);
    dialogs.file = lab.folder / file;
    EXPECT_TRUE(shell.trigger(command));
  }
  bool isThere(const std::string& file) const { return std::filesystem::exists(lab.folder / file); }
  std::string status() const { return shell.statusTexts()[0]; }

  testing::Lab lab;
  testing::FakeDialogs dialogs;
  testing::FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
};

TEST_F(TableExport, TheExtensionSaysTheFormat) {
  press(kForm1, "SAVEASRESULTS", "a.csv");
  EXPECT_THAT(lab.folder.read("a.csv"), StartsWith("projectNo,sample,sampleNo,testMethod,"));
  EXPECT_EQ(status(), "数据表“" + (lab.folder / "a.csv").string() + "”已写好，共 1 行。");
  press(kForm1, "SAVEASREADINGS", "b.JSONL");
  EXPECT_THAT(lab.folder.read("b.JSONL"), StartsWith(R"({"projectNo": "P1", "sample": "1", "sampleNo": "A-1", )"));
  EXPECT_EQ(status(), "数据表“" + (lab.folder / "b.JSONL").string() + "”已写好，共 2 行。");
  press(kForm1, "SAVEASRESULTS", "c");
  EXPECT_TRUE(isThere("c.csv"));
}

TEST_F(TableExport, AnotherExtensionIsRefused) {
  press(kForm1, "SAVEASRESULTS", "a.txt");
  EXPECT_THAT(dialogs.take(), ElementsAre("stop [QVB三轴试验数据处理] 不能写成数据表“" +
                                          (lab.folder / "a.txt").string() + "”：名称要以 .csv 或 .jsonl 结尾。"));
  EXPECT_FALSE(isThere("a.txt"));
}

TEST_F(TableExport, IsOfTheTestsInFront) {
  SetText(lab.workspace.K0SampleTable[0].projectNo, "K 7");
  SetText(lab.workspace.K0SampleTable[0].sampleNo, "B-1");
  press(kForm6, "SAVEASRESULTS", "a.csv");
  EXPECT_THAT(lab.folder.read("a.csv"), HasSubstr("\r\nK 7,1,B-1,"));
  press(kForm7, "SAVEASRESULTS", "a.csv");
  EXPECT_THAT(lab.folder.read("a.csv"), HasSubstr("\r\nP1,1,A-1,UU,")) << "a window beside the curves";
}

TEST_F(TableExport, IsOfferedBesideTheProject) {
  press(kForm1, "SAVEASRESULTS", "a.csv");
  EXPECT_EQ(dialogs.fileQuestions.back().initial, lab.folder / "WKSZP1成果.csv");
  SetText(lab.workspace.TriaxialSampleTable[0].projectNo, "P/1");
  press(kForm1, "SAVEASREADINGS", "a.csv");
  EXPECT_EQ(dialogs.fileQuestions.back().initial, lab.folder / "WKSZ读数.csv");
}

TEST_F(TableExport, WithoutAnythingToWriteLeavesTheOldFile) {
  lab.folder.write("a.csv", "old");
  lab.workspace.TriaxialSampleTable.clear();
  press(kForm1, "SAVEASREADINGS", "a.csv");
  EXPECT_THAT(dialogs.take(), ElementsAre("stop [QVB三轴试验数据处理] 没有可以写出的试样或读数，数据表“" +
                                          (lab.folder / "a.csv").string() + "”没有写。"));
  EXPECT_EQ(lab.folder.read("a.csv"), "old");
}

TEST_F(TableExport, ACancelledQuestionWritesNothing) {
  shell.documentActivated(kForm1);
  dialogs.file.reset();
  EXPECT_TRUE(shell.trigger("SAVEASRESULTS"));
  EXPECT_EQ(dialogs.fileQuestions.size(), 1U);
  EXPECT_THAT(dialogs.take(), IsEmpty());
  EXPECT_EQ(status(), "就绪");
}

}  // namespace
}  // namespace triaxlab
