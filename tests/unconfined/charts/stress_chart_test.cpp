#include "unconfined/charts/stress_chart.h"

#include <algorithm>
#include <string>
#include <vector>

#include "support/drawings.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

struct Reading {
  const char *strain, *stress;
};

UnconfinedSampleRecord withReadings(Specimen specimen, const std::vector<Reading>& readings) {
  UnconfinedSampleRecord record;
  for (std::size_t row = 0; row < readings.size(); ++row) {
    SetText(strainOf(record, specimen).at(row), readings[row].strain);
    SetText(stressOf(record, specimen).at(row), readings[row].stress);
  }
  return record;
}
UnconfinedSampleRecord undisturbed(const std::vector<Reading>& readings) {
  return withReadings(Specimen::Undisturbed, readings);
}

Drawing draw(const UnconfinedSampleRecord& record, const StressChartOptions& options = {}) {
  RecordingSurface surface;
  drawStressChart(surface, record, options);
  return surface.operations();
}

double top(const UnconfinedSampleRecord& record) { return stressChartScale(record, {}).yEnd(); }

std::vector<DrawnLine> linesOf(const Drawing& drawing, Colour colour) {
  std::vector<DrawnLine> found = all<DrawnLine>(drawing);
  std::erase_if(found, [colour](const DrawnLine& line) { return line.stroke.colour != colour; });
  return found;
}

// The frame is 6000 x 4000 twips from 1000, 300. With 22 % and 70 kPa a percent is 272.727 twips and a kPa 57.1429.

TEST(StressChart, TheAxisOfStressGoesInStepsOf70) {
  EXPECT_EQ(top({}), 70);
  EXPECT_EQ(top(undisturbed({{"0.5", "70.0"}})), 70);
  EXPECT_EQ(top(undisturbed({{"0.5", "70.1"}})), 140);
  EXPECT_EQ(top(withReadings(Specimen::Remoulded, {{"0.5", "140.1"}})), 210) << "both specimens count";
  EXPECT_EQ(top(undisturbed({{"30.0", "300.0"}})), 350) << "a row that is not drawn, too";
}

TEST(StressChart, TheGridHasALinePerPercentAndFourteenLinesOfStress) {
  const Drawing drawing = draw({});
  EXPECT_EQ(linesOf(drawing, Colour::Grey).size(), 22U + 14U);
  EXPECT_THAT(linesOf(drawing, Colour::Grey),
              IsSupersetOf({rule(1000, 300, 1000, 4300, Colour::Grey), rule(6727, 300, 6727, 4300, Colour::Grey),
                            rule(1000, 4300, 7000, 4300, Colour::Grey),
                            rule(1000, 586, 7000, 586, Colour::Grey)}));  // 4300 - 13 x 285.714
  EXPECT_THAT(all<DrawnBox>(drawing), Contains(DrawnBox{{1000, 300}, {7000, 4300}, {Colour::Grey, 1}, std::nullopt}));
}

TEST(StressChart, EveryFifthPercentAndEverySecondLineOfStressHasANumber) {
  EXPECT_THAT(textsOf(draw({}), Colour::Blue),
              ElementsAre("0", "10", "20", "30", "40", "50", "60", "0", "5", "10", "15", "20"));
  const Drawing drawing = draw({});
  EXPECT_THAT(all<DrawnText>(drawing),
              IsSupersetOf({words("0", 855, 4195, Colour::Blue),    // ends at 960, middle on 4300
                            words("60", 750, 766, Colour::Blue),    // 4300 - 12 x 285.714 - 105
                            words("0", 948, 4340, Colour::Blue),    // middle on 1000
                            words("20", 6350, 4340, Colour::Blue),  // middle on 1000 + 20 x 272.727
                            words("(kPa)", 435, 60), words("(%)", 7040, 4340),
                            words("轴向应力与轴向应变关系曲线", 2635, 4800)}));
}

TEST(StressChart, FiftyPercentHaveFiftyLinesAndTenNumbers) {
  const Drawing drawing = draw({}, {.largestStrain = 50});
  EXPECT_EQ(linesOf(drawing, Colour::Grey).size(), 50U + 14U);
  EXPECT_EQ(textsOf(drawing, Colour::Blue).size(), 7U + 10U);
}

