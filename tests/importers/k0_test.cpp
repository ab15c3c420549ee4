// KGJSJ.KU and HGJSJ.KU into the tables of the K0 and TK0 tests.
#include <gmock/gmock.h>

#include "importers/import_fixture.h"
#include "importers/k0_builder.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class K0Import : public ImportTest {
 protected:
  K0Import() { workspace.sourceFolder = folder.path().string(); }

  const K0SampleRecord& k0(std::size_t row = 0) const { return workspace.K0SampleTable.at(row); }
  const TK0SampleRecord& tk0(std::size_t row = 0) const { return workspace.TK0SampleTable.at(row); }
  std::string_view load(std::size_t stage) const { return k0().axialPressure[stage].trimmed(); }
  std::string_view deformation(std::size_t stage) const { return k0().axialDeformation[stage].trimmed(); }
  std::string_view pressure(std::size_t stage) const { return k0().lateralPressure[stage].trimmed(); }
  void importSeries(int mode);
  std::size_t remarksOnCutSeries(std::size_t size);
  void calibrate(const std::vector<int>& factors) const { folder.write("KGJYBXL1.TB", calibrationTable(factors)); }
};

// ---- KGJSJ.KU

TEST_F(K0Import, AStationOfTheOlderApparatusIsASample) {
  const ImportReport report = importAll({kgjEntry({{.sampleNo = "ZK1",
                                                    .stageCount = 3,
                                                    .load = {{0, 100}, {1, 12345}, {3, 400}},
                                                    .deformation = {{0, 1234}, {1, -5}},
                                                    .pressure = {{0, 52}, {1, 104}}},
                                                   {.sampleNo = "ZK2", .projectNo = "P2-LONG-01"}})},
                                        "k0-kgj");
  EXPECT_EQ(report.samples, 2U);
  EXPECT_THAT(report.remarks, IsEmpty());
  EXPECT_EQ(k0().projectNo.trimmed(), "P1") << "that of the index";
  EXPECT_EQ(k0().sampleNo.trimmed(), "ZK1");
  EXPECT_EQ(load(0), "0.100");
  EXPECT_EQ(load(1), "12.345");
  EXPECT_EQ(load(2), "0.000") << "within the stage count";
  EXPECT_EQ(load(3), "") << "behind it";
  EXPECT_EQ(deformation(0), "1.234");
  EXPECT_EQ(deformation(1), "-0.005");
  EXPECT_EQ(pressure(1), "0.104");
  EXPECT_EQ(k0(1).projectNo.trimmed(), "P2-LONG-01") << "its own";
  EXPECT_TRUE(workspace.dataOf(ProjectKind::K0).rawImportPending);
  EXPECT_EQ(workspace.dataOf(ProjectKind::K0).ProjectDateTable[0].testDate.trimmed(), "2024/04/12");
}

TEST_F(K0Import, WordsWithoutAReadingAndStationsWithoutANumberBringNothing) {
  importAll({kgjEntry({{.sampleNo = "", .load = {{0, 7}}},
                       {.sampleNo = std::string(10, '\0')},
                       {.load = {{0, 100}, {1, -30000}},
                        .deformation = {{0, -30000}, {1, 20}},
                        .pressure = {{0, 30}, {1, -30000}}}})},
            "k0-kgj");
  EXPECT_EQ(workspace.K0SampleTable.used().size(), 1U);
  EXPECT_EQ(load(1), "");
  EXPECT_EQ(deformation(0), "");
  EXPECT_EQ(deformation(1), "0.020");
  EXPECT_EQ(pressure(0), "0.030");
  EXPECT_EQ(pressure(1), "");
}

TEST_F(K0Import, StageCountsAreHeldToTheTable) {
  importAll({kgjEntry({{.stageCount = 32767, .load = {{9, 900}}}, {.stageCount = -1}})}, "k0-kgj");
  EXPECT_EQ(load(9), "0.900");
  EXPECT_TRUE(k0(1).axialPressure[0].isBlank());
}

TEST_F(K0Import, EveryShorterFileGivesTheStationsThatAreThere) {
  const std::string whole = kuFile({kgjEntry({{.sampleNo = "A"}, {.sampleNo = "B"}})});
  for (std::size_t size = 33; size < whole.size(); size += 61) {
    const ImportReport report = importFile(std::string_view(whole).substr(0, size), "k0-kgj");
    EXPECT_EQ(report.remarks.size(), 1U) << size;
    EXPECT_LE(report.samples, 2U);
  }
}

// ---- HGJSJ.KU: header

