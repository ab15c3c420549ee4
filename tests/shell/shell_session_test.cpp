#include "shell/shell_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "shell/fakes.h"
#include "shell/lab.h"
#include "support/recording_device.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using testing::FakeDialogs;
using testing::FakePageDevices;
using testing::FakeWindows;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Lab;
using testing::sample;
using testing::textsWith;

constexpr const char* kQuestion = "[保存三轴数据]    数据已修改\n保存修改后数据吗？";
constexpr const char* kSaved = "[保存数据] 三轴试验数据保存完毕";

class Shell : public ::testing::Test {
 protected:
  bool isOn(std::string_view name) const { return shell.commandState(*findCommand(name)).enabled; }
  /// Form1 with one sample of project P1.
  void openDocument() {
    lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
    windows.form1.emplace();
    shell.documentActivated(kForm1);
  }
  void openChangedDocument() {
    openDocument();
    windows.form1->changed = true;
  }
  /// From now on nothing can be saved.
  void loseDataFolder() { lab.workspace.dataFolder = lab.folder.path() / "gone"; }

  Lab lab;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
};

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

TEST_F(Shell, EveryCommandThatIsBuiltAndOnDoesItsWork) {
  for (const Command& command : commandTable()) {
    if (command.action == Action::None || command.action == Action::StartThisProgram || !command.built) continue;
    if (command.action == Action::Import || command.action == Action::StartTool) continue;            // off or outside
    if (command.action == Action::FlipToggle || command.action == Action::OpenNanjingFile) continue;  // shows nothing
    if (command.action == Action::SaveAsTable) continue;  // asks for a file alone
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

// ---- Importers

TEST_F(Shell, AnImportIsPreparedAndShown) {
  windows.inImporter = [&]() -> std::optional<Remarks> {
    lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
    lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
    return Remarks{"第 3 组不完整。"};
  };
  SetText(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "QR-07");
  EXPECT_TRUE(shell.trigger("OLDSZ1"));
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM0OLD", "load 1"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].sigma1Failure[0].trimmed(), "160") << "100 + 60, by the opening pass";
  EXPECT_TRUE(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  EXPECT_EQ(shell.statusTexts()[0], "第 3 组不完整。");
}

TEST_F(Shell, AnImporterLeftWithoutWorkChangesNothing) {
  shell.trigger("NEWSZ");
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM0"));
  EXPECT_EQ(lab.workspace.activeDocument, kNoDocument);
}

TEST_F(Shell, AnImportOverAChangedDocumentAsksFirst) {
  for (const bool answer : {false, true}) {
    openChangedDocument();
    shell.documentActivated(kForm4);
    shell.documentClosed(kForm4);  // which brings the menu of imports back
    windows.take();
    dialogs.answers = {answer};
    EXPECT_TRUE(shell.trigger("OLDSZ1"));
    EXPECT_EQ(dialogs.take().front(), kQuestion);
    EXPECT_EQ(lab.hasProject("P1"), answer);
    EXPECT_THAT(windows.take(), ElementsAre("OPENFORM0OLD")) << "after either answer";
  }
}

TEST_F(Shell, AnImportDoesNotReplaceADocumentThatCouldNotBeSaved) {
  openChangedDocument();
  shell.documentActivated(kForm4);
  shell.documentClosed(kForm4);
  windows.take();
  loseDataFolder();
  dialogs.answers = {true};
  shell.trigger("OLDSZ1");
  EXPECT_THAT(windows.take(), IsEmpty());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

/// Two blocks of the Nanjing apparatus without readings, all lines empty but for date, project and sample.
std::string twoNanjingSamples() {
  std::string file;
  for (const char* sampleNo : {"J-1", "J-2"}) {
    file += "SZ-data\n2011/05/06\nNJ1\n" + std::string(sampleNo) + std::string(10, '\n') + std::string(4, '\0');
    file += "\x41\x71\x3D\x7A" + std::string(3, '\0') + "\xC8\x42\n";  // the end mark, 100 kPa
  }
  return file;
}

TEST_F(Shell, ANanjingFileIsReadAsSoonAsItIsChosen) {
  dialogs.file = lab.folder.write("raw/A1.SZD", twoNanjingSamples());
  SetText(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "QR-07");
  EXPECT_TRUE(shell.trigger("OPENNJ"));
  ASSERT_EQ(dialogs.fileQuestions.size(), 1U);
  EXPECT_EQ(dialogs.fileQuestions[0].title, "打开南京三轴原始数据文件");
  EXPECT_EQ(dialogs.fileQuestions[0].filter, "Log Files (*.SZD)|*.SZD|All  Files (*.*)|*.*");
  EXPECT_TRUE(dialogs.fileQuestions[0].initial.filename().empty()) << "no name to begin with";
  EXPECT_THAT(windows.take(), ElementsAre("load 1"));
  EXPECT_FALSE(isLive(lab.workspace.TriaxialSampleTable[0]));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[2].sampleNo.trimmed(), "J-2");
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1].failureStrainLimit[0], 150) << "by the opening pass";
  EXPECT_FALSE(lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
  EXPECT_TRUE(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  EXPECT_THAT(windows.progress, ElementsAre(std::pair(1U, 2U), std::pair(2U, 2U)));
}

TEST_F(Shell, ANanjingFileOverAChangedDocumentAsksFirst) {
  for (const bool answer : {false, true}) {
    openChangedDocument();
    windows.take();
    dialogs.file = lab.folder.write("raw/A1.SZD", twoNanjingSamples());
    dialogs.answers = {answer};
    shell.trigger("OPENNJ");
    EXPECT_EQ(dialogs.take().front(), kQuestion);
    EXPECT_EQ(lab.hasProject("P1"), answer);
    EXPECT_THAT(windows.take(), ElementsAre("load 1")) << "after either answer";
  }
}

TEST_F(Shell, ANanjingFileDoesNotReplaceADocumentThatCouldNotBeSaved) {
  openChangedDocument();
  windows.take();
  loseDataFolder();
  dialogs.answers = {true};
  shell.trigger("OPENNJ");
  EXPECT_THAT(dialogs.fileQuestions, IsEmpty());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

TEST_F(Shell, ACancelledNanjingFileChangesNothing) {
  openDocument();
  windows.take();
  shell.trigger("OPENNJ");
  EXPECT_THAT(windows.take(), IsEmpty());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

TEST_F(Shell, ANanjingFileThatCannotBeReadIsNamedAndChangesNothing) {
  openDocument();
  windows.take();
  dialogs.file = lab.folder.path() / "missing.SZD";
  shell.trigger("OPENNJ");
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("missing.SZD")));
  EXPECT_THAT(windows.take(), IsEmpty());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

// ---- Save

TEST_F(Shell, SaveSaysSoAndClearsTheMark) {
  openChangedDocument();
  EXPECT_TRUE(shell.trigger("RZMSAVE"));
  EXPECT_THAT(dialogs.take(), ElementsAre(kSaved));
  EXPECT_TRUE(lab.hasProject("P1"));
  EXPECT_FALSE(windows.form1->changed);
  EXPECT_THAT(windows.take(), IsEmpty()) << "nothing was imported, so nothing is asked";
}

TEST_F(Shell, SaveWithoutADocumentSavesTheTriaxialTable) {
  EXPECT_TRUE(shell.trigger("ZMSAVE"));
  EXPECT_THAT(dialogs.take(), ElementsAre(kSaved)) << "also when there is nothing to write";
  EXPECT_TRUE(std::filesystem::is_empty(lab.folder.path() / "HSZS"));

  openDocument();
  windows.form1.reset();
  shell.documentClosed(kForm1);
  EXPECT_TRUE(shell.trigger("ZMSAVE"));
  EXPECT_TRUE(lab.hasProject("P1")) << "the table outlives its window";
}

TEST_F(Shell, ASaveOfAnImportAsksAboutKnownSamplesEachTime) {
  lab.writeProject("P1", {sample("P1", "A-1")});
  openDocument();
  lab.workspace.TriaxialSampleTable[1] = sample("P1", "A-2");
  lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  windows.inOverwriteDialog = [](OverwriteSession& session) {
    ASSERT_EQ(session.rowCount(), 1);
    EXPECT_EQ(session.line(0).sampleNo, "A-1");
    EXPECT_EQ(session.line(0).answer, "覆盖") << "the first state, whatever was answered before";
    session.keepAll();
  };
  shell.trigger("ZMSAVE");
  EXPECT_THAT(windows.take(), ElementsAre("Form10"));
  EXPECT_TRUE(lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending);

  windows.inOverwriteDialog = [](OverwriteSession& session) { EXPECT_EQ(session.rowCount(), 2); };
  shell.trigger("ZMSAVE");
  EXPECT_THAT(windows.take(), ElementsAre("Form10"));
}

TEST_F(Shell, ADroppedSaveSaysNothingAndKeepsTheWindow) {
  openChangedDocument();
  lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  windows.inOverwriteDialog = [](OverwriteSession& session) { session.drop(); };
  dialogs.answers = {true};
  EXPECT_FALSE(shell.mayClose(kForm1));
  EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion));
  EXPECT_FALSE(lab.hasProject("P1"));
  EXPECT_TRUE(windows.form1->changed);
  EXPECT_TRUE(lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
}

TEST_F(Shell, RowsThatCannotBeSavedAreNamedInOneBoxAndStayUnsaved) {
  openChangedDocument();
  lab.workspace.TriaxialSampleTable[1] = sample("A/B", "B-1");
  lab.workspace.TriaxialSampleTable[2] = sample("CON", "C-1");
  shell.trigger("ZMSAVE");
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(dialogs.shown[0], kSaved);
  EXPECT_THAT(dialogs.shown[1], HasSubstr("stop [QVB三轴试验数据处理]"));
  EXPECT_THAT(dialogs.shown[1], HasSubstr("A/B"));
  EXPECT_THAT(dialogs.shown[1], HasSubstr("CON"));
  EXPECT_TRUE(lab.hasProject("P1"));
  EXPECT_TRUE(windows.form1->changed);
}

TEST_F(Shell, ASaveThatFailsIsShownAndKeepsTheMark) {
  openChangedDocument();
  loseDataFolder();
  EXPECT_FALSE(shell.save());
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_THAT(dialogs.shown[0], HasSubstr("stop ["));
  EXPECT_TRUE(windows.form1->changed);
}

TEST_F(Shell, ADamagedSummaryFileIsNamedAndTheSamplesCountAsSaved) {
  openChangedDocument();
  lab.folder.write("ZMSJ/KHZP1.txt", "0001");
  dialogs.answers = {true};
  EXPECT_TRUE(shell.mayClose(kForm1)) << "nothing would be lost";
  EXPECT_THAT(dialogs.take(),
              ElementsAre(kQuestion, kSaved, ::testing::AllOf(HasSubstr("stop ["), HasSubstr("KHZP1.txt"))));
  EXPECT_TRUE(lab.hasProject("P1"));
  EXPECT_FALSE(windows.form1->changed);
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

// ---- Closing

TEST_F(Shell, AnUnchangedDocumentClosesWithoutAQuestion) {
  openDocument();
  EXPECT_TRUE(shell.mayClose(kForm1));
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Shell, AChangedDocumentAsksAndClosesAfterEitherAnswer) {
  openChangedDocument();
  dialogs.answers = {false};
  EXPECT_TRUE(shell.mayClose(kForm1));
  EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion));
  EXPECT_FALSE(lab.hasProject("P1"));

  dialogs.answers = {true};
  EXPECT_TRUE(shell.mayClose(kForm1));
  EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion, kSaved));
  EXPECT_TRUE(lab.hasProject("P1"));
}

