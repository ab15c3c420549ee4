// KSZSJ.KU: dial readings of a ring of 1.25 over specimens of 12.00 cm2.
#include "importers/import_fixture.h"
#include "importers/source_builders.h"

namespace triaxlab::testing {
namespace {

constexpr int kNone = -30000;  // what the apparatus writes where it took no reading

std::map<int, int> readings(int count, int dial) {
  std::map<int, int> all;
  for (int i = 0; i < count; ++i) all[i] = dial;
  return all;
}

class Qvb98 : public ImportTest {
 protected:
  ImportReport import(const std::vector<std::vector<QvbSpecimen>>& groups, std::string_view numbers = "") {
    return importAll({qvbEntry(groups, numbers)}, "qvb98");
  }
  /// Stress of the first row of the only specimen.
  std::string only(const QvbSpecimen& specimen, std::size_t i = 0) {
    import({{ specimen }});
    return std::string(stress(i));
  }
  std::string_view sampleNo(std::size_t index = 0) const { return row(index).sampleNo.view(); }
};

/// 8.00 cm and 12.00 cm2 less 2.40 ml: 93.60 ml, over 7.90 cm 11.85 cm2.
QvbSpecimen consolidated(int method, std::map<int, int> dial) {
  return {.testMethod = method, .consolidatedHeight = 790, .drainage = 240, .dial = std::move(dial)};
}

// ---- the grid

TEST_F(Qvb98, ListsProjectDateAndGroups) {
  Entry entry = qvbEntry({{QvbSpecimen{}}, {QvbSpecimen{}}});
  entry.projectNo = "XA9911";
  entry.date = "19990914";
  entry.projectTail = "tail";
  const auto source = openFile(kuFile({entry}), "qvb98");
  ASSERT_EQ(source->rows().size(), 1U);
  EXPECT_EQ(source->rows()[0].cells, (std::vector<std::string>{"XA9911", "1999/09/14", "2"}));
}

TEST_F(Qvb98, LooksForItsFileInItsFolder) {
  const Importer& importer = *importerOfId("qvb98");
  EXPECT_EQ(importer.title, "QVB98三轴试验原始数据库");
  EXPECT_EQ(importer.form, "OPENFORM1");
  EXPECT_EQ(importer.defaultFile, "KSZSJ.KU");
  EXPECT_EQ(importer.folderField.position, 20U);
  EXPECT_EQ(importer.folderField.width, 170U);
  EXPECT_EQ(&importer, importerOfMenuCommand("OLDSZ"));
}

// ---- the number of a sample

TEST_F(Qvb98, PackedNumbersHoldTwoDigitsAByte) {
  import({{{.packedSampleNo =
            { 0x12,
              0xA3,
              0xFF,
              0xFF } }},
          {{.packedSampleNo =
            { 0x00,
              0x12,
              0xA3,
              0x4F } }},
          {{.packedSampleNo =
            { 0x98,
              0x76,
              0x54,
              0x3A } }},
          {
            {.packedSampleNo =
             { 0xB1,
               0xC2,
               0xD3,
               0xE4 } }
          }});
  EXPECT_EQ(sampleNo(0), "12-3          ");
  EXPECT_EQ(sampleNo(1), "0012-34       ");
  EXPECT_EQ(sampleNo(2), "9876543-      ");
  EXPECT_EQ(sampleNo(3), "1234          ");
}

TEST_F(Qvb98, LongNumbersTakeThePlaceOfPackedOnes) {
  const std::string numbers =
      std::string("zmgj") + "1234567   " + "123456    " + " TJ12-1-3 " + std::string("ABCDEFG\0XY", 10);
  import({{{.packedSampleNo =
            { 0x01,
              0xFF,
              0xFF,
              0xFF } }},
          {{.packedSampleNo =
            { 0x02,
              0xFF,
              0xFF,
              0xFF } }},
          {{.packedSampleNo =
            { 0x03,
              0xFF,
              0xFF,
              0xFF } }},
          {{.packedSampleNo =
            { 0x04,
              0xFF,
              0xFF,
              0xFF } }},
          {
            {.packedSampleNo =
             { 0x05,
               0xFF,
               0xFF,
               0xFF } }
          }},
         numbers);
  EXPECT_EQ(sampleNo(0), "1234567       ");
  EXPECT_EQ(sampleNo(1), "02            ") << "six characters don't";
  EXPECT_EQ(sampleNo(2), " TJ12-1-3     ") << "as it stands in the file";
  EXPECT_EQ(sampleNo(3), "ABCDEFG       ") << "up to the zero byte";
  EXPECT_EQ(sampleNo(4), "05            ") << "blank";
}

TEST_F(Qvb98, ATextWithoutItsMarkIsNone) {
  import({{ QvbSpecimen {} }}, "ZMGJ1234567   ");
  EXPECT_EQ(sampleNo(), "12-3          ");
}

TEST_F(Qvb98, GroupsBeyondTheLongNumbersKeepTheirPackedOnes) {
  // The text has room for 64 numbers; its last groups differ in their packed ones.
  std::vector<std::vector<QvbSpecimen>> groups;
  for (int i = 0; i < 66; ++i) groups.push_back({{.packedSampleNo = {0x10 + i / 10, (i % 10) << 4 | 0xF, 0xFF, 0xFF}}});
  std::string numbers = "zmgj";
  for (int i = 0; i < 64; ++i) numbers += text("LONGNO" + std::to_string(i), 10);
  EXPECT_EQ(import(groups, numbers).sampleRows, 66U);
  EXPECT_EQ(row(63).sampleNo.trimmed(), "LONGNO63");
  EXPECT_EQ(row(64).sampleNo.trimmed(), "164");
  EXPECT_EQ(row(65).sampleNo.trimmed(), "165");
}

// ---- measures

TEST_F(Qvb98, MeasuresAreTextsOfTheirWords) {
  QvbSpecimen specimen = consolidated(2, {});
  specimen.cellPressure = 150;
  specimen.ringCoefficient = 1234;
  import({{ specimen }});
  EXPECT_EQ(row(0).cellPressure[0].trimmed(), "150");
  EXPECT_EQ(row(0).initialHeight[0].trimmed(), "8.00");
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.90");
  EXPECT_EQ(row(0).initialArea[0].trimmed(), "12.00");
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "2.40");
  EXPECT_EQ(row(0).ringCoefficient[0].trimmed(), "1.234");
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "11.85");
  EXPECT_EQ(row(0).testMethod, kCU);
  EXPECT_TRUE(row(0).testDate.isBlank());
}

