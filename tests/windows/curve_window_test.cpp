// The curve window as a person has it in hand: what fields take of a bad text, the clipboard, tips, the way of Tab.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <string>
#include <vector>

#include "common/gbk.h"
#include "window_in_hand.h"
#include "windows/controls/canvas_widget.h"
#include "windows/controls/grid_view.h"
#include "windows/triaxial/triaxial_curve_window.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

TriaxialSampleRecord sample() {
  TriaxialSampleRecord record;
  SetText(record.projectNo, "P1");
  SetText(record.sampleNo, "T1");
  record.testMethod = kCU;
  record.shearMode = 1;
  SetText(record.cellPressure[0], "100");
  for (std::size_t row = 0; row < 3; ++row) {
    SetNumber(record.deviatorStress[row][0], 30.0 * static_cast<double>(row + 1), NumberFormat::Whole);
    record.axialStrain[row][0] = static_cast<float>(row + 1);
  }
  return record;
}

/// The window on page 3 with one sample.
class CurveWindow : public WindowInHand<Form1> {
 protected:
  CurveWindow() {
    workspace.settings.habits.controlledDocNo = true;
    workspace.TriaxialSampleTable[0] = sample();
    form = std::make_unique<Form1>(workspace, dialogs, shell);
    form->show();
    form->showPage(CurvePage::StressDifferenceEnvelope);
  }
};

// ---- bad texts

/// Each field by its name with the bytes that it takes.
struct Field {
  const char* name;
  int width;
};
constexpr Field kFields[] = {
    {"Text1", 15},    {"Text3", 15},    {"Text4", 5},     {"Text7(0)", 6}, {"Text7(4)", 6}, {"Text7(5)", 15},
    {"Text7(6)", 15}, {"Text7(7)", 30}, {"Text8(0)", 6},  {"Text8(4)", 6}, {"Text5", 120},  {"TextW(0)", 60},
    {"TextW(1)", 60}, {"TextW(2)", 60}, {"TextW(3)", 60}, {"Text9", 100},
};

class BadText : public CurveWindow {
 protected:
  BadText() { clickMouse(find<QWidget>("Label1(2)"), {5, 5}); }
};

TEST_F(BadText, AHugePasteIsCutAtTheFieldsWidth) {
  for (const auto& [name, width] : kFields) {
    paste(find(name), QString(20 * 1024, '7'));
    EXPECT_EQ(find(name)->text(), QString(width, '7')) << name;
  }
}

TEST_F(BadText, NoCharacterIsCutInTheMiddle) {
  for (const auto& [name, width] : kFields) {
    paste(find(name), QString(7 * 1024, u'土'));  // 21 kB in UTF-8, two bytes each in a field
    EXPECT_EQ(find(name)->text(), QString(width / 2, u'土')) << name;
  }
}

TEST_F(BadText, WhatNoRecordCanHoldIsNotTaken) {
  for (const auto& [name, width] : kFields) {
    paste(find(name), QString::fromUtf8("1\x01\t😀2ಠ\r\n\x7F\u200b3"));
    EXPECT_EQ(find(name)->text(), "123") << name;
  }
}

TEST_F(BadText, ATextOfNothingButThatLeavesAnEmptyField) {
  for (const auto& [name, width] : kFields) {
    paste(find(name), QString::fromUtf8("😀ಠ\n\t"));
    EXPECT_EQ(find(name)->text(), "") << name;
  }
}

TEST_F(BadText, FullWidthDigitsAreTextAndNoNumber) {
  paste(find("Text7(1)"), "２００");
  EXPECT_EQ(find("Text7(1)")->text(), "２００");
  EXPECT_EQ(workspace.TriaxialSampleTable[0].cellPressure[1].number(), 0);
  // A limit that reads as 0 is out of range and becomes the usual one.
  paste(find("Text8(0)"), "１２");
  press(find<QWidget>("Command8"), Qt::Key_Space);
  EXPECT_EQ(find("Text8(0)")->text(), "15.0");
}

