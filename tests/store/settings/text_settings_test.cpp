#include "store/settings/text_settings.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "common/gbk.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

using testing::TemporaryFolder;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string gbk(std::string_view utf8) { return utf8ToGbkExactly(utf8).value(); }

/// What one file makes of the settings of a laboratory that has no other.
Settings settingsOf(const TextFile& file, std::string_view content) {
  Settings settings;
  settings.chart = defaultChartLayout({});
  applyTextFile(file, content, settings);
  return settings;
}

LaboratoryHabits habitsOf(std::string_view zmqvb) { return settingsOf(kHabitsFile, zmqvb).habits; }
/// Of a file in GBK.
LaboratoryHabits habits(std::string_view utf8) { return habitsOf(gbk(utf8)); }
LaboratoryHabits listLabels(std::string_view utf8) { return settingsOf(kListLabelsFile, gbk(utf8)).habits; }
EnglishLabels englishLabels(std::string_view utf8) { return settingsOf(kEnglishLabelsFile, gbk(utf8)).english; }
ChartLayout chartOf(std::string_view szshezhi) { return settingsOf(kChartFile, szshezhi).chart; }
ChartLayout chart(std::string_view utf8) { return chartOf(gbk(utf8)); }

// ---- zmqvb.ini: flags

struct FlagCase {
  const char* key;
  bool LaboratoryHabits::*flag;
};
using H = LaboratoryHabits;
constexpr FlagCase kFlags[] = {
    {"[工程编号大于20字节]", &H::wideProjectNo},
    {"[无侧限打印高度变化值]", &H::unconfinedHeightChange},
    {"[三轴每个土样都打印试验方法和取土深度]", &H::methodAndDepthOnEverySample},
    {"[三轴应力差人工干预后自动调整原始数据]", &H::autoAdjustRawData},
    {"[三轴打印探井号]", &H::trialPitNumber},
    {"[三轴无侧限显示50%峰值应变值]", &H::strainAtHalfPeak},
    {"[三轴打印钻孔编号]", &H::printBoreholeNumber},
    {"[三轴成果输出不打印试验方法]", &H::omitTestMethod},
    {"[不打印页码/日期/数据表]", &H::omitPageDateTable},
    {"[三轴不打印试验日期]", &H::omitTriaxialTestDate},
    {"[无侧限不打印钢环系数]", &H::omitRingCoefficient},
    {"[K0不打印试验日期]", &H::omitK0TestDate},
    {"[TK0不打印试验日期]", &H::omitTK0TestDate},
    {"[无侧限不打印试验日期]", &H::omitUnconfinedTestDate},
    {"[三轴曲线输出Fliove格式]", &H::compactEnvelope},
    {"[按工程编号打开win三轴]", &H::winTriaxialByProject},
    {"[三轴试验取50点]", &H::take50Points},
    {"[三轴含受控文件号]", &H::controlledDocNo},
};

TEST(Habits, WithoutAFileEveryKeyHasItsDefault) {
  const LaboratoryHabits read = habits("");
  for (const FlagCase& flag : kFlags) EXPECT_FALSE(read.*flag.flag) << flag.key;
  EXPECT_EQ(read.formNumber, "");
  EXPECT_EQ(read.unconfinedLargestStrain, 22);
  EXPECT_EQ(read.pageLabel, "第      页") << "six blanks";
  EXPECT_EQ(read.cohesionDecimals, 0);
  EXPECT_EQ(read.sensitivityDecimals, 2);
  EXPECT_EQ(read.methodSuffix, "");
  EXPECT_EQ(read.projectNoLabel, "工程编号");
  EXPECT_EQ(read.sampleNoLabel, "土样编号");
  EXPECT_EQ(read.boreholeLabel, "");
}

