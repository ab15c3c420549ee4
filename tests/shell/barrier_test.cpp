#include "shell/barrier.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "shell/fakes.h"
#include "shell/lab.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kOffer = "! [QVB三轴试验数据处理] 现在保存数据吗？";

class BarrierTest : public ::testing::Test {
 protected:
  BarrierTest() {
    lab.workspace.TriaxialSampleTable[0] = testing::sample("P1", "A-1");
    windows.form1.emplace();
    shell.onCommand = [this](std::string_view name) { log.noteCommand(name); };
  }
  template <class Exception>
  void meet(Exception exception, Occasion occasion = Occasion::Deed) {
    try {
      throw exception;
    } catch (...) {
      barrier.caught(occasion);
    }
  }
  void meetFault(Occasion occasion = Occasion::Deed) { meet(std::out_of_range("no such row"), occasion); }
  bool hasReport() const { return fileExists(log.file()); }
  std::string report() const { return lab.folder.read(log.file().filename().string()); }

  testing::Lab lab;
  testing::FakeDialogs dialogs;
  testing::FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
  FaultLog log{lab.workspace.applicationFolder};
  Barrier barrier{dialogs, shell, log};
};

TEST_F(BarrierTest, WhatNobodyExpectedIsToldAndTheSaveOffered) {
  dialogs.answers = {true};
  meetFault();
  ASSERT_EQ(dialogs.shown.size(), 3U);
  EXPECT_THAT(dialogs.shown[0], StartsWith("stop [QVB三轴试验数据处理] 程序出现意外的错误"));
  EXPECT_THAT(dialogs.shown[0], HasSubstr("no such row"));
  EXPECT_THAT(dialogs.shown[0], HasSubstr(log.file().string()));
  EXPECT_EQ(dialogs.shown[1], kOffer);
  EXPECT_EQ(dialogs.shown[2], "[保存数据] 三轴试验数据保存完毕");
  EXPECT_TRUE(lab.hasProject("P1"));
}

TEST_F(BarrierTest, WithoutASaveTheTablesStayAsTheyAre) {
  dialogs.answers = {false};
  meetFault();
  EXPECT_EQ(dialogs.shown.size(), 2U);
  EXPECT_FALSE(lab.hasProject("P1"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].sampleNo.trimmed(), "A-1");
}

TEST_F(BarrierTest, TheReportTellsVersionFaultCommandsAndMessagesAndNoReadings) {
  shell.trigger("RZMFILE");
  shell.trigger("ZMQVB");
  log.noteMessage("a font is missing");
  dialogs.answers = {false};
  meetFault();
  EXPECT_THAT(report(), HasSubstr("triaxlab 0."));
  EXPECT_THAT(report(), HasSubstr("std::out_of_range: no such row"));
  EXPECT_THAT(report(), HasSubstr("RZMFILE"));
  EXPECT_THAT(report(), HasSubstr("a font is missing"));
  EXPECT_THAT(report(), Not(HasSubstr("A-1")));
}

TEST_F(BarrierTest, EachFaultAddsToTheReport) {
  dialogs.answers = {false, false};
  meetFault();
  const std::string first = report();
  meet(std::bad_alloc());
  EXPECT_THAT(report(), StartsWith(first));
  EXPECT_THAT(report(), HasSubstr("内存不足"));
}

TEST_F(BarrierTest, AnythingCanBeThrown) {
  dialogs.answers = {false};
  meet(7);
  EXPECT_THAT(dialogs.shown[0], HasSubstr("（int）"));
}

TEST_F(BarrierTest, AUserErrorIsShownLikeAnyOther) {
  meet(UserError("打开项目", "文件 A 不能读取。"));
  EXPECT_THAT(dialogs.shown, ElementsAre("stop [打开项目] 文件 A 不能读取。"));
  EXPECT_FALSE(hasReport());
}

TEST_F(BarrierTest, AFaultThatComesBackByItselfIsToldAndWrittenOnceForEachCommand) {
  dialogs.answers = {false, false};
  meetFault(Occasion::Itself);
  const std::string once = report();
  for (int i = 0; i < 5; ++i) meetFault(Occasion::Itself);
  EXPECT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(report(), once);
  shell.trigger("RZMFILE");
  meetFault(Occasion::Itself);
  EXPECT_EQ(dialogs.shown.size(), 4U);
}

TEST_F(BarrierTest, WhoTriesAgainIsToldAgain) {
  dialogs.answers = {false, false};
  meetFault();
  meetFault();
  EXPECT_EQ(dialogs.shown.size(), 4U);
}

TEST_F(BarrierTest, WithoutADocumentNoSaveIsOffered) {
  windows.form1.reset();
  meetFault();
  EXPECT_EQ(dialogs.shown.size(), 1U);
}

TEST_F(BarrierTest, ASaveThatFailsTooIsTold) {
  windows.inOverwriteDialog = [](OverwriteSession&) { throw std::logic_error("the second"); };
  lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  dialogs.answers = {true};
  meetFault();
  ASSERT_EQ(dialogs.shown.size(), 3U);
  EXPECT_THAT(dialogs.shown[2], HasSubstr("保存没有完成（std::logic_error: the second）"));
  EXPECT_THAT(report(), HasSubstr("the second"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].sampleNo.trimmed(), "A-1");
}

/// Something throws while the box is on the screen.
class TroubledDialogs : public testing::FakeDialogs {
 public:
  std::function<void()> underTheBox = [] {};
  void message(std::string_view title, std::string_view text, MessageIcon icon) override {
    FakeDialogs::message(title, text, icon);
    std::exchange(underTheBox, [] {})();
  }
};

TEST_F(BarrierTest, AFaultUnderTheBoxIsOnlyWrittenDown) {
  TroubledDialogs troubled;
  troubled.answers = {false};
  Barrier inTrouble(troubled, shell, log);
  const auto fail = [&](const char* words) {
    try {
      throw std::logic_error(words);
    } catch (...) {
      inTrouble.caught(Occasion::Deed);
    }
  };
  troubled.underTheBox = [&] { fail("second"); };
  fail("first");
  EXPECT_EQ(troubled.shown.size(), 2U);
  EXPECT_THAT(report(), HasSubstr("first"));
  EXPECT_THAT(report(), HasSubstr("second"));
}

TEST_F(BarrierTest, AReportThatCannotBeWrittenIsNotPromised) {
  FaultLog nowhere(lab.folder.path() / "gone");
  Barrier silent(dialogs, shell, nowhere);
  dialogs.answers = {false};
  try {
    throw std::logic_error("words");
  } catch (...) {
    silent.caught(Occasion::Deed);
  }
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_THAT(dialogs.shown[0], Not(HasSubstr("gone")));
}

}  // namespace
}  // namespace triaxlab
