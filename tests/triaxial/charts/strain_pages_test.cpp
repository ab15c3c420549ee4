#include "triaxial/charts/chart_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

// A percent of strain is 6000 / 22 = 272.727 twips. With an axis to 70 kPa, 1 kPa is 3800 / 70 = 54.2857 twips.
using StressStrainPage = ChartTest;

TEST_F(StressStrainPage, FrameCurveAndTitleStandWhereTheyBelong) {
  readings(0, "100", {{0.4F, "10"}, {0.8F, "15"}});
  const Drawing drawing = draw(CurvePage::StressStrain);
  // Line 1 of the grid: 700 + 272.727.
  EXPECT_THAT(all<DrawnLine>(drawing), Contains(rule(973, 500, 973, 4300, Colour::Grey)));
  EXPECT_THAT(all<DrawnBox>(drawing), ElementsAre(DrawnBox{{700, 500}, {6700, 4300}, {Colour::Grey, 1}, std::nullopt}));
  // 0.4 % is 109.09 twips, 10 kPa 542.86, 15 kPa 814.29.
  EXPECT_THAT(all<DrawnPolyline>(drawing), ElementsAre(curve({{700, 4300}, {809, 3757}, {918, 3486}})));
  // 22 GBK bytes of 105 twips centred on 3700.
  EXPECT_THAT(all<DrawnText>(drawing), Contains(words("主应力差与轴向应变曲线", 2545, 150)));
}

TEST_F(StressStrainPage, TheGridHas22LinesUpAnd14Across) {
  const Drawing drawing = draw(CurvePage::StressStrain);
  const auto lines = all<DrawnLine>(drawing);
  ASSERT_THAT(lines, SizeIs(36));
  EXPECT_EQ(lines[0], rule(700, 500, 700, 4300, Colour::Grey));
  EXPECT_EQ(lines[21], rule(6427, 500, 6427, 4300, Colour::Grey));  // 700 + 21 x 272.727 = 6427.27
  EXPECT_EQ(lines[22], rule(700, 4300, 6700, 4300, Colour::Grey));
  EXPECT_EQ(lines[35], rule(700, 771, 6700, 771, Colour::Grey));  // 4300 - 13 x 271.43 = 771.43
  EXPECT_THAT(all<DrawnPolyline>(drawing), IsEmpty());
}

TEST_F(StressStrainPage, LabelsUnitAndTurnedTitle) {
  const Drawing drawing = draw(CurvePage::StressStrain);
  EXPECT_THAT(textsOf(drawing, Colour::Blue),
              ElementsAre("0", "5", "10", "15", "20", "0", "10", "20", "30", "40", "50", "60"));
  const auto texts = all<DrawnText>(drawing);
  // Line 20 at 700 + 5454.545; "20" is 210 wide.
  EXPECT_THAT(texts, Contains(words("20", 6050, 4310, Colour::Blue)));
  // Line 12 at 4300 - 3257.143, half a height of 105 above it; right edge 660.
  EXPECT_THAT(texts, Contains(words("60", 450, 938, Colour::Blue)));
  EXPECT_THAT(texts, Contains(sized(9, "ε1(%)", 6160, 4500)));      // 6 bytes: 540
  EXPECT_THAT(texts, Contains(upward("σ1 - σ3 (kPa)", 20, 3188)));  // 15 bytes: 2400 + 1575 / 2
}

TEST_F(StressStrainPage, ThePictureIsBuiltFromGridToTexts) {
  readings(0, "100", {{0.4F, "10"}});
  const Drawing drawing = draw(CurvePage::StressStrain);
  ASSERT_THAT(drawing, SizeIs(36 + 1 + 1 + 12 + 3));
  EXPECT_TRUE(std::holds_alternative<DrawnBox>(drawing[36]));
  EXPECT_TRUE(std::holds_alternative<DrawnPolyline>(drawing[37]));
}

