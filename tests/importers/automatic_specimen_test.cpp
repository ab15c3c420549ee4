// What one specimen record of HSZSJ.KU becomes in its slot.
#include "importers/import_fixture.h"

namespace triaxlab::testing {
namespace {

class AutomaticSpecimen : public ImportTest {
 protected:
  void importOlder(const Specimen& specimen, std::string_view source = "auto") {
    importAll({olderEntry({{specimen}})}, source);
  }
  void importNewer(const Specimen& specimen) { importAll({newerEntry({specimen})}); }
};

TEST_F(AutomaticSpecimen, IdentityGoesAcross) {
  importOlder({.sampleNo = " ZK1-2 ",
               .projectNo = "DT2-07",
               .recordCodeA = 7,
               .recordCodeB = 12,
               .testMethod = 3,
               .shearMode = 2,
               .stageFlag = 1,
               .shearRate = 73});
  EXPECT_EQ(row(0).sampleNo.view(), "ZK1-2         ");
  EXPECT_EQ(row(0).projectNo.view(), "DT2-07         ");
  EXPECT_EQ(row(0).recordCodeA, 7);
  EXPECT_EQ(row(0).recordCodeB, 12);
  EXPECT_EQ(row(0).testMethod, kCD);
  EXPECT_EQ(row(0).shearMode, 2);
  EXPECT_EQ(row(0).uuAdjustFlag, 1);
  EXPECT_EQ(row(0).shearRate[0], 73);
  EXPECT_TRUE(row(0).testDate.isBlank());
  EXPECT_EQ(row(0).adjustedFlag, 0);
}

TEST_F(AutomaticSpecimen, NumbersEndAtTheFirstZeroByte) {
  importOlder({.sampleNo = std::string("S-1\0old", 7), .projectNo = std::string("P1\0\0\0\0\0\0\0\0", 10)});
  EXPECT_EQ(row(0).sampleNo.trimmed(), "S-1");
  EXPECT_EQ(row(0).projectNo.trimmed(), "P1");
}

TEST_F(AutomaticSpecimen, ANumberOfBlanksOrZeroBytesIsNoSpecimen) {
  for (const std::string& empty : {std::string(10, ' '), std::string(10, '\0')}) {
    EXPECT_EQ(importAll({newerEntry({{.sampleNo = empty}})}).sampleRows, 0U);
    importOlder({.sampleNo = empty, .stress = {{1, 500}}});
    EXPECT_TRUE(sameBytes(row(0), [] {
      TriaxialSampleRecord blank;
      FillSampleTimeAxes(blank);
      return blank;
    }()));
  }
}

TEST_F(AutomaticSpecimen, ChineseNumbersStayGbk) {
  importOlder({.sampleNo = "\xD1\xD2-1", .projectNo = "\xBF\xB1\xB2\xEC"});  // 岩-1, 勘察
  EXPECT_EQ(row(0).sampleNo.trimmed(), "\xD1\xD2-1");
  EXPECT_EQ(row(0).projectNo.trimmed(), "\xBF\xB1\xB2\xEC");
}

TEST_F(AutomaticSpecimen, TheValidMarkCountsInAnOlderBlockOnly) {
  const Specimen unmarked{.validMark = 0, .stress = {{1, 500}}};
  importOlder(unmarked);
  EXPECT_TRUE(row(0).sampleNo.isBlank());
  EXPECT_EQ(stress(0), "");
  importNewer(unmarked);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "S-1");
  EXPECT_EQ(stress(0), "50");
  importOlder({.validMark = 254});
  EXPECT_TRUE(row(0).sampleNo.isBlank());
}

TEST_F(AutomaticSpecimen, MeasuresAreTextsOfHundredths) {
  importOlder({.testMethod = 2,
               .cellPressure = 1005,
               .initialHeight = 800,
               .consolidatedHeight = 791,
               .initialArea = 1207,
               .consolidatedArea = 1180,
               .drainage = -35});
  EXPECT_EQ(row(0).cellPressure[0].trimmed(), "101");  // 100.5 rounds away from zero
  EXPECT_EQ(row(0).initialHeight[0].trimmed(), "8.00");
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.91");
  EXPECT_EQ(row(0).initialArea[0].trimmed(), "12.07");
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "11.80");
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "-0.35");
}

TEST_F(AutomaticSpecimen, AWordOfZeroLeavesAMeasureBlankButForThePressure) {
  importOlder({.testMethod = 2, .cellPressure = 0});
  EXPECT_EQ(row(0).cellPressure[0].trimmed(), "0");
  EXPECT_TRUE(row(0).initialHeight[0].isBlank());
  EXPECT_TRUE(row(0).consolidatedHeight[0].isBlank());
  EXPECT_TRUE(row(0).initialArea[0].isBlank());
  EXPECT_TRUE(row(0).consolidatedArea[0].isBlank());
  EXPECT_TRUE(row(0).consolidationDrainage[0].isBlank());
}

