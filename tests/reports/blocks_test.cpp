#include <algorithm>
#include <array>
#include <cstring>

#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

struct BlockTest : PageTest {
  LaboratoryHabits& habits = workspace.settings.habits;
  Toggles& toggles = workspace.settings.toggles;

  BlockTest() {
    SetText(sample(0, kCU, "A-1").soilName, "clay");
    SetText(workspace.TriaxialSampleTable[0].density, "1.92");
    SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].boreholeNo, "TJ-12  ZK-3");
    SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingDepth, "3.5");
    SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingSpot, "left bank");
  }
};

TEST_F(BlockTest, TheChartStandsInThePageUnscaled) {
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnBox>(page), ElementsAre(DrawnBox{{1300, 2350}, {7300, 6150}, {Colour::Grey, 4}, std::nullopt}));
  // The canvas lies at 600, 1850: its points are 700, 4300 - 809, 3757 - 918, 3486.
  EXPECT_THAT(all<DrawnPolyline>(page),
              ElementsAre(DrawnPolyline{{{1300, 6150}, {1409, 5607}, {1518, 5336}}, {Colour::LightRed, 4}}));
  EXPECT_THAT(all<DrawnText>(page), Contains(words("主应力差与轴向应变曲线", 3145, 2000)));
  EXPECT_THAT(all<DrawnText>(page), Contains(upward("σ1 - σ3 (kPa)", 620, 5038)));  // 1850 + 3187.5
}

TEST_F(BlockTest, HeadOfTheFirstBlock) {
  const auto texts = all<DrawnText>(firstPage());
  EXPECT_THAT(texts, IsSupersetOf({words("土样编号:A-1", 7900, 2350), words("   钻孔号: TJ-12  ZK-3", 7900, 2650),
                                   words("土样名称:clay", 7900, 2950), words("取样深度:3.5", 7900, 3250),
                                   words("试验方法:固结不排水CU", 7900, 3550)}));
  EXPECT_THAT(headLines(firstPage()), SizeIs(5));
}

TEST_F(BlockTest, DensityAndSpotWhereTheyAreWanted) {
  toggles.printDensity = true;
  toggles.printSamplingSpot = true;
  EXPECT_THAT(headLines(firstPage()),
              ElementsAre("土样编号:A-1", "   钻孔号: TJ-12  ZK-3", "土样名称:clay", "密度:1.92", "取样地点:left bank",
                          "取样深度:3.5", "试验方法:固结不排水CU"));
}

TEST_F(BlockTest, BoreholeLines) {
  habits.printBoreholeNumber = true;
  EXPECT_THAT(headLines(firstPage()), Contains("钻孔编号:TJ-12  ZK-3"));
  habits.boreholeLabel = "孔位";
  EXPECT_THAT(headLines(firstPage()), Contains("孔位:TJ-12  ZK-3"));
  habits.printBoreholeNumber = false;
  EXPECT_THAT(headLines(firstPage()), Contains("   孔位: TJ-12  ZK-3"));
  habits.printBoreholeNumber = true;
  habits.trialPitNumber = true;  // the first seven places, whatever else is wanted
  EXPECT_THAT(headLines(firstPage()), Contains("   探井号: TJ-12"));
  workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].boreholeNo.clear();
  EXPECT_THAT(headLines(firstPage()), SizeIs(4));
}

TEST_F(BlockTest, TheLaboratorysWordForTheSample) {
  habits.sampleNoLabel = "试件";
  EXPECT_THAT(headLines(firstPage()), Contains("试件:A-1"));
}

TEST_F(BlockTest, MethodAndDepthStandOnTheFirstBlockOfAPageOnly) {
  sample(1, kCU, "A-2");
  sample(2, kCU, "A-3");
  const auto pages = print();
  EXPECT_THAT(textsWith(pages.at(0).drawing, "取样深度:"), SizeIs(1));
  EXPECT_THAT(textsWith(pages.at(0).drawing, "试验方法:"), SizeIs(1));
  EXPECT_THAT(textsWith(pages.at(1).drawing, "取样深度:"), SizeIs(1));
  habits.methodAndDepthOnEverySample = true;
  const Drawing page = firstPage();
  EXPECT_THAT(textsWith(page, "取样深度:"), SizeIs(2));
  EXPECT_THAT(textsWith(page, "试验方法:"), SizeIs(2));
}

TEST_F(BlockTest, TheMethodCanBeLeftOutButWhereEverySampleHasIt) {
  sample(1, kUU, "A-2");
  habits.omitTestMethod = true;
  EXPECT_THAT(textsWith(firstPage(), "试验方法:"), IsEmpty());
  EXPECT_THAT(textsWith(firstPage(), "取样深度:"), SizeIs(1));
  habits.methodAndDepthOnEverySample = true;
  EXPECT_THAT(textsWith(firstPage(), "试验方法:"), SizeIs(2));
}

