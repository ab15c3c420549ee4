#include "sessions/unconfined/stress_session.h"

#include <string>

#include "store/settings/settings_file.h"
#include "support/drawings.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

constexpr CursorPlace kInside{false, false}, kAtStart{true, false}, kAtEnd{false, true};

/// Two samples: U-1 with a curve of three points, U-2 with nothing but its number.
class Unconfined : public ::testing::Test {
 protected:
  Unconfined() {
    workspace.applicationFolder = workspace.dataFolder = folder.path();
    UnconfinedSampleRecord& first = workspace.UnconfinedSampleTable[0];
    SetText(first.projectNo, "P1");
    SetText(first.sampleNo, "U-1");
    SetText(first.undisturbedStrain[0], "5.0");
    SetText(first.undisturbedStress[0], "50.0");
    SetText(first.undisturbedStrain[1], "10.0");
    SetText(first.undisturbedStress[1], "60.0");
    first.strainLimit = {150, 100};
    UnconfinedSampleRecord& second = workspace.UnconfinedSampleTable[1];
    SetText(second.projectNo, "P1");
    SetText(second.sampleNo, "U-2");
  }

  UnconfinedSampleRecord& record(std::size_t row = 0) { return workspace.UnconfinedSampleTable[row]; }
  static ListedInput reading(int cell) { return {ListedInputName::Reading, cell}; }
  static ListedInput number(int cell) { return {ListedInputName::Number, cell}; }
  static ListedInput constant(int index) { return {ListedInputName::OwnField, index}; }
  static std::string textOf(const FixedText<6>& field) { return std::string(field.trimmed()); }
  static std::string textIn(const StressSession& session, ListedInput input) {
    return session.listedState().text(input);
  }
  static Drawing drawingOf(const StressSession& session) {
    RecordingSurface surface;
    session.draw(surface);
    return surface.operations();
  }

  TemporaryFolder folder;
  Workspace workspace;
};

// ---- the sample on display

TEST_F(Unconfined, OpensOnTheFirstSampleWithNothingToSave) {
  const StressSession session(workspace);
  EXPECT_EQ(session.sampleRow(), 0U);
  EXPECT_FALSE(session.isChanged());
  EXPECT_FALSE(session.isEmpty());
  const ListedState now = session.listedState();
  EXPECT_THAT(now.listHeads, ElementsAre("工程编号", "土样编号"));
  EXPECT_EQ(now.list.scrollMax, 997);
  EXPECT_EQ(now.readings.scrollMax, 47);
  EXPECT_THAT(now.lineNumbers, ElementsAre("1", "2", "3", "4"));
  EXPECT_EQ(now.list.cells.at(0).label, "P1");
  EXPECT_EQ(now.list.cells.at(3).label, "U-2");
  EXPECT_THAT(now.statusPanels, ElementsAre("工程编号:P1", "试验日期:"));
  EXPECT_THAT(session.strainLimitTexts(), ElementsAre("15.0", "10.0"));
}

TEST_F(Unconfined, ShowingASampleReducesItAndDrawsWhatItGives) {
  const StressSession session(workspace);
  // The parabola through (0, 0), (5, 50), (10, 60) is y = 14 x - 0.8 x²; its top of 61.25 lies at 8.75 %, between the
  // tenths: 61.248 at 8.7 and at 8.8.
  EXPECT_EQ(textOf(record().qu), "61.2");
  EXPECT_THAT(textsWith(drawingOf(session), " qu = "), ElementsAre(" qu = 61.2kpa"));
}

TEST_F(Unconfined, ATypedReadingIsInTheRecordAtOnceAndInTheChartWhenItIsDrawnAnew) {
  StressSession session(workspace);
  const auto picture = session.pictureNumber();
  session.edit(reading(7), "120");  // 原状σ of the second line
  EXPECT_EQ(textOf(record().undisturbedStress[1]), "120.0");
  EXPECT_EQ(textIn(session, reading(7)), "120") << "as typed until the typing is over";
  EXPECT_EQ(session.listedState().readings.cells.at(7).label, "120.0");
  EXPECT_TRUE(session.isChanged());
  EXPECT_EQ(session.pictureNumber(), picture);
  session.finishTyping();
  EXPECT_EQ(textIn(session, reading(7)), "120.0");
  session.showCurve();
  EXPECT_NE(session.pictureNumber(), picture);
  EXPECT_THAT(textsWith(drawingOf(session), " qu = "), Not(ElementsAre(" qu = 61.2kpa")));
}

