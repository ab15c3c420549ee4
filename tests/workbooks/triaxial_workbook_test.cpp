// The workbook of a triaxial project, cell by cell.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/packages.h"
#include "support/read_sheets.h"
#include "support/temporary_folder.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using testing::FoundSheet;
using ::testing::IsEmpty;
using testing::TemporaryFolder;
using Texts = std::vector<std::string>;

struct TriaxialWorkbook : ::testing::Test {
  TemporaryFolder folder;
  Workspace workspace;

  TriaxialSampleRecord& sample(std::size_t row, TestMethod method, std::string_view sampleNo) {
    TriaxialSampleRecord& record = workspace.TriaxialSampleTable[row];
    SetText(record.projectNo, "0042");
    SetText(record.sampleNo, sampleNo);
    record.testMethod = method;
    record.shearMode = 1;
    SetText(record.testDate, "2024/05/06");
    return record;
  }
  static void reading(TriaxialSampleRecord& record, std::size_t stage, std::size_t row, float strain,
                      std::string_view stress, std::string_view porePressure) {
    record.axialStrain[row][stage] = strain;
    SetText(record.deviatorStress[row][stage], stress);
    SetText(record.porePressure[row][stage], porePressure);
  }
  std::vector<FoundSheet> sheets() const {
    writeSamples(workspace, workbookFormOf(ProjectKind::Triaxial), folder / "out.xls");
    return testing::readXlsStrictly(folder / "out.xls");
  }
  FoundSheet written() const { return sheets().at(0); }
};

/// The rows that have this text in column A.
std::vector<std::size_t> rowsOf(const FoundSheet& sheet, std::string_view label) {
  std::vector<std::size_t> rows;
  for (std::size_t row = 1; row <= sheet.lastRow(); ++row)
    if (sheet.at(row, 'A') == label) rows.push_back(row);
  return rows;
}

TEST_F(TriaxialWorkbook, OfAnEmptyProjectHasTheTwoHeadRows) {
  workspace.dataOf(ProjectKind::Triaxial).projectName.text = "  \xB6\xAB\xBA\xFE\x07 ";  // 东湖 and a bell
  const FoundSheet sheet = written();
  EXPECT_EQ(sheet.name, "Sheet1");
  EXPECT_EQ(sheet.row(1), Texts{"三 轴 试 验 数 据 表"});
  EXPECT_EQ(sheet.row(2), (Texts{"工程名称：", "东湖"}));
  EXPECT_EQ(sheet.lastRow(), 2U);
}

TEST_F(TriaxialWorkbook, BeginsEachSampleWithItsHead) {
  sample(0, kUU, "ZK1 upper");
  workspace.settings.habits.projectNoLabel = "委托编号";
  const FoundSheet sheet = written();
  EXPECT_EQ(sheet.row(3), (Texts{"    序号:", "00001"}));
  EXPECT_EQ(sheet.row(4), (Texts{"委托编号:", "0042"}));
  EXPECT_EQ(sheet.row(5), (Texts{"试样编号:", "ZK1"}));
  EXPECT_EQ(sheet.row(6), (Texts{"试验日期:", "2024/05/06"}));
  EXPECT_EQ(sheet.row(7), (Texts{"试验方法:", "(不固结不排水试验)"}));
  EXPECT_EQ(sheet.row(8), (Texts{"试验成果：", "Cu = ", "", "φu = "}));
  EXPECT_EQ(sheet.cells.at({3, 1}).display, "@");
}

TEST_F(TriaxialWorkbook, CountsTheRowsWithAProjectNumber) {
  sample(0, kUU, "1");
  sample(1, kUU, "");
  sample(2, kUU, "3");
  workspace.TriaxialSampleTable[3];
  const FoundSheet sheet = written();
  const auto numbers = rowsOf(sheet, "    序号:");
  ASSERT_EQ(numbers.size(), 3U);
  EXPECT_EQ(sheet.at(numbers[1], 'B'), "00002");
  EXPECT_EQ(sheet.row(numbers[1] + 2), Texts{"试样编号:"});
  EXPECT_EQ(sheet.at(numbers[2], 'B'), "00003");
  EXPECT_EQ(numbers[1] - numbers[0], 25U);  // 24 rows and 剪切过程, nothing in between
}

