#include "reports/page_fixture.h"
#include "store/settings/settings_file.h"
#include "store/summary/summary_record.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

constexpr const char* kTitle = "三  轴  试  验  成  果  曲  线";
/// A GBK text, as records and boxes hold it.
constexpr const char* kGbkName = "\xB4\xF3\xB0\xD3";  // 大坝
constexpr const char* kName = "大坝";

struct FrameTest : PageTest {
  FrameTest() { sample(0, kCU, "A-1"); }
  LaboratoryHabits& habits = workspace.settings.habits;
  Toggles& toggles = workspace.settings.toggles;
};

TEST_F(FrameTest, EveryTextAtItsPlace) {
  SetText(workspace.TriaxialSampleTable[0].testDate, "2024-05-06");
  workspace.dataOf(ProjectKind::Triaxial).projectName = {kGbkName, false, "P1"};
  workspace.dataOf(ProjectKind::Triaxial).secondTitleLine = {"D-7", false, "P1"};
  SetText(workspace.processingDate.year, "2024");
  SetText(workspace.processingDate.month, "05");
  SetText(workspace.processingDate.day, "09");
  const auto texts = all<DrawnText>(firstPage());
  const Font large{.size = 19, .bold = true};
  // 30 bytes of 190 twips and 16 bytes of 105, centred on 11906 / 2.
  EXPECT_THAT(texts, IsSupersetOf({
                         DrawnText{{3103, 500}, kTitle, large, Colour::Black, false},
                         words("(固结不排水试验)", 5113, 1000),
                         words("第  1  页", 9500, 300),
                         words("工程编号: P1", 600, 1350),
                         words("工程名称: 大坝", 600, 1600),
                         words("试验日期:2024-05-06", 7800, 1350),
                         words("试验：", 600, 15350),
                         words("校核：", 2700, 15350),
                         words("报告日期: 2024 年 05 月 09 日", 4700, 15350),
                         words("档案号：D-7", 7800, 15350),
                     }));
}

TEST_F(FrameTest, ANameWithLineBreaksStandsOnOneLine) {
  workspace.dataOf(ProjectKind::Triaxial).projectName = {"Dam\r\nof the\tlake\x7F", false, "P1"};
  EXPECT_THAT(textsAt(firstPage(), 600, 1600), ElementsAre("工程名称: Dam  of the lake "));
}

TEST_F(FrameTest, OnTheDotMatrixFormTheTitleIsCentredAnew) {
  job.lineWeight = 2;
  EXPECT_THAT(textsAt(firstPage(), 3102, 500), ElementsAre(kTitle));
}

TEST_F(FrameTest, MethodLines) {
  struct Case {
    TestMethod method;
    std::uint8_t shearMode;
    const char* line;
  };
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable[0];
  for (const auto& [method, shearMode, line] :
       {Case{kUU, 1, "(不固结不排水试验)"}, Case{kCU, 1, "(固结不排水试验)"}, Case{kCD, 1, "(固结排水试验)"},
        Case{kUU, 2, "(一个试样多级不固结不排水试验)"}, Case{kCU, 3, "(一个试样多级固结不排水试验)"},
        Case{kCD, 2, "(一个试样多级固结排水试验)"}}) {
    record.testMethod = method;
    record.shearMode = shearMode;
    EXPECT_THAT(textsWith(firstPage(), "("), Contains(line));
  }
  habits.methodSuffix = "，饱和";
  EXPECT_THAT(textsWith(firstPage(), "("), Contains("(一个试样多级固结排水试验，饱和)"));
  record.testMethod = 7;
  EXPECT_THAT(textsWith(firstPage(), "("), IsEmpty());
}

TEST_F(FrameTest, TheMethodLineCanBeLeftOut) {
  habits.omitTestMethod = true;
  EXPECT_THAT(textsWith(firstPage(), "("), IsEmpty());
}

TEST_F(FrameTest, WithoutPageNumbersTheLabelStands) {
  job.printPageNumbers = false;
  EXPECT_THAT(textsAt(firstPage(), 9500, 300), ElementsAre("第      页"));
  habits.pageLabel = "共  页";
  EXPECT_THAT(textsAt(firstPage(), 9500, 300), ElementsAre("共  页"));
}

TEST_F(FrameTest, PageDateAndTableCanBeLeftOutTogether) {
  SetText(workspace.TriaxialSampleTable[0].testDate, "2024-05-06");
  job.curves.pages = {CurvePage::StressDifferenceEnvelope};
  habits.omitPageDateTable = true;
  for (const bool numbers : {true, false}) {
    job.printPageNumbers = numbers;
    const Drawing page = firstPage();
    EXPECT_THAT(textsWith(page, "第"), IsEmpty());
    EXPECT_THAT(textsWith(page, "试验日期"), IsEmpty());
    EXPECT_THAT(textsWith(page, "报告日期"), IsEmpty());
    EXPECT_THAT(textsWith(page, "围压级号"), IsEmpty());
  }
}

