#include "sessions/dialogs/browser_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "sessions/dialogs/backup_session.h"
#include "sessions/dialogs/list_range_dialog.h"
#include "sessions/dialogs/sample_list_session.h"
#include "shell/document_operations.h"
#include "shell/fakes.h"
#include "shell/lab.h"

namespace triaxlab {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using testing::FakeDialogs;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Lab;
using testing::sample;

constexpr const char* kNothingChosen = "[打开三轴数据文件] 对不起,你没有选中工程!!";

class Browser : public ::testing::Test {
 protected:
  Browser() { lab.workspace.openDialogKind = 1; }
  BrowserSession browser() { return {lab.workspace, dialogs, opener()}; }
  /// As the shell opens files.
  ProjectOpener opener() {
    return [this](ProjectKind kind, std::string_view name) { return openDocument(lab.workspace, kind, name, {}); };
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
  lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  BrowserSession session = browser();
  session.setCurrentCell(2, 4);
  EXPECT_FALSE(session.opened().has_value());
  EXPECT_TRUE(session.open());
  EXPECT_EQ(session.opened(), Remarks{});
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1].projectNo.trimmed(), "A2");
  EXPECT_FALSE(lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
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

// ---- the other kinds

struct KindOfTest {
  ProjectKind kind;
  std::string caption, listName, openTitle;
};
const KindOfTest kKinds[] = {
    {ProjectKind::Triaxial, "三轴试验数据文件列表", "三轴试验数据表WKSZ(X).TXT ", "打开三轴数据文件"},
    {ProjectKind::OldTriaxial, "三轴试验数据文件列表", "三轴试验数据表KSZ(X).TXT ", "打开三轴数据文件"},
    {ProjectKind::Unconfined, "无侧限试验数据文件列表", "无侧限试验数据表KWCX(X).TXT ", "打开无侧限数据文件"},
    {ProjectKind::K0, "K0试验数据文件列表", "K0试验数据表KO(X).TXT ", "打开KO数据文件"},
    {ProjectKind::TK0, "TK0试验数据文件列表", "TK0试验数据表TKO(X).TXT ", "打开TKO数据文件"},
};

std::vector<std::string> projectsOf(const BrowserSession& session) {
  std::vector<std::string> projects;
  for (int row = 1; !session.cell(row, 1).empty(); ++row) projects.push_back(session.cell(row, 1));
  return projects;
}

class BrowserOfAnyKind : public Browser {
 protected:
  BrowserSession browserOf(ProjectKind kind) {
    lab.workspace.openDialogKind = static_cast<std::int16_t>(kind);
    return {lab.workspace,
            dialogs,
            opener(),
            {.showSampleList = [this](SampleListSession& list) { inList(list); },
             .showBackups = [this](BackupSession& backups) { inBackups(backups); }}};
  }
  std::function<void(BackupSession&)> inBackups = [](BackupSession&) {};
  std::function<void(SampleListSession&)> inList = [](SampleListSession&) {};
};

TEST_F(BrowserOfAnyKind, ListsTheFilesOfItsKindAlone) {
  for (const KindOfTest& kind : kKinds)
    lab.writeSamples(kind.kind, "of-" + std::to_string(static_cast<int>(kind.kind)), {"A"});
  for (const KindOfTest& kind : kKinds) {
    const BrowserSession session = browserOf(kind.kind);
    EXPECT_EQ(session.caption(), kind.caption);
    EXPECT_EQ(session.listName(), kind.listName);
    EXPECT_THAT(projectsOf(session), ElementsAre("of-" + std::to_string(static_cast<int>(kind.kind))));
  }
}

TEST_F(BrowserOfAnyKind, AnEmptyRowShowsTheMessageUnderTheTitleOfItsKind) {
  for (const KindOfTest& kind : kKinds) {
    SetText(lab.workspace.processingDate.year, "2012");
    BrowserSession session = browserOf(kind.kind);
    EXPECT_FALSE(session.open());
    EXPECT_THAT(dialogs.take(), ElementsAre("[" + kind.openTitle + "] 对不起,你没有选中工程!!"));
    EXPECT_FALSE(lab.workspace.processingDate.isSet());
  }
}

TEST_F(BrowserOfAnyKind, AnOldestTriaxialFileOpensIntoTheTriaxialTable) {
  lab.writeSamples(ProjectKind::OldTriaxial, "P1", {"A-1", "A-2"});
  lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  BrowserSession session = browserOf(ProjectKind::OldTriaxial);
  EXPECT_TRUE(session.open());
  ASSERT_TRUE(session.opened().has_value());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1].sampleNo.trimmed(), "A-2");
  EXPECT_FALSE(isLive(lab.workspace.TriaxialSampleTable[2]));
  EXPECT_FALSE(lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
  EXPECT_EQ(documentOfTests(ProjectKind::OldTriaxial).document, kForm1);
}

// ---- sorts

TEST_F(BrowserOfAnyKind, SortsByProjectInTheByteOrderOfGbk) {
  // 甲 is BC D7 and 乙 D2 D2 in GBK, but E7 94 B2 and E4 B9 99 in UTF-8. The folder lists a2 before B1.
  for (const char* project : {"乙", "a2", "甲", "B1"}) lab.writeSamples(ProjectKind::K0, utf8ToGbk(project), {"A"});
  BrowserSession session = browserOf(ProjectKind::K0);
  EXPECT_THAT(projectsOf(session), ElementsAre("a2", "B1", "乙", "甲"));
  session.sortByProject();
  EXPECT_THAT(projectsOf(session), ElementsAre("B1", "a2", "甲", "乙"));
  EXPECT_EQ(session.cell(4, 0), "4") << "numbers are those of the rows";
  session.sortByProject();
  EXPECT_THAT(projectsOf(session), ElementsAre("B1", "a2", "甲", "乙")) << "ascending at every press";
}

TEST_F(BrowserOfAnyKind, SortsByDateAndKeepsTheOrderOfEqualDates) {
  lab.writeSamples(ProjectKind::TK0, "A", {"1"}, "2024/02/01");
  lab.writeSamples(ProjectKind::TK0, "B", {"1"}, "2023/12/31");
  lab.writeSamples(ProjectKind::TK0, "C", {"1"}, "2024/02/01");
  lab.writeSamples(ProjectKind::TK0, "D", {"1"}, "");
  BrowserSession session = browserOf(ProjectKind::TK0);
  session.sortByDate();
  EXPECT_THAT(projectsOf(session), ElementsAre("D", "B", "A", "C"));
}

TEST_F(BrowserOfAnyKind, FileNamesGoAlongWithTheirRows) {
  // The number in the file, by which the rows are sorted, is another than that in its name.
  lab.writeProject("A", {sample("Z", "of file A")});
  lab.writeProject("B", {sample("Y", "of file B")});
  for (const auto& [name, projectNo] : {std::pair{"HSZS/WKSZA.txt", "Z"}, {"HSZS/WKSZB.txt", "Y"}}) {
    std::string bytes = lab.folder.read(name);
    bytes[4] = *projectNo;
    lab.folder.write(name, bytes);
  }
  BrowserSession session = browserOf(ProjectKind::Triaxial);
  session.setCurrentCell(1, 3);
  session.sortByProject();
  EXPECT_THAT(projectsOf(session), ElementsAre("Y", "Z"));
  EXPECT_EQ(session.currentRow(), 2) << "the current project stays so";
  EXPECT_EQ(session.currentColumn(), 3);
  EXPECT_TRUE(session.open());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].sampleNo.trimmed(), "of file A");
}