TEST_F(Unconfined, WhatWasSavedIsSeen) {
  StressSession session(workspace);
  session.edit(reading(7), "48");
  session.markSaved();
  EXPECT_FALSE(session.isChanged());
  // Through (0, 0), (5, 50), (10, 48): y = 15.2 x - 1.04 x², 55.538 at 7.3 %.
  EXPECT_THAT(textsWith(drawingOf(session), " qu = "), ElementsAre(" qu = 55.5kpa"));
}

TEST_F(Unconfined, AnEmptiedReadingStoresZero) {
  StressSession session(workspace);
  session.edit(reading(7), "");
  EXPECT_EQ(textOf(record().undisturbedStress[1]), "0.0");
  EXPECT_EQ(session.listedState().readings.cells.at(7).label, "");
}

TEST_F(Unconfined, TheLabelOfAReadingIsBlankUpToATenth) {
  StressSession session(workspace);
  const auto labelOf = [&](const char* text) {
    SetText(record().remouldedReading[0], text);
    return session.listedState().readings.cells.at(3).label;
  };
  EXPECT_EQ(labelOf("0.1"), "");
  EXPECT_EQ(labelOf("-0.1"), "");
  EXPECT_EQ(labelOf("0.11"), "0.1");
  EXPECT_EQ(labelOf("-0.2"), "-0.2");
  EXPECT_EQ(labelOf("12.34"), "12.3");
}

TEST_F(Unconfined, EachColumnOfTheReadingsGoesToItsPlace) {
  StressSession session(workspace);
  session.scrollReadings(47);
  for (int column = 0; column < 6; ++column) session.edit(reading(18 + column), std::to_string(column + 1));
  const UnconfinedSampleRecord& sample = record();
  EXPECT_EQ(textOf(sample.undisturbedReading[50]), "1.0");
  EXPECT_EQ(textOf(sample.undisturbedStress[50]), "2.0");
  EXPECT_EQ(textOf(sample.undisturbedStrain[50]), "3.0");
  EXPECT_EQ(textOf(sample.remouldedReading[50]), "4.0");
  EXPECT_EQ(textOf(sample.remouldedStress[50]), "5.0");
  EXPECT_EQ(textOf(sample.remouldedStrain[50]), "6.0");
}

TEST_F(Unconfined, AnotherSampleIsDrawnWhenItIsChosen) {
  StressSession session(workspace);
  const auto picture = session.pictureNumber();
  session.selectNumber(1);
  EXPECT_EQ(session.pictureNumber(), picture) << "the same sample";
  session.selectNumber(2);
  EXPECT_EQ(session.sampleRow(), 1U);
  EXPECT_EQ(session.pictureNumber(), picture + 1);
  session.scrollList(3);
  EXPECT_EQ(session.sampleRow(), 4U);
  EXPECT_THAT(session.listedState().lineNumbers, ElementsAre("4", "5", "6", "7"));
  EXPECT_TRUE(session.keyInList(CellKey::PageUp, kInside));
  EXPECT_EQ(session.sampleRow(), 1U);
  EXPECT_TRUE(session.keyInList(CellKey::Up, kInside));
  EXPECT_EQ(session.sampleRow(), 0U);
}

// ---- numbers and constants

TEST_F(Unconfined, NumbersAreStoredWithoutBlanksAroundThem) {
  StressSession session(workspace);
  session.selectNumber(5);
  session.edit(number(5), " U-3 ");
  EXPECT_EQ(record(2).sampleNo.trimmed(), "U-3");
  EXPECT_EQ(record(2).sampleNo.view(), "U-3            ");
  EXPECT_EQ(textIn(session, number(5)), " U-3 ");
  EXPECT_EQ(session.listedState().list.cells.at(5).label, "U-3");
}

