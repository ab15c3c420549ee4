#include "triaxial/result_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "triaxial/samples.h"

namespace triaxlab {
namespace {

using testing::ElementsAre;

template <class Of>
auto all(Of of) {
  std::vector<decltype(of(kResultValues[0]))> found;
  for (const ResultValue& value : kResultValues) found.push_back(of(value));
  return found;
}

TEST(ResultValues, UnitsAreThoseOfTheRecord) {
  EXPECT_THAT(
      all([](const ResultValue& value) { return value.unit; }),
      ElementsAre("kPa", "kPa", "kPa", "kPa", "kPa", "kPa", "kPa", "kPa", "cm", "cm", "cm²", "cm²", "ml", "", ""));
}

TEST(ResultValues, WhatFollowsFromTheCurvesIsNotTyped) {
  EXPECT_THAT(all([](const ResultValue& value) { return value.width; }),
              ElementsAre(6, 6, 6, 6, 0, 0, 0, 0, 6, 6, 6, 6, 6, 10, 10));
}

TEST(ResultValues, EachIsReadFromItsFieldAndStoredThere) {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  for (const ResultValue& value : kResultValues) {
    value.store(record, 2, "1.25");
    EXPECT_EQ(value.text(record, 2), "1.25") << value.label;
    EXPECT_NE(value.text(record, 1), "1.25") << value.label;
  }
  EXPECT_EQ(record.coefficientAf[2], 1.25F);
}

TEST(ResultValues, ANumberThatACoefficientCannotHoldLeavesIt) {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  record.coefficientB[0] = 0.5F;
  kResultValues[13].store(record, 0, "1E300");
  EXPECT_EQ(record.coefficientB[0], 0.5F);
}

}  // namespace
}  // namespace triaxlab