TEST_F(Qvb98, WordsOfZeroLeaveMeasuresBlank) {
  import({{ {.testMethod = 2, .initialHeight = 0, .initialArea = 0, .ringCoefficient = 0 } }});
  EXPECT_TRUE(row(0).initialHeight[0].isBlank());
  EXPECT_TRUE(row(0).consolidatedHeight[0].isBlank());
  EXPECT_TRUE(row(0).initialArea[0].isBlank());
  EXPECT_TRUE(row(0).consolidatedArea[0].isBlank());
  EXPECT_TRUE(row(0).consolidationDrainage[0].isBlank());
  EXPECT_TRUE(row(0).ringCoefficient[0].isBlank());
}

TEST_F(Qvb98, WithoutAConsolidatedHeightTheVolumeStandsForTheArea) {
  import({{ {.testMethod = 2, .drainage = 240 } }});
  EXPECT_EQ(row(0).consolidatedArea[0].trimmed(), "93.60");  // 8.00 x 12.00 - 2.40
}

TEST_F(Qvb98, UuHasAConsolidatedHeightButNoArea) {
  import({{ consolidated(1, {}) }});
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.90");
  EXPECT_TRUE(row(0).consolidatedArea[0].isBlank());
}

// ---- stress: 1.25 x 10000 = 12500 unless told

TEST_F(Qvb98, UuTakesTheInitialArea) {
  EXPECT_EQ(only({.dial = {{0, 8000}}}), "830");                  // 10000 x (1 - 0.004) / 12
  EXPECT_EQ(only({.dial = {{49, 8000}}}, 49), "667");             // 10000 x (1 - 0.2) / 12 = 666.67
  EXPECT_EQ(only({.shearMode = 2, .dial = {{0, 8000}}}), "832");  // 10000 x (1 - 0.002) / 12 = 831.67
  EXPECT_EQ(only({.shearMode = 3, .dial = {{0, 8000}}}), "830");  // steps of 0.4 % but for mode 2
  EXPECT_EQ(only({.dial = {{0, -8000}}}), "-830");
}

