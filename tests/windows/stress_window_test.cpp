// The window of unconfined samples as a person has it in hand: what fields take of a bad text, the clipboard, a closer
// look, the way of Tab.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <string>

#include "window_in_hand.h"
#include "windows/controls/canvas_widget.h"
#include "windows/unconfined/stress_window.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

class StressWindow : public WindowInHand<Form4> {
 protected:
  StressWindow() {
    UnconfinedSampleRecord& record = workspace.UnconfinedSampleTable[0];
    SetText(record.projectNo, "P1");
    SetText(record.sampleNo, "U-1");
    SetText(record.undisturbedStrain[0], "5.0");
    SetText(record.undisturbedStress[0], "50.0");
    SetText(record.sampleHeight[0], "8.00");
    form = std::make_unique<Form4>(workspace, shell);
    form->show();
  }
};

struct Field {
  const char* name;
  int width;
};
constexpr Field kFields[] = {
    {"Text1(0)", 15}, {"Text1(1)", 15}, {"Text2(0)", 6}, {"Text2(23)", 6}, {"Text3(0)", 6},  {"Text3(3)", 6},
    {"Text3(4)", 8},  {"Text8(0)", 6},  {"Text8(1)", 6}, {"Text5", 120},   {"TextW(0)", 60}, {"TextW(3)", 60},
};

TEST_F(StressWindow, AHugePasteIsCutAtTheFieldsWidth) {
  for (const auto& [name, width] : kFields) {
    paste(find(name), QString(20 * 1024, '7'));
    EXPECT_EQ(find(name)->text(), QString(width, '7')) << name;
  }
}

TEST_F(StressWindow, NoCharacterIsCutInTheMiddle) {
  for (const auto& [name, width] : kFields) {
    paste(find(name), QString(7 * 1024, u'土'));
    EXPECT_EQ(find(name)->text(), QString(width / 2, u'土')) << name;
  }
}

TEST_F(StressWindow, WhatNoRecordCanHoldIsNotTaken) {
  for (const auto& [name, width] : kFields) {
    paste(find(name), QString::fromUtf8("1\x01\t😀2ಠ\r\n\x7F\u200b3"));
    EXPECT_EQ(find(name)->text(), "123") << name;
  }
}

TEST_F(StressWindow, AFullBoxKeepsWhatStandsInIt) {
  for (const char* const name : {"Text1(1)", "Text2(1)", "Text3(0)", "Text5", "Text8(1)"}) {
    QLineEdit* const box = find(name);
    paste(box, QString(200, '7'));
    const QString full = box->text();
    box->setCursorPosition(0);
    pressKey(box, {Qt::Key_1, Qt::NoModifier, "1"});
    EXPECT_EQ(box->text(), full) << name;
  }
}

