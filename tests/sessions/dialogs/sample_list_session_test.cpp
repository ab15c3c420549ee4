// The sample lists Form14 and Form13: what they show, sort, move, remove and save.
#include "sessions/dialogs/sample_list_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "sessions/dialogs/list_range_dialog.h"
#include "sessions/dialogs/row_moves.h"
#include "shell/fakes.h"
#include "shell/lab.h"
#include "store/project/rewrite_list.h"
#include "store/summary/summary_record.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// The list's window: its dialogs do what the test has put into their functions.
class FakeView : public SampleListView {
 public:
  std::function<void(ListRangeDialog&)> inRange = [](ListRangeDialog& dialog) { dialog.accept(); };
  std::function<void(RowMoves&)> inMoves = [](RowMoves&) {};
  int refreshes = 0;

  void askForRange(ListRangeDialog& dialog) override { inRange(dialog); }
  void showRowMoves(RowMoves& moves) override { inMoves(moves); }
  void refresh() override { ++refreshes; }
};

class SampleList : public ::testing::Test {
 protected:
  SampleListSession listOf(ProjectKind kind, const std::vector<std::string>& sampleNumbers) {
    fileName = lab.writeSamples(kind, "P1", sampleNumbers);
    return open(kind);
  }
  SampleListSession open(ProjectKind kind) {
    return {lab.workspace, dialogs, kind, fileName, "P1", [this] { ++saves; }};
  }
  SampleListSession triaxialList(const std::vector<std::string>& sampleNumbers) {
    return listOf(ProjectKind::Triaxial, sampleNumbers);
  }

  /// Presses the button of that caption. True when the list is to close.
  bool press(SampleListSession& session, std::string_view caption) {
    for (const ListButton& button : session.buttons())
      if (button.caption == caption) return session.press(button, view);
    ADD_FAILURE() << "no button " << caption;
    return false;
  }
  /// Sorts the rows of the range, the whole list by default.
  void sort(SampleListSession& session, std::string_view caption, SortMethod method, const std::string& first = "1",
            const std::string& last = "9999") {
    view.inRange = [=](ListRangeDialog& dialog) {
      dialog.first = first;
      dialog.last = last;
      dialog.method = method;
      dialog.accept();
    };
    press(session, caption);
  }
  void remove(SampleListSession& session, const std::string& first, const std::string& last) {
    view.inRange = [=](ListRangeDialog& dialog) {
      dialog.first = first;
      dialog.last = last;
      dialog.accept();
    };
    press(session, "删 除");
  }

  /// The texts of a column, down to the end of the list.
  static std::vector<std::string> column(SampleListSession& session, std::size_t column) {
    std::vector<std::string> texts;
    for (int row = 0; row < session.rowCount(); ++row) {
      session.setScroll(row);
      texts.push_back(session.line(row - session.scroll()).cells.at(column));
    }
    session.setScroll(0);
    return texts;
  }
  static std::vector<std::string> samples(SampleListSession& session) { return column(session, 1); }

  std::string fileContent(ProjectKind kind) const {
    return contentOfSampleFile(kind, lab.folder.read("HSZS/" + fileName));
  }
  bool isFileThere() const { return fileExists(lab.folder.path() / "HSZS" / fileName); }

  void writeSummary(const std::vector<std::array<std::string, 3>>& samples) const {
    SummaryHeader header;
    SetText(header.sampleCount, FormatPadded(static_cast<int>(samples.size()), 4));
    SetText(header.projectNo, "P1");
    std::string bytes;
    append(bytes, bytesOf(header));
    for (const auto& [sampleNo, boreholeNo, depth] : samples) {
      SummaryRecord record;
      SetText(record.sampleNo, sampleNo);
      SetText(record.boreholeNo, boreholeNo);
      SetText(record.samplingDepth, depth);
      append(bytes, bytesOf(record));
    }
    lab.folder.write("ZMSJ/KHZP1.txt", bytes);
  }

  Lab lab;
  FakeDialogs dialogs;
  FakeView view;
  std::string fileName;
  int saves = 0;
};

constexpr ProjectKind kKinds[] = {ProjectKind::Triaxial, ProjectKind::Unconfined, ProjectKind::K0, ProjectKind::TK0};

// ---- what it shows