TEST_F(K0Import, LoadsComeFromTheRowOfTheTableThatTheStationNames) {
  struct Case {
    int loadRow;
    const char *loads, *why;
  };
  const std::array cases{Case{1, "12.5;125;250;;;;;;;;", "a first load of 125 is 12.5"},
                         Case{2, "50;;;;;;;;;;", "the first 0 ends them"},
                         Case{13, "1000;;;;;;;;;;", "13 is row 3"},
                         Case{10, ";;;;;;;;;;", "10 is none"},
                         Case{4, ";;;;;;;;;;", "an empty row"},
                         Case{20, ";;;;;;;;;;", "20 is none"}};
  for (const Case& c : cases) {
    HgjBlock block;
    block.loads = {{0, 125}, {1, 125}, {2, 250}, {10, 50}, {12, 200}, {20, 1000}, {90, 1}};
    block.stations = {{.loadRow = c.loadRow, .mode = 0}};
    importAll({hgjEntry(block)}, "k0-hgj");
    std::string loads;
    for (const auto& text : k0().axialPressure) loads += std::string(text.trimmed()) + ";";
    EXPECT_EQ(loads, c.loads) << c.why;
  }
}

TEST_F(K0Import, OnlyK0StationsOfTheProjectOrOfNoneAreTaken) {
  HgjBlock block;
  block.stations = {{.number = 0, .sampleNo = "own", .projectNo = " P1"},
                    {.number = 1, .sampleNo = "none"},
                    {.number = 2, .sampleNo = "other", .projectNo = "P2"},
                    {.number = 3, .sampleNo = "kind", .kind = 1},
                    {.number = 4, .sampleNo = ""},
                    {.number = 5, .sampleNo = "zero", .projectNo = std::string(10, '\0')},
                    {.number = 63, .sampleNo = "last"}};
  for (HgjStation& station : block.stations) station.mode = 0;
  const ImportReport report = importAll({hgjEntry(block)}, "tk0-hgj");
  std::vector<std::string> taken;
  for (const TK0SampleRecord& record : workspace.TK0SampleTable.used())
    taken.emplace_back(record.k0.sampleNo.trimmed());
  EXPECT_THAT(taken, ElementsAre("own", "none", "zero", "last"));
  EXPECT_EQ(tk0(1).k0.projectNo.trimmed(), "P1");
  EXPECT_EQ(report.samples, 4U);
  EXPECT_THAT(report.remarks, IsEmpty()) << "without readings nobody asks for the calibration";
}

TEST_F(K0Import, TheGridTellsTheKindOfTheFirstStationInUse) {
  std::vector<Entry> entries;
  for (const int kind : {1, 2, 3, 4, 5, 6}) {
    HgjBlock block;
    block.stations = {{.number = 7, .kind = kind}, {.number = 8, .kind = 4}};
    entries.push_back(hgjEntry(block));
  }
  entries.push_back(hgjEntry({}));
  std::vector<std::string> kinds;
  const auto source = openFile(kuFile(entries), "k0-hgj");
  for (const SourceRow& row : source->rows()) kinds.push_back(row.cells.at(2));
  EXPECT_THAT(kinds, ElementsAre("压缩", "固结", "黄单", "K0", "黄双", "", ""));
}

// ---- mode 3

TEST_F(K0Import, StageEndsStandAStrideFromStationToStation) {
  calibrate({1, 2, 3});
  HgjBlock block;
  block.stations = {{.number = 0, .sampleNo = "A"}, {.number = 2, .sampleNo = "B"}};
  block.stride = 14;
  block.readings = stageEnd(1500, 100) + stageEnd(2500, 150) + std::string(16, '\0') + stageEnd(-7, 50) +
                   stageEnd(-30000, -30000) + stageEnd(9, 9);
  const ImportReport report = importAll({hgjEntry(block)}, "k0-hgj");
  EXPECT_THAT(report.remarks, IsEmpty());
  EXPECT_EQ(deformation(0), "1.500");
  EXPECT_EQ(pressure(0), "100.0");
  EXPECT_EQ(deformation(1), "2.500");
  EXPECT_EQ(pressure(1), "150.0");
  EXPECT_EQ(deformation(2), "") << "no third load";
  EXPECT_EQ(k0(1).axialDeformation[0].trimmed(), "-0.007");
  EXPECT_EQ(k0(1).lateralPressure[0].trimmed(), "150.0") << "station 2 has the third channel";
  EXPECT_TRUE(k0(1).axialDeformation[1].isBlank());
  EXPECT_TRUE(k0(1).lateralPressure[1].isBlank());
}

