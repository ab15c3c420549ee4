// The table in which the texts of all samples are filled in: it writes the fields of the document windows.
#include "sessions/dialogs/fill_in_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/gbk.h"
#include "sessions/dialogs/pasted_cells.h"
#include "shell/lab.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::sample;

// Columns of a triaxial table.
constexpr int kSampleNo = 2, kSoil = 3, kDensity = 4, kBorehole = 5, kDepth = 6, kSpot = 7;

std::vector<std::string> headings(const FillInSession& session) {
  std::vector<std::string> headings;
  for (const GridColumn& column : session.columns()) headings.push_back(column.heading);
  return headings;
}

class FillIn : public ::testing::Test {
 protected:
  FillIn() {
    auto& table = workspace.TriaxialSampleTable;
    table[0] = sample("P1", "A-1");
    table[1] = sample("P1", "");  // an empty slot
    table[2] = sample("P1", "A-2");
    table[3] = sample("P2", "B-1");
  }

  FillInSession session(std::size_t sampleOnDisplay = 0) {
    return {workspace, ProjectKind::Triaxial, sampleOnDisplay, [this] { ++changes; }};
  }
  const SampleLocation& location(std::size_t row) {
    return workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[row];
  }
  std::string soil(std::size_t row) {
    return gbkToUtf8(std::as_const(workspace).TriaxialSampleTable[row].soilName.trimmed());
  }
  static std::vector<std::string> column(const FillInSession& session, int column) {
    std::vector<std::string> texts;
    for (int row = 1; row <= session.rowCount(); ++row) texts.push_back(session.cell(row, column));
    return texts;
  }

  Workspace workspace;
  int changes = 0;
};

TEST_F(FillIn, ListsTheSamplesAndBeginsAtTheOneOnDisplay) {
  const FillInSession filled = session(2);
  EXPECT_THAT(headings(filled),
              ElementsAre("序号", "工程编号", "土样编号", "土样名称", "密度", "钻孔号", "取样深度", "取样地点"));
  EXPECT_THAT(column(filled, kSampleNo), ElementsAre("A-1", "A-2", "B-1"));
  EXPECT_EQ(filled.firstRow(), 2);
  EXPECT_EQ(filled.firstColumn(), kSoil);
  EXPECT_EQ(filled.heading(), "共 3 个土样。改动立即记入，关闭这个窗口以后再保存。");
}

TEST_F(FillIn, HasTheTextsThatAKindOfTestHas) {
  for (const ProjectKind kind : {ProjectKind::Unconfined, ProjectKind::K0, ProjectKind::TK0}) {
    const FillInSession filled(workspace, kind, 0, [] {});
    EXPECT_THAT(headings(filled), ElementsAre("序号", "工程编号", "土样编号", "钻孔号", "取样深度", "取样地点"));
    EXPECT_EQ(filled.rowCount(), 0);
    EXPECT_EQ(filled.heading(), "还没有土样：请先在窗口的试样表里输入工程编号和土样编号。");
  }
}

TEST_F(FillIn, CallsTheColumnsAsTheLaboratoryDoes) {
  workspace.settings.habits.trialPitNumber = true;
  workspace.settings.habits.sampleNoLabel = "室内编号";
  const FillInSession filled = session();
  EXPECT_EQ(headings(filled)[kSampleNo], "室内编号");
  EXPECT_EQ(headings(filled)[kSpot], "探井号");
}

TEST_F(FillIn, WritesTheFieldsOfTheDocumentWindow) {
  FillInSession filled = session();
  filled.type(2, kSoil, "粉质粘土");
  filled.type(2, kDensity, "1.95");
  filled.type(2, kBorehole, "ZK7");
  filled.type(2, kDepth, "3.5-3.8");
  filled.type(2, kSpot, "左岸");
  EXPECT_EQ(soil(2), "粉质粘土");
  EXPECT_EQ(workspace.TriaxialSampleTable[2].density.trimmed(), "1.95");
  EXPECT_EQ(location(2).boreholeNo.trimmed(), "ZK7");
  EXPECT_EQ(location(2).samplingDepth.trimmed(), "3.5-3.8");
  EXPECT_EQ(gbkToUtf8(location(2).samplingSpot.trimmed()), "左岸");
  EXPECT_EQ(changes, 5);
  EXPECT_EQ(soil(0), "");
  EXPECT_EQ(soil(1), "");
}

