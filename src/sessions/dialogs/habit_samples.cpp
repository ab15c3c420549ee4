#include "sessions/dialogs/habit_samples.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "common/gbk.h"
#include "common/text_number.h"
#include "reports/chart_labels.h"
#include "reports/page_labels.h"
#include "store/summary/trial_pit.h"
#include "store/workspace.h"
#include "triaxial/record.h"

namespace triaxlab {
namespace {

using H = LaboratoryHabits;
using E = EnglishLabels;
using Sample = std::string (*)(const Settings&);

constexpr std::string_view kProject = "2024-015", kSample = "3-2", kDepth = "3.20", kDate = "2024/05/06";

std::string line(const std::string& label, std::string_view value) { return label + std::string(value); }
std::string unless(bool isOmitted, const std::string& text) { return isOmitted ? "" : text; }

TriaxialSampleRecord consolidatedTest() {
  TriaxialSampleRecord record;
  record.testMethod = kCU;
  return record;
}

std::string headOfPage(const Settings& settings) {
  const PageLabels labels = pageLabels(settings);
  const std::string project = line(labels.projectNo, kProject), date = line(labels.testDate, kDate);
  return settings.habits.wideProjectNo
             ? fmt::format("{}（标段二补充勘察）    第  1  页\n                    {}", project, date)
             : fmt::format("{}    {}    第  1  页", project, date);
}

std::string pageAndDates(const Settings& settings) {
  const PageLabels labels = pageLabels(settings);
  return unless(settings.habits.omitPageDateTable,
                fmt::format("第  1  页    {}{}    {}2024 年 5 月 6 日", labels.testDate, kDate, labels.reportDate));
}

std::string blockOfSecondSample(const Settings& settings) {
  const PageLabels labels = pageLabels(settings);
  std::string lines = line(labels.sampleNo, kSample) + "\n" + labels.soilName + "粉质黏土";
  if (settings.habits.methodAndDepthOnEverySample)
    lines += "\n" + line(labels.samplingDepth, kDepth) + "\n" + labels.testMethod + "CU";
  return lines;
}

std::string borehole(const Settings& settings) {
  const PageLabels labels = pageLabels(settings);
  FixedText<15> number;
  SetText(number, "TJ-0012ZK3");
  const std::string& label = settings.habits.trialPitNumber        ? labels.trialPit
                             : settings.habits.printBoreholeNumber ? labels.boreholeNumber
                                                                   : labels.borehole;
  return line(label, shownBorehole(number, settings.habits));
}

std::string titleAndMethod(const Settings& settings) {
  const std::string title = pageLabels(settings).title;
  return settings.habits.omitTestMethod ? title : title + "\n" + pageMethod(consolidatedTest(), settings);
}

std::string testDate(const Settings& settings) { return line(otherTestLabels(settings).testDate, kDate); }

std::string controlNumber(const Settings& settings) {
  const std::string& number = settings.habits.formNumber;
  return unless(!settings.habits.controlledDocNo, number.empty() ? "（受控文件号一栏里的文字）" : number);
}

/// What a setting acts on is told by the setting itself: keys of several files may have one name.
template <class Member>
struct SampleRow {
  Member member;
  Sample sample;
};
// Some compilers don't derive it from an aggregate.
template <class Member>
SampleRow(Member, Sample) -> SampleRow<Member>;

constexpr std::array kFlagSamples{
    SampleRow{&H::wideProjectNo, Sample{headOfPage}},
    SampleRow{&H::unconfinedHeightChange, Sample{[](const Settings& settings) -> std::string {
                return settings.habits.unconfinedHeightChange ? "轴向应变 │ 轴向变形 │ 剪切面积 │ 量表读数 │ 轴向应力"
                                                              : "轴向应变 │ 剪切面积 │ 量表读数 │ 轴向应力";
              }}},
    SampleRow{&H::methodAndDepthOnEverySample, Sample{blockOfSecondSample}},
    SampleRow{&H::trialPitNumber, Sample{borehole}},
    SampleRow{&H::strainAtHalfPeak, Sample{[](const Settings& settings) {
                return unless(!settings.habits.strainAtHalfPeak, "原状:52.40/1.83");
              }}},
    SampleRow{&H::printBoreholeNumber, Sample{borehole}},
    SampleRow{&H::omitTestMethod, Sample{titleAndMethod}},
    SampleRow{&H::omitPageDateTable, Sample{pageAndDates}},
    SampleRow{&H::omitTriaxialTestDate,
              Sample{[](const Settings& s) { return unless(s.habits.omitTriaxialTestDate, testDate(s)); }}},
    SampleRow{&H::omitRingCoefficient, Sample{[](const Settings& s) {
                return unless(s.habits.omitRingCoefficient, "钢环系数：2.458N /0.01mm");
              }}},
    SampleRow{&H::omitK0TestDate,
              Sample{[](const Settings& s) { return unless(s.habits.omitK0TestDate, testDate(s)); }}},
    SampleRow{&H::omitTK0TestDate,
              Sample{[](const Settings& s) { return unless(s.habits.omitTK0TestDate, testDate(s)); }}},
    SampleRow{&H::omitUnconfinedTestDate,
              Sample{[](const Settings& s) { return unless(s.habits.omitUnconfinedTestDate, testDate(s)); }}},
    SampleRow{&H::compactEnvelope, Sample{[](const Settings& s) -> std::string {
                return s.habits.compactEnvelope ? "强度包线" : "强度包线 │ 数据表";
              }}},
    SampleRow{&H::controlledDocNo, Sample{controlNumber}},
};

constexpr std::array kNumberSamples{
    SampleRow{&H::unconfinedLargestStrain, Sample{[](const Settings& settings) {
                return fmt::format("0 ── 轴向应变 (%) ── {}", settings.habits.unconfinedLargestStrain);
              }}},
    SampleRow{&H::cohesionDecimals, Sample{[](const Settings& settings) {
                return fmt::format("C = {} kPa", FormatNumber(25.36847, settings.habits.cohesionFormat()));
              }}},
    SampleRow{&H::sensitivityDecimals, Sample{[](const Settings& settings) {
                return fmt::format("St = {}", FormatNumber(3.14159, settings.habits.sensitivityFormat()));
              }}},
};

constexpr std::array kTextSamples{
    SampleRow{&H::formNumber, Sample{controlNumber}},
    SampleRow{&H::pageLabel, Sample{[](const Settings& settings) { return settings.habits.pageLabel; }}},
    SampleRow{&H::methodSuffix, Sample{titleAndMethod}},
    SampleRow{&H::projectNoLabel,
              Sample{[](const Settings& settings) { return line(pageLabels(settings).projectNo, kProject); }}},
    SampleRow{&H::sampleNoLabel,
              Sample{[](const Settings& settings) { return line(pageLabels(settings).sampleNo, kSample); }}},
    SampleRow{&H::boreholeLabel, Sample{borehole}},
};

struct EnglishSample {
  std::string E::*text;
  std::string PageLabels::*label;
  std::string_view value;
};
constexpr std::array kEnglishSamples{
    EnglishSample{&E::projectNo, &PageLabels::projectNo, kProject},
    EnglishSample{&E::projectName, &PageLabels::projectName, "西区三号楼"},
    EnglishSample{&E::sampleNo, &PageLabels::sampleNo, kSample},
    EnglishSample{&E::boreholeNo, &PageLabels::borehole, "ZK3"},
    EnglishSample{&E::testDate, &PageLabels::testDate, kDate},
    EnglishSample{&E::samplingDepth, &PageLabels::samplingDepth, kDepth},
    EnglishSample{&E::samplingSpot, &PageLabels::samplingSpot, "西区"},
    EnglishSample{&E::testedBy, &PageLabels::testedBy, "Wang"},
    EnglishSample{&E::checkedBy, &PageLabels::checkedBy, "Li"},
    EnglishSample{&E::reportDate, &PageLabels::reportDate, "2024 / 5 / 6"},
};

constexpr std::array kSlotSamples{
    SampleRow{std::size_t{1}, Sample{[](const Settings& s) { return chartTitle(s, consolidatedTest()); }}},
    SampleRow{std::size_t{2}, Sample{[](const Settings& s) { return line(chartLabels(s).projectNo, kProject); }}},
    SampleRow{std::size_t{3}, Sample{[](const Settings& s) { return chartLabels(s).projectName + "西区三号楼"; }}},
    SampleRow{std::size_t{5}, Sample{[](const Settings& s) { return chartLabels(s).laboratory; }}},
    SampleRow{std::size_t{6}, Sample{[](const Settings& s) { return chartLabels(s).signatures[0]; }}},
    SampleRow{std::size_t{7}, Sample{[](const Settings& s) { return chartLabels(s).signatures[1]; }}},
    SampleRow{std::size_t{8}, Sample{[](const Settings& s) { return chartLabels(s).date + "2024年5月6日"; }}},
    SampleRow{std::size_t{9}, Sample{[](const Settings& s) { return line(chartLabels(s).sampleNo, kSample); }}},
    SampleRow{std::size_t{10}, Sample{[](const Settings& s) { return chartLabels(s).signatures[2]; }}},
    SampleRow{std::size_t{11}, Sample{[](const Settings& s) {
                const std::string label = chartLabels(s).borehole;
                return label.empty() ? label : label + "ZK3";
              }}},
    SampleRow{std::size_t{12}, Sample{[](const Settings& s) { return line(chartLabels(s).depth, kDepth); }}},
};

struct FindSample {
  const Settings& settings;

