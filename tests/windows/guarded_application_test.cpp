#include "windows/guarded_application.h"

#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "lone_application.h"
#include "shell/fault_log.h"
#include "shell/guarded_end.h"
#include "support/temporary_folder.h"
#include "windows/play/person.h"

namespace triaxlab::testing {
namespace {

TEST(GuardedApplication, AnExceptionOutOfAnEventIsHandedOnAndTheLoopGoesOn) {
  GuardedApplication& application = makeApplication();
  std::string met;
  application.onException = [&met](Occasion) { met = thrownText(); };
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

/// Fails when it is painted.
class Unpaintable : public QWidget {
 protected:
  void paintEvent(QPaintEvent* /*event*/) override { throw std::logic_error("no colour"); }
};

TEST(GuardedApplication, AnExceptionOutOfPaintingIsHandedOnWhenThePaintingIsOver) {
  GuardedApplication& application = makeApplication();
  std::vector<std::string> met;
  application.onException = [&met](Occasion occasion) {
    EXPECT_EQ(occasion, Occasion::Itself);
    EXPECT_EQ(QThread::currentThread()->loopLevel(), 1);
    met.push_back(thrownText());
  };
  Unpaintable widget;
  widget.grab();
  EXPECT_TRUE(met.empty()) << "no box can be shown yet";
  QTimer::singleShot(10, &application, [] { QCoreApplication::exit(); });
  QCoreApplication::exec();
  EXPECT_EQ(met, std::vector<std::string>{"std::logic_error: no colour"});
  application.onException = nullptr;
}

TEST(GuardedApplication, TellsTheDeedsOfAPersonFromWhatComesByItself) {
  GuardedApplication& application = makeApplication();
  std::vector<Occasion> met;
  application.onException = [&met](Occasion occasion) { met.push_back(occasion); };
  class Failing : public QWidget {
   protected:
    void mousePressEvent(QMouseEvent* /*event*/) override { throw std::logic_error("pressed"); }
    void mouseMoveEvent(QMouseEvent* /*event*/) override { throw std::logic_error("moved"); }
  } widget;
  widget.setMouseTracking(true);
  moveMouse(&widget, {1, 1}, MouseMotion::Press);
  moveMouse(&widget, {2, 2}, MouseMotion::Move);
  EXPECT_EQ(met, (std::vector<Occasion>{Occasion::Deed, Occasion::Itself}));
  application.onException = nullptr;
}

void endHere(const char* thrown) { std::fprintf(stderr, "triaxlab: %s\n", thrown); }

class LastWords : public ::testing::Test {
 protected:
  TemporaryFolder folder;
  FaultLog log{folder.path()};
  std::string report() const { return folder.read("triaxlab-fault.txt"); }
};

TEST_F(LastWords, WhatTheToolkitSaysIsInTheReport) {
  EXPECT_EXIT(
      {
        noteToolkitMessages(log);
        qCritical("no pixels left");
        std::_Exit(log.write("the fault") ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "no pixels left");
  EXPECT_NE(report().find("no pixels left"), std::string::npos) << report();
}

TEST_F(LastWords, WithWhichTheToolkitEndsTheProgramAreInTheReportOnce) {
  EXPECT_DEATH(
      {
        guardTheEnd(log, endHere);
        noteToolkitMessages(log);
        qFatal("no screen");
      },
      "no screen");
  EXPECT_NE(report().find("\nno screen\n"), std::string::npos) << report();
  EXPECT_EQ(report().find("SIGABRT"), std::string::npos) << report();
}

}  // namespace
}  // namespace triaxlab::testing