TEST_F(SampleList, HasTheWindowAndTheCaptionOfItsKind) {
  std::vector<std::string> windows;
  for (const ProjectKind kind : kKinds) {
    const SampleListSession session = listOf(kind, {"A-1"});
    windows.push_back(std::string(session.form()) + " " + std::string(session.caption()));
  }
  EXPECT_THAT(windows,
              ElementsAre("Form14 三轴土样列表", "Form13 无侧限土样列表", "Form13 K0土样列表", "Form13 TK0土样列表"));
}

TEST_F(SampleList, SaysWhichProjectItIs) {
  EXPECT_EQ(triaxialList({"A-1"}).projectLine(), "工程编号:P1");
  lab.workspace.settings.habits.projectNoLabel = "合同号";
  EXPECT_EQ(triaxialList({"A-1"}).projectLine(), "合同号:P1");
}

std::vector<std::pair<std::string, int>> headsOf(const SampleListSession& session) {
  std::vector<std::pair<std::string, int>> heads;
  for (const SampleListColumn& column : session.columns()) heads.emplace_back(column.heading, column.width);
  return heads;
}

TEST_F(SampleList, HasBoreholeAndDepthForTriaxialTestsAlone) {
  EXPECT_THAT(headsOf(triaxialList({"A-1"})), ElementsAre(std::pair("序号", 700), std::pair("土样编号", 1800),
                                                          std::pair("钻孔编号", 1800), std::pair("取土深度", 1800)));
  for (const ProjectKind kind : {ProjectKind::Unconfined, ProjectKind::K0, ProjectKind::TK0})
    EXPECT_THAT(headsOf(listOf(kind, {"A-1"})), ElementsAre(std::pair("序号", 700), std::pair("土样编号", 1800)));
}

TEST_F(SampleList, IsHeadedByTheLaboratorysLabels) {
  LaboratoryHabits& habits = lab.workspace.settings.habits;
  habits.sampleNoLabel = "室内编号";
  habits.boreholeLabel = "孔号";
  EXPECT_EQ(headsOf(triaxialList({"A-1"}))[1].first, "室内编号");
  EXPECT_EQ(headsOf(triaxialList({"A-1"}))[2].first, "孔号");
  habits.trialPitNumber = true;
  EXPECT_EQ(headsOf(triaxialList({"A-1"}))[2].first, "探井号");
}

std::vector<std::string> captionsOf(const SampleListSession& session) {
  std::vector<std::string> captions;
  for (const ListButton& button : session.buttons())
    captions.push_back(std::string(button.control) + " " + std::string(button.caption));
  std::ranges::sort(captions);
  return captions;
}

TEST_F(SampleList, HasTheButtonsOfItsKind) {
  EXPECT_THAT(
      captionsOf(triaxialList({})),
      ElementsAre("Command1 删 除", "Command2 保 存", "Command3 返 回", "Command4 土号升排序", "Command5 土号降排序",
                  "Command6 钻号升排序", "Command7 钻号降排序", "Command8 人工排序", "Command9 取土深度排序"));
  EXPECT_THAT(captionsOf(listOf(ProjectKind::K0, {})),
              ElementsAre("Command1 删 除", "Command2 保 存", "Command3 返 回", "Command4 升序排序",
                          "Command5 降序排序", "Command6 人工排序"));
}

using Line = SampleListSession::Line;

TEST_F(SampleList, ShowsNumberSampleBoreholeAndDepth) {
  writeSummary({{"A-2", "ZK2", "5.0"}, {"A-1", "ZK1", "3.5-3.8"}});
  const SampleListSession session = triaxialList({"A-1", "A-2"});
  EXPECT_EQ(session.line(0), (Line{{"1", "A-1", "ZK1", "3.5-3.8"}, false}));
  EXPECT_EQ(session.line(1), (Line{{"2", "A-2", "ZK2", "5.0"}, false}));
  EXPECT_EQ(session.line(2), (Line{{"", "", "", ""}, false}));
  EXPECT_EQ(session.line(-1), (Line{{"", "", "", ""}, false}));
}

std::vector<std::string> numbered(int count) {
  std::vector<std::string> numbers;
  for (int i = 1; i <= count; ++i) numbers.push_back("S" + std::to_string(i));
  return numbers;
}

