#include "store/settings/data_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/user_error.h"
#include "platform/folders.h"
#include "support/posix_only.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::TemporaryFolder;
namespace fs = std::filesystem;

class DataFolder : public ::testing::Test {
 protected:
  DataFolder() { workspace.applicationFolder = folder.path(); }
  /// The sentence with which a folder is refused; empty for one that is taken.
  static std::string refusal(const std::string& typed) {
    try {
      makeDataFolders(chosenDataFolder(typed));
      return {};
    } catch (const UserError& error) {
      return error.what();
    }
  }
  std::string path(const std::string& name) const { return (folder.path() / name).string(); }

  TemporaryFolder folder;
  Workspace workspace;
};

TEST_F(DataFolder, AFolderGetsItsThreeFoldersAndIsStored) {
  fs::create_directory(path("资料"));
  const fs::path chosen = chosenDataFolder("  " + path("资料") + "/ ");
  EXPECT_EQ(chosen, path("资料"));
  makeDataFolders(chosen);
  for (const char* const part : {"HSZS", "ZMSJ", "PTU"}) EXPECT_TRUE(fs::is_directory(chosen / part)) << part;
  EXPECT_EQ(storedDataFolder(workspace), std::nullopt);
  storeDataFolder(workspace, chosen);
  EXPECT_EQ(storedDataFolder(workspace), path("资料"));
  EXPECT_EQ(folder.read("qvb.sys")[6998], '9');
  EXPECT_EQ(folder.read("qvb.sys").size(), 6998U + 170U);
}

TEST_F(DataFolder, FoldersThatAreThereInSmallLettersAreKept) {
  fs::create_directories(path("old/hszs"));
  makeDataFolders(chosenDataFolder(path("old")));
  EXPECT_THAT(listFolders(path("old")), ElementsAre("hszs", "PTU", "ZMSJ"));
}

TEST_F(DataFolder, WhatIsNoFolderToWriteToIsRefused) {
  folder.write("file", "x");
  EXPECT_THAT(refusal(""), HasSubstr("没有写数据放在哪个文件夹"));
  EXPECT_EQ(refusal("data"), "“data”不是完整的文件夹名，请从" + std::string(beginningOfWholeNames()) + "写起。");
  EXPECT_THAT(refusal(path("file")), HasSubstr("是一个文件，不是文件夹"));
  EXPECT_THAT(refusal(path("gone")), HasSubstr("没有文件夹"));
  EXPECT_THAT(refusal(path("gone/deeper")), HasSubstr("没有文件夹"));
  EXPECT_THAT(refusal(path(std::string(170, 'x'))), HasSubstr("太长"));
}

TEST_F(DataFolder, AFolderThatOnlyTheSystemFillsIsRefused) {
  POSIX_ONLY("the folder /proc");
  EXPECT_THAT(refusal("/proc"), HasSubstr("/proc"));
}

TEST_F(DataFolder, AFullNameBeginsAsTheSystemHasIt) {
#ifdef _WIN32
  // Without a drive it would be a folder of the drive, or in the folder, that the program happens to be in.
  for (const char* const name : {"\\data", "/data", "d:data", "\\\\server"})
    EXPECT_THAT(refusal(name), HasSubstr("请从盘符（如“D:\\”）或“\\\\服务器\\共享文件夹”写起")) << name;
  EXPECT_THAT(refusal("x:\\data"), HasSubstr("没有文件夹“x:\\data”"));
  EXPECT_EQ(chosenDataFolder("c:\\"), fs::path("c:\\"));
#else
  EXPECT_THAT(refusal("c:\\data"), HasSubstr("请从“/”写起"));
#endif
}

TEST_F(DataFolder, APartOfADataFolderIsRefused) {
  POSIX_ONLY("links");
  fs::create_directories(path("lab/hszs/backup"));
  EXPECT_THAT(refusal(path("lab/hszs")), HasSubstr("请选它们上面的文件夹"));
  EXPECT_THAT(refusal(path("lab/hszs/backup")), HasSubstr("请选它们上面的文件夹"));
  fs::create_directory_symlink(path("lab/hszs"), path("link"));
  EXPECT_THAT(refusal(path("link")), HasSubstr("请选它们上面的文件夹")) << "by another name";
  EXPECT_EQ(refusal(path("lab")), "");
}

TEST_F(DataFolder, AFileOrALinkInThePlaceOfAPartIsRefused) {
  POSIX_ONLY("links");
  fs::create_directory(path("a"));
  folder.write("a/ZMSJ", "x");
  EXPECT_THAT(refusal(path("a")), HasSubstr("ZMSJ"));
  fs::create_directories(path("b"));
  fs::create_directories(path("elsewhere"));
  fs::create_directory_symlink(path("elsewhere"), path("b/HSZS"));
  EXPECT_THAT(refusal(path("b")), HasSubstr("HSZS"));
}

}  // namespace
}  // namespace triaxlab
