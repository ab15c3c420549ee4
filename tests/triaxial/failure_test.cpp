#include "triaxial/failure.h"

#include <gtest/gtest.h>

#include "triaxial/samples.h"

namespace triaxlab {
namespace {

using tests::open;
using tests::sampleOf;
using tests::setRow;
using tests::setStage;
using tests::text;

/// Stage 0 under 100 kPa with the readings
///   strain   q    u   | 2 s3 + q   2 s3 + q - 2 u   q + s3   s1'   s3'   s1'/s3'
///     1     60   50   |   260           160           160    110    50    2.200
///     2     80   30   |   280           220           180    150    70    2.143
///     3     70    5   |   270           260           170    165    95    1.737
TriaxialSampleRecord threeReadings(TestMethod method, std::uint8_t shearMode = 1) {
  TriaxialSampleRecord record = sampleOf(method, shearMode);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "60", "50");
  setRow(record, 0, 1, 2, "80", "30");
  setRow(record, 0, 2, 3, "70", "5");
  return record;
}

TEST(IndependentMaxima, EachFindsItsOwnRow) {
  TriaxialSampleRecord record = threeReadings(kCU);
  record.consolidationPorePressure[0][0] = std::int16_t{500};
  open(record);
  EXPECT_EQ(text(record.failureRadius[0]), "40");  // 80 / 2
  EXPECT_EQ(text(record.failureRadiusEff[0]), "40");
  EXPECT_EQ(text(record.failureCentre[0]), "140");     // 280 / 2
  EXPECT_EQ(text(record.failureCentreEff[0]), "130");  // 260 / 2
  EXPECT_EQ(text(record.sigma1Failure[0]), "180");
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "165");
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "70");  // of the row of the peak
  EXPECT_EQ(record.coefficientB[0], 0.5F);            // 50.0 / 100
  EXPECT_EQ(record.coefficientAf[0], 0.75F);          // 30 / (80 x 0.5)
}

TEST(IndependentMaxima, OneSpecimenTakesItsLargestSigma3Eff) {
  TriaxialSampleRecord record = threeReadings(kCU, 2);
  open(record);
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "95");
  record = threeReadings(kCU, 3);  // the other multi-stage mode goes with the peak
  open(record);
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "70");
}

TEST(IndependentMaxima, OtherMethodsHaveTotalStressesOnly) {
  for (const TestMethod method : {kUU, kCD}) {
    TriaxialSampleRecord record = threeReadings(method);
    for (auto* field : {&record.sigma1FailureEff[0], &record.sigma3FailureEff[0]}) SetText(*field, "88");
    SetText(record.failureRadiusEff[0], "88");
    SetText(record.failureCentreEff[0], "88");
    open(record);
    EXPECT_EQ(text(record.failureRadius[0]), "40");
    EXPECT_EQ(text(record.failureRadiusEff[0]), "");
    EXPECT_EQ(text(record.failureCentre[0]), "140");
    EXPECT_EQ(text(record.failureCentreEff[0]), "");
    EXPECT_EQ(text(record.sigma1Failure[0]), "180");
    EXPECT_EQ(text(record.sigma1FailureEff[0]), "");
    EXPECT_EQ(text(record.sigma3FailureEff[0]), "88");  // the opening leaves it alone
  }
}

TEST(IndependentMaxima, OfEqualPeaksTheEarlierCounts) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 10, 4, "60", "30");
  setRow(record, 0, 20, 8, "60", "10");
  open(record);
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "70");
}

TEST(IndependentMaxima, RowsBeyondTheLimitTakeNoPart) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 14.8F, "60", "10");
  setRow(record, 0, 1, 15.0F, "70", "10");
  setRow(record, 0, 2, 15.2F, "90", "10");
  open(record);
  EXPECT_EQ(text(record.failureRadius[0]), "35");
  record.failureStrainLimit[0] = 152;
  open(record);
  EXPECT_EQ(text(record.failureRadius[0]), "45");
  record.failureStrainLimit[0] = 149;
  open(record);
  EXPECT_EQ(text(record.failureRadius[0]), "30");
}

TEST(IndependentMaxima, AStageWithoutACurveStandsAtItsCellPressure) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 2, "300");
  open(record);
  EXPECT_EQ(text(record.failureRadius[2]), "");
  EXPECT_EQ(text(record.failureCentre[2]), "300");  // (2 x 300 + 0) / 2
  EXPECT_EQ(text(record.failureCentreEff[2]), "300");
  EXPECT_EQ(text(record.sigma1Failure[2]), "300");
  EXPECT_EQ(text(record.sigma1FailureEff[2]), "");
}

