// The workbooks of the tests beside the triaxial one.
#include <gtest/gtest.h>

#include "support/read_sheets.h"
#include "support/temporary_folder.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

using testing::FoundSheet;
using testing::TemporaryFolder;
using Texts = std::vector<std::string>;

struct OtherWorkbooks : ::testing::Test {
  TemporaryFolder folder;
  Workspace workspace;

  template <class Record>
  static Record& named(Record& record) {
    SetText(record.projectNo, "P1");
    SetText(record.sampleNo, "A-1");
    return record;
  }
  FoundSheet written(ProjectKind tests) const {
    writeSamples(workspace, workbookFormOf(tests), folder / "out.xls");
    return testing::readXlsStrictly(folder / "out.xls").at(0);
  }
};

TEST_F(OtherWorkbooks, AnUnconfinedSampleHasItsTwoSpecimens) {
  UnconfinedSampleRecord& record = named(workspace.UnconfinedSampleTable[0]);
  SetText(record.qu, "84.5");
  SetText(record.quRemoulded, "20.1");
  SetText(record.sensitivity, "4.2");
  SetText(record.sampleHeight[0], "8.00");
  record.ringCoefficient = {Little<std::int16_t>(1520), Little<std::int16_t>(0)};
  SetText(record.undisturbedStrain[0], "1.0");
  SetText(record.undisturbedStrain[1], "2.0");
  SetText(record.undisturbedStrain[2], "3.0");  // a strain alone is no reading
  SetText(record.undisturbedReading[0], "12");
  SetText(record.undisturbedStress[1], "1E2");
  const FoundSheet sheet = written(ProjectKind::Unconfined);
  EXPECT_EQ(sheet.row(1), Texts{"无 侧 限 试 验 数 据 表"});
  EXPECT_EQ(sheet.row(5), (Texts{"试样编号:", "A-1"}));
  EXPECT_EQ(sheet.row(7), (Texts{"试验成果：", "qu = ", "84.5", "qu′ = ", "20.1", "St = ", "4.2"}));
  EXPECT_EQ(sheet.row(8), (Texts{"试样:", "原状", "重塑"}));
  EXPECT_EQ(sheet.row(9), (Texts{"试样高度(cm):", "8.00"}));
  EXPECT_EQ(sheet.row(11), (Texts{"钢环系数(N/0.01mm):", "1.520"}));
  EXPECT_EQ(sheet.row(13), Texts{"试验过程"});
  EXPECT_EQ(sheet.row(14), (Texts{"原状ε(%):", "1.0", "2.0"}));
  EXPECT_EQ(sheet.row(15), (Texts{"原状R(0.01mm):", "12"}));
  EXPECT_EQ(sheet.row(16), (Texts{"原状σ(kPa):", "", "1E2"}));
  EXPECT_EQ(sheet.row(17), Texts{"重塑ε(%):"});
  EXPECT_EQ(sheet.lastRow(), 19U);
}

void loadStages(K0SampleRecord& record) {
  SetText(record.koValue, "0.45");
  SetText(record.samplingDepth, "3.0-3.2");
  SetText(record.axialPressure[0], "50");
  SetText(record.axialPressure[1], "100");
  SetText(record.lateralPressure[1], "45.5");
  SetText(record.lateralPressure[2], "99");  // of a stage that was not run
}

TEST_F(OtherWorkbooks, AK0SampleHasItsStages) {
  loadStages(named(workspace.K0SampleTable[0]));
  const FoundSheet sheet = written(ProjectKind::K0);
  EXPECT_EQ(sheet.row(1), Texts{"Ko 试 验 数 据 表"});
  EXPECT_EQ(sheet.row(7), (Texts{"取土深度:", "3.0-3.2"}));
  EXPECT_EQ(sheet.row(8), (Texts{"试验成果：", "Ko = ", "0.45", "截距(kPa) = "}));
  EXPECT_EQ(sheet.row(9), Texts{"轴向变形量(mm):"});
  EXPECT_EQ(sheet.row(10), (Texts{"轴向压力(kPa):", "50", "100"}));
  EXPECT_EQ(sheet.row(11), (Texts{"侧向压力(kPa):", "", "45.5"}));
  EXPECT_EQ(sheet.lastRow(), 11U);
}

TEST_F(OtherWorkbooks, ATK0SampleHasTheSettlementOfItsStagesBesides) {
  TK0SampleRecord& record = workspace.TK0SampleTable[0];
  loadStages(named(record.k0));
  record.elapsedSeconds[1] = 15;
  record.elapsedSeconds[2] = 60;
  SetText(record.deformationSeries[1][0], "0.125");
  SetText(record.pressureSeries[2][1], "30.5");
  const FoundSheet sheet = written(ProjectKind::TK0);
  EXPECT_EQ(sheet.row(12)[0], "T90(min):");
  EXPECT_EQ(sheet.row(13), Texts{"沉降过程"});
  EXPECT_EQ(sheet.row(14), (Texts{"    时间:", "0", "0.3", "1"}));  // 15 s are 0.25 min, rounded away from zero
  EXPECT_EQ(sheet.row(15), (Texts{"第1级变形量(mm):", "", "0.125"}));
  EXPECT_EQ(sheet.row(16), Texts{"第1级压力(kPa):"});
  EXPECT_EQ(sheet.row(17), Texts{"第2级变形量(mm):"});
  EXPECT_EQ(sheet.row(18), (Texts{"第2级压力(kPa):", "", "", "30.5"}));
  EXPECT_EQ(sheet.lastRow(), 18U);
}

}  // namespace
}  // namespace triaxlab