TEST_F(SampleList, ScrollsToTheLastPage) {
  SampleListSession session = listOf(ProjectKind::K0, numbered(25));
  EXPECT_EQ(session.largestScroll(), 5);
  EXPECT_EQ(session.line(19).cells, (std::vector<std::string>{"20", "S20"}));
  EXPECT_EQ(session.line(20).cells, (std::vector<std::string>{"", ""})) << "below the page";
  session.setScroll(99);
  EXPECT_EQ(session.scroll(), 5);
  EXPECT_EQ(session.line(19).cells, (std::vector<std::string>{"25", "S25"}));
  session.setScroll(-1);
  EXPECT_EQ(session.scroll(), 0);
  EXPECT_EQ(listOf(ProjectKind::K0, numbered(20)).largestScroll(), 0);
  EXPECT_EQ(listOf(ProjectKind::K0, {}).largestScroll(), 0);
}

TEST_F(SampleList, AClickMarksTheRowAndTakesTheMarkBack) {
  SampleListSession session = listOf(ProjectKind::K0, numbered(25));
  session.setScroll(5);
  session.flipMark(1);
  EXPECT_EQ(session.line(1), (Line{{"×7", "S7"}, true}));
  EXPECT_EQ(session.line(0), (Line{{"6", "S6"}, false}));
  session.flipMark(1);
  EXPECT_EQ(session.line(1), (Line{{"7", "S7"}, false}));
}

TEST_F(SampleList, AClickBelowTheListDoesNothing) {
  SampleListSession session = listOf(ProjectKind::K0, {"A-1"});
  for (const int line : {1, 19, 20, -1}) session.flipMark(line);
  EXPECT_EQ(session.line(0), (Line{{"1", "A-1"}, false}));
}

// ---- sorts

TEST_F(SampleList, ASortAsksForRangeAndMethod) {
  SampleListSession session = triaxialList({"A-9", "A-10", "A-1"});
  view.inRange = [](ListRangeDialog& dialog) {
    EXPECT_EQ(dialog.caption(), "取土深度排序");
    EXPECT_EQ(dialog.first, "1");
    EXPECT_EQ(dialog.last, "3");
    EXPECT_TRUE(dialog.asksForMethod());
    EXPECT_EQ(dialog.method, SortMethod::ByText);
  };
  press(session, "取土深度排序");
}