TEST_F(Qvb98, CuTakesTheConsolidatedArea) {
  EXPECT_EQ(only(consolidated(2, {{0, 10000}})), "1051");  // 12500 x 0.996 / 11.85 = 1050.63
}

TEST_F(Qvb98, CdTakesTheVolumeOfTheNextReading) {
  QvbSpecimen specimen = consolidated(3, {{0, 10000}, {1, 10000}});
  // (11.85 x 7.90 - 0.50) / (7.90 x 0.996) = 93.115 / 7.8684 = 11.8340; 12500 / 11.8340 = 1056.27.
  specimen.volume = {{0, 3000}, {1, 50}};
  EXPECT_EQ(only(specimen), "1056");
  // Without a volume 12500 x 0.996 / 11.85, as in CU.
  specimen.volume = {{0, 3000}};
  EXPECT_EQ(only(specimen), "1051");
}

TEST_F(Qvb98, WithoutALoadOrASectionARowIsBlank) {
  EXPECT_EQ(only({.ringCoefficient = 0, .dial = {{0, 8000}}}), "");
  EXPECT_EQ(only({.initialArea = 0, .dial = {{0, 8000}}}), "");
  EXPECT_EQ(only({.testMethod = 2, .initialArea = 0, .dial = {{0, 8000}}}), "");
  EXPECT_EQ(only({.testMethod = 3, .dial = {{0, 8000}}}), "") << "no consolidated height";
  EXPECT_EQ(only({.testMethod = 4, .dial = {{0, 8000}}}), "");
}

TEST_F(Qvb98, ReadingsKeepTheirRowsOverGaps) {
  const QvbSpecimen specimen{.dial = {{0, 8000}, {2, 8000}, {3, kNone}}, .pore = {{0, 7}, {1, 8}, {2, 9}, {3, 10}}};
  EXPECT_EQ(only(specimen), "830");
  EXPECT_EQ(stress(1), "");
  EXPECT_EQ(pore(1), "");
  EXPECT_EQ(stress(2), "823");  // 10000 x (1 - 0.012) / 12 = 823.33
  EXPECT_EQ(stress(3), "");
  EXPECT_EQ(pore(3), "");
}

// ---- strain of earlier stages

TEST_F(Qvb98, AMultiStageTestRunsOnFromStageToStage) {
  const QvbSpecimen first{.shearMode = 2, .cellPressure = 100, .dial = readings(4, 500)};
  QvbSpecimen second{.shearMode = 2, .cellPressure = 200, .dial = {{0, 8000}}};
  import({{ first, second }});
  EXPECT_EQ(stress(0, 1), "825");  // 4 rows: 10000 x (1 - 0.008 - 0.002) / 12
  second.testMethod = 2;
  import({{ consolidated(2, readings(4, 500)), consolidated(2, {{ 0, 10000 }}) }});
  EXPECT_EQ(stress(0, 1), "1051") << "not in a test of steps of 0.4 %";
  QvbSpecimen cu = consolidated(2, readings(4, 500)), next = consolidated(2, {{0, 10000}});
  cu.shearMode = next.shearMode = 2;
  import({{ cu, next }});
  EXPECT_EQ(stress(0, 1), "1044");  // CU as well: 12500 x 0.99 / 11.85 = 1044.30
}

TEST_F(Qvb98, AnUnusedSlotInFrontCountsAsOneRow) {
  const QvbSpecimen first{.shearMode = 2, .dial = readings(4, 500)};
  const QvbSpecimen third{.shearMode = 2, .cellPressure = 300, .dial = {{0, 8000}}};
  import({{ first, noQvbSpecimen(), third }});
  EXPECT_EQ(stress(0, 2), "823");  // 10000 x (1 - 0.008 - 0.002 - 0.002) / 12 = 823.33
}

TEST_F(Qvb98, AFullStageIsATenth) {
  const QvbSpecimen first{.shearMode = 2, .dial = readings(50, 500)};
  const QvbSpecimen second{.shearMode = 2, .cellPressure = 200, .dial = {{0, 8000}}};
  import({{ first, second }});
  EXPECT_EQ(stress(0, 1), "748");  // 10000 x (1 - 0.1 - 0.002) / 12 = 748.33
}

