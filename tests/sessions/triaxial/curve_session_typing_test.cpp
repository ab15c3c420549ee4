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
  session.edit({InputName::SoilName}, "粉质黏土");
  EXPECT_EQ(sample.soilName.view(), padded("\xB7\xDB\xD6\xCA\xF0\xA4\xCD\xC1", 15));
  EXPECT_EQ(session.state().soilName, "粉质黏土");
  session.edit({InputName::Density}, "1.98");
  EXPECT_EQ(sample.density.view(), "1.98 ");
  for (int stage = 0; stage < 5; ++stage) {
    const std::string pressure = std::to_string(50 * (stage + 1));
    session.edit({InputName::CellPressure, stage}, pressure);
    EXPECT_EQ(sample.cellPressure.at(static_cast<std::size_t>(stage)).view(), padded(pressure, 6));
    EXPECT_EQ(session.state().cellPressure.at(static_cast<std::size_t>(stage)), pressure);
  }
}

TEST_F(CurveSessionTyping, LocationBelongsToTheRowOfTheSample) {
  session.selectListCell(4);
  session.edit({InputName::Borehole}, "ZK-12");
  session.edit({InputName::SamplingDepth}, "3.0-3.2");
  session.edit({InputName::SamplingSpot}, "1号楼");
  const SampleLocation& location = workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[1];
  EXPECT_EQ(location.boreholeNo.view(), padded("ZK-12", 15));
  EXPECT_EQ(location.samplingDepth.view(), padded("3.0-3.2", 15));
  EXPECT_EQ(location.samplingSpot.view(), padded("1\xBA\xC5\xC2\xA5", 30));
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0] == SampleLocation{});
  EXPECT_EQ(session.state().samplingSpot, "1号楼");
  session.selectListCell(2);
  EXPECT_EQ(session.state().samplingSpot, "");
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
  session.selectListCell(2);
  session.edit({InputName::ListCell}, " A 1 ");
  EXPECT_EQ(sample.projectNo.view(), padded("A 1", 15));
  EXPECT_EQ(session.state().listCell.text, " A 1 ");  // the box keeps what is typed while it is typed in
  EXPECT_EQ(session.state().list[1].project, "A 1");
  session.finishTyping();
  EXPECT_EQ(session.state().listCell.text, "A 1");

  session.selectListCell(3);
  session.edit({InputName::ListCell}, "123456789012345");
  EXPECT_EQ(sample.sampleNo.view(), "12345678901234");
  EXPECT_EQ(session.state().listCell.text, "12345678901234");
}

TEST_F(CurveSessionTyping, TheBoxOverAnotherRowShowsThatRow) {
  session.selectListCell(3);
  session.edit({InputName::ListCell}, "T1 ");
  session.keyInList(CellKey::Down, {});
  EXPECT_EQ(session.state().listCell.text, "T2");
  EXPECT_EQ(sample.sampleNo.trimmed(), "T1");
  EXPECT_EQ(fixture.sample(1).sampleNo.trimmed(), "T2");
}

TEST_F(CurveSessionTyping, TitleTextsAreMarkedTyped) {
  workspace.dataOf(ProjectKind::Triaxial).projectName.text = "\xC0\xB4";
  EXPECT_EQ(session.state().projectName, "来");
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).projectName.typed);
  session.edit({InputName::ProjectName}, std::string(200, 'n'));
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.text, std::string(120, 'n'));
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).projectName.typed);
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).secondTitleLine.typed);
  session.edit({InputName::SecondTitleLine}, std::string(100, '7'));
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).secondTitleLine.text, std::string(60, '7'));
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).secondTitleLine.typed);
  EXPECT_EQ(session.state().secondTitleLine, std::string(60, '7'));
}

