#include "sessions/k0/tk0_session.h"

#include <limits>

#include "k0/samples.h"
#include "k0/settlement.h"
#include "sessions/k0/ko_samples.h"
#include "support/fake_dialogs.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The first stage is lineAndBend(), whose T90 is 35.8 min with a pressure of 59.8 kPa; the other two have its readings
// times 2 and 3 in pressure.
TK0SampleRecord threeStages(std::string_view sample) {
  TK0SampleRecord record;
  record.k0 = koSample("GC1", sample, {{"100.0", ""}, {"200.0", ""}, {"300.0", ""}});
  record.stageCount = 3;
  record.timeRowCount = 7;
  for (std::size_t stage = 0; stage < 3; ++stage) {
    auto rows = lineAndBend();
    for (SettlementRow& row : rows)
      row.pressure = FormatNumber(ParseNumber(row.pressure) * static_cast<double>(stage + 1), NumberFormat::Tenths);
    setRows(record, stage, rows);
  }
  return record;
}

struct TK0SessionTest : ::testing::Test {
  Workspace workspace;
  FakeDialogs dialogs;
  TemporaryFolder folder;

  TK0SessionTest() {
    workspace.dataFolder = folder.path();
    for (std::size_t row = 0; row < 2; ++row) {
      workspace.TK0SampleTable[row] = threeStages(row == 0 ? "B1" : "B2");
      computeStageResults(workspace.TK0SampleTable[row]);
    }
    session.load();
  }
  TK0Session session{workspace};

  TK0SampleRecord& sample(std::size_t row = 0) { return workspace.TK0SampleTable[row]; }
  Drawing stageDrawn() const {
    RecordingSurface surface;
    session.drawStage(surface);
    return surface.operations();
  }
  Drawing koDrawn() const {
    RecordingSurface surface;
    session.drawKo(surface);
    return surface.operations();
  }
  std::string lateralShown(std::size_t line) const {
    return session.listedState().readings.cells.at(3 * line + 2).label;
  }
  void press(ArrowKey key, int times) {
    for (int i = 0; i < times; ++i) session.key(key);
  }
  void leave(bool keep) {
    dialogs.answers.push_back(keep);
    session.leaveIntervention(dialogs);
  }
};

TEST_F(TK0SessionTest, ShowsTheFirstStageAndTheLineThroughAll) {
  EXPECT_EQ(session.stageCaption(), "第1级");
  EXPECT_THAT(textsWith(stageDrawn(), "P1"), ElementsAre("P1  = 59.8 kPa"));
  EXPECT_THAT(textsWith(stageDrawn(), "T90"), ElementsAre("T90 = 35.8 min"));
  // 59.8, 119.7 and 179.5 kPa: (179.5 - 59.8) / 200
  EXPECT_EQ(lateralShown(2), "179.5");
  EXPECT_EQ(koOf(koDrawn()), "0.599");  // 0.5985
}

TEST_F(TK0SessionTest, TheBarChoosesAStageInUse) {
  EXPECT_EQ(session.lastStage(), 2);
  session.showStage(2);
  EXPECT_EQ(session.stageCaption(), "第3级");
  EXPECT_THAT(textsWith(stageDrawn(), "P3"), ElementsAre("P3  = 179.5 kPa"));
  session.showStage(7);
  EXPECT_EQ(session.stage(), 2);
  session.showStage(-1);
  EXPECT_EQ(session.stage(), 0);
}

TEST_F(TK0SessionTest, AnotherSampleBeginsWithItsFirstStage) {
  session.showStage(2);
  session.selectNumber(3);
  EXPECT_EQ(session.stage(), 0);
  session.showStage(1);
  session.redraw();
  EXPECT_EQ(session.stage(), 1);
}

TEST_F(TK0SessionTest, OddCountsOfStagesDoNoHarm) {
  for (const auto& [count, last] : {std::pair{0, 0}, {-5, 0}, {10, 9}, {32767, 9}}) {
    sample().stageCount = static_cast<std::int16_t>(count);
    EXPECT_EQ(session.lastStage(), last) << count;
  }
  sample().stageCount = std::int16_t{10};
  session.showStage(9);
  EXPECT_THAT(textsWith(stageDrawn(), "压力"), ElementsAre("压力：kPa"));
  sample().stageCount = std::int16_t{2};
  session.redraw();
  EXPECT_EQ(session.stage(), 1);
}

TEST_F(TK0SessionTest, DrawingAStageMakesItsPressureAnew) {
  session.edit({ListedInputName::Reading, 2}, "1.0");
  session.finishTyping();
  EXPECT_EQ(lateralShown(0), "1.0");
  session.redraw();
  EXPECT_EQ(lateralShown(0), "59.8");
  EXPECT_EQ(koOf(koDrawn()), "0.599");
}

// ---- 干预 on the construction

TEST_F(TK0SessionTest, KeysMoveTheFirstLine) {
  session.moveT90Line();
  EXPECT_EQ(session.mode(), LineMode::T90);
  EXPECT_THAT(blackLines(stageDrawn()), ElementsAre(2));
  EXPECT_THAT(blackLines(koDrawn()), ElementsAre(1));
  // 0.01 + 0.0869565 x meets -0.04 x² + 0.46 x - 0.8 at (0.3730435 + sqrt(0.3730435² - 0.16 x 0.81)) / 0.08 = 5.88533:
  // 34.6 min, and 50 + 10 x 0.88533 kPa.
  press(ArrowKey::Left, 1);
  EXPECT_THAT(textsWith(stageDrawn(), "T90"), ElementsAre("T90 = 34.6 min"));
  EXPECT_THAT(textsWith(stageDrawn(), "P1"), ElementsAre("P1  = 58.9 kPa"));
  EXPECT_EQ(lateralShown(0), "58.9") << "in the table as well";
  EXPECT_EQ(sample().k0.lateralPressure[0].trimmed(), "59.8") << "the sample waits";
  EXPECT_EQ(sample().t90Adjusted[0], 0);
}