TEST_F(Qvb98, RowsAreCountedOnTheDial) {
  // A ring of 0 leaves no stress, and the stage counts all the same.
  const QvbSpecimen first{.shearMode = 2, .ringCoefficient = 0, .dial = readings(4, 500)};
  const QvbSpecimen second{.shearMode = 2, .cellPressure = 200, .dial = {{0, 8000}}};
  import({{ first, second }});
  EXPECT_EQ(stress(0, 0), "");
  EXPECT_EQ(stress(0, 1), "825");
}

// ---- pore pressure and volume

TEST_F(Qvb98, StartPorePressureIsTenTimesItsWord) {
  const auto start = [this](int word, std::map<int, int> pore) {
    import({{ {.startPore = word, .pore = std::move(pore) } }});
    return int{row(0).consolidationPorePressure[0][0]};
  };
  EXPECT_EQ(start(25, {{0, 7}}), 250);
  EXPECT_EQ(start(0x8019, {}), -250);
  EXPECT_EQ(start(0, {{3, 0x8003}, {4, 9}}), -30) << "the first that was read";
  EXPECT_EQ(start(0, {{48, 6}}), 60);
  EXPECT_EQ(start(0, {{49, 6}}), 0) << "the last reading is not looked at";
  EXPECT_EQ(start(3276, {}), 32760);
  EXPECT_EQ(start(3277, {}), 3277) << "32770 doesn't fit";
  EXPECT_EQ(start(kNone, {{0, kNone}, {1, 4}}), 40);
  EXPECT_EQ(start(0, {}), 0);
}

TEST_F(Qvb98, PorePressuresHaveTwoDecimalsInSixPlaces) {
  import({{ {.dial = readings(5, 100), .pore = { {0, 12}, {1, 0x8005}, {2, 12345}, { 3, kNone } } } }});
  EXPECT_EQ(row(0).porePressure[0][0].view(), "12.00 ");
  EXPECT_EQ(row(0).porePressure[1][0].view(), "-5.00 ");
  EXPECT_EQ(row(0).porePressure[2][0].view(), "12345.");
  EXPECT_TRUE(row(0).porePressure[3][0].isBlank());
  EXPECT_EQ(row(0).porePressure[4][0].view(), "0.00  ");
}

TEST_F(Qvb98, VolumesLoseTheirSignAndMoveUpARow) {
  import({{
    {.dial = {{0, 100},
              {1, 100},
              {2, 100},
              { 49,
                100 }},
     .volume =
     { {0, 10},
       {1, 0x8014},
       {2, kNone},
       {3, 40},
       { 49,
         50 } } }
  }});
  EXPECT_EQ(row(0).volumeChange[0][0], 20);
  EXPECT_EQ(row(0).volumeChange[1][0], 0);
  EXPECT_EQ(row(0).volumeChange[2][0], 0) << "row 3 has no dial reading";
  EXPECT_EQ(row(0).volumeChange[48][0], 50);
  EXPECT_EQ(row(0).volumeChange[49][0], 0);
}

// ---- groups

TEST_F(Qvb98, AGroupIsASampleOfFourSlots) {
  QvbSpecimen second{.packedSampleNo = {0x99, 0x99, 0x99, 0x99}, .testMethod = 2, .shearMode = 2, .cellPressure = 200};
  second.dial = {{0, 8000}};
  import({{ QvbSpecimen{}, second }});
  EXPECT_EQ(row(0).sampleNo.trimmed(), "12-3") << "the first slot names the sample";
  EXPECT_EQ(row(0).projectNo.trimmed(), "P1");
  EXPECT_EQ(row(0).testMethod, kUU);
  EXPECT_EQ(row(0).shearMode, 0);
  EXPECT_EQ(row(0).cellPressure[1].trimmed(), "200");
  EXPECT_EQ(stress(0, 1), "830");
}

TEST_F(Qvb98, AGroupWithoutItsFirstSlotHasNoName) {
  QvbSpecimen second{.cellPressure = 200, .dial = {{0, 8000}}};
  EXPECT_EQ(import({{noQvbSpecimen(), second}}).sampleRows, 1U);
  EXPECT_FALSE(isLive(row(0)));
  EXPECT_EQ(row(0).cellPressure[1].trimmed(), "200");
  EXPECT_EQ(stress(0, 1), "");
}

