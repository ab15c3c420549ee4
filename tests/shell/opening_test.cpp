#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/shell_fixture.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::kQuestion;
using testing::kSaved;
using testing::sample;
using testing::Shell;

// ---- NEW

TEST_F(Shell, ANewDocumentLeavesTheDatesOfOthers) {
  SetText(lab.workspace.dataOf(ProjectKind::TK0).ProjectDateTable[0].testDate, "2024/07/16");
  EXPECT_TRUE(shell.trigger("NEW"));
  EXPECT_EQ(lab.workspace.dataOf(ProjectKind::TK0).ProjectDateTable[0].testDate.trimmed(), "2024/07/16")
      << "the window of its tests may be open";
}

TEST_F(Shell, NewShowsAnEmptyDocument) {
  Workspace& workspace = lab.workspace;
  workspace.TriaxialSampleTable[1000] = sample("P1", "A-1");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[3].boreholeNo, "ZK1");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[100].projectNo, "P1");
  SetText(workspace.processingDate.year, "2012");
  SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "QR-07");
  workspace.dataOf(ProjectKind::Triaxial).projectName.text = "name";
  workspace.dataOf(ProjectKind::Triaxial).secondTitleLine.text = "line";
  workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;

  EXPECT_TRUE(shell.trigger("NEW"));

  EXPECT_THAT(windows.take(), ElementsAre("load 1"));
  EXPECT_FALSE(isLive(workspace.TriaxialSampleTable[1000]));
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[3], SampleLocation{});
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[100], ProjectDate{});
  EXPECT_FALSE(workspace.processingDate.isSet());
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.text +
                workspace.dataOf(ProjectKind::Triaxial).secondTitleLine.text,
            "");
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
  EXPECT_EQ(workspace.activeDocument, kForm1);
  EXPECT_TRUE(isOn("QUXIAN"));
}

TEST_F(Shell, NewReadsTheEnglishLabels) {
  lab.folder.write("esz.ini", *utf8ToGbkExactly("[工程编号]=[Job]"));
  shell.trigger("NEW");
  EXPECT_EQ(lab.workspace.settings.english.projectNo, "Job");
}

TEST_F(Shell, NewAsksAboutUnsavedChangesAndGoesOnAfterEitherAnswer) {
  for (const bool answer : {true, false}) {
    openChangedDocument();
    dialogs.answers = {answer};
    shell.trigger("NEW");
    if (answer)
      EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion, kSaved));
    else
      EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion));
    EXPECT_TRUE(lab.hasProject("P1")) << "saved by the first answer";
    EXPECT_FALSE(isLive(lab.workspace.TriaxialSampleTable[0]));
  }
}

TEST_F(Shell, NewWithoutChangesAsksNothing) {
  openDocument();
  shell.trigger("NEW");
  EXPECT_THAT(dialogs.shown, IsEmpty());
  EXPECT_FALSE(lab.hasProject("P1"));
}

TEST_F(Shell, ADocumentWhoseSaveFailedIsNotReplaced) {
  openChangedDocument();
  loseDataFolder();
  dialogs.answers = {true, true};
  shell.trigger("NEW");
  EXPECT_TRUE(isLive(lab.workspace.TriaxialSampleTable[0]));
  shell.trigger("ZMOPEN");
  EXPECT_THAT(windows.take(), IsEmpty());
  ASSERT_EQ(dialogs.shown.size(), 4U);
  EXPECT_THAT(dialogs.shown[1], HasSubstr("stop [QVB三轴试验数据处理]"));
  EXPECT_TRUE(windows.form1->changed);
}

// ---- Opening a project

TEST_F(Shell, AnOpenedProjectIsShown) {
  lab.writeProject("P7", {sample("P7", "A-1"), sample("P7", "A-2")});
  windows.inBrowser = [](BrowserSession& browser) { EXPECT_TRUE(browser.open()); };
  EXPECT_TRUE(shell.trigger("ZMOPEN"));
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM", "load 1"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
  EXPECT_EQ(lab.workspace.openDialogKind, 1);
  EXPECT_EQ(lab.workspace.activeDocument, kForm1);
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1].sampleNo.trimmed(), "A-2");
  EXPECT_TRUE(isOn("ZMPRINT"));
}

