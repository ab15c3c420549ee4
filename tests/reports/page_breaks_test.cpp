#include "common/user_error.h"
#include "reports/page_fixture.h"
#include "support/posix_only.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using PageBreaks = PageTest;

const std::vector<CurvePage> kEveryCurve{
    CurvePage::StressStrain, CurvePage::StressRatioEnvelope, CurvePage::StressDifferenceEnvelope,
    CurvePage::StressPath,   CurvePage::PorePressure,        CurvePage::StressRatio};

TEST_F(PageBreaks, OneCurveOfTwoSamplesIsOnePage) {
  sample(0, kUU, "A-1");
  sample(1, kUU, "A-2");
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_EQ(sent, 1);
  EXPECT_EQ(pages[0].size, (PageSize{11906, 16838}));
  EXPECT_THAT(blockTops(pages[0].drawing), ElementsAre(1850, 6800));  // 1850 + 4700 + 250
  EXPECT_THAT(textsWith(pages[0].drawing, "土样编号:"), ElementsAre("土样编号:A-1", "土样编号:A-2"));
}

TEST_F(PageBreaks, ThreeBlocksTakeASecondPageWithItsFrame) {
  for (std::size_t row = 0; row < 3; ++row) sample(row, kUU, "A");
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(blockTops(pages[1].drawing), ElementsAre(1850));
  EXPECT_THAT(textsWith(pages[1].drawing, "三  轴"), SizeIs(1));
  EXPECT_THAT(pageNumbers(pages), ElementsAre("第  1  页", "第  2  页"));
}

TEST_F(PageBreaks, AnEnvelopeIsHigherByItsTable) {
  sample(0, kUU, "A-1");
  sample(1, kUU, "A-2");
  job.curves.pages = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope};
  auto pages = print();
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(blockTops(pages[0].drawing), ElementsAre(1850, 6800));
  job.curves.pages = {CurvePage::StressDifferenceEnvelope};
  pages = print();
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_THAT(blockTops(pages[0].drawing), ElementsAre(1850, 8600));  // 1850 + 6500 + 250; a curve there ends at 13300
}

TEST_F(PageBreaks, CurvesComeInTheOrderOfTheDialog) {
  sample(0, kCU, "A-1");
  job.curves.pages = {kEveryCurve.rbegin(), kEveryCurve.rend()};
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(3));
  // Titles are centred on 600 + 3700, 150 below the tops of the blocks.
  EXPECT_THAT(textsAt(pages[0].drawing, 3145, 2000), ElementsAre("主应力差与轴向应变曲线"));  // 22 bytes: 2310
  EXPECT_THAT(textsAt(pages[0].drawing, 3565, 6950), ElementsAre("应力比强度包线"));          // 14 bytes: 1470
  EXPECT_THAT(textsAt(pages[1].drawing, 3565, 2000), ElementsAre("应力差强度包线"));
  EXPECT_THAT(textsAt(pages[1].drawing, 3670, 8750), ElementsAre("应力路径曲线"));
  EXPECT_THAT(textsAt(pages[2].drawing, 3145, 2000), ElementsAre("孔隙压力与轴向应变曲线"));
  EXPECT_THAT(textsAt(pages[2].drawing, 3040, 6950), ElementsAre("有效应力比与轴向应变曲线"));
}

TEST_F(PageBreaks, OnlyCUHasCurvesOfEffectiveStress) {
  sample(0, kUU, "A-1");
  sample(1, kCD, "A-2");
  job.curves.pages = kEveryCurve;
  EXPECT_EQ(pageCount(), 2);  // two curves of each
  job.curves.pages = {CurvePage::StressPath};
  EXPECT_THAT(print(), IsEmpty());
  EXPECT_EQ(sent, 0);
}

TEST_F(PageBreaks, WithoutCirclesThereAreNoEnvelopes) {
  sample(0, kCU, "A-1");
  job.curves.pages = kEveryCurve;
  job.curves.effectiveCircles = false;
  EXPECT_EQ(pageCount(), 3);
  job.curves.totalCircles = false;  // four curves are left
  EXPECT_EQ(pageCount(), 2);
}

TEST_F(PageBreaks, EmptyRowsArePassedOver) {
  sample(3, kUU, "A-1");
  sample(1000, kUU, "A-2");
  EXPECT_THAT(textsWith(firstPage(), "土样编号:"), ElementsAre("土样编号:A-1", "土样编号:A-2"));
}

TEST_F(PageBreaks, TheSampleOnDisplayAlone) {
  sample(0, kUU, "A-1");
  sample(4, kUU, "A-2");
  job.scope = PrintScope::Current;
  job.currentRow = 4;
  EXPECT_THAT(textsWith(firstPage(), "土样编号:"), ElementsAre("土样编号:A-2"));
  job.currentRow = 7;  // an empty row
  EXPECT_THAT(print(), IsEmpty());
}

TEST_F(PageBreaks, ARangeCountsLiveSamplesInTheOrderOfTheTable) {
  for (const std::size_t row : {0U, 2U, 4U}) sample(row, kUU, "A-" + std::to_string(row));
  job.scope = PrintScope::Range;
  job.printRangeFrom = 3;
  job.printRangeTo = 2;
  EXPECT_THAT(textsWith(firstPage(), "土样编号:"), ElementsAre("土样编号:A-2", "土样编号:A-4"));
  job.printRangeFrom = 0;  // counts as 1
  job.printRangeTo = 1;
  EXPECT_THAT(textsWith(firstPage(), "土样编号:"), ElementsAre("土样编号:A-0"));
  job.printRangeFrom = job.printRangeTo = 9;  // falls to the count
  EXPECT_THAT(textsWith(firstPage(), "土样编号:"), ElementsAre("土样编号:A-4"));
}