TEST_F(BadText, TheNextKeyGoesOnBehindAPaste) {
  QLineEdit* const box = find("Text3");
  paste(box, QString::fromUtf8("a😀b"));
  pressKey(box, {Qt::Key_C, Qt::NoModifier, "c"});
  EXPECT_EQ(box->text(), "abc");
}

/// Puts it in where the cursor stands.
void pasteAt(QLineEdit* box, int cursor, const QString& text) {
  QGuiApplication::clipboard()->setText(text);
  box->setFocus();
  box->setCursorPosition(cursor);
  pressKey(box, {Qt::Key_V, Qt::ControlModifier, {}});
}

TEST_F(BadText, AFullBoxKeepsWhatStandsInIt) {
  for (const auto& [name, width] : kFields) {
    QLineEdit* const box = find(name);
    const QString full = QString(width - 1, '7') + "8";
    paste(box, full);
    box->setCursorPosition(0);
    pressKey(box, {Qt::Key_1, Qt::NoModifier, "1"});
    EXPECT_EQ(box->text(), full) << name;
    EXPECT_EQ(box->cursorPosition(), 0) << name;
    pasteAt(box, 1, "23");
    EXPECT_EQ(box->text(), full) << name;
  }
}

TEST_F(BadText, OfAPasteGoesInWhatFitsBesideTheRest) {
  QLineEdit* const density = find("Text4");  // five bytes
  paste(density, "1.9");
  pasteAt(density, 2, "0567");
  EXPECT_EQ(density->text(), "1.059");
  EXPECT_EQ(density->cursorPosition(), 4);
  EXPECT_EQ(workspace.TriaxialSampleTable[0].density.trimmed(), "1.059");

  QLineEdit* const soil = find("Text3");  // fifteen: room for one more character of two bytes
  paste(soil, "粉质粘土含砾1");
  pasteAt(soil, 2, "砂砂");
  EXPECT_EQ(soil->text(), "粉质砂粘土含砾1");
  EXPECT_EQ(workspace.TriaxialSampleTable[0].soilName.trimmed(), utf8ToGbk("粉质砂粘土含砾1"));
}

TEST_F(BadText, WhatIsMarkedMakesRoomForWhatReplacesIt) {
  QLineEdit* const box = find("Text4");
  paste(box, "12345");
  box->setSelection(1, 2);
  QGuiApplication::clipboard()->setText("6789");
  press(box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box->text(), "16745");
}

