#include "reports/unconfined_table.h"

#include "reports/unconfined_samples.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

// Eight columns of 1188 twips from x 1200 on; 23 rows of 365.2 from y 3600 on, in which a text of 200 begins at 3683,
// 4048 and so on.

struct UnconfinedTable : UnconfinedPageTest {
  UnconfinedTable() { layout = &kUnconfinedTable; }

  /// The texts in the rows of the table.
  static std::vector<std::string> cells(const Drawing& page) {
    std::vector<std::string> found;
    for (const DrawnText& text : all<DrawnText>(page))
      if (text.upperLeft.y > 3600 && text.upperLeft.y < 12000) found.push_back(text.text);
    return found;
  }
};

TEST_F(UnconfinedTable, FrameAndResultsAtTheirPlaces) {
  sample(0, "A-1");
  // The title has 26 bytes of 190 twips. qu is the top of a parabola, 41.256 kPa.
  EXPECT_THAT(
      all<DrawnText>(firstPage()),
      IsSupersetOf({
          DrawnText{{3482, 800}, "无侧限抗压强度试验(应变式)", Font{.size = 19, .bold = true}, Colour::Black, false},
          small("第  1  页", 9500, 500),
          small("工程编号:P1", 600, 2000),
          small("土样编号:A-1", 4700, 2000),
          small("试验日期:", 8100, 2000),
          small("试验：", 600, 15000),
          small("检查：", 2700, 15000),
          small("qu = 41.3kpa", 1200, 12200),
          small("qu' = kpa", 4000, 12200),
          small(" St = ", 6800, 12200),
          small("钢环系数：1.250N /0.01mm", 1200, 12500),
          small("钢环系数：0.000N /0.01mm", 5000, 12500),
      }));
}

TEST_F(UnconfinedTable, IsRuledRoundHeadsGroupsAndColumns) {
  sample(0, "A-1");
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnBox>(page),
              ElementsAre(DrawnBox{{1200, 2600}, {10704, 12000}, {Colour::Black, 4}, std::nullopt}));
  EXPECT_THAT(all<DrawnLine>(page),
              ::testing::UnorderedElementsAre(
                  rule(1200, 3100, 10704, 3100, Colour::Black, 4), rule(1200, 3600, 10704, 3600, Colour::Black, 4),
                  rule(5952, 2600, 5952, 12000, Colour::Black, 4), rule(2388, 3100, 2388, 12000, Colour::Black, 4),
                  rule(3576, 3100, 3576, 12000, Colour::Black, 4), rule(4764, 3100, 4764, 12000, Colour::Black, 4),
                  rule(7140, 3100, 7140, 12000, Colour::Black, 4), rule(8328, 3100, 8328, 12000, Colour::Black, 4),
                  rule(9516, 3100, 9516, 12000, Colour::Black, 4)));
}

TEST_F(UnconfinedTable, HeadsTellGroupsColumnsAndUnits) {
  sample(0, "A-1");
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({small("原  状", 3276, 2750), small("重  塑", 8028, 2750), small("轴向应变", 1394, 3150),
                            small("%", 1744, 3370), small("剪切面积", 2582, 3150), small("( cm  )", 2632, 3370),
                            small("量表读数", 3770, 3150), small("(0.01mm)", 3770, 3370), small("轴向应力", 4958, 3150),
                            small("(kPa)", 5108, 3370), small("轴向应变", 6146, 3150)}));
  // The raised "2" stands behind "( cm", 400 twips from the beginning of the unit.
  EXPECT_THAT(all<DrawnText>(page), Contains(sized(7, "2", 3032, 3330)));
  EXPECT_THAT(textsWith(page, "轴向变形"), IsEmpty());
}

TEST_F(UnconfinedTable, ARowTellsStrainAreaReadingAndStress) {
  sample(0, "A-1");
  // 30 / 0.99 = 30.303 and 30 / 0.98 = 30.612 cm².
  EXPECT_THAT(all<DrawnText>(firstPage()),
              IsSupersetOf({small("1.0", 1644, 3683), small("30.30", 2732, 3683), small("80.0", 3970, 3683),
                            small("33.0", 5158, 3683), small("2.0", 1644, 4048), small("30.61", 2732, 4048),
                            small("100.0", 3920, 4048), small("40.8", 5158, 4048)}));
  EXPECT_EQ(cells(firstPage()).size(), 8U) << "the remoulded side is empty";
}

TEST_F(UnconfinedTable, ARemouldedSpecimenStandsOnTheRight) {
  UnconfinedSampleRecord& record = sample(0, "A-1");
  record.sampleArea[1] = record.sampleArea[0];
  SetText(record.remouldedStrain[0], "1.0");
  SetText(record.remouldedStress[0], "12.5");
  EXPECT_THAT(all<DrawnText>(firstPage()),
              IsSupersetOf({small("1.0", 6396, 3683), small("30.30", 7484, 3683), small("12.5", 9910, 3683)}));
}

