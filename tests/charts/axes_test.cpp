#include "charts/axes.h"

#include <array>

#include "charts/frames.h"
#include "support/drawings.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::SizeIs;

struct AxesTest : ::testing::Test {
  RecordingSurface surface;
  Drawing drawing() const { return surface.operations(); }
  std::vector<DrawnLine> lines() const { return all<DrawnLine>(drawing()); }
  std::vector<DrawnText> texts() const { return all<DrawnText>(drawing()); }
};

TEST_F(AxesTest, AGridThatAFrameClosesLacksItsLastLines) {
  drawGrid(surface, {strainFrame(50), 1, 5});
  EXPECT_THAT(lines(), SizeIs(50 + 14));
  EXPECT_THAT(lines(), Contains(rule(6880, 300, 6880, 4300, Colour::Grey)));
  EXPECT_THAT(lines(), Contains(rule(1000, 586, 7000, 586, Colour::Grey)));  // 4300 - 13 x 285.714
}

TEST_F(AxesTest, AGridWithoutAFrameHasAllLines) {
  drawGrid(surface, {kSettlementFrame, 1, 0.04}, AxisEnd::Closed);
  EXPECT_THAT(lines(), SizeIs(11 + 17));
  EXPECT_THAT(lines(), Contains(rule(4700, 300, 4700, 3100, Colour::Grey)));
  EXPECT_THAT(lines(), Contains(rule(700, 3100, 4700, 3100, Colour::Grey)));
  EXPECT_THAT(lines(), Contains(rule(700, 475, 4700, 475, Colour::Grey)));
}

TEST_F(AxesTest, ZeroIsBlackUnlessTheAxisBeginsThere) {
  drawGrid(surface, {strainFrame(22), 1, 5, -20});
  EXPECT_THAT(lines(), Contains(rule(1000, 3157, 7000, 3157)));  // 4300 - 4 x 285.714
  surface.clear();
  drawGrid(surface, {strainFrame(22), 1, 5});
  EXPECT_THAT(lines(), Contains(rule(1000, 4300, 7000, 4300, Colour::Grey)));
}

TEST_F(AxesTest, TheFrameIsABox) {
  drawFrame(surface, kPressureFrame, 4);
  EXPECT_THAT(all<DrawnBox>(drawing()),
              ElementsAre(DrawnBox{{2500, 300}, {8500, 4120}, {Colour::Grey, 4}, std::nullopt}));
}

TEST_F(AxesTest, NumbersBelowAreCentredOnTheirLines) {
  drawNumbersBelow(surface, {strainFrame(50), 1, 5}, {.at = 4340, .every = 5}, Font{});
  EXPECT_THAT(texts(), SizeIs(10));
  EXPECT_THAT(texts(), Contains(words("45", 6295, 4340, Colour::Blue)));  // 6400 less half of 210
}

TEST_F(AxesTest, NumbersOnTheLeftStandOnTheirLines) {
  drawNumbersLeft(surface, {strainFrame(22), 1, 5}, {.at = 960, .every = 2}, Font{});
  EXPECT_THAT(textsOf(drawing(), Colour::Blue), ElementsAre("0", "10", "20", "30", "40", "50", "60"));
  EXPECT_THAT(texts(), Contains(words("60", 750, 766, Colour::Blue)));  // 4300 - 12 x 285.714 - 105
}

TEST_F(AxesTest, ADownwardAxisIsNumberedFromTheTop) {
  const Font narrow{.name = kArialNarrow, .size = 9};
  const PlotScale scale{kSettlementFrame, 1, 0.04, 0.20};
  drawNumbersLeft(surface, scale, {.at = 660, .every = 2, .format = NumberFormat::Hundredths, .end = AxisEnd::Closed},
                  narrow);
  EXPECT_THAT(textsOf(drawing(), Colour::Blue),
              ElementsAre("0.20", "0.28", "0.36", "0.44", "0.52", "0.60", "0.68", "0.76", "0.84"));
  // Four characters of 72 end at 660; half a height of 90 above the line.
  EXPECT_EQ(texts().front(), (DrawnText{{372, 210}, "0.20", narrow, Colour::Blue, false}));
  EXPECT_EQ(texts().back().upperLeft, (TwipPoint{372, 3010}));
  surface.clear();
  drawNumbersBelow(surface, scale, {.at = 3140, .end = AxisEnd::Closed}, narrow);
  EXPECT_THAT(texts(), SizeIs(11));
  EXPECT_EQ(texts().back(), (DrawnText{{4628, 3140}, "10", narrow, Colour::Blue, false}));  // 4700 less half of 144
}

TEST_F(AxesTest, ASecondAxisHasItsNumbersOnTheRight) {
  drawNumbersRight(surface, {kSecondFrame, 1, 12.5},
                   {.at = 4740, .every = 2, .format = NumberFormat::Tenths, .end = AxisEnd::Closed}, Font{});
  EXPECT_THAT(textsOf(drawing(), Colour::Blue), ElementsAre("0.0", "25.0", "50.0", "75.0", "100.0", "125.0"));
  EXPECT_THAT(texts(), Contains(words("25.0", 4740, 2750 - 105, Colour::Blue)));
}

