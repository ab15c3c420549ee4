#include "k0/opening_pass.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace triaxlab {
namespace {

void setNumbers(K0SampleRecord& head, std::string_view sampleNo) {
  SetText(head.projectNo, "P1");
  SetText(head.sampleNo, sampleNo);
}

void setStage(K0SampleRecord& head, std::size_t stage, std::string_view axial, std::string_view lateral) {
  SetText(head.axialPressure[stage], axial);
  SetText(head.lateralPressure[stage], lateral);
}

TEST(OpeningPass, FitsEveryLiveK0Sample) {
  std::array<K0SampleRecord, 3> table;
  for (K0SampleRecord& record : table) {
    setStage(record, 0, "100", "60");
    setStage(record, 1, "200", "110");
  }
  setNumbers(table[0], "S1");
  setNumbers(table[1], "");
  setNumbers(table[2], "S3");
  SetText(table[2].samplingDepth, "3.5");
  reduceAllK0Samples(table);
  EXPECT_EQ(table[0].koValue.trimmed(), "0.500");
  EXPECT_EQ(table[0].koIntercept.trimmed(), "10.0");
  EXPECT_TRUE(table[1].koValue.isBlank()) << "an empty slot";
  EXPECT_EQ(table[2].koValue.trimmed(), "0.500");
  EXPECT_EQ(table[2].samplingDepth.trimmed(), "3.5");
}

/// Two loaded stages whose lateral pressure is 50 and 100 kPa at all times.
TK0SampleRecord steadyPressures() {
  TK0SampleRecord record;
  setNumbers(record.k0, "S1");
  setStage(record.k0, 0, "100", "1.0");
  setStage(record.k0, 1, "200", "1.0");
  for (std::size_t row = 1; row <= 6; ++row) {
    record.elapsedSeconds[row] = static_cast<std::int32_t>(60 * row * row);
    for (const std::size_t stage : {0U, 1U}) {
      SetText(record.deformationSeries[row][stage], row < 6 ? "0." + std::to_string(row) : "0.52");
      SetText(record.pressureSeries[row][stage], stage == 0 ? "50.0" : "100.0");
    }
  }
  return record;
}

TEST(OpeningPass, TheLineOfATK0SampleGoesThroughThePressuresAtT90) {
  std::array<TK0SampleRecord, 2> table{steadyPressures(), steadyPressures()};
  table[1].k0.projectNo.clear();
  const TK0SampleRecord emptySlot = table[1];
  reduceAllTK0Samples(table);
  EXPECT_EQ(table[0].k0.lateralPressure[0].trimmed(), "50.0");
  EXPECT_EQ(table[0].k0.lateralPressure[1].trimmed(), "100.0");
  EXPECT_EQ(table[0].k0.koValue.trimmed(), "0.500");
  EXPECT_EQ(table[0].k0.koIntercept.trimmed(), "0.0");
  EXPECT_EQ(std::memcmp(&table[1], &emptySlot, sizeof emptySlot), 0);
}

}  // namespace
}  // namespace triaxlab
