#include "reports/ko_results.h"
#include "reports/page_fixture.h"
#include "store/settings/settings_file.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

constexpr const char* kGbkName = "\xB4\xF3\xB0\xD3";  // 大坝

/// The frame and the pages of a job, on pages of the K0 test.
struct TestPagesTest : PageTest {
  TestPagesTest() { layout = &kK0Results; }
  LaboratoryHabits& habits = workspace.settings.habits;
  DocumentData& texts = workspace.dataOf(ProjectKind::K0);

  void sample(std::size_t row, std::string_view sampleNo, std::string_view projectNo = "P1") {
    SetText(workspace.K0SampleTable[row].projectNo, projectNo);
    SetText(workspace.K0SampleTable[row].sampleNo, sampleNo);
  }
  void samples(std::size_t count) {
    for (std::size_t row = 0; row < count; ++row) sample(row, "K-" + std::to_string(row + 1));
  }
  /// The heads of the blocks of all pages sent.
  std::vector<std::string> printedSamples() {
    std::vector<std::string> found;
    for (const auto& page : print())
      for (const std::string& text : textsWith(page.drawing, "试样编号:")) found.push_back(text);
    return found;
  }
  std::vector<std::string> printedPages() { return pageNumbers(print(), 9500, 500); }
};

// ---- the frame

TEST_F(TestPagesTest, EveryTextOfTheFrameAtItsPlace) {
  sample(0, "K-1");
  SetText(texts.ProjectDateTable[0].projectNo, "P1");
  SetText(texts.ProjectDateTable[0].testDate, "2024/05/06");
  texts.projectName = {kGbkName, false, "P1"};
  texts.secondTitleLine = {"D-7", false, "P1"};
  SetText(workspace.processingDate.year, "2024");
  SetText(workspace.processingDate.month, "05");
  SetText(workspace.processingDate.day, "09");
  // 17 bytes of 190 twips, centred on 11904 / 2.
  EXPECT_THAT(all<DrawnText>(firstPage()),
              IsSupersetOf({
                  DrawnText{{4337, 800}, "Ko 试 验 成 果 表", Font{.size = 19, .bold = true}, Colour::Black, false},
                  small("第  1  页", 9500, 500),
                  small("工程名称: 大坝", 600, 1600),
                  small("工程编号:P1", 600, 2000),
                  small("试验日期:2024/05/06", 8100, 2000),
                  small("试验：", 600, 14000),
                  small("检查：", 2700, 14000),
                  small("报告日期: 2024 年 05 月 09 日", 4700, 14000),
                  small("档案号：D-7", 7800, 14000),
              }));
}

TEST_F(TestPagesTest, WhatTriaxialPagesLeaveOutStaysOnThese) {
  sample(0, "K-1");
  habits.omitPageDateTable = habits.controlledDocNo = habits.omitTriaxialTestDate = true;
  habits.formNumber = "F-1";
  SetText(texts.controlledDocNo, "C-1");
  const Drawing page = firstPage();
  EXPECT_THAT(textsWith(page, "第"), ElementsAre("第  1  页"));
  EXPECT_THAT(textsWith(page, "试验日期"), ElementsAre("试验日期:"));
  EXPECT_THAT(textsWith(page, "报告日期"), ElementsAre("报告日期:      年    月    日"));
  EXPECT_THAT(textsWith(page, "F-1"), IsEmpty());
  EXPECT_THAT(textsWith(page, "C-1"), IsEmpty());
}

TEST_F(TestPagesTest, EachTestHasItsOwnHabitForTheDate) {
  sample(0, "K-1");
  habits.omitTK0TestDate = habits.omitUnconfinedTestDate = true;
  EXPECT_THAT(textsWith(firstPage(), "试验日期"), ElementsAre("试验日期:"));
  habits.omitK0TestDate = true;
  EXPECT_THAT(textsWith(firstPage(), "试验日期"), IsEmpty());
}

TEST_F(TestPagesTest, WithoutPageNumbersTheLabelStandsInTheirPlace) {
  sample(0, "K-1");
  job.printPageNumbers = false;
  EXPECT_THAT(textsAt(firstPage(), 9500, 500), ElementsAre("第      页"));
}

TEST_F(TestPagesTest, ALongProjectNumberEndsBeforeTheDate) {
  habits.projectNoLabel = std::string(73, 'x');  // 76 bytes with ":P1": 7600 twips in the 7500 up to the date
  sample(0, "K-1");
  habits.wideProjectNo = true;
  EXPECT_THAT(textsAt(firstPage(), 8100, 2000), ElementsAre("试验日期:"));
  EXPECT_THAT(fontsOf(firstPage(), "xxx"), ElementsAre(Font{.size = 10, .stretch = 7500.0 / 7600.0}));
}

TEST_F(TestPagesTest, InEnglishTheTitleAndWhatOnlyThesePagesSayStayChinese) {
  sample(0, "K-1");
  workspace.settings.toggles.english = true;
  const Drawing page = firstPage();
  EXPECT_THAT(textsAt(page, 600, 2000), ElementsAre("Project No.: P1"));
  EXPECT_THAT(textsAt(page, 8100, 2000), ElementsAre("Date of test: "));
  EXPECT_THAT(textsAt(page, 600, 14000), ElementsAre("Tested by:"));
  EXPECT_THAT(textsAt(page, 2700, 14000), ElementsAre("Checked by:"));
  EXPECT_THAT(textsAt(page, 4337, 800), ElementsAre("Ko 试 验 成 果 表"));
  EXPECT_THAT(textsAt(page, 1200, 2300), ElementsAre("试样编号:K-1"));
}