TEST(Habits, EachFlagKeySwitchesItsOwnFlagAlone) {
  for (const FlagCase& on : kFlags) {
    const LaboratoryHabits read = habits(on.key);
    for (const FlagCase& other : kFlags) EXPECT_EQ(read.*other.flag, other.key == on.key) << on.key << other.key;
  }
}

TEST(Habits, AFlagCountsAnywhereInTheLineWhateverFollows) {
  EXPECT_TRUE(habits("打印： [三轴打印钻孔编号]=0 否").printBoreholeNumber);
  EXPECT_TRUE(habits("   [三轴打印钻孔编号]").printBoreholeNumber);
}

TEST(Habits, OneLineMayHoldSeveralKeys) {
  const LaboratoryHabits read = habits("[三轴打印探井号] [三轴不打印试验日期] [三轴C]3");
  EXPECT_TRUE(read.trialPitNumber);
  EXPECT_TRUE(read.omitTriaxialTestDate);
  EXPECT_EQ(read.cohesionDecimals, 3);
}

TEST(Habits, AKeyCountsInsideTheValueOfAnother) {
  const LaboratoryHabits read = habits("[三轴表格编号] [三轴打印探井号]");
  EXPECT_EQ(read.formNumber, "三轴打印探井号");
  EXPECT_TRUE(read.trialPitNumber);
}

TEST(Habits, AMarkBehindATextMakesNoComment) {
  EXPECT_TRUE(habits("以前不用 ;[三轴打印钻孔编号]").printBoreholeNumber);
}

TEST(Habits, ACommentLineSetsNothing) {
  EXPECT_FALSE(habits(";[三轴打印钻孔编号]").printBoreholeNumber);
  EXPECT_FALSE(habits("   ; [三轴打印钻孔编号]").printBoreholeNumber) << "blanks in front are trimmed first";
  EXPECT_TRUE(habits("'[三轴打印钻孔编号]").printBoreholeNumber) << "only ; makes a comment here";
  EXPECT_TRUE(habits("\t;[三轴打印钻孔编号]").printBoreholeNumber) << "a tab is no blank";
}

TEST(Habits, AKeySpelledDifferentlyIsIgnored) {
  EXPECT_FALSE(habits("[ 三轴打印钻孔编号]").printBoreholeNumber);
  EXPECT_FALSE(habits("三轴打印钻孔编号").printBoreholeNumber);
  EXPECT_FALSE(habits("[三轴曲线输出FLIOVE格式]").compactEnvelope);
}

// ---- zmqvb.ini: numbers

TEST(Habits, NumbersAreHeldInsideTheirLimits) {
  EXPECT_EQ(habits("[无侧限最大应变]5").unconfinedLargestStrain, 10);
  EXPECT_EQ(habits("[无侧限最大应变]99").unconfinedLargestStrain, 50);
  EXPECT_EQ(habits("[无侧限最大应变]30").unconfinedLargestStrain, 30);
  EXPECT_EQ(habits("[三轴C]7").cohesionDecimals, 4);
  EXPECT_EQ(habits("[三轴C]-1").cohesionDecimals, 0);
  EXPECT_EQ(habits("[无侧限灵敏度]9").sensitivityDecimals, 4);
  EXPECT_EQ(habits("[无侧限灵敏度]0").sensitivityDecimals, 0);
}

TEST(Habits, ANumberThatDoesNotParseIsZeroBeforeItsLimits) {
  EXPECT_EQ(habits("[无侧限最大应变]=30").unconfinedLargestStrain, 10) << "the rest of the line is \"=30\"";
  EXPECT_EQ(habits("[无侧限最大应变]").unconfinedLargestStrain, 10);
  EXPECT_EQ(habits("[无侧限灵敏度]二").sensitivityDecimals, 0);
}

TEST(Habits, ANumberIsReadAsFarAsItGoes) {
  EXPECT_EQ(habits("[无侧限最大应变]   30 %").unconfinedLargestStrain, 30);
  EXPECT_EQ(habits("[三轴C] 2位小数").cohesionDecimals, 2);
}

