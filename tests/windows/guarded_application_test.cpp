#include "windows/guarded_application.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <functional>
#include <stdexcept>

#include "lone_application.h"
#include "shell/fault_log.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

TEST(GuardedApplication, AnExceptionOutOfAnEventIsHandedOnAndTheLoopGoesOn) {
  GuardedApplication& application = makeApplication();
  std::string met;
  application.onException = [&met] { met = thrownText(); };
  bool wentOn = false;
  QTimer::singleShot(0, &application, [] { throw std::out_of_range("no such row"); });
  QTimer::singleShot(1, &application, [&wentOn] {
    wentOn = true;
    QCoreApplication::exit(3);
  });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  EXPECT_TRUE(wentOn);
  EXPECT_EQ(met, "std::out_of_range: no such row");
  application.onException = nullptr;
}

void fallThrough(const std::function<void()>& operation) noexcept { operation(); }

class LastWords : public ::testing::Test {
 protected:
  TemporaryFolder folder;
  FaultLog log{folder.path()};
  std::string report() const { return folder.read("triaxlab-fault.txt"); }
};

TEST_F(LastWords, WhatTheToolkitSaysIsInTheReport) {
  EXPECT_EXIT(
      {
        noteLastWords(log);
        qCritical("no pixels left");
        std::_Exit(log.write("the fault") ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "no pixels left");
  EXPECT_NE(report().find("no pixels left"), std::string::npos) << report();
}

TEST_F(LastWords, AnExceptionThatNobodyCatchesIsInTheReport) {
  EXPECT_DEATH(
      {
        noteLastWords(log);
        fallThrough([] { throw std::logic_error("never"); });
      },
      "triaxlab: std::logic_error: never");
  EXPECT_NE(report().find("std::logic_error: never"), std::string::npos) << report();
}

}  // namespace
}  // namespace triaxlab::testing
