// A window whose content goes along with its size.

#include "windows/controls/scaled_window.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QRadioButton>
#include <QStyle>
#include <vector>

#include "lone_application.h"
#include "windows/controls/canvas_widget.h"
#include "windows/play/person.h"

namespace triaxlab::testing {
namespace {

/// 300 by 200 pixels with a frame, a label in it, and a canvas.
class Sheet : public ScaledWindow {
 public:
  Sheet() {
    setNaturalSize({0, 0, 4500, 3000});
    frame = put(new QWidget(this), "Frame", {150, 300, 1500, 900});
    label = put(new QLabel("土样", frame), "Label", {150, 150, 600, 300});
    canvas = put(new CanvasWidget(this, 2250, 1500, [](DrawingSurface&) {}), "Picture1", {1800, 300, 2250, 1500});
  }

  QWidget* frame;
  QLabel* label;
  CanvasWidget* canvas;
};

class ScaledSheet : public ::testing::Test {
 protected:
  ScaledSheet() {
    makeApplication();
    sheet = std::make_unique<Sheet>();
    sheet->show();
  }

  std::unique_ptr<Sheet> sheet;
};

TEST_F(ScaledSheet, OpensInItsNaturalSize) {
  EXPECT_EQ(sheet->size(), QSize(300, 200));
  EXPECT_EQ(sheet->label->geometry(), QRect(10, 10, 40, 20));
  EXPECT_EQ(sheet->label->font().pixelSize(), 12);
}

TEST_F(ScaledSheet, PlacesCanvasesAndLettersGoAlongByOneFactor) {
  sheet->resize(600, 400);
  EXPECT_EQ(sheet->scale(), 2);
  EXPECT_EQ(sheet->frame->geometry(), QRect(20, 40, 200, 120));
  EXPECT_EQ(sheet->label->geometry(), QRect(20, 20, 80, 40));
  EXPECT_EQ(sheet->canvas->geometry(), QRect(240, 40, 300, 200));
  EXPECT_EQ(sheet->label->font().pixelSize(), 24);
  sheet->resize(300, 200);
  EXPECT_EQ(sheet->frame->geometry(), QRect(10, 20, 100, 60));
  EXPECT_EQ(sheet->label->font().pixelSize(), 12);
}

TEST_F(ScaledSheet, TheDirectionWithLessRoomDecides) {
  sheet->resize(900, 300);
  EXPECT_EQ(sheet->scale(), 1.5);
}

TEST_F(ScaledSheet, TheFactorHasBounds) {
  sheet->resize(3000, 3000);
  EXPECT_EQ(sheet->scale(), 3);
  sheet->resize(10, 10);
  EXPECT_EQ(sheet->size(), QSize(240, 160));
  EXPECT_EQ(sheet->scale(), 0.8);
}

TEST_F(ScaledSheet, AControlThatIsMovedKeepsItsNewPlaceAtEveryScale) {
  sheet->resize(600, 400);
  setPlace(sheet->label, {0, 0, 300, 300});
  EXPECT_EQ(sheet->label->geometry(), QRect(0, 0, 40, 40));
  sheet->resize(900, 600);
  EXPECT_EQ(sheet->label->geometry(), QRect(0, 0, 60, 60));
}

TEST_F(ScaledSheet, ARuleOfAPixelIsNeverLost) {
  auto* const rule = put(new QWidget(sheet.get()), "Rule", {0, 2700, 3000, 15});
  for (int y = 2700; y < 2800; ++y) {
    setPlace(rule, {0, y, 3000, 15});
    sheet->resize(240, 160);
    EXPECT_GE(rule->height(), 1) << y;
    sheet->resize(300, 200);
  }
}

TEST_F(ScaledSheet, TheMouseTellsTheSameTwipsAtEveryScale) {
  std::vector<Point> places;
  QObject::connect(sheet->canvas, &CanvasWidget::mouseAt, sheet.get(), [&places](Point at) { places.push_back(at); });
  for (const int scale : {1, 2, 3}) {
    sheet->resize(300 * scale, 200 * scale);
    moveMouse(sheet->canvas, QPointF(50, 20) * scale, MouseMotion::Move);
  }
  EXPECT_EQ(places, std::vector<Point>(3, {750, 300}));
}

TEST_F(ScaledSheet, ACopiedPictureHasTheSameSizeAtEveryScale) {
  for (const int scale : {1, 2}) {
    sheet->resize(300 * scale, 200 * scale);
    sheet->canvas->copyPicture();
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(450, 300));  // three times 150 by 100
  }
}

TEST_F(ScaledSheet, TheMarkOfAnOptionGoesAlong) {
  auto* const option = put(new QRadioButton("σ", sheet.get()), "Option1", {150, 2400, 1500, 300});
  const auto mark = [option] {
    return option->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, option);
  };
  const int natural = mark();
  sheet->resize(600, 400);
  EXPECT_EQ(mark(), 2 * natural);
}

}  // namespace
}  // namespace triaxlab::testing
