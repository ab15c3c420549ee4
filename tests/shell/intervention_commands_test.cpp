#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/fakes.h"
#include "shell/lab.h"
#include "shell/shell_session.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using testing::FakeDialogs;
using testing::FakeWindows;
using ::testing::IsEmpty;
using testing::Lab;
using testing::sample;

constexpr const char* kLeaving = "! [三轴曲线调整]    曲线已经调整\n保存修改后数据吗？";
constexpr const char* kClosing = "[保存三轴数据]    数据已修改\n保存修改后数据吗？";

class InterventionCommands : public ::testing::Test {
 protected:
  InterventionCommands() {
    lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
    windows.form1.emplace();
    shell.documentActivated(kForm1);
  }
  CommandState state(std::string_view name) const { return shell.commandState(*findCommand(name)); }
  bool isRunning() const { return windows.form1->intervention.running; }

  Lab lab;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
};

TEST_F(InterventionCommands, TheCaptionIsTheState) {
  EXPECT_EQ(state("RZMGANYU").caption, "干预");
  EXPECT_TRUE(shell.trigger("RZMGANYU"));
  EXPECT_TRUE(isRunning());
  EXPECT_EQ(state("RZMGANYU").caption, "退出干预");
  dialogs.answers = {false};
  EXPECT_TRUE(shell.trigger("RZMGANYU"));
  EXPECT_FALSE(isRunning());
  EXPECT_THAT(dialogs.take(), ElementsAre(kLeaving));
  EXPECT_EQ(state("RZMGANYU").caption, "干预");
}

TEST_F(InterventionCommands, ItIsOnForWhatCanBeCorrected) {
  EXPECT_TRUE(state("RZMGANYU").enabled);
  windows.form1->intervention.possible = false;
  EXPECT_FALSE(state("RZMGANYU").enabled);
  EXPECT_FALSE(shell.trigger("RZMGANYU"));
  windows.form1.reset();
  shell.documentClosed(kForm1);
  EXPECT_FALSE(state("RZMGANYU").enabled);
}

TEST_F(InterventionCommands, NothingTakesTheSampleAwayMeanwhile) {
  windows.form1->envelopes.ratioEnabled = true;
  const auto names = {"NEW",     "NEW0",    "DAKAI",   "ZMOPEN", "QUXIAN", "QUXIAN1",   "QUXIAN2",
                      "QUXIAN3", "QUXIAN4", "RQUXIAN", "RZMWL",  "SET0",   "SETUPMIDU", "FILLIN"};
  for (const char* const name : names) EXPECT_TRUE(state(name).enabled) << name;
  shell.trigger("RZMGANYU");
  for (const char* const name : names) EXPECT_FALSE(state(name).enabled) << name;
  for (const char* const name : {"RZMSAVE", "ZMSAVE", "ZMPRINT", "ZMEXIT", "RZMGANYU"})
    EXPECT_TRUE(state(name).enabled) << name;
}

TEST_F(InterventionCommands, ItActsOnTheCurvesBehindOtherWindowsToo) {
  for (const ActiveDocument front : {kForm2, kForm7, kForm4, kNoDocument}) {
    lab.workspace.activeDocument = front;
    windows.form1->intervention.running = false;
    windows.take();
    EXPECT_TRUE(shell.trigger("RZMGANYU")) << front;
    EXPECT_TRUE(isRunning());
    EXPECT_THAT(windows.take(), ElementsAre("raise 1"));
    EXPECT_EQ(lab.workspace.activeDocument, kForm1);
  }
}

TEST_F(InterventionCommands, WithTheTK0WindowInFrontNoneBeginsButARunningOneEnds) {
  shell.documentActivated(kForm9);
  EXPECT_FALSE(shell.trigger("RZMGANYU"));
  EXPECT_FALSE(isRunning());
  windows.form1->intervention.running = true;
  dialogs.answers = {true};
  EXPECT_TRUE(shell.trigger("RZMGANYU"));
  EXPECT_FALSE(isRunning());
  EXPECT_THAT(windows.take(), ElementsAre("raise 1"));
}

TEST_F(InterventionCommands, TheKeyBeginsInTheCurveWindowAndEndsAnywhere) {
  shell.documentActivated(kForm2);
  EXPECT_FALSE(shell.interventionKey());
  shell.documentActivated(kForm1);
  EXPECT_TRUE(shell.interventionKey());
  EXPECT_TRUE(isRunning());
  shell.documentActivated(kForm2);
  dialogs.answers = {true};
  EXPECT_TRUE(shell.interventionKey());
  EXPECT_FALSE(isRunning());
  windows.form1->intervention.possible = false;
  EXPECT_FALSE(shell.interventionKey());
}

TEST_F(InterventionCommands, ClosingAsksForTheWorkFirstAndThenForTheChanges) {
  shell.trigger("RZMGANYU");
  dialogs.answers = {true, false};
  EXPECT_TRUE(shell.mayClose(kForm1));
  EXPECT_THAT(dialogs.take(), ElementsAre(kLeaving, kClosing));
  EXPECT_FALSE(isRunning());
}

TEST_F(InterventionCommands, TheEndOfTheProgramAsksTheSame) {
  shell.trigger("RZMGANYU");
  windows.take();
  dialogs.answers = {false};
  shell.endProgram();
  EXPECT_THAT(dialogs.take(), ElementsAre(kLeaving));
  EXPECT_THAT(windows.take(), ElementsAre("end"));
}

TEST_F(InterventionCommands, ReprocessingActsOnTheCurveWindow) {
  windows.take();
  EXPECT_TRUE(shell.trigger("RQUXIAN"));
  EXPECT_EQ(windows.form1->reprocessed, 1);
  EXPECT_THAT(windows.take(), ElementsAre("raise 1"));
  EXPECT_THAT(dialogs.take(), IsEmpty());
}

}  // namespace
}  // namespace triaxlab
