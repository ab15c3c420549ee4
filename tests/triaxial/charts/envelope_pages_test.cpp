#include "triaxial/charts/chart_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Circles around 150 and 300 with radius 50 and 100. They reach to 400, so a division is 20 kPa: to the right 440 kPa
/// are 6000 twips (13.6364 each), upward 280 kPa are 3800 (13.5714 each).
struct EnvelopePage : ChartTest {
  EnvelopePage() {
    circle(0, "100", "150", "50");
    circle(1, "200", "300", "100");
    results.envelopes.total = {0.25, 10, true};
  }
  Drawing page() const { return draw(CurvePage::StressDifferenceEnvelope); }
};

TEST_F(EnvelopePage, ACircleIsHalfOneOf300Chords) {
  const auto circles = all<DrawnPolyline>(page());
  ASSERT_THAT(circles, SizeIs(2));
  ASSERT_THAT(circles[0].points, SizeIs(301));
  EXPECT_EQ(circles[0].stroke, (Stroke{Colour::LightRed, 1}));
  EXPECT_EQ(circles[0].points[0], (TwipPoint{2064, 4300}));    // 100 x 13.6364
  EXPECT_EQ(circles[0].points[150], (TwipPoint{2745, 3621}));  // 150 x 13.6364, 50 x 13.5714
  EXPECT_EQ(circles[0].points[300], (TwipPoint{3427, 4300}));  // 200 x 13.6364
  // A tenth of the way: x = 100 + 10, y = sqrt(50^2 - 40^2) = 30.
  EXPECT_EQ(circles[0].points[30], (TwipPoint{2200, 3893}));
}

TEST_F(EnvelopePage, TicksMarkTheCentres) {
  results.envelopes.total.exists = false;
  EXPECT_THAT(linesOverTheGrid(page()), ElementsAre(rule(2745, 4300, 2745, 4280, Colour::LightRed),
                                                    rule(4791, 4300, 4791, 4280, Colour::LightRed)));
}

TEST_F(EnvelopePage, LabelsAndAxes) {
  const Drawing drawing = page();
  EXPECT_THAT(textsOf(drawing, Colour::Blue),
              ElementsAre("0", "100", "200", "300", "400", "0", "40", "80", "120", "160", "200", "240"));
  const auto texts = all<DrawnText>(drawing);
  EXPECT_THAT(texts, Contains(words("应力差强度包线", 2965, 150)));  // 14 bytes
  EXPECT_THAT(texts, Contains(sized(9, "σ", 6520, 4500)));
  EXPECT_THAT(texts, Contains(words("τ", 20, 520)));
  EXPECT_THAT(texts, Contains(words("ｋ", 20, 760)));
  EXPECT_THAT(texts, Contains(words("Ｐ", 20, 1000)));
  EXPECT_THAT(texts, Contains(words("ａ", 20, 1240)));
  EXPECT_THAT(textsWith(draw(CurvePage::StressRatioEnvelope), "应力比"), ElementsAre("应力比强度包线"));
}

TEST_F(EnvelopePage, TheScaleReaches110AtLeast) {
  circle(0, "100", "60", "50");
  circle(1, "", "", "");
  EXPECT_THAT(textsOf(page(), Colour::Blue), Contains("100"));  // 22 x 5 = 110: label 20 x 5
  circle(0, "100", "61", "50");                                 // 111: steps of 10
  EXPECT_THAT(textsOf(page(), Colour::Blue), Contains("200"));
}

TEST_F(EnvelopePage, TheEnvelopeRisesFromTheAxisToTheRight) {
  // From (0, 10) to 5 kPa before the right end: (435, 118.75).
  EXPECT_THAT(linesOverTheGrid(page()), Contains(rule(700, 4164, 6632, 2688)));
}

TEST_F(EnvelopePage, WithANegativeCohesionItBeginsOnTheBase) {
  results.envelopes.total = {0.25, -20, true};  // 0 at 80 kPa; at 435 kPa 88.75
  EXPECT_THAT(linesOverTheGrid(page()), Contains(rule(1791, 4300, 6632, 3096)));
}