TEST_F(FrameTest, TheTestDateComesFromTheProjectWhenTheRecordHasNone) {
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[5].projectNo, "P1");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[5].testDate, "2023/01/02");
  EXPECT_THAT(textsWith(firstPage(), "试验日期"), ElementsAre("试验日期:2023/01/02"));
  habits.omitTriaxialTestDate = true;
  EXPECT_THAT(textsWith(firstPage(), "试验日期"), IsEmpty());
}

TEST_F(FrameTest, ALongProjectNumberHasTheLineForItself) {
  habits.wideProjectNo = true;
  EXPECT_THAT(textsAt(firstPage(), 9500, 600), ElementsAre("试验日期:"));
  EXPECT_THAT(textsAt(firstPage(), 7800, 1350), IsEmpty());
}

TEST_F(FrameTest, ALongNameEndsAtTheMargin) {
  workspace.dataOf(ProjectKind::Triaxial).projectName = {std::string(100, 'x'), true, ""};
  // 110 bytes of 105 twips in the 10900 from 600 to 11500; 100 bytes have room.
  EXPECT_THAT(fontsOf(firstPage(), "工程名称"), ElementsAre(Font{.stretch = 10900.0 / 11550.0}));
  workspace.dataOf(ProjectKind::Triaxial).projectName.text = std::string(90, 'x');
  EXPECT_THAT(fontsOf(firstPage(), "工程名称"), ElementsAre(Font{}));
}

TEST_F(FrameTest, AProjectNumberEndsBeforeTheDateOnItsLine) {
  habits.projectNoLabel = std::string(77, 'x');  // 81 bytes with ": P1": 8505 twips
  EXPECT_THAT(fontsOf(firstPage(), "xxx"), ElementsAre(Font{.stretch = 7200.0 / 8505.0}));
  habits.omitTriaxialTestDate = true;
  EXPECT_THAT(fontsOf(firstPage(), "xxx"), ElementsAre(Font{}));
  habits.omitTriaxialTestDate = false;
  habits.wideProjectNo = true;
  EXPECT_THAT(fontsOf(firstPage(), "xxx"), ElementsAre(Font{}));
}

TEST_F(FrameTest, WhatIsStillTooLongIsSetSmallerDownToSevenPoint) {
  SettingsFile settings = sharedSettings(workspace);
  // "试验：" and 26 letters are 32 bytes, 3360 twips, for the 2100 up to the next signature: 0.7 of it are 2352, and
  // 10.5 x 2100 / 2352 = 9.375 point.
  settings.writeText(kYearField, std::string(26, 'x'));
  EXPECT_THAT(fontsOf(firstPage(), "试验："), ElementsAre(Font{.size = 9, .stretch = 0.7}));
  settings.writeText(kYearField, std::string(60, 'x'));
  EXPECT_THAT(fontsOf(firstPage(), "试验："), ElementsAre(Font{.size = 7, .stretch = 0.7}));
}

TEST_F(FrameTest, TheProjectNameCanBeLeftOut) {
  toggles.omitProjectName = true;
  EXPECT_THAT(textsWith(firstPage(), "工程名称"), IsEmpty());
}

TEST_F(FrameTest, TheLaboratorysWordForTheProjectNumber) {
  habits.projectNoLabel = "合同号";
  EXPECT_THAT(textsAt(firstPage(), 600, 1350), ElementsAre("合同号: P1"));
}

TEST_F(FrameTest, TheControlledNumberElseThatOfTheForm) {
  SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "SK-01");
  habits.formNumber = "B-9";
  EXPECT_THAT(textsAt(firstPage(), 600, 300), IsEmpty());
  habits.controlledDocNo = true;
  EXPECT_THAT(textsAt(firstPage(), 600, 300), ElementsAre("SK-01"));
  workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.clear();
  EXPECT_THAT(textsAt(firstPage(), 600, 300), ElementsAre("B-9"));
}

TEST_F(FrameTest, WithoutADateThereIsRoomForOne) {
  EXPECT_THAT(textsAt(firstPage(), 4700, 15350), ElementsAre("报告日期:      年    月    日"));
}

TEST_F(FrameTest, SignaturesAreNamesAndNotTheYearAndMonthOfASave) {
  SettingsFile settings = sharedSettings(workspace);
  settings.writeText(kYearField, kGbkName);
  settings.writeText(kMonthField, "05");
  const Drawing page = firstPage();
  EXPECT_THAT(textsAt(page, 600, 15350), ElementsAre(std::string("试验：") + kName));
  EXPECT_THAT(textsAt(page, 2700, 15350), ElementsAre("校核："));
}