TEST_F(TriaxialWorkbook, NamesTheResultsAfterTheTest) {
  sample(0, kCD, "1");
  TriaxialSampleRecord& cu = sample(1, kCU, "2");
  SetText(cu.cohesionText, "12.5");
  cu.frictionAngle = 21.26F;
  SetText(cu.cohesionEffText, "?");
  sample(2, TestMethod{7}, "3");
  TriaxialSampleRecord& flat = sample(3, kUU, "4");
  SetText(flat.cohesionText, "50");
  const FoundSheet sheet = written();
  const auto rows = rowsOf(sheet, "试验成果：");
  EXPECT_EQ(sheet.row(rows.at(0)), (Texts{"试验成果：", "Ccd = ", "", "φcd = "}));
  EXPECT_EQ(sheet.row(rows.at(1)), (Texts{"试验成果：", "Ccu = ", "12.5", "φcu = ", "21.3", "C′=", "?", "φ′=", "0.0"}));
  EXPECT_EQ(sheet.row(rows.at(2)), Texts{"试验成果："});
  EXPECT_EQ(sheet.row(rows.at(2) - 1), Texts{"试验方法:"});
  EXPECT_EQ(sheet.row(rows.at(3)), (Texts{"试验成果：", "Cu = ", "50", "φu = ", "0.0"}));
}

TEST_F(TriaxialWorkbook, SpecimensWithAPressureStandBesideEachOtherWithoutGaps) {
  TriaxialSampleRecord& record = sample(0, kCU, "1");
  SetText(record.cellPressure[0], "100");
  SetText(record.cellPressure[3], "400.0");
  SetText(record.sigma1Failure[3], "1E3");
  SetText(record.initialHeight[0], "8.00");
  record.shearRate = {Little<std::int16_t>(80), {}, {}, std::int16_t{0}, {}};
  record.coefficientB[0] = 0.004F;
  record.coefficientB[3] = std::numeric_limits<float>::quiet_NaN();
  record.coefficientAf[3] = 0.125F;
  const FoundSheet sheet = written();
  EXPECT_EQ(sheet.row(9), (Texts{"    围压:", "100", "400.0"}));
  EXPECT_EQ(sheet.row(10), (Texts{"σ3", "100", "400.0"}));
  EXPECT_EQ(sheet.row(11), (Texts{"σ1f", "", "1E3"}));
  Texts labels;
  for (std::size_t row = 10; row <= 25; ++row) labels.push_back(sheet.at(row, 'A'));
  EXPECT_THAT(labels, ElementsAre("σ3", "σ1f", "σ3f′", "σ1f′", "⊙(σ1+σ3)/2", "R", "⊙′(σ1′+σ3′)/2", "R′", "h0", "h1",
                                  "A0", "Ac", "ΔV", "B", "Af", "剪切速率"));
  EXPECT_EQ(sheet.row(18), (Texts{"h0", "8.00"}));
  EXPECT_EQ(sheet.row(23), (Texts{"B", "0.00"}));       // a little, but not nothing
  EXPECT_EQ(sheet.row(24), (Texts{"Af", "", "0.13"}));  // what a person reads, so not 0.125
  EXPECT_EQ(sheet.row(25), (Texts{"剪切速率", "0.080"}));
  EXPECT_EQ(sheet.row(26), Texts{"固结过程"});
}

TEST_F(TriaxialWorkbook, ConsolidationEndsWithItsLastReading) {
  TriaxialSampleRecord& record = sample(0, kCU, "1");
  SetText(record.cellPressure[0], "100");
  SetText(record.cellPressure[1], "200");
  record.consolidationPorePressure[0][0] = std::int16_t{985};
  record.consolidationVolume[0][0] = std::int16_t{7};
  record.consolidationTime[1][0] = 30;
  record.consolidationVolume[1][0] = std::int16_t{-12};
  record.consolidationTime[2][0] = 60;
  record.consolidationTime[3][0] = 86400;
  record.consolidationPorePressure[3][0] = std::int16_t{-5};
  const FoundSheet sheet = written();
  EXPECT_EQ(sheet.row(27), (Texts{"    时间:", "0", "0.5", "1", "1440"}));
  EXPECT_EQ(sheet.row(28), (Texts{"固结孔压:", "98.5", "", "", "-0.5"}));
  EXPECT_EQ(sheet.row(29), (Texts{"固结排水:", "0.00", "-0.12"}));
  EXPECT_EQ(sheet.row(30), Texts{"    时间:"});
  EXPECT_EQ(sheet.row(32), Texts{"固结排水:"});
  EXPECT_EQ(sheet.row(33), Texts{"剪切过程"});
}