TEST_F(EnvelopePage, ASteepOneEndsAtTheHeightOfTheLargestCentre) {
  // At 435 kPa it would be at 455; step by step back to 280 kPa it comes down to 300, the largest centre. The plot
  // ends at 280 kPa of height, which the line reaches at 260 kPa.
  results.envelopes.total = {1, 20, true};
  EXPECT_THAT(linesOverTheGrid(page()), Contains(rule(700, 4029, 4245, 500)));
  // Centres up to 150 only: the line ends at (130, 150).
  circle(1, "200", "150", "250");
  EXPECT_THAT(linesOverTheGrid(page()), Contains(rule(700, 4029, 2473, 2264)));
}

TEST_F(EnvelopePage, WithoutAnAngleItIsLevel) {
  results.envelopes.total = {0, 70, true};  // 950 twips
  EXPECT_THAT(linesOverTheGrid(page()), Contains(rule(700, 3350, 6700, 3350)));
}

TEST_F(EnvelopePage, EffectiveStressesInTheirColours) {
  effectiveCircle(0, "110", "50");
  results.envelopes.effective = {0.5, 5, true};
  const Drawing drawing = page();
  const auto circles = all<DrawnPolyline>(drawing);
  ASSERT_THAT(circles, SizeIs(3));
  EXPECT_EQ(circles[2].stroke.colour, Colour::LightBlue);
  EXPECT_THAT(linesOverTheGrid(drawing), Contains(rule(2200, 4300, 2200, 4280, Colour::LightBlue)));
  // The largest effective centre is 110: from (0, 5) back to (210, 110).
  EXPECT_THAT(linesOverTheGrid(drawing), Contains(rule(700, 4232, 3564, 2807, Colour::Blue)));
}

TEST_F(EnvelopePage, OnlyCUHasEffectiveCircles) {
  effectiveCircle(0, "110", "50");
  sample.testMethod = kCD;
  EXPECT_THAT(all<DrawnPolyline>(page()), SizeIs(2));
}

TEST_F(EnvelopePage, ACircleLeftOfTheOriginIsClipped) {
  effectiveCircle(0, "40", "50");  // from -10 to 90
  const auto circles = all<DrawnPolyline>(page());
  ASSERT_THAT(circles, SizeIs(3));
  // Begins on the left edge at y = sqrt(50^2 - 40^2) = 30.
  EXPECT_EQ(circles[2].points.front(), (TwipPoint{700, 3893}));
  EXPECT_EQ(circles[2].points.back(), (TwipPoint{1927, 4300}));
}

TEST_F(EnvelopePage, OnPaperEachKindComesAsItIsChosen) {
  effectiveCircle(0, "110", "50");
  results.envelopes.effective = {0.5, 5, true};
  options.totalCircles = false;
  EXPECT_THAT(all<DrawnPolyline>(page()), SizeIs(1));
  EXPECT_THAT(linesOverTheGrid(page()),
              ElementsAre(rule(2200, 4300, 2200, 4280, Colour::LightBlue), rule(700, 4232, 3564, 2807, Colour::Blue)));
  options.totalCircles = true;
  options.effectiveCircles = false;
  EXPECT_THAT(all<DrawnPolyline>(page()), SizeIs(2));
  EXPECT_THAT(linesOverTheGrid(page()), SizeIs(3));
}

TEST_F(EnvelopePage, LineWeightsOfPaperAndOfAMovedLine) {
  options.lineWeight = 4;
  Drawing drawing = page();
  EXPECT_EQ(all<DrawnPolyline>(drawing)[0].stroke.width, 4);
  EXPECT_THAT(linesOverTheGrid(drawing), Contains(rule(700, 4164, 6632, 2688, Colour::Black, 4)));
  EXPECT_THAT(linesOverTheGrid(drawing), Contains(rule(2745, 4300, 2745, 4280, Colour::LightRed, 1)));
  options.lineWeight = 1;
  options.movedLine = MovedLine::TotalEnvelope;
  EXPECT_THAT(linesOverTheGrid(page()), Contains(rule(700, 4164, 6632, 2688, Colour::Black, 2)));
}

