#include "reports/ko_results.h"

#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

// The first block begins at y 2300, the second at 7800. The corner of a canvas lies 1300 left of the page and 150 below
// its block, so a plot goes from x 1200 to 7200 and from 450 to 4270 below the block.

void fill(K0SampleRecord& record) {
  SetText(record.projectNo, "P1");
  SetText(record.sampleNo, "K-1");
  SetText(record.samplingDepth, "3.20");
  // Ko = (39 - 15) / (100 - 40) = 0.4 and -1 kPa at 0.
  SetText(record.axialDeformation[0], "0.315");
  SetText(record.axialPressure[0], "40.0");
  SetText(record.lateralPressure[0], "15.0");
  SetText(record.axialPressure[1], "100.0");
  SetText(record.lateralPressure[1], "39.0");
}

struct KoResults : PageTest {
  KoResults() {
    layout = &kK0Results;
    fill(record);
  }
  K0SampleRecord& record = workspace.K0SampleTable[0];
};

TEST_F(KoResults, HeadChartAndTableAtTheirPlaces) {
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({small("试样编号:K-1", 1200, 2300), small("取土深度:3.20", 4700, 2300),
                                                  words("Ko = 0.400", 3700, 2950)}));
  EXPECT_THAT(all<DrawnBox>(page), IsSupersetOf({
                                       DrawnBox{{1200, 2750}, {7200, 6570}, {Colour::Grey, 4}, std::nullopt},
                                       DrawnBox{{2300, 2850}, {6100, 3250}, {Colour::Black, 4}, Colour::LightCyan},
                                       DrawnBox{{7900, 2750}, {11300, 6550}, {Colour::Black, 4}, std::nullopt},
                                   }));
}

TEST_F(KoResults, TheSecondSampleStandsBelow) {
  fill(workspace.K0SampleTable[1]);
  const Drawing page = firstPage();
  EXPECT_THAT(textsAt(page, 1200, 7800), ElementsAre("试样编号:K-1"));
  EXPECT_THAT(textsAt(page, 3700, 8450), ElementsAre("Ko = 0.400"));
  EXPECT_THAT(all<DrawnBox>(page), Contains(DrawnBox{{7900, 8250}, {11300, 12050}, {Colour::Black, 4}, std::nullopt}));
}

TEST_F(KoResults, TheAxesNameTheStresses) {
  const Drawing page = firstPage();
  // Eight bytes of 105 twips: to the left of x 7200, and upward about the middle of the plot at y 4660.
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({words("σ1(kPa)", 6360, 6830), upward("σ3(kPa)", 480, 5080)}));
  EXPECT_THAT(textsWith(page, "(kPa)"), ElementsAre("(kPa)", "(kPa)")) << "those of the table alone";
}

TEST_F(KoResults, TheTableIsRuled) {
  const auto lines = all<DrawnLine>(firstPage());
  EXPECT_THAT(lines, IsSupersetOf({
                         rule(7900, 3250, 11300, 3250, Colour::Black, 4),  // below the head
                         rule(7900, 3580, 11300, 3580, Colour::Black, 4),  // below the first of ten rows of 330
                         rule(7900, 6220, 11300, 6220, Colour::Black, 4),  // above the last
                         rule(9033, 2750, 9033, 6550, Colour::Black, 4),
                         rule(10167, 2750, 10167, 6550, Colour::Black, 4),
                     }));
}

TEST_F(KoResults, TheDecimalPointsOfAColumnStandBelowEachOther) {
  // The middle column is centred on 9600. Its widest number has 300 twips in front of the point and 200 from there on,
  // so the points stand at 9650. A row is 330 high, a text 200.
  const auto texts = all<DrawnText>(firstPage());
  EXPECT_THAT(texts, IsSupersetOf({small("轴向压力", 9200, 2790), small("(kPa)", 9350, 3010), small("40.0", 9450, 3315),
                                   small("100.0", 9350, 3645)}));
  // One number alone stands in the middle: 8466.7 less half of its 500.
  EXPECT_THAT(texts, Contains(small("0.315", 8217, 3315)));
}

TEST_F(KoResults, TheNumbersAreFreshAndTheWorkspaceStaysAsItIs) {
  SetText(record.koValue, "9.999");
  SetText(record.koIntercept, "7.0");
  const K0SampleRecord before = record;
  EXPECT_THAT(textsWith(firstPage(), "Ko ="), ElementsAre("Ko = 0.400"));
  EXPECT_EQ(record.koValue, before.koValue);
  EXPECT_EQ(record.koIntercept, before.koIntercept);
}

TEST_F(KoResults, ALineSetByHandStays) {
  SetText(record.koValue, "0.500");
  record.koAdjusted = 1;
  EXPECT_THAT(textsWith(firstPage(), "Ko ="), ElementsAre("Ko = 0.500"));
}

TEST_F(KoResults, HaveNoPictures) {
  EXPECT_TRUE(kK0Results.picturePrefix.empty());
  EXPECT_TRUE(kTK0Results.picturePrefix.empty());
}

/// One stage whose T90 comes out of its readings, and one without.
struct TK0Results : PageTest {
  TK0Results() {
    layout = &kTK0Results;
    fill(record.k0);
  }
  TK0SampleRecord& record = workspace.TK0SampleTable[0];
};

TEST_F(TK0Results, ShowThePressuresAtT90) {
  // A stage without readings has no pressure at T90, whatever its field held.
  const Drawing page = firstPage();
  EXPECT_THAT(textsWith(page, "39.0"), IsEmpty());
  EXPECT_THAT(textsWith(page, "0.0"), ElementsAre("0.0", "0.0"));
  EXPECT_EQ(record.k0.lateralPressure[1].trimmed(), "39.0") << "the workspace stays as it is";
}

TEST_F(TK0Results, HaveTheirOwnHabitForTheDate) {
  workspace.settings.habits.omitK0TestDate = true;
  EXPECT_THAT(textsWith(firstPage(), "试验日期"), ElementsAre("试验日期:"));
  workspace.settings.habits.omitTK0TestDate = true;
  EXPECT_THAT(textsWith(firstPage(), "试验日期"), IsEmpty());
}

}  // namespace
}  // namespace triaxlab::testing
