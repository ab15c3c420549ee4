#include "common/parabola.h"

#include <gtest/gtest.h>

namespace triaxlab {
namespace {

struct Pair {
  double x, y;
};

TEST(Parabola, GoesThroughItsThreePoints) {
  const auto parabola = parabolaThrough(Pair{1, 6}, Pair{2, 11}, Pair{4, 27});
  ASSERT_TRUE(parabola);
  EXPECT_DOUBLE_EQ(parabola->a, 1);  // x squared, 2 x and 3
  EXPECT_DOUBLE_EQ(parabola->b, 2);
  EXPECT_DOUBLE_EQ(parabola->c, 3);
  EXPECT_DOUBLE_EQ((*parabola)(10), 123);
}

TEST(Parabola, TheOrderOfThePointsDoesNotMatter) {
  const auto parabola = parabolaThrough(Pair{4, 27}, Pair{2, 11}, Pair{1, 6});
  ASSERT_TRUE(parabola);
  EXPECT_DOUBLE_EQ(parabola->a, 1);
}

TEST(Parabola, ThreePointsOnALineHaveAFlatOne) {
  const auto parabola = parabolaThrough(Pair{0, 1}, Pair{1, 3}, Pair{2, 5});
  ASSERT_TRUE(parabola);
  EXPECT_EQ(parabola->a, 0);
  EXPECT_EQ(parabola->b, 2);
}

TEST(Parabola, PointsAboveEachOtherHaveNone) {
  EXPECT_FALSE(parabolaThrough(Pair{1, 2}, Pair{1, 3}, Pair{2, 5}));
  EXPECT_FALSE(parabolaThrough(Pair{1, 2}, Pair{2, 3}, Pair{2, 5}));
}

}  // namespace
}  // namespace triaxlab