// tan phi 0.25 is an angle of 14.036 degrees, 0.5 one of 26.565.
TEST_F(EnvelopePage, ResultsOfCUAreFourLines) {
  results.envelopes.effective = {0.5, 5.4, true};
  const Drawing drawing = page();
  EXPECT_THAT(all<DrawnBox>(drawing), Contains(DrawnBox{{900, 600}, {3000, 1760}, {}, Colour::LightCyan}));
  const auto texts = all<DrawnText>(drawing);
  EXPECT_THAT(texts, Contains(words("Ccu = 10 kPa", 960, 640)));
  EXPECT_THAT(texts, Contains(words("φcu = 14.0", 960, 910)));
  EXPECT_THAT(texts, Contains(words(" C′= 5 kPa", 960, 1180)));
  EXPECT_THAT(texts, Contains(words("φ′ = 26.6", 960, 1450)));
  // The degree mark directly behind: 11 and 11 bytes of 105; lifted by 4 x 10.5.
  const Font small{.size = 10.5 * 0.7};
  EXPECT_THAT(texts, Contains(DrawnText{{2115, 868}, "o", small, Colour::Black, false}));
  EXPECT_THAT(texts, Contains(DrawnText{{2115, 1408}, "o", small, Colour::Black, false}));
}

TEST_F(EnvelopePage, ResultsOfTheOtherMethods) {
  options.cohesionFormat = NumberFormat::Hundredths;
  sample.testMethod = kUU;
  EXPECT_THAT(textsWith(page(), "C"), ElementsAre("Cu = 10.00 kPa"));
  EXPECT_THAT(textsWith(page(), "φ"), ElementsAre("φu = 14.0"));
  EXPECT_THAT(all<DrawnBox>(page())[1], (DrawnBox{{900, 600}, {3000, 1220}, {}, Colour::LightCyan}));
  sample.adjustedFlag = 1;
  EXPECT_THAT(textsWith(page(), "φ"), ElementsAre("φcu = 14.0"));
  sample.testMethod = kCD;
  EXPECT_THAT(textsWith(page(), "C"), ElementsAre("Ccd = 10.00 kPa"));
  EXPECT_THAT(textsWith(page(), "φ"), ElementsAre("φcd = 14.0"));
  sample.testMethod = 0;
  EXPECT_THAT(all<DrawnBox>(page()), SizeIs(1));
}

TEST_F(EnvelopePage, WithoutAnEnvelopeTheBoxStandsWithZeros) {
  sample.testMethod = kUU;
  results = {};
  const Drawing drawing = page();
  EXPECT_THAT(textsWith(drawing, "C"), ElementsAre("Cu = 0 kPa"));
  EXPECT_THAT(textsWith(drawing, "φ"), ElementsAre("φu = 0.0"));
  EXPECT_THAT(linesOverTheGrid(drawing), SizeIs(2));  // the ticks
}

TEST_F(EnvelopePage, CirclesThatAreNoneAreNotDrawn) {
  circle(0, "100", "150", "0");
  circle(1, "200", "9E99", "9E99");
  EXPECT_THAT(all<DrawnPolyline>(page()), IsEmpty());
}

/// Centre 110 and 120, radius 10 and 40: divisions of 10 kPa, to the right 27.2727 twips each kPa, upward 27.1429.
struct PathPage : ChartTest {
  PathPage() {
    readings(0, "100", {{0.4F, "10", "", "120", "100"}, {0.8F, "12", "", "160", "80"}, {1.2F, "12", "", "50", ""}});
    results.pathLine = {0.2, 15};
  }
  Drawing page() const { return draw(CurvePage::StressPath); }
};

TEST_F(PathPage, GoesFromRowToRow) {
  EXPECT_THAT(all<DrawnPolyline>(page()), ElementsAre(curve({{3700, 4029}, {3973, 3214}})));
}