TEST(Habits, AFractionGoesToTheNearestWholeNumberAndTiesToEven) {
  EXPECT_EQ(habits("[三轴C]1.5").cohesionDecimals, 2);
  EXPECT_EQ(habits("[三轴C]2.5").cohesionDecimals, 2);
  EXPECT_EQ(habits("[三轴C]2.51").cohesionDecimals, 3);
}

TEST(Habits, ANumberPastSixteenBitsLeavesTheDefault) {
  EXPECT_EQ(habits("[无侧限最大应变]32767").unconfinedLargestStrain, 50);
  EXPECT_EQ(habits("[无侧限最大应变]32768").unconfinedLargestStrain, 22);
  EXPECT_EQ(habits("[无侧限最大应变]1E999").unconfinedLargestStrain, 22);
  EXPECT_EQ(habits("[三轴C]-40000").cohesionDecimals, 0);
  EXPECT_EQ(habits("[无侧限灵敏度]-40000").sensitivityDecimals, 2);
}

TEST(Habits, ANumberPastSixteenBitsLeavesAnEarlierLineToo) {
  EXPECT_EQ(habits("[三轴C]3\n[三轴C]99999").cohesionDecimals, 3);
}

TEST(Habits, DecimalsChooseTheFormatOfCohesion) {
  EXPECT_EQ(habits("").cohesionFormat(), NumberFormat::Whole);
  EXPECT_EQ(habits("[三轴C]4").cohesionFormat(), NumberFormat::TenThousandths);
}

// ---- zmqvb.ini: bracketed values

TEST(Habits, BracketedValuesAreTrimmed) {
  EXPECT_EQ(habits("[工程编号][合同号]").projectNoLabel, "合同号");
  EXPECT_EQ(habits("[工程编号] = [  合同号 ]").projectNoLabel, "合同号") << "anything may stand before the bracket";
  EXPECT_EQ(habits("[第页] [  页码:   ]").pageLabel, "页码:");
  EXPECT_EQ(habits("[三轴表格编号]=[QR-07 A]").formNumber, "QR-07 A");
  EXPECT_EQ(habits("[三轴试验方法后加][，应变控制]").methodSuffix, "，应变控制");
}

TEST(Habits, BracketedValuesKeepTheirDefaultWithoutAValue) {
  EXPECT_EQ(habits("[第页]").pageLabel, "第      页");
  EXPECT_EQ(habits("[第页] 第一页").pageLabel, "第      页");
  EXPECT_EQ(habits("[第页] [   ]").pageLabel, "第      页");
  EXPECT_EQ(habits("[第页] [没有右括号").pageLabel, "第      页");
  EXPECT_EQ(habits("[第页] ][页]").pageLabel, "第      页") << "the first ] stands before the first [";
}

TEST(Habits, TheKeysOwnBracketsAreNoValue) {
  EXPECT_EQ(habits("[工程编号大于20字节][长]").projectNoLabel, "工程编号") << "another key that begins alike";
}

TEST(Habits, OfAKeyWrittenTwiceTheLaterLineCounts) {
  const LaboratoryHabits read = habits("[三轴C]1\r\n[工程编号][甲]\r\n[三轴C]3\r\n[工程编号][乙]\r\n");
  EXPECT_EQ(read.cohesionDecimals, 3);
  EXPECT_EQ(read.projectNoLabel, "乙");
}

// ---- Encodings and lines

TEST(SettingsText, GbkAndUtf8AreToldApart) {
  const std::string text = "; 设置\n[工程编号] [合同号]\n";
  EXPECT_EQ(habitsOf(gbk(text)).projectNoLabel, "合同号");
  EXPECT_EQ(habitsOf(text).projectNoLabel, "合同号") << "no key is found as GBK, but one as UTF-8";
  EXPECT_EQ(habitsOf(std::string(kUtf8Mark) + text).projectNoLabel, "合同号");
}

