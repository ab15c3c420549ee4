#include "reports/triaxial_table.h"

#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

struct TriaxialTableTest : PageTest {
  TriaxialTableTest() { layout = &kTriaxialTable; }

  /// Readings of 10 kPa at each 0.4 %, in the first rows.
  static void putReadings(TriaxialSampleRecord& record, std::size_t stage, std::size_t count) {
    for (std::size_t row = 0; row < count; ++row) {
      record.axialStrain[row][stage] = 0.4F * static_cast<float>(row + 1);
      SetText(record.deviatorStress[row][stage], "10");
    }
  }
  static DrawnText cell(std::string_view text, int x, int y) { return sized(10, text, x, y); }
};

TEST_F(TriaxialTableTest, AStageOfCU) {
  TriaxialSampleRecord& record = sample(0, kCU, "A-1");
  SetText(record.porePressure[1][0], "6");
  SetText(record.sigma1Eff[1][0], "109");
  SetText(record.sigma3Eff[1][0], "94");
  record.volumeChange[1][0] = 150;
  record.consolidationPorePressure[0][0] = 385;
  record.shearRate[0] = 80;
  SetText(record.testDate, "2024-05-06");
  const Drawing page = firstPage();
  EXPECT_THAT(textsWith(page, "三  轴"), ElementsAre("三  轴  试  验  数  据  表"));
  EXPECT_THAT(textsWith(page, "(固结"), IsEmpty()) << "no method below the title";
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({words("工程编号:P1", 600, 1900), words("试样编号:A-1", 4500, 1900),
                            words("周围压力:100 kPa", 7800, 1900), words("试验日期:2024-05-06", 600, 2180),
                            words("固结不排水试验", 4500, 2180), words("剪切速率:0.080%/min", 7800, 2180)}));
  EXPECT_THAT(all<DrawnLine>(page), ElementsAre(rule(600, 2500, 11300, 2500, Colour::Black, 4),
                                                rule(600, 3120, 11300, 3120, Colour::Black, 4),
                                                rule(600, 3700, 11300, 3700, Colour::Black, 4)));
  // Middles of the columns: 968.75, 1706.25, 2443.75, 3412.5, 4612.5, 5581.25, 6318.75, 7056.25, 7793.75, 8762.5,
  // 9962.5, 10931.25; a digit is 100 wide.
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({cell("0.40", 769, 3160), cell("10", 1606, 3160), cell("110", 2294, 3160),
                            cell("105", 3263, 3160), cell("5", 4563, 3160), cell("0.80", 769, 3450),
                            cell("15", 1606, 3450), cell("115", 2294, 3450), cell("6", 5531, 3450),
                            cell("109", 6906, 3450), cell("94", 7694, 3450), cell("1.160", 10681, 3450)}));
  EXPECT_THAT(all<DrawnText>(page),
              IsSupersetOf({cell("起始孔压:38.5kPa", 600, 3740), cell("破坏孔压:6kPa", 3600, 3740),
                            cell("σ1 -σ3 :15kPa", 6600, 3740)}));
}

TEST_F(TriaxialTableTest, OtherThanCUHaveSevenEqualColumns) {
  sample(0, kUU, "A-1");
  const Drawing page = firstPage();
  // 10700 / 7 wide: the middles lie at 1364.3, 2892.9 and, of the last, 10535.7.
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({cell("(%)", 1214, 2840), cell("(kPa)", 2643, 2840),
                                                  cell("(ml)", 10336, 2840), cell("0.40", 1164, 3160)}));
}

TEST_F(TriaxialTableTest, TheStressOfTheFootIsThatOfTheFailureRow) {
  TriaxialSampleRecord& record = sample(0, kCU, "A-1");
  SetText(record.deviatorStress[1][0], "160.5");
  SetText(record.sigma1Failure[0], "260");  // as an opening rounds 260.5
  EXPECT_THAT(textsWith(firstPage(), "σ1 -σ3"), ElementsAre("σ1 -σ3 :161kPa"));
}

TEST_F(TriaxialTableTest, RowsWithoutAReadingTakeNoLine) {
  TriaxialSampleRecord& record = sample(0, kUU, "A-1");
  putReadings(record, 0, 4);
  record.deviatorStress[1][0].clear();
  record.axialStrain[2][0] = 0;
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({cell("0.40", 1164, 3160), cell("1.60", 1164, 3450)}));
  EXPECT_THAT(textsAt(page, 600, 3740), SizeIs(1)) << "the foot";
}

TEST_F(TriaxialTableTest, FortyReadingsStandOnAPageAndTheFootAtTheEnd) {
  TriaxialSampleRecord& record = sample(0, kUU, "A-1");
  putReadings(record, 0, 40);
  ASSERT_EQ(pageCount(), 1);
  EXPECT_THAT(textsAt(firstPage(), 600, 3160 + 40 * 290), SizeIs(1));
  putReadings(record, 0, 41);
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(textsWith(pages[0].drawing, "起始孔压"), IsEmpty());
  EXPECT_THAT(all<DrawnLine>(pages[0].drawing), Contains(rule(600, 14720, 11300, 14720, Colour::Black, 4)));
  EXPECT_THAT(all<DrawnText>(pages[1].drawing), Contains(cell("16.40", 1114, 3160)));
  EXPECT_THAT(textsAt(pages[1].drawing, 600, 3450), SizeIs(1));
  EXPECT_THAT(textsAt(pages[1].drawing, 9500, 300), ElementsAre("第  2  页"));
}

TEST_F(TriaxialTableTest, EachStageWithReadingsBeginsAPage) {
  TriaxialSampleRecord& record = sample(0, kUU, "A-1");
  SetText(record.cellPressure[1], "200");
  SetText(record.cellPressure[2], "300");
  putReadings(record, 2, 3);
  sample(1, kUU, "A-2", "P2");
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(3));
  EXPECT_THAT(textsAt(pages[1].drawing, 7800, 1900), ElementsAre("周围压力:300 kPa"));
  EXPECT_THAT(textsAt(pages[2].drawing, 4500, 1900), ElementsAre("试样编号:A-2"));
  EXPECT_EQ(report()->samplesOf(3).front().projectNo, "P2");
}

TEST_F(TriaxialTableTest, TheProjectsDateStandsInTheHeadingAndTheSamplesInTheFrame) {
  SetText(sample(0, kUU, "A-1").testDate, "2024-05-06");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo, "P1");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate, "2024-04-30");
  EXPECT_THAT(textsAt(firstPage(), 600, 2180), ElementsAre("试验日期:2024-04-30"));
  EXPECT_THAT(textsAt(firstPage(), 7800, 1350), ElementsAre("试验日期:2024-05-06"));
}

TEST_F(TriaxialTableTest, DatesAreLeftOut) {
  LaboratoryHabits& habits = workspace.settings.habits;
  sample(0, kUU, "A-1");
  for (bool LaboratoryHabits::*key : {&LaboratoryHabits::omitTriaxialTestDate, &LaboratoryHabits::omitPageDateTable}) {
    habits = {};
    habits.*key = true;
    EXPECT_THAT(textsWith(firstPage(), "试验日期"), IsEmpty());
  }
}

TEST_F(TriaxialTableTest, RulesFollowThePrinter) {
  sample(0, kUU, "A-1");
  job.lineWeight = 2;
  EXPECT_EQ(report()->pageSize(), kDotMatrixPage);
  EXPECT_THAT(all<DrawnLine>(firstPage()), Contains(rule(600, 2500, 11300, 2500, Colour::Black, 2)));
}

}  // namespace
}  // namespace triaxlab::testing
