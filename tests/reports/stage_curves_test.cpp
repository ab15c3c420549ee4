#include "reports/stage_curves.h"

#include "k0/samples.h"
#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

// The canvas is half again as large as on screen, its corner at x 900 and at the top of its block: the plot goes from x
// 1950 to 7950 and from 450 to 4650 below the block. Blocks begin at y 2300 and 7800.

struct StageCurves : PageTest {
  StageCurves() {
    layout = &kStageCurves;
    sample(0, "T-1", 3);
    sample(1, "T-2", 1);
  }

  /// Its first stage has readings whose T90 is 35.8 minutes.
  TK0SampleRecord& sample(std::size_t row, std::string_view sampleNo, std::int16_t stages) {
    TK0SampleRecord& record = workspace.TK0SampleTable[row];
    record = withRows(lineAndBend());
    SetText(record.k0.projectNo, "P1");
    SetText(record.k0.sampleNo, sampleNo);
    SetText(record.k0.samplingDepth, "3.20");
    record.stageCount = stages;
    return record;
  }
  std::vector<std::string> printedPages() { return pageNumbers(print(), 9500, 500); }
  /// The stages on a page, from top to bottom.
  static std::vector<std::string> stagesOn(const Drawing& page) {
    std::vector<std::string> found;
    for (const DrawnText& text : all<DrawnText>(page))
      if (text.upperLeft.x == 7000) found.push_back(text.text);
    return found;
  }
};

DrawnText narrow(std::string_view text, int x, int y) {
  return {{x, y}, std::string(text), Font{.name = kArialNarrow, .size = 9}, Colour::Blue, false};
}

TEST_F(StageCurves, HeadAndChartAtTheirPlaces) {
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({small("试样编号:T-1", 1950, 2300), small("取土深度:3.20", 4700, 2300),
                            small("第1级", 7000, 2300), words("压力：100.0kPa", 5490, 2825),
                            words("P1  = 59.8 kPa", 5490, 3200), words("T90 = 35.8 min", 5490, 3575)}));
  EXPECT_THAT(all<DrawnLine>(page),
              IsSupersetOf({rule(1950, 2750, 1950, 6950, Colour::Grey), rule(1950, 2750, 7950, 2750, Colour::Grey),
                            rule(7950, 2750, 7950, 6950, Colour::Grey)}));
  EXPECT_THAT(all<DrawnBox>(page), Contains(DrawnBox{{5400, 2750}, {7950, 3950}, {Colour::Blue, 4}, Colour::White}));
}

TEST_F(StageCurves, TheTextsOfTheLargerChartKeepTheirSize) {
  // A narrow character of 9 point is 72 wide and 180 high.
  EXPECT_THAT(
      all<DrawnText>(firstPage()),
      IsSupersetOf({narrow("0", 1950 - 36, 7010), narrow("10", 7950 - 72, 7010), narrow("0.96", 1890 - 288, 6950 - 90),
                    narrow("0.0", 8010, 6950 - 90), words("√t(min)", 7950 - 840, 7310), words("D(mm)", 1050, 2390),
                    words("P(kPa)", 8010, 3890)}));
}

TEST_F(StageCurves, CurvesAndLinesHaveTheWeightOfThePrinter) {
  const Drawing page = firstPage();
  EXPECT_EQ(all<DrawnPolyline>(page).at(0).stroke, (Stroke{Colour::LightRed, 4}));
  EXPECT_EQ(all<DrawnPolyline>(page).at(1).stroke, (Stroke{Colour::LightBlue, 4}));
  // D = 0.1 per root of a minute from 0: at the end of the axis 0.96 mm, which is 9.6 roots of 600 twips.
  EXPECT_THAT(all<DrawnLine>(page), Contains(rule(1950, 2750, 7710, 6950, Colour::Black, 4)));
}

TEST_F(StageCurves, TheStagesOfASamplePairAndASampleBeginsAPage) {
  const auto pages = print();
  ASSERT_EQ(pages.size(), 3U);
  EXPECT_THAT(stagesOn(pages[0].drawing), ElementsAre("第1级", "第2级"));
  EXPECT_THAT(stagesOn(pages[1].drawing), ElementsAre("第3级"));
  EXPECT_THAT(stagesOn(pages[2].drawing), ElementsAre("第1级"));
  EXPECT_THAT(textsAt(pages[0].drawing, 7000, 7800), ElementsAre("第2级"));
  EXPECT_THAT(textsWith(pages[2].drawing, "试样编号"), ElementsAre("试样编号:T-2"));
}

TEST_F(StageCurves, ThereAreTenStagesAtMostAndNoneOfASampleWithoutLoad) {
  sample(0, "T-1", 11);
  sample(1, "T-2", 0);
  const auto pages = print();
  ASSERT_EQ(pages.size(), 5U);
  EXPECT_THAT(stagesOn(pages[4].drawing), ElementsAre("第9级", "第10级"));
}

TEST_F(StageCurves, AChosenSampleBringsItsPages) {
  job.scope = PrintScope::Range;
  job.printRangeFrom = job.printRangeTo = 2;
  EXPECT_THAT(printedPages(), ElementsAre("第  3  页"));
}

TEST_F(StageCurves, TheStageOnDisplayBringsItsPageOrStandsAlone) {
  job.scope = PrintScope::CurrentPage;
  job.currentRow = 0;
  job.currentPart = 1;
  EXPECT_THAT(printedPages(), ElementsAre("第  1  页"));
  EXPECT_THAT(stagesOn(firstPage()), ElementsAre("第1级", "第2级"));
  job.scope = PrintScope::CurrentCurve;
  EXPECT_THAT(printedPages(), ElementsAre("第  1  页"));
  EXPECT_THAT(textsAt(firstPage(), 7000, 2300), ElementsAre("第2级"));
  EXPECT_THAT(stagesOn(firstPage()), ElementsAre("第2级"));
}

TEST_F(StageCurves, ALineSetByHandIsDrawnAndTheWorkspaceStaysAsItIs) {
  TK0SampleRecord& record = workspace.TK0SampleTable[0];
  record.t90Adjusted[0] = 1;
  record.t90Slope[0] = 0.2;
  record.t90Intercept[0] = 0.0;
  SetText(record.k0.lateralPressure[0], "7.0");
  // 0.96 mm are 4.8 roots of 600 twips.
  EXPECT_THAT(all<DrawnLine>(firstPage()), Contains(rule(1950, 2750, 4830, 6950, Colour::Black, 4)));
  EXPECT_EQ(record.k0.lateralPressure[0].trimmed(), "7.0");
}

TEST_F(StageCurves, HaveNoPictures) { EXPECT_THAT(std::string(kStageCurves.picturePrefix), IsEmpty()); }

}  // namespace
}  // namespace triaxlab::testing