TEST(SettingsText, AKeyInTheFirstLineBehindTheMarkCounts) {
  EXPECT_TRUE(habitsOf(std::string(kUtf8Mark) + "[三轴打印探井号]").trialPitNumber);
  EXPECT_TRUE(habitsOf(std::string(kUtf8Mark) + ";[三轴打印探井号]\n[三轴不打印试验日期]").omitTriaxialTestDate);
  EXPECT_FALSE(habitsOf(std::string(kUtf8Mark) + ";[三轴打印探井号]").trialPitNumber);
}

TEST(SettingsText, AByteThatLooksLikeABracketInsideACharacterIsNone) {
  // 0x81 0x5B and 0x81 0x5D are the characters 乕 and 乚's neighbours of GBK: their second bytes are "[" and "]".
  const std::string value = "\x81\x5B\x81\x5D";
  EXPECT_EQ(habitsOf(gbk("[工程编号][") + value + "]").projectNoLabel, gbkToUtf8(value));
}

TEST(SettingsText, LinesEndWithEitherMarkAndTheLastNeedsNone) {
  const LaboratoryHabits read = habits("[三轴C]1 \n[三轴打印探井号]\r\n\r\n\n[工程编号][合同号]");
  EXPECT_EQ(read.cohesionDecimals, 1);
  EXPECT_TRUE(read.trialPitNumber);
  EXPECT_EQ(read.projectNoLabel, "合同号");
}

TEST(SettingsText, ACarriageReturnAloneEndsNoLine) {
  EXPECT_FALSE(habits(";[三轴打印探井号]\r[三轴不打印试验日期]").omitTriaxialTestDate);
}

TEST(SettingsText, AFileOfMarksAndLineEndsHoldsNothing) {
  for (const std::string_view empty : {"", "\r\n\r\n", "\n", ";", "\x1A", "[", "]", "[]", "]["})
    EXPECT_EQ(habitsOf(empty).projectNoLabel, "工程编号") << empty;
  EXPECT_EQ(habitsOf(kUtf8Mark).projectNoLabel, "工程编号");
}

TEST(SettingsText, ByteTwentySixEndsTheFile) {
  const LaboratoryHabits read = habits("[三轴打印探井号]\r\n\x1A\r\n[三轴不打印试验日期]\r\n");
  EXPECT_TRUE(read.trialPitNumber);
  EXPECT_FALSE(read.omitTriaxialTestDate);
}

TEST(SettingsText, BytesThatAreNoTextDoNoHarm) {
  std::string odd;
  for (int byte = 0; byte < 256; ++byte)
    if (byte != 26) odd += static_cast<char>(byte);
  EXPECT_TRUE(habitsOf(odd + "\n" + gbk("[三轴打印探井号]\n") + odd + "\x81").trialPitNumber);
}

// ---- sz.ini

TEST(ListLabels, BothKeysTakeTheBracketBehindTheEqualsSign) {
  const LaboratoryHabits read = listLabels("[土样编号]=[室内编号]\r\n  [钻孔号]=[ 孔号 ]");
  EXPECT_EQ(read.sampleNoLabel, "室内编号");
  EXPECT_EQ(read.boreholeLabel, "孔号");
}

TEST(ListLabels, WithoutTheEqualsSignItIsNoKey) {
  const LaboratoryHabits read = listLabels("[土样编号] =[室内编号]\n[钻孔号][孔号]");
  EXPECT_EQ(read.sampleNoLabel, "土样编号");
  EXPECT_EQ(read.boreholeLabel, "");
}

TEST(ListLabels, TheFirstLineOfAKeyCounts) {
  const LaboratoryHabits read = listLabels("[土样编号]=[甲]\n[土样编号]=[乙]\n[钻孔号]=[丙]\n[钻孔号]=[丁]\n");
  EXPECT_EQ(read.sampleNoLabel, "甲");
  EXPECT_EQ(read.boreholeLabel, "丙");
}

