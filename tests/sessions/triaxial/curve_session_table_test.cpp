#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sessions/triaxial/hand_made_samples.h"

namespace triaxlab {
namespace {

using testing::Each;
using testing::ElementsAre;

/// Row 0 CU, row 1 UU.
struct CurveSessionTable : testing::Test {
  SessionFixture fixture{cuSample(), uuSample()};
  CurveSession session{fixture.workspace};
  TriaxialSampleRecord& sample = fixture.sample(0);

  void showTable(int page) {
    while (session.state().currentTablePage != page) session.nextTablePage();
  }
  std::string cell(int line, int column) const { return session.state().tableCells.at(cellAt(line, column)); }
  /// The three columns of a stage on a line.
  std::vector<std::string> stage(int line, int number) const {
    const int first = 1 + 3 * number;
    return {cell(line, first), cell(line, first + 1), cell(line, first + 2)};
  }
  std::vector<std::string> heads() const {
    const CurveState now = session.state();
    return {now.columnHeads.begin(), now.columnHeads.begin() + 4};
  }
};

TEST_F(CurveSessionTable, StressesAgainstStrain) {
  showTable(3);
  EXPECT_THAT(heads(), ElementsAre("", "垂直应变", "σ1", "σ1-σ3"));
  EXPECT_EQ(session.state().columnHeads[14], "σ1");
  EXPECT_THAT(stage(0, 0), ElementsAre("0.40", "130", "30"));
  EXPECT_THAT(stage(1, 0), ElementsAre("0.80", "160", "60"));
  EXPECT_THAT(stage(1, 1), ElementsAre("0.80", "320", "120"));
  EXPECT_THAT(stage(3, 0), ElementsAre("", "", ""));
  EXPECT_THAT(stage(0, 4), ElementsAre("", "", ""));
}

TEST_F(CurveSessionTable, CircleOfARow) {
  showTable(2);
  EXPECT_THAT(heads(), ElementsAre("", "垂直应变", "(σ1-σ3)/2", "(σ1+σ3)/2"));
  EXPECT_THAT(stage(0, 0), ElementsAre("0.40", "15", "115"));  // 30 / 2, (200 + 30) / 2
  EXPECT_THAT(stage(0, 1), ElementsAre("0.40", "31", "231"));  // 30.5 and 230.5, half away from zero
}

TEST_F(CurveSessionTable, PorePressureAndRatio) {
  showTable(4);
  EXPECT_THAT(heads(), ElementsAre("", "垂直应变", "孔隙压力(kPa)", "σ1′/σ3′"));
  EXPECT_THAT(stage(0, 0), ElementsAre("0.40", "10", "1.333"));  // 120 / 90
  EXPECT_THAT(stage(1, 0), ElementsAre("0.80", "30", "1.857"));  // 130 / 70
  SetText(sample.porePressure[0][0], "0");
  SetText(sample.sigma3Eff[0][0], "0");
  session.scrollTable(0);
  EXPECT_THAT(stage(0, 0), ElementsAre("0.40", "", ""));
}

TEST_F(CurveSessionTable, EffectivePathOfARow) {
  showTable(5);
  EXPECT_THAT(heads(), ElementsAre("", "垂直应变", "(σ1′-σ3′)/2", "(σ1′+σ3′)/2"));
  EXPECT_THAT(stage(0, 0), ElementsAre("0.40", "15", "105"));  // (120 - 90) / 2, (120 + 90) / 2
  // (241 - 180) / 2 = 30.5 goes through an integer, ties to even: 30. (241 + 180) / 2 = 210.5 doesn't: 211.
  EXPECT_THAT(stage(0, 1), ElementsAre("0.40", "30", "211"));
}

TEST_F(CurveSessionTable, EffectiveStressesAsStored) {
  showTable(6);
  EXPECT_THAT(heads(), ElementsAre("", "垂直应变", "σ3′", "σ1′"));
  EXPECT_THAT(stage(1, 1), ElementsAre("0.80", "140", "260"));
}

TEST_F(CurveSessionTable, ARowWithoutStressIsBlankAndKeepsItsPlace) {
  SetText(sample.deviatorStress[0][0], "0");
  session.scrollTable(0);
  EXPECT_THAT(stage(0, 0), ElementsAre("", "", ""));
  EXPECT_THAT(stage(1, 0), ElementsAre("0.80", "160", "60"));
}

TEST_F(CurveSessionTable, RowsScrollToTheLastReading) {
  sample.axialStrain[211][0] = 21.5F;
  SetText(sample.deviatorStress[211][0], "77");
  session.scrollTable(1);
  EXPECT_THAT(stage(0, 0), ElementsAre("0.80", "160", "60"));
  EXPECT_EQ(session.state().tableScrollMax, 200);
  session.scrollTable(5000);
  EXPECT_EQ(session.state().tableTop, 200);
  EXPECT_THAT(stage(11, 0), ElementsAre("21.50", "177", "77"));
  session.scrollTable(-3);
  EXPECT_EQ(session.state().tableTop, 0);
}

TEST_F(CurveSessionTable, ResultsOfTheFiveStages) {
  // σ1f = 60 + 100; ⊙ = (200 + 60) / 2; R = 30; ⊙′ = (200 + 60 - 2 × 30) / 2.
  SetText(sample.initialHeight[0], "12.50");
  SetText(sample.consolidatedHeight[0], "12.41");
  SetText(sample.initialArea[0], "30.00");
  SetText(sample.consolidatedArea[0], "29.85");
  SetText(sample.consolidationDrainage[1], "1.20");
  sample.coefficientB[0] = 0.956F;
  sample.coefficientAf[1] = -0.25F;
  session.showPage(3);
  EXPECT_EQ(session.state().tableScrollMax, 3);
  EXPECT_THAT(heads(), Each(""));
  constexpr std::array<const char*, 12> kLabels{"σ3", "σ1f", "σ3f′", "σ1f′", "⊙",  "R",
                                                "⊙′", "R′",  "h0",   "h1",   "A0", "Ac"};
  constexpr std::array<const char*, 12> kFirst{"100", "160", "70",    "130",   "130",   "30",
                                               "100", "30",  "12.50", "12.41", "30.00", "29.85"};
  for (int line = 0; line < 12; ++line) {
    EXPECT_EQ(cell(line, 0), kLabels.at(static_cast<std::size_t>(line)));
    EXPECT_THAT(stage(line, 0), ElementsAre("", kFirst.at(static_cast<std::size_t>(line)), ""));
  }
  EXPECT_EQ(cell(1, 5), "320");
  session.scrollTable(3);
  EXPECT_EQ(cell(0, 0), "σ1f′");
  EXPECT_EQ(cell(9, 0), "ΔV");
  EXPECT_EQ(cell(9, 5), "1.20");
  EXPECT_EQ(cell(10, 0), "B");
  EXPECT_EQ(cell(10, 2), "0.96");
  EXPECT_EQ(cell(11, 0), "Af");
  EXPECT_EQ(cell(11, 5), "-0.25");
  EXPECT_EQ(cell(11, 2), "0.00");
}

TEST_F(CurveSessionTable, GoingBetweenResultsAndCurvesStartsAtTheTop) {
  session.scrollTable(150);
  showTable(4);
  EXPECT_EQ(session.state().tableTop, 150);
  showTable(1);
  EXPECT_EQ(session.state().tableTop, 0);
  session.scrollTable(3);
  showTable(2);
  EXPECT_EQ(session.state().tableTop, 0);
}

/// An editable value of the results page.
struct ResultEdit {
  int row;
  std::size_t offset;  // in the record, of stage 0
  std::size_t width;
};

TEST_F(CurveSessionTable, EachResultIsTypedIntoItsField) {
  const std::vector<ResultEdit> edits{
      {0, offsetof(TriaxialSampleRecord, cellPressure), 6},
      {1, offsetof(TriaxialSampleRecord, sigma1Failure), 6},
      {2, offsetof(TriaxialSampleRecord, sigma3FailureEff), 6},
      {3, offsetof(TriaxialSampleRecord, sigma1FailureEff), 6},
      {8, offsetof(TriaxialSampleRecord, initialHeight), 6},
      {9, offsetof(TriaxialSampleRecord, consolidatedHeight), 6},
      {10, offsetof(TriaxialSampleRecord, initialArea), 6},
      {11, offsetof(TriaxialSampleRecord, consolidatedArea), 6},
      {12, offsetof(TriaxialSampleRecord, consolidationDrainage), 6},
  };
  session.showPage(3);
  for (const auto& [row, offset, width] : edits)
    for (int number = 0; number < 5; ++number) {
      const int top = row < 12 ? 0 : 3;
      session.scrollTable(top);
      session.markSaved();
      session.selectTableCell(static_cast<int>(cellAt(row - top, 2 + 3 * number)));
      ASSERT_TRUE(session.state().resultCell.visible) << row;
      EXPECT_EQ(session.state().resultCell.cell, static_cast<int>(cellAt(row - top, 2 + 3 * number)));
      const std::string typed = std::to_string(1000 + 10 * row + number);
      session.edit({InputName::ResultCell}, typed + "56789");
      const auto* places = reinterpret_cast<const char*>(&sample) + offset + width * static_cast<std::size_t>(number);
      EXPECT_EQ(std::string(places, width), (typed + "56789").substr(0, width));
      EXPECT_EQ(session.state().resultCell.text, (typed + "56789").substr(0, width));
      EXPECT_EQ(cell(row - top, 2 + 3 * number), (typed + "56789").substr(0, width));
      EXPECT_TRUE(session.isChanged());
    }
}

TEST_F(CurveSessionTable, CoefficientsAreTypedAsNumbers) {
  session.showPage(3);
  session.scrollTable(3);
  session.selectTableCell(static_cast<int>(cellAt(10, 2)));  // B of the first stage
  EXPECT_EQ(session.state().resultCell.text, "0.00");
  session.edit({InputName::ResultCell}, "0.876");
  EXPECT_EQ(static_cast<float>(sample.coefficientB[0]), 0.876F);
  EXPECT_EQ(session.state().resultCell.text, "0.876");
  EXPECT_EQ(cell(10, 2), "0.88");
  session.finishTyping();
  EXPECT_EQ(session.state().resultCell.text, "0.88");
  session.selectTableCell(static_cast<int>(cellAt(11, 14)));  // Af of the last
  session.edit({InputName::ResultCell}, "-.5");
  EXPECT_EQ(static_cast<float>(sample.coefficientAf[4]), -0.5F);
  session.edit({InputName::ResultCell}, "1e99");  // no float
  EXPECT_EQ(static_cast<float>(sample.coefficientAf[4]), -0.5F);
  session.edit({InputName::ResultCell}, "");
  EXPECT_EQ(static_cast<float>(sample.coefficientAf[4]), 0.0F);
}

TEST_F(CurveSessionTable, WhatFollowsFromTheCurvesIsNotTyped) {
  session.showPage(3);
  for (int row = 4; row <= 7; ++row) {
    session.selectTableCell(static_cast<int>(cellAt(row, 2)));
    EXPECT_FALSE(session.state().resultCell.visible) << row;
  }
}

TEST_F(CurveSessionTable, OnlyTheCellsOfTheResultsOpenTheBox) {
  session.selectTableCell(static_cast<int>(cellAt(0, 2)));
  EXPECT_FALSE(session.state().resultCell.visible);  // the page of stresses
  session.showPage(3);
  for (const int label : {-1, 0, 1, 3, 192, 5000}) {
    session.selectTableCell(static_cast<int>(cellAt(0, 2)));
    ASSERT_TRUE(session.state().resultCell.visible);
    session.selectTableCell(label);
    EXPECT_FALSE(session.state().resultCell.visible) << label;
  }
}

TEST_F(CurveSessionTable, TheBoxClosesWithItsCell) {
  const auto open = [this] {
    session.showPage(3);
    session.selectTableCell(static_cast<int>(cellAt(0, 2)));
    ASSERT_TRUE(session.state().resultCell.visible);
  };
  open();
  session.scrollTable(1);
  EXPECT_FALSE(session.state().resultCell.visible);
  open();
  session.nextTablePage();
  EXPECT_FALSE(session.state().resultCell.visible);
  open();
  session.selectListCell(4);
  EXPECT_FALSE(session.state().resultCell.visible);
}

TEST_F(CurveSessionTable, AnEditedPressureMovesNoFailureValueUntilThePageIsDrawn) {
  session.showPage(3);
  session.selectTableCell(static_cast<int>(cellAt(0, 2)));
  session.edit({InputName::ResultCell}, "110");
  EXPECT_EQ(cell(0, 2), "110");
  EXPECT_EQ(cell(1, 2), "160");
  EXPECT_EQ(session.state().cellPressure[0], "110");
  session.showPage(3);
  EXPECT_EQ(cell(1, 2), "170");  // 60 + 110
}

TEST_F(CurveSessionTable, APressureTypedBesideTheCanvasHasNoEffectUntilTheSampleIsShown) {
  session.edit({InputName::CellPressure, 0}, "110");
  EXPECT_THAT(stage(0, 0), ElementsAre("0.40", "130", "30"));
  session.showPage(1);
  EXPECT_THAT(stage(0, 0), ElementsAre("0.40", "140", "30"));
}

TEST_F(CurveSessionTable, AnEmptyTableHasLabelsAndZeroCoefficientsOnly) {
  Workspace empty;
  CurveSession typing(empty);
  EXPECT_THAT(typing.state().tableCells, Each(""));
  typing.showPage(3);
  EXPECT_EQ(typing.state().tableCells[0], "σ3");
  EXPECT_EQ(typing.state().tableCells[2], "");
}

}  // namespace
}  // namespace triaxlab
