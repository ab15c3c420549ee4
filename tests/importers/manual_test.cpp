// SDSZSJ.KU: stresses in tenths of a kPa on the initial section, specimens of 8.00 cm and 12.00 cm2.
#include "importers/import_fixture.h"
#include "importers/source_builders.h"

namespace triaxlab::testing {
namespace {

constexpr int kNone = -30000;

class Manual : public ImportTest {
 protected:
  /// One entry with all records.
  ImportReport import(const std::vector<ManualSpecimen>& specimens) {
    return importFile(manualFile({{.count = static_cast<int>(specimens.size())}}, specimens), "manual");
  }
  std::string only(const ManualSpecimen& specimen, std::size_t i = 0) {
    import({specimen});
    return std::string(stress(i));
  }
};

/// 2.40 ml of 96.00 ml: height 8 x (1 - 2.4 / 288) = 7.9333, area 12 x (1 - 4.8 / 288) = 11.80.
ManualSpecimen consolidated(int method, int mode = 0) {
  return {.testMethod = method, .shearMode = mode, .drainage = 240, .stress = {{1, 10000}}};
}

// ---- the index

TEST_F(Manual, ListsTheHundredPlacesOfTheIndex) {
  const auto source = openFile(
      manualFile({{.projectNo = "SD2016-05-0001", .count = 6}, {.date = "16.5", .count = 3, .firstRecord = 6}}, {}),
      "manual");
  ASSERT_EQ(source->rows().size(), 100U);
  EXPECT_EQ(source->rows()[0].cells, (std::vector<std::string>{"SD2016-05-0001", "2016/05/17", "6"}));
  EXPECT_EQ(source->rows()[1].cells, (std::vector<std::string>{"P1", "16.5", "3"}));
  EXPECT_EQ(source->rows()[2].cells, (std::vector<std::string>{"", "", "0"}));
  EXPECT_TRUE(source->remarks().empty());
}

TEST_F(Manual, WorksInTheFolderAsItWasLeft) {
  const Importer& importer = *importerOfId("manual");
  EXPECT_EQ(importer.title, "人工三轴试验原始数据库");
  EXPECT_EQ(importer.form, "OPENFORMZ");
  EXPECT_EQ(importer.defaultFile, "SDSZSJ.KU");
  EXPECT_EQ(importer.folderField.width, 0U);
  EXPECT_EQ(&importer, importerOfMenuCommand("RGSZ"));
}

TEST_F(Manual, EntriesTellTheirRecords) {
  const std::string file = manualFile({{.projectNo = "P1", .date = "2016/05/17", .count = 1, .firstRecord = 2},
                                       {.projectNo = "P2", .date = "2016/05/24", .count = 2}},
                                      {{.sampleNo = "A", .projectNo = "P2"},
                                       {.sampleNo = "B", .projectNo = "P2"},
                                       {.sampleNo = "C", .projectNo = "P1"}});
  EXPECT_EQ(importFile(file, "manual").sampleRows, 3U);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "C");
  EXPECT_EQ(row(1).sampleNo.trimmed(), "A");
  EXPECT_EQ(row(2).sampleNo.trimmed(), "B");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectTestDate("P1"), "2016/05/17");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectTestDate("P2"), "2016/05/24");
}

TEST_F(Manual, APlaceWithoutAProjectBringsNothing) {
  const ImportReport report = importFile(manualFile({{.projectNo = "", .count = 1}}, {{}}), "manual");
  EXPECT_EQ(report.sampleRows, 0U);
  EXPECT_TRUE(report.remarks.empty());
}

TEST_F(Manual, RecordsOutsideTheFileAreNone) {
  struct Case {
    int count, first;
    std::size_t rows, remarks;
  };
  for (const Case& c : {Case{5, 1, 1, 1}, Case{1, 2, 0, 1}, Case{3, -1, 2, 1}, Case{1, -1, 0, 1}, Case{-3, 0, 0, 0},
                        Case{32767, 0x7FFFFFFF, 0, 1}, Case{32767, -0x7FFFFFFF, 0, 1}, Case{0, 9, 0, 0}}) {
    const ImportReport report = importFile(
        manualFile({{.count = c.count, .firstRecord = c.first}}, {{.sampleNo = "A"}, {.sampleNo = "B"}}), "manual");
    EXPECT_EQ(report.sampleRows, c.rows) << c.count << ' ' << c.first;
    EXPECT_EQ(report.remarks.size(), c.remarks) << c.count << ' ' << c.first;
  }
}

// ---- measures