TEST(ListLabels, Utf8IsToldByItsKeys) {
  const LaboratoryHabits read = settingsOf(kListLabelsFile, "[土样编号]=[室内编号]\n[钻孔号]=[孔号]").habits;
  EXPECT_EQ(read.sampleNoLabel, "室内编号");
  EXPECT_EQ(read.boreholeLabel, "孔号");
  const std::string marked = std::string(kUtf8Mark) + "[土样编号]=[试件]";
  EXPECT_EQ(settingsOf(kListLabelsFile, marked).habits.sampleNoLabel, "试件");
}

TEST(ListLabels, BothMayStandInOneLine) {
  const LaboratoryHabits read = listLabels("[土样编号]=[甲] [钻孔号]=[乙]");
  EXPECT_EQ(read.sampleNoLabel, "甲");
  EXPECT_EQ(read.boreholeLabel, "乙");
}

TEST(ListLabels, CommentsAndEmptyValuesLeaveTheDefault) {
  const LaboratoryHabits read = listLabels(";[土样编号]=[甲]\n[土样编号]=[]\n[钻孔号]=[ ]\n");
  EXPECT_EQ(read.sampleNoLabel, "土样编号");
  EXPECT_EQ(read.boreholeLabel, "");
}

// ---- esz.ini

TEST(EnglishLabelsFile, EachKeySetsItsOwnLabel) {
  using L = EnglishLabels;
  struct Case {
    const char* key;
    std::string L::*label;
  };
  const Case cases[] = {{"[三轴试验成果曲线]=", &L::resultCurve},
                        {"[一个试样多级不固结不排水试验]=", &L::multiStageUU},
                        {"[固结不排水试验]=", &L::testCU},
                        {"[不固结不排水试验]=", &L::testUU},
                        {"[工程编号]=", &L::projectNo},
                        {"[工程名称]=", &L::projectName},
                        {"[土样编号]=", &L::sampleNo},
                        {"[钻孔编号]=", &L::boreholeNo},
                        {"[试验日期]=", &L::testDate},
                        {"[取样深度]=", &L::samplingDepth},
                        {"[取样地点]=", &L::samplingSpot},
                        {"[主应力差与轴向应变曲线]=", &L::stressStrainCurve},
                        {"[应力差强度包线]=", &L::stressDifferenceEnvelope},
                        {"[试验]=", &L::testedBy},
                        {"[校核]=", &L::checkedBy},
                        {"[报告日期]=", &L::reportDate},
                        {"[仪器编号]=", &L::apparatusNo}};
  const EnglishLabels defaults;
  for (const Case& one : cases) {
    const EnglishLabels read = englishLabels(std::string(one.key) + "[label]");
    for (const Case& other : cases)
      EXPECT_EQ(read.*other.label, other.key == one.key ? "label" : defaults.*other.label) << one.key << other.key;
  }
}

TEST(EnglishLabelsFile, CommentsAndEmptyValuesKeepTheDefaultAndTheLaterLineCounts) {
  const EnglishLabels read =
      englishLabels(" ;[工程名称]=[Job]\n[工程编号]=[]\n[试验]=[By]\n[试验]=[Tested]\n[校核]=[ ]");
  EXPECT_EQ(read.projectName, "Project");
  EXPECT_EQ(read.projectNo, "Project No.");
  EXPECT_EQ(read.testedBy, "Tested");
  EXPECT_EQ(read.checkedBy, "Checked by:");
}