TEST_F(AutomaticSpecimen, UuTakesNoConsolidatedMeasures) {
  const Specimen specimen{.testMethod = 1, .consolidatedHeight = 791, .consolidatedArea = 1180};
  importOlder(specimen);
  EXPECT_TRUE(row(0).consolidatedHeight[0].isBlank());
  EXPECT_TRUE(row(0).consolidatedArea[0].isBlank());
  importOlder(specimen, "auto-old");
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.91");
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "11.80");
}

TEST_F(AutomaticSpecimen, StressIsTenthsUnlessACodeOfTheNewerBlockSaysOtherwise) {
  // Method 0 has no area correction, so the readings stay as they are scaled.
  Specimen specimen{.testMethod = 0, .stress = {{1, 1234}, {2, -1235}, {3, 4}}};
  for (const int code : {12, 13}) {
    specimen.recordCodeB = code;
    importNewer(specimen);
    EXPECT_EQ(stress(0), "1234") << code;
    importOlder(specimen);
    EXPECT_EQ(stress(0), "123") << code;
  }
  specimen.recordCodeB = 11;
  importNewer(specimen);
  EXPECT_EQ(stress(0), "123");
  EXPECT_EQ(stress(1), "-124");  // -123.5 rounds away from zero
  EXPECT_EQ(stress(2), "0");     // 0.4: the reading is there, its text is 0
}

TEST_F(AutomaticSpecimen, ReadingsKeepTheirRowsOverGaps) {
  importOlder({.testMethod = 0,
               .stress = {{0, 900}, {1, 100}, {3, 300}, {51, 510}},
               .pore = {{0, 90}, {2, 20}, {3, 30}},
               .volume = {{2, 50}, {3, 60}}});
  EXPECT_EQ(stress(0), "10");
  EXPECT_EQ(stress(1), "");
  EXPECT_EQ(stress(2), "30");
  EXPECT_EQ(stress(50), "51");
  EXPECT_EQ(stress(51), "");
  EXPECT_EQ(pore(0), "0");
  EXPECT_EQ(pore(1), "");  // without a stress the row's other words go nowhere
  EXPECT_EQ(pore(2), "3");
  EXPECT_EQ(row(0).volumeChange[1][0], 0);
  EXPECT_EQ(row(0).volumeChange[2][0], 6);
}

TEST_F(AutomaticSpecimen, PoreWordsHoldSignAndMagnitude) {
  // 0x8005 is -5, 0x8000 is -0, 0x7FFF is 32767: tenths of a kPa.
  const Specimen specimen{.testMethod = 0,
                          .stress = {{1, 10}, {2, 10}, {3, 10}, {4, 10}},
                          .pore = {{1, 0x8005}, {2, 0x8000}, {3, 0x7FFF}, {4, 0x8064}}};
  importNewer(specimen);
  EXPECT_EQ(pore(0), "-1");  // -0.5 rounds away from zero
  EXPECT_EQ(pore(1), "0");
  EXPECT_EQ(pore(2), "3277");  // 3276.7
  EXPECT_EQ(pore(3), "-10");
  importOlder(specimen, "auto-old");
  EXPECT_EQ(pore(0), "-3276");  // the word as it stands is -32763
}

TEST_F(AutomaticSpecimen, ConsolidationVolumesHoldSignAndMagnitudeAndPressuresDoNot) {
  const Specimen specimen{.consolidationPore = {{0, 0x8005}, {20, 200}, {21, 210}, {24, 240}},
                          .consolidationVolume = {{0, 0x8005}, {1, 12}, {24, 0x8018}}};
  importOlder(specimen);
  EXPECT_EQ(row(0).consolidationPorePressure[0][0], -32763);
  EXPECT_EQ(row(0).consolidationPorePressure[21][0], 210);
  EXPECT_EQ(row(0).consolidationPorePressure[24][0], 240);
  EXPECT_EQ(row(0).consolidationVolume[0][0], -5);
  EXPECT_EQ(row(0).consolidationVolume[1][0], 12);
  EXPECT_EQ(row(0).consolidationVolume[24][0], -24);

  importOlder(specimen, "auto-old");  // the first 21 pressures, and the volumes as they are stored
  EXPECT_EQ(row(0).consolidationPorePressure[20][0], 200);
  EXPECT_EQ(row(0).consolidationPorePressure[21][0], 0);
  EXPECT_EQ(row(0).consolidationVolume[0][0], -32763);
  EXPECT_EQ(row(0).consolidationVolume[24][0], -32744);
}

