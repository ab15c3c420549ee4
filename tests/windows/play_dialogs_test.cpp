#include "windows/play/play_dialogs.h"

#include <gtest/gtest.h>

namespace triaxlab {
namespace {

using Reply = PlayDialogs::Reply;

TEST(PlayDialogs, AnswersComeInTheirOrder) {
  PlayDialogs dialogs;
  dialogs.queueReply(Reply::No);
  dialogs.queueReply(Reply::Yes);
  EXPECT_FALSE(dialogs.ask("t", "first", MessageIcon::None));
  EXPECT_TRUE(dialogs.ask("t", "second\nline", MessageIcon::None));
  EXPECT_EQ(dialogs.takeNotes(), (std::vector<std::string>{"[t] first", "[t] second\\nline"}));
  EXPECT_TRUE(dialogs.takeNotes().empty());
  EXPECT_FALSE(dialogs.takeFailure());
}

TEST(PlayDialogs, FilesAndInputsHaveQueuesOfTheirOwn) {
  PlayDialogs dialogs;
  dialogs.queueFile("a.KU");
  dialogs.queueFile(std::nullopt);
  dialogs.queueInput("1.50");
  EXPECT_EQ(dialogs.input("t", "p", "1.00"), "1.50");
  EXPECT_EQ(dialogs.chooseFile({}), "a.KU");
  EXPECT_EQ(dialogs.chooseFileToSave({}), std::nullopt);
  EXPECT_FALSE(dialogs.takeFailure());
}

TEST(PlayDialogs, ABoxWithoutAnAnswerFailsAndIsAnsweredWithNo) {
  PlayDialogs dialogs;
  EXPECT_FALSE(dialogs.ask("保存", "吗？", MessageIcon::None));
  EXPECT_NE(dialogs.takeFailure().value_or("").find("[保存] 吗？"), std::string::npos);
  EXPECT_EQ(dialogs.chooseFile({.title = "打开", .filter = "", .initial = {}}), std::nullopt);
  EXPECT_NE(dialogs.takeFailure().value_or("").find("[打开]"), std::string::npos);
  EXPECT_EQ(dialogs.input("步长", "", ""), std::nullopt);
  EXPECT_TRUE(dialogs.takeFailure());
}

TEST(PlayDialogs, AnAnswerThatTheBoxDoesNotOfferFails) {
  PlayDialogs dialogs;
  dialogs.queueReply(Reply::Yes);
  dialogs.message("t", "only OK here", MessageIcon::None);
  EXPECT_TRUE(dialogs.takeFailure());
  dialogs.queueReply(Reply::OK);
  dialogs.ask("t", "Yes or No", MessageIcon::None);
  EXPECT_TRUE(dialogs.takeFailure());
}

}  // namespace
}  // namespace triaxlab