TEST_F(BlockTest, LabelsStandWithNothingBehindThem) {
  workspace.TriaxialSampleTable[0].soilName.clear();
  workspace.TriaxialSampleTable[0].density.clear();
  workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0] = {};
  toggles.printDensity = toggles.printSamplingSpot = true;
  EXPECT_THAT(headLines(firstPage()),
              ElementsAre("土样编号:A-1", "土样名称:", "密度:", "取样地点:", "取样深度:", "试验方法:固结不排水CU"));
}

TEST_F(BlockTest, ALongLineIsSetNarrowerToEndAtTheMargin) {
  toggles.printSamplingSpot = true;
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingSpot, std::string(30, 'x'));
  // 39 bytes of 105 twips have room in 3600.
  const Font narrow{.stretch = 3600.0 / 4095.0};
  EXPECT_THAT(all<DrawnText>(firstPage()),
              Contains(DrawnText{{7900, 3250}, "取样地点:" + std::string(30, 'x'), narrow, Colour::Black, false}));
}

TEST_F(BlockTest, AnotherMethodThanThePagesIsNamed) {
  sample(1, kUU, "A-2").shearMode = 2;
  EXPECT_THAT(textsWith(firstPage(), "试验方法:"), ElementsAre("试验方法:固结不排水CU", "试验方法:多级不固结不排水UU"));
  EXPECT_THAT(textsWith(firstPage(), "取样深度:"), SizeIs(1));
  sample(1, kCU, "A-2").shearMode = 3;  // the same method in another mode
  EXPECT_THAT(textsWith(firstPage(), "试验方法:"), ElementsAre("试验方法:固结不排水CU", "试验方法:多级固结不排水CU"));
}

/// Two stages whose failure values the page itself finds: sigma3 100 with a peak of 60 at u 30, and sigma3 200 with 120
/// at 60.
struct EnvelopeBlock : BlockTest {
  EnvelopeBlock() {
    TriaxialSampleRecord& record = workspace.TriaxialSampleTable[0];
    setStage(record, 0, {"100", "60", "30", "130", "70"});
    setStage(record, 1, {"200", "120", "60", "260", "140"});
    SetText(record.initialHeight[0], "8.00");
    record.coefficientB[0] = 0.955F;
    job.curves.pages = {CurvePage::StressDifferenceEnvelope};
  }
  static void setStage(TriaxialSampleRecord& record, std::size_t stage, const std::array<const char*, 5>& texts) {
    SetText(record.cellPressure[stage], texts[0]);
    record.axialStrain[0][stage] = 0.4F;
    SetText(record.deviatorStress[0][stage], texts[1]);
    SetText(record.porePressure[0][stage], texts[2]);
    SetText(record.sigma1Eff[0][stage], texts[3]);
    SetText(record.sigma3Eff[0][stage], texts[4]);
    record.deviatorStress[1][stage].clear();
  }
  /// The texts of a row of the failure table, row 0 the head; the block's table begins at y 1850 + 4700.
  static std::vector<std::string> row(const Drawing& page, int number) {
    std::vector<std::string> found;
    for (const DrawnText& text : all<DrawnText>(page))
      if (text.font.size == 9 && text.upperLeft.y == 6550 + 300 * number + 60) found.push_back(text.text);
    return found;
  }
};

TEST_F(EnvelopeBlock, FailureTable) {
  const Drawing page = firstPage();
  EXPECT_THAT(row(page, 0), ElementsAre("围压级号", "σ3", "σ1f", "σ3f′", "σ1f′", "⊙", "R", "⊙′", "R′", "h0", "h1", "A0",
                                        "Ac", "ΔV", "B", "Af"));
  // R = 60 / 2, centre (2 x 100 + 60) / 2, effective centre 30 less.
  EXPECT_THAT(row(page, 1),
              ElementsAre("一", "100", "160", "70", "130", "130", "30", "100", "30", "8.00", "0.96", "0.00"));
  EXPECT_THAT(row(page, 2), ElementsAre("二", "200", "320", "140", "260", "260", "60", "200", "60", "0.00", "0.00"));
  EXPECT_THAT(row(page, 3), ElementsAre("三"));
  EXPECT_THAT(row(page, 5), ElementsAre("五"));
}