TEST_F(StressStrainPage, APeakOf60FillsAnAxisTo70) {
  readings(0, "100", {{0.4F, "60"}});
  EXPECT_THAT(textsOf(draw(CurvePage::StressStrain), Colour::Blue), Contains("60"));
  readings(0, "100", {{0.4F, "70"}});  // 14 x 5 is at 70: still enough
  EXPECT_THAT(textsOf(draw(CurvePage::StressStrain), Colour::Blue), Contains("60"));
  EXPECT_THAT(all<DrawnPolyline>(draw(CurvePage::StressStrain)), ElementsAre(curve({{700, 4300}, {809, 500}})));
}

TEST_F(StressStrainPage, APeakOf71NeedsAnAxisTo140) {
  readings(0, "100", {{0.4F, "71"}});
  const Drawing drawing = draw(CurvePage::StressStrain);
  EXPECT_THAT(textsOf(drawing, Colour::Blue),
              ElementsAre("0", "5", "10", "15", "20", "0", "20", "40", "60", "80", "100", "120"));
  // 71 x 3800 / 140 = 1927.14
  EXPECT_THAT(all<DrawnPolyline>(drawing), ElementsAre(curve({{700, 4300}, {809, 2373}})));
}

TEST_F(StressStrainPage, EveryUsedStageHasACurve) {
  readings(0, "100", {{0.4F, "10"}});
  readings(2, "", {{0.4F, "99"}});  // no pressure: not used
  readings(4, "300", {{0.8F, "15"}});
  EXPECT_THAT(all<DrawnPolyline>(draw(CurvePage::StressStrain)),
              ElementsAre(curve({{700, 4300}, {809, 3757}}), curve({{700, 4300}, {918, 3486}})));
}

TEST_F(StressStrainPage, RowsWithoutStressArePassedOver) {
  readings(0, "100", {{0.4F, "10"}, {0.6F, ""}, {0.8F, "15"}, {1.2F, "0"}});
  EXPECT_THAT(all<DrawnPolyline>(draw(CurvePage::StressStrain)),
              ElementsAre(curve({{700, 4300}, {809, 3757}, {918, 3486}})));
}

TEST_F(StressStrainPage, ALaterStageOfOneSpecimenBeginsAtItsFirstRow) {
  sample.shearMode = 2;
  readings(0, "100", {{0.4F, "10"}, {0.8F, "15"}});
  readings(1, "200", {{0.4F, "10"}, {0.8F, "15"}});
  EXPECT_THAT(all<DrawnPolyline>(draw(CurvePage::StressStrain)),
              ElementsAre(curve({{700, 4300}, {809, 3757}, {918, 3486}}), curve({{809, 3757}, {918, 3486}})));
  sample.uuAdjustFlag = 1;
  EXPECT_THAT(all<DrawnPolyline>(draw(CurvePage::StressStrain))[1], curve({{700, 4300}, {809, 3757}, {918, 3486}}));
  sample.uuAdjustFlag = 0;
  sample.shearMode = 3;  // several stages in captions, but not here
  EXPECT_THAT(all<DrawnPolyline>(draw(CurvePage::StressStrain))[1], curve({{700, 4300}, {809, 3757}, {918, 3486}}));
}

TEST_F(StressStrainPage, WhatLiesBeyond22PercentIsClipped) {
  // Straight through: at 22 % the line from 12 % to 32 % is halfway, at 20 kPa.
  readings(0, "100", {{12, "10"}, {32, "30"}});
  const auto curves = all<DrawnPolyline>(draw(CurvePage::StressStrain));
  ASSERT_THAT(curves, SizeIs(1));
  EXPECT_EQ(curves[0].points.back(), (TwipPoint{6700, 3214}));  // 20 x 54.2857 = 1085.71
}

TEST_F(StressStrainPage, LineWeightIsThatOfThePaper) {
  readings(0, "100", {{0.4F, "10"}});
  options.lineWeight = 4;
  const Drawing drawing = draw(CurvePage::StressStrain);
  EXPECT_EQ(all<DrawnPolyline>(drawing)[0].stroke, (Stroke{Colour::LightRed, 4}));
  EXPECT_EQ(all<DrawnBox>(drawing)[0].stroke, (Stroke{Colour::Grey, 4}));
  for (const DrawnLine& line : all<DrawnLine>(drawing)) EXPECT_EQ(line.stroke.width, 1);
}

