#include "windows/play/script.h"

#include <gtest/gtest.h>

#include "common/user_error.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

TEST(Script, LeavesOutEmptyLinesAndComments) {
  const testing::TemporaryFolder folder;
  const auto lines = readScript(folder.write("a.play", "# head\r\n\r\nmenu NEW\r\n  key F4\n#\nmessages"));
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].number, 3);
  EXPECT_EQ(lines[0].name, "menu");
  EXPECT_EQ(lines[0].rest, "NEW");
  EXPECT_EQ(lines[1].number, 4);
  EXPECT_EQ(lines[1].name, "key");
  EXPECT_EQ(lines[2].name, "messages");
  EXPECT_EQ(lines[2].rest, "");
}

TEST(Script, AByteOrderMarkIsNoText) {
  const testing::TemporaryFolder folder;
  EXPECT_EQ(readScript(folder.write("a.play", "\xEF\xBB\xBFmenu NEW\n")).at(0).name, "menu");
}

TEST(Script, OneThatCantBeReadIsAnError) {
  const testing::TemporaryFolder folder;
  EXPECT_THROW(readScript(folder.path() / "nowhere"), UserError);
  EXPECT_THROW(readScript(folder.path()), UserError);
}

TEST(Arguments, ATextKeepsItsBlanksBehindTheOneThatPartsIt) {
  Arguments arguments("Form1.Text1    数据已修改 ");
  EXPECT_EQ(arguments.word("W.C"), "Form1.Text1");
  EXPECT_EQ(arguments.text(), "   数据已修改 ");
}

TEST(Arguments, AnEmptyTextIsAText) {
  Arguments arguments("Form1.Text1");
  arguments.word("W.C");
  EXPECT_EQ(arguments.text(), "");
}

TEST(Arguments, WhatIsMissingOrTooMuchIsAnError) {
  EXPECT_THROW(Arguments("").word("W.C"), ScriptError);
  EXPECT_THROW(Arguments("x1").number("row"), ScriptError);
  EXPECT_THROW(Arguments("1x").number("row"), ScriptError);
  EXPECT_THROW(Arguments(" more ").end(), ScriptError);
  EXPECT_NO_THROW(Arguments("  ").end());
  EXPECT_EQ(Arguments("-3").number("row"), -3);
}

TEST(Target, AControlArrayIsPartOfTheName) {
  EXPECT_EQ(targetOf("Form1.Text7(0)").window, "Form1");
  EXPECT_EQ(targetOf("Form1.Text7(0)").control, "Text7(0)");
  EXPECT_EQ(targetOf("Form1").control, "");
}

}  // namespace
}  // namespace triaxlab
