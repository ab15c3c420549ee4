#include "shell/demonstration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/recent_projects.h"
#include "shell/shell_fixture.h"
#include "store/settings/source_folders.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

namespace fs = std::filesystem;

class Demonstration : public Shell {
 protected:
  void prepare() const { prepareDemonstration(folder, fs::path(TRIAXLAB_SAMPLES)); }
  fs::path project(const char* name) const { return folder / "HSZS" / name; }

  const fs::path folder = demonstrationFolder(lab.folder.path());
};

TEST_F(Demonstration, HasProjectsOfEveryTestAndDatabasesToImport) {
  prepare();
  for (const char* name : {"WKSZ2024-018.txt", "WKSZDT2-07.txt", "KWCX2024A3.txt", "KO2024K2.txt", "TKO2024T1.txt"})
    EXPECT_TRUE(fileExists(project(name))) << name;
  Workspace workspace;
  workspace.applicationFolder = folder;
  startUp(workspace);
  EXPECT_EQ(workspace.dataFolder, folder);
  for (const SourceFolder& source : kSourceFolders)
    EXPECT_TRUE(folderExists(pathFromText(storedSourceFolder(workspace, source)))) << source.prompt;
  EXPECT_TRUE(fileExists(pathFromText(storedSourceFolder(workspace, sourceFolderOf(8))) / "KGJYBXL2.TB"));
  RecentProjects recent(folder);
  EXPECT_THAT(recent.projects(), SizeIs(6));
  EXPECT_EQ(recent.projects().front().fileName, "WKSZ2024-018.txt");
  EXPECT_THAT(startWarnings(workspace), ElementsAre(HasSubstr("这是演示")));
}

TEST_F(Demonstration, LeavesTheLaboratorysOwnFilesAlone) {
  lab.writeProject("P7", {sample("P7", "A-1")});
  const std::string settings = lab.folder.read("qvb.sys");
  prepare();
  EXPECT_EQ(lab.folder.read("qvb.sys"), settings);
  EXPECT_FALSE(lab.hasProject("2024-018"));
  EXPECT_THAT(startWarnings(lab.workspace), SizeIs(0));
}

TEST_F(Demonstration, KeepsWhatSomebodyHasMadeOfIt) {
  prepare();
  lab.folder.write("demonstration/HSZS/WKSZ2024-018.txt", "mine");
  fs::remove(project("KO2024K2.txt"));
  prepare();
  EXPECT_EQ(lab.folder.read("demonstration/HSZS/WKSZ2024-018.txt"), "mine");
  EXPECT_TRUE(fileExists(project("KO2024K2.txt"))) << "of a kind without projects they are made anew";
}

TEST_F(Demonstration, IsStartedBesideTheProgram) {
  EXPECT_TRUE(shell.trigger("DEMO"));
  EXPECT_THAT(windows.take(), ElementsAre("start " + folder.string()));
  EXPECT_EQ(shell.statusTexts()[0], "演示在另一个窗口里打开。");
  lab.workspace.applicationFolder = folder;
  EXPECT_TRUE(shell.trigger("DEMO"));
  EXPECT_THAT(windows.take(), SizeIs(0));
  EXPECT_EQ(shell.statusTexts()[0], "现在打开的就是演示。");
}

TEST_F(Demonstration, TellsWhenItsDatabasesAreMissing) {
  try {
    prepareDemonstration(folder, lab.folder.path() / "nowhere");
    FAIL();
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), HasSubstr("没有演示数据的文件夹"));
  }
}

}  // namespace
}  // namespace triaxlab::testing
