#include "triaxial/stress_path.h"

#include <gtest/gtest.h>

#include "triaxial/samples.h"

namespace triaxlab {
namespace {

TriaxialSampleRecord withPoints(std::initializer_list<std::pair<const char*, const char*>> points) {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  std::size_t stage = 0;
  for (const auto& [centre, radius] : points) {
    SetText(record.failureCentreEff[stage], centre);
    SetText(record.failureRadiusEff[stage], radius);
    ++stage;
  }
  return record;
}

TEST(StressPath, IsTheLineOfLeastSquares) {
  // (100, 50), (200, 90), (300, 100): n = 3, sum x = 600, y = 240, x^2 = 140000, xy = 53000.
  // a = (240 x 600 - 53000 x 3) / (360000 - 420000) = -15000 / -60000 = 0.25; b = 80 - 0.25 x 200 = 30.
  TriaxialSampleRecord record = withPoints({{"100", "50"}, {"200", "90"}, {"300", "100"}});
  const PathLine line = stressPathOfPage(record);
  EXPECT_DOUBLE_EQ(line.slope, 0.25);
  EXPECT_DOUBLE_EQ(line.intercept, 30);
  EXPECT_EQ(record.pathSlope, 0.25F);
  EXPECT_EQ(record.pathIntercept, 30.0F);
}

TEST(StressPath, LeavesOutStagesWithoutRadius) {
  // (100, 50), (300, 130): a = 0.4, b = 10.
  TriaxialSampleRecord record = withPoints({{"100", "50"}, {"900", ""}, {"300", "130"}, {"900", "0"}});
  const PathLine line = stressPathOfPage(record);
  EXPECT_DOUBLE_EQ(line.slope, 0.4);
  EXPECT_DOUBLE_EQ(line.intercept, 10);
}

TEST(StressPath, WithoutALineBothAreZero) {
  for (TriaxialSampleRecord record :
       {withPoints({}), withPoints({{"100", "50"}}), withPoints({{"100", "50"}, {"100", "70"}})}) {
    record.pathSlope = 9.0F;
    record.pathIntercept = 9.0F;
    const PathLine line = stressPathOfPage(record);
    EXPECT_EQ(line.slope, 0);
    EXPECT_EQ(line.intercept, 0);
    EXPECT_EQ(record.pathSlope, 0.0F);
    EXPECT_EQ(record.pathIntercept, 0.0F);
  }
}

TEST(StressPath, AdjustedByHandIsReadBack) {
  TriaxialSampleRecord record = withPoints({{"100", "50"}, {"200", "90"}});
  record.pathAdjustedFlag = 1;
  record.pathSlope = 0.5F;
  record.pathIntercept = 7.5F;
  const PathLine line = stressPathOfPage(record);
  EXPECT_EQ(line.slope, 0.5);
  EXPECT_EQ(line.intercept, 7.5);
  record.pathAdjustedFlag = 2;  // only 1 says that a person did it
  EXPECT_DOUBLE_EQ(stressPathOfPage(record).slope, 0.4);
}

TEST(StressPath, SetByHandIsKeptAndReadBack) {
  TriaxialSampleRecord record = withPoints({{"100", "50"}, {"200", "90"}});
  storeAdjustedPath(record, {.slope = 0.5, .intercept = -7.25});
  EXPECT_EQ(record.pathAdjustedFlag, 1);
  EXPECT_EQ(record.pathSlope, 0.5F);
  EXPECT_EQ(record.pathIntercept, -7.25F);
  EXPECT_EQ(stressPathOfPage(record), (PathLine{0.5, -7.25}));
}

}  // namespace
}  // namespace triaxlab
