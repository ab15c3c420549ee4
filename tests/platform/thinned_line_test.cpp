#include "platform/thinned_line.h"

#include <gmock/gmock.h>

#include <cmath>
#include <vector>

namespace triaxlab {
namespace {

using ::testing::ElementsAre;

using Line = std::vector<Point>;

TEST(ThinnedLine, KeepsTheEndsAndWhatLeavesTheStraightLine) {
  EXPECT_THAT(thinnedLine(Line{{0, 0}, {50, 0}, {100, 0}}, 1), ElementsAre(Point{0, 0}, Point{100, 0}));
  EXPECT_THAT(thinnedLine(Line{{0, 0}, {50, 1}, {100, 0}}, 1), ElementsAre(Point{0, 0}, Point{100, 0}));
  EXPECT_THAT(thinnedLine(Line{{0, 0}, {50, 1.1}, {100, 0}}, 1),
              ElementsAre(Point{0, 0}, Point{50, 1.1}, Point{100, 0}));
  // Of the points of a slope none is needed, and behind its corner neither.
  EXPECT_THAT(thinnedLine(Line{{0, 0}, {10, 10}, {20, 20}, {30, 20}, {40, 20}}, 1),
              ElementsAre(Point{0, 0}, Point{20, 20}, Point{40, 20}));
}

TEST(ThinnedLine, ALineThatTurnsBackKeepsItsTip) {
  EXPECT_THAT(thinnedLine(Line{{0, 0}, {100, 0}, {50, 0}}, 1), ElementsAre(Point{0, 0}, Point{100, 0}, Point{50, 0}));
  EXPECT_THAT(thinnedLine(Line{{0, 0}, {100, 0}, {0, 0}}, 1), ElementsAre(Point{0, 0}, Point{100, 0}, Point{0, 0}));
}

TEST(ThinnedLine, ShortLinesStayAsTheyAre) {
  EXPECT_TRUE(thinnedLine(Line{}, 1).empty());
  EXPECT_THAT(thinnedLine(Line{{3, 4}}, 1), ElementsAre(Point{3, 4}));
  EXPECT_THAT(thinnedLine(Line{{3, 4}, {3, 4}}, 1), ElementsAre(Point{3, 4}, Point{3, 4}));
}

// A chord of a circle of 2000 lies within 0.5 of it as long as it spans no more than 2 acos(1 - 0.5 / 2000) = 0.0447
// of it, and half of the circle has 70 such chords.
TEST(ThinnedLine, AHalfCircleOfManyPointsNeedsAQuarterOfThem) {
  Line circle;
  for (int i = 0; i <= 300; ++i) {
    const double angle = std::acos(-1.0) * i / 300;
    circle.push_back({2000 * std::cos(angle), 2000 * std::sin(angle)});
  }
  const Line thinned = thinnedLine(circle, 0.5);
  EXPECT_GE(thinned.size(), 71U);
  EXPECT_LE(thinned.size(), 151U);
  EXPECT_EQ(thinned.front(), circle.front());
  EXPECT_EQ(thinned.back(), circle.back());
}

}  // namespace
}  // namespace triaxlab