TEST_F(Shell, LeavingTheBrowserChangesNothing) {
  lab.writeProject("P7", {sample("P7", "A-1")});
  openDocument();
  shell.trigger("ZMOPEN");
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

TEST_F(Shell, TheBrowserAsksAboutUnsavedChangesFirst) {
  openChangedDocument();
  dialogs.answers = {false};
  windows.inBrowser = [&](BrowserSession&) { EXPECT_THAT(dialogs.shown, ElementsAre(kQuestion)); };
  shell.trigger("ZMOPEN");
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM"));
}

TEST_F(Shell, ALargeProjectAsksForTheRange) {
  std::vector<TriaxialSampleRecord> samples;
  for (int i = 1; i <= 101; ++i) samples.push_back(sample("P7", std::to_string(i)));
  lab.writeProject("P7", samples);
  windows.inBrowser = [](BrowserSession& browser) { browser.open(); };
  windows.inRangeDialog = [](RangeDialog& range) {
    EXPECT_EQ(range.first, "1");
    EXPECT_EQ(range.last, "101");
    range.first = "7";
    range.last = "5";
  };
  shell.trigger("ZMOPEN");
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM", "Form21", "load 1"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].sampleNo.trimmed(), "5");
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[2].sampleNo.trimmed(), "7");
  EXPECT_FALSE(isLive(lab.workspace.TriaxialSampleTable[3]));
}

TEST_F(Shell, RemarksStandInTheStatusBarUntilTheNextCommand) {
  lab.writeProject("P7", {sample("P7", "A-1")});
  const auto file = lab.folder.path() / "HSZS" / "WKSZP7.txt";
  std::filesystem::resize_file(file, 81 + 100);  // the record is cut short
  windows.inBrowser = [](BrowserSession& browser) { browser.open(); };
  shell.trigger("ZMOPEN");
  EXPECT_THAT(shell.statusTexts()[0], HasSubstr("WKSZP7.txt"));
  windows.inBrowser = [](BrowserSession&) {};
  shell.trigger("ZMOPEN");
  EXPECT_EQ(shell.statusTexts()[0], "就绪");
}

TEST_F(Shell, AnOldestTriaxialProjectIsShownInForm1) {
  lab.writeSamples(ProjectKind::OldTriaxial, "P7", {"A-1"});
  openChangedDocument();
  dialogs.answers = {false};
  windows.inBrowser = [](BrowserSession& browser) { EXPECT_TRUE(browser.open()); };
  EXPECT_TRUE(shell.trigger("ZMOPENOLD"));
  EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion)) << "its table is replaced";
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM", "load 1"));
  EXPECT_EQ(lab.workspace.openDialogKind, 101);
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P7");
}

TEST_F(Shell, TheBrowserOfAKindThatReplacesNoTableAsksNothing) {
  openChangedDocument();
  for (const auto& [command, kind] : {std::pair{"ZMOPEN0", 2}, {"OK0", 10}, {"TK0", 20}}) {
    windows.inBrowser = [&](BrowserSession& browser) { EXPECT_FALSE(browser.open()); };
    EXPECT_TRUE(shell.trigger(command));
    EXPECT_EQ(lab.workspace.openDialogKind, kind);
    EXPECT_THAT(windows.take(), ElementsAre("OPENFORM"));
    EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("对不起,你没有选中工程!!")));
  }
  EXPECT_TRUE(windows.form1->changed);
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

TEST_F(Shell, SampleListsHaveTheWindowOfTheirKind) {
  for (const auto& [command, kind, form] : {std::tuple{"ZMOPEN", ProjectKind::Triaxial, "Form14"},
                                            {"ZMOPEN0", ProjectKind::Unconfined, "Form13"},
                                            {"OK0", ProjectKind::K0, "Form13"},
                                            {"TK0", ProjectKind::TK0, "Form13"}}) {
    lab.writeSamples(kind, "P7", {"A-1"});
    windows.inBrowser = [](BrowserSession& browser) { browser.showSampleList([] {}); };
    EXPECT_TRUE(shell.trigger(command));
    EXPECT_THAT(windows.take(), ElementsAre("OPENFORM", form));
  }
}

}  // namespace
}  // namespace triaxlab
