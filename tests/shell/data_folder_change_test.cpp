// Going over to another data folder from the window of the laboratory's habits.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "shell/document_operations.h"
#include "shell/fakes.h"
#include "shell/lab.h"
#include "shell/shell_session.h"
#include "shell/start_up.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

class DataFolderChange : public ::testing::Test {
 protected:
  DataFolderChange() {
    windows.inHabits = [](HabitsSession& session) { session.changeDataFolder(); };
    windows.inSourceFolder = [this](SourceFolderSession& session) {
      before = session.text();
      session.setText(textOfPath(chosen));
      accepted = session.accept();
    };
    fs::create_directory(other);
  }
  void openP1(bool changed = false) {
    lab.writeProject("P1", {sample("P1", "A-1")});
    openDocument(lab.workspace, ProjectKind::Triaxial, "WKSZP1.txt", {});
    windows.form1.emplace();
    windows.form1->changed = changed;
    shell.documentActivated(kForm1);
  }
  /// Where the next start looks for its data.
  fs::path folderOfNextStart() const {
    Workspace next;
    next.applicationFolder = lab.workspace.applicationFolder;
    startUp(next);
    return next.dataFolder;
  }

  Lab lab;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
  fs::path other = lab.folder.path() / "资料", chosen = other;
  std::string before;
  bool accepted = false;
};

TEST_F(DataFolderChange, TheNewFolderHoldsForThisRunAndTheNextOnes) {
  lab.writeProject("P1", {sample("P1", "A-1")});
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_EQ(before, textOfPath(lab.folder.path()));
  EXPECT_TRUE(accepted);
  EXPECT_EQ(lab.workspace.dataFolder, other);
  EXPECT_EQ(folderOfNextStart(), other);
  for (const char* const part : {"HSZS", "ZMSJ", "PTU"}) EXPECT_TRUE(fs::is_directory(other / part)) << part;
  EXPECT_TRUE(lab.hasProject("P1")) << "nothing is moved";
  EXPECT_FALSE(fs::exists(other / "HSZS/WKSZP1.txt"));
  EXPECT_THAT(shell.statusTexts()[0], HasSubstr(textOfPath(other)));
}

TEST_F(DataFolderChange, WhatWasWarnedOfTheFolderBeforeGoes) {
  shell.warn({}, {"数据文件夹不在"});
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_EQ(shell.warnings(), Remarks{});
}

TEST_F(DataFolderChange, AFolderThatCannotBeTakenChangesNothing) {
  chosen = other / "gone";
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_FALSE(accepted) << "the window stays";
  EXPECT_THAT(dialogs.shown, ElementsAre(HasSubstr("没有文件夹")));
  EXPECT_EQ(lab.workspace.dataFolder, lab.folder.path());
  EXPECT_EQ(folderOfNextStart(), lab.folder.path());
}

TEST_F(DataFolderChange, UnsavedChangesAreAskedAboutAndSavedWhereTheyBelong) {
  openP1(true);
  SetText(lab.workspace.TriaxialSampleTable[0].soilName, "clay");
  dialogs.answers = {true};
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_THAT(dialogs.take(), Contains("[保存三轴数据]    数据已修改\n保存修改后数据吗？"));
  EXPECT_THAT(lab.folder.read("HSZS/WKSZP1.txt"), HasSubstr("clay"));
  EXPECT_FALSE(fs::exists(other / "HSZS/WKSZP1.txt"));
  EXPECT_EQ(lab.workspace.dataFolder, other);
}

TEST_F(DataFolderChange, ADocumentThatCannotBeSavedKeepsTheFolder) {
  openP1(true);
  lab.folder.write("HSZS/WKSZP1.txt", "cut");
  dialogs.answers = {true, true};  // save, over the other's change
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_FALSE(accepted);
  EXPECT_EQ(lab.workspace.dataFolder, lab.folder.path());
  EXPECT_FALSE(fs::exists(other / "HSZS"));
}

TEST_F(DataFolderChange, TheWindowThatIsOpenFollows) {
  openP1();
  windows.take();
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_THAT(windows.take(), ElementsAre("HABITSFORM", "Form5", "load 1", "raise 1"));
  EXPECT_TRUE(shell.save());
  EXPECT_TRUE(fs::exists(other / "HSZS/WKSZP1.txt"));
}

TEST_F(DataFolderChange, AFileThatTheNewFolderHasAlreadyIsNotWrittenOverUnasked) {
  openP1();
  fs::create_directories(other / "HSZS");
  fs::copy(lab.folder.path() / "HSZS/WKSZP1.txt", other / "HSZS/WKSZP1.txt");
  EXPECT_TRUE(shell.trigger("HABITS"));
  dialogs.take();
  dialogs.answers = {false};
  EXPECT_FALSE(shell.save());
  EXPECT_THAT(dialogs.take(), Contains(HasSubstr("继续保存吗")));
}

TEST_F(DataFolderChange, TheFolderThatIsInUseIsTakenInSilence) {
  openP1(true);
  chosen = lab.folder.path();
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_TRUE(accepted);
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(DataFolderChange, AnUnknownFolderIsNotLeft) {
  lab.workspace.dataFolderProblem = "qvb.sys 不能读。";
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_FALSE(accepted);
  EXPECT_FALSE(fs::exists(other / "HSZS"));
}

TEST(HabitsCommand, WhatIsSavedHoldsAtOnce) {
  Lab lab;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
  windows.inHabits = [](HabitsSession& session) {
    for (int row = 1; row <= session.rowCount(); ++row)
      if (session.cell(row, 1) == "[工程编号]") session.chooseRow(row);
    session.setText("合同号");
    session.save();
  };
  EXPECT_TRUE(shell.trigger("HABITS"));
  EXPECT_EQ(lab.workspace.settings.habits.projectNoLabel, "合同号");
}

}  // namespace
}  // namespace triaxlab::testing
