#include "charts/plot.h"

#include "charts/frames.h"
#include "support/drawings.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PlotFrame, LinesAreSpreadEvenly) {
  EXPECT_EQ(strainFrame(22).columnX(11), 4000);
  EXPECT_EQ(strainFrame(30).columnX(5), 2000);
  EXPECT_EQ(strainFrame(50).columnX(49), 6880);
  EXPECT_EQ(strainFrame(22).rowY(7), 2300);
  EXPECT_EQ(kSettlementFrame.columnX(10), 4700);
}

TEST(PlotFrame, LinesCountFromWhereYBegins) {
  EXPECT_EQ(strainFrame(22).rowY(0), 4300);
  EXPECT_EQ(kSettlementFrame.rowY(0), 300);
  EXPECT_EQ(kSettlementFrame.rowY(1), 475);
  EXPECT_EQ(kSettlementFrame.rowY(16), 3100);
}

TEST(PlotFrame, TheEdgesBelongToThePlot) {
  for (const Point corner : {Point{2500, 300}, Point{8500, 4120}}) EXPECT_TRUE(kPressureFrame.contains(corner));
  for (const Point outside : {Point{2499, 300}, Point{8501, 400}, Point{2500, 299}, Point{2500, 4121}})
    EXPECT_FALSE(kPressureFrame.contains(outside));
}

TEST(PlotScale, PlacesValuesInEveryFrame) {
  EXPECT_EQ((PlotScale{strainFrame(22), 1, 10}).place({11, 70}), (Point{4000, 2300}));
  EXPECT_EQ((PlotScale{strainFrame(50), 1, 10}).place({45, 140}), (Point{6400, 300}));
  EXPECT_EQ((PlotScale{kPressureFrame, 5, 5}).place({55, 35}), (Point{5500, 2210}));
  // 0.16 below 0.20 of the 0.64 that 2800 twips stand for.
  const Point settled = PlotScale{kSettlementFrame, 1, 0.04, 0.20}.place({5, 0.36});
  EXPECT_EQ(settled.x, 2700);
  EXPECT_NEAR(settled.y, 1000, 1e-9);
  EXPECT_EQ((PlotScale{kSecondFrame, 1, 12.5}).place({5, 62.5}), (Point{2700, 2225}));
}

TEST(PlotScale, ValuesComeBackFromTheirPlaces) {
  for (const PlotScale& scale : {PlotScale{strainFrame(22), 1, 5, -20}, PlotScale{kPressureFrame, 5, 5},
                                 PlotScale{kSettlementFrame, 1, 0.04, 0.20}}) {
    const Point value = scale.valueAt(scale.place({12.5, -7}));
    EXPECT_NEAR(value.x, 12.5, 1e-9);
    EXPECT_NEAR(value.y, -7, 1e-9);
  }
}

TEST(PlotScale, EndsWithItsLastDivision) {
  const PlotScale scale{strainFrame(22), 1, 5, -20};
  EXPECT_EQ(scale.right(), 22);
  EXPECT_EQ(scale.yEnd(), 50);
}

TEST(StepsToReach, StopsOnTheDivision) {
  EXPECT_EQ(stepsToReach(70, 70), 1);
  EXPECT_EQ(stepsToReach(70.1, 70), 2);
  EXPECT_EQ(stepsToReach(0, 70), 0);
  EXPECT_EQ(stepsToReach(-5, 70), 0);
  EXPECT_EQ(stepsToReach(42, 14), 3);
}

TEST(ReachOf, LooksAtAllCurvesAndNeverBelowZero) {
  const std::vector<std::vector<Point>> curves{{{1, 5}, {3, -2}}, {}, {{2, 7}}};
  const CurveReach reach = reachOf(curves);
  EXPECT_EQ(reach.x, 3);
  EXPECT_EQ(reach.y, 7);
  EXPECT_EQ(reach.depth, 2);
  EXPECT_EQ(reachOf({}).y, 0);
}

TEST(PlottedNumber, WhatIsBeyondSixDigitsIsNone) {
  FixedText<6> field;
  SetText(field, "1E9");
  EXPECT_EQ(plottedNumber(field), 0);
  SetText(field, "-12.5");
  EXPECT_EQ(plottedNumber(field), -12.5);
}

struct PlotTest : ::testing::Test {
  RecordingSurface surface;
};

TEST_F(PlotTest, ACurveIsClippedToItsFrame) {
  const Plot plot(surface, {kSettlementFrame, 1, 0.04, 0.20});
  // Half of the way from 0 to 20 lies in the plot, which ends at 10, where the curve is at 0.52.
  plot.curve(std::vector<Point>{{0, 0.20}, {20, 0.84}}, {Colour::LightRed, 1});
  EXPECT_THAT(all<DrawnPolyline>(surface.operations()),
              ElementsAre(DrawnPolyline{{{700, 300}, {4700, 1700}}, {Colour::LightRed, 1}}));
}

TEST_F(PlotTest, ALineIsClippedToItsFrame) {
  const Plot plot(surface, {kPressureFrame, 5, 5});
  plot.line({0, 0}, {110, 140}, {});  // reaches the top, 70, halfway
  EXPECT_THAT(all<DrawnLine>(surface.operations()), ElementsAre(rule(2500, 4120, 5500, 300)));
}

TEST_F(PlotTest, ADotStandsWholeOrNotAtAll) {
  const Plot plot(surface, {kPressureFrame, 5, 5});
  plot.dot({55, 35}, 30, {Colour::LightRed, 1});
  plot.dot({111, 35}, 30, {Colour::LightRed, 1});
  const auto circles = all<DrawnCircle>(surface.operations());
  ASSERT_EQ(circles.size(), 1U);
  EXPECT_EQ(circles[0].centre, (TwipPoint{5500, 2210}));
}

TEST_F(PlotTest, ATickRisesFromTheBase) {
  Plot(surface, {strainFrame(22), 1, 10}).tick(11, Colour::Blue);
  Plot(surface, {strainFrame(22), 1, 10}).tick(23, Colour::Blue);
  EXPECT_THAT(all<DrawnLine>(surface.operations()), ElementsAre(rule(4000, 4300, 4000, 4280, Colour::Blue)));
}

}  // namespace
}  // namespace triaxlab::testing
