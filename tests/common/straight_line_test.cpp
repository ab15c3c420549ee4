#include "common/straight_line.h"

#include <gtest/gtest.h>

namespace triaxlab {
namespace {

template <class Number>
LineSums<Number> sumsOf(std::initializer_list<std::pair<double, double>> points) {
  LineSums<Number> sums;
  for (const auto& [x, y] : points) sums.add(x, y);
  return sums;
}

TEST(FittedLine, GoesThroughPointsOnALine) {
  const auto line = fittedLine(sumsOf<double>({{1, 5}, {2, 7}, {4, 11}}), 3);
  ASSERT_TRUE(line);
  EXPECT_DOUBLE_EQ(line->slope, 2);
  EXPECT_DOUBLE_EQ(line->intercept, 3);
}

TEST(FittedLine, IsThatOfLeastSquares) {
  // Sums 6, 11, 14, 25: (6 x 11 - 3 x 25) / (36 - 42) = 1.5, 11/3 - 1.5 x 2 = 2/3.
  const auto line = fittedLine(sumsOf<double>({{1, 2}, {2, 4}, {3, 5}}), 3);
  ASSERT_TRUE(line);
  EXPECT_DOUBLE_EQ(line->slope, 1.5);
  EXPECT_DOUBLE_EQ(line->intercept, 2.0 / 3);
}

TEST(FittedLine, PointsAboveEachOtherHaveNone) {
  EXPECT_FALSE(fittedLine(sumsOf<double>({{2, 4}, {2, 5}}), 2));
  EXPECT_FALSE(fittedLine(sumsOf<double>({{2, 4}}), 1));
  EXPECT_FALSE(fittedLine(LineSums<double>{}, 0));
}

TEST(FittedLine, TheCountMayBeAnotherThanThatOfThePoints) {
  // Two points counted as five, the others as zeros: (3 x 5 - 5 x 8) / (9 - 25) = 25 / 16.
  EXPECT_DOUBLE_EQ(fittedSlope(sumsOf<double>({{1, 2}, {2, 3}}), 5).value(), 25.0 / 16);
}

TEST(LineSums, AreRoundedToTheirPrecisionAtEachPoint) {
  // 2 to the 24th and 1 is no single-precision number.
  EXPECT_EQ(sumsOf<float>({{16777216, 0}, {1, 0}}).x, 16777216.0F);
  EXPECT_EQ(sumsOf<double>({{16777216, 0}, {1, 0}}).x, 16777217.0);
}

}  // namespace
}  // namespace triaxlab
