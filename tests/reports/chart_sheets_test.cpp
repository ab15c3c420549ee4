#include "reports/chart_sheets.h"

#include <cmath>

#include "common/user_error.h"
#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

/// A GBK text, as records and boxes hold it.
constexpr const char* kGbkName = "\xB4\xF3\xB0\xD3";  // 大坝

/// On A4 upright with margins of 1 cm: from 572 to 11334 and from 900 to 15938.
struct ChartSheetTest : PageTest {
  LaboratoryHabits& habits = workspace.settings.habits;
  ChartLayout& texts = workspace.settings.chart;

  ChartSheetTest() {
    layout = &kChartSheets;
    job.sheet = {.rows = 1, .columns = 1, .portrait = true, .leftMarginCm = 1, .rightMarginCm = 1};
    sample(0, kCU, "A-1");
    SetText(location(0).samplingDepth, "2.50");
    SetText(location(0).boreholeNo, "ZK3");
  }
  SampleLocation& location(std::size_t row) { return workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[row]; }
  void setDate() {
    SetText(workspace.processingDate.year, "2024");
    SetText(workspace.processingDate.month, "05");
    SetText(workspace.processingDate.day, "09");
  }
  void setGrid(std::int16_t rows, std::int16_t columns) {
    job.sheet.rows = rows;
    job.sheet.columns = columns;
  }
  /// The text, which stands once on the page.
  static DrawnText only(const Drawing& page, std::string_view text) {
    std::vector<DrawnText> found;
    for (const DrawnText& one : all<DrawnText>(page))
      if (one.text == text) found.push_back(one);
    EXPECT_THAT(found, SizeIs(1)) << text;
    return found.empty() ? DrawnText{} : found.front();
  }
  static std::vector<TwipPoint> plotCorners(const Drawing& page) {
    std::vector<TwipPoint> corners;
    for (const DrawnBox& box : all<DrawnBox>(page))
      if (box.stroke.colour == Colour::Grey) corners.push_back(box.corner);
    return corners;
  }
};

TEST_F(ChartSheetTest, TheFrameStandsAtTheMargins) {
  workspace.dataOf(ProjectKind::Triaxial).projectName = {kGbkName, false, "P1"};
  setDate();
  const Drawing page = firstPage();
  EXPECT_EQ(only(page, "三  轴  试  验(CU)  成  果  图  表").upperLeft, (TwipPoint{2723, 900}));  // 34 bytes of 190
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({words("工程编号:P1", 622, 1500), words("工程名称: 大坝", 4159, 1500),
                            words("第", 10179, 1500), words("1", 10704, 1500), words("页", 11124, 1500),
                            words("试验审核人:", 622, 16038), words("试验负责人:", 5376, 16038),
                            words("日期：", 9234, 16038), words("2024年05月09日", 9864, 16038)}));
  EXPECT_THAT(all<DrawnLine>(page), Contains(rule(572, 1800, 11334, 1800, Colour::Black, 4)));
}

TEST_F(ChartSheetTest, AChartFillsItsCellThreeToTwo) {
  const Drawing page = firstPage();
  // 10762 less 250 wide: the canvas is magnified 10512 / 7050 = 1.49106 times, its corner at 697, 1800.
  EXPECT_THAT(all<DrawnBox>(page), ElementsAre(DrawnBox{{1741, 2546}, {10687, 8212}, {Colour::Grey, 4}, std::nullopt}));
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({sized(10.6, "主应力差与轴向应变曲线", 1070, 2067),
                                                  sized(10.6, "土样编号:A-1  2.50", 5953, 2067)}));
  const DrawnText unit = only(page, "ε1(%)");  // 6 bytes of 106, ending at 697 + 6700 x 1.49106
  EXPECT_NEAR(unit.font.size, 10.6, 1e-9) << "as large as all other text of the chart";
  EXPECT_EQ(unit.upperLeft, (TwipPoint{10051, 8510}));
}

TEST_F(ChartSheetTest, ALowCellLimitsTheWidth) {
  job.sheet.portrait = false;
  // 11906 - 1800 - 900 = 9206 high, so 13809 wide: 1.95872 times.
  EXPECT_THAT(plotCorners(firstPage()), ElementsAre(TwipPoint{2068, 2779}));
}

