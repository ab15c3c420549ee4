#include "triaxial/measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace triaxlab {
namespace {

TEST(StageUsed, BlankAndZeroAreTheSame) {
  TriaxialSampleRecord record;
  SetText(record.cellPressure[1], "0");
  SetText(record.cellPressure[2], "x");
  SetText(record.cellPressure[3], "100");
  SetText(record.cellPressure[4], "-50");
  EXPECT_FALSE(StageUsed(record, 0));
  EXPECT_FALSE(StageUsed(record, 1));
  EXPECT_FALSE(StageUsed(record, 2));
  EXPECT_TRUE(StageUsed(record, 3));
  EXPECT_TRUE(StageUsed(record, 4));
}

TEST(ClampFailureLimit, AZeroedRecordHasTheUsualLimit) {
  TriaxialSampleRecord record;
  const PerStage<double> limits = ClampFailureLimit(record);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    EXPECT_EQ(record.failureStrainLimit[stage], 150);
    EXPECT_EQ(limits[stage], 15.0);
  }
}

TEST(ClampFailureLimit, EveryByte) {
  for (int limit = 0; limit < 256; ++limit) {
    TriaxialSampleRecord record;
    record.failureStrainLimit[4] = static_cast<std::uint8_t>(limit);
    const double percent = ClampFailureLimit(record)[4];
    const int expected = limit >= 35 && limit <= 220 ? limit : 150;
    EXPECT_EQ(record.failureStrainLimit[4], expected) << limit;
    EXPECT_EQ(percent, expected / 10.0) << limit;
  }
}

TEST(ReadStrain, IsTheDecimalNumberThatAPersonReads) {
  TriaxialSampleRecord record;
  record.axialStrain[3][1] = 0.2F;  // 0.200000003 as it is kept
  EXPECT_EQ(ReadStrain(record, 1, 3), 0.2);
  record.axialStrain[3][1] = 21.2F;
  EXPECT_EQ(ReadStrain(record, 1, 3), 21.2);
}

TEST(WithinLimit, SevenDigitsDecideNextToTheLimit) {
  // The floats above 15 stand 2^-20 = 0.00000095 apart. Five steps make 15.0000048, which reads as 15.00000, six make
  // 15.0000057, which reads as 15.00001.
  TriaxialSampleRecord record;
  float strain = 15;
  for (int steps = 0; steps <= 8; ++steps, strain = std::nextafter(strain, 100.0F)) {
    record.axialStrain[0][0] = strain;
    EXPECT_EQ(withinLimit(record, 0, 0, 15.0), steps <= 5) << steps;
  }
}

TEST(WithinLimit, AgreesWithTheTextAroundEveryLimit) {
  TriaxialSampleRecord record;
  for (int tenths = 35; tenths <= 220; ++tenths) {
    const double limit = tenths / 10.0;
    for (auto strain = static_cast<float>(limit - 3e-5); strain < limit + 3e-5; strain = std::nextafter(strain, 99.F)) {
      record.axialStrain[0][0] = strain;
      ASSERT_EQ(withinLimit(record, 0, 0, limit), ReadStrain(record, 0, 0) <= limit) << limit << ' ' << strain;
    }
  }
}

TEST(WithinLimit, AStrainThatIsNoNumberIsOutside) {
  TriaxialSampleRecord record;
  record.axialStrain[0][0] = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(withinLimit(record, 0, 0, 15.0));
  record.axialStrain[0][0] = std::numeric_limits<float>::infinity();
  EXPECT_FALSE(withinLimit(record, 0, 0, 15.0));
  record.axialStrain[0][0] = -1.0F;
  EXPECT_TRUE(withinLimit(record, 0, 0, 15.0));
}

TEST(IsMultiStage, ModesTwoAndThree) {
  TriaxialSampleRecord record;
  for (int mode = 0; mode < 256; ++mode) {
    record.shearMode = static_cast<std::uint8_t>(mode);
    EXPECT_EQ(isMultiStage(record), mode == 2 || mode == 3) << mode;
  }
}

}  // namespace
}  // namespace triaxlab
