#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "sessions/triaxial/hand_made_samples.h"
#include "support/drawings.h"
#include "support/fake_dialogs.h"

namespace triaxlab {
namespace {

using testing::all;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// cuSample() reaches 120 kPa, so the axis goes to 140 kPa: 1 kPa is 3800 / 140 = 27.142857 twips, 1 % is 272.727.
struct CurvePhaseTest : ::testing::Test {
  SessionFixture fixture{cuSample(), uuSample()};
  CurveSession session{fixture.workspace};
  testing::FakeDialogs dialogs;

  CurvePhaseTest() { session.enterIntervention(); }

  Intervention& phase() { return session.intervention(); }
  InterventionState shown() const { return session.state().intervention; }
  std::string stress(std::size_t stage, std::size_t row) {
    return std::string(fixture.sample(0).deviatorStress[row][stage].trimmed());
  }
  void leave(bool keep) {
    dialogs.answers.push_back(keep);
    session.leaveIntervention(dialogs);
  }
  /// The curve of the selected stage as it is drawn.
  std::vector<TwipPoint> drawnCurve() const {
    RecordingSurface surface;
    session.draw(surface);
    for (const DrawnPolyline& curve : all<DrawnPolyline>(surface.operations()))
      if (curve.stroke == Stroke{Colour::LightBlue, 2}) return curve.points;
    return {};
  }
};

TEST_F(CurvePhaseTest, TellsTheSampleAndThePressureOfTheStage) {
  EXPECT_EQ(shown().subject, "土样编号:T1    σ3:100 kPa");
  phase().selectStage(1);
  EXPECT_EQ(shown().subject, "土样编号:T1    σ3:200 kPa");
}

TEST_F(CurvePhaseTest, BeginsWithTheFirstUsedStage) {
  EXPECT_EQ(shown().phase, Phase::Curve);
  EXPECT_EQ(shown().selectedStage, 0U);
  EXPECT_EQ(shown().stageEnabled, (PerStage<bool>{true, true, false, false, false}));
  EXPECT_EQ(shown().factor, "1");
  EXPECT_EQ(shown().summand, "0");
  EXPECT_EQ(shown().mousePlace, "");
  EXPECT_FALSE(shown().envelopeChoice);
  // 30, 60, 58 kPa at 0.4, 0.8, 1.2 %
  EXPECT_THAT(drawnCurve(),
              ElementsAre(TwipPoint{700, 4300}, TwipPoint{809, 3486}, TwipPoint{918, 2671}, TwipPoint{1027, 2726}));
}

TEST_F(CurvePhaseTest, KeysSlideTheCurveAndYesKeepsIt) {
  phase().key(ArrowKey::Left);
  phase().key(ArrowKey::Up);
  phase().key(ArrowKey::Right);
  // One row to the left: 60 kPa at 0.4 %, 58 at 0.8 %.
  EXPECT_THAT(drawnCurve(), ElementsAre(TwipPoint{700, 4300}, TwipPoint{809, 2671}, TwipPoint{918, 2726}));
  EXPECT_EQ(stress(0, 0), "30") << "the sample waits for the answer";
  leave(true);
  EXPECT_THAT(dialogs.take(), ElementsAre("! [三轴曲线调整]    曲线已经调整\n保存修改后数据吗？"));
  EXPECT_EQ(stress(0, 0), "60");
  EXPECT_EQ(stress(0, 1), "58");
  EXPECT_EQ(stress(0, 2), "");
  EXPECT_EQ(fixture.sample(0).sigma1Eff[0][0].number(), 130);
  EXPECT_EQ(fixture.sample(0).axialStrain[0][0], 0.4F);
  EXPECT_EQ(stress(1, 0), "61") << "the other stage";
  EXPECT_EQ(shown().phase, Phase::None);
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurvePhaseTest, YesBringsTheValuesAtFailureUpToTheNewCurve) {
  session.edit({InputName::Factor}, "1.5");
  phase().multiply(dialogs);
  leave(true);
  const TriaxialSampleRecord& sample = fixture.sample(0);
  EXPECT_EQ(sample.sigma1Eff[1][0].trimmed(), "160");  // 90.0 + 100 - 30
  EXPECT_EQ(sample.sigma1Failure[0].trimmed(), "190");
  EXPECT_EQ(sample.sigma1FailureEff[0].trimmed(), "160");
  EXPECT_EQ(sample.sigma1FailureEff[1].trimmed(), "260") << "the stage that stayed";
}

TEST_F(CurvePhaseTest, NoBringsEveryFieldBack) {
  const TriaxialSampleRecord before = fixture.sample(0);
  phase().key(ArrowKey::Left);
  session.edit({InputName::SoilName}, "砂土");
  session.edit({InputName::CellPressure, 0}, "999");
  leave(false);
  EXPECT_EQ(std::memcmp(&before, &fixture.sample(0), sizeof before), 0);
  EXPECT_EQ(session.state().soilName, "");
}

TEST_F(CurvePhaseTest, AnUntouchedPhaseThatIsDroppedIsNoChange) {
  leave(false);
  EXPECT_FALSE(session.isChanged());
}

TEST_F(CurvePhaseTest, WhatWasSavedMeanwhileAndIsDroppedCountsAsUnsaved) {
  session.edit({InputName::SoilName}, "砂土");
  session.markSaved();
  EXPECT_FALSE(session.isChanged());
  leave(false);
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurvePhaseTest, MultipliesAndAddsWhatIsTyped) {
  session.edit({InputName::Factor}, "1.5");
  phase().multiply(dialogs);
  session.edit({InputName::Summand}, "-5");
  phase().selectStage(1);
  phase().add(dialogs);
  EXPECT_THAT(dialogs.take(), IsEmpty());
  leave(true);
  EXPECT_EQ(stress(0, 1), "90.0");
  EXPECT_EQ(stress(0, 211), "0.0");
  EXPECT_EQ(stress(1, 1), "115.0");
  EXPECT_EQ(stress(1, 9), "-5.0");
  EXPECT_EQ(stress(1, 10), "");
}

TEST_F(CurvePhaseTest, RefusesValuesThatMakeNoSense) {
  for (const char* const factor : {"0", "50", "", "abc"}) {
    session.edit({InputName::Factor}, factor);
    phase().multiply(dialogs);
    EXPECT_THAT(dialogs.take(), ElementsAre("stop [修改三轴试验数据] 乘以不合理数据将会得到错误结果..."));
  }
  phase().add(dialogs);
  EXPECT_THAT(dialogs.take(), ElementsAre("[修改三轴试验数据] 加不合理数据将会得到错误结果..."));
  session.edit({InputName::Factor}, "49.9");
  phase().multiply(dialogs);
  EXPECT_THAT(dialogs.take(), IsEmpty());
}

TEST_F(CurvePhaseTest, ANumberTakesTenCharacters) {
  session.edit({InputName::Factor}, std::string(20000, '1'));
  EXPECT_EQ(shown().factor, "1111111111");
  session.edit({InputName::Summand}, "2\x01\U0001F600");
  EXPECT_EQ(shown().summand, "2");
}

TEST_F(CurvePhaseTest, AnUnusedStageIsNotSelected) {
  phase().selectStage(4);
  EXPECT_EQ(shown().selectedStage, 0U);
  phase().selectStage(1);
  EXPECT_EQ(shown().selectedStage, 1U);
}

// ---- the mouse

TEST_F(CurvePhaseTest, ReadsThePlaceOfTheMouseInThePlotAlone) {
  phase().mouseAt({1300, 2400}, false);
  // (1300 - 700) / 272.727 = 2.2; 1900 / 27.142857 = 70
  EXPECT_EQ(shown().mousePlace, "x:2.20   y:70.0");
  for (const Point outside : {Point{685, 2400}, Point{6715, 2400}, Point{1300, 485}, Point{1300, 4315}})
    phase().mouseAt(outside, false);
  EXPECT_EQ(shown().mousePlace, "x:2.20   y:70.0");
  phase().mouseAt({6700, 4300}, false);  // the frame belongs to the plot
  EXPECT_EQ(shown().mousePlace, "x:22.00   y:0.0");
}

TEST_F(CurvePhaseTest, DrawsWithTheButtonDown) {
  // x = 0.77 %: between 0.4 and 0.8, nearer 0.8. y = 2714.2857 / 27.142857 = 100.
  phase().mouseAt({910, 1585.7143}, false);
  phase().mouseAt({910, 4300}, true);  // y is exactly 0
  EXPECT_THAT(drawnCurve()[2], (TwipPoint{918, 2671}));
  phase().mouseAt({910, 1585.7143}, true);
  EXPECT_THAT(drawnCurve()[2], (TwipPoint{918, 1586}));
  leave(true);
  EXPECT_EQ(stress(0, 1), "100.0");
}

TEST_F(CurvePhaseTest, TheMouseWritesTheRowThatIsDrawnThere) {
  phase().key(ArrowKey::Left);
  phase().mouseAt({910, 1585.7143}, true);  // at 0.8 % stands row 2
  phase().key(ArrowKey::Right);
  leave(true);
  EXPECT_EQ(stress(0, 1), "60");
  EXPECT_EQ(stress(0, 2), "100.0");
}

// ---- back and forth

TEST_F(CurvePhaseTest, UndoesAndRedoesStepByStep) {
  const auto before = drawnCurve();
  phase().key(ArrowKey::Left);
  const auto slid = drawnCurve();
  session.edit({InputName::Factor}, "2");
  phase().multiply(dialogs);
  const auto doubled = drawnCurve();
  phase().undo();
  EXPECT_EQ(drawnCurve(), slid);
  phase().undo();
  EXPECT_EQ(drawnCurve(), before);
  phase().undo();
  EXPECT_EQ(drawnCurve(), before);
  phase().redo();
  phase().redo();
  EXPECT_EQ(drawnCurve(), doubled);
  phase().redo();
  EXPECT_EQ(drawnCurve(), doubled);
  phase().undo();
  phase().key(ArrowKey::Right);
  phase().redo();
  EXPECT_EQ(drawnCurve(), before) << "a new step ends what was undone";
}

TEST_F(CurvePhaseTest, OneStrokeOfTheMouseIsOneStep) {
  const auto before = drawnCurve();
  for (const double y : {2000.0, 2100.0, 2200.0}) phase().mouseAt({910, y}, true);
  phase().mouseReleased();
  const auto first = drawnCurve();
  phase().mouseAt({910, 2300}, true);
  phase().mouseReleased();
  phase().undo();
  EXPECT_EQ(drawnCurve(), first);
  phase().undo();
  EXPECT_EQ(drawnCurve(), before);
}

TEST_F(CurvePhaseTest, AStepAtTheEndOfTheWayIsNone) {
  phase().key(ArrowKey::Left);
  phase().key(ArrowKey::Right);
  phase().key(ArrowKey::Right);
  phase().undo();
  EXPECT_EQ(drawnCurve().size(), 3U) << "slid by one row again";
}

// ---- what cannot be done meanwhile

TEST_F(CurvePhaseTest, PageSampleAndMethodStayAsTheyAre) {
  const auto picture = session.pictureNumber();
  session.selectListCell(4);
  session.scrollList(5);
  session.showPage(3);
  session.previousPage();
  session.nextPage();
  session.previousTablePage();
  session.nextTablePage();
  session.applyStrainLimits();
  session.reprocess();
  session.enterIntervention();
  EXPECT_FALSE(session.keyInList(CellKey::Down, {}));
  EXPECT_FALSE(session.keyOnMethod(MethodField::TestMethod, MethodKey::One));
  EXPECT_EQ(session.pictureNumber(), picture);
  EXPECT_EQ(session.sampleRow(), 0U);
  EXPECT_EQ(session.state().currentCurvePage, 1);
  EXPECT_EQ(session.state().currentTablePage, 3);
  EXPECT_FALSE(session.state().strainLimitsEnabled);
  EXPECT_FALSE(session.isChanged());
}

TEST_F(CurvePhaseTest, ANewTableEndsThePhase) {
  phase().key(ArrowKey::Left);
  session.load();
  EXPECT_EQ(shown().phase, Phase::None);
  EXPECT_EQ(stress(0, 0), "30");
}

TEST_F(CurvePhaseTest, KeysAndButtonsWithoutAPhaseDoNothing) {
  leave(false);
  const auto picture = session.pictureNumber();
  phase().key(ArrowKey::Left);
  phase().undo();
  phase().multiply(dialogs);
  phase().mouseAt({910, 2000}, true);
  phase().askCohesionStep(dialogs);
  dialogs.take();
  session.leaveIntervention(dialogs);
  EXPECT_THAT(dialogs.take(), IsEmpty());
  EXPECT_EQ(session.pictureNumber(), picture);
}

// ---- a save in between

TEST_F(CurvePhaseTest, CurvesFollowTheirSpecimensThroughASave) {
  session.edit({InputName::Factor}, "2");
  phase().multiply(dialogs);
  phase().key(ArrowKey::Left);
  // A save has sorted the specimens: stages 0 and 1 are exchanged.
  TriaxialSampleRecord& sample = fixture.sample(0);
  for (auto& row : sample.deviatorStress) std::swap(row[0], row[1]);
  for (auto& row : sample.axialStrain) std::swap(row[0], row[1]);
  std::swap(sample.cellPressure[0], sample.cellPressure[1]);
  session.markSaved();
  EXPECT_EQ(shown().selectedStage, 1U);
  leave(true);
  EXPECT_EQ(stress(0, 0), "61");
  EXPECT_EQ(stress(1, 0), "120.0");
  EXPECT_EQ(stress(1, 1), "116.0");
}

}  // namespace
}  // namespace triaxlab
