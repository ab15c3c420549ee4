#include "triaxial/curve_page.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "triaxial/samples.h"

namespace triaxlab {
namespace {

using tests::text;

TEST(PageOf, WhatEachMethodShows) {
  //                      asked for                                1  2  3  4  5  6
  constexpr std::array<std::array<std::uint8_t, 6>, 4> kShown{{{1, 3, 3, 4, 5, 6},    // no method
                                                               {1, 3, 3, 1, 1, 1},    // UU
                                                               {1, 2, 3, 4, 5, 6},    // CU
                                                               {1, 3, 3, 4, 5, 6}}};  // CD
  TriaxialSampleRecord record;
  for (std::uint8_t method = 0; method < kShown.size(); ++method)
    for (std::uint8_t page = 1; page <= 6; ++page) {
      record.testMethod = method;
      EXPECT_EQ(static_cast<int>(pageOf(record, static_cast<CurvePage>(page))), kShown[method][page - 1U])
          << int{method} << ' ' << int{page};
    }
}

/// A CU sample whose largest ratio is on the first row and whose peak is on the second.
TriaxialSampleRecord openedSample() {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  for (std::size_t stage = 0; stage < 2; ++stage) {
    tests::setStage(record, stage, stage == 0 ? "100" : "200");
    tests::setRow(record, stage, 0, 1, stage == 0 ? "60" : "110", stage == 0 ? "50" : "120");
    tests::setRow(record, stage, 1, 2, stage == 0 ? "80" : "140", "0");
  }
  tests::open(record);
  return record;
}

TEST(ComputePage, TheEnvelopePagesRunTheirModeAndTheirFits) {
  TriaxialSampleRecord record = openedSample();
  PageResults shown = computePage(record, CurvePage::StressRatioEnvelope, FailureMode::PeakStress, NumberFormat::Whole);
  EXPECT_EQ(shown.failureRows.failureStrainAtPeak[0], "1");
  EXPECT_EQ(text(record.failureRadius[0]), "30");
  EXPECT_TRUE(shown.envelopes.total.exists);
  EXPECT_TRUE(shown.envelopes.effective.exists);
  EXPECT_NE(text(record.cohesionEffText), "");
  shown = computePage(record, CurvePage::StressDifferenceEnvelope, FailureMode::PeakStress, NumberFormat::Whole);
  EXPECT_EQ(shown.failureRows.failureStrainAtPeak[0], "2");
  EXPECT_EQ(text(record.failureRadius[0]), "40");
}

TEST(ComputePage, ThePathPageFitsItsLine) {
  TriaxialSampleRecord record = openedSample();
  // Opened: R' 40 and 70, centre' (200 + 80) / 2 = 140 and (400 + 140) / 2 = 270: slope 30 / 130.
  const PageResults shown = computePage(record, CurvePage::StressPath, FailureMode::PeakStress, NumberFormat::Whole);
  EXPECT_DOUBLE_EQ(shown.pathLine.slope, 30.0 / 130.0);
  EXPECT_EQ(record.pathSlope, static_cast<float>(30.0 / 130.0));
}

TEST(ComputePage, ThePagesWithoutAModeTakeTheOneThatIsChecked) {
  for (const CurvePage page :
       {CurvePage::StressStrain, CurvePage::StressPath, CurvePage::PorePressure, CurvePage::StressRatio}) {
    TriaxialSampleRecord record = openedSample();
    EXPECT_EQ(computePage(record, page, FailureMode::PeakRatio, NumberFormat::Whole).failureRows.failureStrainAtPeak[0],
              "1");
    EXPECT_EQ(text(record.failureRadius[0]), "30");
    computePage(record, page, FailureMode::PeakStress, NumberFormat::Whole);
    EXPECT_EQ(text(record.failureRadius[0]), "40");
    EXPECT_EQ(text(record.cohesionEffText), "") << "only the envelope pages fit them";
  }
}

TEST(ComputePage, TheEnvelopePagesTakeTheirOwnModeWhateverIsChecked) {
  TriaxialSampleRecord record = openedSample();
  computePage(record, CurvePage::StressRatioEnvelope, FailureMode::PeakStress, NumberFormat::Whole);
  EXPECT_EQ(text(record.failureRadius[0]), "30");
  computePage(record, CurvePage::StressDifferenceEnvelope, FailureMode::PeakRatio, NumberFormat::Whole);
  EXPECT_EQ(text(record.failureRadius[0]), "40");
}

TEST(ComputePage, OnlyCuHasTheRatio) {
  TriaxialSampleRecord record = openedSample();
  record.testMethod = kCD;
  computePage(record, CurvePage::StressStrain, FailureMode::PeakRatio, NumberFormat::Whole);
  EXPECT_EQ(text(record.failureRadius[0]), "40");
}

TEST(ComputePage, OnlyCuHasAPathLine) {
  TriaxialSampleRecord record = openedSample();
  record.testMethod = kCD;
  record.pathSlope = 9.0F;
  const PageResults shown = computePage(record, CurvePage::StressPath, FailureMode::PeakStress, NumberFormat::Whole);
  EXPECT_EQ(shown.pathLine.slope, 0);
  EXPECT_EQ(record.pathSlope, 9.0F);
}

}  // namespace
}  // namespace triaxlab
