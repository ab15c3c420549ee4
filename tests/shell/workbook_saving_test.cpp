// 另存为Excel文件, of the document in front.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/fakes.h"
#include "shell/lab.h"
#include "support/packages.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class WorkbookSaving : public ::testing::Test {
 protected:
  WorkbookSaving() {
    lab.workspace.TriaxialSampleTable[0] = testing::sample("P1", "A-1");
    lab.workspace.TriaxialSampleTable[1] = testing::sample("P1", "A-2");
  }
  /// Presses the command with this document in front, and answers its question with a file of the folder.
  void press(ActiveDocument document, const std::string& file) {
    shell.documentActivated(kForm1);
    shell.documentActivated(document);
    dialogs.file = lab.folder / file;
    EXPECT_TRUE(shell.trigger("SAVEASEXCEL"));
  }

  testing::Lab lab;
  testing::FakeDialogs dialogs;
  testing::FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
};

TEST_F(WorkbookSaving, AsksForTheFileAndSaysThatItStands) {
  press(kForm1, "a.xls");
  const FileQuestion& question = dialogs.fileQuestions.at(0);
  EXPECT_EQ(question.title, "保存三轴数据文件为Excel格式");
  EXPECT_EQ(question.filter, "Log Files (*.xls)|*.xls");
  EXPECT_EQ(question.initial.filename(), "EXSZ");
  EXPECT_TRUE(question.replacesSilently);
  EXPECT_THAT(dialogs.take(), ElementsAre("[保存数据为Excel] 三轴试验数据保存完毕"));
  EXPECT_THAT(lab.folder.read("a.xls"), StartsWith("\xD0\xCF\x11\xE0"));
}

TEST_F(WorkbookSaving, TheExtensionSaysTheFormat) {
  NEEDS_XLSX();
  press(kForm1, "a.xlsx");
  EXPECT_THAT(lab.folder.read("a.xlsx"), StartsWith("PK"));
  press(kForm1, "b");
  EXPECT_THAT(lab.folder.read("b.xls"), StartsWith("\xD0\xCF"));
  press(kForm1, "c.2024");
  EXPECT_THAT(lab.folder.read("c.2024.xls"), StartsWith("\xD0\xCF"));
}

TEST_F(WorkbookSaving, TheBarMovesSampleBySampleAndGoes) {
  press(kForm1, "a.xls");
  using Step = std::pair<std::size_t, std::size_t>;
  EXPECT_THAT(windows.progress, ElementsAre(Step{1, 2}, Step{2, 2}, Step{1, 1}));
}

TEST_F(WorkbookSaving, ACancelledQuestionWritesNothing) {
  shell.documentActivated(kForm1);
  dialogs.file.reset();
  EXPECT_TRUE(shell.trigger("SAVEASEXCEL"));
  EXPECT_THAT(dialogs.take(), IsEmpty());
  EXPECT_THAT(windows.progress, IsEmpty());
}

TEST_F(WorkbookSaving, AFailureIsTheOrdinaryErrorAndTheBarGoes) {
  std::filesystem::create_directory(lab.folder / "a.xls");
  press(kForm1, "a.xls");
  EXPECT_THAT(dialogs.take(), ElementsAre("stop [QVB三轴试验数据处理] 打开文件“" + (lab.folder / "a.xls").string() +
                                          "”失败：它是一个文件夹。"));
  EXPECT_EQ(windows.progress.back(), (std::pair<std::size_t, std::size_t>{1, 1}));
}

TEST_F(WorkbookSaving, IsOfTheTestsInFront) {
  const std::pair<ActiveDocument, const char*> titles[] = {{kForm4, "保存无侧限数据文件为Excel格式"},
                                                           {kForm6, "保存K0数据文件为Excel格式"},
                                                           {kForm9, "保存TK0数据文件为Excel格式"},
                                                           {kForm7, "保存三轴数据文件为Excel格式"}};
  for (const auto& [document, title] : titles) {
    press(document, "a.xls");
    EXPECT_EQ(dialogs.fileQuestions.back().title, title);
  }
}

}  // namespace
}  // namespace triaxlab