TEST_F(Shell, AWindowWhoseSaveFailedStays) {
  openChangedDocument();
  loseDataFolder();
  dialogs.answers = {true};
  EXPECT_FALSE(shell.mayClose(kForm1));
}

TEST_F(Shell, AWindowThatIsNotLoadedHasNothingToAsk) { EXPECT_TRUE(shell.mayClose(kForm4)); }

// ---- The end

TEST_F(Shell, ExitGivesTheDocumentItsCloseStepAndEnds) {
  openChangedDocument();
  dialogs.answers = {true};
  EXPECT_TRUE(shell.trigger("ZMEXIT"));
  EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion, kSaved));
  EXPECT_TRUE(lab.hasProject("P1"));
  EXPECT_THAT(windows.take(), ElementsAre("end"));
}

TEST_F(Shell, ADocumentThatCouldNotBeSavedKeepsTheProgramOpen) {
  openChangedDocument();
  loseDataFolder();
  dialogs.answers = {true};
  shell.trigger("ZMEXIT");
  EXPECT_EQ(dialogs.take().size(), 2U) << "the question, and why it could not be saved";
  EXPECT_THAT(windows.take(), IsEmpty());
  EXPECT_TRUE(windows.form1->changed);

  dialogs.answers = {false};
  shell.endProgram();
  EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion)) << "the next try asks again";
  EXPECT_THAT(windows.take(), ElementsAre("end"));
}