TEST_F(AxesTest, LongNumbersAreSetSmallerWhereItIsWanted) {
  const PlotScale scale{kPressureFrame, 5, 5000};
  drawNumbersLeft(surface, scale, {.at = 2460, .every = 13, .smallFrom = 5}, Font{});
  // Line 13 at 572.86: five characters of 80 that end at 2460, half a height of 80 above.
  EXPECT_THAT(texts(), ElementsAre(words("0", 2355, 4015, Colour::Blue), sized(8, "65000", 2060, 493, Colour::Blue)));
  surface.clear();
  drawNumbersLeft(surface, scale, {.at = 2460, .every = 13}, Font{});
  EXPECT_EQ(texts().back().font.size, 10.5);
}

TEST_F(AxesTest, NumbersThatHaveLittleRoomAreSetNarrower) {
  const PlotScale scale{kPressureFrame, 5, 50000};
  drawNumbersLeft(surface, scale, {.at = 2460, .every = 13, .smallFrom = 5, .room = 450}, Font{});
  // Six characters of 80 take 480.
  const Font narrow{.size = 8, .stretch = 450.0 / 480};
  EXPECT_THAT(texts(), ElementsAre(words("0", 2355, 4015, Colour::Blue),
                                   DrawnText{{2010, 493}, "650000", narrow, Colour::Blue, false}));
}

/// The lower right part of a canvas of 8000 x 4700, twice as large: what lies at 4000, 2350 is seen at its upper left.
constexpr ChartView kMagnified{.corner = {4000, 2350}, .zoom = 2, .width = 8000, .height = 4700};

TEST_F(AxesTest, NumbersOutOfSightStandAtTheEdgesOfAMagnifiedPicture) {
  const PlotScale scale{strainFrame(22), 1, 10};
  drawNumbersAtEdges(surface, scale, kMagnified, {.at = 4340, .every = 5}, {.at = 960, .every = 2}, Font{});
  // Lines 0 to 6 lie in the lower part; line 2 at 3728.57 is seen at 2757, half a height of 105 above it.
  EXPECT_THAT(textsOf(drawing(), Colour::Blue), ElementsAre("0", "10", "20", "30", "40", "50", "60"));
  EXPECT_THAT(texts(), Contains(words("20", 30, 2652, Colour::Blue)));
  EXPECT_THAT(all<DrawnBox>(drawing()), Contains(DrawnBox{{30, 2652}, {240, 2862}, {Colour::White, 1}, Colour::White}));
}

TEST_F(AxesTest, NumbersInSightStayWhereTheyAre) {
  const ChartView left{.corner = {0, 2350}, .zoom = 2, .width = 8000, .height = 4700};
  drawNumbersAtEdges(surface, {strainFrame(22), 1, 10}, left, {.at = 4340, .every = 5}, {.at = 960, .every = 2},
                     Font{});
  EXPECT_THAT(texts(), ::testing::IsEmpty());
}

TEST_F(AxesTest, NumbersBelowStandAtTheLowerEdge) {
  const ChartView upper{.corner = {0, 0}, .zoom = 2, .width = 8000, .height = 4700};
  drawNumbersAtEdges(surface, {strainFrame(22), 1, 10}, upper, {.at = 4340, .every = 5}, {.at = 960, .every = 2},
                     Font{});
  // Columns 0 and 5 to 10 percent: 1000, 2363.64 and 3727.27 are seen at twice that; 4700 - 210 - 30 = 4460.
  EXPECT_THAT(texts(), ElementsAre(words("0", 1948, 4460, Colour::Blue), words("5", 4675, 4460, Colour::Blue),
                                   words("10", 7350, 4460, Colour::Blue)));
}

TEST_F(AxesTest, ATurnedTitleRunsUpwardAboutItsMiddle) {
  drawTurnedTitle(surface, 480, kPressureFrame.middle().y, "σ3(kPa)", Font{});
  EXPECT_THAT(texts(), ElementsAre(upward("σ3(kPa)", 480, 2630)));  // 8 bytes of 105: 2210 + 420
}

TEST_F(AxesTest, SubscriptsStandInTheGapsOfATurnedTitle) {
  drawTurnedTitle(surface, 20, 1000, "σ (kPa)", Font{.size = 10}, std::array{Subscript{"h", "σ"}});
  // 8 bytes of 100: from 1400; the subscript 200 further up and 80 to the right.
  EXPECT_THAT(texts(),
              ElementsAre(DrawnText{{20, 1400}, "σ (kPa)", {.name = kSongRotated, .size = 10}, Colour::Black, true},
                          DrawnText{{100, 1200}, "h", {.name = kSongRotated, .size = 7}, Colour::Black, true}));
}

}  // namespace
}  // namespace triaxlab::testing