TEST_F(StressWindow, TypingIsTakenBackAndDoneAgain) {
  for (const char* const name : {"Text1(1)", "Text2(1)", "Text3(0)", "Text5"}) {
    QLineEdit* const box = find(name);
    box->setFocus();
    const QString before = box->text();
    typeText(box, "12");
    press(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box->text(), before) << name;
    press(box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(box->text(), "12") << name;
  }
  EXPECT_EQ(workspace.UnconfinedSampleTable[0].sampleNo.trimmed(), "12");
  EXPECT_EQ(workspace.UnconfinedSampleTable[0].undisturbedStress[0].trimmed(), "12.0");
}

// ---- the clipboard

TEST_F(StressWindow, CtrlCOnTheChartCopiesItsPictureWithTheTextsOfItsFields) {
  const auto copied = [this] {
    auto* const canvas = find<CanvasWidget>("Picture1");
    canvas->setFocus();
    press(canvas, Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->image();
  };
  const QImage picture = copied();
  EXPECT_EQ(picture.size(), find<CanvasWidget>("Picture1")->size() * 3);
  // The cell of the table below 原状, in pixels of a third of 15 twips.
  const QRect cell(QPoint(9420 / 5, 1820 / 5), QPoint(10180 / 5, 2280 / 5));
  paste(find("Text3(0)"), "");
  EXPECT_NE(picture.copy(cell), copied().copy(cell)) << "8.00 stood there";
}

TEST_F(StressWindow, CtrlCOnTheBarOfTheReadingsCopiesTheirTable) {
  find<QScrollBar>("VScroll2")->setFocus();
  press(find<QScrollBar>("VScroll2"), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(utf8(QGuiApplication::clipboard()->text()),
            "原状R\t原状σ\t原状ε(%)\t重塑R\t重塑σ\t重塑ε(%)\n\t50.0\t5.0\t\t\t\n");
}

// ---- a closer look

TEST_F(StressWindow, TheFieldsStayInTheirTableOnAMagnifiedChart) {
  auto* const canvas = find<CanvasWidget>("Picture1");
  const auto fields = [canvas] {
    // The part with the fields begins at 7900 twips.
    return canvas->grab().toImage().copy(7900 / 15 + 1, 0, canvas->width(), canvas->height());
  };
  const QImage whole = canvas->grab().toImage(), before = fields();
  turnWheel(canvas, {100, 100}, 3, Qt::ControlModifier);
  EXPECT_NE(canvas->grab().toImage(), whole);
  EXPECT_EQ(fields(), before);
  turnWheel(canvas, {600, 300}, 3, Qt::ControlModifier);
  doubleClickMouse(canvas, {200, 200});
  EXPECT_EQ(canvas->grab().toImage(), whole);
}

TEST_F(StressWindow, TheWheelScrollsWhatLiesBelowIt) {
  turnWheel(find<QWidget>("Label2(9)"), {5, 5}, -1, Qt::NoModifier);
  EXPECT_GT(find<QScrollBar>("VScroll2")->value(), 0);
  EXPECT_EQ(find<QScrollBar>("VScroll1")->value(), 0);
  turnWheel(find<QWidget>("Label3(2)"), {5, 5}, -1, Qt::NoModifier);
  EXPECT_GT(find<QScrollBar>("VScroll1")->value(), 0);
  EXPECT_EQ(form->sampleRow(), static_cast<std::size_t>(find<QScrollBar>("VScroll1")->value()));
  turnWheel(find<QWidget>("Picture1"), {100, 100}, 1, Qt::NoModifier);
  EXPECT_GT(find<QScrollBar>("VScroll1")->value(), 0) << "over the chart it scrolls nothing";
}

// ---- tips and Tab

TEST_F(StressWindow, ATextThatIsCutIsToldInFull) {
  EXPECT_EQ(tipOf(find("TextW(0)")), "");
  paste(find("TextW(0)"), QString(60, 'w'));
  EXPECT_EQ(tipOf(find("TextW(0)")), QString(60, 'w'));
}

TEST_F(StressWindow, ALongNumberIsToldInFullByItsLabel) {
  find("Text5")->setFocus();
  EXPECT_EQ(tipOf(find<QWidget>("Label3(0)")), "");
  paste(find("Text1(1)"), QString(15, u'M'));
  find("Text5")->setFocus();
  find<QWidget>("Label3(1)")->resize(40, 16);
  EXPECT_EQ(tipOf(find<QWidget>("Label3(1)")), QString(15, u'M'));
}

TEST_F(StressWindow, TabComesToEveryControlAndToOneCellOfEachBlock) {
  EXPECT_THAT(wayOfTab(),
              ElementsAre("Picture1", "Command1", "Command2", "Text3(0)", "Text3(1)", "Text3(2)", "Text3(3)",
                          "Text3(4)", "Text3(5)", "Text8(0)", "Text8(1)", "Command8", "Text1(0)", "VScroll1",
                          "Text2(0)", "VScroll2", "Text5", "TextW(0)", "TextW(1)", "TextW(2)", "TextW(3)"));
  clickMouse(find<QWidget>("Label2(9)"), {5, 5});
  EXPECT_THAT(wayOfTab(), ::testing::Contains("Text2(9)"));
  EXPECT_THAT(wayOfTab(), ::testing::Not(::testing::Contains("Text2(0)")));
}

}  // namespace
}  // namespace triaxlab::testing
