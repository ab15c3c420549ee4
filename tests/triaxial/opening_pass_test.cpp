#include "triaxial/opening_pass.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "triaxial/samples.h"

namespace triaxlab {
namespace {

using tests::open;
using tests::sampleOf;
using tests::setRow;
using tests::setStage;
using tests::text;

bool sameBytes(const TriaxialSampleRecord& left, const TriaxialSampleRecord& right) {
  return std::memcmp(&left, &right, sizeof left) == 0;
}

TEST(OpeningPass, PassesOverEmptySlots) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "60", "-20");
  TriaxialSampleRecord noProject = record, noSample = record;
  SetText(noProject.projectNo, "");
  SetText(noSample.sampleNo, " ");
  for (TriaxialSampleRecord* slot : {&noProject, &noSample}) {
    const TriaxialSampleRecord before = *slot;
    open(*slot);
    EXPECT_TRUE(sameBytes(*slot, before));
  }
  const TriaxialSampleRecord before = record;
  open(record);
  EXPECT_FALSE(sameBytes(record, before));
}

TEST(OpeningPass, RunsOverTheWholeTable) {
  std::vector<TriaxialSampleRecord> table(3);
  table[2] = sampleOf(kUU);
  runOpeningPass(table, NumberFormat::Whole);
  EXPECT_EQ(table[0].failureStrainLimit[0], 0);
  EXPECT_EQ(table[2].failureStrainLimit[0], 150);
}

TEST(NegativePorePressure, StaysDownToMinusTen) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "60", "-5");
  setRow(record, 0, 1, 2, "60", "-10");
  open(record);
  EXPECT_EQ(text(record.porePressure[0][0]), "-5");
  EXPECT_EQ(text(record.porePressure[1][0]), "-10");
}

TEST(NegativePorePressure, IsTurnedAboutTheLowestReading) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "60", "-4");
  setRow(record, 0, 1, 2, "60", "-20");
  setRow(record, 0, 2, 3, "60", "7");
  setRow(record, 0, 3, 4, "60", "0");
  open(record);
  EXPECT_EQ(text(record.porePressure[0][0]), "-36");  // 2 x -20 - -4
  EXPECT_EQ(text(record.porePressure[1][0]), "-20");  // 2 x -20 - -20
  EXPECT_EQ(text(record.porePressure[2][0]), "7");
  EXPECT_EQ(text(record.porePressure[3][0]), "0");
  // sigma3' = 100 - -36, sigma1' = 100 + 60 - -36: of the turned reading.
  EXPECT_EQ(text(record.sigma3Eff[0][0]), "136");
  EXPECT_EQ(text(record.sigma1Eff[0][0]), "196");
  // A second opening turns it again, about -36 now.
  open(record);
  EXPECT_EQ(text(record.porePressure[0][0]), "-36");  // 2 x -36 - -36
  EXPECT_EQ(text(record.porePressure[1][0]), "-52");  // 2 x -36 - -20
}

TEST(NegativePorePressure, RowsWithoutStressSetTheLowestAndStay) {
  TriaxialSampleRecord record = sampleOf(kUU);  // for every method, and for unused stages too
  setRow(record, 3, 0, 1, "60", "-4");
  setRow(record, 3, 211, 2, "", "-30");
  open(record);
  EXPECT_EQ(text(record.porePressure[0][3]), "-56");  // 2 x -30 - -4
  EXPECT_EQ(text(record.porePressure[211][3]), "-30");
}

TEST(NegativePorePressure, IsCutAtTheWidthOfItsField) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "60", "-99999");
  setRow(record, 0, 1, 1, "60", "-5");
  open(record);
  EXPECT_EQ(text(record.porePressure[1][0]), "-19999");  // -199993 has seven places
  EXPECT_EQ(text(record.sigma3Eff[1][0]), "20099");      // 100 - -19999, of the text as cut
}

TEST(EffectiveCurves, OfACuStage) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "60", "30");
  open(record);
  EXPECT_EQ(text(record.sigma1Eff[0][0]), "130");  // 60 + 100 - 30
  EXPECT_EQ(text(record.sigma3Eff[0][0]), "70");   // 100 - 30
}

