#include "k0/ko_line.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

namespace triaxlab {
namespace {

struct Stage {
  std::string_view axial, lateral;
};

K0SampleRecord withStages(std::initializer_list<Stage> stages) {
  K0SampleRecord record;
  std::size_t at = 0;
  for (const Stage& stage : stages) {
    SetText(record.axialPressure[at], stage.axial);
    SetText(record.lateralPressure[at], stage.lateral);
    ++at;
  }
  return record;
}

TEST(KoLine, LiesThroughTheStagesWithBothPressures) {
  K0SampleRecord record = withStages({{"100", "52.0"}, {"150", "0"}, {"200", "102.0"}, {"", "70.0"}, {"400", "202.0"}});
  fitKoLine(record, "3.50");
  EXPECT_EQ(record.koValue.trimmed(), "0.500");
  EXPECT_EQ(record.koIntercept.trimmed(), "2.0");
  EXPECT_EQ(record.samplingDepth.trimmed(), "3.50");
  EXPECT_EQ(koLineOf(record), (StraightLine{0.5, 2}));
}

TEST(KoLine, IsTheLeastSquaresLine) {
  // x 1, 2, 3; y 1, 3, 4: the slope is (6 x 8 - 3 x 19) / (36 - 42) = 1.5, the intercept 8/3 - 6 x 1.5 / 3 = -0.33
  K0SampleRecord record = withStages({{"1", "1"}, {"2", "3"}, {"3", "4"}});
  fitKoLine(record, "");
  EXPECT_EQ(record.koValue.trimmed(), "1.500");
  EXPECT_EQ(record.koIntercept.trimmed(), "-0.3");
}

TEST(KoLine, OfOneAxialPressureIsFlat) {
  K0SampleRecord record = withStages({{"100", "50"}, {"100", "60"}});
  fitKoLine(record, "");
  EXPECT_EQ(record.koValue.trimmed(), "0.000");
  EXPECT_EQ(record.koIntercept.trimmed(), "0.0");
}

TEST(KoLine, NeedsTwoStages) {
  K0SampleRecord record = withStages({{"100", "50"}});
  SetText(record.koValue, "0.400");
  SetText(record.koIntercept, "1.0");
  SetText(record.samplingDepth, "2.0");
  fitKoLine(record, "");
  EXPECT_TRUE(record.koValue.isBlank());
  EXPECT_TRUE(record.koIntercept.isBlank());
  EXPECT_TRUE(record.samplingDepth.isBlank());
}

TEST(KoLine, SetByHandStays) {
  K0SampleRecord record = withStages({{"100", "50"}, {"200", "100"}});
  storeAdjustedKoLine(record, {0.6127, -2.25});
  EXPECT_EQ(record.koAdjusted, 1);
  fitKoLine(record, "4.0");
  EXPECT_EQ(record.koValue.trimmed(), "0.613");
  EXPECT_EQ(record.koIntercept.trimmed(), "-2.3");
  EXPECT_EQ(record.samplingDepth.trimmed(), "4.0");
}

TEST(KoLine, PressuresBeyondAllNumbersLeaveZeros) {
  K0SampleRecord record = withStages({{"1e300", "1e300"}, {"2e300", "1e300"}});
  fitKoLine(record, "");
  EXPECT_EQ(record.koValue.trimmed(), "0.000");
}

}  // namespace
}  // namespace triaxlab