TEST_F(BadText, ARefusedKeyLeavesWhatCanBeTakenBack) {
  QLineEdit* const box = find("Text4");
  paste(box, "1.95");
  press(box, Qt::Key_End);
  pressKey(box, {Qt::Key_2, Qt::NoModifier, "2"});
  pressKey(box, {Qt::Key_3, Qt::NoModifier, "3"});
  EXPECT_EQ(box->text(), "1.952");
  press(box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box->text(), "1.95");
  EXPECT_EQ(workspace.TriaxialSampleTable[0].density.trimmed(), "1.95");
  press(box, Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(box->text(), "1.952");
}

TEST_F(BadText, APasteThatWasCutCanBeTakenBack) {
  QLineEdit* const box = find("Text4");
  paste(box, "1.9");
  press(box, Qt::Key_Home);
  pasteAt(box, 0, "2345");
  EXPECT_EQ(box->text(), "231.9");
  press(box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box->text(), "1.9");
}

TEST_F(BadText, ValuesOfTheResultsTakeTheirWidth) {
  clickMouse(find<QWidget>("Label2(2)"), {5, 5});
  QLineEdit* const box = find("Text2");
  ASSERT_TRUE(box->isVisible());
  paste(box, QString(20 * 1024, '7'));
  EXPECT_EQ(box->text(), "777777");
  paste(box, QString::fromUtf8("1\n😀2"));
  EXPECT_EQ(box->text(), "12");
}

TEST_F(BadText, NumbersOfACorrectionTakeTenBytes) {
  form->showPage(CurvePage::StressStrain);
  form->enterIntervention();
  for (const char* const name : {"Text10", "Text11"}) {
    paste(find(name), QString(20 * 1024, '7'));
    EXPECT_EQ(find(name)->text(), QString(10, '7')) << name;
    paste(find(name), QString::fromUtf8("１😀\n"));
    EXPECT_EQ(find(name)->text(), "１") << name;
  }
  // No number: the box that refuses it comes, and no curve changes.
  press(find<QWidget>("Command6"), Qt::Key_Space);
  EXPECT_THAT(dialogs.take(), ElementsAre("stop [修改三轴试验数据] 乘以不合理数据将会得到错误结果..."));
  dialogs.answers = {false};
  form->leaveIntervention(dialogs);
}

// ---- the clipboard

TEST_F(CurveWindow, AnOpenCellKeepsTheLinesAroundIt) {
  const auto* const cell = find<QWidget>("Label1(2)");
  clickMouse(find<QWidget>("Label1(2)"), {5, 5});
  EXPECT_EQ(find("Text1")->geometry(), cell->geometry().adjusted(0, 0, -1, -1));
}

TEST_F(CurveWindow, HeadsOfEffectiveStressesFitTheirColumns) {
  form->showPage(CurvePage::StressPath);
  const auto* const head = find<QLabel>("ColumnHead(2)");
  ASSERT_EQ(head->text(), "(σ1′-σ3′)/2");
  // Letters may be set a fifth narrower before they are hard to read.
  EXPECT_LE(head->fontMetrics().horizontalAdvance(head->text()) * 0.8, head->contentsRect().width());
}

TEST_F(CurveWindow, CtrlCOnTheChartCopiesItsPicture) {
  QGuiApplication::clipboard()->clear();
  auto* const canvas = find<CanvasWidget>("Picture1");
  canvas->setFocus();
  press(canvas, Qt::Key_C, Qt::ControlModifier);
  const QImage picture = QGuiApplication::clipboard()->image();
  EXPECT_EQ(picture.size(), canvas->size() * 3);
  EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::white));
  EXPECT_EQ(picture.pixelColor(3 * 700 / 15, 3 * 2000 / 15), QColor(0x80, 0x80, 0x80)) << "the left edge of the plot";
}