TEST_F(PathPage, Texts) {
  const Drawing drawing = page();
  EXPECT_THAT(textsOf(drawing, Colour::Blue),
              ElementsAre("0", "50", "100", "150", "200", "0", "20", "40", "60", "80", "100", "120"));
  const auto texts = all<DrawnText>(drawing);
  EXPECT_THAT(texts, Contains(words("应力路径曲线", 3070, 150)));           // 12 bytes
  EXPECT_THAT(texts, Contains(sized(9, "(σ1′+σ3′)/2 (kPa)", 4810, 4500)));  // 21 bytes
  EXPECT_THAT(texts, Contains(upward("(σ ′-σ ′)/2 (kPa)", 20, 3503)));      // 21 bytes: 2400 + 1102.5
  // In the gaps behind 3 and 9 bytes, lowered (to the right) by 8 x 10.5.
  const Font small{.name = "@宋体", .size = 10.5 * 0.7};
  EXPECT_THAT(texts, Contains(DrawnText{{104, 3188}, "1", small, Colour::Black, true}));
  EXPECT_THAT(texts, Contains(DrawnText{{104, 2558}, "3", small, Colour::Black, true}));
}

TEST_F(PathPage, LineAndItsValues) {
  const Drawing drawing = page();
  // From (0, 15) to (219, 58.8); atan 0.2 is 11.31 degrees.
  EXPECT_THAT(linesOverTheGrid(drawing), ElementsAre(rule(700, 3893, 6673, 2704)));
  EXPECT_THAT(all<DrawnBox>(drawing), Contains(DrawnBox{{900, 600}, {3000, 1220}, {}, Colour::LightCyan}));
  EXPECT_THAT(all<DrawnText>(drawing), Contains(words(" C′= 15 kPa", 960, 640)));
  EXPECT_THAT(all<DrawnText>(drawing), Contains(words(" φ′= 11.3", 960, 910)));
}

TEST_F(PathPage, TheLineEndsInsideThePlot) {
  // 0.5 x - 10.2 is above 0 from x = 21 on (0.3); at 219 it is 99.3.
  results.pathLine = {0.5, -10.2};
  EXPECT_THAT(linesOverTheGrid(page()), ElementsAre(rule(1273, 4292, 6673, 1605)));
  // x + 15 is below 140 up to x = 124 (139).
  results.pathLine = {1, 15};
  EXPECT_THAT(linesOverTheGrid(page()), ElementsAre(rule(700, 3893, 4082, 527)));
}

TEST_F(PathPage, WithoutValuesThereIsNoLine) {
  results.pathLine = {};
  EXPECT_THAT(linesOverTheGrid(page()), IsEmpty());
  EXPECT_THAT(textsWith(page(), " C′"), ElementsAre(" C′= 0 kPa"));
}

TEST_F(PathPage, OnlyCUHasALine) {
  sample.testMethod = kCD;
  EXPECT_THAT(linesOverTheGrid(page()), IsEmpty());
  EXPECT_THAT(all<DrawnBox>(page()), SizeIs(1));
}

TEST_F(PathPage, BothDirectionsDecideOnTheScale) {
  // Radius 80 needs 14 x 10 to the top, centre 100 would do with 22 x 5.
  readings(0, "100", {{0.4F, "10", "", "180", "20"}, {0.8F, "12", "", "180", "20"}, {1.2F, "12", "", "50", ""}});
  EXPECT_THAT(textsOf(page(), Colour::Blue), Contains("120"));
}

TEST(Titles, OfTheSixPages) {
  EXPECT_EQ(titleOf(CurvePage::StressStrain), "主应力差与轴向应变曲线");
  EXPECT_EQ(titleOf(CurvePage::StressRatioEnvelope), "应力比强度包线");
  EXPECT_EQ(titleOf(CurvePage::StressDifferenceEnvelope), "应力差强度包线");
  EXPECT_EQ(titleOf(CurvePage::StressPath), "应力路径曲线");
  EXPECT_EQ(titleOf(CurvePage::PorePressure), "孔隙压力与轴向应变曲线");
  EXPECT_EQ(titleOf(CurvePage::StressRatio), "有效应力比与轴向应变曲线");
}

}  // namespace
}  // namespace triaxlab::testing