TEST(StressChart, TheCurveFollowsTheParabolaInChordsOfATenthOfAPercent) {
  // Through (0, 0), (5, 50), (10, 70): y = 13 x - 0.6 x².
  const auto curves = all<DrawnPolyline>(draw(undisturbed({{"5.0", "50.0"}, {"10.0", "70.0"}})));
  ASSERT_EQ(curves.size(), 1U);
  EXPECT_EQ(curves[0].stroke, (Stroke{Colour::LightRed, 1}));
  const std::vector<TwipPoint>& points = curves[0].points;
  EXPECT_EQ(points.front(), (TwipPoint{1000, 4300}));
  EXPECT_EQ(points.at(1), (TwipPoint{1027, 4226}));      // 1.294 kPa at 0.1 %
  EXPECT_EQ(points.at(2), (TwipPoint{1055, 4153}));      // 2.576 kPa at 0.2 %
  EXPECT_THAT(points, Contains(TwipPoint{2364, 1443}));  // 50 kPa at 5 %
  EXPECT_EQ(points.back(), (TwipPoint{3727, 300}));      // 70 kPa at 10 %
  EXPECT_TRUE(std::ranges::is_sorted(points, {}, &TwipPoint::x));
}

TEST(StressChart, BothSpecimensHaveTheirCurve) {
  UnconfinedSampleRecord record = undisturbed({{"5.0", "50.0"}, {"10.0", "70.0"}});
  SetText(record.remouldedStrain[0], "10.0");
  SetText(record.remouldedStress[0], "7.0");
  const auto curves = all<DrawnPolyline>(draw(record));
  ASSERT_EQ(curves.size(), 2U);
  // Of two points, the origin among them, a straight line.
  EXPECT_THAT(curves[1].points, ElementsAre(TwipPoint{1000, 4300}, TwipPoint{3727, 3900}));
}

TEST(StressChart, WithoutAParabolaThePointsAreJoinedStraight) {
  // Two readings at one strain: no parabola goes through any three of the points.
  const auto curves = all<DrawnPolyline>(draw(undisturbed({{"10.0", "35.0"}, {"10.0", "70.0"}})));
  ASSERT_EQ(curves.size(), 1U);
  EXPECT_THAT(curves[0].points, IsSupersetOf({TwipPoint{1000, 4300}, TwipPoint{3727, 2300}, TwipPoint{3727, 300}}));
}

TEST(StressChart, ARowBeyondTheLargestStrainIsLeftOut) {
  const auto curves = all<DrawnPolyline>(draw(undisturbed({{"10.0", "35.0"}, {"22.1", "70.0"}})));
  ASSERT_EQ(curves.size(), 1U);
  EXPECT_THAT(curves[0].points, ElementsAre(TwipPoint{1000, 4300}, TwipPoint{3727, 2300}));
}

TEST(StressChart, StrainsThatGoBackAreNoLineAcrossTheChart) {
  const auto curves =
      all<DrawnPolyline>(draw(undisturbed({{"5.0", "50.0"}, {"10.0", "70.0"}, {"2.0", "30.0"}, {"4.0", "60.0"}})));
  ASSERT_EQ(curves.size(), 2U);
  EXPECT_EQ(curves[1].points.back(), (TwipPoint{2091, 871}));  // 60 kPa at 4 %
}

TEST(StressChart, TextsBeyondAllSoilAreNotDrawn) {
  const UnconfinedSampleRecord record = undisturbed({{"5.0", "1E300"}, {"1E-300", "50.0"}, {"1E300", "1"}});
  EXPECT_EQ(top(record), 70);
  for (const DrawnPolyline& curve : all<DrawnPolyline>(draw(record)))
    for (const TwipPoint& point : curve.points) {
      EXPECT_TRUE(point.x >= 1000 && point.x <= 7000) << point.x;
      EXPECT_TRUE(point.y >= 300 && point.y <= 4300) << point.y;
    }
}

TEST(StressChart, TheResultsStandInABox) {
  UnconfinedSampleRecord record;
  SetText(record.qu, "228.2");
  SetText(record.quRemoulded, "94.4");
  SetText(record.sensitivity, "2.42");
  const Drawing drawing = draw(record);
  EXPECT_THAT(all<DrawnBox>(drawing),
              Contains(DrawnBox{{5000, 400}, {6900, 1300}, {Colour::Black, 1}, Colour::LightCyan}));
  EXPECT_THAT(all<DrawnText>(drawing),
              IsSupersetOf({words(" qu = 228.2kpa", 5060, 460), words("qu' = 94.4kpa", 5060, 740),
                            words(" St = 2.42", 5060, 1020)}));
  EXPECT_EQ(all<DrawnBox>(drawing).size(), 2U) << "the frame and this one";
}

