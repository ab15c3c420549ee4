#include "platform/qt/painter_surface.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <optional>

#include "platform/qt/application.h"

namespace triaxlab {
namespace {

/// A white picture of 200 x 200 pixels on which a pixel is `twipsPerPixel` twips.
class PainterSurfaceTest : public ::testing::Test {
 protected:
  explicit PainterSurfaceTest(double twipsPerPixel = 15) : m_picture(200, 200, QImage::Format_RGB32) {
    m_picture.fill(Qt::white);
    m_painter.emplace(&m_picture);
    m_painter->scale(1 / twipsPerPixel, 1 / twipsPerPixel);
  }

  DrawingSurface& surface(PainterSurface::Medium medium = PainterSurface::Medium::Screen) {
    return m_surface.emplace(*m_painter, medium);
  }
  QRgb pixel(int x, int y) {
    m_painter->end();
    return m_picture.pixel(x, y);
  }
  /// The smallest rectangle around everything that isn't white.
  QRect drawn() {
    m_painter->end();
    QRect around;
    for (int y = 0; y < m_picture.height(); ++y)
      for (int x = 0; x < m_picture.width(); ++x)
        if (m_picture.pixel(x, y) != 0xFFFFFFFF) around |= QRect(x, y, 1, 1);
    return around;
  }