TEST_F(UnconfinedTable, MagnitudesOfATenthAndBelowAreBlank) {
  UnconfinedSampleRecord& record = sample(0, "A-1");
  SetText(record.undisturbedStrain[0], "0.1");
  SetText(record.undisturbedReading[0], "0.1");
  SetText(record.undisturbedStress[0], "-0.1");
  record.ringCoefficient[0] = 0;
  SetText(record.undisturbedStress[1], "0.2");
  // The area would be 30.03 at 0.1 %, but a row without a strain has none.
  EXPECT_THAT(cells(firstPage()), ElementsAre("2.0", "30.61", "100.0", "0.2"));
}

TEST_F(UnconfinedTable, AStrainOfAHundredPercentLeavesNoArea) {
  UnconfinedSampleRecord& record = sample(0, "A-1");
  SetText(record.undisturbedStrain[1], "100.0");
  SetText(record.undisturbedReading[1], "");
  EXPECT_THAT(cells(firstPage()), ElementsAre("1.0", "30.30", "80.0", "33.0", "100.0"));
}

TEST_F(UnconfinedTable, AStrainBehindTheTwentyThirdRowMakesTheTableLong) {
  UnconfinedSampleRecord& record = sample(0, "A-1");
  SetText(record.undisturbedStrain[22], "9.0");
  SetText(record.undisturbedStrain[50], "25.0");
  EXPECT_THAT(textsAt(firstPage(), 1644, 11717), ElementsAre("9.0"));  // 3600 + 22 x 365.217 + 82.6
  SetText(record.remouldedStrain[23], "9.5");
  // Rows of 168 in 7.5 point, 150 high: row 23 begins at 7464.
  EXPECT_THAT(all<DrawnText>(firstPage()),
              IsSupersetOf({sized(7.5, "1.0", 1682, 3609), sized(7.5, "9.5", 6434, 7473)}));
  EXPECT_THAT(cells(firstPage()), Not(Contains("25.0"))) << "the last row has no place";
}

TEST_F(UnconfinedTable, TheChangeOfHeightIsAColumnOfItsOwn) {
  sample(0, "A-1");
  habits.unconfinedHeightChange = true;
  // Ten columns of 950.4. 2 % of 80 mm less 100 x 0.01 mm are 0.6 mm; 1 % less 80 x 0.01 mm are none.
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({small("轴向变形", 2226, 3150), small("(mm)", 2426, 3370), small("轴向变形", 6978, 3150),
                            small("1.0", 1525, 3683), small("30.30", 3326, 3683), small("0.60", 2426, 4048)}));
  EXPECT_EQ(cells(page).size(), 9U);
  EXPECT_THAT(all<DrawnLine>(page), Contains(rule(2150, 3100, 2150, 12000, Colour::Black, 4)));
}

TEST_F(UnconfinedTable, WithoutAHeightThereIsNoChangeOfIt) {
  SetText(sample(0, "A-1").sampleHeight[0], "0.1");
  habits.unconfinedHeightChange = true;
  EXPECT_EQ(cells(firstPage()).size(), 8U);
}

TEST_F(UnconfinedTable, TheRingCoefficientsCanBeLeftOut) {
  sample(0, "A-1");
  habits.omitRingCoefficient = true;
  EXPECT_THAT(textsWith(firstPage(), "钢环系数"), IsEmpty());
}

TEST_F(UnconfinedTable, ALongProjectNumberSendsTheSampleToALineOfItsOwn) {
  sample(0, "A-1");
  habits.wideProjectNo = true;
  EXPECT_THAT(textsAt(firstPage(), 600, 2300), ElementsAre("土样编号:A-1"));
  EXPECT_THAT(textsAt(firstPage(), 8100, 2000), ElementsAre("试验日期:"));
  // 72 bytes of 100 twips have room up to the date, but not up to the sample.
  habits.projectNoLabel = std::string(69, 'x');
  EXPECT_THAT(fontsOf(firstPage(), "xxx"), ElementsAre(Font{.size = 10}));
  habits.wideProjectNo = false;
  EXPECT_THAT(fontsOf(firstPage(), "xxx"), Not(ElementsAre(Font{.size = 10})));
}

TEST_F(UnconfinedTable, TheSampleHasTheLaboratorysWord) {
  sample(0, "A-1");
  habits.sampleNoLabel = "编号";
  EXPECT_THAT(textsAt(firstPage(), 4700, 2000), ElementsAre("编号:A-1"));
}

TEST_F(UnconfinedTable, ASampleHasAPageAndItsNumberInTheWholeJob) {
  for (const std::size_t row : {0U, 1U, 2U}) sample(row, "A-" + std::to_string(row + 1));
  EXPECT_THAT(pageNumbers(print(), 9500, 500), ElementsAre("第  1  页", "第  2  页", "第  3  页"));
  job.scope = PrintScope::Range;
  job.printRangeFrom = job.printRangeTo = 2;
  EXPECT_THAT(pageNumbers(print(), 9500, 500), ElementsAre("第  2  页"));
  EXPECT_THAT(textsAt(firstPage(), 4700, 2000), ElementsAre("土样编号:A-2"));
}

TEST_F(UnconfinedTable, GoesIntoPicturesOfItsTest) { EXPECT_EQ(kUnconfinedTable.picturePrefix, "WCX"); }

}  // namespace
}  // namespace triaxlab::testing