TEST(StressChart, HalfThePeaksAreToldAndMarkedWhenTheyAreWanted) {
  // Half of 70 kPa is reached at 2 + 2 x 15 / 20 = 3.5 %: 1000 + 3.5 x 272.727 twips.
  const UnconfinedSampleRecord record = undisturbed({{"2.0", "20.0"}, {"4.0", "40.0"}, {"10.0", "70.0"}});
  const Drawing drawing = draw(record, {.halfPeaks = true});
  EXPECT_THAT(all<DrawnBox>(drawing),
              Contains(DrawnBox{{4900, 3700}, {7000, 4300}, {Colour::Black, 1}, Colour::LightCyan}));
  EXPECT_THAT(all<DrawnText>(drawing),
              IsSupersetOf({words("原状： 35.00/3.50", 4960, 3780), words("重塑： 0.00/0.00", 4960, 4040)}));
  EXPECT_THAT(linesOf(drawing, Colour::LightGreen), ElementsAre(rule(1955, 2300, 1955, 4300, Colour::LightGreen)));
  EXPECT_THAT(linesOf(draw(record), Colour::LightGreen), IsEmpty());
  EXPECT_THAT(textsWith(draw(record), "原状："), IsEmpty());
}

TEST(StressChart, TheConstantsHaveATableBesideThePlot) {
  const Drawing drawing = draw({});
  EXPECT_THAT(
      linesOf(drawing, Colour::Blue),
      ElementsAreArray({rule(8000, 1300, 11000, 1300, Colour::Blue), rule(8000, 1800, 11000, 1800, Colour::Blue),
                        rule(8000, 2300, 11000, 2300, Colour::Blue), rule(8000, 2800, 11000, 2800, Colour::Blue),
                        rule(8000, 3300, 11000, 3300, Colour::Blue), rule(8000, 1300, 8000, 3300, Colour::Blue),
                        rule(9400, 1300, 9400, 3300, Colour::Blue), rule(10200, 1300, 10200, 3300, Colour::Blue),
                        rule(11000, 1300, 11000, 3300, Colour::Blue)}));
  // Centred in their columns: 9800, 10600 and 8700.
  EXPECT_THAT(all<DrawnText>(drawing),
              IsSupersetOf({words("原状", 9590, 1445), words("重塑", 10390, 1445), words("试样高度", 8280, 1835),
                            words("(cm)", 8490, 2060), words("试样面积", 8280, 2335), words("(cm )", 8438, 2560),
                            words("环系数", 8385, 2835), words("N /0.01mm", 8228, 3060)}));
  // In the gap of its unit, 42 twips higher.
  EXPECT_THAT(all<DrawnText>(drawing), Contains(sized(0.7 * 10.5, "2", 8753, 2518)));
}

TEST(StressChart, TheConstantsStandAsTextsInTheirTableWhereThereAreNoFields) {
  UnconfinedSampleRecord record;
  SetText(record.sampleHeight[0], "8.00");
  SetText(record.sampleHeight[1], "\xB0\xCB");  // 八
  SetText(record.sampleArea[1], "12.00");
  record.ringCoefficient[0] = 3078;
  RecordingSurface surface;
  drawConstants(surface, record);
  EXPECT_THAT(all<DrawnText>(surface.operations()),
              IsSupersetOf({words("8.00", 9590, 1945), words("八", 10495, 1945), words("12.00", 10338, 2445),
                            words("3.078", 9538, 2945), words("0.000", 10338, 2945)}));
}

TEST(StressChart, AMagnifiedPictureKeepsTheNumbersAtItsEdges) {
  RecordingSurface surface;
  drawStressChartEdges(surface, {}, {}, {.corner = {1500, 300}, .zoom = 4, .width = 11700, .height = 5150});
  EXPECT_THAT(textsOf(surface.operations(), Colour::Blue), IsSupersetOf({"2", "3", "65", "60"}));
  EXPECT_THAT(textsOf(surface.operations(), Colour::Blue), Not(Contains("0")));
}

}  // namespace
}  // namespace triaxlab::testing
