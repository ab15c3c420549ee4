#include "triaxial/curve_adjustment.h"

#include <gtest/gtest.h>

#include <limits>

#include "triaxial/charts/curve_points.h"
#include "triaxial/samples.h"

namespace triaxlab {
namespace {

using tests::text;

/// The second stage under pressure, its curve 10, 20, 30 kPa at 0.5, 1.0, 1.5 %.
struct CurveAdjusting : testing::Test {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  CurveAdjustment adjustment;

  CurveAdjusting() {
    tests::setStage(record, 1, "200");
    tests::setRow(record, 1, 0, 0.5F, "10", "1");
    tests::setRow(record, 1, 1, 1.0F, "20", "2");
    tests::setRow(record, 1, 2, 1.5F, "30", "3");
    adjustment = adjustmentOf(record);
  }
  std::string working(std::size_t row) const { return text(adjustment.workCurve[row][1]); }
};

TEST_F(CurveAdjusting, BeginsWithTheCurvesAsTheyAreOnTheFirstUsedStage) {
  EXPECT_EQ(adjustment.selectedStage, 1U);
  EXPECT_EQ(adjustment.workCurve, record.deviatorStress);
  EXPECT_EQ(adjustment.stageShift, PerStage<std::int16_t>{});
}

TEST_F(CurveAdjusting, SlidesWithinFiftyRows) {
  slideCurve(adjustment, -1);
  EXPECT_EQ(adjustment.stageShift[1], 0);
  for (int i = 0; i < 60; ++i) slideCurve(adjustment, 1);
  EXPECT_EQ(adjustment.stageShift[1], 50);
  slideCurve(adjustment, -1);
  EXPECT_EQ(adjustment.stageShift, (PerStage<std::int16_t>{0, 49, 0, 0, 0}));
}

TEST_F(CurveAdjusting, MultipliesAllRowsOfTheStage) {
  SetText(adjustment.workCurve[0][0], "10");
  EXPECT_TRUE(multiplyCurve(adjustment, 2.55));
  EXPECT_EQ(working(0), "25.5");
  EXPECT_EQ(working(1), "51.0");
  EXPECT_EQ(working(211), "0.0");
  EXPECT_EQ(text(adjustment.workCurve[0][0]), "10") << "another stage stays";
  EXPECT_TRUE(multiplyCurve(adjustment, -1));
  EXPECT_EQ(working(2), "-76.5");
}

TEST_F(CurveAdjusting, RefusesFactorsThatMakeNoSense) {
  const double kNone = std::numeric_limits<double>::quiet_NaN();
  for (const double factor : {0.0, 50.0, 1e9, kNone}) {
    EXPECT_FALSE(multiplyCurve(adjustment, factor)) << factor;
    EXPECT_EQ(working(0), "10");
  }
  EXPECT_TRUE(multiplyCurve(adjustment, 49.9));
  EXPECT_EQ(working(0), "499.0");
}

TEST_F(CurveAdjusting, AddsToTheFirstTenRowsAndToThoseUnderStress) {
  SetText(adjustment.workCurve[12][1], "7");
  EXPECT_TRUE(addToCurve(adjustment, 5.25));
  EXPECT_EQ(working(0), "15.3");  // 15.25, half away from zero
  EXPECT_EQ(working(9), "5.3");
  EXPECT_EQ(working(10), "");
  EXPECT_EQ(working(12), "12.3");
  EXPECT_FALSE(addToCurve(adjustment, 0));
  EXPECT_EQ(working(0), "15.3");
}

TEST_F(CurveAdjusting, AReadingIsSetButNotToNothing) {
  setReading(adjustment, 1, 23.456);
  EXPECT_EQ(working(1), "23.5");
  setReading(adjustment, 1, 0);
  EXPECT_EQ(working(1), "23.5");
}

TEST_F(CurveAdjusting, KeepsAShiftByMovingTheRowsUp) {
  SetText(record.sigma1Eff[2][1], "229");
  SetText(record.sigma3Eff[2][1], "199");
  record.volumeChange[2][1] = 33;
  record.volumeChange[211][1] = 99;
  SetText(record.porePressure[211][1], "88");
  tests::setRow(record, 0, 2, 1.5F, "5", "6");
  const ShearRows<Little<float>> strains = record.axialStrain;
  setReading(adjustment, 2, 31.5);
  slideCurve(adjustment, 1);
  slideCurve(adjustment, 1);
  SetText(adjustment.workCurve[2][0], "5.5");

  storeAdjustment(record, adjustment);
  EXPECT_EQ(text(record.deviatorStress[0][1]), "31.5");
  EXPECT_EQ(text(record.sigma1Eff[0][1]), "229");
  EXPECT_EQ(text(record.sigma3Eff[0][1]), "197");
  EXPECT_EQ(text(record.porePressure[0][1]), "3");
  EXPECT_EQ(record.volumeChange[0][1], 33);
  EXPECT_TRUE(record.deviatorStress[1][1].isBlank());
  EXPECT_EQ(text(record.porePressure[209][1]), "88");
  EXPECT_EQ(record.volumeChange[209][1], 99);
  for (const std::size_t row : {210U, 211U}) {
    EXPECT_TRUE(record.porePressure[row][1].isBlank());
    EXPECT_EQ(record.volumeChange[row][1], 0);
  }
  EXPECT_EQ(record.axialStrain, strains);
  EXPECT_EQ(text(record.deviatorStress[2][0]), "5.5") << "a stage that was not slid keeps its rows";
  EXPECT_EQ(text(record.porePressure[2][0]), "6");
}

TEST_F(CurveAdjusting, TheEffectiveStressesFollowTheNewCurve) {
  SetText(record.sigma1Eff[0][1], "209");
  SetText(record.sigma3Eff[0][1], "199");
  SetText(record.sigma1Eff[5][1], "201");  // a row without stress keeps what it holds
  record.consolidationPorePressure[0][1] = std::int16_t{1900};
  multiplyCurve(adjustment, 2.5);
  storeAdjustment(record, adjustment);
  EXPECT_EQ(text(record.sigma1Eff[0][1]), "224");  // 25.0 + 200 - 1
  EXPECT_EQ(text(record.sigma3Eff[0][1]), "199");
  EXPECT_EQ(text(record.sigma1Eff[2][1]), "272");  // 75.0 + 200 - 3
  EXPECT_EQ(text(record.sigma1Eff[5][1]), "201");
  EXPECT_EQ(record.coefficientB[1], 0.0F) << "that is found when the file is opened";
}

TEST_F(CurveAdjusting, OtherThanCUHaveNoEffectiveStresses) {
  record.testMethod = kCD;
  SetText(record.sigma1Eff[0][1], "209");
  storeAdjustment(record, adjustment);
  EXPECT_TRUE(record.sigma1Eff[0][1].isBlank());
}

// ---- the reading next to a strain

TEST_F(CurveAdjusting, FindsTheNearerOfTwoNeighbours) {
  EXPECT_EQ(rowNextTo(record, adjustment, 0.7), 0U);
  EXPECT_EQ(rowNextTo(record, adjustment, 0.75), 0U) << "the former of two equally near";
  EXPECT_EQ(rowNextTo(record, adjustment, 0.8), 1U);
  EXPECT_EQ(rowNextTo(record, adjustment, 1.5), 2U);
  EXPECT_EQ(rowNextTo(record, adjustment, 1.6), std::nullopt) << "behind the last";
}

TEST_F(CurveAdjusting, SeparateSpecimensHaveNothingInFrontOfTheFirstReading) {
  EXPECT_EQ(rowNextTo(record, adjustment, 0.4), std::nullopt);
}

TEST_F(CurveAdjusting, OtherTestsBeginAtTheOriginWhichIsNoReading) {
  record.shearMode = 3;
  EXPECT_EQ(rowNextTo(record, adjustment, 0.2), std::nullopt);
  EXPECT_EQ(rowNextTo(record, adjustment, 0.3), 0U);
  record.shearMode = 2;  // a later stage goes on from the one before, without the origin
  EXPECT_EQ(rowNextTo(record, adjustment, 0.3), std::nullopt);
  record.uuAdjustFlag = 1;
  EXPECT_EQ(rowNextTo(record, adjustment, 0.3), 0U);
}

TEST_F(CurveAdjusting, FindsTheStrainAtWhichAReadingIsDrawn) {
  // Slid by one row, 20 kPa stand at 0.5 % and 30 kPa at 1.0 %; nothing is drawn at 1.5 %.
  adjustment.stageShift[1] = 1;
  EXPECT_EQ(rowNextTo(record, adjustment, 0.6), 0U);
  EXPECT_EQ(rowNextTo(record, adjustment, 1.2), std::nullopt);
}

TEST_F(CurveAdjusting, ASingleReadingHasNoNeighbour) {
  for (const std::size_t row : {1U, 2U}) adjustment.workCurve[row][1].clear();
  EXPECT_EQ(rowNextTo(record, adjustment, 0.5), std::nullopt);
}

}  // namespace
}  // namespace triaxlab
