#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sessions/triaxial/hand_made_samples.h"
#include "support/drawings.h"
#include "support/fake_dialogs.h"

namespace triaxlab {
namespace {

using testing::all;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

// cuSample() on page 3: peaks 60 and 120, so R 30 and 60, ⊙ 130 and 260. a = 30 / 130 = 3 / 13; with maxP 260 and
// maxQ 60 the line goes through the origin: C 0, tan φ = sqrt(9 / 160) = 0.2372, φ = 13.34 degrees.
struct EnvelopePhaseTest : ::testing::Test {
  SessionFixture fixture{cuSample(), uuSample()};
  CurveSession session{fixture.workspace};
  testing::FakeDialogs dialogs;

  void enter(int page) {
    session.showPage(page);
    session.enterIntervention();
  }
  Intervention& phase() { return session.intervention(); }
  InterventionState shown() const { return session.state().intervention; }
  const TriaxialSampleRecord& sample() { return fixture.sample(0); }
  void press(ArrowKey key, int times) {
    for (int i = 0; i < times; ++i) phase().key(key);
  }
  void leave(bool keep) {
    dialogs.answers.push_back(keep);
    session.leaveIntervention(dialogs);
  }
  testing::Drawing drawn() const {
    RecordingSurface surface;
    session.draw(surface);
    return surface.operations();
  }
  std::vector<std::string> texts() const {
    std::vector<std::string> found;
    for (const DrawnText& text : all<DrawnText>(drawn())) found.push_back(text.text);
    return found;
  }
  /// Lines of the width that only a moved line has.
  std::vector<Colour> movedLines() const {
    std::vector<Colour> colours;
    for (const DrawnLine& line : all<DrawnLine>(drawn()))
      if (line.stroke.width == 2) colours.push_back(line.stroke.colour);
    return colours;
  }
};

TEST_F(EnvelopePhaseTest, BeginsWithTheTotalEnvelope) {
  enter(3);
  EXPECT_EQ(shown().phase, Phase::Envelope);
  EXPECT_TRUE(shown().envelopeChoice);
  EXPECT_FALSE(shown().effectiveChosen);
  EXPECT_EQ(shown().cohesionStep, "调整步长：1.00");
  EXPECT_THAT(movedLines(), ElementsAre(Colour::Black));
  EXPECT_THAT(texts(), Contains("Ccu = 0 kPa"));
  EXPECT_THAT(texts(), Contains("φcu = 13.3"));
}

TEST_F(EnvelopePhaseTest, KeysMoveAndTurnTheLine) {
  enter(3);
  press(ArrowKey::Right, 3);
  press(ArrowKey::Left, 1);
  press(ArrowKey::Up, 2);
  EXPECT_THAT(texts(), Contains("Ccu = 2 kPa"));
  EXPECT_THAT(texts(), Contains("φcu = 13.5"));
  press(ArrowKey::Down, 3);
  EXPECT_THAT(texts(), Contains("φcu = 13.2"));
  press(ArrowKey::Left, 5);
  EXPECT_THAT(texts(), Contains("Ccu = -3 kPa"));
  EXPECT_EQ(sample().cohesionText.number(), 0) << "the sample waits for the answer";
}

TEST_F(EnvelopePhaseTest, TheSecondOptionMovesTheEffectiveEnvelope) {
  enter(3);
  const auto before = texts();
  phase().chooseEffective(true);
  EXPECT_TRUE(shown().effectiveChosen);
  EXPECT_THAT(movedLines(), ElementsAre(Colour::Blue));
  press(ArrowKey::Right, 7);
  EXPECT_THAT(texts(), Contains("Ccu = 0 kPa"));
  EXPECT_THAT(texts(), Not(::testing::ContainerEq(before)));
}

TEST_F(EnvelopePhaseTest, YesKeepsBothEnvelopes) {
  fixture.workspace.settings.habits.cohesionDecimals = 1;
  enter(3);
  press(ArrowKey::Right, 12);
  phase().chooseEffective(true);
  // Effective circles: R′ 30 and 60, ⊙′ 100 and 200, so a = 0.3 and C′ = 0 again.
  press(ArrowKey::Right, 4);
  leave(true);
  EXPECT_THAT(dialogs.take(), ElementsAre("! [三轴曲线调整]    曲线已经调整\n保存修改后数据吗？"));
  EXPECT_EQ(sample().adjustedFlag, 1);
  EXPECT_EQ(sample().cohesionText.trimmed(), "12.0");
  EXPECT_EQ(sample().cohesionEffText.trimmed(), "4.0");
  EXPECT_NEAR(sample().frictionAngle, 13.342, 0.001);     // asin(3 / 13)
  EXPECT_NEAR(sample().frictionAngleEff, 17.458, 0.001);  // asin(0.3)
  EXPECT_EQ(session.state().envelopeNote, "已经干预");
  EXPECT_THAT(texts(), Contains("Ccu = 12.0 kPa"));
  EXPECT_THAT(movedLines(), IsEmpty());
  EXPECT_TRUE(session.isChanged());
}

TEST_F(EnvelopePhaseTest, NoLeavesTheFit) {
  enter(3);
  press(ArrowKey::Right, 12);
  leave(false);
  EXPECT_EQ(sample().adjustedFlag, 0);
  EXPECT_THAT(texts(), Contains("Ccu = 0 kPa"));
  EXPECT_FALSE(session.isChanged());
}

TEST_F(EnvelopePhaseTest, ASampleOfTotalStressesHasNoChoice) {
  session.selectListCell(4);
  enter(3);
  EXPECT_FALSE(shown().envelopeChoice);
  phase().chooseEffective(true);
  EXPECT_FALSE(shown().effectiveChosen);
  // One failed stage: the line begins at C 0 and φ 0.
  press(ArrowKey::Right, 5);
  EXPECT_THAT(texts(), Contains("Cu = 5 kPa"));
  EXPECT_THAT(texts(), Contains("φu = 0.0"));
  leave(true);
  EXPECT_THAT(texts(), Contains("φcu = 0.0")) << "the name of the angle after an adjustment";
  EXPECT_TRUE(fixture.sample(1).cohesionEffText.isBlank());
}

// ---- the step of C

TEST_F(EnvelopePhaseTest, TheStepIsAskedFor) {
  enter(3);
  dialogs.inputs = {"2.5"};
  phase().askCohesionStep(dialogs);
  EXPECT_THAT(dialogs.take(), ElementsAre("[设置三轴C值调整步长] 请输入三轴C值调整步长 = 1.00"));
  EXPECT_EQ(shown().cohesionStep, "调整步长：2.50");
  press(ArrowKey::Right, 2);
  EXPECT_THAT(texts(), Contains("Ccu = 5 kPa"));
  dialogs.inputs = {std::nullopt, "", "x", "1e99"};
  for (int i = 0; i < 4; ++i) phase().askCohesionStep(dialogs);
  EXPECT_EQ(shown().cohesionStep, "调整步长：2.50");
}

TEST_F(EnvelopePhaseTest, TheStepOutlivesThePhaseAndNotTheDocument) {
  enter(3);
  dialogs.inputs = {"0.5"};
  phase().askCohesionStep(dialogs);
  leave(false);
  session.enterIntervention();
  EXPECT_EQ(shown().cohesionStep, "调整步长：0.50");
  session.load();
  enter(3);
  EXPECT_EQ(shown().cohesionStep, "调整步长：1.00");
}

TEST_F(EnvelopePhaseTest, UndoesAndRedoes) {
  enter(3);
  press(ArrowKey::Right, 2);
  press(ArrowKey::Up, 1);
  phase().undo();
  phase().undo();
  EXPECT_THAT(texts(), Contains("Ccu = 1 kPa"));
  EXPECT_THAT(texts(), Contains("φcu = 13.3"));
  phase().redo();
  phase().redo();
  EXPECT_THAT(texts(), Contains("Ccu = 2 kPa"));
  EXPECT_THAT(texts(), Contains("φcu = 13.4"));
}

// ---- readings that follow the envelope

TEST_F(EnvelopePhaseTest, AcceptedOnPage3TheReadingsFollowIfTheLaboratoryWantsIt) {
  fixture.workspace.settings.habits.autoAdjustRawData = true;
  enter(3);
  press(ArrowKey::Down, 140);  // to 0 degrees
  press(ArrowKey::Right, 45);
  leave(true);
  // tan φ 0, C 45: each circle has the radius 45, so each peak becomes 90: factors 1.5 and 0.75.
  EXPECT_EQ(sample().deviatorStress[0][0].trimmed(), "45.0");
  EXPECT_EQ(sample().deviatorStress[1][0].trimmed(), "90.0");
  EXPECT_EQ(sample().deviatorStress[2][0].trimmed(), "87.0");
  EXPECT_EQ(sample().deviatorStress[0][1].trimmed(), "45.8");  // 45.75
  EXPECT_EQ(sample().failureRadius[0].trimmed(), "45") << "drawn once more";
  EXPECT_EQ(sample().failureRadius[1].trimmed(), "45");
  EXPECT_EQ(sample().sigma1FailureEff[0].trimmed(), "160") << "90 + 100 - 30, as when the file is opened again";
  const TriaxialSampleRecord once = sample();
  session.showPage(3);
  EXPECT_EQ(sample().deviatorStress, once.deviatorStress) << "it happens once";
}

TEST_F(EnvelopePhaseTest, AcceptedOnPage2TheCirclesStayThoseOfTheRatio) {
  fixture.workspace.settings.habits.autoAdjustRawData = true;
  enter(2);
  // Rows 2 and 1 have the largest ratios: q 58 and 120.
  EXPECT_EQ(sample().failureRadius[0].trimmed(), "29");
  press(ArrowKey::Down, 200);
  leave(true);
  EXPECT_NE(sample().deviatorStress[2][0].trimmed(), "58");
  EXPECT_EQ(sample().failureRadius[0].trimmed(), "29") << "not drawn once more";
}

TEST_F(EnvelopePhaseTest, WithoutTheSettingNoReadingIsTouched) {
  const auto before = sample().deviatorStress;
  enter(3);
  press(ArrowKey::Right, 45);
  leave(true);
  EXPECT_EQ(sample().deviatorStress, before);
  // Nor later, when the laboratory has changed its habits.
  fixture.workspace.settings.habits.autoAdjustRawData = true;
  session.showPage(3);
  EXPECT_EQ(sample().deviatorStress, before);
}

// ---- back to the fit

TEST_F(EnvelopePhaseTest, ReprocessingRestoresTheFits) {
  enter(3);
  press(ArrowKey::Right, 12);
  leave(true);
  fixture.sample(0).pathAdjustedFlag = 1;
  session.markSaved();
  session.reprocess();
  EXPECT_EQ(sample().adjustedFlag, 0);
  EXPECT_EQ(sample().pathAdjustedFlag, 0);
  EXPECT_EQ(sample().cohesionText.trimmed(), "0");
  EXPECT_EQ(session.state().envelopeNote, "原始数据");
  EXPECT_TRUE(session.isChanged());
}

// ---- the stress path

TEST_F(EnvelopePhaseTest, ThePathLineIsMovedByOneAndTurned) {
  enter(4);
  EXPECT_EQ(shown().phase, Phase::Path);
  // The line through (100, 30) and (200, 60) begins at 0 and rises by 16.699 degrees.
  press(ArrowKey::Right, 3);
  press(ArrowKey::Left, 1);
  press(ArrowKey::Up, 12);
  EXPECT_THAT(texts(), Contains(" C′= 2 kPa"));
  EXPECT_THAT(texts(), Contains(" φ′= 17.9"));
  EXPECT_THAT(movedLines(), ElementsAre(Colour::Black));
  press(ArrowKey::Down, 200);
  EXPECT_THAT(texts(), Contains(" φ′= 0.0"));
  phase().undo();
  EXPECT_THAT(texts(), Contains(" φ′= 0.1"));
  leave(true);
  EXPECT_EQ(sample().pathAdjustedFlag, 1);
  EXPECT_EQ(sample().pathIntercept, 2.0F);
  EXPECT_NEAR(sample().pathSlope, 0.001732, 2e-6);  // the tangent of 0.09924 degrees
  EXPECT_EQ(sample().adjustedFlag, 0);
}

TEST_F(EnvelopePhaseTest, APathThatIsDroppedIsFittedAgain) {
  enter(4);
  press(ArrowKey::Right, 3);
  leave(false);
  EXPECT_EQ(sample().pathAdjustedFlag, 0);
  EXPECT_EQ(sample().pathIntercept, 0.0F);
  EXPECT_FALSE(session.isChanged());
}

// ---- where there is a phase

TEST_F(EnvelopePhaseTest, PagesThatHaveAPhase) {
  for (const auto& [page, possible] : {std::pair{1, true}, {2, true}, {3, true}, {4, true}, {5, false}, {6, false}}) {
    session.showPage(page);
    EXPECT_EQ(session.canIntervene(), possible) << page;
  }
  session.enterIntervention();
  EXPECT_EQ(shown().phase, Phase::None);
}

TEST_F(EnvelopePhaseTest, OnlyCUHasThePhaseOfThePath) {
  fixture.sample(0).testMethod = kCD;
  session.showPage(4);
  EXPECT_EQ(session.state().currentCurvePage, 4);
  EXPECT_FALSE(session.canIntervene());
}

TEST_F(EnvelopePhaseTest, ASampleWithoutStagesHasNone) {
  session.selectListCell(20);
  EXPECT_FALSE(session.canIntervene());
}

}  // namespace
}  // namespace triaxlab
