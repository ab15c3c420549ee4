#pragma once

#include <array>
#include <string>
#include <string_view>
#include <variant>

#include "common/settings.h"

namespace triaxlab {

// The keys of the laboratory's text settings (see ini_settings.h), one table a file. `effect` is English, for the page
// about the files; a key without one has its meaning in its name.

/// On by its presence alone; what follows it does not matter.
struct FlagValue {
  bool LaboratoryHabits::*flag;
};
/// The number directly behind the key.
struct NumberValue {
  int LaboratoryHabits::*number;
  int least, most;
};
/// The text between the next brackets.
struct BracketedValue {
  std::string LaboratoryHabits::*text;
};
struct HabitKey {
  std::string_view key;
  std::variant<FlagValue, NumberValue, BracketedValue> value;
  std::string_view effect;
};

namespace detail {
using H = LaboratoryHabits;
using E = EnglishLabels;
}  // namespace detail

/// zmqvb.ini
inline constexpr std::array kHabitKeys{
    HabitKey{"[工程编号大于20字节]", FlagValue{&detail::H::wideProjectNo}, "wider column for the project number"},
    HabitKey{"[无侧限打印高度变化值]", FlagValue{&detail::H::unconfinedHeightChange},
             "unconfined pages have the height change values"},
    HabitKey{"[三轴每个土样都打印试验方法和取土深度]", FlagValue{&detail::H::methodAndDepthOnEverySample},
             "each sample on a triaxial page has method and depth"},
    HabitKey{"[三轴应力差人工干预后自动调整原始数据]", FlagValue{&detail::H::autoAdjustRawData},
             "raw data follow a stress difference that was corrected by hand"},
    HabitKey{"[三轴打印探井号]", FlagValue{&detail::H::trialPitNumber}, "lists and pages show a trial pit"},
    HabitKey{"[三轴无侧限显示50%峰值应变值]", FlagValue{&detail::H::strainAtHalfPeak},
             "unconfined curves show the strain at half the peak"},
    HabitKey{"[三轴打印钻孔编号]", FlagValue{&detail::H::printBoreholeNumber}, "triaxial pages have the borehole"},
    HabitKey{"[三轴成果输出不打印试验方法]", FlagValue{&detail::H::omitTestMethod}, "result pages have no test method"},
    HabitKey{"[不打印页码/日期/数据表]", FlagValue{&detail::H::omitPageDateTable},
             "pages have no page number, date and data table"},
    HabitKey{"[三轴不打印试验日期]", FlagValue{&detail::H::omitTriaxialTestDate}, "triaxial pages have no test date"},
    HabitKey{"[无侧限不打印钢环系数]", FlagValue{&detail::H::omitRingCoefficient},
             "unconfined pages have no ring coefficient"},
    HabitKey{"[K0不打印试验日期]", FlagValue{&detail::H::omitK0TestDate}, "K0 pages have no test date"},
    HabitKey{"[TK0不打印试验日期]", FlagValue{&detail::H::omitTK0TestDate}, "TK0 pages have no test date"},
    HabitKey{"[无侧限不打印试验日期]", FlagValue{&detail::H::omitUnconfinedTestDate},
             "unconfined pages have no test date"},
    HabitKey{"[三轴曲线输出Fliove格式]", FlagValue{&detail::H::compactEnvelope},
             "triaxial curves in the layout of szshezhi.txt"},
    HabitKey{"[按工程编号打开win三轴]", FlagValue{&detail::H::winTriaxialByProject},
             "databases of the Windows edition are selected by project"},
    HabitKey{"[三轴试验取50点]", FlagValue{&detail::H::take50Points}, "50 points of a triaxial test are taken"},
    HabitKey{"[三轴含受控文件号]", FlagValue{&detail::H::controlledDocNo},
             "the number of the controlled document is shown and printed"},
    HabitKey{"[三轴表格编号]", BracketedValue{&detail::H::formNumber}, "number of the form; read, not used"},
    HabitKey{"[无侧限最大应变]", NumberValue{&detail::H::unconfinedLargestStrain, 10, 50},
             "largest strain of the unconfined curves, %"},
    HabitKey{"[第页]", BracketedValue{&detail::H::pageLabel}, "pattern of the page number of unconfined pages"},
    HabitKey{"[三轴C]", NumberValue{&detail::H::cohesionDecimals, 0, 4}, "decimals of c"},
    HabitKey{"[无侧限灵敏度]", NumberValue{&detail::H::sensitivityDecimals, 0, 4}, "decimals of the sensitivity St"},
    HabitKey{"[三轴试验方法后加]", BracketedValue{&detail::H::methodSuffix}, "text behind the test method"},
    HabitKey{"[工程编号]", BracketedValue{&detail::H::projectNoLabel}, "label of the project number"},
};

template <class Owner>
struct LabelKey {
  std::string_view key;
  std::string Owner::*label;
  std::string_view effect = {};
};

/// sz.ini
inline constexpr std::array kListLabelKeys{
    LabelKey<detail::H>{"[土样编号]=", &detail::H::sampleNoLabel, "label of the sample number"},
    LabelKey<detail::H>{"[钻孔号]=", &detail::H::boreholeLabel, "label of the borehole; empty: the usual ones"},
};

/// esz.ini
inline constexpr std::array kEnglishLabelKeys{
    LabelKey<detail::E>{"[三轴试验成果曲线]=", &detail::E::resultCurve},
    LabelKey<detail::E>{"[一个试样多级不固结不排水试验]=", &detail::E::multiStageUU},
    LabelKey<detail::E>{"[固结不排水试验]=", &detail::E::testCU},
    LabelKey<detail::E>{"[不固结不排水试验]=", &detail::E::testUU},
    LabelKey<detail::E>{"[工程编号]=", &detail::E::projectNo},
    LabelKey<detail::E>{"[工程名称]=", &detail::E::projectName},
    LabelKey<detail::E>{"[土样编号]=", &detail::E::sampleNo},
    LabelKey<detail::E>{"[钻孔编号]=", &detail::E::boreholeNo},
    LabelKey<detail::E>{"[试验日期]=", &detail::E::testDate},
    LabelKey<detail::E>{"[取样深度]=", &detail::E::samplingDepth},
    LabelKey<detail::E>{"[取样地点]=", &detail::E::samplingSpot},
    LabelKey<detail::E>{"[主应力差与轴向应变曲线]=", &detail::E::stressStrainCurve},
    LabelKey<detail::E>{"[应力差强度包线]=", &detail::E::stressDifferenceEnvelope},
    LabelKey<detail::E>{"[试验]=", &detail::E::testedBy},
    LabelKey<detail::E>{"[校核]=", &detail::E::checkedBy},
    LabelKey<detail::E>{"[报告日期]=", &detail::E::reportDate},
    LabelKey<detail::E>{"[仪器编号]=", &detail::E::apparatusNo},
};

struct MarginKey {
  std::string_view key;
  double ChartLayout::*twips;
  std::string_view effect;
};

/// szshezhi.txt, whose other lines fill numbered slots.
inline constexpr std::array kMarginKeys{
    MarginKey{"[上边距]", &ChartLayout::topMarginTwips, "margin at the top"},
    MarginKey{"[下边距]", &ChartLayout::bottomMarginTwips, "margin at the bottom"},
};
inline constexpr int kLeastChartMarginMm = 5, kLargestChartMarginMm = 100;

}  // namespace triaxlab
