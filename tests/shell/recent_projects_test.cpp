#include "shell/recent_projects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "shell/shell_fixture.h"
#include "store/settings/source_folders.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kFile = "triaxlab-recent.json";

std::vector<std::string> namesOf(const RecentProjects& recent) {
  std::vector<std::string> names;
  for (const RecentProject& project : recent.projects()) names.push_back(project.fileName);
  return names;
}

class Recent : public ::testing::Test {
 protected:
  /// What the next run finds.
  RecentProjects recent() const { return RecentProjects(folder.path()); }

  TemporaryFolder folder;
};

TEST_F(Recent, TheNewestStandsInFrontAndEachOnlyOnce) {
  RecentProjects noted = recent();
  for (const char* const name : {"WKSZP1.txt", "WKSZP2.txt", "WKSZP1.txt"})
    noted.note(ProjectKind::Triaxial, name, "/lab");
  EXPECT_THAT(namesOf(recent()), ElementsAre("WKSZP1.txt", "WKSZP2.txt"));
}

TEST_F(Recent, TenAreKept) {
  RecentProjects noted = recent();
  for (int i = 1; i <= 12; ++i) noted.note(ProjectKind::K0, "K0" + std::to_string(i) + ".txt", "/lab");
  EXPECT_THAT(recent().projects(), SizeIs(10));
  EXPECT_EQ(recent().projects().front().fileName, "K012.txt");
}

TEST_F(Recent, AFileThatIsNoneOfOursCountsAsNone) {
  for (const char* const content : {"", "{", "[1, 2]", "\xFF\xFE", R"({"projects": 7})",
                                    R"({"projects": [{"kind": "none", "file": "a", "folder": "/lab"}]})",
                                    R"({"projects": [{"kind": "triaxial", "file": "../a", "folder": "/lab"}]})"}) {
    folder.write(kFile, content);
    EXPECT_THAT(recent().projects(), IsEmpty()) << content;
  }
}

TEST_F(Recent, AnEntryThatMakesNoSenseDoesNotTakeTheOthersWithIt) {
  folder.write(kFile, R"({"projects": [3, {"kind": "triaxial", "file": "WKSZP1.txt", "folder": "/lab"}]})");
  EXPECT_THAT(namesOf(recent()), ElementsAre("WKSZP1.txt"));
}

TEST_F(Recent, WhatCannotBeReadIsNotWrittenOver) {
  std::filesystem::create_directory(folder / kFile);
  RecentProjects noted = recent();
  EXPECT_NO_THROW(noted.note(ProjectKind::Triaxial, "WKSZP1.txt", "/lab"));
  EXPECT_TRUE(std::filesystem::is_directory(folder / kFile));
}

// ---- in the program

TEST_F(Shell, AProjectThatWasSavedIsOpenedAgainFromTheRecentOnes) {
  openChangedDocument();
  ASSERT_TRUE(shell.trigger("ZMSAVE"));
  EXPECT_EQ(shell.commandState(*findCommand("RECENT1")).caption, "WKSZP1.txt");
  lab.workspace.TriaxialSampleTable[0] = {};
  EXPECT_TRUE(shell.trigger("RECENT1"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].sampleNo.trimmed(), "A-1");
}

TEST_F(Shell, ARecentProjectThatIsGoneIsToldOnceAndThenOff) {
  openDocument();
  shell.trigger("ZMSAVE");
  dialogs.take();
  std::filesystem::remove(lab.folder.path() / "HSZS" / "WKSZP1.txt");
  EXPECT_TRUE(shell.trigger("RECENT1"));
  EXPECT_THAT(dialogs.take(), SizeIs(1));
  EXPECT_FALSE(isOn("RECENT1"));
}

TEST_F(Shell, TheTitleTellsTheProjectTheDataFolderAndUnsavedChanges) {
  const std::string folder = lab.workspace.dataFolder.string();
  EXPECT_EQ(shell.title(), "QVB三轴试验数据处理 - " + folder);
  openDocument();
  EXPECT_EQ(shell.title(), "QVB三轴试验数据处理 - P1 - " + folder);
  windows.form1->changed = true;
  EXPECT_EQ(shell.title(), "QVB三轴试验数据处理 - P1 - " + folder + " *");
}

TEST_F(Shell, TheStartPageTellsWhereThereAreDataToImport) {
  lab.workspace.winTriaxialDatxFolder = "/nowhere";
  const std::vector<StartSection> page = shell.startPage();
  ASSERT_THAT(page, SizeIs(3)) << "no recent project yet";
  const std::vector<StartEntry>& sources = page[1].entries;
  EXPECT_EQ(page[1].heading, "读入原始数据，也可以把文件拖进来");
  const auto datx = std::ranges::find(sources, "OWINSZDAT", &StartEntry::command);
  ASSERT_NE(datx, sources.end());
  EXPECT_EQ(datx->detail, "没有文件夹 /nowhere");
}

TEST_F(Shell, TheStartPageTellsWhetherTheDatabaseIsThere) {
  storeSourceFolder(lab.workspace, sourceFolderOf(1), lab.folder.path().string());
  const auto detail = [this] {
    const std::vector<StartSection> page = shell.startPage();
    return std::ranges::find(page[1].entries, "NEWSZ", &StartEntry::command)->detail;
  };
  EXPECT_EQ(detail(), lab.folder.path().string() + " 中没有 HSZSJ.KU");
  lab.folder.write("HSZSJ.KU", "");
  EXPECT_EQ(detail(), lab.folder.path().string() + " 中有 HSZSJ.KU");
}

}  // namespace
}  // namespace triaxlab::testing