  /// Nothing when the table has no such row.
  template <class Rows, class Member>
  std::optional<std::string> in(const Rows& rows, Member member) const {
    const auto row = std::ranges::find_if(rows, [&](const auto& r) { return r.member == member; });
    if (row == rows.end()) return std::nullopt;
    return row->sample(settings);
  }

  std::optional<std::string> operator()(const FlagValue& key) const { return in(kFlagSamples, key.flag); }
  std::optional<std::string> operator()(const NumberValue& key) const { return in(kNumberSamples, key.number); }
  std::optional<std::string> operator()(const BracketedValue<H>& key) const { return in(kTextSamples, key.text); }
  std::optional<std::string> operator()(const BracketedValue<E>& key) const {
    Settings english = settings;
    english.toggles.english = true;
    const auto row = std::ranges::find(kEnglishSamples, key.text, &EnglishSample::text);
    if (row == kEnglishSamples.end()) return english.english.*key.text;
    return line(pageLabels(english).*row->label, row->value);
  }
  std::optional<std::string> operator()(const MarginValue& key) const {
    const double millimetres = settings.chart.*key.twips / kTwipsPerMillimetre;
    return fmt::format("纸边 ├─ {} 毫米 ─┤ 图框", FormatNumber(millimetres, NumberFormat::Tenths));
  }
  std::optional<std::string> operator()(const SlotValue& key) const { return in(kSlotSamples, key.slot); }
};

}  // namespace

std::string sampleOf(const TextKey& key, const Settings& settings) {
  const std::optional<std::string> sample = std::visit(FindSample{settings}, key.value);
  if (!sample) return {};
  return sample->empty() ? "（不印）" : *sample;
}

}  // namespace triaxlab