TEST_F(Unconfined, ASampleWithoutANumberBeginsWithTheConstantsTypedLast) {
  StressSession session(workspace);
  for (const auto& [index, text] : {std::pair(0, " 8.00"), std::pair(1, "7.98"), std::pair(2, "12.00"),
                                    std::pair(3, "11.34"), std::pair(4, "3.078"), std::pair(5, "1.25")})
    session.edit(constant(index), text);
  session.selectNumber(2);
  EXPECT_TRUE(record(1).sampleHeight[0].isBlank()) << "it has a number";
  session.selectNumber(4);
  EXPECT_EQ(textOf(record(2).sampleHeight[0]), "8.00");
  EXPECT_EQ(textOf(record(2).sampleHeight[1]), "7.98");
  EXPECT_EQ(textOf(record(2).sampleArea[0]), "12.00");
  EXPECT_EQ(textOf(record(2).sampleArea[1]), "11.34");
  EXPECT_EQ(record(2).ringCoefficient[0], 3078);
  EXPECT_EQ(record(2).ringCoefficient[1], 1250);
  EXPECT_EQ(textIn(session, constant(5)), "1.250");
  EXPECT_EQ(textOf(record(2).undisturbedStrain[50]), "25.5") << "and with a column of strains";
}

TEST_F(Unconfined, WhatWasTypedBeforeAnotherOpeningIsCarriedNoFurther) {
  StressSession session(workspace);
  session.edit(constant(0), "8.00");
  session.load();
  EXPECT_FALSE(session.isChanged());
  session.selectNumber(4);
  EXPECT_TRUE(record(2).sampleHeight[0].isBlank());
}

TEST_F(Unconfined, ARingCoefficientIsJudgedByItsHundredfoldAndStoredAThousandfold) {
  StressSession session(workspace);
  const auto typed = [&](const char* text) {
    session.edit(constant(4), text);
    return static_cast<int>(record().ringCoefficient[0]);
  };
  EXPECT_EQ(typed("3.078"), 3078);
  EXPECT_EQ(typed("32.767"), 32767);
  EXPECT_EQ(typed("32.768"), 32767) << "out of the record's range: what was there stays";
  EXPECT_EQ(typed("327.66"), 32767);
  EXPECT_EQ(typed("327.67"), 0);
  EXPECT_EQ(typed("-2.5"), -2500);
  EXPECT_EQ(typed("x"), 0);
  EXPECT_EQ(typed("1"), 1000);
  EXPECT_EQ(typed(""), 0);
}

TEST_F(Unconfined, ACoefficientThatIsNoneIsNotCarried) {
  StressSession session(workspace);
  session.edit(constant(4), "3.0");
  session.edit(constant(4), "0");
  EXPECT_EQ(record().ringCoefficient[0], 0);
  session.selectNumber(4);
  EXPECT_EQ(record(2).ringCoefficient[0], 3000);
}

TEST(UnconfinedConstants, KeysGoTwoOnTwoBackAndOneAtTheEndsOfTheText) {
  EXPECT_EQ(constantReachedFrom(0, CellKey::Enter, kInside), 2);
  EXPECT_EQ(constantReachedFrom(3, CellKey::Down, kInside), 5);
  EXPECT_EQ(constantReachedFrom(5, CellKey::Down, kInside), 5) << "the last";
  EXPECT_EQ(constantReachedFrom(4, CellKey::Up, kInside), 2);
  EXPECT_EQ(constantReachedFrom(1, CellKey::Right, kAtEnd), 2);
  EXPECT_EQ(constantReachedFrom(1, CellKey::Left, kAtStart), 0);
  EXPECT_EQ(constantReachedFrom(0, CellKey::Left, kAtStart), std::nullopt);
  EXPECT_EQ(constantReachedFrom(1, CellKey::Right, kInside), std::nullopt);
  EXPECT_EQ(constantReachedFrom(1, CellKey::PageDown, kAtEnd), std::nullopt);
}

// ---- strain limits

TEST_F(Unconfined, LimitsAreStoredWhenTheyAreApplied) {
  StressSession session(workspace);
  session.editStrainLimit(Specimen::Undisturbed, "3.5");
  session.editStrainLimit(Specimen::Remoulded, "22");
  EXPECT_EQ(record().strainLimit, (BothSpecimens<std::uint8_t>{150, 100}));
  const auto picture = session.pictureNumber();
  session.applyStrainLimits();
  EXPECT_EQ(record().strainLimit, (BothSpecimens<std::uint8_t>{35, 220}));
  EXPECT_THAT(session.strainLimitTexts(), ElementsAre("3.5", "22.0"));
  EXPECT_EQ(session.pictureNumber(), picture + 1);
  EXPECT_TRUE(session.isChanged());
}

