// How large the windows open, what a person makes of it, and what the next run knows of that.

#include <gtest/gtest.h>

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <cstdlib>
#include <memory>

#include "lone_application.h"
#include "shell/lab.h"
#include "shell/window_memory.h"
#include "windows/controls/scaled_window.h"
#include "windows/main_window.h"
#include "windows/play/play_dialogs.h"

namespace triaxlab::testing {
namespace {

class Frames : public ::testing::Test {
 protected:
  Frames() {
    makeApplication();
    start();
  }

  /// The program as it comes up in the folder of its settings.
  void start() {
    window.reset();
    memory = std::make_unique<WindowMemory>(lab.folder.path());
    window = std::make_unique<MDIForm1>(lab.workspace, dialogs, memory.get());
    window->show();
  }
  /// The area in which the documents lie gets this size.
  void giveArea(int width, int height) const {
    window->resize(window->size() - area()->size() + QSize(width, height));
    QCoreApplication::processEvents();
    ASSERT_EQ(area()->size(), QSize(width, height));
  }
  void press(const char* command) const { window->findChild<QAction*>(command)->trigger(); }
  QMdiArea* area() const { return window->findChild<QMdiArea*>(); }
  ScaledWindow* document(const char* name) const { return window->findChild<ScaledWindow*>(name); }
  static QMdiSubWindow* frameOf(ScaledWindow* content) { return qobject_cast<QMdiSubWindow*>(content->parentWidget()); }

  Lab lab;
  PlayDialogs dialogs;
  std::unique_ptr<WindowMemory> memory;
  std::unique_ptr<MDIForm1> window;
};

/// The frame lies in the area and leaves nothing of it free in one direction.
void expectFilled(const QMdiSubWindow& frame, QSize room) {
  EXPECT_LE(frame.width(), room.width());
  EXPECT_LE(frame.height(), room.height());
  EXPECT_LE(std::min(room.width() - frame.width(), room.height() - frame.height()), 1)
      << frame.width() << " x " << frame.height();
}

TEST_F(Frames, ADocumentOpensAsLargeAsTheAreaAllows) {
  giveArea(1900, 980);
  press("NEW");
  ScaledWindow* const form = document("Form1");
  expectFilled(*frameOf(form), {1900, 980});
  // 15600 by 9000 twips.
  EXPECT_NEAR(form->width() / form->scale(), 1040, 1);
  EXPECT_NEAR(form->height() / form->scale(), 600, 1);
  EXPECT_GT(form->scale(), 1.5);
}

TEST_F(Frames, NoDocumentIsLargerThanThreeTimesItsNaturalSizeNorSmallerThanEightTenths) {
  giveArea(6000, 6000);
  press("NEW");
  EXPECT_EQ(document("Form1")->size(), QSize(3 * 1040, 3 * 600));
  giveArea(500, 300);
  EXPECT_EQ(document("Form1")->size(), QSize(832, 480));
}

TEST_F(Frames, DocumentsGoAlongWithTheMainWindow) {
  giveArea(1200, 700);
  press("NEW");
  press("NEW1");
  giveArea(2000, 1100);
  expectFilled(*frameOf(document("Form1")), {2000, 1100});
  expectFilled(*frameOf(document("Form4")), {2000, 1100});
}

TEST_F(Frames, WhatThePersonMadeOfAFrameStays) {
  giveArea(2000, 1100);
  press("NEW");
  frameOf(document("Form1"))->resize(1300, 800);
  giveArea(1900, 1000);
  EXPECT_EQ(frameOf(document("Form1"))->size(), QSize(1300, 800));
}

TEST_F(Frames, TheNextRunOpensADocumentAtTheScaleThatItHad) {
  giveArea(2000, 1100);
  press("NEW");
  QMdiSubWindow* const frame = frameOf(document("Form1"));
  frame->resize(frame->size() - document("Form1")->size() + QSize(1300, 800));  // 1.25 of 1040, 1.33 of 600
  window->close();
  start();
  giveArea(2000, 1100);
  press("NEW");
  EXPECT_EQ(document("Form1")->size(), QSize(1300, 750));
  // Another kind of document is another choice.
  press("NEW1");
  expectFilled(*frameOf(document("Form4")), {2000, 1100});
}

TEST_F(Frames, AChosenScaleGivesWayWhereThereIsNoRoom) {
  memory->setScale("Form1", 2);
  giveArea(1300, 800);
  press("NEW");
  expectFilled(*frameOf(document("Form1")), {1300, 800});
  giveArea(3000, 2000);
  EXPECT_EQ(document("Form1")->size(), QSize(2080, 1200));
}

TEST_F(Frames, AFrameDrawnOverTheWholeAreaGoesAlongAgain) {
  memory->setScale("Form1", 1);
  giveArea(1300, 800);
  press("NEW");
  frameOf(document("Form1"))->resize(1300, 800);
  frameOf(document("Form1"))->close();
  EXPECT_EQ(memory->scaleOf("Form1"), std::nullopt);
}

TEST_F(Frames, TheCommandGivesADocumentAllTheRoomAgain) {
  memory->setScale("Form1", 1);
  giveArea(1300, 800);
  press("NEW");
  QMdiSubWindow* const frame = frameOf(document("Form1"));
  frame->resize(900, 700);
  frame->move(200, 100);
  press("FITWINDOW");
  expectFilled(*frame, {1300, 800});
  EXPECT_EQ(frame->pos(), QPoint(0, 0));
  giveArea(1200, 700);
  expectFilled(*frame, {1200, 700});
  EXPECT_EQ(memory->scaleOf("Form1"), std::nullopt);
}

TEST_F(Frames, TheMainWindowComesBackAsItWasLeft) {
  EXPECT_EQ(window->size(), QSize(1120, 760));
  window->close();
  start();
  EXPECT_EQ(window->size(), QSize(1120, 760));
  EXPECT_EQ(memory->mainWindow(), std::nullopt);  // nobody chose
  window->resize(1500, 900);
  window->close();
  start();
  EXPECT_EQ(window->size(), QSize(1500, 900));
  window->showMaximized();
  window->close();
  start();
  EXPECT_TRUE(window->isMaximized());
}

TEST_F(Frames, WithoutAMemoryADocumentHasItsNaturalSize) {
  MDIForm1 plain(lab.workspace, dialogs);
  plain.resize(3000, 2000);
  plain.show();
  plain.findChild<QAction*>("NEW")->trigger();
  EXPECT_EQ(plain.findChild<ScaledWindow*>("Form1")->size(), QSize(1040, 600));
}

}  // namespace
}  // namespace triaxlab::testing
