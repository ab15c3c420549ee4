#include "triaxial/reading_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace triaxlab {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A CU sample of one stage, 100 kPa, with three readings. The largest q is that of the second, the largest
/// sigma1'/sigma3' that of the third: 123/65 = 1.892 against 130/70 = 1.857.
struct ReadingTables : testing::Test {
  TriaxialSampleRecord record;

  ReadingTables() {
    SetText(record.projectNo, "GC1");
    SetText(record.sampleNo, "T1");
    record.testMethod = kCU;
    record.shearMode = 1;
    SetText(record.cellPressure[0], "100");
    reading(0, 0.4F, "30", "10", "120", "90");
    reading(1, 0.8F, "60", "30", "130", "70");
    reading(2, 1.2F, "58", "35", "123", "65");
  }

  void reading(std::size_t row, float strain, const char* q, const char* u, const char* sigma1, const char* sigma3) {
    record.axialStrain[row][0] = strain;
    SetText(record.deviatorStress[row][0], q);
    SetText(record.porePressure[row][0], u);
    SetText(record.sigma1Eff[row][0], sigma1);
    SetText(record.sigma3Eff[row][0], sigma3);
  }
  void consolidation(std::size_t row, std::int32_t seconds, std::int16_t porePressure, std::int16_t volume) {
    record.consolidationTime[row][0] = seconds;
    record.consolidationPorePressure[row][0] = porePressure;
    record.consolidationVolume[row][0] = volume;
  }
  ConsolidationTexts row(std::size_t index) const { return consolidationRow(record, 0, index); }
  bool store(std::size_t row, ConsolidationColumn column, const char* text) {
    return storeConsolidationReading(record, 0, row, column, text);
  }
};

using C = ConsolidationColumn;

// ---- Heading

TEST_F(ReadingTables, TheHeadingNamesSampleStageAndTest) {
  record.shearRate[0] = 80;
  const TableHeading heading = tableHeading(record, 0, "合同号", "2024-05-06");
  EXPECT_EQ(heading.project, "合同号:GC1");
  EXPECT_EQ(heading.sample, "试样编号:T1");
  EXPECT_EQ(heading.pressure, "周围压力:100 kPa");
  EXPECT_EQ(heading.date, "试验日期:2024-05-06");
  EXPECT_EQ(heading.test, "固结不排水试验");
  EXPECT_EQ(heading.rate, "剪切速率:0.080%/min");
}

TEST_F(ReadingTables, AnUnknownRateLeavesItsUnitAlone) {
  EXPECT_EQ(tableHeading(record, 0, "", "").rate, "剪切速率:%/min");
  record.shearRate[0] = 1234;
  EXPECT_EQ(tableHeading(record, 0, "", "").rate, "剪切速率:1.234%/min");
}

TEST_F(ReadingTables, TwoShearModesAreMultiStage) {
  const auto named = [&](std::uint8_t method, std::uint8_t mode) {
    record.testMethod = method;
    record.shearMode = mode;
    return tableHeading(record, 0, "", "").test;
  };
  EXPECT_EQ(named(kUU, 1), "不固结不排水试验");
  EXPECT_EQ(named(kUU, 2), "多级不固结不排水试验");
  EXPECT_EQ(named(kCU, 3), "多级固结不排水试验");
  EXPECT_EQ(named(kCD, 0), "固结排水试验");
  EXPECT_EQ(named(4, 2), "");
}

// ---- Foot

TEST_F(ReadingTables, TheFootTellsTheFailureRowOfTheMode) {
  record.consolidationPorePressure[0][0] = 934;
  SetText(record.sigma1Failure[0], "160");
  const TableFoot byStress = tableFoot(record, 0, FailureMode::PeakStress);
  EXPECT_EQ(byStress.startPorePressure, "93.4");
  EXPECT_EQ(byStress.failurePorePressure, "30");
  EXPECT_EQ(byStress.deviatorStress, "60");  // 160 - 100
  EXPECT_EQ(tableFoot(record, 0, FailureMode::PeakRatio).failurePorePressure, "35");
}