TEST(IndependentMaxima, EmptyRowsHoldTheEffectiveCentreAtTheCellPressure) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "20", "60");  // 220 - 120 = 100, less than the 200 of a row without readings
  open(record);
  EXPECT_EQ(text(record.failureCentreEff[0]), "100");
}

TEST(IndependentMaxima, AnUnusedStageIsBlanked) {
  TriaxialSampleRecord record = threeReadings(kCU);
  open(record);
  setStage(record, 0, "0");
  open(record);
  EXPECT_EQ(text(record.failureRadius[0]), "");
  EXPECT_EQ(text(record.failureRadiusEff[0]), "");
  EXPECT_EQ(text(record.failureCentre[0]), "");
  EXPECT_EQ(text(record.failureCentreEff[0]), "");
  EXPECT_EQ(text(record.sigma1Failure[0]), "");
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "");
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "");
  EXPECT_EQ(text(record.deviatorStress[1][0]), "80");  // the curve stays
}

std::string radiusOfPeak(std::string_view q) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, q);
  open(record);
  return text(record.failureRadius[0]);
}

TEST(IndependentMaxima, ThePeakIsAnInteger) {
  EXPECT_EQ(radiusOfPeak("101"), "51");  // 50.5
  EXPECT_EQ(radiusOfPeak("2.5"), "1");   // 2 by ties to even
  EXPECT_EQ(radiusOfPeak("3.5"), "2");   // 4
  EXPECT_EQ(radiusOfPeak("0.4"), "");    // 0
  EXPECT_EQ(radiusOfPeak("0.5"), "");    // 0, ties to even
  EXPECT_EQ(radiusOfPeak("0.6"), "1");   // 1 / 2, away from zero
  EXPECT_EQ(radiusOfPeak("32767"), "16384");
  EXPECT_EQ(radiusOfPeak("32768"), "");
  EXPECT_EQ(radiusOfPeak("-5"), "");
}

TEST(IndependentMaxima, AReadingIsComparedWithTheRoundedPeak) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "2.5", "10");
  setRow(record, 0, 1, 2, "2.4", "20");  // above the 2 that 2.5 became
  open(record);
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "80");
}

TEST(IndependentMaxima, ValuesBeyondAnIntegerLeaveTheRunningOnes) {
  TriaxialSampleRecord record = sampleOf(kCU);
  record.coefficientB[0] = 0.5F;
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "50", "20");
  setRow(record, 0, 1, 2, "40000", "-5");
  open(record);
  EXPECT_EQ(text(record.failureRadius[0]), "25");
  EXPECT_EQ(text(record.failureCentre[0]), "125");     // (200 + 50) / 2
  EXPECT_EQ(text(record.failureCentreEff[0]), "105");  // (250 - 40) / 2
  EXPECT_EQ(text(record.sigma1Failure[0]), "150");
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "130");  // 150 - 20
  // The peak stayed; its pore pressure and sigma3' are those of the larger reading all the same.
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "105");
  EXPECT_EQ(record.coefficientAf[0], -0.2F);  // -5 / (50 x 0.5)
}

TEST(IndependentMaxima, TheEffectiveRadiusHasFourPlaces) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "2468");
  open(record);
  EXPECT_EQ(text(record.failureRadiusEff[0]), "1234");
  setRow(record, 0, 0, 1, "24690");
  open(record);
  EXPECT_EQ(text(record.failureRadius[0]), "12345");
  EXPECT_EQ(text(record.failureRadiusEff[0]), "1234");
}

TEST(IndependentMaxima, WithoutSigma3EffItIsSigma1EffThatIsBlanked) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "60", "120");  // sigma1' = 40, sigma3' = -20
  SetText(record.sigma1FailureEff[0], "66");
  SetText(record.sigma3FailureEff[0], "88");
  open(record);
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "");
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "88");
}

TEST(IndependentMaxima, ASigma1EffBelowOneIsBlank) {
  TriaxialSampleRecord record = sampleOf(kCU, 2);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "-150", "0");  // sigma1' = -50, sigma3' = 100
  SetText(record.sigma1FailureEff[0], "66");
  open(record);
  EXPECT_EQ(text(record.sigma1Failure[0]), "100");  // of the rows without stress
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "");
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "100");
}