TEST_F(StressStrainPage, AnotherTextSizeKeepsTheTextsAtTheirPlaces) {
  options.textSize = 7;
  options.title = "Curve";
  const auto texts = all<DrawnText>(draw(CurvePage::StressStrain));
  const Font small{.size = 7};
  // 5 bytes of 70 twips centred on 3700; "60" 140 wide and 70 above its line.
  EXPECT_THAT(texts, Contains(DrawnText{{3525, 150}, "Curve", small, Colour::Black, false}));
  EXPECT_THAT(texts, Contains(DrawnText{{520, 973}, "60", small, Colour::Blue, false}));
}

TEST_F(StressStrainPage, LabelsOfFiveCharactersAreSetSmaller) {
  readings(0, "100", {{0.4F, "14000"}});  // steps of 1000
  const auto texts = all<DrawnText>(draw(CurvePage::StressStrain));
  EXPECT_THAT(texts, Contains(words("8000", 240, 2024, Colour::Blue)));      // line 8 at 2128.57
  EXPECT_THAT(texts, Contains(sized(8, "10000", 260, 1506, Colour::Blue)));  // line 10 at 1585.71
}

TEST_F(StressStrainPage, AFieldThatHoldsNoStressOfThisWorldIsNotDrawn) {
  readings(0, "100", {{0.4F, "10"}, {0.6F, "1E300"}, {0.8F, "15"}});
  sample.axialStrain[3][0] = std::numeric_limits<float>::quiet_NaN();
  SetText(sample.deviatorStress[3][0], "20");
  EXPECT_THAT(all<DrawnPolyline>(draw(CurvePage::StressStrain)),
              ElementsAre(curve({{700, 4300}, {809, 3757}, {918, 3486}})));
}

TEST_F(StressStrainPage, AnAdjustmentShowsItsWorkingCurves) {
  readings(0, "100", {{0.4F, "10"}, {0.8F, "15"}});
  readings(1, "200", {{0.4F, "10"}, {0.8F, "15"}});
  CurveAdjustment adjustment{.workCurve = sample.deviatorStress, .stageShift = {}, .selectedStage = 1};
  SetText(adjustment.workCurve[1][0], "71.0");
  adjustment.stageShift[1] = 1;
  options.adjustment = &adjustment;
  const Drawing drawing = draw(CurvePage::StressStrain);
  // The axis follows the working curve to 140: 1 kPa is 27.14 twips. The second curve slides one row to the left.
  EXPECT_THAT(all<DrawnPolyline>(drawing), ElementsAre(curve({{700, 4300}, {809, 4029}, {918, 2373}}),
                                                       curve({{700, 4300}, {809, 3893}}, Colour::LightBlue, 2)));
  EXPECT_THAT(textsWith(drawing, "曲线"), ElementsAre("曲线主应力差与轴向应变曲线调整"));
}

using PorePressurePage = ChartTest;

TEST_F(PorePressurePage, StartsAtTheOrigin) {
  readings(0, "100", {{0.4F, "10", "35"}, {0.8F, "12", "20"}});
  const Drawing drawing = draw(CurvePage::PorePressure);
  // 35 x 54.2857 = 1900, 20 x 54.2857 = 1085.71
  EXPECT_THAT(all<DrawnPolyline>(drawing), ElementsAre(curve({{700, 4300}, {809, 2400}, {918, 3214}})));
  EXPECT_THAT(linesOverTheGrid(drawing), IsEmpty());
  const auto texts = all<DrawnText>(drawing);
  EXPECT_THAT(texts, Contains(words("孔隙压力与轴向应变曲线", 2545, 150)));
  EXPECT_THAT(texts, Contains(upward("u(kPa)", 20, 2715)));  // 6 bytes: 2400 + 315
  EXPECT_THAT(texts, Contains(sized(9, "ε1(%)", 6160, 4500)));
}