TEST_F(CurveWindow, CtrlCOnTheTableCopiesItsText) {
  form->showPage(CurvePage::StressStrain);
  clickMouse(find<QWidget>("Label2(17)"), {5, 5});
  press(form->focusWidget(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_THAT(utf8(QGuiApplication::clipboard()->text()),
              StartsWith("P1\t\t\tP2\t\t\tP3\t\t\tP4\t\t\tP5\t\t\n垂直应变\t"));
}

TEST_F(CurveWindow, CtrlCInABoxCopiesWhatIsSelectedThere) {
  QLineEdit* const box = find("Text7(0)");
  box->setFocus();
  box->setSelection(1, 2);
  press(box, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "00");
}

// ---- a closer look

TEST_F(CurveWindow, TheChartIsLargerUntilADoubleClick) {
  auto* const canvas = find<CanvasWidget>("Picture1");
  const QImage whole = canvas->grab().toImage();
  turnWheel(canvas, {100, 100}, 3, Qt::ControlModifier);
  EXPECT_NE(canvas->grab().toImage(), whole);
  doubleClickMouse(canvas, {200, 200});
  EXPECT_EQ(canvas->grab().toImage(), whole);
  turnWheel(canvas, {100, 100}, 3, Qt::ControlModifier);
  turnWheel(canvas, {300, 200}, -3, Qt::ControlModifier);
  EXPECT_EQ(canvas->grab().toImage(), whole) << "turned back";
}

TEST_F(CurveWindow, ADragMovesTheLargerChart) {
  auto* const canvas = find<CanvasWidget>("Picture1");
  std::vector<Point> told;
  QObject::connect(canvas, &CanvasWidget::mouseAt, form.get(), [&told](Point place, bool) { told.push_back(place); });
  // Four notches about the left upper corner: 1.25^4 = 2.4414, so 300 pixels are 4500 / 2.4414 = 1843 twips.
  turnWheel(canvas, {0, 0}, 4, Qt::ControlModifier);
  moveMouse(canvas, {300, 200}, MouseMotion::Press);
  moveMouse(canvas, {200, 200}, MouseMotion::Drag);
  moveMouse(canvas, {200, 200}, MouseMotion::Release);
  // What was held stays under the mouse.
  EXPECT_THAT(told, ElementsAre(Point{1843, 1229}, Point{1843, 1229}));
}

// ---- tips

TEST_F(CurveWindow, ATextThatIsCutIsToldInFull) {
  QLineEdit* const box = find("Text7(0)");
  EXPECT_EQ(tipOf(box), "");
  paste(find("Text9"), QString(100, 'w'));
  EXPECT_EQ(tipOf(find("Text9")), QString(100, 'w'));
}

TEST_F(CurveWindow, AHeadThatIsCondensedIsToldInFull) {
  form->showPage(CurvePage::PorePressure);
  EXPECT_EQ(tipOf(find<QWidget>("StageHead(0)")), "");
  EXPECT_EQ(tipOf(find<QWidget>("ColumnHead(2)")), "孔隙压力(kPa)");
}

TEST_F(CurveWindow, ACellOfAGridThatIsCutIsToldInFull) {
  GridContent content;
  content.columns = {{"", 700}, {"", 1000}};
  content.rowCount = [] { return 2; };
  content.cell = [](int row, int column) { return column == 0 || row == 1 ? QString("1") : QString(60, 'w'); };
  GridView grid(nullptr, content);
  grid.resize(300, 200);
  grid.show();
  const auto tip = [&grid](int row) {
    const QPoint place = grid.visualRect(grid.model()->index(row - 1, 1)).center();
    QHelpEvent event(QEvent::ToolTip, place, grid.viewport()->mapToGlobal(place));
    QApplication::sendEvent(grid.viewport(), &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  };
  EXPECT_EQ(tip(1), "");
  EXPECT_EQ(tip(2), QString(60, 'w'));
}

// ---- the way of Tab

TEST_F(CurveWindow, TabComesToEveryControlInTheOrderOfReading) {
  EXPECT_THAT(wayOfTab(),
              ElementsAre("Label1(2)", "VScroll1", "Picture1", "Command3", "Command4", "Text3", "Text4", "Text6(0)",
                          "Text6(1)", "Text7(5)", "Text7(6)", "Text7(7)", "Text7(0)", "Text7(1)", "Text7(2)",
                          "Text7(3)", "Text7(4)", "Text8(0)", "Text8(1)", "Text8(2)", "Text8(3)", "Text8(4)",
                          "Command8", "Command5", "Command1", "Command2", "Label2(2)", "VScroll2", "Text5", "TextW(0)",
                          "TextW(1)", "TextW(2)", "TextW(3)", "Text9"));
}

TEST_F(CurveWindow, TabIntoACellOpensTheBoxThere) {
  QApplication::setActiveWindow(form.get());
  find("Text9")->setFocus();
  press(find("Text9"), Qt::Key_Tab);
  EXPECT_TRUE(find("Text1")->isVisible());
  EXPECT_EQ(form->focusWidget(), find("Text1"));
  find<QWidget>("Command2")->setFocus();
  press(find<QWidget>("Command2"), Qt::Key_Tab);
  EXPECT_EQ(form->focusWidget(), find("Text2"));
  EXPECT_EQ(find("Text2")->text(), "100");
  press(find("Text2"), Qt::Key_Tab);
  EXPECT_EQ(form->focusWidget(), find<QWidget>("VScroll2"));
}

}  // namespace
}  // namespace triaxlab::testing