TEST(IndependentMaxima, WithoutSigma1TheEffectiveStressesStay) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "-100");
  setRow(record, 0, 0, 1, "60");  // sigma1 = -40
  SetText(record.sigma1Failure[0], "55");
  SetText(record.sigma1FailureEff[0], "66");
  SetText(record.sigma3FailureEff[0], "88");
  open(record);
  EXPECT_EQ(text(record.failureRadius[0]), "30");
  EXPECT_EQ(text(record.failureCentre[0]), "");
  EXPECT_EQ(text(record.sigma1Failure[0]), "");
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "66");
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "88");
}

float openedAf(float af, float b, std::string_view q, std::string_view u = "30", TestMethod method = kCU) {
  TriaxialSampleRecord record = sampleOf(method);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, q, u);
  record.coefficientB[0] = b;
  record.coefficientAf[0] = af;
  open(record);
  return record.coefficientAf[0];
}

TEST(CoefficientAf, IsComputedWhenNotYetThere) {
  EXPECT_EQ(openedAf(0, 0.5F, "60"), 1.0F);  // 30 / (60 x 0.5)
  EXPECT_EQ(openedAf(0.00005F, 0.5F, "60"), 1.0F);
  EXPECT_EQ(openedAf(0.3F, 0.5F, "60"), 0.3F);
  EXPECT_EQ(openedAf(-0.3F, 0.5F, "60"), -0.3F);
  EXPECT_EQ(openedAf(0.00005F, 0, "60"), 0.0F);         // no B, no Af
  EXPECT_EQ(openedAf(0, 0.5F, "60", "30", kUU), 1.0F);  // whatever the method
}

TEST(CoefficientAf, IsComputedInDoubleFromTheStoredB) {
  // B is kept as the single 0.949999988079071: 30 / (60 x 0.949999988079071) = 0.52631579607...
  EXPECT_EQ(openedAf(0, 0.95F, "60"), static_cast<float>(30 / (60 * 0.949999988079071)));
}

TEST(CoefficientAf, AQuotientWithoutAValueIsNotStored) {
  EXPECT_EQ(openedAf(0.00005F, 0.5F, ""), 0.00005F);                   // 0 / 0
  EXPECT_EQ(openedAf(0.00005F, 0.5F, "0.4"), 0.00005F);                // the peak is the integer 0
  EXPECT_EQ(openedAf(0.00005F, 1e-44F, "1", "99999", kUU), 0.00005F);  // beyond single precision
}

TEST(FailureMode, PeakStressTakesItsRow) {
  TriaxialSampleRecord record = threeReadings(kCU);
  open(record);
  const FailureRows rows = applyFailureMode(record, FailureMode::PeakStress);
  EXPECT_EQ(text(record.failureRadius[0]), "40");
  EXPECT_EQ(text(record.failureRadiusEff[0]), "40");
  EXPECT_EQ(text(record.failureCentre[0]), "140");
  EXPECT_EQ(text(record.failureCentreEff[0]), "110");  // 220 / 2
  EXPECT_EQ(text(record.sigma1Failure[0]), "180");
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "150");
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "70");
  EXPECT_EQ(text(rows.failureStressAtPeak[0]), "30");
  EXPECT_EQ(rows.failureStrainAtPeak[0], "2");
  EXPECT_EQ(rows.failureStrainAtPeak[1], "");
}

TEST(FailureMode, PeakRatioTakesItsRow) {
  TriaxialSampleRecord record = threeReadings(kCU);
  open(record);
  const FailureRows rows = applyFailureMode(record, FailureMode::PeakRatio);
  EXPECT_EQ(text(record.failureRadius[0]), "30");  // 60 / 2
  EXPECT_EQ(text(record.failureRadiusEff[0]), "30");
  EXPECT_EQ(text(record.failureCentre[0]), "130");    // 260 / 2
  EXPECT_EQ(text(record.failureCentreEff[0]), "80");  // (110 + 50) / 2
  EXPECT_EQ(text(record.sigma1Failure[0]), "160");
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "110");
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "50");
  EXPECT_EQ(text(rows.failureStressAtPeak[0]), "50");
  EXPECT_EQ(rows.failureStrainAtPeak[0], "1");
}

TEST(FailureMode, PeakRatioPassesOverAZeroSigma3Eff) {
  TriaxialSampleRecord record = threeReadings(kCU);
  setRow(record, 0, 3, 4, "60", "100");  // sigma3' = 0
  setRow(record, 0, 4, 5, "60", "120");  // 40 / -20 is below 0
  open(record);
  applyFailureMode(record, FailureMode::PeakRatio);
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "50");
}

