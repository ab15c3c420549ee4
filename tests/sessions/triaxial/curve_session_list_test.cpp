#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "sessions/triaxial/hand_made_samples.h"

namespace triaxlab {
namespace {

constexpr CursorPlace kInside{false, false}, kAtEnd{false, true};

/// A table in which sample n (from 1) is "S" n of project "GC1", all UU.
struct CurveSessionList : testing::Test {
  Workspace workspace;
  void fill(std::size_t count) {
    for (std::size_t row = 0; row < count; ++row)
      workspace.TriaxialSampleTable[row] = namedSample("GC1", "S" + std::to_string(row + 1), kUU);
  }
};

TEST_F(CurveSessionList, ShowsTheHeadsAndTwentyLines) {
  fill(25);
  const CurveState now = CurveSession(workspace).state();
  ASSERT_EQ(now.list.size(), 21U);
  EXPECT_EQ(now.list[0].number, "序号");
  EXPECT_EQ(now.list[0].project, "工程编号");
  EXPECT_EQ(now.list[0].sample, "土样编号");
  EXPECT_EQ(now.list[1].number, "1");
  EXPECT_EQ(now.list[1].project, "GC1");
  EXPECT_EQ(now.list[1].sample, "S1");
  EXPECT_EQ(now.list[20].number, "20");
  EXPECT_EQ(now.list[20].sample, "S20");
  EXPECT_EQ(now.selectedLine, 1);
  EXPECT_EQ(now.listTop, 0);
}

TEST_F(CurveSessionList, HeadsFollowTheLaboratorysLabels) {
  workspace.settings.habits.projectNoLabel = "合同号";
  workspace.settings.habits.sampleNoLabel = "野外编号";
  const CurveState now = CurveSession(workspace).state();
  EXPECT_EQ(now.list[0].project, "合同号");
  EXPECT_EQ(now.list[0].sample, "野外编号");
  EXPECT_EQ(now.statusPanels[0], "合同号:");
}

TEST_F(CurveSessionList, AnOpenedTableHasNoBoxOverItsFirstCell) {
  fill(2);
  const CurveState now = CurveSession(workspace).state();
  EXPECT_FALSE(now.listCell.visible);
  EXPECT_FALSE(now.resultCell.visible);
}

TEST_F(CurveSessionList, AClickLaysTheBoxOverTheCellAndShowsItsSample) {
  fill(25);
  CurveSession session(workspace);
  session.selectListCell(9);  // line 4, its sample
  CurveState now = session.state();
  EXPECT_TRUE(now.listCell.visible);
  EXPECT_EQ(now.listCell.cell, 9);
  EXPECT_EQ(now.listCell.text, "S4");
  EXPECT_EQ(now.selectedLine, 4);
  EXPECT_EQ(session.sampleRow(), 3U);
  session.selectListCell(8);
  EXPECT_EQ(session.state().listCell.text, "GC1");
  EXPECT_EQ(session.state().statusPanels[0], "工程编号:GC1");
}

TEST_F(CurveSessionList, AClickOnAHeadDoesNothing) {
  fill(2);
  CurveSession session(workspace);
  const auto picture = session.pictureNumber();
  session.selectListCell(0);
  session.selectListCell(1);
  session.selectListCell(42);
  EXPECT_FALSE(session.state().listCell.visible);
  EXPECT_EQ(session.pictureNumber(), picture);
}

TEST_F(CurveSessionList, ScrollingKeepsTheChosenLineSoAnotherSampleComesOnDisplay) {
  fill(25);
  CurveSession session(workspace);
  session.selectListCell(5);
  session.scrollList(4);
  const CurveState now = session.state();
  EXPECT_EQ(now.selectedLine, 2);
  EXPECT_EQ(now.listTop, 4);
  EXPECT_EQ(session.sampleRow(), 5U);
  EXPECT_EQ(now.list[1].number, "5");
  EXPECT_EQ(now.list[2].sample, "S6");
  EXPECT_TRUE(now.listCell.visible);
  EXPECT_EQ(now.listCell.text, "S6");
}

TEST_F(CurveSessionList, TheLastRowCanBeReached) {
  fill(1001);
  CurveSession session(workspace);
  session.selectListCell(41);
  session.scrollList(2000);
  EXPECT_EQ(session.state().listTop, 981);
  EXPECT_EQ(session.state().list[20].number, "1001");
  EXPECT_EQ(session.state().listCell.text, "S1001");
}

TEST_F(CurveSessionList, SamplesBeyondTheVisibleListAreReachedByKeys) {
  fill(25);
  CurveSession session(workspace);
  session.selectListCell(3);
  for (int i = 0; i < 24; ++i) EXPECT_TRUE(session.keyInList(CellKey::Down, kInside));
  EXPECT_EQ(session.state().listCell.text, "S25");
  EXPECT_EQ(session.state().selectedLine, 20);
  EXPECT_EQ(session.state().listTop, 5);
}

TEST_F(CurveSessionList, KeysThatMoveWithinTheTextChangeNothing) {
  fill(2);
  CurveSession session(workspace);
  session.selectListCell(2);
  const auto picture = session.pictureNumber();
  EXPECT_FALSE(session.keyInList(CellKey::Right, kInside));
  EXPECT_EQ(session.pictureNumber(), picture);
  EXPECT_TRUE(session.keyInList(CellKey::Right, kAtEnd));
  EXPECT_EQ(session.state().listCell.cell, 3);
  EXPECT_EQ(session.state().listCell.text, "S1");
}

TEST_F(CurveSessionList, ATextThatIsNoGbkIsShownWithQuestionMarks) {
  fill(1);
  SetText(workspace.TriaxialSampleTable[0].sampleNo, "\xFF-1");
  EXPECT_EQ(CurveSession(workspace).state().list[1].sample, "?-1");
}

TEST_F(CurveSessionList, AnEmptyTableIsReadyForTyping) {
  CurveSession session(workspace);
  const CurveState now = session.state();
  EXPECT_TRUE(now.listCell.visible);
  EXPECT_EQ(now.listCell.cell, 2);
  EXPECT_EQ(now.listCell.text, "");
  EXPECT_EQ(now.list[1].project, "");
  EXPECT_EQ(now.list[20].number, "20");
  EXPECT_EQ(now.statusPanels[0], "工程编号:");
  EXPECT_EQ(now.statusPanels[1], "试验日期:");
  EXPECT_EQ(now.shearMode, "多样剪");
  EXPECT_EQ(now.testMethod, "");
  EXPECT_FALSE(session.isChanged());
}

TEST_F(CurveSessionList, ABlankFirstRowIsShownChosenWhenOthersHoldSamples) {
  workspace.TriaxialSampleTable[1] = namedSample("NJ", "1", kUU);
  CurveSession session(workspace);
  EXPECT_EQ(session.sampleRow(), 0U);
  EXPECT_FALSE(session.state().listCell.visible);
  EXPECT_EQ(session.state().list[2].project, "NJ");
}

TEST_F(CurveSessionList, LoadStartsOverOnTheNewTable) {
  fill(30);
  CurveSession session(workspace);
  session.selectListCell(9);
  session.scrollList(5);
  session.showPage(3);
  session.scrollTable(2);
  session.edit({InputName::SoilName}, "x");
  ASSERT_TRUE(session.isChanged());

  workspace.TriaxialSampleTable.clear();
  workspace.TriaxialSampleTable[0] = namedSample("GC2", "N1", kCU);
  session.load();
  const CurveState now = session.state();
  EXPECT_EQ(session.sampleRow(), 0U);
  EXPECT_EQ(now.listTop, 0);
  EXPECT_EQ(now.selectedLine, 1);
  EXPECT_EQ(now.tableTop, 0);
  EXPECT_EQ(now.currentCurvePage, 1);
  EXPECT_EQ(now.currentTablePage, 3);
  EXPECT_FALSE(now.listCell.visible);
  EXPECT_EQ(now.soilName, "");
  EXPECT_EQ(now.statusPanels[0], "工程编号:GC2");
  EXPECT_FALSE(session.isChanged());
}

TEST_F(CurveSessionList, TheDateIsTheRecordsOrElseItsProjects) {
  fill(2);
  SetText(workspace.TriaxialSampleTable[0].testDate, "2021/03/04");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[1].projectNo, "GC1");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[1].testDate, "2020-01-02");
  CurveSession session(workspace);
  EXPECT_EQ(session.state().statusPanels[1], "试验日期:2021/03/04");
  session.selectListCell(4);
  EXPECT_EQ(session.state().statusPanels[1], "试验日期:2020-01-02");
}

}  // namespace
}  // namespace triaxlab
