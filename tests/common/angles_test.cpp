#include "common/angles.h"

#include <gtest/gtest.h>

#include <limits>

namespace triaxlab {
namespace {

TEST(Degrees, TheTwoWaysUseDifferentValuesOfPi) {
  EXPECT_DOUBLE_EQ(degreesOfTangent(1), 0.785398163397448310 * 180 / 3.1415926535);
  EXPECT_DOUBLE_EQ(tangentOfDegrees(45), std::tan(45 * 3.1415926 / 180));
  EXPECT_GT(degreesOfTangent(1), 45.000000001);
  EXPECT_LT(tangentOfDegrees(45), 0.99999999);
}

TEST(SteppedTangent, GoesByTenthsOfADegreeFrom0To89_9) {
  // The way up uses 3.1415926 alone, since the angle of 0 is 0 by any pi.
  EXPECT_DOUBLE_EQ(steppedTangent(0, 0.1), std::tan(0.1 * 3.1415926 / 180));
  EXPECT_EQ(steppedTangent(0, -0.1), 0);
  EXPECT_EQ(steppedTangent(-0.5, 0.1), 0);
  const double steepest = std::tan(89.9 * 3.1415926 / 180);
  EXPECT_DOUBLE_EQ(steppedTangent(std::tan(89.85 * 3.1415926 / 180), 0.1), steepest);
  EXPECT_DOUBLE_EQ(steppedTangent(steepest, 0.1), steepest);
}

TEST(SteppedTangent, EachStepUsesTwoValuesOfPi) {
  // 45 degrees of the tangent 1 are 45.0000000013; less 0.1 and through 3.1415926.
  const double degrees = 45 * (3.14159265358979312 / 3.1415926535) - 0.1;
  EXPECT_DOUBLE_EQ(steppedTangent(1, -0.1), std::tan(degrees * 3.1415926 / 180));
}

TEST(SteppedTangent, ALineOfAnotherTestHasItsOwnRange) {
  const double one = std::tan(1.0 * 3.1415926 / 180);
  EXPECT_DOUBLE_EQ(steppedTangent(-0.5, -0.1, {.lowest = 1}), one) << "a falling line jumps to the lowest";
  EXPECT_DOUBLE_EQ(steppedTangent(one, -0.1, {.lowest = 1}), one);
  const double kUnbounded = std::numeric_limits<double>::infinity();
  EXPECT_LT(steppedTangent(0, -0.1, {-kUnbounded, kUnbounded}), 0);
}

}  // namespace
}  // namespace triaxlab
