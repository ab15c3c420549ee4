#include "k0/charts/ko_chart.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "k0/ko_line.h"
#include "support/drawings.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

K0SampleRecord withStages(const std::vector<std::pair<std::string, std::string>>& stages) {
  K0SampleRecord record;
  for (std::size_t i = 0; i < stages.size(); ++i) {
    SetText(record.axialPressure[i], stages[i].first);
    SetText(record.lateralPressure[i], stages[i].second);
  }
  return record;
}

K0SampleRecord withLine(std::string_view slope, std::string_view intercept) {
  K0SampleRecord record;
  SetText(record.koValue, slope);
  SetText(record.koIntercept, intercept);
  return record;
}

Drawing draw(const K0SampleRecord& record, const std::optional<StraightLine>& moved = std::nullopt) {
  RecordingSurface surface;
  drawKoChart(surface, record, {.moved = moved});
  return surface.operations();
}

/// Over the grid.
std::vector<DrawnLine> koLines(const Drawing& drawing) {
  std::vector<DrawnLine> found = all<DrawnLine>(drawing);
  std::erase_if(found, [](const DrawnLine& line) { return line.stroke.colour == Colour::Grey; });
  return found;
}

// A chart of 110 kPa has divisions of 5 kPa: 6000 / 110 = 54.5455 twips a kPa to the right, 3820 / 70 = 54.5714 upward.

TEST(KoChart, DivisionsOfBothAxesHaveTheSameWorth) {
  EXPECT_EQ(koScale(withStages({{"110.0", "60.0"}})).xStep, 5);
  EXPECT_EQ(koScale(withStages({{"110.5", "60.0"}})).xStep, 10);
  EXPECT_EQ(koScale(withStages({{"110.5", "60.0"}})).yStep, 10);
  EXPECT_EQ(koScale(withStages({{"60.0", "220.1"}})).xStep, 15) << "the lateral pressures count, too";
  EXPECT_EQ(koScale({}).xStep, 5);
}

TEST(KoChart, GridLinesEndBeforeTheFrame) {
  const auto lines = all<DrawnLine>(draw({}));
  const auto grey = std::count_if(lines.begin(), lines.end(), [](const auto& line) {
    return line.stroke == Stroke{Colour::Grey, 1};
  });
  EXPECT_EQ(grey, 22 + 14);
  EXPECT_THAT(lines, Contains(rule(2500, 300, 2500, 4120, Colour::Grey)));
  EXPECT_THAT(lines, Contains(rule(8227, 300, 8227, 4120, Colour::Grey)));  // 2500 + 21 x 272.727
  EXPECT_THAT(lines, Contains(rule(2500, 573, 8500, 573, Colour::Grey)));   // 4120 - 13 x 272.857
  EXPECT_THAT(all<DrawnBox>(draw({})), Contains(DrawnBox{{2500, 300}, {8500, 4120}, {Colour::Grey, 1}, std::nullopt}));
}

TEST(KoChart, EveryFifthLineBelowAndEverySecondBesideHasANumber) {
  EXPECT_THAT(textsOf(draw(withStages({{"110.5", ""}})), Colour::Blue),
              ElementsAre("0", "50", "100", "150", "200", "0", "20", "40", "60", "80", "100", "120"));
  const auto texts = all<DrawnText>(draw({}));
  // A character of 10.5 point is 105 wide and 210 high.
  EXPECT_THAT(texts, Contains(words("25", 3759, 4160, Colour::Blue)));        // 2500 + 5 x 272.727 - 105
  EXPECT_THAT(texts, Contains(words("10", 2460 - 210, 3469, Colour::Blue)));  // 4120 - 2 x 272.857 - 105 = 3469.3
  EXPECT_THAT(texts, Contains(words("(kPa)", 8500 - 525, 4380)));
  EXPECT_THAT(texts, Contains(words("(kPa)", 2460 - 525, 60)));
}

TEST(KoChart, StagesWithBothPressuresArePoints) {
  const auto circles =
      all<DrawnCircle>(draw(withStages({{"55.0", "35.0"}, {"80.0", "0"}, {"", "20.0"}, {"110", "70"}})));
  const auto point = [](int x, int y) { return DrawnCircle{{x, y}, 30, {Colour::LightRed, 1}, std::nullopt}; };
  EXPECT_TRUE(circles == (std::vector{point(5500, 2210), point(8500, 300)}));
}

TEST(KoChart, PointsBesideTheFrameAreLeftOut) {
  EXPECT_THAT(all<DrawnCircle>(draw(withStages({{"-5.0", "20.0"}, {"50.0", "80.0"}, {"1e300", "20.0"}}))), IsEmpty());
}

TEST(KoChart, KoStandsInItsBox) {
  const Drawing drawing = draw(withLine("0.456", "1.0"));
  EXPECT_THAT(all<DrawnBox>(drawing),
              Contains(DrawnBox{{3600, 400}, {7400, 800}, {Colour::Black, 1}, Colour::LightCyan}));
  EXPECT_THAT(all<DrawnText>(drawing), Contains(words("Ko = 0.456", 5000, 500)));
}

// ---- the line

