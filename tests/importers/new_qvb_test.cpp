// RSZSJ.KU: tenths of a division on a ring of 2 N, so a word of 5000 is a load of 1000 N, over specimens of 8.00 cm and
// 12.00 cm2.
#include "importers/import_fixture.h"
#include "importers/source_builders.h"

namespace triaxlab::testing {
namespace {

constexpr int kNone = -30000;

class NewQvb : public ImportTest {
 protected:
  ImportReport import(const std::vector<NewQvbSpecimen>& specimens) {
    return importAll({newQvbEntry(specimens)}, "new-qvb");
  }
  std::string only(const NewQvbSpecimen& specimen, std::size_t i = 0) {
    import({specimen});
    return std::string(stress(i));
  }
};

/// 2.40 ml of 96.00 ml: height 8 x (1 - 2.4 / 288) = 7.9333, area 12 x (1 - 4.8 / 288) = 11.80.
NewQvbSpecimen consolidated(int method, std::map<int, int> dial = {{1, 5000}}) {
  return {.testMethod = method, .drainage = 240, .dial = std::move(dial)};
}

TEST_F(NewQvb, ListsProjectDateAndSpecimens) {
  Entry entry = newQvbEntry({{}, {}, {}});
  entry.projectNo = "YL1503";
  entry.date = "20150326";
  entry.groupCount = 77;  // not the number of specimens
  const auto source = openFile(kuFile({entry}), "new-qvb");
  ASSERT_EQ(source->rows().size(), 1U);
  EXPECT_EQ(source->rows()[0].cells, (std::vector<std::string>{"YL1503", "2015/03/26", "3"}));
}

TEST_F(NewQvb, LooksForItsFileInItsFolder) {
  const Importer& importer = *importerOfId("new-qvb");
  EXPECT_EQ(importer.title, "新QVB三轴试验原始数据库");
  EXPECT_EQ(importer.form, "OPENFORM10");
  EXPECT_EQ(importer.defaultFile, "RSZSJ.KU");
  EXPECT_EQ(importer.folderField.position, 13500U);
  EXPECT_EQ(importer.columns[2].heading, "试样个数");
  EXPECT_EQ(importer.columns[2].width, 1000);
  EXPECT_EQ(&importer, importerOfMenuCommand("NEWSZ2"));
}

// ---- measures

TEST_F(NewQvb, IdentityAndMeasures) {
  import(
      {{.sampleNo = "B3-1",
        .projectNo = "YL1503",
        .testMethod = 2,
        .cellPressure = 1505,
        .drainage = 240,
        .shearRate = 73 }});
  EXPECT_EQ(row(0).sampleNo.trimmed(), "B3-1");
  EXPECT_EQ(row(0).projectNo.trimmed(), "YL1503");
  EXPECT_EQ(row(0).testMethod, kCU);
  EXPECT_EQ(row(0).shearRate[0], 73);
  EXPECT_EQ(row(0).cellPressure[0].trimmed(), "151");
  EXPECT_EQ(row(0).initialHeight[0].trimmed(), "8.00");
  EXPECT_EQ(row(0).initialArea[0].trimmed(), "12.00");
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.93");
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "11.80");
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "2.40");
  EXPECT_TRUE(row(0).ringCoefficient[0].isBlank());
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectTestDate("P1"), "2024/04/12") << "the project of the entry";
}

TEST_F(NewQvb, UuHasConsolidatedMeasuresToo) {
  import({consolidated(1)});
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.93");
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "11.80");
}

TEST_F(NewQvb, TheDrainageGoesBeforeTheStoredHeight) {
  import({{.testMethod = 2, .consolidatedHeight = 700, .drainage = 240 }});
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.93");
}

TEST_F(NewQvb, AStrayDrainageCountsAsNone) {
  for (const int drainage : {10001, -10001, 12000}) {
    import({{.drainage = drainage }});
    EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "0.00") << drainage;
    EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "8.00");
    EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "12.00");
  }
  import({{.drainage = 10000 }});
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "100.00");
}