TEST(EffectiveCurves, ARowWithoutStressKeepsItsOwn) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "0", "30");
  SetText(record.sigma1Eff[0][0], "77");
  SetText(record.sigma3Eff[0][0], "abc");
  open(record);
  EXPECT_EQ(text(record.sigma1Eff[0][0]), "77");
  EXPECT_EQ(text(record.sigma3Eff[0][0]), "abc");
  EXPECT_EQ(text(record.sigma1FailureEff[0]), "");  // 77 is the largest sigma1', but no sigma3' is above 0
}

TEST(EffectiveCurves, OtherMethodsAndUnusedStagesHaveNone) {
  for (const TestMethod method : {kUU, kCU, kCD}) {
    TriaxialSampleRecord record = sampleOf(method);
    setStage(record, 0, "100");
    setRow(record, 0, 0, 1, "60", "30");
    for (const std::size_t stage : {0U, 1U})
      for (const std::size_t row : {0U, 211U}) {
        SetText(record.sigma1Eff[row][stage], "1");
        SetText(record.sigma3Eff[row][stage], "2");
      }
    open(record);
    EXPECT_EQ(text(record.sigma1Eff[0][0]), method == kCU ? "130" : "");
    EXPECT_EQ(text(record.sigma1Eff[211][0]), method == kCU ? "1" : "");
    EXPECT_EQ(text(record.sigma3Eff[211][1]), "");
    EXPECT_EQ(text(record.deviatorStress[0][0]), "60");
  }
}

TEST(EffectiveCurves, ValuesOutOfRangeAreNotStored) {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setRow(record, 0, 0, 1, "1E999", "30");
  SetText(record.sigma1Eff[0][0], "5");
  open(record);
  EXPECT_EQ(text(record.sigma1Eff[0][0]), "5");
  EXPECT_EQ(text(record.sigma3Eff[0][0]), "70");
}

float openedB(float b, std::int16_t porePressureTenths, std::string_view sigma3 = "100") {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, sigma3);
  record.coefficientB[0] = b;
  record.consolidationPorePressure[0][0] = porePressureTenths;
  open(record);
  return record.coefficientB[0];
}

TEST(CoefficientB, IsComputedWhenNotYetThere) {
  EXPECT_EQ(openedB(0, 950), 0.95F);          // 95.0 kPa / 100
  EXPECT_EQ(openedB(0.00005F, 950), 0.95F);   // still as good as none
  EXPECT_EQ(openedB(-0.00005F, 950), 0.95F);  // by its magnitude
  EXPECT_EQ(openedB(0.5F, 950), 0.5F);
  EXPECT_EQ(openedB(-0.5F, 950), -0.5F);
  EXPECT_EQ(openedB(0, 955), 0.96F);  // 0.955, half away from zero
  EXPECT_EQ(openedB(0, -955), -0.96F);
  EXPECT_EQ(openedB(0, 4), 0.0F);  // 0.004 reads 0.00
  EXPECT_EQ(openedB(0.00005F, 4), 0.0F);
  EXPECT_EQ(openedB(0, 950, "-100"), -0.95F);
}

TEST(CoefficientB, AQuotientOutOfRangeIsNotStored) {
  // 100 / 1E-99 / 10 is beyond the range of single precision.
  EXPECT_EQ(openedB(0.00005F, 100, "1E-99"), 0.00005F);
}

TEST(CoefficientB, OnlyOfUsedCuStages) {
  for (const TestMethod method : {kUU, kCU, kCD}) {
    TriaxialSampleRecord record = sampleOf(method);
    setStage(record, 0, "100");
    record.consolidationPorePressure[0].fill(std::int16_t{950});
    open(record);
    EXPECT_EQ(record.coefficientB[0], method == kCU ? 0.95F : 0.0F);
    EXPECT_EQ(record.coefficientB[1], 0.0F);
  }
}

}  // namespace
}  // namespace triaxlab