TEST_F(Manual, IdentityAndMeasures) {
  import(
      {{.sampleNo = "SD-1-2-3-4-5-6",
        .projectNo = "SD2016-05-00001",
        .testMethod = 2,
        .stageFlag = 1,
        .cellPressure = 150,
        .consolidatedHeight = 700,
        .drainage = 240,
        .shearRate = 73,
        .ringCoefficient = 500,
        .stress = {
          { 1,
            1000 }
        } }});
  EXPECT_EQ(row(0).sampleNo.view(), "SD-1-2-3-4-5-6");
  EXPECT_EQ(row(0).projectNo.view(), "SD2016-05-00001");
  EXPECT_EQ(row(0).testMethod, kCU);
  EXPECT_EQ(row(0).uuAdjustFlag, 1);
  EXPECT_EQ(row(0).shearRate[0], 73);
  EXPECT_EQ(row(0).cellPressure[0].trimmed(), "150");
  EXPECT_EQ(row(0).initialHeight[0].trimmed(), "8.00");
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.93");
  EXPECT_EQ(row(0).initialArea[0].trimmed(), "12.00");
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "11.80");
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "2.40");
  EXPECT_TRUE(row(0).ringCoefficient[0].isBlank());
  EXPECT_EQ(stress(0), "101") << "100 x 0.996 x 12 / 11.8 = 101.29: the ring has no effect";
}

TEST_F(Manual, UuHasConsolidatedMeasuresToo) {
  import({consolidated(1)});
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.93");
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "11.80");
}

TEST_F(Manual, WithoutAnInitialVolumeTheStoredHeightStands) {
  import({{.testMethod = 2, .consolidatedHeight = 791, .initialArea = 0, .drainage = 240 }});
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.91");
  EXPECT_TRUE(row(0).consolidatedArea[0].isBlank());
  import({{.testMethod = 1, .consolidatedHeight = 791, .initialArea = 0 }});
  EXPECT_TRUE(row(0).consolidatedHeight[0].isBlank()) << "not of a UU test";
}

TEST_F(Manual, ADrainageOfZeroIsBlankAndALargeOneStands) {
  import({{.drainage = 0 }});
  EXPECT_TRUE(row(0).consolidationDrainage[0].isBlank());
  import({{.drainage = 12000 }});
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "120.00");
}

// ---- stress: 1000 kPa at the first reading

TEST_F(Manual, UuAndCu) {
  EXPECT_EQ(only(consolidated(1)), "996");
  EXPECT_EQ(only(consolidated(1, 2)), "998");
  EXPECT_EQ(only(consolidated(1, 3)), "996") << "only a mode of 2 has the small step";
  EXPECT_EQ(row(0).axialStrain[0][0], 0.2F) << "but mode 3 has its strains";
  EXPECT_EQ(only(consolidated(2)), "1013");  // 996 x 12 / 11.8 = 1012.88
  EXPECT_EQ(only(consolidated(4)), "1000");
}

TEST_F(Manual, CdPutsTheConsolidatedAreaAboveTheLine) {
  ManualSpecimen specimen = consolidated(3);
  specimen.volume = {{1, -50}};
  // A = (7.93 x 11.80 - 0.50) / (7.93 x 0.996) = 93.074 / 7.89828 = 11.78408; 1000 x 11.80 / A = 1001.35.
  EXPECT_EQ(only(specimen), "1001");
}

TEST_F(Manual, CdOfSeveralStagesTakesTheHeightInHundredths) {
  ManualSpecimen specimen = consolidated(3, 2);
  specimen.volume = {{1, 50}};
  // A = (0.0793 x 11.80 - 0.50) / (0.0793 x 0.998) = 0.43574 / 0.0791414 = 5.50584; 1000 x 12 / A = 2179.50.
  EXPECT_EQ(only(specimen), "2180");
}

TEST_F(Manual, AResultOfZeroLeavesTheRow) {
  // Without a consolidated area: nothing above the line, -0.5 ml over 7.91 cm below it.
  ManualSpecimen specimen = consolidated(3);
  specimen.initialArea = 0;
  specimen.consolidatedHeight = 791;
  specimen.volume = {{1, 50}};
  EXPECT_EQ(only(specimen), "1000");
}

