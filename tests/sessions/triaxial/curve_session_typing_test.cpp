#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sessions/triaxial/hand_made_samples.h"

namespace triaxlab {
namespace {

using testing::ElementsAre;

/// Row 0 CU, row 1 UU.
struct CurveSessionTyping : testing::Test {
  SessionFixture fixture{cuSample(), uuSample()};
  Workspace& workspace = fixture.workspace;
  CurveSession session{workspace};
  TriaxialSampleRecord& sample = fixture.sample(0);
};

/// All places of a field that holds the text.
std::string padded(std::string_view text, std::size_t width) {
  std::string places(text);
  places.resize(width, ' ');
  return places;
}

TEST_F(CurveSessionTyping, FieldsOfTheSampleGoToTheRecordAtOnce) {
  session.edit({BoxName::Text3}, "粉质黏土");
  EXPECT_EQ(sample.soilName.view(), padded("\xB7\xDB\xD6\xCA\xF0\xA4\xCD\xC1", 15));
  EXPECT_EQ(session.state().text3, "粉质黏土");
  session.edit({BoxName::Text4}, "1.98");
  EXPECT_EQ(sample.density.view(), "1.98 ");
  for (int stage = 0; stage < 5; ++stage) {
    const std::string pressure = std::to_string(50 * (stage + 1));
    session.edit({BoxName::Text7, stage}, pressure);
    EXPECT_EQ(sample.cellPressure.at(static_cast<std::size_t>(stage)).view(), padded(pressure, 6));
    EXPECT_EQ(session.state().text7.at(static_cast<std::size_t>(stage)), pressure);
  }
}

TEST_F(CurveSessionTyping, LocationBelongsToTheRowOfTheSample) {
  session.selectLabel(4);
  session.edit({BoxName::Text7, 5}, "ZK-12");
  session.edit({BoxName::Text7, 6}, "3.0-3.2");
  session.edit({BoxName::Text7, 7}, "1号楼");
  const SampleLocation& location = workspace.SampleDisplayTable[1];
  EXPECT_EQ(location.boreholeNo.view(), padded("ZK-12", 15));
  EXPECT_EQ(location.samplingDepth.view(), padded("3.0-3.2", 15));
  EXPECT_EQ(location.samplingSpot.view(), padded("1\xBA\xC5\xC2\xA5", 30));
  EXPECT_TRUE(workspace.SampleDisplayTable[0] == SampleLocation{});
  EXPECT_EQ(session.state().text7[7], "1号楼");
  session.selectLabel(2);
  EXPECT_EQ(session.state().text7[7], "");
}

TEST_F(CurveSessionTyping, LocationCaptionsFollowTheHabits) {
  LaboratoryHabits& habits = workspace.settings.habits;
  EXPECT_THAT(session.state().locationLabels, ElementsAre("  钻孔号", "取样深度", "取样地点"));
  habits.printBoreholeNumber = habits.trialPitNumber = true;
  EXPECT_THAT(session.state().locationLabels, ElementsAre("钻孔编号", "取样深度", "  探井号"));
  habits.boreholeLabel = "孔号";
  EXPECT_EQ(session.state().locationLabels[0], "孔号");
  habits.printBoreholeNumber = false;
  EXPECT_EQ(session.state().locationLabels[0], "  孔号");
}

TEST_F(CurveSessionTyping, NumbersOfProjectAndSampleAreStoredWithoutBlanksAroundThem) {
  session.selectLabel(2);
  session.edit({BoxName::Text1}, " A 1 ");
  EXPECT_EQ(sample.projectNo.view(), padded("A 1", 15));
  EXPECT_EQ(session.state().text1.text, " A 1 ");  // the box keeps what is typed while it is typed in
  EXPECT_EQ(session.state().list[1].project, "A 1");
  session.finishTyping();
  EXPECT_EQ(session.state().text1.text, "A 1");

  session.selectLabel(3);
  session.edit({BoxName::Text1}, "123456789012345");
  EXPECT_EQ(sample.sampleNo.view(), "12345678901234");
  EXPECT_EQ(session.state().text1.text, "12345678901234");
}

TEST_F(CurveSessionTyping, TheBoxOverAnotherRowShowsThatRow) {
  session.selectLabel(3);
  session.edit({BoxName::Text1}, "T1 ");
  session.keyInList(CellKey::Down, {});
  EXPECT_EQ(session.state().text1.text, "T2");
  EXPECT_EQ(sample.sampleNo.trimmed(), "T1");
  EXPECT_EQ(fixture.sample(1).sampleNo.trimmed(), "T2");
}

TEST_F(CurveSessionTyping, TitleTextsAreMarkedTyped) {
  workspace.projectName.text = "\xC0\xB4";
  EXPECT_EQ(session.state().text5, "来");
  EXPECT_FALSE(workspace.projectName.typed);
  session.edit({BoxName::Text5}, std::string(200, 'n'));
  EXPECT_EQ(workspace.projectName.text, std::string(120, 'n'));
  EXPECT_TRUE(workspace.projectName.typed);
  EXPECT_FALSE(workspace.secondTitleLine.typed);
  session.edit({BoxName::TextW, 3}, std::string(100, '7'));
  EXPECT_EQ(workspace.secondTitleLine.text, std::string(60, '7'));
  EXPECT_TRUE(workspace.secondTitleLine.typed);
  EXPECT_EQ(session.state().textW[3], std::string(60, '7'));
}

TEST_F(CurveSessionTyping, DateBoxesSetTheirPartAndBlankWhatReadsAsNothing) {
  session.edit({BoxName::TextW, 0}, "20245");
  session.edit({BoxName::TextW, 1}, "0");
  EXPECT_EQ(session.state().textW[1], "0");
  EXPECT_TRUE(workspace.processingDate.month.isBlank());
  session.edit({BoxName::TextW, 1}, "07");
  session.edit({BoxName::TextW, 2}, "x");
  EXPECT_EQ(workspace.processingDate.year.view(), "2024");
  EXPECT_EQ(workspace.processingDate.month.view(), "07");
  EXPECT_TRUE(workspace.processingDate.day.isBlank());
  session.finishTyping();
  EXPECT_THAT(session.state().textW, ElementsAre("20245", "07", "x", "")) << "a box shows what was last typed";
  session.load();
  EXPECT_THAT(session.state().textW, ElementsAre("2024", "07", "", "")) << "and begins with the date alone";
}

TEST_F(CurveSessionTyping, ShowingTheBoxesSetsNoDate) {
  (void)session.state();
  EXPECT_FALSE(workspace.processingDate.isSet());
  EXPECT_TRUE(workspace.processingDate == ProcessingDate{});
}

TEST_F(CurveSessionTyping, TheDocumentNumberIsKeptWhetherItsBoxShowsOrNot) {
  EXPECT_FALSE(session.state().text9Visible);
  SetText(workspace.controlledDocNo, "QR-7");
  EXPECT_EQ(session.state().text9, "QR-7");
  workspace.settings.habits.controlledDocNo = true;
  EXPECT_TRUE(session.state().text9Visible);
  session.edit({BoxName::Text9}, std::string(101, 'd'));
  EXPECT_EQ(workspace.controlledDocNo.view(), std::string(100, 'd'));
}

TEST_F(CurveSessionTyping, EveryFieldTakesItsWidthOfAHugePaste) {
  const std::string paste(20 * 1024, '8');
  session.selectLabel(2);
  session.edit({BoxName::Text1}, paste);
  session.edit({BoxName::Text3}, paste);
  session.edit({BoxName::Text4}, paste);
  session.edit({BoxName::Text7, 0}, paste);
  session.edit({BoxName::Text7, 7}, paste);
  EXPECT_EQ(sample.projectNo.view(), std::string(15, '8'));
  EXPECT_EQ(sample.sampleNo.trimmed(), "T1");
  EXPECT_EQ(sample.soilName.view(), std::string(15, '8'));
  EXPECT_EQ(sample.density.view(), "88888");
  EXPECT_EQ(sample.cellPressure[0].view(), "888888");
  EXPECT_EQ(sample.cellPressure[1].trimmed(), "200");
  EXPECT_EQ(workspace.SampleDisplayTable[0].samplingSpot.view(), std::string(30, '8'));
}

TEST_F(CurveSessionTyping, CharactersOutsideGbkAndControlCharactersAreNotTaken) {
  session.edit({BoxName::Text3}, "a😀\tb\r\n");
  EXPECT_EQ(sample.soilName.trimmed(), "ab");
  EXPECT_EQ(session.state().text3, "ab");
}

TEST_F(CurveSessionTyping, ATypingOfWhichNothingIsTakenIsNoChange) {
  session.edit({BoxName::Text4}, "😀");
  session.edit({BoxName::Text7, 0}, "100\n");
  EXPECT_FALSE(session.isChanged());
  session.edit({BoxName::Text7, 0}, "");
  EXPECT_TRUE(sample.cellPressure[0].isBlank());
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurveSessionTyping, ASaveThatPutsTheSpecimensInOrderShowsThemAnew) {
  session.showPage(3);
  ASSERT_EQ(session.state().label2[cellAt(0, 2)], "100");
  session.edit({BoxName::Text4}, "2");
  std::swap(sample.cellPressure[0], sample.cellPressure[1]);
  const auto picture = session.pictureNumber();
  session.markSaved();
  EXPECT_EQ(session.state().label2[cellAt(0, 2)], "200");
  EXPECT_GT(session.pictureNumber(), picture);
  EXPECT_FALSE(session.isChanged());
}

TEST_F(CurveSessionTyping, BytesThatAreNoGbkStayUntilTheTextIsEdited) {
  SetText(sample.soilName, "\xFFsand");
  EXPECT_EQ(session.state().text3, "?sand");
  session.edit({BoxName::Text3}, "?sand");
  EXPECT_EQ(sample.soilName.trimmed(), "\xFFsand");
  EXPECT_FALSE(session.isChanged());
  session.edit({BoxName::Text3}, "?sandy");
  EXPECT_EQ(sample.soilName.trimmed(), "?sandy");
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurveSessionTyping, TheMethodBoxesTakeTheirKeys) {
  EXPECT_TRUE(session.keyOnMethodField(1, MethodKey::One));
  EXPECT_EQ(sample.testMethod, kUU);
  EXPECT_EQ(session.state().text6[1], "不固结不排水剪(UU)");
  EXPECT_TRUE(session.keyOnMethodField(1, MethodKey::Two));
  EXPECT_EQ(sample.testMethod, kCU);
  EXPECT_TRUE(session.keyOnMethodField(1, MethodKey::Three));
  EXPECT_EQ(sample.testMethod, kCD);
  EXPECT_TRUE(session.keyOnMethodField(0, MethodKey::Two));
  EXPECT_EQ(sample.shearMode, 2);
  EXPECT_EQ(session.state().text6[0], "多级剪");
  EXPECT_TRUE(session.isChanged());
  EXPECT_FALSE(session.keyOnMethodField(0, MethodKey::Three));
  EXPECT_EQ(sample.shearMode, 2);
  EXPECT_TRUE(session.keyOnMethodField(0, MethodKey::One));
  EXPECT_EQ(sample.shearMode, 1);
}

TEST_F(CurveSessionTyping, EndOnEitherMethodBoxTurnsTheFlagOverAndShowsTheSample) {
  const auto picture = session.pictureNumber();
  EXPECT_TRUE(session.keyOnMethodField(0, MethodKey::End));
  EXPECT_EQ(sample.uuAdjustFlag, 1);
  EXPECT_GT(session.pictureNumber(), picture);
  EXPECT_TRUE(session.keyOnMethodField(1, MethodKey::End));
  EXPECT_EQ(sample.uuAdjustFlag, 0);
  sample.uuAdjustFlag = 7;
  EXPECT_TRUE(session.keyOnMethodField(1, MethodKey::End));
  EXPECT_EQ(sample.uuAdjustFlag, 0);
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurveSessionTyping, MethodUuReturnsFromAPageThatItDoesNotHave) {
  session.showPage(6);
  session.keyOnMethodField(1, MethodKey::One);
  EXPECT_EQ(session.state().currentCurvePage, 1);
}

TEST_F(CurveSessionTyping, StrainLimitsAreStoredByTheirCommandAlone) {
  session.showPage(3);
  constexpr std::array<const char*, 5> kTyped{"3.5", "22", "3.4", "22.1", "abc"};
  for (int stage = 0; stage < 5; ++stage)
    session.edit({BoxName::Text8, stage}, kTyped.at(static_cast<std::size_t>(stage)));
  EXPECT_THAT(session.state().text8, ElementsAre("3.5", "22", "3.4", "22.1", "abc"));
  EXPECT_EQ(sample.failureStrainLimit[0], 150);
  EXPECT_FALSE(session.isChanged());

  const auto picture = session.pictureNumber();
  session.applyStrainLimits();
  EXPECT_THAT(sample.failureStrainLimit, ElementsAre(35, 220, 150, 150, 150));
  EXPECT_THAT(session.state().text8, ElementsAre("3.5", "22.0", "15.0", "15.0", "15.0"));
  EXPECT_TRUE(session.isChanged());
  EXPECT_GT(session.pictureNumber(), picture);
}

TEST_F(CurveSessionTyping, AStrainLimitRoundsToTenthsTiesToEven) {
  session.showPage(3);
  session.edit({BoxName::Text8, 0}, "12.25");  // 122.5
  session.edit({BoxName::Text8, 1}, "12.75");  // 127.5
  session.edit({BoxName::Text8, 2}, "1e999");
  session.edit({BoxName::Text8, 3}, "-15");
  session.applyStrainLimits();
  EXPECT_THAT(sample.failureStrainLimit, ElementsAre(122, 128, 150, 150, 150));
  // The range is asked of the number as typed: 34.8 and 220.4 would round into it.
  session.edit({BoxName::Text8, 0}, "3.48");
  session.edit({BoxName::Text8, 1}, "22.04");
  session.applyStrainLimits();
  EXPECT_THAT(sample.failureStrainLimit, ElementsAre(150, 150, 150, 150, 150));
}

TEST_F(CurveSessionTyping, ALowerStrainLimitFindsAnotherFailureRow) {
  sample.axialStrain[1][0] = 3.5F;  // the peak, q = 60
  sample.axialStrain[2][0] = 3.6F;
  session.showPage(3);
  EXPECT_EQ(sample.failureRadius[0].trimmed(), "30");
  sample.axialStrain[1][0] = 3.6F;
  session.edit({BoxName::Text8, 0}, "3.5");
  session.applyStrainLimits();
  EXPECT_EQ(sample.failureRadius[0].trimmed(), "15");  // row 0, q = 30
}

TEST_F(CurveSessionTyping, LimitsThatWereNotAppliedAreGoneWithTheSample) {
  session.showPage(3);
  session.edit({BoxName::Text8, 0}, "9.9");
  session.selectLabel(4);
  session.selectLabel(2);
  EXPECT_EQ(session.state().text8[0], "15.0");
}

TEST_F(CurveSessionTyping, ABoxThatDoesNotExistIsAFault) {
  EXPECT_THROW(session.edit({BoxName::Text7, 8}, "1"), std::out_of_range);
  EXPECT_THROW(session.edit({BoxName::Text7, -1}, "1"), std::out_of_range);
  EXPECT_THROW(session.edit({BoxName::TextW, 4}, "1"), std::out_of_range);
  EXPECT_THROW(session.edit({BoxName::Text8, 5}, "1"), std::out_of_range);
}

TEST_F(CurveSessionTyping, TypingUnderAClosedTableBoxGoesNowhere) {
  session.edit({BoxName::Text2}, "7");
  EXPECT_FALSE(session.isChanged());
}

TEST_F(CurveSessionTyping, ASampleIsTypedInFromNothing) {
  Workspace empty;
  CurveSession typing(empty);
  typing.edit({BoxName::Text1}, "GC9");
  typing.keyInList(CellKey::Right, {});
  typing.edit({BoxName::Text1}, "T1");
  typing.keyOnMethodField(1, MethodKey::Two);
  typing.keyOnMethodField(0, MethodKey::One);
  typing.edit({BoxName::Text7, 0}, "100");
  typing.edit({BoxName::Text3}, "砂");

  TriaxialSampleRecord expected;
  SetText(expected.projectNo, "GC9");
  SetText(expected.sampleNo, "T1");
  SetText(expected.cellPressure[0], "100");
  SetText(expected.soilName, "\xC9\xB0");
  expected.testMethod = kCU;
  expected.shearMode = 1;
  expected.failureStrainLimit.fill(150);  // showing a page mends limits out of range
  const auto typed = bytesOf(empty.TriaxialSampleTable[0]), whole = bytesOf(expected);
  EXPECT_TRUE(std::equal(typed.begin(), typed.end(), whole.begin(), whole.end()));
  EXPECT_EQ(typing.state().list[1].sample, "T1");
  EXPECT_EQ(typing.state().projectPanel, "工程编号:GC9");
  EXPECT_TRUE(typing.isChanged());
}

TEST_F(CurveSessionTyping, ASaveEndsTheUnsavedChanges) {
  EXPECT_FALSE(session.isChanged());
  session.edit({BoxName::Text3}, "x");
  EXPECT_TRUE(session.isChanged());
  session.markSaved();
  EXPECT_FALSE(session.isChanged());
  session.markChanged();
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurveSessionTyping, EachEditIsAnUnsavedChange) {
  const std::vector<Box> boxes{{BoxName::Text1},    {BoxName::Text3},    {BoxName::Text4},    {BoxName::Text5},
                               {BoxName::Text7, 0}, {BoxName::Text7, 5}, {BoxName::Text7, 6}, {BoxName::Text7, 7},
                               {BoxName::Text9},    {BoxName::TextW, 0}, {BoxName::TextW, 1}, {BoxName::TextW, 2},
                               {BoxName::TextW, 3}};
  for (const Box box : boxes) {
    session.markSaved();
    session.edit(box, "6");
    EXPECT_TRUE(session.isChanged()) << static_cast<int>(box.name) << " " << box.index;
  }
}

}  // namespace
}  // namespace triaxlab
