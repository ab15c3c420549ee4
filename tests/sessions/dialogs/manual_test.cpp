#include "sessions/dialogs/manual.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

Manual manualOf(std::map<std::string, std::string, std::less<>> files) {
  return Manual([files = std::move(files)](std::string_view file) { return files.find(file)->second; });
}

const Manual& smallManual() {
  static const Manual kManual = manualOf({
      {"README.md", "# 手册\n\n1. [曲线](curves.md)：各页\n2. [设置](settings.md)，又见[曲线](curves.md)\n"},
      {"curves.md", "# 曲线\n\n按 **F4** 开始。\n\n## 干预\n\n见[设置](settings.md)里的\n`[三轴C]`。\n"},
      {"settings.md", "# 设置\n\n| 键 | 作用 |\n|---|---|\n| Ctrl+S | 保存 |\n"},
  });
  return kManual;
}

std::vector<std::string> titlesOf(const std::vector<ManualHit>& hits) {
  std::vector<std::string> titles;
  for (const ManualHit& hit : hits) titles.push_back(hit.section->title);
  return titles;
}

TEST(Manual, HasItsChaptersInTheOrderOfTheFirstPage) {
  std::vector<std::string> files;
  for (const ManualChapter& chapter : smallManual().chapters()) files.push_back(chapter.file);
  EXPECT_THAT(files, ElementsAre("README.md", "curves.md", "settings.md"));
}

TEST(Manual, KnowsSectionsByChapterAndTitle) {
  ASSERT_NE(smallManual().section("curves.md", "干预"), nullptr);
  EXPECT_EQ(smallManual().section("curves.md", "干预")->level, 2);
  EXPECT_EQ(smallManual().section("settings.md", "干预"), nullptr);
  EXPECT_EQ(smallManual().section("none.md", "干预"), nullptr);
}

TEST(Manual, FindsWordsThatAReaderSees) {
  EXPECT_THAT(titlesOf(smallManual().find("f4")), ElementsAre("曲线"));
  EXPECT_THAT(titlesOf(smallManual().find("  Ctrl+S   保存 ")), ElementsAre("设置"));
  EXPECT_THAT(titlesOf(smallManual().find("三轴c")), ElementsAre("干预"));
  EXPECT_THAT(titlesOf(smallManual().find("settings.md")), ElementsAre()) << "where a link leads is no text";
  EXPECT_THAT(titlesOf(smallManual().find("---")), ElementsAre()) << "nor is the rule of a table";
  EXPECT_THAT(titlesOf(smallManual().find("保存 F4")), ElementsAre()) << "both in one paragraph";
  EXPECT_THAT(smallManual().find(" "), ElementsAre());
}

TEST(Manual, TellsAHitByTheParagraphThatHasAllWords) {
  const auto hits = smallManual().find("见 三轴");
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_EQ(hits[0].excerpt, "见设置里的 [三轴C]。") << "a paragraph goes on over its lines";
}

TEST(Manual, GoesOnWithoutABreakFromOneChineseLineToTheNext) {
  EXPECT_EQ(joinChineseLines("合并的规则和\n损坏的文件。\n"), "合并的规则和损坏的文件。");
  EXPECT_EQ(joinChineseLines("- 一行，\n  又一行\n- 另一项"), "- 一行，又一行\n- 另一项");
  EXPECT_EQ(joinChineseLines("用 Ctrl\n或 Shift"), "用 Ctrl\n或 Shift") << "a blank stands beside Latin letters";
  EXPECT_EQ(joinChineseLines("# 标题\n文字"), "# 标题\n文字");
  EXPECT_EQ(joinChineseLines("一段\n\n又一段"), "一段\n\n又一段");
  EXPECT_EQ(joinChineseLines("    打开文件\n    结束"), "    打开文件\n    结束") << "lines of code stay";
}

}  // namespace
}  // namespace triaxlab::testing