TEST_F(NewQvb, WithoutAnInitialVolumeTheStoredHeightStands) {
  import({{.testMethod = 2, .consolidatedHeight = 791, .initialArea = 0, .drainage = 240 }});
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.91");
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "0.00");
  EXPECT_TRUE(row(0).initialArea[0].isBlank());
  import({{.testMethod = 1, .consolidatedHeight = 791, .initialArea = 0 }});
  EXPECT_TRUE(row(0).consolidatedHeight[0].isBlank()) << "not of a UU test";
}

// ---- stress

TEST_F(NewQvb, UuTakesTheInitialArea) {
  EXPECT_EQ(only({.dial = {{1, 5000}}}), "830");                  // 0.996 x 1000 x 10 / 12
  EXPECT_EQ(only({.dial = {{50, 5000}}}, 49), "667");             // 0.8 x 10000 / 12 = 666.67
  EXPECT_EQ(only({.shearMode = 2, .dial = {{1, 5000}}}), "832");  // 0.998 x 10000 / 12 = 831.67
  EXPECT_EQ(only({.dial = {{1, -5000}}}), "-830");
}

TEST_F(NewQvb, CuTakesTheConsolidatedArea) { EXPECT_EQ(only(consolidated(2)), "844"); }  // 9960 / 11.8 = 844.07

TEST_F(NewQvb, CdTakesWhatIsLeftOfVolumeAndHeight) {
  NewQvbSpecimen specimen = consolidated(3);
  // (11.80 x 7.93 - 0.50) / (7.93 x 0.996) = 93.074 / 7.89828 = 11.78408; 10000 / 11.78408 = 848.60.
  specimen.volume = {{1, -50}};
  EXPECT_EQ(only(specimen), "849");
  specimen.volume = {};
  EXPECT_EQ(only(specimen), "844");
}

TEST_F(NewQvb, WithoutASectionTheLoadStays) {
  EXPECT_EQ(only({.initialArea = 0, .dial = {{1, 5001}}}), "1000.2");
  EXPECT_EQ(only({.testMethod = 2, .initialArea = 0, .dial = {{1, 5001}}}), "1000.2");
  EXPECT_EQ(only({.testMethod = 3, .initialHeight = 0, .dial = {{1, 5001}}}), "1000.2");
  EXPECT_EQ(only({.testMethod = 4, .dial = {{1, 5001}}}), "1000.2");
}

TEST_F(NewQvb, ALoadIsCutAtSixPlaces) {
  // 3276.7 divisions x 32.767 N = 107367.6 N, and 1234.5 x 10 = 12345.0.
  EXPECT_EQ(only({.initialArea = 0, .ringCoefficient = 32767, .dial = {{1, 32767}}}), "107367");
  EXPECT_EQ(only({.initialArea = 0, .ringCoefficient = 10000, .dial = {{1, 12345}}}), "12345.");
  EXPECT_EQ(only({.initialArea = 0, .dial = {{1, -5000}}}), "-1000.");
  // What is cut off doesn't go into the stress: 0.996 x 107367 x 10 / 6 = 178229.22, with the tenths 178230.2.
  EXPECT_EQ(only({.initialArea = 600, .ringCoefficient = 32767, .dial = {{1, 32767}}}), "178229");
}

TEST_F(NewQvb, LoadsAreRoundedToOneDecimalFirst) {
  // 0.7 divisions x 0.5 N = 0.35 N, so 0.4: 0.996 x 0.4 x 10 / 0.01 = 398.4. 0.6 x 0.05 = 0.03 is no load.
  EXPECT_EQ(only({.initialArea = 1, .ringCoefficient = 500, .dial = {{1, 7}}}), "398");
  EXPECT_EQ(only({.initialArea = 1, .ringCoefficient = 50, .dial = {{1, 6}}}), "0.0");
}