 private:
  PaintingApplication m_application;
  QImage m_picture;
  std::optional<QPainter> m_painter;
  std::optional<PainterSurface> m_surface;
};

TEST_F(PainterSurfaceTest, ColoursAreThoseOfQBColor) {
  surface().box({0, 0}, {1500, 1500}, {Colour::LightRed, 1}, Colour::LightCyan);
  EXPECT_EQ(pixel(50, 50), 0xFF00FFFF);
  EXPECT_EQ(pixel(0, 50), 0xFFFF0000);
  EXPECT_EQ(pixel(150, 150), 0xFFFFFFFF);
}

TEST_F(PainterSurfaceTest, BlueIsNumberOneAndGreyIsNumberEight) {
  EXPECT_EQ(colourOf(Colour::Blue).rgb(), 0xFF000080);
  EXPECT_EQ(colourOf(Colour::Grey).rgb(), 0xFF808080);
  EXPECT_EQ(colourOf(Colour::White).rgb(), 0xFFFFFFFF);
}

TEST_F(PainterSurfaceTest, ALineOfWidthOneIsAPixelOfTheScreen) {
  surface().line({750, 0}, {750, 1500}, {Colour::Black, 1});
  EXPECT_EQ(drawn().width(), 1);
}

TEST_F(PainterSurfaceTest, ALineOfWidthTwoIsTwoPixelsOfTheScreen) {
  surface().line({750, 0}, {750, 1500}, {Colour::Black, 2});
  EXPECT_EQ(drawn().width(), 2);
}

/// How many pixels wide a red line is across the middle of the picture, counting what is smoothed by its share.
double redAcross(const QImage& picture) {
  double width = 0;
  for (int y = 0; y < picture.height(); ++y) width += (255 - qGreen(picture.pixel(100, y))) / 255.0;
  return width;
}

TEST_F(PainterSurfaceTest, ACurveIsStrongerThanTheGridAtEveryScale) {
  for (const double pixelsPerTwip : {0.8 / 15, 1 / 15.0, 1.5 / 15, 2 / 15.0, 3 / 15.0}) {
    QImage picture(200, 200, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(pixelsPerTwip, pixelsPerTwip);
    PainterSurface surface(painter, PainterSurface::Medium::Screen);
    const double middle = 100 / pixelsPerTwip, end = 200 / pixelsPerTwip;
    surface.polyline(std::array{Point{0, middle}, Point{end, middle}}, {Colour::LightRed, 1});
    painter.end();
    EXPECT_GE(redAcross(picture), 1.3) << 15 * pixelsPerTwip;
  }
}

TEST_F(PainterSurfaceTest, PlacesAreRoundedToWholeTwips) {
  // 749.6 twips are 750, pixel 50; cut off they would be 749, pixel 49.
  surface().line({749.6, 0}, {749.6, 1500}, {Colour::Black, 1});
  EXPECT_EQ(drawn().left(), 50);
}

/// A pixel of the screen is a third of a logical one.
class FineScreenTest : public PainterSurfaceTest {
 protected:
  FineScreenTest() : PainterSurfaceTest(5) {}
};

TEST_F(FineScreenTest, TheGridIsAHairline) {
  surface().line({500, 0}, {500, 1000}, {Colour::Grey, 1});
  EXPECT_EQ(drawn().width(), 1);
}

TEST_F(FineScreenTest, ARuleGrowsWithTheScale) {
  surface().line({500, 0}, {500, 1000}, {Colour::Black, 1});
  EXPECT_EQ(drawn().width(), 3);
}

/// Six hundred pixels to the inch: 2.4 twips each.
class PaperSurfaceTest : public PainterSurfaceTest {
 protected:
  PaperSurfaceTest() : PainterSurfaceTest(2.4) {}
};

TEST_F(PaperSurfaceTest, AWidthOfFourIsFourSixHundredthsOfAnInch) {
  surface(PainterSurface::Medium::Paper).line({240, 0}, {240, 480}, {Colour::Black, 4});
  EXPECT_EQ(drawn().width(), 4);
}

/// Two hundred pixels to the inch: 7.2 twips each, three widths of paper.
class PictureSurfaceTest : public PainterSurfaceTest {
 protected:
  PictureSurfaceTest() : PainterSurfaceTest(7.2) {}
  int widthOf(int width) {
    surface(PainterSurface::Medium::Picture).line({241, 0}, {241, 480}, {Colour::Black, width});
    return drawn().width();
  }
};

TEST_F(PictureSurfaceTest, CurvesAndFramesAreStrongerThanTheGrid) { EXPECT_EQ(widthOf(4), 2); }
TEST_F(PictureSurfaceTest, TheGridIsAPixel) { EXPECT_EQ(widthOf(1), 1); }
TEST_F(PictureSurfaceTest, ThinLinesArePixelsToo) { EXPECT_EQ(widthOf(2), 1); }

TEST_F(PainterSurfaceTest, TextHasItsRuledWidth) {
  // 17 bytes of 10.5 point: 1785 twips, 119 pixels. The solid blocks at both ends fill their cells.
  surface().text({150, 150}, "█三轴 kPa 1234█", {}, Colour::Black);
  const QRect around = drawn();
  EXPECT_NEAR(around.left(), 10, 1);
  EXPECT_NEAR(around.width(), 119, 2);
}

TEST_F(PainterSurfaceTest, AFontOfOtherWidthsIsStretchedToTheRule) {
  // Ten signs of 9 point, eight twips a byte and point: 720 twips, 48 pixels.
  surface().text({150, 150}, "HHHHHHHHHH", {kArialNarrow, 9, false}, Colour::Black);
  EXPECT_NEAR(drawn().width(), 48, 3);
}

TEST_F(PainterSurfaceTest, RotatedTextRunsUpwardWithItsHeightToTheRight) {
  surface().text({1500, 2250}, "三轴试验", {kSongRotated, 10.5, false}, Colour::Black, true);
  const QRect around = drawn();
  // Its place is pixel 100, 150; eight bytes are 840 twips, 56 pixels, upward, and the height of 14 pixels is to the
  // right.
  EXPECT_GE(around.left(), 99);
  EXPECT_LE(around.right(), 115);
  EXPECT_LE(around.bottom(), 151);
  EXPECT_NEAR(around.top(), 150 - 56, 3);
}

TEST_F(PainterSurfaceTest, APrimeStandsAtTheLeftOfItsPlace) {
  // 60 point: the place of the mark is 80 pixels wide and begins at pixel 10.
  surface().text({150, 150}, "′", {kSong, 60, false}, Colour::Black);
  const QRect around = drawn();
  EXPECT_NEAR(around.left(), 10, 2);
  EXPECT_LT(around.right(), 10 + 40);
}

TEST_F(PainterSurfaceTest, WhatFollowsAPrimeStandsWhereTheRuleHasIt) {
  // Two bytes of 20 point each are 400 twips, the prime's place from 550 to 950: the block from pixel 63 to 90.
  surface().text({150, 150}, "σ′█", {kSong, 20, false}, Colour::Black);
  EXPECT_NEAR(drawn().right(), 90, 2);
}

TEST_F(PainterSurfaceTest, TheBaselineIsAtEightySixHundredthsOfTheSize) {
  // 30 point are 600 twips, 40 pixels; 0.86 of them below y = 20 is 54.4. "H" stands on its baseline.
  surface().text({150, 300}, "H", {kArialNarrow, 30, false}, Colour::Black);
  EXPECT_NEAR(drawn().bottom(), 54, 1);
}

}  // namespace
}  // namespace triaxlab