TEST_F(ChartSheetTest, TextsShrinkWithTheirCell) {
  setGrid(4, 3);
  // Half a cell of 3504 has 1471.68 for 22 bytes: 6.6 point. The canvas is 0.49702 of its size.
  const Drawing page = firstPage();
  EXPECT_EQ(only(page, "主应力差与轴向应变曲线").font.size, 6.6);
  EXPECT_NEAR(only(page, "ε1(%)").font.size, 10.5 * 3504 / 7050, 1e-6);
  setGrid(10, 5);
  EXPECT_EQ(only(firstPage(), "主应力差与轴向应变曲线").font.size, 5) << "no further";
}

TEST_F(ChartSheetTest, BlocksGoRowByRowAndFromSampleToSample) {
  sample(1, kUU, "A-2");
  job.curves.pages = {CurvePage::StressDifferenceEnvelope, CurvePage::StressStrain};
  setGrid(2, 2);
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(1));
  // Cells of 5256 x 3504; the plot begins at 700, 500 of a canvas of 0.74553 of its size.
  EXPECT_THAT(plotCorners(pages[0].drawing),
              ElementsAre(TwipPoint{1219, 2173}, TwipPoint{6475, 2173}, TwipPoint{1219, 5677}, TwipPoint{6475, 5677}));
  EXPECT_EQ(only(pages[0].drawing, "三  轴  试  验(CU)  成  果  图  表").upperLeft.y, 900);
}

TEST_F(ChartSheetTest, AFullPageIsFollowedByOneWithTheMethodOfItsFirstBlock) {
  sample(1, kUU, "A-2");
  setGrid(1, 1);
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(2));
  only(pages[1].drawing, "三  轴  试  验(UU)  成  果  图  表");
  only(pages[1].drawing, "2");
  workspace.TriaxialSampleTable[0].testMethod = 9;
  only(firstPage(), "三  轴  试  验  成  果  图  表");
}

TEST_F(ChartSheetTest, TheDataSheetStandsBelowASmallerChart) {
  job.printDataSheet = true;
  SetText(workspace.TriaxialSampleTable[0].cellPressure[2], "300");
  const Drawing page = firstPage();
  // 0.8 of 1.49106; the lines at 0.82, 0.88, 0.94 of 7008 below 1800, at 0.02 and 0.16 + 0.16 j of 10512 behind 697.
  EXPECT_THAT(plotCorners(page), ElementsAre(TwipPoint{1532, 2396}));
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({sized(10.6, "No", 907, 7547), sized(10.6, "σ3(kp)", 907, 7967),
                                                  sized(10.6, "σ(kp)", 907, 8388), sized(10.6, "1", 2379, 7547),
                                                  sized(10.6, "100", 2379, 7967), sized(10.6, "15", 2379, 8388),
                                                  sized(10.6, "3", 5743, 7547), sized(10.6, "300", 5743, 7967)}));
  EXPECT_EQ(only(page, "土样编号:A-1  2.50").upperLeft.x, 5953) << "in the middle of the cell all the same";
  habits.omitPageDateTable = true;
  EXPECT_THAT(textsWith(firstPage(), "σ3(kp)"), IsEmpty());
  EXPECT_THAT(plotCorners(firstPage()), ElementsAre(TwipPoint{1741, 2546}));
}

TEST_F(ChartSheetTest, TheLaboratorysOwnTexts) {
  texts.slot[1] = "某某试验中心";
  texts.slot[2] = ":合同号";
  texts.slot[3] = "项目：";
  texts.slot[5] = "土工室";
  texts.slot[6] = "审核:";
  texts.slot[8] = "日:";
  texts.slot[9] = "样:";
  texts.slot[10] = "批准:";
  texts.slot[11] = "孔:";
  texts.slot[12] = "深:";
  const Drawing page = firstPage();
  EXPECT_EQ(only(page, "某某试验中心").upperLeft, (TwipPoint{4813, 900}));  // 12 bytes of 190, no method
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({words("合同号:P1", 622, 1500), words("项目：", 4159, 1500), words("土工室", 622, 1250),
                            words("审核:", 622, 16038), words("试验负责人:", 5376, 16038),
                            words("批准:", 7909, 16038),  // 572 + 3/4 of 10762 less 735
                            words("日:", 9549, 16038), sized(10.6, "样:A-1  孔:ZK3  深:2.50", 5953, 2067)}));
}

TEST_F(ChartSheetTest, EmptySlotsHaveTheUsualTexts) {
  for (std::string& slot : texts.slot) slot.clear();
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({words("工程编号:P1", 622, 1500), words("试验审核人:", 622, 16038),
                                                  sized(10.6, "土样编号:A-1  2.50", 5953, 2067)}));
  only(page, "三  轴  试  验(CU)  成  果  图  表");
}

