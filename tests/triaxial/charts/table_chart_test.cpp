#include "triaxial/charts/table_chart.h"

#include "support/drawings.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

DataTable smallTable() {
  TriaxialSampleRecord record;
  record.testMethod = kUU;
  DataTable table;
  table.heading = {"工程编号:A", "试样编号:B", "周围压力:100 kPa", "试验日期:2024-05-06", "", "剪切速率:%/min"};
  table.columns = dataTableColumns(record);
  table.rows = {{"0.40", "30", "130", "115", "15", "", ""}, {}, {"1.20"}};
  table.foot = {"93.4", "    ", "60"};
  return table;
}

Drawing draw(const DataTable& table) {
  RecordingSurface surface;
  drawDataTable(surface, table);
  return surface.operations();
}

Drawing draw(const ConsolidationTable& table) {
  RecordingSurface surface;
  drawConsolidationTable(surface, table);
  return surface.operations();
}

TEST(DataTableChart, HeadingStandsOnTwoLinesOfThree) {
  const auto texts = all<DrawnText>(draw(smallTable()));
  EXPECT_THAT(texts, Contains(words("工程编号:A", 300, 250)));
  EXPECT_THAT(texts, Contains(words("试样编号:B", 4200, 250)));
  EXPECT_THAT(texts, Contains(words("周围压力:100 kPa", 7400, 250)));
  EXPECT_THAT(texts, Contains(words("试验日期:2024-05-06", 300, 600)));
  EXPECT_THAT(texts, Contains(words("剪切速率:%/min", 7400, 600)));
  EXPECT_THAT(textsOf(draw(smallTable()), Colour::Black), ::testing::Not(Contains(""))) << "no test, no text";
}

TEST(DataTableChart, RulesLieAboveAndBelowTitlesAndRows) {
  EXPECT_THAT(all<DrawnLine>(draw(smallTable())),
              ElementsAre(rule(300, 1200, 12300, 1200), rule(300, 1850, 12300, 1850), rule(300, 7560, 12300, 7560)));
}

TEST(DataTableChart, CellsAreCentredOnTheirColumns) {
  const auto texts = all<DrawnText>(draw(smallTable()));
  // A character is 105 twips wide: four are 420, two 210, three 315.
  EXPECT_THAT(texts, Contains(words("0.40", 800 - 210, 1950)));
  EXPECT_THAT(texts, Contains(words("30", 1800 - 105, 1950)));
  EXPECT_THAT(texts, Contains(words("115", 3800 - 157, 1950)));  // 3642.5, rounded away from 0
  EXPECT_THAT(texts, Contains(words("1.20", 800 - 210, 1950 + 700)));
}

TEST(DataTableChart, FootStandsBelowTheLastRule) {
  const auto texts = all<DrawnText>(draw(smallTable()));
  EXPECT_THAT(texts, Contains(words("起始孔压:93.4kPa", 300, 7650)));
  EXPECT_THAT(texts, Contains(words("破坏孔压:    kPa", 3300, 7650)));
  EXPECT_THAT(texts, Contains(words("σ1 -σ3 :60kPa", 6300, 7650)));
}

TEST(DataTableChart, NoColumnsBesideThoseOfTheTest) {
  EXPECT_THAT(textsWith(draw(smallTable()), "(kPa)").size(), 5U);
  EXPECT_THAT(textsWith(draw(smallTable()), "(ml)").size(), 1U);
}

// ---- 固结数据表

TEST(ConsolidationChart, HasFourColumnsAndARowForEachReading) {
  ConsolidationTable table;
  table.heading = {"P", "S", "C", "D", "T", "R"};
  table.rows = {{"1", "0.0", "93.4", "0.00"}, {"2", "", "", ""}};
  table.foot = {"93.4", "36", "138"};
  const auto texts = all<DrawnText>(draw(table));
  EXPECT_THAT(texts, Contains(words("序号", 900 - 210, 1260)));
  EXPECT_THAT(texts, Contains(words("时间", 2600 - 210, 1260)));
  EXPECT_THAT(texts, Contains(words("(min)", 2600 - 262, 1540)));
  EXPECT_THAT(texts, Contains(words("(ml)", 6000 - 210, 1540)));
  EXPECT_THAT(texts, Contains(words("93.4", 4300 - 210, 1950)));
  EXPECT_THAT(texts, Contains(words("2", 900 - 52, 2300)));  // 52.5
  EXPECT_THAT(texts, Contains(words("破坏孔压:36kPa", 3000, 7650)));
  EXPECT_THAT(texts, Contains(words("σ1 -σ3 :138kPa", 5200, 7650)));
}

TEST(ConsolidationChart, TheStartPorePressureStandsWhereItIsTyped) {
  ConsolidationTable table;
  table.foot.startPorePressure = "93.4";
  const auto texts = all<DrawnText>(draw(table));
  EXPECT_THAT(texts, Contains(words("起始孔压:", 300, 7650)));
  EXPECT_THAT(texts, Contains(words("93.4", kStartPorePressureX + 60, 7650)));
  EXPECT_THAT(texts, Contains(words("kPa", kStartPorePressureX + kStartPorePressureWidth + 60, 7650)));
}

TEST(ConsolidationChart, NothingReachesBeyondTheCanvas) {
  ConsolidationTable table;  // each text as long as its field
  table.heading = {"工程编号:" + std::string(15, '9'),
                   "试样编号:" + std::string(14, '9'),
                   "周围压力:999999 kPa",
                   "试验日期:2024-05-06",
                   "多级不固结不排水试验",
                   "剪切速率:9.999%/min"};
  table.foot = {"3276.7", "99999", "999999"};
  const auto texts = all<DrawnText>(draw(table));
  for (const DrawnText& text : texts)
    EXPECT_LE(text.upperLeft.x + textWidth(text.text, text.font), kConsolidationTableWidth) << text.text;
  for (const DrawnText& left : texts)
    for (const DrawnText& right : texts)
      if (left.upperLeft.y == right.upperLeft.y && left.upperLeft.x < right.upperLeft.x) {
        EXPECT_LE(left.upperLeft.x + textWidth(left.text, left.font), right.upperLeft.x) << left.text;
      }
}

}  // namespace
}  // namespace triaxlab::testing