TEST_F(Shell, TheMainWindowThatClosesBecauseOfTheEndAsksNotAgain) {
  openChangedDocument();
  dialogs.answers = {false};
  shell.trigger("ZMEXIT");
  shell.endProgram();
  EXPECT_EQ(dialogs.take().size(), 1U);
  EXPECT_THAT(windows.take(), ElementsAre("end"));
}

// ---- Printing

TEST_F(Shell, PrintsTheSampleThatTheCurveWindowHasOnDisplay) {
  openDocument();
  lab.workspace.TriaxialSampleTable[1] = sample("P1", "A-2");
  windows.form1->row = 1;
  FakePageDevices devices;
  devices.printerIsThere = true;
  windows.inPrintDialog = [&](PrintDialogSession& session) {
    session.choose(PrintScope::Current);
    if (session.accept()) session.send(devices);
  };
  for (const char* const command : {"ZMPRINT", "RZMPRINT"}) {
    devices.sent.pages.clear();
    EXPECT_TRUE(shell.trigger(command));
    ASSERT_EQ(devices.sent.pages.size(), 1U) << command;
    EXPECT_THAT(textsWith(devices.sent.pages[0].drawing, "土样编号:"), ElementsAre("土样编号:A-2", "土样编号:A-2"));
  }
}