TEST(KoLineOnChart, EndsAKilopascalBeforeTheRight) {
  // (0, 0) to (109, 54.5): 2500 + 109 x 54.5455, 4120 - 54.5 x 54.5714
  EXPECT_THAT(koLines(draw(withLine("0.500", "0.0"))), ElementsAre(rule(2500, 4120, 8445, 1146)));
}

TEST(KoLineOnChart, BeginsWhereItIsNoLongerBelowTheAxis) {
  // 0.5 x - 10 is 0 at 20 and 44.5 at 109.
  EXPECT_THAT(koLines(draw(withLine("0.500", "-10.0"))), ElementsAre(rule(3591, 4120, 8445, 1692)));
  // 0.3 x - 10 is -0.1 at 33, 0.2 at 34 and 22.7 at 109.
  EXPECT_THAT(koLines(draw(withLine("0.300", "-10.0"))), ElementsAre(rule(4355, 4109, 8445, 2881)));
}

TEST(KoLineOnChart, EndsBelowTheTopOfTheAxis) {
  // 2 x is 70 at 35, so the end is at (34, 68).
  EXPECT_THAT(koLines(draw(withLine("2.000", "0.0"))), ElementsAre(rule(2500, 4120, 4355, 409)));
}

TEST(KoLineOnChart, OfBlankValuesLiesOnTheAxis) {
  EXPECT_THAT(koLines(draw({})), ElementsAre(rule(2500, 4120, 8445, 4120)));
  EXPECT_THAT(all<DrawnText>(draw({})), Contains(words("Ko = ", 5000, 500)));
}

TEST(KoLineOnChart, OfEqualAxialPressuresLiesOnTheAxis) {
  K0SampleRecord record = withStages({{"50.0", "10.0"}, {"50.0", "20.0"}});
  fitKoLine(record, {});
  const Drawing drawing = draw(record);
  EXPECT_THAT(koLines(drawing), ElementsAre(rule(2500, 4120, 8445, 4120)));
  EXPECT_THAT(all<DrawnText>(drawing), Contains(words("Ko = 0.000", 5000, 500)));
}

TEST(KoLineOnChart, ThatCantBeDrawnIsLeftOut) {
  EXPECT_THAT(koLines(draw(withLine("0.000", "70.0"))), IsEmpty()) << "never below the top";
  EXPECT_THAT(koLines(draw(withLine("0.000", "-0.1"))), IsEmpty()) << "never above the axis";
  EXPECT_THAT(koLines(draw(withLine("-0.500", "-1.0"))), IsEmpty());
  EXPECT_THAT(koLines(draw(withLine("0.001", "99999"))), IsEmpty());
  EXPECT_THAT(koLines(draw(withLine("0.001", "-9999"))), IsEmpty());
}

TEST(KoLineOnChart, OfANegativeSlopeFallsToTheRight) {
  // -0.5 x + 60 is 5.5 at 109.
  EXPECT_THAT(koLines(draw(withLine("-0.5", "60"))), ElementsAre(rule(2500, 846, 8445, 3820)));
}

TEST(KoLineOnChart, ThatIsVeryOddDoesNoHarm) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN(), kEndless = std::numeric_limits<double>::infinity();
  for (const double slope : {0.0, 1e300, -1e300, 1e-300, kEndless, kNone})
    for (const double intercept : {0.0, 1e300, -1e300, -5.0, 71.0, kEndless, kNone})
      for (const KoLineOf whose : {KoLineOf::Record, KoLineOf::Person})
        if (const auto line = koLineOnCanvas(koScale({}), {slope, intercept}, whose))
          for (const Point end : {line->from, line->to}) {
            EXPECT_TRUE(end.x >= 2500 && end.x <= 8500) << slope << ' ' << intercept;
            EXPECT_TRUE(end.y >= 0 && end.y <= 4120) << slope << ' ' << intercept;
          }
}

TEST(KoLineOnChart, ThatAPersonMovesRunsPastTheTopOfTheFrame) {
  // 2 x stays below 110 x 22 / 14 = 172.9 up to 86: (7190.9, -5266). The canvas ends at y 0, where 2 x is 4120
  // / 54.5714 = 75.497: 2500 + 37.749 x 54.5455.
  const Drawing drawing = draw(withLine("0.500", "0.0"), StraightLine{2, 0});
  EXPECT_THAT(koLines(drawing), ElementsAre(rule(2500, 4120, 4559, 0, Colour::Black, 2)));
  EXPECT_THAT(all<DrawnText>(drawing), Contains(words("Ko = 2.000", 5000, 500)));
  // 0.6 x + 10 would have to end at 99 under the top of the axis; now it is 75.4 at 109.
  EXPECT_THAT(koLines(draw({}, StraightLine{0.6, 10})), ElementsAre(rule(2500, 3574, 8445, 5, Colour::Black, 2)));
}

// ---- the mouse

TEST(KoReadout, TellsBothPressures) {
  EXPECT_EQ(koReadout({}, {5500, 2210}), "x:55.0kPa   y:35.0kPa");
  EXPECT_EQ(koReadout({}, {2499, 2210}), "");
  EXPECT_EQ(koReadout({}, {5500, 299}), "");
}

}  // namespace
}  // namespace triaxlab::testing
