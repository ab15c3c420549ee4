#include "store/settings/text_keys.h"

#include <fmt/format.h>

#include <array>

#include "common/text_number.h"
#include "store/settings/chart_layout.h"

namespace triaxlab {
namespace {

using H = LaboratoryHabits;
using E = EnglishLabels;
using C = ChartLayout;

constexpr TextKey flag(std::string_view key, bool H::*member, std::string_view meaning, std::string_view effect) {
  return {key, FlagValue{member}, meaning, effect};
}
constexpr TextKey number(std::string_view key, int H::*member, int least, int most, std::string_view meaning,
                         std::string_view effect) {
  return {key, NumberValue{member, least, most}, meaning, effect};
}
constexpr TextKey text(std::string_view key, std::string H::*member, std::string_view meaning,
                       std::string_view effect) {
  return {key, BracketedValue<H>{member}, meaning, effect};
}
constexpr TextKey english(std::string_view key, std::string E::*member) {
  return {key, BracketedValue<E>{member}, {}, {}};
}
constexpr TextKey margin(std::string_view key, double C::*member, std::string_view meaning, std::string_view effect) {
  return {key, MarginValue{member}, meaning, effect};
}
constexpr TextKey slot(std::string_view key, std::size_t number, std::string_view meaning, std::string_view effect) {
  return {key, SlotValue{number}, meaning, effect};
}
constexpr TextKey unprintedSlot(std::string_view key, std::size_t number) {
  return slot(key, number, "可以写，不印", "kept, printed nowhere");
}

constexpr std::array kHabitKeys{
    flag("[工程编号大于20字节]", &H::wideProjectNo, "加宽各种报告里工程编号的位置，试验日期移到页码下面",
         "wider column for the project number"),
    flag("[无侧限打印高度变化值]", &H::unconfinedHeightChange, "无侧限数据表另有轴向变形（高度变化值）一栏",
         "unconfined pages have the height change values"),
    flag("[三轴每个土样都打印试验方法和取土深度]", &H::methodAndDepthOnEverySample,
         "三轴报告每个土样都印试验方法和取样深度", "each sample on a triaxial page has method and depth"),
    flag("[三轴应力差人工干预后自动调整原始数据]", &H::autoAdjustRawData, "人工干预应力差后，原始数据随之调整",
         "raw data follow a stress difference that was corrected by hand"),
    flag("[三轴打印探井号]", &H::trialPitNumber, "钻孔编号的前 7 位是探井号，列表和报告按探井号显示",
         "lists and pages show a trial pit"),
    flag("[三轴无侧限显示50%峰值应变值]", &H::strainAtHalfPeak, "无侧限曲线另显示 50% 峰值的应变",
         "unconfined curves show the strain at half the peak"),
    flag("[三轴打印钻孔编号]", &H::printBoreholeNumber, "三轴窗口和报告里的“钻孔号”改称“钻孔编号”",
         "windows and triaxial pages call the borehole 钻孔编号 rather than 钻孔号"),
    flag("[三轴成果输出不打印试验方法]", &H::omitTestMethod,
         "成果页标题下面和各块旁边都不印试验方法；同时设了 [三轴每个土样都打印试验方法和取土深度] 时，各块旁边照印",
         "result pages have no test method"),
    flag("[不打印页码/日期/数据表]", &H::omitPageDateTable, "三轴报告不印页码、日期和数据表",
         "pages have no page number, date and data table"),
    flag("[三轴不打印试验日期]", &H::omitTriaxialTestDate, "三轴报告不印试验日期", "triaxial pages have no test date"),
    flag("[无侧限不打印钢环系数]", &H::omitRingCoefficient, "无侧限报告不印钢环系数",
         "unconfined pages have no ring coefficient"),
    flag("[K0不打印试验日期]", &H::omitK0TestDate, "K0 报告不印试验日期", "K0 pages have no test date"),
    flag("[TK0不打印试验日期]", &H::omitTK0TestDate, "TK0 报告不印试验日期", "TK0 pages have no test date"),
    flag("[无侧限不打印试验日期]", &H::omitUnconfinedTestDate, "无侧限报告不印试验日期",
         "unconfined pages have no test date"),
    flag("[三轴曲线输出Fliove格式]", &H::compactEnvelope, "三轴强度包线用不带数据表的版式",
         "envelopes of triaxial tests without their data table"),
    flag("[按工程编号打开win三轴]", &H::winTriaxialByProject, "WIN 版三轴按工程编号选择试样",
         "databases of the Windows edition are selected by project"),
    flag("[三轴试验取50点]", &H::take50Points, "导入 WIN 版三轴和显示数据表时，每个三轴试样取 50 点",
         "50 points of a triaxial test are taken"),
    flag("[三轴含受控文件号]", &H::controlledDocNo, "三轴窗口有受控文件号一栏，报告印它",
         "the number of the controlled document is shown and printed"),
    text("[三轴表格编号]", &H::formNumber, "受控文件号空着时，报告在它的位置印这个编号；要同时设 [三轴含受控文件号]",
         "printed where the number of the controlled document is blank, with [三轴含受控文件号] alone"),
    number("[无侧限最大应变]", &H::unconfinedLargestStrain, 10, 50, "无侧限曲线的最大应变，%",
           "largest strain of the unconfined curves, %"),
    text("[第页]", &H::pageLabel, "不印页码时，页码位置上的文字", "what stands in the place of a page number"),
    number("[三轴C]", &H::cohesionDecimals, 0, 4, "三轴报告里 C 的小数位数", "decimals of c"),
    number("[无侧限灵敏度]", &H::sensitivityDecimals, 0, 4, "灵敏度 St 的小数位数", "decimals of the sensitivity St"),
    text("[三轴试验方法后加]", &H::methodSuffix, "加在试验方法后面的文字", "text behind the test method"),
    text("[工程编号]", &H::projectNoLabel, "列表和报告里“工程编号”的叫法", "label of the project number"),
};

constexpr std::array kListLabelKeys{
    text("[土样编号]=", &H::sampleNoLabel, "列表和报告里“土样编号”的叫法", "label of the sample number"),
    text("[钻孔号]=", &H::boreholeLabel, "窗口和报告里“钻孔号”“钻孔编号”的叫法；空着时用原来的",
         "label of the borehole; empty: the usual ones"),
};

constexpr std::array kEnglishLabelKeys{
    english("[三轴试验成果曲线]=", &E::resultCurve),
    english("[一个试样多级不固结不排水试验]=", &E::multiStageUU),
    english("[固结不排水试验]=", &E::testCU),
    english("[不固结不排水试验]=", &E::testUU),
    english("[工程编号]=", &E::projectNo),
    english("[工程名称]=", &E::projectName),
    english("[土样编号]=", &E::sampleNo),
    english("[钻孔编号]=", &E::boreholeNo),
    english("[试验日期]=", &E::testDate),
    english("[取样深度]=", &E::samplingDepth),
    english("[取样地点]=", &E::samplingSpot),
    english("[主应力差与轴向应变曲线]=", &E::stressStrainCurve),
    english("[应力差强度包线]=", &E::stressDifferenceEnvelope),
    english("[试验]=", &E::testedBy),
    english("[校核]=", &E::checkedBy),
    english("[报告日期]=", &E::reportDate),
    english("[仪器编号]=", &E::apparatusNo),
};

constexpr std::array kChartKeys{
    margin("[上边距]", &C::topMarginTwips, "成果图表的上边距，毫米", "margin at the top"),
    margin("[下边距]", &C::bottomMarginTwips, "成果图表的下边距，毫米", "margin at the bottom"),
    slot("[01", 1, "成果图表的标题", "title"),
    slot("[02", 2, "工程编号的写法：开头的冒号印在标签后面", "project number: a colon in front goes behind its label"),
    slot("[03", 3, "工程名称的标签", "label of the project name"),
    unprintedSlot("[04", 4),
    slot("[05", 5, "实验室名称", "name of the laboratory"),
    slot("[06", 6, "第一个签名", "first signature"),
    slot("[07", 7, "第二个签名", "second signature"),
    slot("[08", 8, "日期", "date"),
    slot("[09", 9, "土样编号的标签", "label of the sample number"),
    slot("[10", 10, "第三个签名", "third signature"),
    slot("[11", 11, "钻孔的标签", "label of the borehole"),
    slot("[12", 12, "深度的标签", "label of the depth"),
    unprintedSlot("[13", 13),
    unprintedSlot("[14", 14),
    unprintedSlot("[15", 15),
    unprintedSlot("[16", 16),
    unprintedSlot("[17", 17),
    unprintedSlot("[18", 18),
    unprintedSlot("[19", 19),
    unprintedSlot("[20", 20),
};

struct DefaultText {
  const Settings& usual;