TEST_F(CurveSessionTyping, DateBoxesSetTheirPartAndBlankWhatReadsAsNothing) {
  session.edit({InputName::DatePart, 0}, "20245");
  session.edit({InputName::DatePart, 1}, "0");
  EXPECT_EQ(session.state().processingDate[1], "0");
  EXPECT_TRUE(workspace.processingDate.month.isBlank());
  session.edit({InputName::DatePart, 1}, "07");
  session.edit({InputName::DatePart, 2}, "x");
  EXPECT_EQ(workspace.processingDate.year.view(), "2024");
  EXPECT_EQ(workspace.processingDate.month.view(), "07");
  EXPECT_TRUE(workspace.processingDate.day.isBlank());
  session.finishTyping();
  EXPECT_THAT(session.state().processingDate, ElementsAre("20245", "07", "x")) << "a box shows what was last typed";
  session.load();
  EXPECT_THAT(session.state().processingDate, ElementsAre("2024", "07", "")) << "and begins with the date alone";
}

TEST_F(CurveSessionTyping, ShowingTheBoxesSetsNoDate) {
  (void)session.state();
  EXPECT_FALSE(workspace.processingDate.isSet());
  EXPECT_TRUE(workspace.processingDate == ProcessingDate{});
}

TEST_F(CurveSessionTyping, TheDocumentNumberIsKeptWhetherItsBoxShowsOrNot) {
  EXPECT_FALSE(session.state().controlledDocNoVisible);
  SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "QR-7");
  EXPECT_EQ(session.state().controlledDocNo, "QR-7");
  workspace.settings.habits.controlledDocNo = true;
  EXPECT_TRUE(session.state().controlledDocNoVisible);
  session.edit({InputName::ControlledDocNo}, std::string(101, 'd'));
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.view(), std::string(100, 'd'));
}

TEST_F(CurveSessionTyping, EveryFieldTakesItsWidthOfAHugePaste) {
  const std::string paste(20 * 1024, '8');
  session.selectListCell(2);
  session.edit({InputName::ListCell}, paste);
  session.edit({InputName::SoilName}, paste);
  session.edit({InputName::Density}, paste);
  session.edit({InputName::CellPressure, 0}, paste);
  session.edit({InputName::SamplingSpot}, paste);
  EXPECT_EQ(sample.projectNo.view(), std::string(15, '8'));
  EXPECT_EQ(sample.sampleNo.trimmed(), "T1");
  EXPECT_EQ(sample.soilName.view(), std::string(15, '8'));
  EXPECT_EQ(sample.density.view(), "88888");
  EXPECT_EQ(sample.cellPressure[0].view(), "888888");
  EXPECT_EQ(sample.cellPressure[1].trimmed(), "200");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingSpot.view(), std::string(30, '8'));
}

TEST_F(CurveSessionTyping, CharactersOutsideGbkAndControlCharactersAreNotTaken) {
  session.edit({InputName::SoilName}, "a😀\tb\r\n");
  EXPECT_EQ(sample.soilName.trimmed(), "ab");
  EXPECT_EQ(session.state().soilName, "ab");
}

TEST_F(CurveSessionTyping, ATypingOfWhichNothingIsTakenIsNoChange) {
  session.edit({InputName::Density}, "😀");
  session.edit({InputName::CellPressure, 0}, "100\n");
  EXPECT_FALSE(session.isChanged());
  session.edit({InputName::CellPressure, 0}, "");
  EXPECT_TRUE(sample.cellPressure[0].isBlank());
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurveSessionTyping, ASaveThatPutsTheSpecimensInOrderShowsThemAnew) {
  session.showPage(3);
  ASSERT_EQ(session.state().tableCells[cellAt(0, 2)], "100");
  session.edit({InputName::Density}, "2");
  std::swap(sample.cellPressure[0], sample.cellPressure[1]);
  const auto picture = session.pictureNumber();
  session.markSaved();
  EXPECT_EQ(session.state().tableCells[cellAt(0, 2)], "200");
  EXPECT_GT(session.pictureNumber(), picture);
  EXPECT_FALSE(session.isChanged());
}