TEST_F(BrowserOfAnyKind, AnEmptyListIsSortedToo) {
  BrowserSession session = browserOf(ProjectKind::K0);
  session.sortByDate();
  session.sortByProject();
  EXPECT_EQ(session.rowCount(), 1);
}

// ---- the filter

TEST_F(BrowserOfAnyKind, AFilterListsTheProjectsWithItsTextInNumberOrDate) {
  lab.writeSamples(ProjectKind::TK0, "Ab12", {"1"}, "2024/02/01");
  lab.writeSamples(ProjectKind::TK0, "b7", {"1"}, "2023/12/31");
  lab.writeSamples(ProjectKind::TK0, "c", {"1"}, "2024/02/07");
  BrowserSession session = browserOf(ProjectKind::TK0);
  session.setFilter("B");
  EXPECT_THAT(projectsOf(session), ElementsAre("Ab12", "b7"));
  session.setFilter(" 2024/02 ");
  EXPECT_THAT(projectsOf(session), ElementsAre("Ab12", "c"));
  session.setFilter("7");
  EXPECT_THAT(projectsOf(session), ElementsAre("b7", "c"));
  EXPECT_EQ(session.cell(1, 0), "1") << "numbers are those of the rows";
  session.setFilter("");
  EXPECT_THAT(projectsOf(session), ElementsAre("Ab12", "b7", "c"));
}

