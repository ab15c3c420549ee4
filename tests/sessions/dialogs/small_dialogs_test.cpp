// The values behind Form21, Form16 and Form10.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "common/gbk.h"
#include "sessions/dialogs/list_range_dialog.h"
#include "sessions/dialogs/overwrite_session.h"
#include "sessions/dialogs/range_dialog.h"
#include "shell/lab.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using testing::sample;

std::pair<int, int> rangeOf(std::string first, std::string last) {
  RangeDialog dialog(150);
  dialog.first = std::move(first);
  dialog.last = std::move(last);
  const SampleRange range = dialog.range();
  return {range.first, range.last};
}

TEST(RangeDialog, BeginsWithTheWholeFile) {
  const RangeDialog dialog(150);
  EXPECT_EQ(dialog.first, "1");
  EXPECT_EQ(dialog.last, "150");
  EXPECT_EQ(RangeDialog::kAccept, "确  定");
}

TEST(RangeDialog, CutsExchangesAndLimitsTheNumbers) {
  EXPECT_EQ(rangeOf("5", "3"), std::pair(3, 5));
  EXPECT_EQ(rangeOf("1", "5000"), std::pair(1, 2000));
  EXPECT_EQ(rangeOf("0", "3"), std::pair(1, 3));
  EXPECT_EQ(rangeOf("-7", "3"), std::pair(1, 3));
  EXPECT_EQ(rangeOf("9000", "99999"), std::pair(9000, 10000));
  EXPECT_EQ(rangeOf("1E9", "20000"), std::pair(10000, 10000));
}

TEST(RangeDialog, ReadsNumbersAsFarAsTheyGo) {
  EXPECT_EQ(rangeOf("", "x"), std::pair(1, 1));
  EXPECT_EQ(rangeOf(" 12个", "20.6"), std::pair(12, 21));
}

ListRange listRangeOf(std::string first, std::string last, std::size_t rowCount) {
  ListRangeDialog dialog = ListRangeDialog::forSort("升序排序", rowCount);
  dialog.first = std::move(first);
  dialog.last = std::move(last);
  return dialog.range(rowCount);
}

TEST(ListRangeDialog, BeginsWithTheWholeListForASort) {
  const ListRangeDialog dialog = ListRangeDialog::forSort("升序排序", 20);
  EXPECT_EQ(dialog.first, "1");
  EXPECT_EQ(dialog.last, "20");
  EXPECT_EQ(dialog.range(20), (ListRange{1, 20}));
  EXPECT_FALSE(dialog.isAccepted());
}

TEST(ListRangeDialog, BeginsWithoutARangeForADeletion) {
  const ListRangeDialog dialog = ListRangeDialog::forDeletion("删除");
  const ListRange range = dialog.range(20);
  EXPECT_LT(range.last, range.first);
}

TEST(ListRangeDialog, CutsAndExchangesTheNumbers) {
  EXPECT_EQ(listRangeOf("1", "9999", 20), (ListRange{1, 20}));
  EXPECT_EQ(listRangeOf("1", "1E300", 20), (ListRange{1, 20}));
  EXPECT_EQ(listRangeOf("7", "3", 20), (ListRange{3, 7}));
  EXPECT_EQ(listRangeOf("-4", "3", 20), (ListRange{1, 3}));
  EXPECT_EQ(listRangeOf(" 2号", "x4", 20), (ListRange{1, 2})) << "2 and 0";
}

class Overwrite : public ::testing::Test {
 protected:
  Overwrite() {
    for (std::size_t row = 0; row < 30; ++row) {
      workspace.TriaxialSampleTable[row] = sample("P1", std::to_string(row + 1));
      if (row % 2 == 0) known.push_back({row});  // samples 1, 3, 5 ... 29
    }
  }
  OverwriteSession session(std::size_t count) {
    return {workspace, {known.begin(), known.begin() + static_cast<std::ptrdiff_t>(count)}};
  }
  Workspace workspace;
  std::vector<KnownSample> known;
};

