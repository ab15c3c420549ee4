#include "k0/settlement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "k0/samples.h"

namespace triaxlab {
namespace {

using testing::lineAndBend;
using testing::withRows;

TEST(T90, LiesWhereTheSecondLineMeetsTheCurve) {
  TK0SampleRecord record = withRows(lineAndBend());
  const T90 t90 = computeStageResults(record)[0];
  // The second line rises by 0.1 / 1.15 = 0.0869565; the parabola through (6, 0.52), (5, 0.5), (4, 0.4) is
  // -0.04 x² + 0.46 x - 0.8. They meet at (0.3730435 + sqrt(0.3730435² - 0.128)) / 0.08 = 5.98364.
  EXPECT_NEAR(t90.rootTime, 5.98364, 0.0001);
  EXPECT_EQ(FormatNumber(t90.minutes(), NumberFormat::Tenths), "35.8");
  EXPECT_EQ(record.k0.lateralPressure[0].trimmed(), "59.8");
  EXPECT_NEAR(record.t90Slope[0], 0.1, 1e-6);
  EXPECT_NEAR(record.t90Intercept[0], 0, 1e-6);
}

TEST(T90, OfReadingsInTheMiddleGoesForward) {
  std::vector<testing::SettlementRow> rows = lineAndBend();
  rows.push_back({2940, "0.530", "70.0"});  // 7
  TK0SampleRecord record = withRows(rows);
  const T90 t90 = computeStageResults(record)[0];
  // Now through (5, 0.5), (6, 0.52), (7, 0.53): -0.005 x² + 0.075 x + 0.25, less 0.0869565 x:
  // x² + 2.3913 x - 50 = 0, x = -1.19565 + sqrt(1.42958 + 50) = 5.97580
  EXPECT_NEAR(t90.rootTime, 5.97580, 0.0005);
}

TEST(T90, TheZeroReadingNeverCounts) {
  TK0SampleRecord with = withRows(lineAndBend()), without = with;
  SetText(with.deformationSeries[0][0], "0.999");
  with.elapsedSeconds[0] = 30;
  EXPECT_EQ(computeStageResults(with)[0], computeStageResults(without)[0]);
}

TEST(T90, OnlyTheFirst21RowsBehindItCount) {
  std::vector<testing::SettlementRow> rows;
  for (int i = 1; i <= 30; ++i) rows.push_back({60 * i * i, "0.1", "5.0"});
  EXPECT_EQ(settlementOf(withRows(rows), 0).count, 21U);
}

TEST(T90, RowsWithoutATimeAreLeftOut) {
  std::vector<testing::SettlementRow> rows = lineAndBend();
  rows[2].seconds = 0;
  const Settlement settlement = settlementOf(withRows(rows), 0);
  EXPECT_EQ(settlement.count, 5U);
  EXPECT_EQ(settlement.rootTime[2], 4.0F);
}

TEST(T90, RootsHaveThreeDecimals) {
  EXPECT_EQ(settlementOf(withRows({{120, "", ""}}), 0).rootTime[0], 1.414F) << "the root of 2 is 1.41421";
  EXPECT_EQ(settlementOf(withRows({{-60, "", ""}}), 0).rootTime[0], 0.0F);
}

TEST(FirstLine, CountsFiveReadingsEvenWhereThreeStand) {
  // x 1, 2, 3 and y 1, 2, 3 with two zeros: n is 5, so the sums are 6, 14, 6, 14 and the line goes through the origin.
  TK0SampleRecord record = withRows({{60, "1", ""}, {240, "2", ""}, {540, "4", ""}});
  const StraightLine line = firstLineOf(settlementOf(record, 0));
  // y: 1, 2, 4: Sy 7, Sxy 17; d = 36 - 70 = -34; slope (42 - 85) / -34 = 1.264706; intercept 1.4 - 1.517647 = -0.117647
  EXPECT_NEAR(line.slope, 43.0 / 34, 1e-12);
  EXPECT_NEAR(line.intercept, 1.4 - 6 * (43.0 / 34) / 5, 1e-12);
}

TEST(T90, WithoutReadingsIsZero) {
  TK0SampleRecord record = withRows({});
  EXPECT_EQ(computeStageResults(record)[0], T90{});
  EXPECT_EQ(record.k0.lateralPressure[0].trimmed(), "0.0");
}

TEST(T90, WithoutACrossingThePressureIsThatOfTheBeginning) {
  // Readings that rise ever faster stay above the second line.
  TK0SampleRecord record = withRows({{60, "1", "30"},
                                     {240, "4", "50"},
                                     {540, "9", "70"},
                                     {960, "16", "90"},
                                     {1500, "25", "110"},
                                     {2160, "36", "130"}});
  record.t90Adjusted[0] = 1;
  record.t90Slope[0] = 0.115;
  record.t90Intercept[0] = 0;
  const T90 t90 = computeStageResults(record)[0];
  EXPECT_EQ(t90.rootTime, 0);
  EXPECT_EQ(record.k0.lateralPressure[0].trimmed(), "10.0") << "110 + 20 x (0 - 5)";
  EXPECT_EQ(record.t90Slope[0], 0.115) << "set by hand";
}

TEST(T90, APressureBelowZeroIsZero) {
  TK0SampleRecord record = withRows({{240, "1", "10"}, {540, "2", "50"}});
  record.t90Adjusted[0] = 1;
  record.t90Slope[0] = 0.0115;
  EXPECT_EQ(computeStageResults(record)[0].rootTime, 0);
  EXPECT_EQ(record.k0.lateralPressure[0].trimmed(), "0.0") << "10 - 40 x 2";
}

TEST(T90, AFlatLineMeetsTheChord) {
  // With a slope of 0 only the chord is left: from (1, 0.1) to (2, 0.3) the line at 0.2 is met at 1.5.
  TK0SampleRecord record = withRows({{60, "0.1", "10"}, {240, "0.3", "20"}});
  record.t90Adjusted[0] = 1;
  record.t90Slope[0] = 0;
  record.t90Intercept[0] = 0.2;
  EXPECT_NEAR(computeStageResults(record)[0].rootTime, 1.5, 1e-6);
  EXPECT_EQ(record.k0.lateralPressure[0].trimmed(), "15.0");
}

TEST(T90, StoredLinesThatAreNoNumbersDoNoHarm) {
  for (const double odd :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e300, -1e300}) {
    TK0SampleRecord record = withRows(lineAndBend());
    record.t90Adjusted[0] = 1;
    record.t90Slope[0] = odd;
    record.t90Intercept[0] = odd;
    const T90 t90 = computeStageResults(record)[0];
    EXPECT_TRUE(std::isfinite(t90.rootTime) && std::isfinite(t90.pressure)) << odd;
    EXPECT_FALSE(record.k0.lateralPressure[0].isBlank()) << odd;
  }
}

TEST(T90, AStageWithoutLoadStaysAsItStands) {
  TK0SampleRecord record = withRows(lineAndBend());
  record.k0.axialPressure[0].clear();
  SetText(record.k0.lateralPressure[0], "7.7");
  EXPECT_EQ(computeStageResults(record)[0], T90{});
  EXPECT_EQ(record.k0.lateralPressure[0].trimmed(), "7.7");
  EXPECT_EQ(record.t90Slope[0], 0);
}

}  // namespace
}  // namespace triaxlab