TEST_F(AutomaticSpecimen, VolumesAreTenTimesFinerInAnOlderBlock) {
  const Specimen specimen{.testMethod = 0,
                          .stress = {{1, 10}, {2, 10}, {3, 10}, {4, 10}},
                          .volume = {{1, 25}, {2, -25}, {3, 0x8005}, {4, 15}}};
  importNewer(specimen);
  EXPECT_EQ(row(0).volumeChange[0][0], 25);
  EXPECT_EQ(row(0).volumeChange[1][0], -25);
  EXPECT_EQ(row(0).volumeChange[2][0], -32763);  // no sign coding here
  importOlder(specimen);
  EXPECT_EQ(row(0).volumeChange[0][0], 3);  // 2.5 away from zero
  EXPECT_EQ(row(0).volumeChange[1][0], -3);
  EXPECT_EQ(row(0).volumeChange[3][0], 2);
  importOlder(specimen, "auto-old");
  EXPECT_EQ(row(0).volumeChange[0][0], 2);  // 2.5 to even
  EXPECT_EQ(row(0).volumeChange[1][0], -2);
  EXPECT_EQ(row(0).volumeChange[3][0], 2);
}

TEST_F(AutomaticSpecimen, TheWordForNoReadingGivesNothing) {
  constexpr int kNone = -30000;
  const Specimen specimen{.testMethod = 0,
                          .consolidationPore = {{3, kNone}},
                          .consolidationVolume = {{3, kNone}},
                          .stress = {{1, kNone}, {2, 100}, {3, 100}},
                          .pore = {{1, 50}, {2, kNone}, {3, 50}},
                          .volume = {{1, 50}, {2, 50}, {3, kNone}}};
  for (const std::string_view source : {"auto", "auto-old"}) {
    importOlder(specimen, source);
    EXPECT_EQ(stress(0), "");
    EXPECT_EQ(pore(0), "");
    EXPECT_EQ(row(0).volumeChange[0][0], 0);
    EXPECT_EQ(stress(1), "10");
    EXPECT_EQ(pore(1), "");
    EXPECT_EQ(row(0).volumeChange[1][0], 5);
    EXPECT_EQ(pore(2), "5");
    EXPECT_EQ(row(0).volumeChange[2][0], 0);
    EXPECT_EQ(row(0).consolidationPorePressure[3][0], 0);
    EXPECT_EQ(row(0).consolidationVolume[3][0], 0);
  }
}

TEST_F(AutomaticSpecimen, TheOldReaderLeavesTheStageFlag) {
  importOlder({.stageFlag = 1}, "auto-old");
  EXPECT_EQ(row(0).uuAdjustFlag, 0);
}

// ---- axes

TEST(SampleTimeAxes, StrainsAreAnEvenGridInEverySlot) {
  for (const int mode : {0, 1, 2, 3, 4}) {
    TriaxialSampleRecord record;
    record.shearMode = static_cast<std::uint8_t>(mode);
    FillSampleTimeAxes(record);
    const bool narrow = mode == 2 || mode == 3;
    for (std::size_t slot = 0; slot < kStages; ++slot) {
      EXPECT_EQ(record.axialStrain[0][slot], narrow ? 0.2F : 0.4F);
      EXPECT_EQ(record.axialStrain[2][slot], narrow ? 0.6F : 1.2F);
      EXPECT_EQ(record.axialStrain[211][slot], narrow ? 42.4F : 84.8F);  // 212 steps
    }
  }
}

TEST(SampleTimeAxes, ConsolidationIsReadAtSquaredMinutesAndAfterADay) {
  TriaxialSampleRecord record;
  for (const std::size_t k : {0U, 1U, 23U, 24U}) record.consolidationPorePressure[k][0] = 5;
  for (const std::size_t k : {1U, 24U}) record.consolidationVolume[k][1] = -3;
  record.consolidationVolume[2][0] = 7;
  record.consolidationTime[3][0] = 99;
  FillSampleTimeAxes(record);
  EXPECT_EQ(record.consolidationTime[0][0], 0);
  EXPECT_EQ(record.consolidationTime[1][0], 60);
  EXPECT_EQ(record.consolidationTime[23][0], 31740);  // 23 x 23 x 60
  EXPECT_EQ(record.consolidationTime[24][0], 86400);
  EXPECT_EQ(record.consolidationTime[1][1], 60);  // by the volume alone
  EXPECT_EQ(record.consolidationTime[24][1], 86400);
  EXPECT_EQ(record.consolidationTime[2][0], 0);  // the first slot goes by the pore pressure alone
  EXPECT_EQ(record.consolidationTime[3][0], 0);
  EXPECT_EQ(record.consolidationTime[25][0], 0);
}

}  // namespace
}  // namespace triaxlab::testing