TEST(EnglishLabelsFile, WithoutAFileTheLabelsAreTheUsualOnes) {
  const EnglishLabels read = englishLabels("");
  EXPECT_EQ(read.resultCurve, "Curve of triaxial test results");
  EXPECT_EQ(read.multiStageUU, "Multiple-stage unconsolidated-undrained triaxial test of one sample");
  EXPECT_EQ(read.testCU, "Consolidated undrained triaxial test");
  EXPECT_EQ(read.testUU, "Unconsolidated-undrained triaxial test");
  EXPECT_EQ(read.projectNo, "Project No.");
  EXPECT_EQ(read.projectName, "Project");
  EXPECT_EQ(read.sampleNo, "No. of soil sample");
  EXPECT_EQ(read.boreholeNo, "Borehole No.");
  EXPECT_EQ(read.testDate, "Date of test");
  EXPECT_EQ(read.samplingDepth, "Sampling depth");
  EXPECT_EQ(read.samplingSpot, "Sampling spot");
  EXPECT_EQ(read.stressStrainCurve, "Curve of principal stress difference and axial stress-strain");
  EXPECT_EQ(read.stressDifferenceEnvelope, "Strength envelope of stress difference");
  EXPECT_EQ(read.testedBy, "Tested by:");
  EXPECT_EQ(read.checkedBy, "Checked by:");
  EXPECT_EQ(read.reportDate, "Report date:");
  EXPECT_EQ(read.apparatusNo, "Apparatus No.");
}

TEST(EnglishLabelsFile, AKeyNeedsItsEqualsSign) {
  EXPECT_EQ(englishLabels("[工程名称][Job]").projectName, "Project");
  EXPECT_EQ(englishLabels("[工程名称]= [Job name]").projectName, "Job name");
}

// ---- szshezhi.txt

TEST(ChartLayoutFile, DefaultsStandWithoutAFile) {
  const ChartLayout layout = chart("");
  EXPECT_EQ(layout.slot[1], "三  轴  试  验  成  果  图  表");
  EXPECT_EQ(layout.slot[2], ":工程编号");
  EXPECT_EQ(layout.slot[5], "");
  EXPECT_EQ(layout.slot[6], "试验审核人:");
  EXPECT_EQ(layout.slot[7], "试验负责人:");
  EXPECT_EQ(layout.slot[8], "日期：");
  EXPECT_EQ(layout.slot[9], "土样编号:");
  for (const std::size_t empty : {3U, 4U, 10U, 11U, 12U, 13U, 14U, 15U, 16U, 17U, 18U, 19U, 20U})
    EXPECT_EQ(layout.slot[empty], "");
  EXPECT_EQ(layout.topMarginTwips, 900);
  EXPECT_EQ(layout.bottomMarginTwips, 900);
}

TEST(ChartLayoutFile, DefaultsFollowTheLaboratorysLabels) {
  LaboratoryHabits habits;
  habits.projectNoLabel = "合同号";
  habits.sampleNoLabel = "室内编号";
  EXPECT_EQ(defaultChartLayout(habits).slot[2], ":合同号");
  EXPECT_EQ(defaultChartLayout(habits).slot[9], "室内编号:");
}

TEST(ChartLayoutFile, MarginsAreMillimetresHeldInsideTheirLimits) {
  const ChartLayout layout = chart("[上边距]3\n[下边距]20");
  EXPECT_DOUBLE_EQ(layout.topMarginTwips, 286);      // 5 x 57.2
  EXPECT_DOUBLE_EQ(layout.bottomMarginTwips, 1144);  // 20 x 57.2
  EXPECT_DOUBLE_EQ(chart("[上边距]101").topMarginTwips, 5720);
  EXPECT_DOUBLE_EQ(chart("[上边距]12.5").topMarginTwips, 686.4) << "12.5 goes to the even 12";
  EXPECT_DOUBLE_EQ(chart("[上边距]=25").topMarginTwips, 286) << "\"=25\" reads as 0";
  EXPECT_DOUBLE_EQ(chart("[上边距]40000").topMarginTwips, 900) << "past 16 bits";
}

TEST(ChartLayoutFile, AMarginLineIsNoText) {
  const ChartLayout layout = chart("[05甲] [上边距]20");
  EXPECT_DOUBLE_EQ(layout.topMarginTwips, 1144);
  EXPECT_EQ(layout.slot[5], "");
}