TEST_F(TestPagesTest, ThePersonsOfTheWindowSignThePage) {
  sample(0, "K-1");
  SettingsFile settings = sharedSettings(workspace);
  settings.writeText(kYearField, "Li");
  settings.writeText(kMonthField, "Wang");
  texts.typedDateTexts[1] = "Zhao";
  EXPECT_THAT(textsAt(firstPage(), 600, 14000), ElementsAre("试验：Li"));
  EXPECT_THAT(textsAt(firstPage(), 2700, 14000), ElementsAre("检查：Zhao"));
  texts.typedDateTexts[1] = "";
  EXPECT_THAT(textsAt(firstPage(), 2700, 14000), ElementsAre("检查："));
}

TEST_F(TestPagesTest, TheFrameIsThatOfTheFirstSampleOfThePage) {
  sample(0, "A", "P1");
  sample(1, "B", "P2");
  sample(2, "C", "P2");
  const auto pages = print();
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_THAT(textsWith(pages[0].drawing, "工程编号"), ElementsAre("工程编号:P1"));
  EXPECT_THAT(textsWith(pages[1].drawing, "工程编号"), ElementsAre("工程编号:P2"));
  EXPECT_EQ(report()->samplesOf(2).front().projectNo, "P2");
}

// ---- the pages of a job

TEST_F(TestPagesTest, TwoSamplesStandOnAPage) {
  samples(3);
  const auto pages = print();
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_THAT(textsWith(pages[0].drawing, "试样编号"), ElementsAre("试样编号:K-1", "试样编号:K-2"));
  EXPECT_THAT(textsWith(pages[1].drawing, "试样编号"), ElementsAre("试样编号:K-3"));
  samples(4);
  EXPECT_EQ(print().size(), 2U);
}

TEST_F(TestPagesTest, EmptyRowsTakeNoPlace) {
  sample(1, "A");
  sample(4, "B");
  SetText(workspace.K0SampleTable[2].sampleNo, "no project");
  EXPECT_THAT(printedSamples(), ElementsAre("试样编号:A", "试样编号:B"));
  EXPECT_EQ(sent, 1);
}

TEST_F(TestPagesTest, ChosenSamplesBringTheirPagesWholeAndWithTheirNumbers) {
  samples(7);
  job.scope = PrintScope::Range;
  job.printRangeFrom = 4;
  job.printRangeTo = 5;
  EXPECT_THAT(printedSamples(), ElementsAre("试样编号:K-3", "试样编号:K-4", "试样编号:K-5", "试样编号:K-6"));
  EXPECT_THAT(printedPages(), ElementsAre("第  2  页", "第  3  页"));
  job.printRangeFrom = job.printRangeTo = 99;
  EXPECT_THAT(printedPages(), ElementsAre("第  4  页"));
}

TEST_F(TestPagesTest, TheSampleOnDisplayBringsItsPage) {
  samples(5);
  job.scope = PrintScope::Current;
  job.currentRow = 3;
  EXPECT_THAT(printedPages(), ElementsAre("第  2  页"));
  job.currentRow = 6;
  EXPECT_THAT(printedPages(), IsEmpty()) << "an empty row is on display";
}

TEST_F(TestPagesTest, PagesCountOverAllSamples) {
  samples(5);
  job.scope = PrintScope::Pages;
  job.printRangeFrom = 9;
  job.printRangeTo = 2;
  EXPECT_THAT(printedPages(), ElementsAre("第  2  页", "第  3  页"));
}

TEST_F(TestPagesTest, PagesAmongThoseOfChosenSamples) {
  samples(9);
  job.scope = PrintScope::Range;
  job.printRangeFrom = 3;
  job.printRangeTo = 8;
  job.printAuxFrom = 1;
  job.printAuxTo = 3;
  EXPECT_THAT(printedPages(), ElementsAre("第  2  页", "第  3  页"));
  job.printRangeFrom = 7;
  job.printAuxFrom = job.printAuxTo = 1;
  EXPECT_THAT(printedPages(), IsEmpty());
  EXPECT_EQ(sent, 0);
}

TEST_F(TestPagesTest, WithoutASampleThereIsNoPage) {
  EXPECT_EQ(pageCount(), 0);
  EXPECT_TRUE(report()->pagesOf(job).isEmpty());
}

TEST_F(TestPagesTest, TheDotMatrixPrinterHasAPaperAndALineOfItsOwn) {
  samples(1);
  EXPECT_EQ(print().at(0).size, kA4);
  job.lineWeight = 2;
  const auto page = print().at(0);
  EXPECT_EQ(page.size, kDotMatrixPage);
  EXPECT_THAT(textsAt(page.drawing, 4337, 800), ElementsAre("Ko 试 验 成 果 表"));
  EXPECT_THAT(all<DrawnBox>(page.drawing),
              ::testing::Contains(DrawnBox{{7900, 2750}, {11300, 6550}, {Colour::Black, 2}, std::nullopt}));
}

}  // namespace
}  // namespace triaxlab::testing
