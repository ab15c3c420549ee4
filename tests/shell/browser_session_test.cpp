#include "shell/browser_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "shell/fakes.h"
#include "shell/lab.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using testing::FakeDialogs;
using ::testing::HasSubstr;
using testing::Lab;
using testing::sample;

constexpr const char* kNothingChosen = "[打开三轴数据文件] 对不起,你没有选中工程!!";

class Browser : public ::testing::Test {
 protected:
  Browser() { lab.workspace.openDialogKind = 1; }
  BrowserSession browser() {
    return {lab.workspace, dialogs, [](int count) { return SampleRange{1, count}; }};
  }
  Lab lab;
  FakeDialogs dialogs;
};

TEST_F(Browser, HasTheCaptionsOfItsKind) {
  const BrowserSession session = browser();
  EXPECT_EQ(session.caption(), "三轴试验数据文件列表");
  EXPECT_EQ(session.listName(), "三轴试验数据表WKSZ(X).TXT ");
  EXPECT_EQ(BrowserSession::kOpen, "打开文件\n恢复所选中的工程数据");
  EXPECT_EQ(BrowserSession::kHint, R"(鼠标双击或按"T"键选择要处理的文件)");
}

TEST_F(Browser, HeadsItsColumns) {
  std::vector<std::string> headings;
  std::vector<int> widths;
  for (const GridColumn& column : browser().columns()) {
    headings.push_back(column.heading);
    widths.push_back(column.width);
  }
  EXPECT_THAT(headings, ElementsAre("序号", "工程编号", "试样总数", "创建日期", "处理日期", "操作者"));
  EXPECT_THAT(widths, ElementsAre(700, 2000, 1000, 1500, 1500, 1500));
  lab.workspace.settings.habits.projectNoLabel = "合同号";
  EXPECT_EQ(browser().columns()[1].heading, "合同号");
}

TEST_F(Browser, ListsTheProjectsByFileName) {
  lab.writeProject("b2", {sample("b2", "1"), sample("b2", "2")});
  lab.writeProject("A1", {sample("A1", "1")});
  const BrowserSession session = browser();
  EXPECT_EQ(session.rowCount(), 2);
  std::vector<std::string> first, second;
  for (int column = 0; column < 6; ++column) {
    first.push_back(session.cell(1, column));
    second.push_back(session.cell(2, column));
  }
  EXPECT_THAT(first, ElementsAre("1", "A1", "0001", "2024/01/02", "2024/03/04", "Wang"));
  EXPECT_THAT(second, ElementsAre("2", "b2", "0002", "2024/01/02", "2024/03/04", "Wang"));
}

TEST_F(Browser, AnEmptyFolderShowsOneEmptyRow) {
  const BrowserSession session = browser();
  EXPECT_EQ(session.rowCount(), 1);
  for (int column = 0; column < 6; ++column) EXPECT_EQ(session.cell(1, column), "");
}

TEST_F(Browser, BeginsAtTheFirstDataCellAndStaysInsideTheGrid) {
  lab.writeProject("A1", {sample("A1", "1")});
  lab.writeProject("A2", {sample("A2", "1")});
  BrowserSession session = browser();
  EXPECT_EQ(session.currentRow(), 1);
  EXPECT_EQ(session.currentColumn(), 1);
  session.setCurrentCell(2, 3);
  EXPECT_EQ(session.currentRow(), 2);
  EXPECT_EQ(session.currentColumn(), 3);
  session.setCurrentCell(9, 9);
  EXPECT_EQ(session.currentRow(), 2);
  EXPECT_EQ(session.currentColumn(), 5);
  session.setCurrentCell(0, 0);
  EXPECT_EQ(session.currentRow(), 1);
  EXPECT_EQ(session.currentColumn(), 1);
}

