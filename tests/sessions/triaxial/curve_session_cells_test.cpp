// Keys in the table's cells, its copy for spreadsheets, and the values under the mouse.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "sessions/triaxial/hand_made_samples.h"

namespace triaxlab {
namespace {

using testing::StartsWith;

/// Row 0 CU, row 1 UU.
struct CurveSessionCells : testing::Test {
  SessionFixture fixture{cuSample(), uuSample()};
  CurveSession session{fixture.workspace};

  /// The label under Text2 as line and stage; {-1, -1} when it is closed.
  struct Place {
    int line, stage;
    bool operator==(const Place&) const = default;
  };
  Place place() const {
    const OpenCellState text2 = session.state().resultCell;
    if (!text2.visible) return {-1, -1};
    return {text2.cell / kTableColumns, (text2.cell % kTableColumns - 2) / 3};
  }
  void open(int line, int stage) {
    session.showPage(3);
    session.selectTableCell(static_cast<int>(cellAt(line, 2 + 3 * stage)));
  }
  bool press(CellKey key, CursorPlace cursor = {}) { return session.keyInTable(key, cursor); }
};

constexpr CursorPlace kAtEnd{.atStart = false, .atEnd = true}, kAtStart{.atStart = true, .atEnd = false};

TEST_F(CurveSessionCells, DownAndEnterGoALineDownAndUpALineUp) {
  open(0, 1);
  EXPECT_TRUE(press(CellKey::Down));
  EXPECT_EQ(place(), (Place{1, 1}));
  EXPECT_TRUE(press(CellKey::Enter));
  EXPECT_EQ(place(), (Place{2, 1}));
  EXPECT_TRUE(press(CellKey::Up));
  EXPECT_EQ(place(), (Place{1, 1}));
}

TEST_F(CurveSessionCells, WhatFollowsFromTheCurvesIsPassedOver) {
  open(3, 0);  // σ1f′
  EXPECT_TRUE(press(CellKey::Down));
  EXPECT_EQ(place(), (Place{8, 0}));  // h0
  EXPECT_TRUE(press(CellKey::Up));
  EXPECT_EQ(place(), (Place{3, 0}));
}

TEST_F(CurveSessionCells, TheTableScrollsWithTheCell) {
  open(11, 2);  // Ac, on the last line
  EXPECT_TRUE(press(CellKey::Down));
  EXPECT_EQ(session.state().tableTop, 1);
  EXPECT_EQ(place(), (Place{11, 2}));
  press(CellKey::Down);
  press(CellKey::Down);
  EXPECT_EQ(session.state().tableTop, 3);
  EXPECT_EQ(place(), (Place{11, 2}));  // Af
  EXPECT_TRUE(press(CellKey::Down)) << "the end of the table holds the key";
  EXPECT_EQ(place(), (Place{11, 2}));
  for (int i = 0; i < 11; ++i) press(CellKey::Up);
  EXPECT_EQ(session.state().tableTop, 0);
  EXPECT_EQ(place(), (Place{0, 2}));
  EXPECT_TRUE(press(CellKey::Up));
  EXPECT_EQ(place(), (Place{0, 2}));
}

TEST_F(CurveSessionCells, LeftAndRightLeaveTheCellAtTheEndsOfTheText) {
  open(0, 0);
  EXPECT_FALSE(press(CellKey::Right, kAtStart));
  EXPECT_EQ(place(), (Place{0, 0}));
  EXPECT_TRUE(press(CellKey::Right, kAtEnd));
  EXPECT_EQ(place(), (Place{0, 1}));
  EXPECT_FALSE(press(CellKey::Left, kAtEnd));
  EXPECT_TRUE(press(CellKey::Left, kAtStart));
  EXPECT_EQ(place(), (Place{0, 0}));
  EXPECT_FALSE(press(CellKey::Left, kAtStart)) << "there is none before the first";
  EXPECT_EQ(place(), (Place{0, 0}));
}

TEST_F(CurveSessionCells, RightOfTheLastStageLiesTheNextLine) {
  open(3, 4);
  EXPECT_TRUE(press(CellKey::Right, kAtEnd));
  EXPECT_EQ(place(), (Place{8, 0}));
  EXPECT_TRUE(press(CellKey::Left, kAtStart));
  EXPECT_EQ(place(), (Place{3, 4}));
}

TEST_F(CurveSessionCells, OtherKeysAndAClosedBoxDoNothing) {
  EXPECT_FALSE(press(CellKey::Down));
  open(0, 0);
  EXPECT_FALSE(press(CellKey::PageDown));
  EXPECT_EQ(place(), (Place{0, 0}));
  EXPECT_EQ(session.state().tableTop, 0);
}

TEST_F(CurveSessionCells, AKeyEndsTheTyping) {
  open(0, 0);
  session.edit({InputName::ResultCell}, "105 ");
  press(CellKey::Down);
  EXPECT_EQ(session.state().resultCell.text, "160");  // σ1f = 100 + 60
  press(CellKey::Up);
  EXPECT_EQ(session.state().resultCell.text, "105");
  EXPECT_EQ(fixture.sample(0).cellPressure[0].trimmed(), "105");
}

TEST_F(CurveSessionCells, AClosedBoxTellsWhereItWouldOpen) {
  EXPECT_EQ(session.state().resultCell.cell, -1);
  session.showPage(3);
  EXPECT_EQ(session.state().resultCell.cell, static_cast<int>(cellAt(0, 2)));
  session.scrollTable(3);  // begins with σ1f′
  EXPECT_EQ(session.state().resultCell.cell, static_cast<int>(cellAt(0, 2)));
}

// ---- the table as text

TEST_F(CurveSessionCells, ThePageOfStressesAsText) {
  session.scrollTable(200);  // what is scrolled away is there, too
  EXPECT_EQ(session.tableText(),
            "P1\t\t\tP2\t\t\tP3\t\t\tP4\t\t\tP5\t\t\n"
            "垂直应变\tσ1\tσ1-σ3\t垂直应变\tσ1\tσ1-σ3\t垂直应变\tσ1\tσ1-σ3\t垂直应变\tσ1\tσ1-σ3\t垂直应变\tσ1\tσ1-σ3\n"
            "0.40\t130\t30\t0.40\t261\t61\t\t\t\t\t\t\t\t\t\n"
            "0.80\t160\t60\t0.80\t320\t120\t\t\t\t\t\t\t\t\t\n"
            "1.20\t158\t58\t\t\t\t\t\t\t\t\t\t\t\t\n");
}

TEST_F(CurveSessionCells, ARowWithoutAValueKeepsItsPlaceInTheText) {
  SetText(fixture.sample(0).deviatorStress[1][0], "");
  SetText(fixture.sample(0).deviatorStress[1][1], "");
  const std::string text = session.tableText();
  EXPECT_EQ(std::ranges::count(text, '\n'), 2 + 3);
  EXPECT_NE(text.find("\n\t\t\t\t\t\t\t\t\t\t\t\t\t\t\n1.20\t158\t58\t"), std::string::npos) << text;
}

TEST_F(CurveSessionCells, ThePageOfResultsAsText) {
  session.showPage(3);
  const std::string text = session.tableText();
  EXPECT_THAT(text, StartsWith("\tP1\tP2\tP3\tP4\tP5\nσ3\t100\t200\t\t\t\nσ1f\t160\t320\t"));
  EXPECT_EQ(std::ranges::count(text, '\n'), 1 + 15);
}

// ---- the mouse

TEST_F(CurveSessionCells, TheMouseIsToldInValuesOfEachPage) {
  // The canvas place is 1364 of 6000 twips to the right and half of the height up.
  constexpr Point kPlace{2064, 2400};
  // 22 x 1 % to the right: 5.0013. Steps of 10 kPa reach 120, so the axis goes to 140.
  EXPECT_EQ(session.readout(kPlace), "x:5.00%   y:70.0kPa");
  session.showPage(3);
  // ⊙ + R of the second stage is 260 + 60: steps of 15, 330 x 1364 / 6000 = 75.02 and 210 / 2.
  EXPECT_EQ(session.readout(kPlace), "x:75.0kPa   y:105.0kPa");
  session.showPage(4);
  // The largest (σ1′+σ3′)/2 is 210.5: steps of 10.
  EXPECT_EQ(session.readout(kPlace), "x:50.0kPa   y:70.0kPa");
  session.showPage(5);
  EXPECT_EQ(session.readout(kPlace), "x:5.00%   y:35.0kPa");
  session.showPage(6);
  // The largest ratio is 123 / 65 = 1.892: steps of 0.2.
  EXPECT_EQ(session.readout(kPlace), "x:5.00%   y:1.400");
}

TEST_F(CurveSessionCells, BesideThePlotAndInAPhaseNothingIsTold) {
  EXPECT_EQ(session.readout({699, 2400}), "");
  EXPECT_EQ(session.readout({2000, 4301}), "");
  EXPECT_EQ(session.readout({700, 4300}), "x:0.00%   y:0.0kPa");
  session.enterIntervention();
  EXPECT_EQ(session.readout({2000, 2400}), "");
}

}  // namespace
}  // namespace triaxlab