/// A summary file of the project that knows nothing but its titles.
void writeSummary(const TemporaryFolder& folder, std::string_view projectNo, std::string_view name,
                  std::string_view archive) {
  SummaryHeader header;
  SetText(header.sampleCount, "0000");
  SetText(header.projectName, name);
  SetText(header.secondTitleLine, archive);
  const auto bytes = bytesOf(header);
  folder.write("ZMSJ/KHZ" + std::string(projectNo) + ".txt",
               {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

TEST_F(FrameTest, EachPageHasTheTitlesOfItsFirstSamplesProject) {
  sample(1, kCU, "A-2");
  sample(2, kCU, "A-3", "P2");
  writeSummary(folder, "P2", kGbkName, "D-2");
  workspace.dataOf(ProjectKind::Triaxial).projectName = {"Dam", false, "P1"};
  const auto pages = print();
  EXPECT_THAT(textsAt(pages.at(0).drawing, 600, 1600), ElementsAre("工程名称: Dam"));
  EXPECT_THAT(textsAt(pages.at(0).drawing, 7800, 15350), IsEmpty());
  EXPECT_THAT(textsAt(pages.at(1).drawing, 600, 1350), ElementsAre("工程编号: P2"));
  EXPECT_THAT(textsAt(pages.at(1).drawing, 600, 1600), ElementsAre("工程名称: 大坝"));
  EXPECT_THAT(textsAt(pages.at(1).drawing, 7800, 15350), ElementsAre("档案号：D-2"));
}

TEST_F(FrameTest, ATypedTitleIsThatOfEveryProject) {
  sample(1, kCU, "A-2");
  sample(2, kCU, "A-3", "P2");
  writeSummary(folder, "P2", kGbkName, "D-2");
  workspace.dataOf(ProjectKind::Triaxial).projectName = {"Dam", true, "P1"};
  EXPECT_THAT(textsAt(print().at(1).drawing, 600, 1600), ElementsAre("工程名称: Dam"));
}

TEST_F(FrameTest, EnglishWhereThereAreEnglishWords) {
  toggles.english = true;
  SetText(workspace.processingDate.year, "2024");
  SetText(workspace.processingDate.month, "5");
  SetText(workspace.processingDate.day, "9");
  SetText(workspace.TriaxialSampleTable[0].testDate, "2024-05-06");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].boreholeNo, "ZK1");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingDepth, "3.5");
  toggles.printSamplingSpot = true;
  const Drawing page = firstPage();
  // 30 letters of 190 twips, as the Chinese title.
  EXPECT_THAT(textsAt(page, 3103, 500), ElementsAre("Curve of triaxial test results"));
  EXPECT_THAT(textsWith(page, "(C"), ElementsAre("(Consolidated undrained triaxial test)"));
  EXPECT_THAT(textsAt(page, 600, 1350), ElementsAre("Project No.: P1"));
  EXPECT_THAT(textsAt(page, 600, 1600), ElementsAre("Project: "));
  EXPECT_THAT(textsAt(page, 7800, 1350), ElementsAre("Date of test: 2024-05-06"));
  EXPECT_THAT(textsAt(page, 600, 15350), ElementsAre("Tested by:"));
  EXPECT_THAT(textsAt(page, 2700, 15350), ElementsAre("Checked by:"));
  EXPECT_THAT(textsAt(page, 4700, 15350), ElementsAre("Report date:2024 / 5 / 9"));
  EXPECT_THAT(headLines(page), ElementsAre("No. of soil sample: A-1", "Borehole No.: ZK1", "土样名称:",
                                           "Sampling spot: ", "Sampling depth: 3.5", "试验方法:固结不排水CU"));
  EXPECT_THAT(textsWith(page, "Curve of p"),
              ElementsAre("Curve of principal stress difference and axial stress-strain"));
}

TEST_F(FrameTest, EnglishMethodsAndTitlesThatHaveNoWordStayChinese) {
  toggles.english = true;
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable[0];
  record.testMethod = kUU;
  EXPECT_THAT(textsWith(firstPage(), "(U"), ElementsAre("(Unconsolidated-undrained triaxial test)"));
  record.shearMode = 2;
  EXPECT_THAT(textsWith(firstPage(), "(M"),
              ElementsAre("(Multiple-stage unconsolidated-undrained triaxial test of one sample)"));
  record.testMethod = kCU;
  EXPECT_THAT(textsWith(firstPage(), "(一"), ElementsAre("(一个试样多级固结不排水试验)"));
  job.curves.pages = {CurvePage::StressRatioEnvelope, CurvePage::StressDifferenceEnvelope};
  EXPECT_THAT(textsWith(firstPage(), "应力比"), ElementsAre("应力比强度包线"));
  EXPECT_THAT(textsWith(firstPage(), "Strength"), ElementsAre("Strength envelope of stress difference"));
}

}  // namespace
}  // namespace triaxlab::testing
