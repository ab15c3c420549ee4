#include "reports/unconfined_curves.h"

#include "reports/unconfined_samples.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

// The corner of the canvas lies at x 400 and at the top of its block, y 2300 or 7800: the plot goes from x 1400 to 7400
// and from 300 to 4300 below the block.

struct UnconfinedCurves : UnconfinedPageTest {
  UnconfinedCurves() { layout = &kUnconfinedCurves; }
};

TEST_F(UnconfinedCurves, FrameHeadAndChartAtTheirPlaces) {
  sample(0, "A-1");
  const Drawing page = firstPage();
  // 20 bytes of 190 twips, centred on 11904 / 2.
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({
                  DrawnText{{4052, 800}, "无 侧 限 试 验 曲 线", Font{.size = 19, .bold = true}, Colour::Black, false},
                  small("工程编号:P1", 600, 2000),
                  small("试验：", 600, 13750),
                  small("检查：", 2700, 13750),
                  small("报告日期:      年    月    日", 4700, 13750),
                  small("试样编号:A-1", 1400, 2300),
                  words("轴向应力与轴向应变关系曲线", 3035, 7100),  // 26 bytes of 105, centred on 4400
                  words("(kPa)", 1360 - 525, 2360),
                  words("(%)", 7440, 6640),
              }));
  EXPECT_THAT(textsAt(page, 4700, 2000), IsEmpty()) << "the samples stand above their blocks";
  EXPECT_THAT(all<DrawnBox>(page), IsSupersetOf({
                                       DrawnBox{{1400, 2600}, {7400, 6600}, {Colour::Grey, 4}, std::nullopt},
                                       DrawnBox{{5400, 2700}, {7300, 3600}, {Colour::Black, 4}, Colour::LightCyan},
                                   }));
}

TEST_F(UnconfinedCurves, TheNumbersAreFreshAndTheWorkspaceStaysAsItIs) {
  UnconfinedSampleRecord& record = sample(0, "A-1");
  SetText(record.qu, "9.9");
  const UnconfinedSampleRecord before = record;
  // Through (0, 0), (1, 33.0) and (2, 40.8) goes y = 45.6 x - 12.6 x², which at 1.8 % is 41.256 kPa.
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({words(" qu = 41.3kpa", 5460, 2760), words("qu' = kpa", 5460, 3040),
                                                  words(" St = ", 5460, 3320)}));
  EXPECT_EQ(record.qu, before.qu);
  EXPECT_EQ(record.undisturbedStress, before.undisturbedStress);
  EXPECT_EQ(record.strainLimit, before.strainLimit);
}

TEST_F(UnconfinedCurves, TheConstantsStandInTheirTable) {
  sample(0, "A-1");
  // The columns are centred on 10200 and 11000, the rows 500 high from 4100 on; a text is 210 high.
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({words("原状", 9990, 3745), words("8.00", 9990, 4245), words("30.00", 9938, 4745),
                            words("1.250", 9938, 5245), words("0.000", 10738, 5245)}));
  EXPECT_THAT(all<DrawnLine>(page), Contains(rule(8400, 3600, 11400, 3600, Colour::Blue, 4)));
}

TEST_F(UnconfinedCurves, TwoSamplesStandOnAPage) {
  for (const std::size_t row : {0U, 1U, 2U}) sample(row, "A-" + std::to_string(row + 1));
  const auto pages = print();
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_THAT(textsAt(pages[0].drawing, 1400, 7800), ElementsAre("试样编号:A-2"));
  EXPECT_THAT(textsWith(pages[1].drawing, "试样编号:"), ElementsAre("试样编号:A-3"));
}

TEST_F(UnconfinedCurves, CurvesHaveTheWeightOfThePrinter) {
  sample(0, "A-1");
  EXPECT_EQ(all<DrawnPolyline>(firstPage()).at(0).stroke, (Stroke{Colour::LightRed, 4}));
  job.lineWeight = 2;
  EXPECT_EQ(all<DrawnPolyline>(firstPage()).at(0).stroke, (Stroke{Colour::LightRed, 2}));
}

TEST_F(UnconfinedCurves, TheStrainAxisEndsWhereTheLaboratoryWants) {
  sample(0, "A-1");
  habits.unconfinedLargestStrain = 10;
  // 5 % in the middle of the plot.
  EXPECT_THAT(all<DrawnText>(firstPage()), Contains(words("5", 4348, 6640, Colour::Blue)));
}

TEST_F(UnconfinedCurves, HalfThePeakIsShownWhenItIsWanted) {
  sample(0, "A-1");
  EXPECT_THAT(textsWith(firstPage(), "原状： "), IsEmpty());
  habits.strainAtHalfPeak = true;
  // Half of 40.8 lies below the first row, so nothing crosses it.
  EXPECT_THAT(textsWith(firstPage(), "原状： "), ElementsAre("原状： 20.40/0.00"));
  EXPECT_THAT(all<DrawnBox>(firstPage()),
              Contains(DrawnBox{{5300, 6000}, {7400, 6600}, {Colour::Black, 4}, Colour::LightCyan}));
}

TEST_F(UnconfinedCurves, ACurveWithoutALastParabolaReachesItsLastReading) {
  UnconfinedSampleRecord& record = sample(0, "A-1");
  record.undisturbedReading = {};
  // Two readings at one strain: no parabola goes through the last three points.
  for (const auto& [row, strain, stress] : {std::tuple{0, "1.0", "10.0"}, {1, "2.0", "20.0"}, {2, "2.0", "30.0"}}) {
    SetText(record.undisturbedStrain[static_cast<std::size_t>(row)], strain);
    SetText(record.undisturbedStress[static_cast<std::size_t>(row)], stress);
  }
  // 2 % of 22 on 6000 twips, 30 kPa of 70 on 4000.
  const auto curves = all<DrawnPolyline>(firstPage());
  ASSERT_FALSE(curves.empty());
  EXPECT_EQ(curves.back().points.back(), (TwipPoint{1945, 4886}));
}

TEST_F(UnconfinedCurves, HaveTheirOwnHabitForTheDate) {
  sample(0, "A-1");
  EXPECT_THAT(textsWith(firstPage(), "试验日期"), Not(IsEmpty()));
  habits.omitUnconfinedTestDate = true;
  EXPECT_THAT(textsWith(firstPage(), "试验日期"), IsEmpty());
}

TEST_F(UnconfinedCurves, GoIntoPicturesOfTheirTest) { EXPECT_EQ(kUnconfinedCurves.picturePrefix, "WCX"); }

}  // namespace
}  // namespace triaxlab::testing
