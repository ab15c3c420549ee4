// Tests as a controller's database holds them, without the limits of a record.
#include "workbooks/raw_workbook.h"

#include <gtest/gtest.h>

#include "support/read_sheets.h"
#include "support/temporary_folder.h"
#include "triaxial/record.h"

namespace triaxlab {
namespace {

using testing::FoundSheet;
using testing::TemporaryFolder;
using Texts = std::vector<std::string>;

FoundSheet written(const std::vector<StagedTest>& tests) {
  const TemporaryFolder folder;
  writeRawTests(folder / "raw.xls", tests.size(), [&](std::size_t index) { return tests.at(index); }, "工程编号", {});
  return testing::readXlsStrictly(folder / "raw.xls").at(0);
}

StagedTest undrained() {
  StagedTest test{.projectNo = "P-1",
                  .sampleNo = "S-1 b",
                  .projectName = "滨江路",
                  .testDate = "2020/05/03",
                  .savedOn = "2020-05-03",
                  .baseArea = "39.1",
                  .kind = "常规三轴试验",
                  .consolidation = "等向",
                  .testMethod = kCU,
                  .shearMode = 1,
                  .shearRate = 600,
                  .stages = {}};
  TestStage& stage = test.stages.emplace_back();
  SetText(stage.cellPressure, "100");
  SetText(stage.initialHeight, "8.00");
  return test;
}

TEST(RawWorkbook, OfNoTestsHasTheTwoHeadRows) {
  const FoundSheet sheet = written({});
  EXPECT_EQ(sheet.row(1), Texts{"三 轴 试 验 数 据 表"});
  EXPECT_EQ(sheet.row(2), Texts{"工程名称："});
  EXPECT_EQ(sheet.lastRow(), 2U);
}

TEST(RawWorkbook, TheRowsOfTheDatabaseStandBehindTheDate) {
  const FoundSheet sheet = written({undrained(), undrained()});
  const std::vector<Texts> head{
      {"工程名称：", "滨江路"},    {"    序号:", "00001"},      {"工程编号:", "P-1"},
      {"试样编号:", "S-1"},        {"试验日期:", "2020/05/03"}, {"工程名称:", "滨江路"},
      {"保存时间:", "2020-05-03"}, {"试样座面积:", "39.1"},     {"试样类型:", "常规三轴试验"},
      {"固结方法:", "等向"},       {"试验方法:", "CU"},         {"试验方法:", "(固结不排水试验)"}};
  for (std::size_t i = 0; i < head.size(); ++i) EXPECT_EQ(sheet.row(2 + i), head[i]);
  EXPECT_EQ(sheet.row(14), (Texts{"试验成果：", "Ccu = ", "", "φcu = ", "", "C′=", "", "φ′="}));
  EXPECT_EQ(sheet.row(15), (Texts{"    围压:", "100"}));
  EXPECT_EQ(sheet.row(17), Texts{"σ1f"});
  EXPECT_EQ(sheet.row(24), (Texts{"h0", "8.00"}));
  EXPECT_EQ(sheet.row(31), (Texts{"剪切速率", "0.600"}));
}

TEST(RawWorkbook, SixStagesStandBesideEachOtherAndOneWithoutAPressureKeepsItsColumn) {
  StagedTest test = undrained();
  test.stages.resize(6);
  SetText(test.stages[5].cellPressure, "600");
  const FoundSheet sheet = written({test});
  EXPECT_EQ(sheet.row(15), (Texts{"    围压:", "100", "", "", "", "", "600"}));
}

TEST(RawWorkbook, MoreReadingsThanColumnsGoOnBelow) {
  StagedTest test = undrained();
  for (int i = 1; i <= 300; ++i) {
    ShearReading& reading = test.stages[0].shear.emplace_back();
    SetText(reading.deviatorStress, std::to_string(i));
    reading.axialStrain = 0.5F;
  }
  const FoundSheet sheet = written({test});
  // Behind 固结过程, three labels and 剪切过程.
  EXPECT_EQ(sheet.at(37, 'A'), "εi(%):");
  EXPECT_EQ(sheet.row(38).size(), 256U);
  EXPECT_EQ(sheet.cells.at({37, 255}).value, (std::variant<std::string, double>(255.0)));
  EXPECT_EQ(sheet.at(48, 'A'), "εi(%):");
  EXPECT_EQ(sheet.row(49).size(), 46U);
  EXPECT_EQ(sheet.at(49, 'B'), "256");
  EXPECT_EQ(sheet.lastRow(), 58U);
}

}  // namespace
}  // namespace triaxlab