TEST_F(ChartSheetTest, EnglishLabels) {
  workspace.settings.toggles.english = true;
  setDate();
  const Drawing page = firstPage();
  only(page, "Project No.: P1");
  only(page, "Curve of principal stress difference and axial stress-strain");
  only(page, "No. of soil sample: A-1  2.50");
  only(page, "2024 / 05 / 09");
}

TEST_F(ChartSheetTest, PageAndDateAreLeftOut) {
  setDate();
  habits.omitPageDateTable = true;
  const Drawing page = firstPage();
  EXPECT_THAT(textsWith(page, "第"), IsEmpty());
  EXPECT_THAT(textsWith(page, "日期"), IsEmpty());
  EXPECT_THAT(textsWith(page, "2024"), IsEmpty());
}

TEST_F(ChartSheetTest, WithoutADateThereIsRoomForOne) {
  EXPECT_THAT(textsAt(firstPage(), 9234, 16038), ElementsAre("日期："));
}

TEST_F(ChartSheetTest, TheControlNumberStandsAboveTheMargin) {
  habits.controlledDocNo = true;
  habits.formNumber = "SK-1";
  EXPECT_THAT(textsAt(firstPage(), 572, 600), ElementsAre("SK-1"));
}

TEST_F(ChartSheetTest, TheLaboratorysPageLabelTakesThePlaceOfTheNumber) {
  job.printPageNumbers = false;
  EXPECT_EQ(only(firstPage(), "第      页").upperLeft, (TwipPoint{10284, 1500}));  // 10 bytes of 105
}

TEST_F(ChartSheetTest, MarginsOfThePaper) {
  texts.topMarginTwips = 286;
  texts.bottomMarginTwips = 5720;
  job.sheet.leftMarginCm = 0.5F;
  job.sheet.rightMarginCm = 10;
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnLine>(page), Contains(rule(286, 1186, 6186, 1186, Colour::Black, 4)));
  EXPECT_THAT(textsAt(page, 336, 11218), ElementsAre("试验审核人:"));
}

TEST_F(ChartSheetTest, Papers) {
  struct Case {
    std::uint8_t code;
    bool portrait;
    PageSize size;
  };
  for (const auto& [code, portrait, size] :
       {Case{0, true, {11906, 16838}}, Case{0, false, {16838, 11906}}, Case{1, true, {16838, 23811}},
        Case{1, false, {23811, 16838}}, Case{2, true, {11904, 15870}}, Case{2, false, {11904, 15870}},
        Case{3, true, {23816, 15870}}, Case{3, false, {23816, 15870}}, Case{7, true, {11906, 16838}}}) {
    job.sheet.paperCode = code;
    job.sheet.portrait = portrait;
    EXPECT_EQ(report()->pageSize(), size) << int{code} << portrait;
  }
  job.lineWeight = 2;
  EXPECT_EQ(report()->pageSize(), kA4) << "whatever the printer";
}

TEST_F(ChartSheetTest, RowsAndColumnsBelowOneCountAsOne) {
  setGrid(0, -3);
  EXPECT_THAT(plotCorners(firstPage()), ElementsAre(TwipPoint{1741, 2546}));
}

TEST_F(ChartSheetTest, MarginsThatLeaveNoRoomAreSaid) {
  job.sheet.portrait = false;
  texts.topMarginTwips = texts.bottomMarginTwips = 5720;
  EXPECT_THROW(report(), UserError);
}

TEST_F(ChartSheetTest, LongTextsEndBeforeTheirNeighbours) {
  workspace.dataOf(ProjectKind::Triaxial).projectName = {std::string(120, 'x'), false, "P1"};
  SetText(workspace.TriaxialSampleTable[0].sampleNo, "12345678901234");
  SetText(location(0).samplingDepth, "123456789012345");
  texts.slot[5] = std::string(25, 'l');
  texts.slot[10] = std::string(15, 's');
  setGrid(2, 2);
  const Drawing page = firstPage();
  const auto endOf = [](const DrawnText& text) { return text.upperLeft.x + textWidth(text.text, text.font); };
  EXPECT_LE(endOf(only(page, "工程名称: " + std::string(120, 'x'))), 10179);
  EXPECT_LE(endOf(only(page, "土样编号:12345678901234  123456789012345")), 697 + 5256);
  EXPECT_LT(endOf(only(page, std::string(25, 'l'))), 2723) << "where the title begins";
  EXPECT_LT(endOf(only(page, std::string(15, 's'))), 9234) << "where the date begins";
}

}  // namespace
}  // namespace triaxlab::testing