TEST(FailureMode, OfEqualRowsTheEarlierCounts) {
  TriaxialSampleRecord record = threeReadings(kCU);
  setRow(record, 0, 20, 8, "80", "10");  // as large a stress as row 1
  setRow(record, 0, 30, 9, "60", "50");  // as large a ratio as row 0
  open(record);
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakStress).failureStrainAtPeak[0], "2");
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakRatio).failureStrainAtPeak[0], "1");
}

TEST(FailureMode, KeepsWithinTheLimitAndMendsIt) {
  TriaxialSampleRecord record = threeReadings(kCU);
  setRow(record, 0, 3, 15.2F, "200", "99");  // ratio 201 / 1
  open(record);
  record.failureStrainLimit[0] = 221;
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakStress).failureStrainAtPeak[0], "2");
  EXPECT_EQ(record.failureStrainLimit[0], 150);
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakRatio).failureStrainAtPeak[0], "1");
  record.failureStrainLimit[0] = 152;
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakStress).failureStrainAtPeak[0], "15.2");
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakRatio).failureStrainAtPeak[0], "15.2");
}

TEST(FailureMode, WithoutARowTheValuesAreThoseOfNoStress) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  open(record);
  applyFailureMode(record, FailureMode::PeakStress);
  EXPECT_EQ(text(record.failureRadius[0]), "");
  EXPECT_EQ(text(record.failureCentre[0]), "100");
  EXPECT_EQ(text(record.failureCentreEff[0]), "100");
  EXPECT_EQ(text(record.sigma1Failure[0]), "100");
  applyFailureMode(record, FailureMode::PeakRatio);
  EXPECT_EQ(text(record.failureRadius[0]), "");
  EXPECT_EQ(text(record.failureCentre[0]), "100");
  EXPECT_EQ(text(record.failureCentreEff[0]), "");
  EXPECT_EQ(text(record.sigma1Failure[0]), "100");
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "");
  EXPECT_EQ(text(record.sigma3FailureEff[0]), "");
}

TEST(FailureMode, APeakIsToldOfFromTwoKilopascal) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "1.9", "7");
  open(record);
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakStress).failureStrainAtPeak[0], "");
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakRatio).failureStrainAtPeak[0], "1");
  EXPECT_EQ(text(record.failureRadius[0]), "1");  // 0.95 all the same
  setRow(record, 0, 0, 1, "2", "7");
  EXPECT_EQ(applyFailureMode(record, FailureMode::PeakStress).failureStrainAtPeak[0], "1");
}

TEST(FailureMode, TheRowIsToldAsItsTextsStand) {
  TriaxialSampleRecord record = sampleOf(kUU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 0.2F, "60", " 7.50");
  open(record);
  const FailureRows rows = applyFailureMode(record, FailureMode::PeakStress);
  EXPECT_EQ(text(rows.failureStressAtPeak[0]), "7.50");
  EXPECT_EQ(rows.failureStrainAtPeak[0], "0.2");
}

TEST(FailureMode, CdHasNoPorePressureAndNoEffectiveStresses) {
  for (const FailureMode mode : {FailureMode::PeakStress, FailureMode::PeakRatio}) {
    TriaxialSampleRecord record = threeReadings(kCD);
    for (auto* field : {&record.sigma1FailureEff[0], &record.sigma3FailureEff[0]}) SetText(*field, "88");
    open(record);
    const FailureRows rows = applyFailureMode(record, mode);
    EXPECT_EQ(rows.failureStressAtPeak[0].view(), "     ");
    EXPECT_EQ(text(record.failureRadiusEff[0]), "");
    EXPECT_EQ(text(record.failureCentreEff[0]), "");
    EXPECT_EQ(text(record.sigma1FailureEff[0]), "");
    EXPECT_EQ(text(record.sigma3FailureEff[0]), "");
  }
}

TEST(FailureMode, UnusedStagesAreLeftAlone) {
  TriaxialSampleRecord record = threeReadings(kCU);
  open(record);
  setStage(record, 0, "");
  SetText(record.failureRadius[0], "99");
  applyFailureMode(record, FailureMode::PeakStress);
  EXPECT_EQ(text(record.failureRadius[0]), "99");
}

}  // namespace
}  // namespace triaxlab