TEST_F(NewQvb, Mode3IsMode2WithTheFlag) {
  EXPECT_EQ(only({.shearMode = 3, .dial = {{1, 5000}}}), "832");
  EXPECT_EQ(row(0).shearMode, 2);
  EXPECT_EQ(row(0).uuAdjustFlag, 1);
  EXPECT_EQ(row(0).axialStrain[0][0], 0.2F);
  import({{.shearMode = 2 }});
  EXPECT_EQ(row(0).shearMode, 2);
  EXPECT_EQ(row(0).uuAdjustFlag, 0);
}

TEST_F(NewQvb, AMultiStageTestRunsOnButNotInCu) {
  for (const int method : {1, 2}) {
    NewQvbSpecimen first = consolidated(method, {{1, 500}, {2, 500}, {3, 500}, {4, 500}});
    NewQvbSpecimen second = consolidated(method);
    first.shearMode = second.shearMode = 2;
    second.cellPressure = 2000;
    import({first, second});
    // 4 rows: 0.99 x 10000 / 12 = 825; CU: 0.998 x 10000 / 11.8 = 845.76.
    EXPECT_EQ(stress(0, 1), method == 1 ? "825" : "846");
  }
}

TEST_F(NewQvb, TheLastReadingStaysALoadWithoutPorePressureAndVolume) {
  const NewQvbSpecimen specimen{.dial = {{50, 5000}, {51, 5000}}, .pore = {{50, 100}}, .volume = {{50, 7}}};
  import({specimen});
  EXPECT_EQ(stress(49), "667");
  EXPECT_EQ(pore(49), "10");
  EXPECT_EQ(row(0).volumeChange[49][0], 7);
  EXPECT_EQ(stress(50), "1000.0");
  EXPECT_EQ(pore(50), "");
  EXPECT_EQ(row(0).volumeChange[50][0], 0);
}

TEST_F(NewQvb, WordsOfSignAndMagnitude) {
  import(
      {{.consolidationPore = {{0, 0x8005},
                              { 24,
                                240 }},
        .consolidationVolume = {{0, 0x8005},
                                { 23,
                                  12 }},
        .dial = {{1, 500},
                 { 2,
                   500 }},
        .pore = {{1, 0x8032},
                 { 2,
                   55 }},
        .volume = {
          { 1,
            -20 }
        } }});
  EXPECT_EQ(row(0).consolidationPorePressure[0][0], -32763) << "plain";
  EXPECT_EQ(row(0).consolidationPorePressure[24][0], 240);
  EXPECT_EQ(row(0).consolidationVolume[0][0], -5);
  EXPECT_EQ(row(0).consolidationVolume[23][0], 12);
  EXPECT_EQ(row(0).consolidationVolume[24][0], 0);
  EXPECT_EQ(pore(0), "-5");
  EXPECT_EQ(pore(1), "6");  // 5.5 away from zero
  EXPECT_EQ(row(0).volumeChange[0][0], -20) << "plain";
}

TEST_F(NewQvb, TheWordForNoReadingGivesNothing) {
  import(
      {{.consolidationPore =
            {{ 1,
               kNone }},
        .consolidationVolume =
            {{ 1,
               kNone }},
        .dial = {{1, kNone},
                 { 2,
                   5000 }},
        .pore = {{1, 10},
                 { 2,
                   kNone }},
        .volume = {
          {1, 10},
          { 2,
            kNone }
        } }});
  EXPECT_EQ(stress(0), "");
  EXPECT_EQ(pore(0), "");
  EXPECT_EQ(stress(1), "827");  // 0.992 x 10000 / 12 = 826.67, in its own row
  EXPECT_EQ(pore(1), "");
  EXPECT_EQ(row(0).volumeChange[1][0], 0);
  EXPECT_EQ(row(0).consolidationPorePressure[1][0], 0);
  EXPECT_EQ(row(0).consolidationVolume[1][0], 0);
}

// ---- gathering