TEST_F(BrowserOfAnyKind, TheCurrentProjectStaysSoUnderAFilterAndASort) {
  lab.writeSamples(ProjectKind::K0, "A", {"1"}, "2024/02/03");
  lab.writeSamples(ProjectKind::K0, "B", {"1"}, "2024/02/02");
  lab.writeSamples(ProjectKind::K0, "B2", {"1"}, "2024/02/01");
  BrowserSession session = browserOf(ProjectKind::K0);
  session.setCurrentCell(3, 1);
  session.setFilter("B");
  EXPECT_EQ(session.currentRow(), 2);
  session.sortByDate();
  EXPECT_THAT(projectsOf(session), ElementsAre("B2", "B"));
  EXPECT_EQ(session.currentRow(), 1);
  session.setFilter("");
  EXPECT_THAT(projectsOf(session), ElementsAre("B2", "B", "A"));
  EXPECT_TRUE(session.open());
  EXPECT_EQ(lab.workspace.K0SampleTable[0].projectNo.trimmed(), "B2");
}

TEST_F(BrowserOfAnyKind, AFilterThatNothingMatchesShowsOneEmptyRow) {
  lab.writeSamples(ProjectKind::K0, "A", {"1"});
  BrowserSession session = browserOf(ProjectKind::K0);
  session.setFilter("nothing");
  EXPECT_EQ(session.rowCount(), 1);
  EXPECT_FALSE(session.open());
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("没有选中工程")));
  session.setFilter("");
  EXPECT_TRUE(session.open());
}

// ---- backups

TEST_F(BrowserOfAnyKind, ARestoreAsksAndListsAnew) {
  lab.writeSamples(ProjectKind::K0, "P1", {"A", "B"});
  lab.folder.write("HSZS/backup/KOP1_20240504-101112-000000.txt",
                   testing::sampleFileBytes(ProjectKind::K0, "P1", {"A"}));
  BrowserSession session = browserOf(ProjectKind::K0);
  dialogs.answers = {false, true};
  inBackups = [&](BackupSession& backups) {
    EXPECT_EQ(backups.heading(), "工程编号:P1");
    ASSERT_EQ(backups.rowCount(), 1);
    EXPECT_EQ(backups.cell(1, 1), "2024-05-04 10:11:12");
    EXPECT_EQ(backups.cell(1, 2), "1");
    EXPECT_EQ(backups.cell(1, 3), "没有 1 个：B");
    EXPECT_FALSE(backups.restore()) << "no";
    EXPECT_TRUE(backups.restore());
  };
  int listed = 0;
  session.showBackups([&] { ++listed; });
  EXPECT_EQ(listed, 1);
  EXPECT_EQ(session.cell(1, 2), "0001");
  EXPECT_THAT(dialogs.take(),
              ElementsAre(HasSubstr("把“KOP1.txt”恢复成 2024-05-04 10:11:12 的备份吗？\n恢复以后：没有 1 个：B。"),
                          HasSubstr("现在的文件先留一份备份"), "[恢复备份] “KOP1.txt”已恢复。"));
}