using Line = OverwriteSession::Line;

TEST_F(Overwrite, ListsTheKnownSamples) {
  const OverwriteSession form10 = session(3);
  EXPECT_EQ(form10.rowCount(), 3);
  EXPECT_EQ(form10.line(0), (Line{"1", "1", {}, {}, "覆盖"}));
  EXPECT_EQ(form10.line(2), (Line{"3", "5", {}, {}, "覆盖"}));
  EXPECT_EQ(form10.line(3), Line{});
  EXPECT_EQ(form10.line(-1), Line{});
}

TEST_F(Overwrite, HeadsTheSampleColumnWithTheLaboratorysLabel) {
  EXPECT_THAT(session(1).headings(),
              ElementsAre("序号", "土样编号", "已存围压", "已存土样名称", "导入围压", "导入土样名称", ""));
  workspace.settings.habits.sampleNoLabel = "室内编号";
  EXPECT_EQ(session(1).headings()[1], "室内编号");
}

TEST_F(Overwrite, ShowsNumbersInChinese) {
  SetText(workspace.TriaxialSampleTable[0].sampleNo, *utf8ToGbkExactly("土1"));
  EXPECT_EQ(session(1).line(0).sampleNo, "土1");
}

TEST_F(Overwrite, AClickTurnsTheAnswerOver) {
  OverwriteSession form10 = session(3);
  form10.flip(1);
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).keepExisting[2]);
  EXPECT_EQ(form10.line(1).answer, "不覆盖");
  form10.flip(1);
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).keepExisting[2]);
  EXPECT_EQ(form10.line(1).answer, "覆盖");
}

TEST_F(Overwrite, AClickOutsideTheListDoesNothing) {
  OverwriteSession form10 = session(3);
  for (const int index : {-1, 3, 19, 20, 100}) form10.flip(index);
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).keepExisting.none());
}

TEST_F(Overwrite, AllAndNoneReachTheListedRowsAlone) {
  OverwriteSession form10 = session(3);
  form10.keepAll();
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).keepExisting.count(), 3U);
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).keepExisting[0] &&
              workspace.dataOf(ProjectKind::Triaxial).keepExisting[2] &&
              workspace.dataOf(ProjectKind::Triaxial).keepExisting[4]);
  form10.overwriteAll();
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).keepExisting.none());
}

TEST_F(Overwrite, ScrollsAListOfMoreThanTwentyRows) {
  for (std::size_t row = 30; row < 60; row += 2) {
    workspace.TriaxialSampleTable[row] = sample("P1", std::to_string(row + 1));
    known.push_back({row});
  }
  OverwriteSession form10 = session(25);
  EXPECT_EQ(form10.largestScroll(), 5);
  form10.setScroll(9);
  EXPECT_EQ(form10.scroll(), 5);
  EXPECT_EQ(form10.line(0), (Line{"6", "11", {}, {}, "覆盖"}));
  EXPECT_EQ(form10.line(19), (Line{"25", "49", {}, {}, "覆盖"}));
  form10.flip(0);
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).keepExisting[10]);
  form10.setScroll(-3);
  EXPECT_EQ(form10.scroll(), 0);
}

TEST_F(Overwrite, AShortOrEmptyListDoesNotScroll) {
  EXPECT_EQ(session(15).largestScroll(), 0);
  OverwriteSession empty = session(0);
  EXPECT_EQ(empty.rowCount(), 0);
  empty.setScroll(1);
  EXPECT_EQ(empty.scroll(), 0);
  EXPECT_EQ(empty.line(0).sampleNo, "没有已保存的土样");
  EXPECT_EQ(empty.line(1), Line{});
  empty.flip(0);
  empty.keepAll();
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).keepExisting.none());
}

}  // namespace
}  // namespace triaxlab
