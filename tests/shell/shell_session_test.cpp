#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include "shell/shell_fixture.h"
#include "support/posix_only.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::kQuestion;
using testing::kSaved;
using testing::Lab;
using testing::Shell;

// ---- Triggering

TEST_F(Shell, AnUnknownCommandOrOneThatIsOffDoesNothing) {
  for (const char* name : {"NOSUCH", "", "QUXIAN", "ZMPRINT", "RZMSAVE", "PTK0", "RZMYULAN"})
    EXPECT_FALSE(shell.trigger(name)) << name;
  EXPECT_THAT(windows.shown, IsEmpty());
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Shell, HeadingsAndThisProgramAreThereAndDoNothing) {
  for (const char* name : {"RZMFILE", "DAKAI", "RZMSZ"}) EXPECT_TRUE(shell.trigger(name)) << name;
  EXPECT_THAT(windows.shown, IsEmpty());
  EXPECT_EQ(shell.statusTexts()[0], "本程序正在运行") << "why";
}

TEST_F(Shell, EveryCommandThatIsOnDoesItsWork) {
  for (const Command& command : commandTable()) {
    if (command.action == Action::None || command.action == Action::StartThisProgram) continue;
    if (command.action == Action::Import || command.action == Action::StartTool) continue;            // off or outside
    if (command.action == Action::FlipToggle || command.action == Action::OpenNanjingFile) continue;  // shows nothing
    if (command.action == Action::OpenRecent) continue;                                               // none yet
    if (command.action == Action::SaveAsTable || command.action == Action::SaveAsWorkbook) continue;  // ask for a file
    openDocument();
    windows.form1->envelopes.ratioEnabled = true;
    if (command.action == Action::PrintTK0Curves) continue;  // hidden
    EXPECT_TRUE(shell.trigger(command.name)) << command.name;
    EXPECT_FALSE(windows.take().empty() && dialogs.take().empty()) << command.name;
  }
}

TEST_F(Shell, AnErrorEndsTheCommandAndIsShownOnce) {
  windows.inImporter = []() -> std::optional<Remarks> { throw UserError("读入原始数据", "文件坏了。"); };
  EXPECT_TRUE(shell.trigger("NEWSZ"));
  EXPECT_THAT(dialogs.take(), ElementsAre("stop [读入原始数据] 文件坏了。"));
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM0"));
}

TEST_F(Shell, AnErrorWithoutATitleHasTheProgramsTitle) {
  EXPECT_FALSE(shell.run([] { throw UserError("磁盘已满。"); }));
  EXPECT_THAT(dialogs.take(), ElementsAre("stop [QVB三轴试验数据处理] 磁盘已满。"));
  EXPECT_TRUE(shell.run([] {}));
}

// ---- Which document is active

TEST_F(Shell, TheWindowInFrontDecidesWhatCommandsActOn) {
  for (const ActiveDocument document : {kForm1, kForm2, kForm7, kForm4, kForm6, kForm9}) {
    shell.documentActivated(document);
    EXPECT_EQ(lab.workspace.activeDocument, document);
  }
}

TEST_F(Shell, ThreeWindowsLeaveTheirNumberBehindAndThreeDoNot) {
  for (const ActiveDocument document : {kForm1, kForm2, kForm7, kForm4, kForm6, kForm9}) {
    shell.documentActivated(document);
    shell.documentClosed(document);
    const bool keeps = document == kForm1 || document == kForm2 || document == kForm7;
    EXPECT_EQ(lab.workspace.activeDocument, keeps ? document : kNoDocument);
  }
}

TEST_F(Shell, TheMenuFollowsTheDocument) {
  EXPECT_TRUE(isOn("NEWSZ"));
  EXPECT_FALSE(isOn("QUXIAN1"));
  openDocument();
  EXPECT_FALSE(isOn("NEWSZ"));
  EXPECT_TRUE(isOn("QUXIAN1"));
  EXPECT_GT(windows.refreshes, 0);
  windows.form1.reset();
  shell.documentClosed(kForm1);
  EXPECT_TRUE(isOn("NEWSZ"));
  EXPECT_FALSE(isOn("QUXIAN1"));
}

TEST_F(Shell, AWindowInFrontKeepsTheCommandsWhenOneBehindItCloses) {
  openDocument();
  shell.documentActivated(kForm4);
  shell.documentActivated(kForm1);
  shell.documentClosed(kForm4);
  EXPECT_EQ(lab.workspace.activeDocument, kForm1);
  EXPECT_TRUE(isOn("RZMSAVE"));
  EXPECT_FALSE(isOn("NEWSZ")) << "an import would replace what is open";
}

// ---- Tables of readings

TEST_F(Shell, TheDataTableIsOpenedForTheCurveWindow) {
  EXPECT_FALSE(shell.trigger("SHUJUBIAO"));
  openDocument();
  EXPECT_TRUE(shell.trigger("SHUJUBIAO"));
  EXPECT_THAT(windows.take(), ElementsAre("load 2"));
  EXPECT_EQ(lab.workspace.activeDocument, kForm2);
  EXPECT_TRUE(isOn("QUXIAN1"));
  shell.showTable(kForm7);
  EXPECT_THAT(windows.take(), ElementsAre("load 7"));
  EXPECT_EQ(lab.workspace.activeDocument, kForm7);
}

TEST_F(Shell, WhatIsBeingTypedIsStoredBeforeACommandActs) {
  openDocument();
  windows.form1->typing = true;
  EXPECT_TRUE(shell.trigger("QUXIAN1"));
  EXPECT_FALSE(windows.form1->typing);
  EXPECT_TRUE(windows.form1->changed);
}