TEST_F(TK0SessionTest, YesKeepsTheLineOfTheStage) {
  session.showStage(1);
  session.moveT90Line();
  press(ArrowKey::Left, 1);
  leave(true);
  EXPECT_THAT(dialogs.take(), ElementsAre("! [K0曲线调整]    曲线已经调整\n保存修改后数据吗？"));
  EXPECT_EQ(sample().t90Adjusted[1], 1);
  EXPECT_NEAR(sample().t90Intercept[1], 0.01, 1e-6);
  EXPECT_NEAR(sample().t90Slope[1], 0.1, 1e-6);
  EXPECT_EQ(sample().k0.lateralPressure[1].trimmed(), "117.7");
  EXPECT_EQ(sample().t90Adjusted[0], 0);
  EXPECT_THAT(textsWith(stageDrawn(), "T90"), ElementsAre("T90 = 34.6 min"));
  EXPECT_THAT(blackLines(stageDrawn()), ElementsAre(1));
  EXPECT_TRUE(session.isChanged());
}

TEST_F(TK0SessionTest, TheKoLineFollowsAKeptConstruction) {
  session.showStage(2);
  session.moveT90Line();
  press(ArrowKey::Left, 1);
  leave(true);
  // 59.8, 119.7 and 176.6: (176.6 - 59.8) / 200
  EXPECT_EQ(koOf(koDrawn()), "0.584");
}

TEST_F(TK0SessionTest, NoDropsTheLine) {
  session.moveT90Line();
  press(ArrowKey::Left, 1);
  leave(false);
  EXPECT_EQ(sample().t90Adjusted[0], 0);
  EXPECT_EQ(sample().k0.lateralPressure[0].trimmed(), "59.8");
  EXPECT_THAT(textsWith(stageDrawn(), "T90"), ElementsAre("T90 = 35.8 min"));
  EXPECT_FALSE(session.isChanged());
}

TEST_F(TK0SessionTest, OneLineIsMovedAtATime) {
  session.moveT90Line();
  session.moveKoLine();
  EXPECT_EQ(session.mode(), LineMode::T90);
  leave(false);
  session.moveKoLine();
  session.moveT90Line();
  EXPECT_EQ(session.mode(), LineMode::Ko);
  press(ArrowKey::Right, 3);
  leave(true);
  EXPECT_EQ(sample().k0.koAdjusted, 1);
  EXPECT_EQ(sample().t90Adjusted[0], 0);
}

TEST_F(TK0SessionTest, StageAndSampleStayMeanwhile) {
  session.moveT90Line();
  session.showStage(1);
  session.selectNumber(3);
  session.scrollList(1);
  EXPECT_EQ(session.stage(), 0);
  EXPECT_EQ(session.sampleRow(), 0U);
}

TEST_F(TK0SessionTest, FittingTheKoLineAgainKeepsConstructionsSetByHand) {
  session.moveT90Line();
  press(ArrowKey::Left, 1);
  leave(true);
  sample().k0.koAdjusted = 1;
  session.reprocess();
  EXPECT_EQ(sample().k0.koAdjusted, 0);
  EXPECT_EQ(sample().t90Adjusted[0], 1);
  EXPECT_NEAR(sample().t90Intercept[0], 0.01, 1e-6);
}

TEST_F(TK0SessionTest, AStageWithoutLoadHasNoConstructionToMove) {
  sample().k0.axialPressure[1].clear();
  session.showStage(1);
  EXPECT_FALSE(session.canMoveT90Line());
  session.moveT90Line();
  EXPECT_EQ(session.mode(), LineMode::None);
  session.moveKoLine();
  EXPECT_EQ(session.mode(), LineMode::Ko);
}

TEST_F(TK0SessionTest, AStoredLineThatIsNoNumberGivesWayToTheFittedOne) {
  sample().t90Adjusted[0] = 1;
  sample().t90Slope[0] = std::numeric_limits<double>::quiet_NaN();
  session.redraw();
  EXPECT_THAT(blackLines(stageDrawn()), IsEmpty());
  session.moveT90Line();
  EXPECT_THAT(blackLines(stageDrawn()), ElementsAre(2));
  leave(true);
  EXPECT_NEAR(sample().t90Slope[0], 0.1, 1e-6);
}

TEST_F(TK0SessionTest, TheMouseDragsTheFirstLine) {
  session.moveT90Line();
  // 2916.67 twips a mm: 0.1 x is 0.3 at 3.
  EXPECT_EQ(session.gripOnStageChart({1900, 1175}), LineGrip::Move);
  EXPECT_EQ(session.gripOnKoChart({1900, 1175}), LineGrip::None);
  session.mouseOnKoChart({1900, 1175}, false);
  session.mouseOnStageChart({1900, 1175}, true);
  session.mouseOnStageChart({1900, 1175 + 61}, true);  // 0.0209 mm
  session.mouseReleased();
  leave(true);
  EXPECT_NEAR(sample().t90Intercept[0], 0.02, 1e-6);
}

TEST_F(TK0SessionTest, TheMouseTellsTheValuesOfTheStage) {
  EXPECT_EQ(session.stageReadoutAt({1700, 1000}), "√t:2.50   t:6.3min   D:0.240mm");
}

TEST_F(TK0SessionTest, TellsWhichKeyLeaves) {
  session.moveT90Line();
  EXPECT_NE(session.koState().help[2].find("F5 退出干预"), std::string::npos);
}

}  // namespace
}  // namespace triaxlab::testing
