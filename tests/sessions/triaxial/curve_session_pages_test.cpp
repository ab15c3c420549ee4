#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sessions/triaxial/hand_made_samples.h"

namespace triaxlab {
namespace {

/// Row 0 CU, row 1 UU, row 2 CD; Label1(2), (4), (6).
struct CurveSessionPages : testing::Test {
  SessionFixture fixture{cuSample(), uuSample(), cdSample()};
  CurveSession session{fixture.workspace};

  int page() const { return session.state().currentCurvePage; }
  int tablePage() const { return session.state().currentTablePage; }
  void select(int line) { session.selectListCell(2 * line); }
  void expectChecked(int entry) const {
    const CurveState now = session.state();
    EXPECT_EQ(now.ratioEnvelope.checked, entry == 2);
    EXPECT_EQ(now.differenceEnvelope.checked, entry == 3);
  }
};

TEST_F(CurveSessionPages, OpensOnTheFirstPageWithTheDifferenceChecked) {
  EXPECT_EQ(page(), 1);
  EXPECT_EQ(tablePage(), 3);
  expectChecked(3);
}

TEST_F(CurveSessionPages, ChoosingAnEnvelopeTakesTheCheckFromTheOther) {
  session.showPage(2);
  EXPECT_EQ(page(), 2);
  expectChecked(2);
  session.showPage(3);
  EXPECT_EQ(page(), 3);
  expectChecked(3);
  session.showPage(5);
  expectChecked(3);
}

TEST_F(CurveSessionPages, WhatIsNoPageIsNotShown) {
  session.showPage(0);
  session.showPage(7);
  EXPECT_EQ(page(), 1);
}

TEST_F(CurveSessionPages, SteppingPassesOverTheEnvelopeThatIsNotChecked) {
  session.nextPage();
  EXPECT_EQ(page(), 3);
  session.previousPage();
  EXPECT_EQ(page(), 1);
  session.previousPage();
  EXPECT_EQ(page(), 6);
  session.nextPage();
  EXPECT_EQ(page(), 1);
  session.showPage(2);
  session.nextPage();
  EXPECT_EQ(page(), 4);
  session.previousPage();
  EXPECT_EQ(page(), 2);
}

TEST_F(CurveSessionPages, UuHasThreePagesOnlyAndWrapsFromTheThirdToTheFirst) {
  select(2);
  session.nextPage();
  EXPECT_EQ(page(), 3);
  session.nextPage();
  EXPECT_EQ(page(), 1);
  session.previousPage();
  EXPECT_EQ(page(), 3);
  session.previousPage();
  EXPECT_EQ(page(), 1);
  for (const int above : {4, 5, 6}) {
    session.showPage(above);
    EXPECT_EQ(page(), 1) << above;
    EXPECT_EQ(tablePage(), 3) << above;
  }
}

TEST_F(CurveSessionPages, UuTurnsTheRatioOffAndGivesItsCheckToTheDifference) {
  session.showPage(2);
  select(2);
  EXPECT_EQ(page(), 3);
  expectChecked(3);
  EXPECT_FALSE(session.state().ratioEnvelope.enabled);
  EXPECT_TRUE(session.state().differenceEnvelope.enabled);
  select(1);
  EXPECT_EQ(page(), 3);
  expectChecked(3);
  EXPECT_TRUE(session.state().ratioEnvelope.enabled);
}

TEST_F(CurveSessionPages, ASampleThatHasNotThePageReturnsToTheFirst) {
  session.showPage(6);
  EXPECT_EQ(tablePage(), 4);
  select(2);
  EXPECT_EQ(page(), 1);
  EXPECT_EQ(tablePage(), 3);
}

TEST_F(CurveSessionPages, CdReachesTheEffectivePagesByTheMenuAlone) {
  select(3);
  session.nextPage();
  EXPECT_EQ(page(), 3);
  session.nextPage();
  EXPECT_EQ(page(), 1);
  session.showPage(5);
  EXPECT_EQ(page(), 5);
  EXPECT_EQ(tablePage(), 3);  // its own, 4, is of CU
  session.nextPage();
  EXPECT_EQ(page(), 3);
  session.showPage(4);
  session.previousPage();
  EXPECT_EQ(page(), 1);
  EXPECT_FALSE(session.state().ratioEnvelope.enabled);
  session.showPage(2);
  EXPECT_EQ(page(), 3);
}

TEST_F(CurveSessionPages, TheTablePageComesWithThePageAndStaysAtARedraw) {
  session.showPage(3);
  EXPECT_EQ(tablePage(), 1);
  session.nextTablePage();
  EXPECT_EQ(tablePage(), 2);
  session.applyStrainLimits();
  EXPECT_EQ(tablePage(), 2);
  select(1);
  EXPECT_EQ(tablePage(), 2);
  session.showPage(4);
  EXPECT_EQ(tablePage(), 5);
}

TEST_F(CurveSessionPages, TablePagesGoRoundSixForCuAndThreeForTheOthers) {
  session.previousTablePage();
  session.previousTablePage();
  EXPECT_EQ(tablePage(), 1);
  session.previousTablePage();
  EXPECT_EQ(tablePage(), 6);
  session.nextTablePage();
  EXPECT_EQ(tablePage(), 1);
  session.previousTablePage();
  select(2);
  EXPECT_EQ(tablePage(), 3);
  session.nextTablePage();
  EXPECT_EQ(tablePage(), 1);
  session.previousTablePage();
  EXPECT_EQ(tablePage(), 3);
}

TEST_F(CurveSessionPages, SteppingTheTableDrawsNothing) {
  const auto picture = session.pictureNumber();
  session.nextTablePage();
  session.previousTablePage();
  session.scrollTable(20);
  EXPECT_EQ(session.pictureNumber(), picture);
  session.nextPage();
  EXPECT_GT(session.pictureNumber(), picture);
}

TEST_F(CurveSessionPages, CaptionsFollowModeAndMethod) {
  EXPECT_EQ(session.state().shearMode, "多样剪");
  EXPECT_EQ(session.state().testMethod, "固结不排水剪(CU)");
  EXPECT_TRUE(session.state().consolidationTableVisible);
  select(2);
  EXPECT_EQ(session.state().testMethod, "不固结不排水剪(UU)");
  EXPECT_FALSE(session.state().consolidationTableVisible);
  select(3);
  EXPECT_EQ(session.state().testMethod, "固结排水剪(CD)");
  EXPECT_TRUE(session.state().consolidationTableVisible);
  for (const int mode : {2, 3}) {
    fixture.sample(0).shearMode = static_cast<std::uint8_t>(mode);
    select(1);
    EXPECT_EQ(session.state().shearMode, "多级剪");
  }
  fixture.sample(0).testMethod = 4;
  select(1);
  EXPECT_EQ(session.state().testMethod, "");
}

TEST_F(CurveSessionPages, StrainLimitsAndTheMarkOfAdjustmentBelongToTheEnvelopes) {
  fixture.sample(0).failureStrainLimit = {35, 220, 34, 221, 150};
  for (int n = 1; n <= 6; ++n) {
    session.showPage(n);
    EXPECT_EQ(session.state().strainLimitsVisible, n == 2 || n == 3) << n;
    EXPECT_EQ(session.state().envelopeNoteVisible, n == 2 || n == 3) << n;
  }
  session.showPage(3);
  EXPECT_THAT(session.state().strainLimit, testing::ElementsAre("3.5", "22.0", "15.0", "15.0", "15.0"));
  EXPECT_EQ(session.state().envelopeNote, "原始数据");
  fixture.sample(0).adjustedFlag = 1;
  session.showPage(3);
  EXPECT_EQ(session.state().envelopeNote, "已经干预");
  // Another value than 0 says that somebody was here, though the page fits anew.
  fixture.sample(0).adjustedFlag = 2;
  SetText(fixture.sample(0).cohesionText, "99");
  session.showPage(3);
  EXPECT_EQ(session.state().envelopeNote, "已经干预");
  EXPECT_EQ(fixture.sample(0).cohesionText.trimmed(), "0");
}

TEST_F(CurveSessionPages, ShowingAnEnvelopeStoresItsFailureValuesAndFit) {
  // Peaks of q: 60 at row 1 (⊙ = (200 + 60) / 2 = 130, R = 30), 120 at row 1 (⊙ = 260, R = 60).
  // a = (2 × (130 × 30 + 260 × 60) - 390 × 90) / (2 × (130² + 260²) - 390²) = 3900 / 16900 = 3/13 = sin φ,
  // φ = 13.34°, C = (60 - 260 × 3/13) / cos φ = 0.
  session.showPage(3);
  const TriaxialSampleRecord& sample = fixture.sample(0);
  EXPECT_EQ(sample.failureCentre[0].trimmed(), "130");
  EXPECT_EQ(sample.failureRadius[1].trimmed(), "60");
  EXPECT_EQ(FormatNumber(static_cast<float>(sample.frictionAngle), NumberFormat::Hundredths), "13.34");
  EXPECT_EQ(sample.cohesionText.trimmed(), "0");
  // The largest ratio of the first stage is 123 / 65 at row 2, where q is 58.
  session.showPage(2);
  EXPECT_EQ(sample.failureRadius[0].trimmed(), "29");
  EXPECT_EQ(sample.sigma1FailureEff[0].trimmed(), "123");
}

TEST_F(CurveSessionPages, EveryPageFollowsTheEntryThatIsChecked) {
  const auto radius = [this] { return std::string(fixture.sample(0).failureRadiusEff[0].trimmed()); };
  EXPECT_EQ(radius(), "30");  // of the peak, 60 kPa
  for (const int shown : {1, 4, 5, 6}) {
    session.showPage(2);
    session.showPage(shown);
    EXPECT_EQ(radius(), "29") << shown;  // of the largest ratio, at 58 kPa
    session.showPage(3);
    session.showPage(shown);
    EXPECT_EQ(radius(), "30") << shown;
  }
  // Circles at 100 and 200 of 30 and 60 kPa against circles at 94 and 200 of 29 and 60 kPa.
  session.showPage(4);
  EXPECT_EQ(fixture.sample(0).pathSlope, 0.3F);
  session.showPage(2);
  session.showPage(4);
  EXPECT_EQ(fixture.sample(0).pathSlope, static_cast<float>(31.0 / 106.0));
}

TEST_F(CurveSessionPages, AnEmptySlotIsNotComputed) {
  session.selectListCell(10);
  ASSERT_EQ(session.sampleRow(), 4U);
  const TriaxialSampleRecord blank = fixture.sample(4);
  session.showPage(3);
  session.showPage(5);
  EXPECT_EQ(bytesOf(fixture.sample(4)).size(), bytesOf(blank).size());
  EXPECT_TRUE(std::equal(bytesOf(blank).begin(), bytesOf(blank).end(), bytesOf(fixture.sample(4)).begin()));
  session.showPage(3);
  EXPECT_EQ(session.state().strainLimit[0], "15.0");
}

TEST_F(CurveSessionPages, ShowingPagesIsNoUnsavedChange) {
  for (int n = 1; n <= 6; ++n) session.showPage(n);
  session.nextTablePage();
  session.scrollList(3);
  session.selectListCell(7);
  EXPECT_FALSE(session.isChanged());
}

}  // namespace
}  // namespace triaxlab