TEST_F(Manual, LaterRowsMoveUpOverGaps) {
  import(
      {{.testMethod = 0,
        .stress = {{0, 990},
                   {1, 100},
                   {3, 300},
                   {4, 4},
                   {5, kNone},
                   {6, 600},
                   { 51,
                     510 }},
        .pore = {{1, 10},
                 {2, 20},
                 {3, kNone},
                 {6, 60},
                 { 51,
                   -55 }},
        .volume = {
          {1, 1},
          {2, 2},
          {3, kNone},
          {6, 6},
          { 51,
            51 }
        } }});
  const char* const stresses[] = {"10", "30", "60", "51", ""};
  const char* const pores[] = {"1", "", "6", "-6", ""};  // -5.5 away from zero
  const int volumes[] = {1, 0, 6, 51, 0};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(stress(i), stresses[i]) << i;
    EXPECT_EQ(pore(i), pores[i]) << i;
    EXPECT_EQ(row(0).volumeChange[i][0], volumes[i]) << i;
  }
  EXPECT_EQ(stress(50), "");
}

TEST_F(Manual, RowsAreCorrectedWhereTheyHaveMovedTo) {
  ManualSpecimen specimen = consolidated(1);
  specimen.stress = {{3, 10000}};
  EXPECT_EQ(only(specimen), "996");
  std::map<int, int> all;
  for (int i = 1; i <= 51; ++i) all[i] = 10000;
  specimen.stress = all;
  import({specimen});
  EXPECT_EQ(stress(49), "800");
  EXPECT_EQ(stress(50), "1000") << "the last reading lies outside";
}

TEST_F(Manual, WordsAreTakenAsTheyStand) {
  import(
      {{.testMethod = 0,
        .consolidationPore = {{0, -5},
                              {1, kNone},
                              { 24,
                                24 }},
        .consolidationVolume = {{0, -7},
                                {1, kNone},
                                { 24,
                                  48 }},
        .stress =
            {{ 1,
               100 }},
        .pore = {
          { 1,
            -100 }
        } }});
  EXPECT_EQ(pore(0), "-10");
  EXPECT_EQ(row(0).consolidationPorePressure[0][0], -5);
  EXPECT_EQ(row(0).consolidationPorePressure[1][0], 0);
  EXPECT_EQ(row(0).consolidationPorePressure[24][0], 24);
  EXPECT_EQ(row(0).consolidationVolume[0][0], -7);
  EXPECT_EQ(row(0).consolidationVolume[1][0], 0);
  EXPECT_EQ(row(0).consolidationVolume[24][0], 48);
}

// ---- gathering

TEST_F(Manual, SpecimensGatherBySampleAndPressure) {
  ManualSpecimen first = consolidated(1, 2), second = consolidated(1, 2), again = consolidated(1, 2);
  first.stress = {{1, 10000}, {2, 10000}};
  second.cellPressure = 200;
  again.stress = {{1, 5000}};
  EXPECT_EQ(import({first, second, again, {.sampleNo = ""}, {.sampleNo = "S-2"}}).sampleRows, 2U);
  EXPECT_EQ(row(0).cellPressure[1].trimmed(), "200");
  EXPECT_EQ(stress(0, 1), "998") << "corrected before it joins, so no strain was used up";
  EXPECT_EQ(stress(0, 0), "499");
  EXPECT_EQ(stress(1, 0), "") << "replaced whole";
}

TEST_F(Manual, TheFirstSpecimenDecidesWhatBelongsToTheSample) {
  ManualSpecimen second = consolidated(1, 2);
  second.cellPressure = 200;
  second.stageFlag = 1;
  import({consolidated(1, 0), second});
  EXPECT_EQ(row(0).shearMode, 0);
  EXPECT_EQ(row(0).uuAdjustFlag, 0);
  EXPECT_EQ(stress(0, 0), "996");
  EXPECT_EQ(stress(0, 1), "998") << "by the steps of its own shear mode";
}

// ---- damage

TEST_F(Manual, AShortFileListsWhatIsThere) {
  const std::string whole = manualFile({{.count = 1}}, {{.stress = {{1, 10000}}}});
  EXPECT_TRUE(openFile("", "manual")->rows().empty());
  EXPECT_TRUE(openFile("", "manual")->remarks().empty());
  for (std::size_t size = 1; size < whole.size(); size += 97) {
    const auto source = openFile(std::string_view(whole).substr(0, size), "manual");
    EXPECT_EQ(source->rows().size(), std::min<std::size_t>((size + 34) / 35, 100)) << size;
    EXPECT_EQ(source->remarks().size(), size < 3500 ? 1U : 0U) << size;
    const ImportReport report = importFile(std::string_view(whole).substr(0, size), "manual");
    EXPECT_EQ(stress(0), size >= 4000 + 149 + 4 ? "996" : "") << size;
    EXPECT_EQ(report.remarks.size(), size >= 35 ? 1U : 0U) << size;
  }
  EXPECT_TRUE(importFile(whole, "manual").remarks.empty());
}

}  // namespace
}  // namespace triaxlab::testing
