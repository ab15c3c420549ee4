#include "triaxial/touching_circles.h"

#include <gtest/gtest.h>

#include "triaxial/samples.h"

namespace triaxlab {
namespace {

using tests::text;

// tan phi 0.75 makes w = sqrt(0.5625 + 1) = 1.25.
constexpr Envelope kEnvelope{.tanPhi = 0.75, .cohesion = 25, .exists = true};

TEST(TouchingCircles, RadiusOfTheCircleFromSigma3) {
  // b = 100 x 0.75 + 25 = 100; r = 100 / (1.25 - 0.75).
  EXPECT_DOUBLE_EQ(touchingRadius(kEnvelope, 100), 200);
  // Without friction the radius is the cohesion.
  EXPECT_DOUBLE_EQ(touchingRadius({.tanPhi = 0, .cohesion = 30, .exists = true}, 100), 30);
  // b = 75 - 100 = -25: the first candidate is -50, the other -25 / (-1.25 - 0.75).
  EXPECT_DOUBLE_EQ(touchingRadius({.tanPhi = 0.75, .cohesion = -100, .exists = true}, 100), 12.5);
}

TEST(TouchingCircles, TheLargestStressBecomesTheDiameter) {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  tests::setStage(record, 0, "100");
  tests::setRow(record, 0, 0, 0.5F, "20");
  tests::setRow(record, 0, 1, 21.9F, "80");  // beyond the strain limit, and still the largest
  tests::setRow(record, 0, 2, 22.0F, "-5");
  tests::setStage(record, 1, "0");
  tests::setRow(record, 1, 0, 0.5F, "10");
  tests::setRow(record, 1, 1, 1.0F, "11");
  rescaleToEnvelope(record, kEnvelope);
  // 2 x 200 / 80 = 5
  EXPECT_EQ(text(record.deviatorStress[0][0]), "100.0");
  EXPECT_EQ(text(record.deviatorStress[1][0]), "400.0");
  EXPECT_EQ(text(record.deviatorStress[2][0]), "-5");
  EXPECT_TRUE(record.deviatorStress[3][0].isBlank());
  EXPECT_EQ(text(record.deviatorStress[1][1]), "11") << "a stage without pressure";
}

TEST(TouchingCircles, OfEqualStressesTheFirstIsTheLargest) {
  TriaxialSampleRecord record = tests::sampleOf(kUU);
  tests::setStage(record, 0, "100");
  tests::setRow(record, 0, 0, 0.5F, "80");
  tests::setRow(record, 0, 1, 1.0F, "80");
  rescaleToEnvelope(record, kEnvelope);
  EXPECT_EQ(text(record.deviatorStress[1][0]), "80") << "largest on the first row";
}

TEST(TouchingCircles, TheEffectiveStressesFollowTheNewCurve) {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  tests::setStage(record, 0, "100");
  tests::setRow(record, 0, 0, 0.5F, "20", "10");
  tests::setRow(record, 0, 1, 1.0F, "80", "30");
  rescaleToEnvelope(record, kEnvelope);
  // The factor is 5: 100 + 100 - 10 and 400 + 100 - 30.
  EXPECT_EQ(text(record.sigma1Eff[0][0]), "190");
  EXPECT_EQ(text(record.sigma1Eff[1][0]), "470");
  EXPECT_EQ(text(record.sigma3Eff[1][0]), "70");
}

TEST(TouchingCircles, ACurveWithoutStressOrCircleStays) {
  TriaxialSampleRecord record = tests::sampleOf(kUU);
  tests::setStage(record, 0, "100");
  rescaleToEnvelope(record, kEnvelope);
  EXPECT_TRUE(record.deviatorStress[0][0].isBlank());
  tests::setRow(record, 0, 1, 1.0F, "80");
  rescaleToEnvelope(record, {.tanPhi = 0, .cohesion = 0, .exists = true});
  EXPECT_EQ(text(record.deviatorStress[1][0]), "80");
}

}  // namespace
}  // namespace triaxlab
