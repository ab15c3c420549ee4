#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "shell/shell_fixture.h"
#include "support/recording_device.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using testing::FakePageDevices;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::sample;
using testing::Shell;
using testing::textsWith;

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

}  // namespace
}  // namespace triaxlab
