#include "sessions/dialogs/list_kinds.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace triaxlab {
namespace {

constexpr SampleListKey kBySample = &SampleListRow::sampleNo;
constexpr SampleListKey kByBorehole = &SampleListRow::boreholeNo;
constexpr SampleListKey kByDepth = &SampleListRow::samplingDepth;

std::string sampleHeading(const LaboratoryHabits& habits) { return habits.sampleNoLabel; }
std::string boreholeHeading(const LaboratoryHabits& habits) {
  if (habits.trialPitNumber) return "探井号";
  return habits.boreholeLabel.empty() ? "钻孔编号" : habits.boreholeLabel;
}
std::string depthHeading(const LaboratoryHabits& /*habits*/) { return "取土深度"; }

using A = ListAction;
constexpr auto kUp = SortDirection::Ascending, kDown = SortDirection::Descending;

constexpr ListButton kDelete{"Command1", "删 除", A::Delete}, kSave{"Command2", "保 存", A::Save},
    kReturn{"Command3", "返 回", A::Return};

// ---- Form14: a triaxial list tells where a sample was taken, and can be put in that order.

constexpr std::array kTriaxialColumns{ListedText{kBySample, sampleHeading}, ListedText{kByBorehole, boreholeHeading},
                                      ListedText{kByDepth, depthHeading}};
constexpr std::array kTriaxialButtons{
    ListButton{"Command4", "土号升排序", A::Sort, kBySample, kUp},
    ListButton{"Command5", "土号降排序", A::Sort, kBySample, kDown},
    ListButton{"Command6", "钻号升排序", A::Sort, kByBorehole, kUp},
    ListButton{"Command7", "钻号降排序", A::Sort, kByBorehole, kDown},
    ListButton{"Command9", "取土深度排序", A::Sort, kByDepth, kUp},
    ListButton{"Command8", "人工排序", A::Move},
    kDelete,
    kSave,
    kReturn,
};
constexpr SampleListForm kForm14{"Form14", kTriaxialColumns, kTriaxialButtons};

// ---- Form13: the other kinds.

constexpr std::array kOtherColumns{ListedText{kBySample, sampleHeading}};
constexpr std::array kOtherButtons{
    ListButton{"Command4", "升序排序", A::Sort, kBySample, kUp},
    ListButton{"Command5", "降序排序", A::Sort, kBySample, kDown},
    ListButton{"Command6", "人工排序", A::Move},
    kDelete,
    kSave,
    kReturn,
};
constexpr SampleListForm kForm13{"Form13", kOtherColumns, kOtherButtons};

// Files and some titles have the letter O where the menus speak of K0 with the digit.
constexpr std::array kListKinds{
    ListKind{ProjectKind::Triaxial, "三轴试验数据文件列表", "三轴试验数据表WKSZ(X).TXT ", "打开三轴数据文件",
             "三轴土样列表", kForm14, triaxialSampleTexts},
    ListKind{ProjectKind::OldTriaxial, "三轴试验数据文件列表", "三轴试验数据表KSZ(X).TXT ", "打开三轴数据文件",
             "三轴土样列表", kForm14, triaxialSampleTexts},
    ListKind{ProjectKind::Unconfined, "无侧限试验数据文件列表", "无侧限试验数据表KWCX(X).TXT ", "打开无侧限数据文件",
             "无侧限土样列表", kForm13, locationTexts},
    ListKind{ProjectKind::K0, "K0试验数据文件列表", "K0试验数据表KO(X).TXT ", "打开KO数据文件", "K0土样列表", kForm13,
             locationTexts},
    ListKind{ProjectKind::TK0, "TK0试验数据文件列表", "TK0试验数据表TKO(X).TXT ", "打开TKO数据文件", "TK0土样列表",
             kForm13, locationTexts},
};

}  // namespace

const ListKind& listKindOf(ProjectKind kind) {
  const auto* const row = std::ranges::find(kListKinds, kind, &ListKind::kind);
  if (row == kListKinds.end()) throw std::out_of_range("no such kind of project file");
  return *row;
}

}  // namespace triaxlab