TEST_F(NewQvb, RecordsWithoutANumberOrAPressureAreNone) {
  EXPECT_EQ(import({{.sampleNo = ""}, {.sampleNo = std::string(10, '\0')}, {.cellPressure = 0}, {.sampleNo = "S-4"}})
                .sampleRows,
            1U);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "S-4");
}

TEST_F(NewQvb, SpecimensFindTheRowOfTheirSampleAndTheSlotOfTheirPressure) {
  EXPECT_EQ(import({{.cellPressure = 1000, .dial = {{1, 1000}}},
                    {.testMethod = 3, .cellPressure = 1000},
                    {.projectNo = "P2", .cellPressure = 1000},
                    {.cellPressure = 3000, .dial = {{1, 3000}}},
                    {.cellPressure = 1004, .dial = {{1, 5000}}}})  // shown as 100
                .sampleRows,
            3U);
  EXPECT_EQ(row(0).cellPressure[0].trimmed(), "100");
  EXPECT_EQ(row(0).cellPressure[1].trimmed(), "300");
  EXPECT_TRUE(row(0).cellPressure[2].isBlank());
  EXPECT_EQ(stress(0, 0), "830");
  EXPECT_EQ(stress(0, 1), "498");  // 0.996 x 600 x 10 / 12
}

TEST_F(NewQvb, ASecondTestAtAPressureLeavesWhatItDoesNotWrite) {
  NewQvbSpecimen first{.consolidationPore = {{3, 5}}, .dial = {{1, 5000}, {3, 5000}}, .pore = {{1, 100}, {3, 300}}};
  const NewQvbSpecimen second{.initialHeight = 0, .dial = {{2, 5000}, {3, 500}}, .pore = {{3, kNone}}};
  import({first, second});
  EXPECT_EQ(row(0).initialHeight[0].trimmed(), "8.00");
  EXPECT_EQ(row(0).consolidationPorePressure[3][0], 0) << "a word of 0 is written";
  // The row that is left goes through the correction of the second test as well: 0.996 x 830 x 10 / 12 = 688.9.
  EXPECT_EQ(stress(0), "689");
  EXPECT_EQ(pore(0), "10");
  EXPECT_EQ(stress(1), "827");  // 0.992 x 10000 / 12 = 826.67
  EXPECT_EQ(stress(2), "82");   // 0.988 x 1000 / 12 = 82.33
  EXPECT_EQ(pore(2), "30") << "as it was";
}

TEST_F(NewQvb, ASixthPressureIsDropped) {
  std::vector<NewQvbSpecimen> specimens;
  for (int i = 1; i <= 6; ++i) specimens.push_back({.shearMode = i == 6 ? 2 : 0, .cellPressure = 100 * i});
  EXPECT_EQ(import(specimens).sampleRows, 1U);
  EXPECT_EQ(row(0).cellPressure[4].trimmed(), "50");
  EXPECT_EQ(row(0).shearMode, 0) << "nothing of it stays";
}

// ---- damage

TEST_F(NewQvb, EveryShorterFileGivesWhatIsThere) {
  const std::string whole = kuFile({newQvbEntry({{.dial = {{1, 5000}}}, {.sampleNo = "S-2", .dial = {{1, 5000}}}})});
  const std::size_t first = 32 + 2;
  for (std::size_t size = 32; size < whole.size(); size += 37) {
    const ImportReport report = importFile(std::string_view(whole).substr(0, size), "new-qvb");
    EXPECT_EQ(report.remarks.size(), 1U) << size;
    EXPECT_EQ(report.sampleRows >= 1, size > first + 30) << size;
    EXPECT_EQ(stress(0), size >= first + 148 + 4 ? "830" : "") << size;
  }
  EXPECT_TRUE(importFile(whole, "new-qvb").remarks.empty());
  EXPECT_EQ(row(1).deviatorStress[0][0].trimmed(), "830");
}

}  // namespace
}  // namespace triaxlab::testing