TEST_F(K0Import, StridesOutOfTheFileGiveZerosAndARemark) {
  calibrate(std::vector<int>(64, 1));
  for (const int stride : {-32768, 32767}) {
    HgjBlock block;
    block.stations = {{.number = 63}};
    block.stride = stride;
    const ImportReport report = importAll({hgjEntry(block)}, "k0-hgj");
    EXPECT_EQ(deformation(0), "0.000") << stride;
    EXPECT_EQ(pressure(1), "0.0") << stride;
    EXPECT_THAT(report.remarks, ElementsAre(HasSubstr("第1行"))) << stride;
  }
}

TEST_F(K0Import, InTheTK0TableAStageEndIsNoSeries) {
  calibrate({1});
  HgjBlock block;
  block.stations = {{}};
  block.readings = stageEnd(1500, 100) + stageEnd(2500, 150);
  importAll({hgjEntry(block)}, "tk0-hgj");
  EXPECT_EQ(tk0().k0.axialDeformation[1].trimmed(), "2.500");
  EXPECT_EQ(tk0().k0.lateralPressure[1].trimmed(), "150.0");
  EXPECT_EQ(tk0().stageCount, 2);
  EXPECT_EQ(tk0().timeRowCount, 0);
  EXPECT_TRUE(tk0().deformationSeries[0][0].isBlank());
}

// ---- modes 1 and 2

/// Three rows of time; station 1 has two loads.
HgjSeries threeRows() {
  return {.seconds = {{0, 0}, {1, 60}, {2, -240}},
          .readings = {{{1, 0, 1, 0}, 100},
                       {{1, 0, 1, 1}, 40},
                       {{2, 0, 1, 0}, 200},
                       {{2, 0, 1, 1}, 50},
                       {{0, 1, 1, 0}, 5},
                       {{2, 1, 1, 0}, 300},
                       {{2, 1, 1, 1}, -30000},
                       {{3, 0, 1, 0}, 999}}};
}

/// Three rows of station 1, whose channel gives twice the word.
void K0Import::importSeries(int mode) {
  calibrate({1, 2});
  HgjBlock block;
  block.stations = {{.number = 1, .mode = mode}};
  block.readings = threeRows().bytes();
  EXPECT_THAT(importAll({hgjEntry(block)}, "tk0-hgj").remarks, IsEmpty());
}

TEST_F(K0Import, ASeriesFillsTheRowsUpToTheLastTime) {
  importSeries(1);
  EXPECT_EQ(tk0().timeRowCount, 3);
  EXPECT_EQ(tk0().elapsedSeconds[1], 60);
  EXPECT_EQ(tk0().elapsedSeconds[2], -240);
  EXPECT_EQ(tk0().deformationSeries[1][0].trimmed(), "0.100");
  EXPECT_EQ(tk0().pressureSeries[1][0].trimmed(), "80.0") << "twice the word";
  EXPECT_EQ(tk0().deformationSeries[0][0].trimmed(), "0.000");
  EXPECT_EQ(tk0().deformationSeries[0][1].trimmed(), "0.005");
}

TEST_F(K0Import, ASeriesLeavesBlankWhatWasNotRead) {
  importSeries(1);
  EXPECT_TRUE(tk0().pressureSeries[2][1].isBlank()) << "no reading";
  EXPECT_TRUE(tk0().deformationSeries[3][0].isBlank()) << "behind the last time";
  EXPECT_TRUE(tk0().deformationSeries[2][2].isBlank()) << "no third load";
  EXPECT_TRUE(tk0().k0.lateralPressure[0].isBlank()) << "that of T90 is yet to be found";
}

TEST_F(K0Import, TheLastRowOfASeriesIsTheEndOfItsStage) {
  for (const int mode : {1, 2}) {
    importSeries(mode);
    EXPECT_EQ(tk0().k0.axialDeformation[0].trimmed(), "0.200") << mode;
    EXPECT_EQ(tk0().k0.axialDeformation[1].trimmed(), "0.300") << mode;
  }
}

TEST_F(K0Import, TheK0TableTakesTheEndOfASeriesOfMode2Alone) {
  calibrate({1, 2});
  HgjBlock block;
  block.stations = {{.number = 1, .mode = 2}};
  block.readings = threeRows().bytes();
  importAll({hgjEntry(block)}, "k0-hgj");
  EXPECT_EQ(deformation(0), "0.200");
  EXPECT_EQ(pressure(0), "100.0");
  EXPECT_EQ(pressure(1), "");
  block.stations[0].mode = 1;
  importAll({hgjEntry(block)}, "k0-hgj");
  EXPECT_EQ(load(1), "200");
  EXPECT_EQ(deformation(0), "");
  EXPECT_EQ(pressure(0), "");
}

