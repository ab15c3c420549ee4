#include "sessions/reading_grid.h"

#include <gtest/gtest.h>

namespace triaxlab {
namespace {

/// Four lines of six columns over 51 rows.
constexpr ReadingGrid::Shape kShape{.lines = 4, .columns = 6, .rows = 51};

constexpr CursorPlace kInside{false, false}, kAtStart{true, false}, kAtEnd{false, true};

TEST(ReadingGridCells, BeginAtTheFirstReading) {
  const ReadingGrid grid(kShape);
  EXPECT_EQ(grid.cell(), 0);
  EXPECT_EQ(grid.top(), 0);
  EXPECT_EQ(grid.cellCount(), 24);
  EXPECT_EQ(grid.scrollMax(), 47);
}

TEST(ReadingGridCells, RowAndColumnFollowTheCellAndTheScroll) {
  ReadingGrid grid(kShape);
  EXPECT_EQ(grid.rowOf(20), 3U);  // 20 = 3 x 6 + 2
  EXPECT_EQ(grid.columnOf(20), 2U);
  grid.scroll(47);
  EXPECT_EQ(grid.rowOf(20), 50U);
  EXPECT_EQ(grid.columnOf(20), 2U);
}

TEST(ReadingGridCells, WhatIsNoCellIsNotChosen) {
  ReadingGrid grid(kShape);
  ASSERT_TRUE(grid.select(23));
  for (const int cell : {-1, 24, 1000}) {
    EXPECT_FALSE(grid.select(cell)) << cell;
    EXPECT_EQ(grid.cell(), 23) << cell;
  }
}

TEST(ReadingGridCells, ScrollingKeepsTheCellAndIsHeldWithinTheRows) {
  ReadingGrid grid(kShape);
  ASSERT_TRUE(grid.select(9));
  grid.scroll(5000);
  EXPECT_EQ(grid.top(), 47);
  EXPECT_EQ(grid.cell(), 9);
  grid.scroll(-3);
  EXPECT_EQ(grid.top(), 0);
}

TEST(ReadingGridCells, DownAndEnterGoALineOnAndScrollAtTheBottom) {
  ReadingGrid grid(kShape);
  EXPECT_TRUE(grid.key(CellKey::Down, kInside));
  EXPECT_EQ(grid.cell(), 6);
  ASSERT_TRUE(grid.select(19));
  EXPECT_TRUE(grid.key(CellKey::Enter, kInside));
  EXPECT_EQ(grid.cell(), 19);
  EXPECT_EQ(grid.top(), 1);
  grid.scroll(47);
  EXPECT_TRUE(grid.key(CellKey::Enter, kInside));
  EXPECT_EQ(grid.rowOf(grid.cell()), 50U);
}

TEST(ReadingGridCells, UpGoesALineBackAndScrollsAtTheTop) {
  ReadingGrid grid(kShape);
  ASSERT_TRUE(grid.select(8));
  EXPECT_TRUE(grid.key(CellKey::Up, kInside));
  EXPECT_EQ(grid.cell(), 2);
  grid.scroll(10);
  EXPECT_TRUE(grid.key(CellKey::Up, kInside));
  EXPECT_EQ(grid.cell(), 2);
  EXPECT_EQ(grid.top(), 9);
}

TEST(ReadingGridCells, LeftAndRightLeaveTheCellAtTheEndsOfTheText) {
  ReadingGrid grid(kShape);
  EXPECT_FALSE(grid.key(CellKey::Right, kInside));
  EXPECT_FALSE(grid.key(CellKey::Right, kAtStart));
  EXPECT_TRUE(grid.key(CellKey::Right, kAtEnd));
  EXPECT_EQ(grid.cell(), 1);
  EXPECT_FALSE(grid.key(CellKey::Left, kAtEnd));
  EXPECT_TRUE(grid.key(CellKey::Left, kAtStart));
  EXPECT_FALSE(grid.key(CellKey::Left, kAtStart));  // in front of the first is none
  ASSERT_TRUE(grid.select(5));
  EXPECT_TRUE(grid.key(CellKey::Right, kAtEnd));
  EXPECT_EQ(grid.cell(), 6);  // the first of the next line
  ASSERT_TRUE(grid.select(23));
  EXPECT_FALSE(grid.key(CellKey::Right, kAtEnd));
}

TEST(ReadingGridCells, PageKeysBelongToTheText) {
  ReadingGrid grid(kShape);
  EXPECT_FALSE(grid.key(CellKey::PageUp, kAtStart));
  EXPECT_FALSE(grid.key(CellKey::PageDown, kAtEnd));
  EXPECT_EQ(grid.top(), 0);
}

}  // namespace
}  // namespace triaxlab