TEST_F(FillIn, WritesTheLocationsOfOtherTestsToTheirOwn) {
  SetText(workspace.K0SampleTable[0].projectNo, "P1");
  SetText(workspace.K0SampleTable[0].sampleNo, "K-1");
  FillInSession filled(workspace, ProjectKind::K0, 0, [] {});
  filled.type(1, 3, "ZK1");
  filled.type(1, 4, "12.0");
  EXPECT_EQ(workspace.dataOf(ProjectKind::K0).SampleDisplayTable[0].boreholeNo.trimmed(), "ZK1");
  EXPECT_EQ(workspace.dataOf(ProjectKind::K0).SampleDisplayTable[0].samplingDepth.trimmed(), "12.0");
  EXPECT_TRUE(location(0).boreholeNo.isBlank());
}

TEST_F(FillIn, TakesWhatTheFieldTakesAndNoMore) {
  FillInSession filled = session();
  EXPECT_EQ(filled.width(1, kDensity), 5U);
  filled.type(1, kDensity, "1.23456");
  filled.type(1, kBorehole, "一二三四五六七八");  // 15 bytes have room for seven
  EXPECT_EQ(filled.cell(1, kDensity), "1.234");
  EXPECT_EQ(filled.cell(1, kBorehole), "一二三四五六七");
}

TEST_F(FillIn, TypingWhatStandsThereChangesNothing) {
  SetText(workspace.TriaxialSampleTable[0].soilName, utf8ToGbk("黄土"));
  FillInSession filled = session();
  filled.type(1, kSoil, "黄土");
  EXPECT_EQ(changes, 0);
  EXPECT_FALSE(filled.canUndo());
}

TEST_F(FillIn, BytesThatAreNoTextStayUntilAnotherIsTyped) {
  SetText(workspace.TriaxialSampleTable[0].soilName, "\xFF\xFF");
  FillInSession filled = session();
  filled.type(1, kSoil, filled.cell(1, kSoil));
  EXPECT_EQ(workspace.TriaxialSampleTable[0].soilName.trimmed(), "\xFF\xFF");
  filled.type(1, kSoil, "砂");
  EXPECT_EQ(soil(0), "砂");
  filled.undo();
  EXPECT_EQ(workspace.TriaxialSampleTable[0].soilName.trimmed(), "\xFF\xFF");
}

TEST_F(FillIn, CopiesFromTheRowAbove) {
  FillInSession filled = session();
  filled.type(1, kSoil, "粘土");
  filled.type(1, kDensity, "1.9");
  filled.copyDown({.top = 2, .left = kSampleNo, .bottom = 2, .right = kSoil});
  EXPECT_THAT(column(filled, kSoil), ElementsAre("粘土", "粘土", ""));
  EXPECT_THAT(column(filled, kDensity), ElementsAre("1.9", "", ""));
  EXPECT_THAT(column(filled, kSampleNo), ElementsAre("A-1", "A-2", "B-1")) << "numbers stay";
}

TEST_F(FillIn, CopiesTheFirstRowOfABlockDown) {
  FillInSession filled = session();
  filled.type(1, kSoil, "粘土");
  filled.type(2, kSoil, "砂");
  filled.copyDown({.top = 1, .left = kSoil, .bottom = 3, .right = kDensity});
  EXPECT_THAT(column(filled, kSoil), ElementsAre("粘土", "粘土", "粘土"));
  filled.undo();
  EXPECT_THAT(column(filled, kSoil), ElementsAre("粘土", "砂", "")) << "in one step";
}

TEST_F(FillIn, TheFirstRowHasNothingAboveIt) {
  FillInSession filled = session();
  filled.type(1, kSoil, "粘土");
  filled.copyDown({.top = 1, .left = kSoil, .bottom = 1, .right = kSoil});
  EXPECT_THAT(column(filled, kSoil), ElementsAre("粘土", "", ""));
}

TEST_F(FillIn, PastesWhatASpreadsheetHandsOut) {
  FillInSession filled = session();
  filled.paste({.top = 2, .left = kBorehole, .bottom = 2, .right = kBorehole}, "ZK1\t3.0\r\nZK2\t4.5\r\n");
  EXPECT_THAT(column(filled, kBorehole), ElementsAre("", "ZK1", "ZK2"));
  EXPECT_THAT(column(filled, kDepth), ElementsAre("", "3.0", "4.5"));
  EXPECT_EQ(filled.remark(), "");
  EXPECT_EQ(changes, 1);
  filled.undo();
  EXPECT_THAT(column(filled, kDepth), ElementsAre("", "", ""));
}