TEST_F(K0Import, WithoutATimeThereIsNoSeries) {
  HgjBlock block;
  block.stations = {{.number = 1, .mode = 1}};
  block.readings = HgjSeries{.seconds = {}, .readings = {{{0, 0, 1, 0}, 5}}}.bytes();
  importAll({hgjEntry(block)}, "tk0-hgj");
  EXPECT_EQ(tk0().timeRowCount, 0);
  EXPECT_TRUE(tk0().deformationSeries[0][0].isBlank());
  EXPECT_TRUE(tk0().k0.axialDeformation[0].isBlank());
  EXPECT_EQ(tk0().stageCount, 2);
}

/// Behind index, header and times, the last word of threeRows in use is the pressure of row 2, stage 1, station 1:
/// ((2 x 10 + 1) x 64 + 1) x 4 bytes and its four.
constexpr std::size_t kInUse = 32 + 2261 + 124 + 5380 + 4;

/// The remarks on a file of threeRows that ends here.
std::size_t K0Import::remarksOnCutSeries(std::size_t size) {
  calibrate({1, 2});
  HgjBlock block;
  block.stations = {{.number = 1, .mode = 1}};
  block.readings = threeRows().bytes();
  return importFile(kuFile({hgjEntry(block)}).substr(0, size), "tk0-hgj").remarks.size();
}

TEST_F(K0Import, RowsThatTheEndCutsAreZeros) {
  EXPECT_EQ(remarksOnCutSeries(kInUse - 4), 1U);
  EXPECT_EQ(tk0().deformationSeries[2][0].trimmed(), "0.200");
  EXPECT_EQ(tk0().deformationSeries[2][1].trimmed(), "0.000");
  for (std::size_t size = 32; size < kInUse; size += 67) EXPECT_EQ(remarksOnCutSeries(size), 1U) << size;
}

TEST_F(K0Import, ReadingsThatNobodyTakesAreNotMissed) {
  EXPECT_EQ(remarksOnCutSeries(kInUse), 0U);
  EXPECT_EQ(tk0().deformationSeries[2][1].trimmed(), "0.300");
}

TEST_F(K0Import, SixteenUnconfinedStationsStandInFrontOfTheReadings) {
  calibrate({1, 2});
  HgjBlock block;
  block.stations = {{.number = 0, .sampleNo = "A"}, {.number = 1, .sampleNo = "B", .mode = 2}};
  block.readings = std::string(224, '\x11') + threeRows().bytes();
  workspace.settings.toggles.sixteenUnconfined = true;
  importAll({hgjEntry(block)}, "k0-hgj");
  EXPECT_EQ(deformation(0), "0.000") << "the time of row 0";
  EXPECT_EQ(k0(1).axialDeformation[0].trimmed(), "0.200");
}

// ---- calibration

TEST_F(K0Import, WhatTheCalibrationLacksIsSaidOnce) {
  HgjBlock block;
  block.stations = {{.number = 0, .sampleNo = "A"}, {.number = 2, .sampleNo = "B"}};
  block.readings = std::string(200, '\1');
  const Entry entry = hgjEntry(block);
  const auto remarks = [&] { return importAll({entry, entry}, "k0-hgj").remarks; };
  EXPECT_THAT(remarks(), ElementsAre(HasSubstr("没有率定表")));
  EXPECT_EQ(pressure(0), "0.0");
  calibrate({1, 1});
  EXPECT_THAT(remarks(), ElementsAre(HasSubstr("只有2个通道")));
  folder.write("KGJYBXL1.TB", "123456\n" + calibrationLine({"0", "100"}) + calibrationLine({}) + calibrationLine({}) +
                                  calibrationLine({"0", "10"}));
  EXPECT_THAT(remarks(), ElementsAre(HasSubstr("不是逐点增大")));
}

TEST_F(K0Import, ACalibrationThatCanNotBeReadChangesNothing) {
  std::filesystem::create_directory(folder.path() / "KGJYBXL1.TB");
  workspace.K0SampleTable[0].koAdjusted = 7;
  HgjBlock block;
  block.stations = {{}};
  EXPECT_THROW(importAll({hgjEntry(block)}, "k0-hgj"), UserError);
  EXPECT_EQ(k0().koAdjusted, 7);
  EXPECT_FALSE(workspace.dataOf(ProjectKind::K0).rawImportPending);
}

}  // namespace
}  // namespace triaxlab::testing