TEST_F(SampleList, ASortThatIsCancelledChangesNothing) {
  SampleListSession session = triaxialList({"A-9", "A-10", "A-1"});
  view.inRange = [](ListRangeDialog&) {};
  press(session, "土号升排序");
  EXPECT_THAT(samples(session), ElementsAre("A-9", "A-10", "A-1"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SampleList, SortsBySampleAndSaysSo) {
  SampleListSession session = triaxialList({"A-9", "A-10", "A-1"});
  sort(session, "土号升排序", SortMethod::ByText);
  EXPECT_THAT(samples(session), ElementsAre("A-1", "A-10", "A-9"));
  EXPECT_THAT(dialogs.take(), ElementsAre("[土号升排序] 排序完毕！"));
  EXPECT_GT(view.refreshes, 0);
  sort(session, "土号升排序", SortMethod::ByTextAndNumber);
  EXPECT_THAT(samples(session), ElementsAre("A-1", "A-9", "A-10"));
  sort(session, "土号降排序", SortMethod::ByText);
  EXPECT_THAT(samples(session), ElementsAre("A-9", "A-10", "A-1"));
}

TEST_F(SampleList, SortsTheOtherKindsBySampleToo) {
  SampleListSession session = listOf(ProjectKind::TK0, {"B", "A", "C"});
  sort(session, "升序排序", SortMethod::ByText);
  EXPECT_THAT(samples(session), ElementsAre("A", "B", "C"));
  sort(session, "降序排序", SortMethod::ByText);
  EXPECT_THAT(samples(session), ElementsAre("C", "B", "A"));
  EXPECT_THAT(dialogs.take(), ElementsAre("[升序排序] 排序完毕！", "[降序排序] 排序完毕！"));
}

TEST_F(SampleList, SortsByBoreholeAndByDepth) {
  writeSummary({{"A", "ZK10", "12.0"}, {"B", "ZK9", "9.5"}, {"C", "ZK1", "10.5"}});
  SampleListSession session = triaxialList({"A", "B", "C"});
  sort(session, "钻号升排序", SortMethod::ByTextAndNumber);
  EXPECT_THAT(samples(session), ElementsAre("C", "B", "A"));
  sort(session, "钻号降排序", SortMethod::ByText);
  EXPECT_THAT(samples(session), ElementsAre("B", "A", "C"));
  sort(session, "取土深度排序", SortMethod::ByTextAndNumber);
  EXPECT_THAT(samples(session), ElementsAre("B", "C", "A"));
  sort(session, "取土深度排序", SortMethod::ByText);
  EXPECT_THAT(samples(session), ElementsAre("C", "A", "B"));
}

TEST_F(SampleList, SortsOnlyTheRowsOfTheRange) {
  SampleListSession session = triaxialList({"E", "D", "C", "B", "A"});
  sort(session, "土号升排序", SortMethod::ByText, "4", "2");
  EXPECT_THAT(samples(session), ElementsAre("E", "B", "C", "D", "A"));
}

TEST_F(SampleList, MarksGoWithTheirRows) {
  SampleListSession session = triaxialList({"B", "A"});
  session.flipMark(0);
  sort(session, "土号升排序", SortMethod::ByText);
  EXPECT_FALSE(session.line(0).isMarked);
  EXPECT_EQ(session.line(1).cells[0], "×2");
}

// ---- moves by hand

TEST_F(SampleList, MovesRowsAtOnceWhileTheDialogIsOpen) {
  SampleListSession session = triaxialList({"A", "B", "C", "D", "E"});
  view.inMoves = [&](RowMoves& moves) {
    EXPECT_EQ(moves.caption(), "人工排序");
    moves.numbers[0] = "1";
    moves.numbers[1] = "3";
    moves.moveRow();
    EXPECT_THAT(samples(session), ElementsAre("B", "C", "A", "D", "E"));
    EXPECT_EQ(view.refreshes, 1);
    moves.numbers[2] = "4";
    moves.numbers[3] = "5";
    moves.numbers[4] = "1";
    moves.moveBlock();
    EXPECT_THAT(samples(session), ElementsAre("D", "E", "B", "C", "A"));
    EXPECT_EQ(view.refreshes, 2);
  };
  press(session, "人工排序");
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SampleList, AMoveThatCannotBeDoesNothing) {
  SampleListSession session = triaxialList({"A", "B", "C"});
  view.inMoves = [&](RowMoves& moves) {
    for (const auto& [from, to] : {std::pair{"", "2"}, {"2", ""}, {"0", "2"}, {"-1", "2"}, {"x", "2"}, {"2", "2"}}) {
      moves.numbers[0] = from;
      moves.numbers[1] = to;
      moves.moveRow();
    }
    moves.numbers[2] = "1";
    moves.numbers[3] = "3";
    moves.numbers[4] = "2";  // inside the block
    moves.moveBlock();
  };
  press(session, "人工排序");
  EXPECT_THAT(samples(session), ElementsAre("A", "B", "C"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SampleList, NumbersBeyondTheListMeanItsLastRow) {
  SampleListSession session = triaxialList({"A", "B", "C"});
  view.inMoves = [&](RowMoves& moves) {
    moves.numbers[0] = "1";
    moves.numbers[1] = "1E300";
    moves.moveRow();
  };
  press(session, "人工排序");
  EXPECT_THAT(samples(session), ElementsAre("B", "C", "A"));
}

// ---- deletion

TEST_F(SampleList, ADeletionAsksForARangeAlone) {
  SampleListSession session = triaxialList({"A", "B", "C"});
  view.inRange = [](ListRangeDialog& dialog) {
    EXPECT_EQ(dialog.caption(), "删除");
    EXPECT_FALSE(dialog.asksForMethod());
    EXPECT_EQ(dialog.first + dialog.last, "");
  };
  session.flipMark(0);
  press(session, "删 除");
  EXPECT_THAT(samples(session), ElementsAre("A", "B", "C")) << "cancelled, so the marked row stays";
  EXPECT_TRUE(session.line(0).isMarked);
}

TEST_F(SampleList, WithEmptyBoxesTheMarkedRowsGo) {
  SampleListSession session = triaxialList({"A", "B", "C", "D"});
  session.flipMark(0);
  session.flipMark(2);
  remove(session, "", "");
  EXPECT_THAT(samples(session), ElementsAre("B", "D"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SampleList, RangeAndMarkedRowsGoTogether) {
  SampleListSession session = triaxialList({"A", "B", "C", "D", "E"});
  session.flipMark(0);
  remove(session, "4", "3");
  EXPECT_THAT(samples(session), ElementsAre("B", "E"));
  EXPECT_THAT(column(session, 0), ElementsAre("1", "2"));
}

TEST_F(SampleList, APageBelowTheEndMovesUp) {
  SampleListSession session = listOf(ProjectKind::K0, numbered(25));
  session.setScroll(5);
  remove(session, "3", "25");
  EXPECT_EQ(session.scroll(), 0);
  EXPECT_THAT(samples(session), ElementsAre("S1", "S2"));
}

// ---- saving

TEST_F(SampleList, NothingReachesTheDiskBeforeASave) {
  SampleListSession session = triaxialList({"B", "A", "C"});
  const std::string before = lab.folder.read("HSZS/" + fileName);
  sort(session, "土号升排序", SortMethod::ByText);
  remove(session, "1", "1");
  EXPECT_TRUE(press(session, "返 回"));
  EXPECT_EQ(lab.folder.read("HSZS/" + fileName), before);
  EXPECT_EQ(saves, 0);
}

TEST_F(SampleList, ASaveWritesTheRecordsInTheOrderOfTheList) {
  const std::pair<ProjectKind, const char*> titles[] = {{ProjectKind::Triaxial, "保存三轴文件"},
                                                        {ProjectKind::Unconfined, "保存无侧限文件"},
                                                        {ProjectKind::K0, "保存K0文件"},
                                                        {ProjectKind::TK0, "保存TK0文件"}};
  for (const auto& [kind, title] : titles) {
    saves = 0;
    SampleListSession session = listOf(kind, {"D", "C", "B", "A"});
    remove(session, "3", "3");
    session.flipMark(0);  // a mark alone deletes nothing
    sort(session, session.buttons()[0].caption, SortMethod::ByText);
    dialogs.take();
    EXPECT_FALSE(press(session, "保 存"));
    EXPECT_THAT(dialogs.take(), ElementsAre("[" + std::string(title) + "] 数据保存完毕!"));
    // Written as D C B A with the letters a b c d. A triaxial file has lost the text behind its records.
    EXPECT_EQ(fileContent(kind), "0003 Ad Cb Da +0");
    EXPECT_EQ(saves, 1);
  }
}

TEST_F(SampleList, ASecondSaveBuildsOnTheFirst) {
  SampleListSession session = triaxialList({"C", "A", "D", "B"});
  sort(session, "土号升排序", SortMethod::ByText);
  press(session, "保 存");
  EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0004 Ab Bd Ca Dc +0");
  press(session, "保 存");
  EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0004 Ab Bd Ca Dc +0") << "the order is there already";
  remove(session, "1", "1");
  sort(session, "土号降排序", SortMethod::ByText);
  press(session, "保 存");
  EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0003 Dc Ca Bd +0");
}

TEST_F(SampleList, ASaveThatFailsIsShownAndKeepsTheList) {
  SampleListSession session = triaxialList({"B", "A"});
  const auto summary = lab.folder.path() / "ZMSJ" / "KHZP1.txt";
  std::filesystem::create_directory(summary);  // no summary file can be read or written there
  sort(session, "土号升排序", SortMethod::ByText);
  dialogs.take();
  EXPECT_FALSE(press(session, "保 存"));
  EXPECT_THAT(dialogs.take(), ElementsAre(AllOf(HasSubstr("stop [QVB三轴试验数据处理]"), HasSubstr("KHZP1.txt"))));
  EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0002 Ba Ab +100");
  EXPECT_THAT(samples(session), ElementsAre("A", "B"));
  EXPECT_EQ(saves, 0);

  std::filesystem::remove(summary);
  press(session, "保 存");
  EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0002 Ab Ba +0");
}

TEST_F(SampleList, ADamagedSummaryFileIsNamedBehindTheSave) {
  SampleListSession session = triaxialList({"B", "A"});
  lab.folder.write("ZMSJ/KHZP1.txt", "damaged");
  sort(session, "土号升排序", SortMethod::ByText);
  dialogs.take();
  EXPECT_FALSE(press(session, "保 存"));
  EXPECT_THAT(dialogs.take(),
              ElementsAre("[保存三轴文件] 数据保存完毕!", AllOf(HasSubstr("stop ["), HasSubstr("KHZP1.txt"))));
  EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0002 Ab Ba +0");
  EXPECT_EQ(lab.folder.read("ZMSJ/KHZP1.txt"), "damaged");
  EXPECT_EQ(saves, 1);
}

TEST_F(SampleList, AFileThatWasRewrittenMeanwhileIsLeftAlone) {
  SampleListSession session = triaxialList({"C", "B", "A"});
  sort(session, "土号升排序", SortMethod::ByText);
  const std::uint32_t otherOrder[] = {1, 0, 2};
  rewriteProject(lab.workspace, ProjectKind::Triaxial, fileName, otherOrder);
  dialogs.take();
  for (int i = 0; i < 2; ++i) {  // as often as it is tried
    press(session, "保 存");
    EXPECT_THAT(dialogs.take(),
                ElementsAre(AllOf(HasSubstr("stop ["), HasSubstr("WKSZP1.txt"), HasSubstr("没有保存"))));
    EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0003 Bb Ca Ac +0");
  }
  EXPECT_EQ(saves, 0);
}

TEST_F(SampleList, OtherChangesOfAnotherProgramAreAskedAbout) {
  SampleListSession session = triaxialList({"B", "A"});
  sort(session, "土号升排序", SortMethod::ByText);
  std::string bytes = lab.folder.read("HSZS/" + fileName);
  bytes[81 + 38576 - 1] = 'z';  // in the record of B
  lab.folder.write("HSZS/" + fileName, bytes + "behind the end");
  dialogs.take();
  dialogs.answers = {false, true};
  press(session, "保 存");
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("WKSZP1.txt"), HasSubstr("stop [")));
  EXPECT_EQ(lab.folder.read("HSZS/" + fileName), bytes + "behind the end");
  press(session, "保 存");
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("WKSZP1.txt"), "[保存三轴文件] 数据保存完毕!"));
  EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0002 Ab Bz +0") << "what the other program wrote is carried along";
}

TEST_F(SampleList, DeletingAllRemovesTheFile) {
  for (const ProjectKind kind : kKinds) {
    saves = 0;
    SampleListSession session = listOf(kind, {"B", "A"});
    remove(session, "1", "2");
    EXPECT_TRUE(isFileThere());
    press(session, "保 存");
    EXPECT_FALSE(isFileThere());
    EXPECT_EQ(saves, 1);
    const std::vector<std::string> first = dialogs.take();
    EXPECT_THAT(first, ElementsAre(HasSubstr("数据保存完毕!")));
    press(session, "保 存");
    EXPECT_EQ(dialogs.take(), first) << "there is nothing more to write";
  }
}

TEST_F(SampleList, TheOpenTableIsAPersonsWorkAndStays) {
  lab.workspace.TriaxialSampleTable[0] = sample("P1", "B");
  lab.workspace.TriaxialSampleTable[1] = sample("P1", "A");
  SampleListSession session = triaxialList({"B", "A"});
  remove(session, "1", "1");
  press(session, "保 存");
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].sampleNo.trimmed(), "B");
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1].sampleNo.trimmed(), "A");
}