TEST_F(Shell, WhatHasNoPageIsSaidInTheStatusBar) {
  openDocument();
  windows.form1->row = 500;
  FakePageDevices devices;
  windows.inPrintDialog = [&](PrintDialogSession& session) {
    session.choose(PrintScope::Current);
    session.send(devices);
  };
  shell.trigger("ZMPRINT");
  EXPECT_EQ(shell.statusTexts()[0], "没有可打印的页。");
}

/// A print command with a document in front, the dialog that it opens, and the pages that the dialog is for.
struct PrintCommand {
  ActiveDocument document;
  const char* command;
  const char* dialog;
  const char* title;
  const char* layout;
};

TEST_F(Shell, EachPrintCommandOpensItsDialog) {
  static constexpr std::array kPrintCommands{
      PrintCommand{kForm1, "ZMPRINT", "SETPRINTFORM", "数据打印", "three-in-one"},
      PrintCommand{kForm1, "RZMPRINT", "SETPRINTFORM", "数据打印", "three-in-one"},
      PrintCommand{kForm1, "RZMPRINT1", "SETPRINTFORM3", "数据打印", "chart"},
      PrintCommand{kForm2, "ZMPRINT", "Form30", "打印三轴试验数据表", "triaxial-table"},
      PrintCommand{kForm2, "RZMPRINT", "Form30", "打印三轴试验数据表", "triaxial-table"},
      PrintCommand{kForm7, "ZMPRINT", "Form3", "固结数据表", "consolidation"},
      PrintCommand{kForm7, "RZMPRINT", "Form3", "固结数据表", "consolidation"},
      PrintCommand{kForm4, "ZMPRINT", "Form3", "打印无侧限曲线", "unconfined-curve"},
      PrintCommand{kForm4, "RZMPRINT", "Form3", "打印无侧限曲线", "unconfined-curve"},
      PrintCommand{kForm6, "ZMPRINT", "Form3", "K0曲线数据表", "k0"},
      PrintCommand{kForm6, "RZMPRINT", "Form3", "K0曲线数据表", "k0"},
      PrintCommand{kForm9, "RZMPRINT", "Form3", "打印TK0曲线", "tk0"},
      PrintCommand{kForm9, "PTK0", "SETPRINTFORM0", "数据打印", "tk0-curve"},
  };
  openDocument();
  std::string title, layout;
  windows.inPrintDialog = [&](PrintDialogSession& session) {
    title = session.form().title;
    layout = session.layout().id;
  };
  for (const PrintCommand& row : kPrintCommands) {
    shell.documentActivated(kForm1);
    shell.documentActivated(row.document);
    windows.take();
    EXPECT_TRUE(shell.trigger(row.command)) << row.command << " " << row.document;
    EXPECT_THAT(windows.take(), ElementsAre(row.dialog)) << row.command << " " << row.document;
    EXPECT_EQ(title, row.title);
    EXPECT_EQ(layout, row.layout);
  }
}

