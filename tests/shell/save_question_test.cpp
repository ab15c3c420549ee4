// What the shell asks when another program has changed the file of the document that is to be saved.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "shell/document_operations.h"
#include "shell/fakes.h"
#include "shell/lab.h"
#include "shell/shell_session.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class SaveQuestion : public ::testing::Test {
 protected:
  /// P1 is open with one sample, and another program has added a second.
  SaveQuestion() {
    lab.writeProject("P1", {sample("P1", "A-1")});
    openDocument(lab.workspace, ProjectKind::Triaxial, "WKSZP1.txt", {});
    windows.form1.emplace();
    windows.form1->changed = true;
    shell.documentActivated(kForm1);
    lab.writeProject("P1", {sample("P1", "A-1"), sample("P1", "A-2")});
    others = file();
  }
  std::string file() const { return lab.folder.read("HSZS/WKSZP1.txt"); }

  Lab lab;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
  std::string others;
};

TEST_F(SaveQuestion, YesSavesOverIt) {
  dialogs.answers = {true};
  EXPECT_TRUE(shell.save());
  EXPECT_THAT(dialogs.take(), ElementsAre(AllOf(StartsWith("! [保存数据]"), HasSubstr("WKSZP1.txt")),
                                          "[保存数据] 三轴试验数据保存完毕"));
  EXPECT_FALSE(windows.form1->changed);
  EXPECT_EQ(file().substr(0, 4), "0002") << "the other's sample stays";
}

TEST_F(SaveQuestion, NoLeavesTheFileAndTheDocumentUnsaved) {
  dialogs.answers = {false};
  EXPECT_FALSE(shell.save());
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("继续保存吗"), HasSubstr("没有保存")));
  EXPECT_TRUE(windows.form1->changed);
  EXPECT_TRUE(file() == others);
  EXPECT_FALSE(folderExists(lab.folder.path() / "HSZS/backup"));
}

}  // namespace
}  // namespace triaxlab::testing
