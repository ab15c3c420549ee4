#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sessions/triaxial/consolidation_table_session.h"
#include "sessions/triaxial/data_table_session.h"
#include "sessions/triaxial/hand_made_samples.h"
#include "triaxial/opening_pass.h"

namespace triaxlab {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// CU samples in rows 0 and 1, the second with its stages 1 and 3 alone; row 2 is empty.
struct Tables : testing::Test {
  SessionFixture fixture{cuSample("GC1", "T1"), cuSample("GC1", "T2")};
  Tables() {
    SetText(fixture.sample(1).cellPressure[0], "");
    SetText(fixture.sample(1).cellPressure[3], "400");
  }
};

struct DataTables : Tables {
  DataTableSession session{fixture.workspace, 0};
  const DataTable& table() {
    m_state = session.state();
    return m_state.table.value();
  }

 private:
  DataTableState m_state;
};

TEST_F(DataTables, OpensAtTheFirstReadingOfTheFirstUsedStage) {
  const DataTableState state = session.state();
  EXPECT_THAT(state.stage.stages, ElementsAre("周围压力:100", "周围压力:200"));
  EXPECT_EQ(state.stage.entry, 0U);
  EXPECT_EQ(state.stage.top, 0);
  EXPECT_EQ(state.stage.scrollMax, 196);
  session.load(1);
  EXPECT_THAT(session.state().stage.stages, ElementsAre("周围压力:200", "周围压力:400"));
  EXPECT_EQ(table().heading.pressure, "周围压力:200 kPa");
}

TEST_F(DataTables, SourcesOfFiftyReadingsEndSooner) {
  fixture.workspace.settings.habits.take50Points = true;
  session.load(0);
  EXPECT_EQ(session.state().stage.scrollMax, 35);
  session.scroll(36);
  EXPECT_EQ(session.state().stage.top, 35);
}

TEST_F(DataTables, ShowsSixteenRowsFromTheTop) {
  EXPECT_EQ(table().rows.size(), 16U);
  EXPECT_THAT(table().rows[0].front(), "0.40");
  session.scroll(2);
  EXPECT_THAT(table().rows[0].front(), "1.20");
  EXPECT_THAT(table().rows[1], IsEmpty());
  session.scroll(1000);
  EXPECT_EQ(session.state().stage.top, 196) << "row 211 is the last";
  session.scroll(-1);
  EXPECT_EQ(session.state().stage.top, 0);
}

TEST_F(DataTables, AnotherStageIsChosenFromTheList) {
  session.chooseStage(1);
  EXPECT_EQ(table().heading.pressure, "周围压力:200 kPa");
  EXPECT_EQ(table().rows[1][1], "120");
  for (const int noEntry : {-1, 2}) session.chooseStage(noEntry);
  EXPECT_EQ(session.state().stage.entry, 1U);
}

TEST_F(DataTables, ASampleWithoutAStageShowsNothing) {
  session.load(2);
  EXPECT_THAT(session.state().stage.stages, IsEmpty());
  EXPECT_FALSE(session.state().table.has_value());
  SetText(fixture.sample(2).cellPressure[4], "50");
  EXPECT_EQ(table().heading.pressure, "周围压力:50 kPa");
}

TEST_F(DataTables, AChosenStageThatIsTakenAwayShowsNothingMeanwhile) {
  session.chooseStage(1);
  SetText(fixture.sample(0).cellPressure[1], "");
  EXPECT_EQ(session.state().stage.entry, std::nullopt);
  EXPECT_FALSE(session.state().table.has_value());
  SetText(fixture.sample(0).cellPressure[1], "250");
  EXPECT_EQ(table().heading.pressure, "周围压力:250 kPa");
}

TEST_F(DataTables, ShowsWhatTheRecordHoldsNow) {
  const DataTableState before = session.state();
  EXPECT_EQ(session.state(), before);
  SetText(fixture.sample(0).deviatorStress[0][0], "31");
  EXPECT_NE(session.state(), before);
  EXPECT_EQ(table().rows[0][1], "31");
}

TEST_F(DataTables, TheDateOfTheProjectComesFirst) {
  SetText(fixture.sample(0).testDate, "2020-01-02");
  EXPECT_EQ(table().heading.date, "试验日期:2020-01-02");
  SetText(fixture.workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[7].projectNo, "GC1");
  SetText(fixture.workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[7].testDate, "2024/04/15");
  EXPECT_EQ(table().heading.date, "试验日期:2024/04/15");
  EXPECT_THAT(session.statusPanels(), ElementsAre("工程编号:GC1", "试验日期:2024/04/15"));
}

TEST_F(DataTables, TheFailureRowIsThatOfTheCurveWindowsModeForCUAlone) {
  EXPECT_EQ(table().foot.failurePorePressure, "30");
  session.followRecord(FailureMode::PeakRatio);
  EXPECT_EQ(table().foot.failurePorePressure, "35");
  fixture.sample(0).testMethod = kUU;
  EXPECT_EQ(table().foot.failurePorePressure, "30");
}

TEST_F(DataTables, GoOnWithTheirPressureWhenASaveSortsTheSpecimens) {
  TriaxialSampleRecord& sample = fixture.sample(0);
  const auto swapSpecimens = [&sample] {
    std::swap(sample.cellPressure[0], sample.cellPressure[1]);
    for (auto& row : sample.deviatorStress) std::swap(row[0], row[1]);
  };
  swapSpecimens();
  session.load(0);
  EXPECT_EQ(table().heading.pressure, "周围压力:200 kPa");
  swapSpecimens();
  session.followRecord(FailureMode::PeakStress);
  EXPECT_EQ(table().heading.pressure, "周围压力:200 kPa");
  EXPECT_EQ(session.state().stage.entry, 1U);
}

TEST_F(DataTables, StayWithTheirStageWhenItsPressureIsTyped) {
  SetText(fixture.sample(0).cellPressure[0], "150");
  session.followRecord(FailureMode::PeakStress);
  EXPECT_EQ(table().heading.pressure, "周围压力:150 kPa");
  EXPECT_EQ(session.state().stage.entry, 0U);
}

TEST_F(DataTables, OfSpecimensOfOnePressureTheSecondStaysTheSecond) {
  TriaxialSampleRecord& sample = fixture.sample(0);
  for (const auto& [stage, pressure] : {std::pair(0, "300"), std::pair(1, "100"), std::pair(2, "100")})
    SetText(sample.cellPressure[static_cast<std::size_t>(stage)], pressure);
  session.load(0);
  session.chooseStage(2);
  for (const auto& [stage, pressure] : {std::pair(0, "100"), std::pair(1, "100"), std::pair(2, "300")})
    SetText(sample.cellPressure[static_cast<std::size_t>(stage)], pressure);
  session.followRecord(FailureMode::PeakStress);
  EXPECT_EQ(session.state().stage.entry, 1U);
}

// ---- 固结数据表

struct ConsolidationTables : Tables {
  ConsolidationTableSession session{fixture.workspace, 0};
  ConsolidationTables() {
    session.setEditable(true);
    for (std::size_t row = 0; row < 3; ++row) {
      fixture.sample(0).consolidationTime[row][0] = static_cast<std::int32_t>(row * 95);
      fixture.sample(0).consolidationPorePressure[row][0] = static_cast<std::int16_t>(900 - row);
      fixture.sample(0).consolidationVolume[row][0] = static_cast<std::int16_t>(row * 30);
    }
  }
  std::int16_t porePressure(std::size_t row) { return fixture.sample(0).consolidationPorePressure[row][0]; }
  std::int32_t seconds(std::size_t row) { return fixture.sample(0).consolidationTime[row][0]; }
};

/// Labels of a row's time, pore pressure and volume.
constexpr int timeAt(int row) { return 4 * row + 1; }
constexpr int pressureAt(int row) { return 4 * row + 2; }

TEST_F(ConsolidationTables, ShowsSixteenReadings) {
  const ConsolidationTableState state = session.state();
  ASSERT_EQ(state.table->rows.size(), 16U);
  EXPECT_THAT(state.table->rows[1], ElementsAre("2", "1.6", "89.9", "0.30"));
  EXPECT_THAT(state.table->rows[15], ElementsAre("16", "", "", ""));
  EXPECT_EQ(state.startPorePressure, "90.0");
  EXPECT_EQ(state.stage.scrollMax, 135);
  session.scroll(500);
  EXPECT_EQ(session.state().table->rows[15][0], "151");
}

TEST_F(ConsolidationTables, AClickLaysTheBoxOverTheCell) {
  session.selectCell(pressureAt(1));
  EXPECT_EQ(session.state().openCell, pressureAt(1));
  EXPECT_EQ(session.state().cellText, "89.9");
  session.selectCell(4);
  EXPECT_EQ(session.state().openCell, std::nullopt) << "a number is not typed";
  for (const int noCell : {-1, 64}) session.selectCell(noCell);
  EXPECT_EQ(session.state().openCell, std::nullopt);
}

TEST_F(ConsolidationTables, ATypedCellIsStoredWhenItIsLeft) {
  session.selectCell(pressureAt(1));
  session.typeCell("12.36");
  EXPECT_EQ(porePressure(1), 899);
  EXPECT_FALSE(session.takeChange());
  session.finishTyping();
  EXPECT_EQ(porePressure(1), 124);
  EXPECT_EQ(session.state().openCell, std::nullopt);
  EXPECT_TRUE(session.takeChange());
  EXPECT_FALSE(session.takeChange()) << "told once";
}

TEST_F(ConsolidationTables, ACellThatIsLeftAsItWasKeepsWhatItDoesNotShow) {
  session.selectCell(timeAt(1));
  EXPECT_EQ(session.state().cellText, "1.6");
  session.finishTyping();
  EXPECT_EQ(seconds(1), 95);
  EXPECT_FALSE(session.takeChange());
}

TEST_F(ConsolidationTables, LeavingByAnotherCellAStageOrTheScrollBarStores) {
  session.selectCell(pressureAt(0));
  session.typeCell("1");
  session.selectCell(pressureAt(1));
  session.typeCell("2");
  session.scroll(1);
  EXPECT_EQ(session.state().openCell, std::nullopt);
  session.selectCell(pressureAt(1));  // row 2
  session.typeCell("3");
  session.chooseStage(1);
  EXPECT_EQ(porePressure(0), 10);
  EXPECT_EQ(porePressure(1), 20);
  EXPECT_EQ(porePressure(2), 30);
}

TEST_F(ConsolidationTables, EscTakesTheTypingBack) {
  session.selectCell(pressureAt(1));
  session.typeCell("2");
  session.dropTyping();
  session.finishTyping();
  EXPECT_EQ(porePressure(1), 899);
}

TEST_F(ConsolidationTables, AnotherSampleGetsNothingOfTheTyping) {
  session.selectCell(pressureAt(1));
  session.typeCell("2");
  fixture.sample(0) = cuSample("GC2", "N1");
  session.load(0);
  session.finishTyping();
  EXPECT_EQ(porePressure(1), 0);
}

TEST_F(ConsolidationTables, UpAndDownGoFromReadingToReading) {
  session.selectCell(pressureAt(1));
  session.typeCell("2");
  session.moveCell(1);
  EXPECT_EQ(porePressure(1), 20);
  EXPECT_EQ(session.state().openCell, pressureAt(2));
  session.selectCell(pressureAt(15));
  session.moveCell(1);
  EXPECT_EQ(session.state().stage.top, 1);
  EXPECT_EQ(session.state().openCell, pressureAt(15));
  session.selectCell(pressureAt(0));
  session.moveCell(-1);
  session.moveCell(-1);
  EXPECT_EQ(session.state().stage.top, 0);
  EXPECT_EQ(session.state().openCell, pressureAt(0));
}

TEST_F(ConsolidationTables, TheStartPorePressureIsStoredAtEachChange) {
  session.typeStartPorePressure("4");
  EXPECT_EQ(porePressure(0), 40);
  session.typeStartPorePressure("45.67");
  EXPECT_EQ(porePressure(0), 456);
  EXPECT_EQ(session.state().startPorePressure, "45.67") << "as typed, while it is typed";
  EXPECT_EQ(session.state().table->rows[0][2], "45.6") << "the first reading is the same value";
  session.finishTyping();
  EXPECT_EQ(session.state().startPorePressure, "45.6");
  EXPECT_TRUE(session.takeChange());
}

TEST_F(ConsolidationTables, AStartPorePressureThatIsTooLargeChangesNothing) {
  const std::int16_t before = porePressure(0);
  session.typeStartPorePressure("500");
  EXPECT_EQ(porePressure(0), 5000);
  session.typeStartPorePressure("5000");
  EXPECT_EQ(porePressure(0), before) << "50000 is no 16-bit number, and 500.0 was never meant";
  session.typeStartPorePressure("50");
  EXPECT_EQ(porePressure(0), 500);
}

TEST_F(ConsolidationTables, TheFirstReadingIsTheStartPorePressure) {
  session.selectCell(pressureAt(0));
  session.typeCell("12.3");
  session.finishTyping();
  EXPECT_EQ(session.state().startPorePressure, "12.3");
}

TEST_F(ConsolidationTables, BoxesTakeTenBytesOfWhatGbkHas) {
  session.typeStartPorePressure(
      "1\t2\xF0\x9F\x98\x80"
      "3456789012345");
  EXPECT_EQ(session.state().startPorePressure, "1234567890");
  session.selectCell(pressureAt(1));
  session.typeCell(std::string(20000, '9'));
  EXPECT_EQ(session.state().cellText, "9999999999");
  session.finishTyping();
  EXPECT_EQ(porePressure(1), 899) << "it does not fit";
}

TEST_F(ConsolidationTables, BFollowsAtTheNextOpeningIfItStillIsZero) {
  TriaxialSampleRecord& sample = fixture.sample(0);
  sample.coefficientB[1] = 0.5F;
  session.typeStartPorePressure("45.67");
  EXPECT_EQ(sample.coefficientB[0], 0);
  session.chooseStage(1);
  session.typeStartPorePressure("45.67");
  runOpeningPass({&sample, 1}, NumberFormat::Whole);
  EXPECT_EQ(sample.coefficientB[0], 0.46F);  // 456 / 100 / 10
  EXPECT_EQ(sample.coefficientB[1], 0.5F);
}

TEST_F(ConsolidationTables, WithoutTheCurveWindowNothingIsTyped) {
  session.selectCell(pressureAt(1));
  session.typeCell("2");
  session.setEditable(false);
  EXPECT_EQ(session.state().openCell, std::nullopt);
  session.selectCell(pressureAt(1));
  EXPECT_EQ(session.state().openCell, std::nullopt);
  session.typeStartPorePressure("7");
  EXPECT_EQ(porePressure(0), 900);
  EXPECT_EQ(session.state().startPorePressure, "90.0");
  EXPECT_FALSE(session.state().editable);
  EXPECT_FALSE(session.takeChange());
}

TEST_F(ConsolidationTables, AnEmptyRowShowsNothingAndTakesNothing) {
  session.load(2);
  EXPECT_FALSE(session.state().table.has_value());
  EXPECT_EQ(session.state().startPorePressure, "");
  session.selectCell(pressureAt(0));
  session.typeStartPorePressure("7");
  EXPECT_EQ(session.state().openCell, std::nullopt);
  EXPECT_FALSE(session.takeChange());
}

}  // namespace
}  // namespace triaxlab