TEST_F(CurveSessionTyping, BytesThatAreNoGbkStayUntilTheTextIsEdited) {
  SetText(sample.soilName, "\xFFsand");
  EXPECT_EQ(session.state().soilName, "?sand");
  session.edit({InputName::SoilName}, "?sand");
  EXPECT_EQ(sample.soilName.trimmed(), "\xFFsand");
  EXPECT_FALSE(session.isChanged());
  session.edit({InputName::SoilName}, "?sandy");
  EXPECT_EQ(sample.soilName.trimmed(), "?sandy");
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurveSessionTyping, TheMethodBoxesTakeTheirKeys) {
  EXPECT_TRUE(session.keyOnMethod(MethodField::TestMethod, MethodKey::One));
  EXPECT_EQ(sample.testMethod, kUU);
  EXPECT_EQ(session.state().testMethod, "不固结不排水剪(UU)");
  EXPECT_TRUE(session.keyOnMethod(MethodField::TestMethod, MethodKey::Two));
  EXPECT_EQ(sample.testMethod, kCU);
  EXPECT_TRUE(session.keyOnMethod(MethodField::TestMethod, MethodKey::Three));
  EXPECT_EQ(sample.testMethod, kCD);
  EXPECT_TRUE(session.keyOnMethod(MethodField::ShearMode, MethodKey::Two));
  EXPECT_EQ(sample.shearMode, 2);
  EXPECT_EQ(session.state().shearMode, "多级剪");
  EXPECT_TRUE(session.isChanged());
  EXPECT_FALSE(session.keyOnMethod(MethodField::ShearMode, MethodKey::Three));
  EXPECT_EQ(sample.shearMode, 2);
  EXPECT_TRUE(session.keyOnMethod(MethodField::ShearMode, MethodKey::One));
  EXPECT_EQ(sample.shearMode, 1);
}

TEST_F(CurveSessionTyping, EndOnEitherMethodBoxTurnsTheFlagOverAndShowsTheSample) {
  const auto picture = session.pictureNumber();
  EXPECT_TRUE(session.keyOnMethod(MethodField::ShearMode, MethodKey::End));
  EXPECT_EQ(sample.uuAdjustFlag, 1);
  EXPECT_GT(session.pictureNumber(), picture);
  EXPECT_TRUE(session.keyOnMethod(MethodField::TestMethod, MethodKey::End));
  EXPECT_EQ(sample.uuAdjustFlag, 0);
  sample.uuAdjustFlag = 7;
  EXPECT_TRUE(session.keyOnMethod(MethodField::TestMethod, MethodKey::End));
  EXPECT_EQ(sample.uuAdjustFlag, 0);
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurveSessionTyping, MethodUuReturnsFromAPageThatItDoesNotHave) {
  session.showPage(6);
  session.keyOnMethod(MethodField::TestMethod, MethodKey::One);
  EXPECT_EQ(session.state().currentCurvePage, 1);
}

TEST_F(CurveSessionTyping, StrainLimitsAreStoredByTheirCommandAlone) {
  session.showPage(3);
  constexpr std::array<const char*, 5> kTyped{"3.5", "22", "3.4", "22.1", "abc"};
  for (int stage = 0; stage < 5; ++stage)
    session.edit({InputName::StrainLimit, stage}, kTyped.at(static_cast<std::size_t>(stage)));
  EXPECT_THAT(session.state().strainLimit, ElementsAre("3.5", "22", "3.4", "22.1", "abc"));
  EXPECT_EQ(sample.failureStrainLimit[0], 150);
  EXPECT_FALSE(session.isChanged());

  const auto picture = session.pictureNumber();
  session.applyStrainLimits();
  EXPECT_THAT(sample.failureStrainLimit, ElementsAre(35, 220, 150, 150, 150));
  EXPECT_THAT(session.state().strainLimit, ElementsAre("3.5", "22.0", "15.0", "15.0", "15.0"));
  EXPECT_TRUE(session.isChanged());
  EXPECT_GT(session.pictureNumber(), picture);
}

TEST_F(CurveSessionTyping, AStrainLimitRoundsToTenthsTiesToEven) {
  session.showPage(3);
  session.edit({InputName::StrainLimit, 0}, "12.25");  // 122.5
  session.edit({InputName::StrainLimit, 1}, "12.75");  // 127.5
  session.edit({InputName::StrainLimit, 2}, "1e999");
  session.edit({InputName::StrainLimit, 3}, "-15");
  session.applyStrainLimits();
  EXPECT_THAT(sample.failureStrainLimit, ElementsAre(122, 128, 150, 150, 150));
  // The range is asked of the number as typed: 34.8 and 220.4 would round into it.
  session.edit({InputName::StrainLimit, 0}, "3.48");
  session.edit({InputName::StrainLimit, 1}, "22.04");
  session.applyStrainLimits();
  EXPECT_THAT(sample.failureStrainLimit, ElementsAre(150, 150, 150, 150, 150));
}

