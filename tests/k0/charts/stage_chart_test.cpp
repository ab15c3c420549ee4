#include "k0/charts/stage_chart.h"

#include <algorithm>
#include <limits>
#include <string>

#include "k0/samples.h"
#include "support/drawings.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// lineAndBend() goes from 0 to 0.52 mm: the span is 0.96, 2916.67 twips a mm. A root of a minute is 400 twips, and of
// the pressure axis, which ends at 125 kPa, a kPa is 14.
constexpr StageConstruction kConstruction{{0.1, 0}, {5.98364, 59.8364}};

Drawing draw(const TK0SampleRecord& record, std::size_t stage = 0, const StageConstruction& made = kConstruction) {
  RecordingSurface surface;
  drawStageChart(surface, record, stage, made);
  return surface.operations();
}

/// Over the grid.
std::vector<DrawnLine> linesOf(const StraightLine& first, bool isMoved = false) {
  std::vector<DrawnLine> found = all<DrawnLine>(draw(withRows(lineAndBend()), 0, {first, {}, isMoved}));
  std::erase_if(found, [](const DrawnLine& line) { return line.stroke.colour == Colour::Grey; });
  return found;
}

DrawnText label(std::string_view text, int x, int y, Colour colour) {
  return {{x, y}, std::string(text), Font{.name = kArialNarrow, .size = 9}, colour, false};
}

TEST(StageChart, HasElevenLinesDownAndSeventeenAcross) {
  const auto lines = all<DrawnLine>(draw(withRows(lineAndBend())));
  EXPECT_EQ(std::ranges::count(lines, Stroke{Colour::Grey, 1}, &DrawnLine::stroke), 11 + 17);
  EXPECT_THAT(lines, Contains(rule(700, 300, 700, 3100, Colour::Grey)));
  EXPECT_THAT(lines, Contains(rule(4700, 300, 4700, 3100, Colour::Grey)));
  EXPECT_THAT(lines, Contains(rule(700, 475, 4700, 475, Colour::Grey)));
  EXPECT_THAT(lines, Contains(rule(700, 3100, 4700, 3100, Colour::Grey)));
}

TEST(StageChart, NumbersAreNarrow) {
  const auto texts = all<DrawnText>(draw(withRows(lineAndBend())));
  // A narrow character of 9 point is 72 wide and 180 high.
  EXPECT_THAT(texts, Contains(label("0", 700 - 36, 3140, Colour::Blue)));
  EXPECT_THAT(texts, Contains(label("10", 4700 - 72, 3140, Colour::Blue)));
  EXPECT_THAT(texts, Contains(label("0.00", 660 - 288, 300, Colour::Blue)));
  EXPECT_THAT(texts, Contains(label("0.12", 660 - 288, 650 - 90, Colour::Blue)));
  EXPECT_THAT(texts, Contains(label("0.96", 660 - 288, 3100 - 90, Colour::Blue)));
  EXPECT_THAT(texts, Contains(label("0.0", 4740, 3100 - 90, Colour::Blue)));
  EXPECT_THAT(texts, Contains(label("25.0", 4740, 2750 - 90, Colour::Blue)));
  EXPECT_THAT(texts, Contains(label("125.0", 4740, 1350 - 90, Colour::Blue)));
}

TEST(StageChart, TheNamesOfTheAxesAreNot) {
  const auto texts = all<DrawnText>(draw(withRows(lineAndBend())));
  EXPECT_THAT(texts, Contains(words("√t(min)", 4700 - 8 * 105, 3340)));
  EXPECT_THAT(texts, Contains(words("D(mm)", 100, 60)));
  EXPECT_THAT(texts, Contains(words("P(kPa)", 4740, 1060)));
}

TEST(StageChart, BothSeriesBeginWithTheZeroReading) {
  const auto curves = all<DrawnPolyline>(draw(withRows(lineAndBend())));
  ASSERT_EQ(curves.size(), 2U);
  EXPECT_EQ(curves[0].stroke, (Stroke{Colour::LightRed, 1}));
  EXPECT_TRUE(curves[0].points ==
              (std::vector<TwipPoint>{
                  {700, 300}, {1100, 592}, {1500, 883}, {1900, 1175}, {2300, 1467}, {2700, 1758}, {3100, 1817}}));
  EXPECT_EQ(curves[1].stroke, (Stroke{Colour::LightBlue, 1}));
  EXPECT_TRUE(curves[1].points ==
              (std::vector<TwipPoint>{
                  {700, 3100}, {1100, 2960}, {1500, 2820}, {1900, 2680}, {2300, 2540}, {2700, 2400}, {3100, 2260}}));
  const auto dots = all<DrawnCircle>(draw(withRows(lineAndBend())));
  EXPECT_EQ(dots.size(), 14U);
  EXPECT_TRUE((dots.front() == DrawnCircle{{700, 300}, 25, {Colour::LightRed, 1}, Colour::LightRed}));
  EXPECT_TRUE((dots.back() == DrawnCircle{{3100, 2260}, 25, {Colour::LightBlue, 1}, Colour::LightBlue}));
}

