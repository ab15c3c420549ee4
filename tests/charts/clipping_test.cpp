#include "charts/clipping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Rectangle kSquare{0, 0, 10, 10};
using Points = std::vector<Point>;

TEST(ClipLine, KeepsWhatIsInside) {
  const auto inside = clipLine({{1, 2}, {10, 10}}, kSquare);
  ASSERT_TRUE(inside);
  EXPECT_EQ(inside->from, (Point{1, 2}));
  EXPECT_EQ(inside->to, (Point{10, 10}));
}

TEST(ClipLine, CutsAtTheEdges) {
  // Through the square from corner to corner and as far beyond on both sides.
  const auto inside = clipLine({{-10, -10}, {20, 20}}, kSquare);
  ASSERT_TRUE(inside);
  EXPECT_EQ(inside->from, (Point{0, 0}));
  EXPECT_EQ(inside->to, (Point{10, 10}));
}

TEST(ClipLine, NothingIsLeftOutside) {
  EXPECT_FALSE(clipLine({{-5, 12}, {15, 12}}, kSquare));  // along the edge, beyond it
  EXPECT_FALSE(clipLine({{8, -5}, {16, 3}}, kSquare));    // past the corner
  EXPECT_FALSE(clipLine({{-5, 5}, {5, -5}}, kSquare));    // touches the corner at 0, 0
}

TEST(ClipPolyline, AWholeCurveStaysAsItIs) {
  const Points points{{0, 0}, {5, 10}, {5, 10}, {10, 0}};  // two readings of the same values among them
  EXPECT_THAT(clipPolyline(points, kSquare), ElementsAre(points));
}

TEST(ClipPolyline, ACurveThatLeavesAndComesBackIsTwo) {
  // Up through the top edge at x 2 (halfway from 5 to 15) and down again at x 6.
  const Points points{{0, 5}, {4, 15}, {8, 5}, {9, 4}};
  EXPECT_THAT(clipPolyline(points, kSquare), ElementsAre(Points{{0, 5}, {2, 10}}, Points{{6, 10}, {8, 5}, {9, 4}}));
}

TEST(ClipPolyline, ACurveMayBeginOutside) {
  EXPECT_THAT(clipPolyline(Points{{-5, 5}, {5, 5}, {5, 20}}, kSquare), ElementsAre(Points{{0, 5}, {5, 5}, {5, 10}}));
}

TEST(ClipPolyline, ASegmentMayCrossBothEdges) {
  EXPECT_THAT(clipPolyline(Points{{-5, 5}, {20, 5}}, kSquare), ElementsAre(Points{{0, 5}, {10, 5}}));
}

TEST(ClipPolyline, OnePointIsNoCurve) {
  EXPECT_THAT(clipPolyline(Points{{5, 5}}, kSquare), IsEmpty());
  EXPECT_THAT(clipPolyline(Points{}, kSquare), IsEmpty());
  EXPECT_THAT(clipPolyline(Points{{50, 5}, {50, 8}}, kSquare), IsEmpty());
}

}  // namespace
}  // namespace triaxlab