TEST_F(FillIn, OneTextIsPastedIntoAllChosenCells) {
  FillInSession filled = session();
  filled.paste({.top = 1, .left = kSoil, .bottom = 3, .right = kSoil}, "粘土\n");
  EXPECT_THAT(column(filled, kSoil), ElementsAre("粘土", "粘土", "粘土"));
}

TEST_F(FillIn, WhatHasNoRoomIsLeftOutAndToldInOneRemark) {
  FillInSession filled = session();
  filled.paste({.top = 2, .left = kDepth, .bottom = 2, .right = kDepth},
               "1\t一\tx\n2\t十二345678901234567890123456789\ty\n3\tz\n4\n");
  EXPECT_THAT(column(filled, kDepth), ElementsAre("", "1", "2"));
  EXPECT_THAT(column(filled, kSpot), ElementsAre("", "一", "十二34567890123456789012345678"));
  EXPECT_EQ(filled.remark(), "表里放不下的 2 行、1 列没有贴入。 1 格没有全部贴入：太长，或有 GBK 里没有的字。");
  filled.type(1, kDepth, "5");
  EXPECT_EQ(filled.remark(), "");
}

TEST_F(FillIn, NumbersThatArePastedChangeNothing) {
  FillInSession filled = session();
  filled.paste({.top = 1, .left = kSampleNo, .bottom = 1, .right = kSampleNo}, "A-1\t粘土\nA-2\t砂");
  EXPECT_THAT(column(filled, kSoil), ElementsAre("粘土", "砂", ""));
  EXPECT_EQ(filled.remark(), "");
  filled.paste({.top = 1, .left = kSampleNo, .bottom = 1, .right = kSampleNo}, "C-9\t粉土");
  EXPECT_THAT(column(filled, kSampleNo), ElementsAre("A-1", "A-2", "B-1"));
  EXPECT_EQ(filled.cell(1, kSoil), "粉土");
  EXPECT_EQ(filled.remark(), "编号不在这里改，没有贴入。");
}

TEST_F(FillIn, ClearsAndCopiesABlock) {
  FillInSession filled = session();
  filled.type(1, kSoil, "粘土");
  filled.type(2, kDensity, "1.9");
  const GridBlock block{.top = 1, .left = kSoil, .bottom = 2, .right = kDensity};
  EXPECT_EQ(filled.text(block), "粘土\t\n\t1.9\n");
  filled.clear(block);
  EXPECT_EQ(filled.text(block), "\t\n\t\n");
  filled.undo();
  EXPECT_EQ(filled.text(block), "粘土\t\n\t1.9\n");
}

TEST_F(FillIn, StepsAreTakenBackAndMadeAgain) {
  FillInSession filled = session();
  filled.type(1, kSoil, "a");
  filled.type(1, kSoil, "b");
  filled.undo();
  EXPECT_EQ(soil(0), "a");
  EXPECT_TRUE(filled.canRedo());
  filled.redo();
  EXPECT_EQ(soil(0), "b");
  EXPECT_FALSE(filled.canRedo());
  filled.undo();
  filled.undo();
  EXPECT_EQ(soil(0), "");
  EXPECT_FALSE(filled.canUndo());
  filled.type(2, kSoil, "c");
  EXPECT_FALSE(filled.canRedo()) << "another way was taken";
  EXPECT_EQ(changes, 7) << "each is a change of the document";
}

TEST(PastedCells, AreLinesOfCells) {
  EXPECT_THAT(pastedCells("a\tb\nc"), ElementsAre(ElementsAre("a", "b"), ElementsAre("c")));
  EXPECT_THAT(pastedCells("a\r\n\r\nb\r\n"), ElementsAre(ElementsAre("a"), ElementsAre(""), ElementsAre("b")));
  EXPECT_THAT(pastedCells("\t\n"), ElementsAre(ElementsAre("", "")));
  EXPECT_THAT(pastedCells(""), IsEmpty());
}

TEST(PastedCells, MayStandInQuotationMarks) {
  EXPECT_THAT(pastedCells("\"a\tb\"\tc\n\"say \"\"so\"\"\""),
              ElementsAre(ElementsAre("a\tb", "c"), ElementsAre("say \"so\"")));
  EXPECT_THAT(pastedCells("\"a\" b\t\"c"), ElementsAre(ElementsAre("\"a\" b", "\"c"))) << "parts of the text";
}

}  // namespace
}  // namespace triaxlab