TEST(ChartLayoutFile, OfALineWrittenTwiceTheLaterCounts) {
  const ChartLayout layout = chart("[06甲]\r\n[下边距]10\r\n[06乙]\r\n[下边距]20\r\n[08]");
  EXPECT_EQ(layout.slot[6], "乙");
  EXPECT_DOUBLE_EQ(layout.bottomMarginTwips, 1144);
  EXPECT_EQ(layout.slot[8], "") << "an empty text is a text";
}

TEST(ChartLayoutFile, TwoDigitsChooseTheSlot) {
  const ChartLayout layout = chart("[01成 果 图]\n[05城建土工试验室]\n  [14末项]  \n[10 李 ]");
  EXPECT_EQ(layout.slot[1], "成 果 图");
  EXPECT_EQ(layout.slot[5], "城建土工试验室");
  EXPECT_EQ(layout.slot[14], "末项");
  EXPECT_EQ(layout.slot[10], " 李 ");
}

TEST(ChartLayoutFile, TheClosingBracketMayBeMissing) { EXPECT_EQ(chart("[06审核:").slot[6], "审核:"); }

TEST(ChartLayoutFile, SlotsUpToTwentyAreStoredAndNoOthers) {
  const ChartLayout layout = chart("[20二十]\n[21x]\n[00x]\n[99x]\n[6x]\n[x6y]\n[6");
  EXPECT_EQ(layout.slot[20], "二十");
  EXPECT_EQ(layout.slot[6], "试验审核人:");
  EXPECT_EQ(layout.slot[0], "");
}

TEST(ChartLayoutFile, TwoMarksMakeAComment) {
  const ChartLayout layout = chart("'[01甲]\n;[01乙]\n ' [上边距]20");
  EXPECT_EQ(layout.slot[1], "三  轴  试  验  成  果  图  表");
  EXPECT_EQ(layout.topMarginTwips, 900);
}

TEST(ChartLayoutFile, Utf8WithoutAMarkIsToldByItsMarginsOrItsChinese) {
  EXPECT_EQ(chartOf("[05城建土工试验室]\n[上边距]10").slot[5], "城建土工试验室");
  EXPECT_EQ(chartOf("[05城建土工试验室]").slot[5], "城建土工试验室");
  EXPECT_EQ(chartOf(std::string(kUtf8Mark) + "[05城建土工试验室]").slot[5], "城建土工试验室");
}

// ---- The files in the application folder

class SettingsFolder : public ::testing::Test {
 protected:
  SettingsFolder() { workspace.applicationFolder = folder.path(); }
  TemporaryFolder folder;
  Workspace workspace;
};

TEST_F(SettingsFolder, MissingFilesLeaveDefaultsAndAreNothingToTell) {
  EXPECT_EQ(ReadIniSettings(workspace), Remarks{});
  EXPECT_EQ(ReadEnglishLabels(workspace), Remarks{});
  EXPECT_EQ(ReadChartLayout(workspace), Remarks{});
  EXPECT_EQ(workspace.settings.habits.pageLabel, "第      页");
  EXPECT_EQ(workspace.settings.english.checkedBy, "Checked by:");
  EXPECT_EQ(workspace.settings.chart.slot[6], "试验审核人:");
}

TEST_F(SettingsFolder, EachReaderReadsItsFile) {
  folder.write("zmqvb.ini", gbk("[工程编号][合同号]"));
  folder.write("sz.ini", gbk("[土样编号]=[室内编号]"));
  folder.write("esz.ini", gbk("[工程编号]=[Job]"));
  folder.write("szshezhi.txt", gbk("[上边距]10"));
  ReadIniSettings(workspace);
  ReadEnglishLabels(workspace);
  ReadChartLayout(workspace);
  EXPECT_EQ(workspace.settings.habits.projectNoLabel, "合同号");
  EXPECT_EQ(workspace.settings.habits.sampleNoLabel, "室内编号");
  EXPECT_EQ(workspace.settings.english.projectNo, "Job");
  EXPECT_DOUBLE_EQ(workspace.settings.chart.topMarginTwips, 572);
  EXPECT_EQ(workspace.settings.chart.slot[2], ":合同号");
}