TEST_F(BrowserOfAnyKind, AProjectWithoutCopiesHasNothingToRestore) {
  lab.writeSamples(ProjectKind::K0, "P1", {"A"});
  BrowserSession session = browserOf(ProjectKind::K0);
  inBackups = [](BackupSession& backups) {
    EXPECT_EQ(backups.heading(), "工程编号:P1    还没有备份");
    EXPECT_FALSE(backups.canRestore());
    EXPECT_FALSE(backups.restore());
  };
  session.showBackups([] { ADD_FAILURE(); });
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

// ---- sample lists

/// A list's window in which every dialog is accepted as it comes up.
class AcceptingView : public SampleListView {
 public:
  void askForRange(ListRangeDialog& dialog) override { dialog.accept(); }
  void showRowMoves(RowMoves&) override {}
  void refresh() override {}
};
void press(SampleListSession& list, ListAction action) {
  AcceptingView view;
  for (const ListButton& button : list.buttons())
    if (button.action == action) {
      list.press(button, view);
      return;
    }
}

TEST_F(BrowserOfAnyKind, ShowsTheSampleListOfTheCurrentRow) {
  lab.writeSamples(ProjectKind::K0, "P1", {"A"});
  lab.writeSamples(ProjectKind::K0, "P2", {"B", "C"});
  BrowserSession session = browserOf(ProjectKind::K0);
  session.setCurrentCell(2, 1);
  std::vector<std::string> seen;
  inList = [&](SampleListSession& list) {
    seen = {std::string(list.caption()), list.projectLine(), list.line(1).cells[1]};
  };
  int listed = 0;
  session.showSampleList([&] { ++listed; });
  EXPECT_THAT(seen, ElementsAre("K0土样列表", "工程编号:P2", "C"));
  EXPECT_EQ(listed, 1) << "when the list is left";
  EXPECT_THAT(dialogs.shown, IsEmpty());
  EXPECT_FALSE(session.opened().has_value());
}

TEST_F(BrowserOfAnyKind, AnEmptyRowHasNoSampleList) {
  SetText(lab.workspace.processingDate.year, "2012");
  BrowserSession session = browserOf(ProjectKind::TK0);
  inList = [](SampleListSession&) { ADD_FAILURE(); };
  session.showSampleList([] { ADD_FAILURE(); });
  EXPECT_THAT(dialogs.take(), ElementsAre("[打开TKO数据文件] 对不起,你没有选中工程!!"));
  EXPECT_TRUE(lab.workspace.processingDate.isSet()) << "only an open drops the date";
}

TEST_F(BrowserOfAnyKind, AFileThatIsNoProjectHasNoSampleList) {
  lab.folder.write("HSZS/KObad.txt", "no header");
  BrowserSession session = browserOf(ProjectKind::K0);
  inList = [](SampleListSession&) { ADD_FAILURE(); };
  session.showSampleList([] {});
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_THAT(dialogs.shown[0], AllOf(HasSubstr("stop ["), HasSubstr("KObad.txt")));
}

TEST_F(BrowserOfAnyKind, FilesThatAreNeverWrittenHaveNoSampleLists) {
  lab.writeSamples(ProjectKind::OldTriaxial, "P1", {"A"});
  for (const KindOfTest& kind : kKinds)
    EXPECT_EQ(browserOf(kind.kind).hasSampleLists(), kind.kind != ProjectKind::OldTriaxial);
  BrowserSession session = browserOf(ProjectKind::OldTriaxial);
  inList = [](SampleListSession&) { ADD_FAILURE(); };
  session.showSampleList([] { ADD_FAILURE(); });
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(BrowserOfAnyKind, TheProjectsAreListedAnewBehindEachSave) {
  lab.writeSamples(ProjectKind::K0, "A", {"1", "2"}, "2024/02/01");
  lab.writeSamples(ProjectKind::K0, "B", {"1", "2", "3"}, "2024/01/01");
  BrowserSession session = browserOf(ProjectKind::K0);
  session.sortByDate();  // B, A
  session.setCurrentCell(2, 2);
  int listed = 0;
  inList = [&](SampleListSession& list) {
    list.flipMark(0);
    press(list, ListAction::Delete);
    press(list, ListAction::Save);
    EXPECT_EQ(listed, 1);
    EXPECT_EQ(session.cell(2, 2), "0001");
    // Another project has come meanwhile, and goes before both.
    lab.writeSamples(ProjectKind::K0, "C", {"1"}, "2023/01/01");
  };
  session.showSampleList([&] { ++listed; });
  EXPECT_EQ(listed, 2);
  EXPECT_THAT(projectsOf(session), ElementsAre("C", "B", "A")) << "in the order that was chosen";
  EXPECT_EQ(session.cell(session.currentRow(), 1), "A") << "the same project is current";
  EXPECT_EQ(session.currentColumn(), 2);
}

TEST_F(BrowserOfAnyKind, AProjectWhoseSamplesAreAllDeletedIsGone) {
  for (const char* project : {"A", "B"}) lab.writeSamples(ProjectKind::K0, project, {"1"});
  BrowserSession session = browserOf(ProjectKind::K0);
  session.setCurrentCell(2, 1);
  inList = [](SampleListSession& list) {
    list.flipMark(0);
    press(list, ListAction::Delete);
    press(list, ListAction::Save);
  };
  session.showSampleList([] {});
  EXPECT_THAT(projectsOf(session), ElementsAre("A"));
  EXPECT_EQ(session.currentRow(), 1);
  session.showSampleList([] {});
  EXPECT_THAT(projectsOf(session), IsEmpty());
  EXPECT_EQ(session.rowCount(), 1);
}

}  // namespace
}  // namespace triaxlab