TEST_F(PorePressurePage, NegativePressuresStandBelowABlackZeroLine) {
  readings(0, "100", {{0.4F, "10", "-12"}, {0.8F, "12", "30"}});
  const Drawing drawing = draw(CurvePage::PorePressure);
  // 12 below zero take 4 divisions of 5 (an even number of at least 2.4); the 10 above reach 50.
  EXPECT_THAT(linesOverTheGrid(drawing), ElementsAre(rule(700, 3214, 6700, 3214)));
  EXPECT_THAT(textsOf(drawing, Colour::Blue),
              ElementsAre("0", "5", "10", "15", "20", "-20", "-10", "0", "10", "20", "30", "40"));
  // Zero at 4300 - 4 x 271.43; -12 lies 651.43 below it, 30 lies 1628.57 above.
  EXPECT_THAT(all<DrawnPolyline>(drawing), ElementsAre(curve({{700, 3214}, {809, 3866}, {918, 1586}})));
}

TEST_F(PorePressurePage, TheStepGrowsUntilBothSidesHaveRoom) {
  // Steps of 5: 40 below need 8 divisions, the 6 above reach 30, not 45. Steps of 10: 4 below, 10 above reach 100.
  readings(0, "100", {{0.4F, "10", "-40"}, {0.8F, "12", "45"}});
  EXPECT_THAT(textsOf(draw(CurvePage::PorePressure), Colour::Blue),
              ElementsAre("0", "5", "10", "15", "20", "-40", "-20", "0", "20", "40", "60", "80"));
}

TEST_F(PorePressurePage, ASourceWithoutPressuresHasNoCurve) {
  readings(0, "100", {{0.4F, "10"}, {0.8F, "12"}});
  EXPECT_THAT(all<DrawnPolyline>(draw(CurvePage::PorePressure)), IsEmpty());
}

using StressRatioPage = ChartTest;

TEST_F(StressRatioPage, RatiosOverStrain) {
  readings(0, "100", {{0.4F, "10", "", "130", "65"}, {0.8F, "12", "", "70", "0"}, {1.2F, "12", "", "100", "100"}});
  const Drawing drawing = draw(CurvePage::StressRatio);
  // 2.000 needs steps of 0.2: 1 is 3800 / 2.8 = 1357.14 twips. The row without sigma3' is left out. 1.2 % is 327.27.
  EXPECT_THAT(all<DrawnPolyline>(drawing), ElementsAre(curve({{700, 4300}, {809, 1586}, {1027, 2943}})));
  EXPECT_THAT(textsOf(drawing, Colour::Blue),
              ElementsAre("0", "5", "10", "15", "20", "0.000", "0.400", "0.800", "1.200", "1.600", "2.000", "2.400"));
  // Five characters of 80 twips that end at 660 and stand on line 12, at 1042.857.
  EXPECT_THAT(all<DrawnText>(drawing), Contains(sized(8, "2.400", 260, 963, Colour::Blue)));
  EXPECT_THAT(all<DrawnText>(drawing), Contains(upward("σ1′/σ3′", 20, 2978)));  // 11 bytes: 2400 + 577.5
  EXPECT_THAT(all<DrawnText>(drawing), Contains(words("有效应力比与轴向应变曲线", 2440, 150)));  // 24 bytes
}

TEST_F(StressRatioPage, TheAxisReaches1Point4AtLeastAndStopsOnTheDivision) {
  EXPECT_THAT(textsOf(draw(CurvePage::StressRatio), Colour::Blue), Contains("1.200"));
  readings(0, "100", {{0.4F, "10", "", "140", "100"}});  // 1.4 = 14 x 0.1
  EXPECT_THAT(textsOf(draw(CurvePage::StressRatio), Colour::Blue), Contains("1.200"));
  readings(0, "100", {{0.4F, "10", "", "420", "100"}});  // 4.2 = 14 x 0.3
  EXPECT_THAT(textsOf(draw(CurvePage::StressRatio), Colour::Blue), Contains("3.600"));
  readings(0, "100", {{0.4F, "10", "", "421", "100"}});
  EXPECT_THAT(textsOf(draw(CurvePage::StressRatio), Colour::Blue), Contains("4.800"));
}

}  // namespace
}  // namespace triaxlab::testing