TEST_F(Qvb98, AnEmptyGroupLeavesABlankRow) {
  EXPECT_EQ(import({{noQvbSpecimen()}, {QvbSpecimen{}}}).sampleRows, 2U);
  EXPECT_FALSE(isLive(row(0)));
  EXPECT_EQ(row(1).sampleNo.trimmed(), "12-3");
}

TEST_F(Qvb98, GroupsOfOneNumberGatherWithTheirRings) {
  const QvbSpecimen first{.cellPressure = 100};
  const QvbSpecimen again{.cellPressure = 100, .ringCoefficient = 2000, .dial = {{0, 6000}}};
  const QvbSpecimen other{.cellPressure = 300, .ringCoefficient = 1500};
  EXPECT_EQ(import({{first}, {again, other}}).sampleRows, 1U);
  EXPECT_EQ(row(0).ringCoefficient[0].trimmed(), "2.000");
  EXPECT_EQ(stress(0), "996");  // 12000 x 0.996 / 12
  EXPECT_EQ(row(0).cellPressure[1].trimmed(), "300");
  EXPECT_EQ(row(0).ringCoefficient[1].trimmed(), "1.500");
}

TEST_F(Qvb98, AProjectHasTheDateOfItsLastRow) {
  Entry first = qvbEntry({{QvbSpecimen{}}}), second = first, other = first, empty = qvbEntry({});
  first.date = "19990101";
  other.projectNo = "P2";
  other.date = "19990202";
  second.date = "19990303";
  empty.date = "19990404";
  const ImportReport report = importAll({first, other, second, empty}, "qvb98");
  EXPECT_EQ(report.remarks, Remarks{"工程 P1 的试样有 2 个试验日期（1999/01/01、1999/03/03），统一印 1999/03/03。"});
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectTestDate("P1"), "1999/03/03");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectTestDate("P2"), "1999/02/02");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo.trimmed(), "P1");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[1].projectNo.trimmed(), "P2");
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[2].projectNo.isBlank());
}

TEST_F(Qvb98, StrainsAndTimesAreThoseOfTheApparatus) {
  import({{ {.shearMode = 2, .startPore = 25 } }});
  EXPECT_EQ(row(0).axialStrain[0][0], 0.2F);
  EXPECT_EQ(row(0).consolidationTime[1][0], 0);
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
}

// ---- damage

TEST_F(Qvb98, EveryShorterFileGivesWhatIsThere) {
  const std::string whole = kuFile(
      {qvbEntry({{{.dial = {{0, 6000}}}}, {{.packedSampleNo = {0x45, 0xFF, 0xFF, 0xFF}}}}, "zmgjLONG-NO-1 LONG-NO-2")});
  const std::size_t firstDial = 32 + 1 + 20 + 32 + 2;  // behind index, count, the group's head, the dial's first word
  const std::size_t groupsEnd = 32 + 1 + 2 * 1364;
  for (std::size_t size = 32; size < whole.size(); size += 61) {
    const ImportReport report = importFile(std::string_view(whole).substr(0, size), "qvb98");
    EXPECT_EQ(report.remarks.empty(), size >= groupsEnd) << size;
    EXPECT_EQ(stress(0), size >= firstDial ? "623" : "") << size;  // 7500 x 0.996 / 12 = 622.5
  }
  importFile(whole, "qvb98");
  EXPECT_EQ(row(0).sampleNo.trimmed(), "LONG-NO-1");
  EXPECT_EQ(row(1).sampleNo.trimmed(), "LONG-NO-2");
}

TEST_F(Qvb98, OffsetsBeyondTheEndBringNothingButARemark) {
  for (const std::size_t offset : {std::size_t{100}, std::size_t{0xFFFFFFFF}}) {
    const ImportReport report = importFile(word(1) + indexEntry(qvbEntry({{QvbSpecimen{}}}), offset), "qvb98");
    EXPECT_EQ(report.sampleRows, 0U);
    EXPECT_EQ(report.remarks.size(), 1U);
  }
}

}  // namespace
}  // namespace triaxlab::testing