TEST_F(TriaxialWorkbook, AnUnconsolidatedTestHasNoRowsOfConsolidation) {
  TriaxialSampleRecord& record = sample(0, kUU, "1");
  SetText(record.cellPressure[0], "100");
  record.consolidationTime[1][0] = 60;
  const FoundSheet sheet = written();
  EXPECT_EQ(sheet.row(26), Texts{"固结过程"});
  EXPECT_EQ(sheet.row(27), Texts{"剪切过程"});
  EXPECT_EQ(sheet.row(28), Texts{"εi(%):"});
}

TEST_F(TriaxialWorkbook, ReadingKStandsInColumnTwoPlusK) {
  TriaxialSampleRecord& record = sample(0, kCU, "1");
  SetText(record.cellPressure[0], "100");
  reading(record, 0, 0, 0.4F, "60.5", "30");
  SetText(record.sigma1Eff[0][0], "130");
  SetText(record.sigma3Eff[0][0], "70");
  record.volumeChange[0][0] = std::int16_t{-25};
  reading(record, 0, 1, 0.8F, "", "99");  // without a stress the column stays empty
  reading(record, 0, 2, 0, "80", "0");
  reading(record, 0, 3, 1.2F, "0", "99");  // and the row ends with the last stress
  const FoundSheet sheet = written();
  const std::size_t first = rowsOf(sheet, "剪切过程").at(0) + 1;
  EXPECT_EQ(sheet.row(first), (Texts{"εi(%):", "0.40"}));
  EXPECT_EQ(sheet.row(first + 1), (Texts{"σ1-σ3(kPa):", "60.5", "", "80"}));
  EXPECT_EQ(sheet.row(first + 2), (Texts{"σ1(kPa):", "160", "", "180"}));         // Int(100 + 60.5)
  EXPECT_EQ(sheet.row(first + 3), (Texts{"(σ1+σ3)/2(kPa):", "130", "", "140"}));  // (200 + 60.5) / 2 = 130.25
  EXPECT_EQ(sheet.row(first + 4), (Texts{"(σ1-σ3)/2(kPa):", "30", "", "40"}));
  EXPECT_EQ(sheet.row(first + 5), (Texts{"u (kPa):", "30"}));
  EXPECT_EQ(sheet.row(first + 6), (Texts{"σ1′(kPa):", "130"}));
  EXPECT_EQ(sheet.row(first + 7), (Texts{"σ3′(kPa):", "70"}));
  EXPECT_EQ(sheet.row(first + 8), (Texts{"(σ1′+σ3′)/2(kPa):", "100"}));
  EXPECT_EQ(sheet.row(first + 9), (Texts{"σ1′/σ3'(kPa):", "1.857"}));
  EXPECT_EQ(sheet.row(first + 10), (Texts{"ΔVi (ml):", "-0.25"}));
  EXPECT_EQ(sheet.lastRow(), first + 10);
}

TEST_F(TriaxialWorkbook, EffectiveStressesAreThoseOfAnUndrainedTestAlone) {
  TriaxialSampleRecord& record = sample(0, kCD, "1");
  SetText(record.cellPressure[0], "100");
  reading(record, 0, 0, 0.4F, "60", "30");
  SetText(record.sigma1Eff[0][0], "130");
  SetText(record.sigma3Eff[0][0], "70");
  const FoundSheet sheet = written();
  for (const char* label : {"σ1′(kPa):", "σ3′(kPa):", "(σ1′+σ3′)/2(kPa):", "σ1′/σ3'(kPa):"})
    EXPECT_EQ(sheet.row(rowsOf(sheet, label).at(0)), Texts{label});
}

TEST_F(TriaxialWorkbook, BothFormatsHaveTheSameCells) {
  NEEDS_XLSX();
  TriaxialSampleRecord& record = sample(0, kCU, "=1+1");
  SetText(record.cellPressure[0], "100");
  for (std::size_t row = 0; row < 20; ++row) reading(record, 0, row, 0.4F, "60", "30.5");
  const FoundSheet older = written();
  writeSamples(workspace, workbookFormOf(ProjectKind::Triaxial), folder / "out.xlsx");
  EXPECT_EQ(testing::readXlsx(folder / "out.xlsx").at(0), older);
}

TEST_F(TriaxialWorkbook, TellsItsProgressSampleBySample) {
  for (std::size_t row = 0; row < 3; ++row) sample(row, kUU, "1");
  std::vector<std::size_t> steps;
  writeSamples(workspace, workbookFormOf(ProjectKind::Triaxial), folder / "out.xls",
               [&](std::size_t done, std::size_t total) {
                 EXPECT_EQ(total, 3U);
                 steps.push_back(done);
               });
  EXPECT_THAT(steps, ElementsAre(1, 2, 3));
}

}  // namespace
}  // namespace triaxlab
