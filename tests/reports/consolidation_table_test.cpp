#include "reports/consolidation_table.h"

#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

struct ConsolidationTableTest : PageTest {
  ConsolidationTableTest() { layout = &kConsolidationTable; }

  /// A reading a minute from 0 on, each of 20.0 kPa and 1.50 ml.
  static void putReadings(TriaxialSampleRecord& record, std::size_t count) {
    for (std::size_t row = 0; row < count; ++row) {
      record.consolidationTime[row][0] = static_cast<std::int32_t>(60 * row);
      record.consolidationPorePressure[row][0] = 200;
      record.consolidationVolume[row][0] = 150;
    }
  }
  static DrawnText cell(std::string_view text, int x, int y) { return sized(10, text, x, y); }
};

TEST_F(ConsolidationTableTest, AStageOfFewReadings) {
  putReadings(sample(0, kCU, "A-1"), 3);
  const Drawing page = firstPage();
  EXPECT_THAT(textsWith(page, "固  结"), ElementsAre("固  结  数  据  表"));
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({words("工程编号:P1", 600, 1900), words("固结不排水试验", 4500, 2180)}));
  // Columns of 1312.5 from 600 on: 1256.25, 2568.75, 3881.25, 5193.75; lines of 290 from 3160 on.
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({cell("序号", 1056, 2560), cell("(min)", 2319, 2840), cell("孔压", 3681, 2560),
                            cell("(ml)", 4994, 2840), cell("1", 1206, 3160), cell("0.0", 2419, 3160),
                            cell("20.0", 3681, 3160), cell("0.00", 4994, 3160), cell("3", 1206, 3740),
                            cell("2.0", 2419, 3740), cell("20.0", 3681, 3740), cell("1.50", 4994, 3740)}));
  EXPECT_THAT(all<DrawnLine>(page),
              ElementsAre(rule(600, 2500, 5850, 2500, Colour::Black, 4), rule(600, 3120, 5850, 3120, Colour::Black, 4),
                          rule(600, 3990, 5850, 3990, Colour::Black, 4)))
      << "nothing stands in the right half";
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({cell("起始孔压:20.0kPa", 600, 4030), cell("破坏孔压:kPa", 3600, 4030),
                                                  cell("σ1 -σ3 :15kPa", 6600, 4030)}));
}

TEST_F(ConsolidationTableTest, TheCoefficientsStandBelowTheFoot) {
  TriaxialSampleRecord& record = sample(0, kCU, "A-1");
  putReadings(record, 1);
  record.coefficientB[0] = 0.955F;
  record.coefficientAf[0] = 0.25F;
  // "孔隙压力系数 A" is 14 bytes of 100; f has 0.7 of that width and stands 8 x 10 lower.
  EXPECT_THAT(all<DrawnText>(firstPage()),
              IsSupersetOf({cell("孔隙压力系数 B = 0.96", 600, 3740), cell("孔隙压力系数 A", 5000, 3740),
                            sized(7, "f", 6400, 3820), cell(" = 0.25", 6470, 3740)}));
  record.coefficientB[0] = 0;
  EXPECT_THAT(textsWith(firstPage(), "孔隙压力系数"), ElementsAre("孔隙压力系数 A"));
  record.coefficientAf[0] = 0;
  EXPECT_THAT(textsWith(firstPage(), "孔隙压力系数"), IsEmpty());
}

TEST_F(ConsolidationTableTest, TheFortyFirstReadingBeginsTheRightHalf) {
  putReadings(sample(0, kCU, "A-1"), 41);
  const Drawing page = firstPage();
  // The right half lies 5450 further to the right.
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({cell("40", 1156, 14470), cell("41", 6606, 3160),
                                                  cell("40.0", 7819, 3160), cell("序号", 6506, 2560)}));
  EXPECT_THAT(all<DrawnLine>(page), IsSupersetOf({rule(600, 14720, 5850, 14720, Colour::Black, 4),
                                                  rule(6050, 2500, 11300, 2500, Colour::Black, 4),
                                                  rule(6050, 14720, 11300, 14720, Colour::Black, 4)}));
  EXPECT_THAT(textsAt(page, 600, 14760), SizeIs(1)) << "the foot";
}

TEST_F(ConsolidationTableTest, EightyReadingsStandOnAPage) {
  TriaxialSampleRecord& record = sample(0, kCU, "A-1");
  record.coefficientB[0] = 0.9F;
  putReadings(record, 81);
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(textsWith(pages[0].drawing, "起始孔压"), IsEmpty());
  EXPECT_THAT(textsWith(pages[0].drawing, "孔隙压力系数"), IsEmpty());
  EXPECT_THAT(all<DrawnText>(pages[1].drawing), Contains(cell("81", 1156, 3160)));
  EXPECT_THAT(textsAt(pages[1].drawing, 600, 3740), ElementsAre("孔隙压力系数 B = 0.90"));
}

TEST_F(ConsolidationTableTest, ARowWithoutAReadingKeepsItsNumber) {
  TriaxialSampleRecord& record = sample(0, kCU, "A-1");
  record.consolidationVolume[2][0] = 40;
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({cell("1", 1206, 3160), cell("2", 1206, 3450), cell("3", 1206, 3740)}));
  EXPECT_THAT(all<DrawnLine>(page), Contains(rule(600, 3990, 5850, 3990, Colour::Black, 4)));
}

TEST_F(ConsolidationTableTest, UUAndStagesWithoutReadingsHaveNoPage) {
  putReadings(sample(0, kUU, "A-1"), 3);
  sample(1, kCU, "A-2");
  EXPECT_EQ(pageCount(), 0);
}

TEST_F(ConsolidationTableTest, CDMeasuresNoPorePressureAtFailure) {
  putReadings(sample(0, kCD, "A-1"), 1);
  EXPECT_THAT(textsWith(firstPage(), "破坏孔压"), ElementsAre("破坏孔压:    kPa"));
}

}  // namespace
}  // namespace triaxlab::testing