TEST_F(SampleList, AFileThatIsNoProjectHasNoList) {
  fileName = "WKSZP1.txt";
  lab.folder.write("HSZS/" + fileName, "no header");
  EXPECT_THROW(open(ProjectKind::Triaxial), UserError);
}

TEST_F(SampleList, AFileThatIsTooShortIsListedWithBlankRowsAndARemark) {
  fileName = lab.writeSamples(ProjectKind::K0, "P1", {"A", "B", "C"});
  std::filesystem::resize_file(lab.folder.path() / "HSZS" / fileName, 81 + 243 + 10);
  SampleListSession session = open(ProjectKind::K0);
  EXPECT_THAT(samples(session), ElementsAre("A", "", ""));
  EXPECT_THAT(session.remarks(), ElementsAre(AllOf(HasSubstr("KOP1.txt"), HasSubstr("缺 2 个试样"))));
}

TEST_F(SampleList, AnOldFileIsListedAndSavedInTodaysFormat) {
  // Without V2.0 in its header a triaxial file has records of 38366 bytes, 210 less than today's.
  fileName = lab.writeSamples(ProjectKind::Triaxial, "P1", {"B", "A"});
  std::string bytes = lab.folder.read("HSZS/" + fileName);
  bytes.replace(bytes.find("V2.0"), 4, "    ");
  bytes.erase(81 + 38576 + 38366, 210);
  bytes.erase(81 + 38366, 210);
  lab.folder.write("HSZS/" + fileName, bytes);
  SampleListSession session = open(ProjectKind::Triaxial);
  sort(session, "土号升排序", SortMethod::ByText);
  press(session, "保 存");
  EXPECT_EQ(fileContent(ProjectKind::Triaxial), "0002 A  B  +0") << "the letters stood in what the old record lacks";
}

}  // namespace
}  // namespace triaxlab::testing
