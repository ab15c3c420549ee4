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

/// A text of another size than 10.5 point.
DrawnText sized(std::string_view text, int x, int y, double size) {
  DrawnText drawn = words(text, x, y);
  drawn.font.size = size;
  return drawn;
}

/// The title of a column of 1000 twips with its middle at 5000: symbol at y 100, unit at y 400.
std::vector<DrawnText> title(const char* symbol) {
  RecordingSurface surface;
  drawColumnTitle(surface, {symbol, "(kPa)"}, 5000, 1000, 100, 400, Font{});
  return all<DrawnText>(surface.operations());
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

// ---- Titles

TEST(ColumnTitle, SubscriptsAreSmallAndLow) {
  // σ 210 and the small 1, 0.7 x 105 = 73.5: 283.5 wide, from 5000 - 141.75. 8 x 10.5 = 84 lower.
  EXPECT_THAT(title("σ_1"), ElementsAre(words("σ", 4858, 100), sized("1", 5068, 184, 10.5 * 0.7),
                                        words("(kPa)", 5000 - 262, 400)));  // 525 / 2 = 262.5
}

TEST(ColumnTitle, TextGoesOnBehindASubscript) {
  // σ 210, 1 73.5, -σ 315, 3 73.5: 672 wide, from 4664.
  EXPECT_THAT(title("σ_1-σ_3"),
              ElementsAre(words("σ", 4664, 100), sized("1", 4874, 184, 10.5 * 0.7), words("-σ", 4948, 100),
                          sized("3", 5263, 184, 10.5 * 0.7), words("(kPa)", 4738, 400)));
}

TEST(ColumnTitle, APrimeStandsOverItsSubscript) {
  // σ 210 and half of the prime's 210: 315 wide, from 4842.5; both marks at 5052.5.
  EXPECT_THAT(title("σ_1′"), ElementsAre(words("σ", 4843, 100), sized("1", 5053, 184, 10.5 * 0.7),
                                         words("′", 5053, 100), words("(kPa)", 4738, 400)));
}

TEST(ColumnTitle, AWideSymbolIsSetSmaller) {
  // "(", "σ", "+σ", ")/2" are 945, the digits 147: 1092 against 0.9 x 1000. 10.5 x 900 / 1092 = 8.65 point.
  const auto texts = title("(σ_1+σ_3)/2");
  EXPECT_EQ(texts.at(0).font.size, 8.6);
  // On one line with the others: 20 x (10.5 - 8.6) = 38 lower. 1092 x 8.6 / 10.5 = 894.4 wide.
  EXPECT_EQ(texts.at(0).upperLeft, (TwipPoint{4553, 138}));
  EXPECT_EQ(texts.back(), words("(kPa)", 4738, 400)) << "the unit keeps its size";
}

TEST(ColumnTitle, WithoutAUnitThereIsOneLine) {
  RecordingSurface surface;
  drawColumnTitle(surface, {"u", ""}, 5000, 1000, 100, 400, Font{});
  EXPECT_EQ(surface.operations().size(), 1U);
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