TEST_F(SettingsFolder, NamesAreFoundWithoutRegardToCase) {
  folder.write("ZMQVB.INI", gbk("[三轴C]2"));
  ReadIniSettings(workspace);
  EXPECT_EQ(workspace.settings.habits.cohesionDecimals, 2);
}

TEST_F(SettingsFolder, ReadingAgainForgetsWhatIsGone) {
  folder.write("zmqvb.ini", gbk("[三轴C]2\n[三轴打印探井号]"));
  folder.write("sz.ini", gbk("[钻孔号]=[孔号]"));
  ReadIniSettings(workspace);
  folder.write("zmqvb.ini", gbk("[三轴打印探井号]"));
  folder.write("sz.ini", "");
  ReadIniSettings(workspace);
  EXPECT_EQ(workspace.settings.habits.cohesionDecimals, 0);
  EXPECT_TRUE(workspace.settings.habits.trialPitNumber);
  EXPECT_EQ(workspace.settings.habits.boreholeLabel, "");
}

TEST_F(SettingsFolder, AFileAboveTheLimitIsNamedAndIgnored) {
  std::string large = gbk("[三轴C]2\n");
  large.resize(kLargestTextFile, '\n');
  folder.write("zmqvb.ini", large);
  EXPECT_EQ(ReadIniSettings(workspace), Remarks{});
  EXPECT_EQ(workspace.settings.habits.cohesionDecimals, 2);

  folder.write("zmqvb.ini", large + "\n");
  const Remarks remarks = ReadIniSettings(workspace);
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_NE(remarks[0].find("zmqvb.ini"), std::string::npos) << remarks[0];
  EXPECT_EQ(workspace.settings.habits.cohesionDecimals, 0);
}

TEST_F(SettingsFolder, EachOfTheFourFilesHasTheLimit) {
  std::string large = gbk("[工程编号]=[X]\n[土样编号]=[X]\n[06X]\n");
  large.resize(kLargestTextFile + 1, '\n');
  struct Case {
    const char* file;
    Remarks (*read)(Workspace&);
  };
  for (const Case& one : {Case{"zmqvb.ini", ReadIniSettings}, Case{"sz.ini", ReadIniSettings},
                          Case{"esz.ini", ReadEnglishLabels}, Case{"szshezhi.txt", ReadChartLayout}}) {
    folder.write(one.file, large);
    const Remarks remarks = one.read(workspace);
    ASSERT_EQ(remarks.size(), 1U) << one.file;
    EXPECT_NE(remarks[0].find(one.file), std::string::npos) << remarks[0];
    std::filesystem::remove(folder.path() / one.file);
  }
  EXPECT_EQ(workspace.settings.habits.projectNoLabel, "工程编号");
  EXPECT_EQ(workspace.settings.habits.sampleNoLabel, "土样编号");
  EXPECT_EQ(workspace.settings.english.projectNo, "Project No.");
  EXPECT_EQ(workspace.settings.chart.slot[6], "试验审核人:");
}

TEST_F(SettingsFolder, AFileThatCannotBeReadIsNamedAndTheOtherIsRead) {
  std::filesystem::create_directory(folder.path() / "zmqvb.ini");
  folder.write("sz.ini", gbk("[钻孔号]=[孔号]"));
  const Remarks remarks = ReadIniSettings(workspace);
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_NE(remarks[0].find("zmqvb.ini"), std::string::npos) << remarks[0];
  EXPECT_EQ(workspace.settings.habits.boreholeLabel, "孔号");
}

}  // namespace
}  // namespace triaxlab