TEST_F(Unconfined, ALimitOutOfBoundsIsNotStoredAndTellsTheUsualOneUntilTheNextDrawing) {
  StressSession session(workspace);
  session.editStrainLimit(Specimen::Undisturbed, "3.4");
  session.editStrainLimit(Specimen::Remoulded, "22.1");
  session.applyStrainLimits();
  EXPECT_EQ(record().strainLimit, (BothSpecimens<std::uint8_t>{150, 100}));
  EXPECT_THAT(session.strainLimitTexts(), ElementsAre("15.0", "15.0"));
  session.showCurve();
  EXPECT_THAT(session.strainLimitTexts(), ElementsAre("15.0", "10.0"));
}

TEST_F(Unconfined, ANewSampleHasItsLimitsFromTheSecondDrawingOn) {
  workspace.UnconfinedSampleTable[0] = {};
  StressSession session(workspace);
  EXPECT_THAT(session.strainLimitTexts(), ElementsAre("0.0", "0.0"));
  EXPECT_EQ(record().strainLimit, (BothSpecimens<std::uint8_t>{150, 150}));
  session.showCurve();
  EXPECT_THAT(session.strainLimitTexts(), ElementsAre("15.0", "15.0"));
}

// ---- the texts of the document

TEST_F(Unconfined, TheNamesThatSignComeFromTheSettings) {
  SettingsFile settings = sharedSettings(workspace);
  settings.writeText({910, 60}, "Zhang San");
  settings.writeText({970, 60}, "Li Si");
  StressSession session(workspace);
  EXPECT_THAT(session.listedState().dateTexts, ElementsAre("Zhang San", "Li Si", ""));
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Unconfined).typedDateTexts[0]) << "filling a box is no typing";
  session.edit({ListedInputName::DateText, 0}, "2024 Wang");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Unconfined).typedDateTexts[0], "2024 Wang");
  EXPECT_EQ(workspace.processingDate.year.trimmed(), "2024");
  session.edit({ListedInputName::DateText, 0}, "Wang");
  EXPECT_TRUE(workspace.processingDate.year.isBlank());
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).typedDateTexts[0]);
  EXPECT_TRUE(session.isChanged());
}

TEST_F(Unconfined, NameAndArchiveNumberAreThoseOfTheDocument) {
  workspace.dataOf(ProjectKind::Unconfined).projectName.text = "bridge";
  workspace.dataOf(ProjectKind::Triaxial).projectName.text = "tunnel";
  StressSession session(workspace);
  EXPECT_EQ(session.listedState().projectName, "bridge");
  session.edit({ListedInputName::SecondTitleLine}, "A-17");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Unconfined).secondTitleLine.text, "A-17");
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Unconfined).secondTitleLine.typed);
}

// ---- the rest

TEST_F(Unconfined, TheTableIsCopiedDownToItsLastValue) {
  const StressSession session(workspace);
  EXPECT_EQ(session.tableText(),
            "原状R\t原状σ\t原状ε(%)\t重塑R\t重塑σ\t重塑ε(%)\n\t50.0\t5.0\t\t\t\n\t60.0\t10.0\t\t\t\n");
}

TEST_F(Unconfined, TheReadoutTellsStrainAndStressInsideThePlot) {
  const StressSession session(workspace);
  // The middle of a plot of 22 % and 70 kPa.
  EXPECT_EQ(session.readout({4000, 2300}), "x:11.00%   y:35.0kPa");
  EXPECT_EQ(session.readout({999, 2300}), "");
}

TEST_F(Unconfined, AnEmptyTableIsReadyForTyping) {
  workspace.UnconfinedSampleTable.clear();
  StressSession session(workspace);
  EXPECT_TRUE(session.isEmpty());
  session.edit(number(0), "P9");
  session.edit(number(1), "S1");
  EXPECT_FALSE(session.isEmpty());
  EXPECT_THAT(session.listedState().statusPanels, ElementsAre("工程编号:P9", "试验日期:"));
}

}  // namespace
}  // namespace triaxlab::testing