  std::string operator()(const FlagValue& /*value*/) const { return {}; }
  std::string operator()(const NumberValue& value) const { return std::to_string(usual.habits.*value.number); }
  std::string operator()(const BracketedValue<H>& value) const { return usual.habits.*value.text; }
  std::string operator()(const BracketedValue<E>& value) const { return usual.english.*value.text; }
  std::string operator()(const MarginValue& value) const {
    return FormatNumber(usual.chart.*value.twips / kTwipsPerMillimetre, NumberFormat::Tenths);
  }
  std::string operator()(const SlotValue& value) const { return usual.chart.slot.at(value.slot); }
};

constexpr std::string_view kWithHabits = "启动时、每次打印前和无侧限试验打开时";

constexpr std::array<const TextFile*, 4> kTextFiles{&kHabitsFile, &kListLabelsFile, &kEnglishLabelsFile, &kChartFile};

}  // namespace

constinit const TextFile kHabitsFile{
    .name = "zmqvb.ini",
    .subject = "报告习惯",
    .isRead = kWithHabits,
    .keys = kHabitKeys,
};
constinit const TextFile kListLabelsFile{
    .name = "sz.ini",
    .subject = "土样和钻孔的叫法",
    .isRead = kWithHabits,
    .keys = kListLabelKeys,
    .deciding = Deciding::First,
};
constinit const TextFile kEnglishLabelsFile{
    .name = "esz.ini",
    .subject = "英文标签",
    .isRead = "试验打开时",
    .keys = kEnglishLabelKeys,
};
constinit const TextFile kChartFile{
    .name = "szshezhi.txt",
    .subject = "成果图表的文字和边距",
    .isRead = "每次打印前",
    .keys = kChartKeys,
    .commentMarks = ";'",
};

std::span<const TextFile* const> textFiles() { return kTextFiles; }

std::string meaningOf(const TextKey& key) {
  if (!key.meaning.empty()) return std::string(key.meaning);
  const std::string_view subject = key.key.substr(1, key.key.find(']') - 1);
  return fmt::format("英文报告里“{}”的写法", subject);
}

std::optional<NumberLimits> limitsOf(const TextKey& key) {
  if (const auto* const number = std::get_if<NumberValue>(&key.value)) return NumberLimits{number->least, number->most};
  if (std::holds_alternative<MarginValue>(key.value)) return NumberLimits{kLeastChartMarginMm, kLargestChartMarginMm};
  return std::nullopt;
}

std::string defaultOf(const TextKey& key, const LaboratoryHabits& habits) {
  Settings usual;
  usual.chart = defaultChartLayout(habits);
  return std::visit(DefaultText{usual}, key.value);
}

}  // namespace triaxlab