TEST(StageChart, ReadingsBehindAHundredMinutesAreOutOfSight) {
  auto rows = lineAndBend();
  rows.push_back({60 * 144, "0.64", "70.0"});  // 12 roots of a minute
  const Drawing drawing = draw(withRows(rows));
  for (const DrawnPolyline& curve : all<DrawnPolyline>(drawing)) EXPECT_EQ(curve.points.back().x, 4700);
  EXPECT_EQ(all<DrawnCircle>(drawing).size(), 14U) << "of eight readings in each series";
}

TEST(StageChart, TheBoxTellsPressureAndTime) {
  const Drawing drawing = draw(withRows(lineAndBend()));
  EXPECT_THAT(all<DrawnBox>(drawing),
              ElementsAre(DrawnBox{{3000, 300}, {4700, 1100}, {Colour::Blue, 1}, Colour::White}));
  const auto texts = all<DrawnText>(drawing);
  EXPECT_THAT(texts, Contains(words("压力：100.0kPa", 3060, 350)));
  EXPECT_THAT(texts, Contains(words("P1  = 59.8 kPa", 3060, 600)));
  EXPECT_THAT(texts, Contains(words("T90 = 35.8 min", 3060, 850)));
}

TEST(StageChart, TheBoxHoldsItsTexts) {
  TK0SampleRecord record;
  SetText(record.k0.axialPressure[9], "1600.0");
  const auto texts = all<DrawnText>(draw(record, 9, {{}, {9.99, 1234.5}}));
  const auto longest = std::ranges::find(texts, "P10  = 1234.5 kPa", &DrawnText::text);
  ASSERT_NE(longest, texts.end());
  EXPECT_LE(longest->upperLeft.x + textWidth(longest->text, longest->font), 4700);
}

TEST(StageChart, AStageWithoutReadingsIsAnEmptyGrid) {
  const Drawing drawing = draw(TK0SampleRecord{}, 3, {});
  EXPECT_THAT(all<DrawnPolyline>(drawing), IsEmpty());
  EXPECT_THAT(textsWith(drawing, "P4"), ElementsAre("P4  = 0.0 kPa"));
  EXPECT_THAT(textsWith(drawing, "压力"), ElementsAre("压力：kPa"));
}

// ---- the axis of deformations

/// The axis of a stage whose deformation goes from one value to another.
PlotScale axis(std::size_t stage, std::string_view first, std::string last) {
  TK0SampleRecord record;
  setRows(record, stage, {{60, std::string(first), ""}, {240, std::move(last), ""}});
  return deformationScale(record, stage);
}
double spanOf(std::string last) { return 16 * axis(0, "0", std::move(last)).yStep; }

TEST(DeformationAxis, SpansMoreThanTheReadings) {
  EXPECT_NEAR(spanOf("0.149"), 0.32, 1e-9);
  EXPECT_NEAR(spanOf("0.150"), 0.64, 1e-9);
  EXPECT_NEAR(spanOf("0.319"), 0.64, 1e-9);
  EXPECT_NEAR(spanOf("0.320"), 0.96, 1e-9) << "0.64 doesn't exceed 0.32 + 0.32";
  EXPECT_NEAR(spanOf("0.639"), 0.96, 1e-9);
  EXPECT_NEAR(spanOf("0.640"), 1.28, 1e-9);
  EXPECT_NEAR(spanOf("-0.5"), 0.32, 1e-9);
  EXPECT_NEAR(spanOf("999999"), 0.32 * (2 + 3124996), 1e-3);  // 999999 / 0.32 = 3124996.9
}

TEST(DeformationAxis, TheZeroReadingTakesNoPart) {
  TK0SampleRecord record;
  SetText(record.deformationSeries[0][1], "0.863");
  SetText(record.pressureSeries[0][1], "500.0");
  setRows(record, 1, {{6, "0.962", "20.0"}, {60, "1.215", "30.0"}});
  // 0.64 exceeds 0.253 + 0.32; the grain above 0.962 is 0.96, and three divisions more are 0.12.
  EXPECT_NEAR(deformationScale(record, 1).yStart, 0.84, 1e-9);
  EXPECT_NEAR(deformationScale(record, 1).yEnd(), 1.48, 1e-9);
  EXPECT_EQ(pressureScale(record, 1).yEnd(), 100 + 25);
}

