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

}  // namespace
}  // namespace triaxlab