TEST_F(Shell, WhatIsBeingTypedCountsForTheQuestionOfClosing) {
  openDocument();
  windows.form1->typing = true;
  dialogs.answers = {true};
  EXPECT_TRUE(shell.mayClose(kForm1));
  EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion, kSaved));
}

// ---- Curve pages

TEST_F(Shell, APageCommandShowsItsPageInFront) {
  openDocument();
  shell.documentActivated(kForm2);
  windows.form1->envelopes = {.ratioEnabled = true, .ratioChecked = false};
  EXPECT_TRUE(shell.trigger("QUXIAN2"));
  EXPECT_EQ(windows.form1->page, CurvePage::StressRatioEnvelope);
  EXPECT_THAT(windows.take(), ElementsAre("raise 1"));
  EXPECT_EQ(lab.workspace.activeDocument, kForm1);

  EXPECT_TRUE(shell.trigger("QUXIAN6"));
  EXPECT_EQ(windows.form1->page, CurvePage::StressRatio);
}

TEST_F(Shell, TheCurveCommandItselfOnlyBringsTheWindowForward) {
  openDocument();
  windows.form1->page = CurvePage::StressPath;
  EXPECT_TRUE(shell.trigger("QUXIAN"));
  EXPECT_EQ(windows.form1->page, CurvePage::StressPath);
  EXPECT_THAT(windows.take(), ElementsAre("raise 1"));
}

TEST_F(Shell, TheSampleOnDisplayDecidesAboutTheEnvelopeByRatio) {
  openDocument();
  EXPECT_FALSE(isOn("QUXIAN2"));
  EXPECT_FALSE(shell.trigger("QUXIAN2"));
  windows.form1->envelopes = {.ratioEnabled = true, .ratioChecked = true};
  EXPECT_TRUE(isOn("QUXIAN2"));
  EXPECT_TRUE(shell.commandState(*findCommand("QUXIAN2")).checked);
  EXPECT_FALSE(shell.commandState(*findCommand("QUXIAN3")).checked);
}

// ---- Status bar

TEST_F(Shell, TheStatusBarHasThePanelsOfTheFrontDocument) {
  EXPECT_EQ(shell.statusTexts(), (std::array<std::string, 3>{"就绪", "", ""}));
  openDocument();
  EXPECT_EQ(shell.statusTexts(), (std::array<std::string, 3>{"就绪", "工程编号:P1", "试验日期:2024/05/06"}));
  windows.form1.reset();
  shell.documentClosed(kForm1);
  EXPECT_EQ(shell.statusTexts(), (std::array<std::string, 3>{"就绪", "", ""}));
}

TEST_F(Shell, SeveralRemarksAreAllShown) {
  shell.showRemarks({"甲。", "乙。"});
  EXPECT_EQ(shell.statusTexts()[0], "甲。 乙。");
}

// ---- Tools

/// A tool that leaves a file when it is started; true when that file appears.
bool isStarted(const Lab& lab, ShellSession& shell, const char* file, const char* command) {
  const auto mark = lab.folder.path() / "started";
  std::filesystem::remove(mark);
  const auto tool = lab.folder.write(file, "#!/bin/sh\n: > '" + mark.string() + "'\n");
  std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
  EXPECT_TRUE(shell.trigger(command));
  for (int wait = 0; wait < 500 && !std::filesystem::exists(mark); ++wait)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return std::filesystem::exists(mark);
}

TEST_F(Shell, AToolIsStartedFromTheApplicationFolder) {
  POSIX_ONLY("scripts that are programs");
  EXPECT_TRUE(isStarted(lab, shell, "zmgj.exe", "RZMGJ"));
  EXPECT_THAT(windows.raisedTools, ElementsAre("QVB固结（黄土压缩）试验数据处理"));
  EXPECT_TRUE(isStarted(lab, shell, "zmsz8cs", "SAZHOU8")) << "without .exe and in another case";
}

TEST_F(Shell, AMissingToolIsSilent) {
  EXPECT_TRUE(shell.trigger("RZMWL"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
  EXPECT_THAT(windows.raisedTools, ElementsAre("QVB物理试验数据处理")) << "one may run from elsewhere";
}

// ---- 填写土样资料

TEST_F(Shell, TheTextsOfSamplesAreFilledInForTheDocumentInFront) {
  openDocument();
  windows.inFillIn = [this](FillInSession& session) {
    EXPECT_EQ(session.cell(1, 2), "A-1");
    EXPECT_FALSE(windows.form1->changed);
    session.type(1, 3, "clay");
  };
  EXPECT_TRUE(shell.trigger("FILLIN"));
  EXPECT_TRUE(windows.form1->changed);
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].soilName.trimmed(), "clay");
  windows.inFillIn = [](FillInSession& session) { EXPECT_EQ(session.cell(1, 3), "clay"); };
  shell.documentActivated(kForm2);
  windows.take();
  EXPECT_TRUE(shell.trigger("FILLIN")) << "its table is that of the curve window";
  EXPECT_THAT(windows.take(), ElementsAre("FILLFORM"));
}

TEST_F(Shell, WithoutTheWindowThatAsksForASaveNothingIsFilledIn) {
  shell.documentActivated(kForm4);
  shell.documentActivated(kForm2);
  EXPECT_TRUE(shell.trigger("FILLIN"));
  EXPECT_EQ(windows.take(), std::vector<std::string>());
  EXPECT_EQ(shell.statusTexts()[0], "请先打开这些土样的试验窗口。");
}

}  // namespace
}  // namespace triaxlab
