#include "shell/about.h"

#include <gtest/gtest.h>

#include "shell/lab.h"

namespace triaxlab::testing {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(About, TellsVersionFoldersAndLicences) {
  Lab lab;
  const std::string text = aboutText(lab.workspace, {"1.2.3 (abcdef)", "6.4.2"});
  EXPECT_TRUE(has(text, "版本 1.2.3 (abcdef)"));
  EXPECT_TRUE(has(text, "| 程序文件夹（设置） | " + lab.workspace.applicationFolder.string() + " |"));
  EXPECT_TRUE(has(text, "| 备份 | " + (lab.workspace.projectFolder() / "backup").string() + " |"));
  EXPECT_TRUE(has(text, "| Qt 6 | 窗口、打印 | LGPL-3.0 |"));
  EXPECT_TRUE(has(text, "6.4.2"));
}

TEST(About, SaysWhyNobodyKnowsTheDataFolder) {
  Lab lab;
  lab.workspace.dataFolderProblem = "读取文件 qvb.sys 失败。";
  const std::string text = aboutText(lab.workspace, {"1.2.3", "6.4.2"});
  EXPECT_TRUE(has(text, "| 数据文件夹 | 读取文件 qvb.sys 失败。 |"));
  EXPECT_FALSE(has(text, "成果文件"));
}

TEST(About, LeavesOutACommitThatNobodyKnows) {
  EXPECT_TRUE(programVersion("abcdef").ends_with(" (abcdef)"));
  EXPECT_TRUE(programVersion("").find('(') == std::string::npos);
}

}  // namespace
}  // namespace triaxlab::testing