TEST_F(PageBreaks, ARangeOfPagesKeepsTheNumbersOfTheWholeJob) {
  for (std::size_t row = 0; row < 5; ++row) sample(row, kUU, "A-" + std::to_string(row));
  job.scope = PrintScope::Pages;
  job.printRangeFrom = 2;
  job.printRangeTo = 9;
  job.firstPageNumber = 11;
  const auto pages = print();
  EXPECT_THAT(pageNumbers(pages), ElementsAre("第  12  页", "第  13  页"));
  EXPECT_THAT(textsWith(pages[0].drawing, "土样编号:"), ElementsAre("土样编号:A-2", "土样编号:A-3"));
  EXPECT_EQ(sent, 2);
}

TEST_F(PageBreaks, SamplesAndPagesCanBothBeChosen) {
  for (std::size_t row = 0; row < 7; ++row) sample(row, kUU, "A-" + std::to_string(row));
  job.scope = PrintScope::Range;
  job.printRangeFrom = 2;
  job.printRangeTo = 7;
  job.printAuxFrom = job.printAuxTo = 2;
  EXPECT_THAT(textsWith(firstPage(), "土样编号:"), ElementsAre("土样编号:A-3", "土样编号:A-4"));
  EXPECT_EQ(sent, 1);
}

TEST_F(PageBreaks, TheDotMatrixPrinterHasAFormOfItsOwn) {
  sample(0, kUU, "A-1");
  job.lineWeight = 2;
  const auto pages = print();
  EXPECT_EQ(pages[0].size, (PageSize{11904, 15870}));
  EXPECT_EQ(all<DrawnPolyline>(pages[0].drawing)[0].stroke.width, 2);
}

TEST_F(PageBreaks, A3TakesTwoPagesSideBySide) {
  for (std::size_t row = 0; row < 5; ++row) sample(row, kUU, "A");
  job.printToA3 = true;
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_EQ(sent, 3);
  EXPECT_EQ(pages[0].size, (PageSize{23810, 16841}));
  EXPECT_THAT(pageNumbers(pages), ElementsAre("第  1  页", "第  3  页"));
  EXPECT_THAT(pageNumbers(pages, 9500 + 11905), ElementsAre("第  2  页"));
  EXPECT_THAT(textsAt(pages[0].drawing, 3103 + 11905, 500), ElementsAre("三  轴  试  验  成  果  曲  线"));
  for (const DrawnText& text : all<DrawnText>(pages[1].drawing)) EXPECT_LT(text.upperLeft.x, 11905) << text.text;
}

TEST_F(PageBreaks, PicturesAreNeverSideBySide) {
  for (std::size_t row = 0; row < 3; ++row) sample(row, kUU, "A");
  job.printToA3 = job.printToPicture = true;
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_EQ(pages[0].size, kA4);
}

using PictureFolder = PageTest;

TEST_F(PictureFolder, IsThatOfTheFirstSamplePrinted) {
  sample(0, kUU, "A-1", "P1");
  sample(1, kUU, "A-2", "\xB4\xF3\xB0\xD3");  // 大坝 in GBK
  EXPECT_EQ(pictureFolder(*report(), job, workspace), folder.path() / "PTU" / "P1");
  job.scope = PrintScope::Range;
  job.printRangeFrom = job.printRangeTo = 2;
  EXPECT_EQ(pictureFolder(*report(), job, workspace), folder.path() / "PTU" / "大坝");
}

TEST_F(PictureFolder, ALinkIsRefusedAsInTheOtherFoldersOfData) {
  POSIX_ONLY("links");
  sample(0, kUU, "A-1", "P1");
  std::filesystem::create_directories(folder / "outside");
  std::filesystem::create_directories(folder / "PTU");
  std::filesystem::create_directory_symlink(folder / "outside", folder / "PTU/P1");
  EXPECT_THROW(pictureFolder(*report(), job, workspace), UserError);
  std::filesystem::remove(folder / "PTU/P1");
  std::filesystem::remove(folder / "PTU");
  std::filesystem::create_directory_symlink(folder / "outside", folder / "PTU");
  EXPECT_THROW(pictureFolder(*report(), job, workspace), UserError);
}

TEST_F(PictureFolder, AProjectNumberThatIsNoNameIsRefused) {
  for (const std::string_view number : {"..", "a/b", "a\\b", "NUL", "x\x01"}) {
    sample(0, kUU, "A-1", number);
    EXPECT_THROW(pictureFolder(*report(), job, workspace), UserError) << number;
  }
}

TEST(DefaultPrintJob, FollowsTheStoredChoices) {
  Settings settings;
  PrintJob job = defaultPrintJob(settings);
  EXPECT_EQ(job.lineWeight, 4);
  EXPECT_TRUE(job.curves.totalCircles && job.curves.effectiveCircles);
  EXPECT_THAT(job.curves.pages, ElementsAre(CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope));
  settings.toggles.dotMatrixPrinter = true;
  settings.toggles.printTotalCircles = false;
  job = defaultPrintJob(settings);
  EXPECT_EQ(job.lineWeight, 2);
  EXPECT_FALSE(job.curves.totalCircles);
}

}  // namespace
}  // namespace triaxlab::testing