TEST_F(Browser, CellsOutsideTheGridAreEmpty) {
  lab.writeProject("A1", {sample("A1", "1")});
  const BrowserSession session = browser();
  for (const auto& [row, column] : {std::pair{0, 1}, {-1, 1}, {2, 1}, {1, -1}, {1, 6}})
    EXPECT_EQ(session.cell(row, column), "") << row << " " << column;
}

TEST_F(Browser, OpensTheProjectOfTheCurrentRow) {
  lab.writeProject("A1", {sample("A1", "1")});
  lab.writeProject("A2", {sample("A2", "1"), sample("A2", "2")});
  lab.workspace.rawImportPending = true;
  BrowserSession session = browser();
  session.setCurrentCell(2, 4);
  EXPECT_FALSE(session.opened().has_value());
  EXPECT_TRUE(session.open());
  EXPECT_EQ(session.opened(), Remarks{});
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1].projectNo.trimmed(), "A2");
  EXPECT_FALSE(lab.workspace.rawImportPending);
  EXPECT_EQ(lab.workspace.processingDate.year.view(), "2024");
  EXPECT_EQ(lab.workspace.processingDate.month.view(), "03");
}

TEST_F(Browser, AnEmptyRowShowsTheMessageAndStays) {
  SetText(lab.workspace.processingDate.year, "2012");
  lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
  BrowserSession session = browser();
  EXPECT_FALSE(session.open());
  EXPECT_THAT(dialogs.take(), ElementsAre(kNothingChosen));
  EXPECT_FALSE(session.opened().has_value());
  EXPECT_TRUE(isLive(lab.workspace.TriaxialSampleTable[0]));
  EXPECT_FALSE(lab.workspace.processingDate.isSet()) << "the date fields are blanked before the row is looked at";
}

TEST_F(Browser, ARowIsEmptyWhenItsProjectNumberIs) {
  lab.writeProject("A1", {sample("A1", "1")});
  auto header = lab.folder.read("HSZS/WKSZA1.txt");
  header.replace(4, 15, 15, ' ');
  lab.folder.write("HSZS/WKSZA1.txt", header);
  EXPECT_FALSE(browser().open());
  EXPECT_THAT(dialogs.take(), ElementsAre(kNothingChosen));
}

TEST_F(Browser, AFileThatIsNoProjectIsListedByNameAndRefused) {
  lab.folder.write("HSZS/WKSZbad.txt", "no header");
  lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
  SetText(lab.workspace.processingDate.year, "2012");
  BrowserSession session = browser();
  EXPECT_EQ(session.cell(1, 1), "WKSZbad.txt");
  EXPECT_EQ(session.cell(1, 2), "");
  EXPECT_FALSE(session.open());
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_THAT(dialogs.shown[0], HasSubstr("stop ["));
  EXPECT_THAT(dialogs.shown[0], HasSubstr("WKSZbad.txt"));
  EXPECT_TRUE(isLive(lab.workspace.TriaxialSampleTable[0])) << "the table is as it was";
  EXPECT_EQ(lab.workspace.processingDate.year.trimmed(), "2012");
}

TEST_F(Browser, MoreSamplesThanTheTableHoldsAreRefused) {
  lab.writeProject("A1", {sample("A1", "1")});
  auto bytes = lab.folder.read("HSZS/WKSZA1.txt");
  bytes.replace(0, 4, "2000");
  lab.folder.write("HSZS/WKSZA1.txt", bytes);
  lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
  EXPECT_FALSE(browser().open());
  EXPECT_THAT(dialogs.take(), ElementsAre("stop [QVB三轴试验数据处理] 一次最多只能打开1001个试样"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

TEST_F(Browser, AProjectThatWentAwayIsRefusedByName) {
  lab.writeProject("A1", {sample("A1", "1")});
  BrowserSession session = browser();
  std::filesystem::remove(lab.folder.path() / "HSZS" / "WKSZA1.txt");
  EXPECT_FALSE(session.open());
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_THAT(dialogs.shown[0], HasSubstr("WKSZA1.txt"));
}

}  // namespace
}  // namespace triaxlab