TEST_F(ReadingTables, TheFailureRowLiesWithinTheStrainLimit) {
  record.failureStrainLimit[0] = 35;  // 3.5 %
  reading(3, 3.6F, "99", "44", "155", "56");
  EXPECT_EQ(tableFoot(record, 0, FailureMode::PeakStress).failurePorePressure, "30");
  record.failureStrainLimit[0] = 36;
  EXPECT_EQ(tableFoot(record, 0, FailureMode::PeakStress).failurePorePressure, "44");
}

TEST_F(ReadingTables, ADrainedTestHasFourBlanksForItsPorePressure) {
  record.testMethod = kCD;
  EXPECT_EQ(tableFoot(record, 0, FailureMode::PeakStress).failurePorePressure, "    ");
}

// ---- Shear readings

TEST_F(ReadingTables, ACUSampleHasFiveColumnsMore) {
  EXPECT_EQ(dataTableColumns(record).size(), 12U);
  EXPECT_EQ(dataTableColumns(record).back().value, DerivedColumn::RatioEff);
  for (const std::uint8_t method : {kUU, kCD}) {
    record.testMethod = method;
    EXPECT_EQ(dataTableColumns(record).size(), 7U);
    EXPECT_EQ(dataTableColumns(record).back().value, DerivedColumn::VolumeChange);
  }
}

TEST_F(ReadingTables, ARowHasATextForEachColumn) {
  record.volumeChange[0][0] = -125;
  // sigma1 = 100 + 30, (200 + 30) / 2, 30 / 2; (120 - 90) / 2, (120 + 90) / 2, 120 / 90.
  EXPECT_THAT(dataTableRow(record, 0, 0),
              ElementsAre("0.40", "30", "130", "115", "15", "10", "-1.25", "120", "90", "15", "105", "1.333"));
  record.testMethod = kCD;
  EXPECT_THAT(dataTableRow(record, 0, 0), ElementsAre("0.40", "30", "130", "115", "15", "10", "-1.25"));
}

TEST_F(ReadingTables, ARowNeedsStrainAndStress) {
  EXPECT_TRUE(hasReading(record, 0, 2));
  EXPECT_FALSE(hasReading(record, 0, 3));
  record.axialStrain[3][0] = 1.6F;
  EXPECT_FALSE(hasReading(record, 0, 3)) << "a fixed-step source fills the strain of all rows";
  EXPECT_THAT(dataTableRow(record, 0, 3), IsEmpty());
  SetText(record.deviatorStress[3][0], "55");
  EXPECT_TRUE(hasReading(record, 0, 3));
  record.axialStrain[3][0] = 0.0001F;
  EXPECT_FALSE(hasReading(record, 0, 3));
  record.axialStrain[3][0] = 0.0002F;
  EXPECT_TRUE(hasReading(record, 0, 3));
}

// ---- Consolidation readings

TEST_F(ReadingTables, AReadingIsShownInMinutesKilopascalsAndMillilitres) {
  consolidation(4, 960, 592, 108);
  EXPECT_THAT(row(4), ElementsAre("5", "16.0", "59.2", "1.08"));
  consolidation(5, 30, -7, -5);
  EXPECT_THAT(row(5), ElementsAre("6", "0.5", "-0.7", "-0.05"));
}

TEST_F(ReadingTables, ATimeOfZeroIsBlank) {
  consolidation(4, 0, 592, 108);
  EXPECT_THAT(row(4), ElementsAre("5", "", "59.2", "1.08"));
  consolidation(4, 1, 592, 108);  // 0.017 min
  EXPECT_THAT(row(4), ElementsAre("5", "0.0", "59.2", "1.08"));
}

