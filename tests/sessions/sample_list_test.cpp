#include "sessions/sample_list.h"

#include <gtest/gtest.h>

namespace triaxlab {
namespace {

/// 20 lines under two heads.
constexpr SampleList::Shape kWithHeads{.lines = 20, .headLines = 1};

constexpr CursorPlace kInside{false, false}, kAtStart{true, false}, kAtEnd{false, true};

TEST(SampleListCells, BeginsOnTheFirstProject) {
  const SampleList list(kWithHeads);
  EXPECT_EQ(list.cell(), 2);
  EXPECT_EQ(list.line(), 1);
  EXPECT_EQ(list.row(), 0U);
  EXPECT_TRUE(list.onProject());
}

TEST(SampleListCells, RowIsHalfTheLabelLessOnePlusTheScroll) {
  SampleList list(kWithHeads);
  ASSERT_TRUE(list.select(3));
  EXPECT_EQ(list.row(), 0U);
  EXPECT_FALSE(list.onProject());
  ASSERT_TRUE(list.select(8));  // 8 / 2 - 1
  EXPECT_EQ(list.row(), 3U);
  list.scroll(100);
  EXPECT_EQ(list.row(), 103U);
  ASSERT_TRUE(list.select(41));  // 20 - 1 + 100
  EXPECT_EQ(list.row(), 119U);
}

TEST(SampleListCells, HeadsAndWhatIsNoCellAreNotChosen) {
  SampleList list(kWithHeads);
  ASSERT_TRUE(list.select(9));
  for (const int label : {-1, 0, 1, 42, 1000}) {
    EXPECT_FALSE(list.select(label)) << label;
    EXPECT_EQ(list.cell(), 9) << label;
  }
}

TEST(SampleListCells, ScrollIsHeldWhereTheLastRowIsOnTheLastLine) {
  SampleList list(kWithHeads);
  list.scroll(5000);
  EXPECT_EQ(list.top(), 981);
  ASSERT_TRUE(list.select(40));
  EXPECT_EQ(list.row(), 1000U);
  list.scroll(-1);
  EXPECT_EQ(list.top(), 0);
}

TEST(SampleListCells, DownAndEnterGoTwoCellsOnAndScrollAtTheBottom) {
  SampleList list(kWithHeads);
  EXPECT_TRUE(list.key(CellKey::Down, kInside));
  EXPECT_EQ(list.cell(), 4);
  EXPECT_TRUE(list.key(CellKey::Enter, kInside));
  EXPECT_EQ(list.cell(), 6);
  ASSERT_TRUE(list.select(41));
  EXPECT_TRUE(list.key(CellKey::Down, kInside));
  EXPECT_EQ(list.cell(), 41);
  EXPECT_EQ(list.top(), 1);
  EXPECT_EQ(list.row(), 20U);
  list.scroll(981);
  EXPECT_TRUE(list.key(CellKey::Enter, kInside));
  EXPECT_EQ(list.row(), 1000U);
}

TEST(SampleListCells, UpGoesTwoCellsBackAndScrollsAtTheTop) {
  SampleList list(kWithHeads);
  ASSERT_TRUE(list.select(5));
  EXPECT_TRUE(list.key(CellKey::Up, kInside));
  EXPECT_EQ(list.cell(), 3);
  EXPECT_TRUE(list.key(CellKey::Up, kInside));
  EXPECT_EQ(list.row(), 0U);
  list.scroll(7);
  EXPECT_TRUE(list.key(CellKey::Up, kInside));
  EXPECT_EQ(list.cell(), 3);
  EXPECT_EQ(list.row(), 6U);
}

TEST(SampleListCells, LeftAndRightLeaveTheCellAtTheEndsOfTheText) {
  SampleList list(kWithHeads);
  EXPECT_FALSE(list.key(CellKey::Right, kInside));
  EXPECT_FALSE(list.key(CellKey::Right, kAtStart));
  EXPECT_EQ(list.cell(), 2);
  EXPECT_TRUE(list.key(CellKey::Right, kAtEnd));
  EXPECT_EQ(list.cell(), 3);
  EXPECT_FALSE(list.key(CellKey::Left, kAtEnd));
  EXPECT_TRUE(list.key(CellKey::Left, kAtStart));
  EXPECT_EQ(list.cell(), 2);
  EXPECT_FALSE(list.key(CellKey::Left, kAtStart));  // the heads are no cells
  EXPECT_EQ(list.cell(), 2);
  ASSERT_TRUE(list.select(41));
  EXPECT_FALSE(list.key(CellKey::Right, kAtEnd));
  EXPECT_EQ(list.cell(), 41);
}

TEST(SampleListCells, PageKeysScrollByThreeWithinTheRange) {
  SampleList list(kWithHeads);
  ASSERT_TRUE(list.select(10));
  EXPECT_TRUE(list.key(CellKey::PageDown, kInside));
  EXPECT_EQ(list.top(), 3);
  EXPECT_EQ(list.cell(), 10);
  EXPECT_TRUE(list.key(CellKey::PageUp, kInside));
  EXPECT_TRUE(list.key(CellKey::PageUp, kInside));
  EXPECT_EQ(list.top(), 0);
  list.scroll(980);
  EXPECT_TRUE(list.key(CellKey::PageDown, kInside));
  EXPECT_EQ(list.top(), 981);
}

TEST(SampleListCells, FourLinesWithoutHeadsBeginAtTheFirstCell) {
  SampleList list({.lines = 4});
  EXPECT_EQ(list.cell(), 0);
  EXPECT_EQ(list.row(), 0U);
  EXPECT_EQ(list.scrollMax(), 997);
  for (const int cell : {-1, 8}) EXPECT_FALSE(list.select(cell)) << cell;
  ASSERT_TRUE(list.select(7));
  EXPECT_EQ(list.row(), 3U);
  EXPECT_FALSE(list.onProject());
  EXPECT_TRUE(list.key(CellKey::Enter, kInside));
  EXPECT_EQ(list.cell(), 7);
  EXPECT_EQ(list.row(), 4U);
  list.scroll(5000);
  EXPECT_EQ(list.row(), 1000U);
}

}  // namespace
}  // namespace triaxlab