TEST(DeformationAxis, OfTheFirstStageBeginsAtZero) {
  EXPECT_EQ(axis(0, "0.5", "0.6").yStart, 0);
  // A span of 0.32 doesn't reach 1.1, nor do 0.64 and 0.96.
  EXPECT_NEAR(axis(0, "1.0", "1.1").yEnd(), 1.28, 1e-9);
}

TEST(DeformationAxis, OfALaterStageBeginsAboveItsFirstReading) {
  // Below 0.5 lies 0.48 = 20 - 488 x 0.04; three divisions of 0.64 / 16 less.
  EXPECT_NEAR(axis(1, "0.5", "0.7").yStart, 0.36, 1e-9);
  EXPECT_NEAR(axis(1, "0.48", "0.68").yStart, 0.32, 1e-9) << "0.48 itself doesn't lie below";
  EXPECT_EQ(axis(1, "0.03", "0.05").yStart, 0) << "not below zero";
  EXPECT_EQ(axis(1, "-5", "-4.9").yStart, 0);
}

TEST(DeformationAxis, BeginsAtTwentyAtMost) {
  const PlotScale scale = axis(1, "25", "25.1");
  EXPECT_NEAR(scale.yStart, 19.94, 1e-9);
  // 17 x 0.32 is the first span that reaches 25.1.
  EXPECT_NEAR(scale.yEnd(), 19.94 + 5.44, 1e-9);
  EXPECT_NEAR(axis(1, "20", "20.1").yStart, 19.96 - 0.06, 1e-9);
}

TEST(PressureAxis, IsAMultipleOfAHundredAndTwentyFive) {
  EXPECT_EQ(pressureScale(withRows({{60, "", "125"}}), 0).yStep, 12.5);
  EXPECT_EQ(pressureScale(withRows({{60, "", "125.1"}}), 0).yStep, 25);
  EXPECT_EQ(pressureScale({}, 0).yStep, 12.5);
}

// ---- the lines of the construction

TEST(T90Lines, GoDownToTheBottomOrToTheRight) {
  // The first reaches 0.96 at 9.6. The second, of 0.0869565, would at 11.04; it is in sight from 0.8696 on, so its end
  // is at 0.869 and 9.9935.
  EXPECT_THAT(linesOf({0.1, 0}), ElementsAre(rule(700, 300, 4540, 3100), rule(700, 300, 4697, 2835, Colour::Blue)));
}

TEST(T90Lines, BeginAtTheirIntercept) {
  // 0.24 + 0.2 x is 0.96 at 3.6; with 0.173913 at 4.14.
  EXPECT_THAT(linesOf({0.2, 0.24}),
              ElementsAre(rule(700, 1000, 2140, 3100), rule(700, 1000, 2356, 3100, Colour::Blue)));
}

TEST(T90Lines, AreThickerWhileTheyAreMoved) {
  EXPECT_THAT(linesOf({0.1, 0}, true),
              ElementsAre(rule(700, 300, 4540, 3100, Colour::Black, 2), rule(700, 300, 4697, 2835, Colour::Blue, 2)));
}

TEST(T90Lines, WithoutASlopeAreLeftOut) { EXPECT_THAT(linesOf({0, 0.2}), IsEmpty()); }

TEST(T90Lines, AboveThePlotAreCutOrLeftOut) {
  // -0.24 + 0.2 x comes in at 1.2 and is 0.96 at 6.
  EXPECT_THAT(linesOf({0.2, -0.24}), Contains(rule(1180, 300, 3100, 3100)));
  EXPECT_THAT(linesOf({0.001, -0.5}), IsEmpty());
}

TEST(T90Lines, ThatAreVeryOddDoNoHarm) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN(), kEndless = std::numeric_limits<double>::infinity();
  const PlotScale huge = axis(0, "0", "999999");
  for (const double slope : {1e300, -1e300, 1e-300, -0.1, kEndless, kNone}) {
    for (const double intercept : {0.0, 1e300, -1e300, 0.2, kEndless, kNone}) {
      const auto line = t90LineOnCanvas(huge, {slope, intercept});
      if (!line) continue;
      EXPECT_TRUE(kStagePlot.contains(line->from)) << slope << ' ' << intercept;
      EXPECT_TRUE(kStagePlot.contains(line->to)) << slope << ' ' << intercept;
    }
  }
}

// ---- the mouse

TEST(StageReadout, TellsTimeDeformationAndPressure) {
  const TK0SampleRecord record = withRows(lineAndBend());
  EXPECT_EQ(stageReadout(record, 0, {1700, 2050}), "√t:2.50   t:6.3min   D:0.600mm   P:75.0kPa");
  EXPECT_EQ(stageReadout(record, 0, {1700, 1000}), "√t:2.50   t:6.3min   D:0.240mm") << "above the pressures";
  EXPECT_EQ(stageReadout(record, 0, {699, 1000}), "");
}

}  // namespace
}  // namespace triaxlab::testing