TEST_F(Shell, TheTableOfUnconfinedSamplesHasAButtonOfItsOwn) {
  shell.documentActivated(kForm4);
  std::string title, layout;
  windows.inPrintDialog = [&](PrintDialogSession& session) {
    title = session.form().title;
    layout = session.layout().id;
  };
  shell.printTable();
  EXPECT_EQ(title, "打印无侧限曲线");
  EXPECT_EQ(layout, "unconfined-table");
}

TEST_F(Shell, TheFileMenuPrintsNothingOfTK0SamplesButSaysWhatDoes) {
  shell.documentActivated(kForm9);
  ASSERT_TRUE(shell.trigger("ZMPRINT"));
  EXPECT_THAT(windows.take(), IsEmpty());
  EXPECT_THAT(shell.statusTexts()[0], AllOf(HasSubstr("“打印”"), HasSubstr("“打印TK0曲线”")));
}

TEST_F(Shell, PrintingReadsTheLaboratorysHabitsAgain) {
  openDocument();
  lab.folder.write("zmqvb.ini", *utf8ToGbkExactly("[三轴C]2"));
  EXPECT_EQ(lab.workspace.settings.habits.cohesionDecimals, 0);
  shell.trigger("ZMPRINT");
  EXPECT_EQ(lab.workspace.settings.habits.cohesionDecimals, 2);
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
  EXPECT_TRUE(isStarted(lab, shell, "zmgj.exe", "RZMGJ"));
  EXPECT_THAT(windows.raisedTools, ElementsAre("QVB固结（黄土压缩）试验数据处理"));
  EXPECT_TRUE(isStarted(lab, shell, "zmsz8cs", "SAZHOU8")) << "without .exe and in another case";
}

TEST_F(Shell, AMissingToolIsSilent) {
  EXPECT_TRUE(shell.trigger("RZMWL"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
  EXPECT_THAT(windows.raisedTools, ElementsAre("QVB物理试验数据处理")) << "one may run from elsewhere";
}

}  // namespace
}  // namespace triaxlab
