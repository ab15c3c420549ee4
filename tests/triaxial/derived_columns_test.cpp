#include "triaxial/derived_columns.h"

#include <gtest/gtest.h>

#include <vector>

#include "triaxial/samples.h"

namespace triaxlab {
namespace {

constexpr auto kAllColumns = {DerivedColumn::Strain,         DerivedColumn::DeviatorStress,
                              DerivedColumn::Sigma1,         DerivedColumn::HalfSum,
                              DerivedColumn::HalfDifference, DerivedColumn::PorePressure,
                              DerivedColumn::VolumeChange,   DerivedColumn::Sigma1Eff,
                              DerivedColumn::Sigma3Eff,      DerivedColumn::HalfDifferenceEff,
                              DerivedColumn::HalfSumEff,     DerivedColumn::RatioEff};

/// Row 7 of stage 2: sigma3 = 101, q = 60, u = 30, sigma1' = 131, sigma3' = 71.
TriaxialSampleRecord oneReading() {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  tests::setStage(record, 2, "101");
  tests::setRow(record, 2, 7, 3.2F, "60", "30");
  SetText(record.sigma1Eff[7][2], "131");
  SetText(record.sigma3Eff[7][2], "71");
  record.volumeChange[7][2] = std::int16_t{-125};
  return record;
}

std::string shown(const TriaxialSampleRecord& record, DerivedColumn column) {
  return derivedText(record, 2, 7, column);
}

TEST(DerivedColumns, OfAReading) {
  const TriaxialSampleRecord record = oneReading();
  EXPECT_EQ(shown(record, DerivedColumn::Strain), "3.20");
  EXPECT_EQ(shown(record, DerivedColumn::DeviatorStress), "60");
  EXPECT_EQ(shown(record, DerivedColumn::Sigma1), "161");
  EXPECT_EQ(shown(record, DerivedColumn::HalfSum), "131");  // (202 + 60) / 2
  EXPECT_EQ(shown(record, DerivedColumn::HalfDifference), "30");
  EXPECT_EQ(shown(record, DerivedColumn::PorePressure), "30");
  EXPECT_EQ(shown(record, DerivedColumn::VolumeChange), "-1.25");
  EXPECT_EQ(shown(record, DerivedColumn::Sigma1Eff), "131");
  EXPECT_EQ(shown(record, DerivedColumn::Sigma3Eff), "71");
  EXPECT_EQ(shown(record, DerivedColumn::HalfDifferenceEff), "30");
  EXPECT_EQ(shown(record, DerivedColumn::HalfSumEff), "101");
  EXPECT_EQ(shown(record, DerivedColumn::RatioEff), "1.845");  // 1.84507
}

TEST(DerivedColumns, ARowWithoutStressHasNone) {
  TriaxialSampleRecord record = oneReading();
  SetText(record.deviatorStress[7][2], "0");
  for (const DerivedColumn column : kAllColumns) EXPECT_EQ(shown(record, column), "");
}

TEST(DerivedColumns, AZeroLeavesItsColumnsBlank) {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  tests::setRow(record, 2, 7, 0, "60");
  for (const DerivedColumn column : kAllColumns) {
    const bool ofStressAlone = column == DerivedColumn::DeviatorStress || column == DerivedColumn::HalfDifference;
    EXPECT_EQ(shown(record, column).empty(), !ofStressAlone) << static_cast<int>(column);
  }
  SetText(record.sigma1Eff[7][2], "131");  // one of the two is not enough
  for (const auto column : {DerivedColumn::HalfDifferenceEff, DerivedColumn::HalfSumEff, DerivedColumn::RatioEff})
    EXPECT_EQ(shown(record, column), "");
}

TEST(DerivedColumns, StoredColumnsAreShownAsTheyAreStored) {
  TriaxialSampleRecord record = oneReading();
  SetText(record.deviatorStress[7][2], " 60.5");
  SetText(record.porePressure[7][2], "-0.30");
  SetText(record.sigma3Eff[7][2], "0.00");
  EXPECT_EQ(shown(record, DerivedColumn::DeviatorStress), "60.5");
  EXPECT_EQ(shown(record, DerivedColumn::PorePressure), "-0.30");
  EXPECT_EQ(shown(record, DerivedColumn::Sigma3Eff), "");
}

TEST(DerivedColumns, HalvesRoundEachInTheirWay) {
  TriaxialSampleRecord record = oneReading();
  SetText(record.deviatorStress[7][2], "61");
  SetText(record.sigma1Eff[7][2], "132");
  EXPECT_EQ(shown(record, DerivedColumn::HalfSum), "132");           // 131.5, away from zero
  EXPECT_EQ(shown(record, DerivedColumn::HalfDifference), "31");     // 30.5, away from zero
  EXPECT_EQ(shown(record, DerivedColumn::HalfDifferenceEff), "30");  // 30.5, to even as an integer
  EXPECT_EQ(shown(record, DerivedColumn::HalfSumEff), "102");        // 101.5, away from zero
}

TEST(DerivedColumns, Sigma1IsTheFloor) {
  TriaxialSampleRecord record = oneReading();
  SetText(record.deviatorStress[7][2], "60.9");
  EXPECT_EQ(shown(record, DerivedColumn::Sigma1), "161");
  SetText(record.deviatorStress[7][2], "-200.5");
  EXPECT_EQ(shown(record, DerivedColumn::Sigma1), "-100");  // Int(-99.5)
}

TEST(DerivedColumns, AnIntegerOutOfRangeIsBlank) {
  TriaxialSampleRecord record = oneReading();
  SetText(record.deviatorStress[7][2], "32666");
  EXPECT_EQ(shown(record, DerivedColumn::Sigma1), "32767");
  SetText(record.deviatorStress[7][2], "32667");
  EXPECT_EQ(shown(record, DerivedColumn::Sigma1), "");
  EXPECT_EQ(shown(record, DerivedColumn::HalfSum), "16435");  // (202 + 32667) / 2 = 16434.5
  SetText(record.sigma1Eff[7][2], "99999");
  EXPECT_EQ(shown(record, DerivedColumn::HalfDifferenceEff), "");
  EXPECT_EQ(shown(record, DerivedColumn::HalfSumEff), "50035");
}

}  // namespace
}  // namespace triaxlab
