#include "sessions/k0/line_motion.h"

#include <gtest/gtest.h>

#include <cmath>

namespace triaxlab {
namespace {

StraightLine pressed(StraightLine line, ArrowKey key, int times, const LineMotion& motion) {
  for (int i = 0; i < times; ++i) line = movedLine(line, key, motion);
  return line;
}

double slopeOf(double degrees) { return std::tan(degrees / 180 * 3.1415926); }

TEST(KoMotion, LeftLowersAndRightRaisesByAKilopascal) {
  EXPECT_EQ(movedLine({0.5, 12.5}, ArrowKey::Left, kKoMotion), (StraightLine{0.5, 11.5}));
  EXPECT_EQ(movedLine({0.5, 12.5}, ArrowKey::Right, kKoMotion), (StraightLine{0.5, 13.5}));
}

TEST(KoMotion, EachTurnUsesTwoValuesOfPi) {
  // The angle of slope 1 is 45 x 3.14159265358979312 / 3.1415926535 degrees.
  const double degrees = 45 * (3.14159265358979312 / 3.1415926535);
  EXPECT_DOUBLE_EQ(movedLine({1, 0}, ArrowKey::Up, kKoMotion).slope, slopeOf(degrees + 0.1));
  EXPECT_DOUBLE_EQ(movedLine({1, 0}, ArrowKey::Down, kKoMotion).slope, slopeOf(degrees - 0.1));
  EXPECT_EQ(movedLine({1, 7}, ArrowKey::Up, kKoMotion).intercept, 7);
}

TEST(KoMotion, AThousandUpAndDownDoNotComeBack) {
  // There and back each lose 3.1415926535 / 3.1415926 - 1 = 1.7e-8 of the angle, so the line ends a little flatter.
  const StraightLine line = pressed(pressed({1, 0}, ArrowKey::Up, 10, kKoMotion), ArrowKey::Down, 10, kKoMotion);
  EXPECT_LT(line.slope, 1);
  EXPECT_GT(line.slope, 1 - 1e-6);
}

TEST(KoMotion, UpStopsAtItsEnd) {
  const StraightLine steepest = pressed({1, 0}, ArrowKey::Up, 450, kKoMotion);
  EXPECT_DOUBLE_EQ(steepest.slope, slopeOf(89.9));
  EXPECT_EQ(movedLine(steepest, ArrowKey::Up, kKoMotion), steepest);
}

TEST(KoMotion, DownStopsAtItsEnd) {
  const StraightLine flattest = pressed({1, 0}, ArrowKey::Down, 450, kKoMotion);
  EXPECT_DOUBLE_EQ(flattest.slope, slopeOf(1));
  EXPECT_EQ(movedLine(flattest, ArrowKey::Down, kKoMotion), flattest);
}

TEST(KoMotion, AFallingLineJumpsWithDownAndRisesBitByBitWithUp) {
  EXPECT_DOUBLE_EQ(movedLine({-0.5, 0}, ArrowKey::Down, kKoMotion).slope, slopeOf(1));
  EXPECT_NEAR(std::atan(movedLine({-0.5, 0}, ArrowKey::Up, kKoMotion).slope), std::atan(-0.5) + 0.1 / 180 * 3.14159265,
              1e-7);
  EXPECT_NEAR(movedLine({0, 0}, ArrowKey::Up, kKoMotion).slope, slopeOf(0.1), 1e-15) << "flatter than Down's end";
}

TEST(T90Motion, GoesTheOtherWay) {
  EXPECT_DOUBLE_EQ(movedLine({0.5, 0.3}, ArrowKey::Left, kT90Motion).intercept, 0.31);
  EXPECT_DOUBLE_EQ(movedLine({0.5, 0.3}, ArrowKey::Right, kT90Motion).intercept, 0.29);
  EXPECT_LT(movedLine({0.5, 0.3}, ArrowKey::Up, kT90Motion).slope, 0.5);
  EXPECT_GT(movedLine({0.5, 0.3}, ArrowKey::Down, kT90Motion).slope, 0.5);
}

TEST(T90Motion, HasNoEnds) {
  EXPECT_LT(pressed({0, 0}, ArrowKey::Up, 10, kT90Motion).slope, slopeOf(-0.99));
  EXPECT_GT(pressed({slopeOf(89.7), 0}, ArrowKey::Down, 2, kT90Motion).slope, slopeOf(89.85));
  EXPECT_LT(pressed({slopeOf(89.7), 0}, ArrowKey::Down, 4, kT90Motion).slope, 0) << "over the vertical";
}

TEST(LineMotion, ManyPressesAreThoseOfTheKey) {
  EXPECT_EQ(raisedLine({0.5, 0.1}, 3, kKoMotion), pressed({0.5, 0.1}, ArrowKey::Right, 3, kKoMotion));
  EXPECT_EQ(raisedLine({0.5, 0.1}, -3, kT90Motion), pressed({0.5, 0.1}, ArrowKey::Left, 3, kT90Motion));
  EXPECT_EQ(turnedLine({0.5, 0.1}, 7, kT90Motion), pressed({0.5, 0.1}, ArrowKey::Up, 7, kT90Motion));
  EXPECT_EQ(turnedLine({0.5, 0.1}, -7, kKoMotion), pressed({0.5, 0.1}, ArrowKey::Down, 7, kKoMotion));
  EXPECT_EQ(turnedLine({0.5, 0.1}, 0, kKoMotion), (StraightLine{0.5, 0.1}));
}

}  // namespace
}  // namespace triaxlab