TEST_F(ReadingTables, WithoutPorePressureNoVolumeIsShown) {
  consolidation(5, 960, 0, 108);
  EXPECT_THAT(row(5), ElementsAre("6", "16.0", "", ""));
  consolidation(5, 960, 592, 0);
  EXPECT_THAT(row(5), ElementsAre("6", "16.0", "59.2", ""));
}

TEST_F(ReadingTables, TheFirstReadingStartsAtNothingWhateverIsStored) {
  EXPECT_THAT(row(0), ElementsAre("1", "0.0", "", "0.00"));
  consolidation(0, 120, 934, 32);
  EXPECT_THAT(row(0), ElementsAre("1", "0.0", "93.4", "0.00"));
}

TEST_F(ReadingTables, ARowWithoutReadingsKeepsItsNumber) { EXPECT_THAT(row(150), ElementsAre("151", "", "", "")); }

// ---- Storing

TEST_F(ReadingTables, TypedReadingsGoThroughTheirIntegers) {
  EXPECT_TRUE(store(1, C::Time, "1.58"));  // 94.8 s
  EXPECT_EQ(record.consolidationTime[1][0], 95);
  EXPECT_TRUE(store(1, C::PorePressure, "12.36"));  // 123.6
  EXPECT_EQ(record.consolidationPorePressure[1][0], 124);
  EXPECT_TRUE(store(1, C::Volume, "-1.08"));
  EXPECT_EQ(record.consolidationVolume[1][0], -108);
  EXPECT_FALSE(store(1, C::Number, "7"));
}

TEST_F(ReadingTables, TiesGoToTheEvenInteger) {
  store(1, C::PorePressure, "0.25");
  EXPECT_EQ(record.consolidationPorePressure[1][0], 2);
  store(1, C::PorePressure, "0.75");
  EXPECT_EQ(record.consolidationPorePressure[1][0], 8);
}

TEST_F(ReadingTables, AnEmptiedCellStoresZero) {
  consolidation(1, 60, 834, 32);
  for (const C column : {C::Time, C::PorePressure, C::Volume}) EXPECT_TRUE(store(1, column, ""));
  EXPECT_THAT(row(1), ElementsAre("2", "", "", ""));
  EXPECT_FALSE(store(1, C::Time, "")) << "it was 0 before";
}

TEST_F(ReadingTables, ANumberThatDoesNotFitLeavesTheReading) {
  consolidation(1, 60, 834, 32);
  EXPECT_FALSE(store(1, C::Time, "35791395"));        // x 60 = 2147483700, above 2147483647
  EXPECT_FALSE(store(1, C::PorePressure, "3276.8"));  // 32768
  EXPECT_FALSE(store(1, C::Volume, "-327.69"));       // -32769
  EXPECT_FALSE(store(1, C::PorePressure, "1e999"));
  EXPECT_THAT(row(1), ElementsAre("2", "1.0", "83.4", "0.32"));
  EXPECT_TRUE(store(1, C::Volume, "-327.68"));
  EXPECT_EQ(record.consolidationVolume[1][0], -32768);
}

TEST_F(ReadingTables, TheStartPorePressureIsRoundedDown) {
  const auto stored = [&](const char* text) {
    storeStartPorePressure(record, 0, text);
    return static_cast<std::int16_t>(record.consolidationPorePressure[0][0]);
  };
  EXPECT_EQ(stored("45.67"), 456);
  EXPECT_EQ(stored("-3.25"), -33);  // Int(-32.5)
  EXPECT_EQ(stored("3276.79"), 32767);
  EXPECT_EQ(stored("3276.8"), 32767) << "32768 does not fit";
  EXPECT_EQ(stored("abc"), 0);
}

TEST_F(ReadingTables, TheStartPorePressureTellsWhetherItChanged) {
  EXPECT_TRUE(storeStartPorePressure(record, 0, "45.6"));
  EXPECT_FALSE(storeStartPorePressure(record, 0, "45.69"));
  EXPECT_EQ(record.coefficientB[0], 0) << "B follows when the sample is opened again";
}

}  // namespace
}  // namespace triaxlab