TEST_F(EnvelopeBlock, PagesOfNoModeOfTheirOwnFollowTheEntryThatIsChecked) {
  // A second reading of a larger ratio: 90 / 40 against 130 / 70.
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable[0];
  SetText(record.deviatorStress[1][0], "50");
  SetText(record.porePressure[1][0], "60");
  SetText(record.sigma1Eff[1][0], "90");
  SetText(record.sigma3Eff[1][0], "40");
  job.curves.pages = {CurvePage::StressPath};
  // The line through (100, 30) and (200, 60), then through (65, 25) and (200, 60).
  EXPECT_THAT(textsWith(firstPage(), " φ′"), ElementsAre(" φ′= 16.7"));
  job.curves.checkedMode = FailureMode::PeakRatio;
  EXPECT_THAT(textsWith(firstPage(), " φ′"), ElementsAre(" φ′= 14.5"));
  job.curves.pages = {CurvePage::StressDifferenceEnvelope};
  EXPECT_THAT(row(firstPage(), 1), Contains("70"));
}

TEST_F(EnvelopeBlock, PlacesOfTheTable) {
  const Drawing page = firstPage();
  EXPECT_THAT(all<DrawnBox>(page), Contains(DrawnBox{{600, 6550}, {11304, 8350}, {Colour::Black, 4}, std::nullopt}));
  EXPECT_THAT(
      all<DrawnLine>(page),
      IsSupersetOf({rule(600, 6850, 11304, 6850, Colour::Black, 4), rule(600, 8050, 11304, 8050, Colour::Black, 4),
                    rule(1404, 6550, 1404, 8350, Colour::Black, 4), rule(10644, 6550, 10644, 8350, Colour::Black, 4)}));
  const Font small{.size = 9};
  // 8 bytes of 90 in the middle of 600 to 1404; "100" 270 wide in the middle of 1404 to 2064.
  EXPECT_THAT(all<DrawnText>(page), IsSupersetOf({DrawnText{{642, 6610}, "围压级号", small, Colour::Black, false},
                                                  DrawnText{{1599, 6910}, "100", small, Colour::Black, false}}));
}

TEST_F(EnvelopeBlock, OtherThanCUHaveNoEffectiveColumns) {
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable[0];
  record.testMethod = kUU;
  SetText(record.sigma3FailureEff[0], "70");  // left from an earlier method
  EXPECT_THAT(row(firstPage(), 1), ElementsAre("一", "100", "160", "130", "30", "8.00", "0.96", "0.00"));
}

TEST_F(EnvelopeBlock, TheCompactBlockHasNoTableAndTheSameRoom) {
  sample(1, kCU, "A-2");
  habits.compactEnvelope = true;
  const Drawing page = firstPage();
  EXPECT_THAT(textsWith(page, "围压级号"), IsEmpty());
  EXPECT_THAT(blockTops(page), ElementsAre(1850, 8600));
}

TEST_F(EnvelopeBlock, ACurveHasNoTable) {
  job.curves.pages = {CurvePage::StressStrain, CurvePage::StressPath};
  EXPECT_THAT(textsWith(firstPage(), "围压级号"), IsEmpty());
}

TEST_F(EnvelopeBlock, CirclesAsTheJobWantsThem) {
  const auto circlesOf = [](const Drawing& page, Colour colour) {
    const auto curves = all<DrawnPolyline>(page);
    return std::count_if(curves.begin(), curves.end(), [&](const auto& c) { return c.stroke == Stroke{colour, 4}; });
  };
  EXPECT_EQ(circlesOf(firstPage(), Colour::LightRed), 2);
  EXPECT_EQ(circlesOf(firstPage(), Colour::LightBlue), 2);
  job.curves.effectiveCircles = false;
  EXPECT_EQ(circlesOf(firstPage(), Colour::LightBlue), 0);
  job.curves.effectiveCircles = true;
  job.curves.totalCircles = false;
  EXPECT_EQ(circlesOf(firstPage(), Colour::LightRed), 0);
  EXPECT_EQ(circlesOf(firstPage(), Colour::LightBlue), 2);
}

TEST_F(EnvelopeBlock, DecimalsOfTheCohesion) {
  // Radii 30 and 60 over centres 130 and 260: all lines through the circles' tops meet at C = 0.
  habits.cohesionDecimals = 2;
  EXPECT_THAT(textsWith(firstPage(), "Ccu"), ElementsAre("Ccu = 0.00 kPa"));
}

TEST_F(EnvelopeBlock, PrintingLeavesTheRecordsAsTheyAre) {
  job.curves.pages = {CurvePage::StressRatioEnvelope, CurvePage::StressDifferenceEnvelope, CurvePage::StressPath};
  const TriaxialSampleRecord before = workspace.TriaxialSampleTable[0];
  print();
  EXPECT_EQ(std::memcmp(&before, &workspace.TriaxialSampleTable[0], sizeof before), 0);
}

}  // namespace
}  // namespace triaxlab::testing