TEST_F(CurveSessionTyping, ALowerStrainLimitFindsAnotherFailureRow) {
  sample.axialStrain[1][0] = 3.5F;  // the peak, q = 60
  sample.axialStrain[2][0] = 3.6F;
  session.showPage(3);
  EXPECT_EQ(sample.failureRadius[0].trimmed(), "30");
  sample.axialStrain[1][0] = 3.6F;
  session.edit({InputName::StrainLimit, 0}, "3.5");
  session.applyStrainLimits();
  EXPECT_EQ(sample.failureRadius[0].trimmed(), "15");  // row 0, q = 30
}

TEST_F(CurveSessionTyping, LimitsThatWereNotAppliedAreGoneWithTheSample) {
  session.showPage(3);
  session.edit({InputName::StrainLimit, 0}, "9.9");
  session.selectListCell(4);
  session.selectListCell(2);
  EXPECT_EQ(session.state().strainLimit[0], "15.0");
}

TEST_F(CurveSessionTyping, ABoxThatDoesNotExistIsAFault) {
  EXPECT_THROW(session.edit({InputName::CellPressure, 8}, "1"), std::out_of_range);
  EXPECT_THROW(session.edit({InputName::CellPressure, -1}, "1"), std::out_of_range);
  EXPECT_THROW(session.edit({InputName::DatePart, 4}, "1"), std::out_of_range);
  EXPECT_THROW(session.edit({InputName::StrainLimit, 5}, "1"), std::out_of_range);
}

TEST_F(CurveSessionTyping, TypingUnderAClosedTableBoxGoesNowhere) {
  session.edit({InputName::ResultCell}, "7");
  EXPECT_FALSE(session.isChanged());
}

TEST_F(CurveSessionTyping, ASampleIsTypedInFromNothing) {
  Workspace empty;
  CurveSession typing(empty);
  typing.edit({InputName::ListCell}, "GC9");
  typing.keyInList(CellKey::Right, {});
  typing.edit({InputName::ListCell}, "T1");
  typing.keyOnMethod(MethodField::TestMethod, MethodKey::Two);
  typing.keyOnMethod(MethodField::ShearMode, MethodKey::One);
  typing.edit({InputName::CellPressure, 0}, "100");
  typing.edit({InputName::SoilName}, "砂");

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
  EXPECT_EQ(typing.state().statusPanels[0], "工程编号:GC9");
  EXPECT_TRUE(typing.isChanged());
}

TEST_F(CurveSessionTyping, ASaveEndsTheUnsavedChanges) {
  EXPECT_FALSE(session.isChanged());
  session.edit({InputName::SoilName}, "x");
  EXPECT_TRUE(session.isChanged());
  session.markSaved();
  EXPECT_FALSE(session.isChanged());
  session.markChanged();
  EXPECT_TRUE(session.isChanged());
}

TEST_F(CurveSessionTyping, EachEditIsAnUnsavedChange) {
  const std::vector<Input> inputs{
      {InputName::ListCell},        {InputName::SoilName},    {InputName::Density},       {InputName::ProjectName},
      {InputName::CellPressure, 0}, {InputName::Borehole},    {InputName::SamplingDepth}, {InputName::SamplingSpot},
      {InputName::ControlledDocNo}, {InputName::DatePart, 0}, {InputName::DatePart, 1},   {InputName::DatePart, 2},
      {InputName::SecondTitleLine}};
  for (const Input input : inputs) {
    session.markSaved();
    session.edit(input, "6");
    EXPECT_TRUE(session.isChanged()) << static_cast<int>(input.name) << " " << input.index;
  }
}

}  // namespace
}  // namespace triaxlab
