#include "reports/chart_labels.h"

#include "reports/page_labels.h"
#include "store/settings/chart_layout.h"
#include "triaxial/method_names.h"

namespace triaxlab {
namespace {

/// Slots of szshezhi.txt.
enum Slot : std::size_t {
  kTitle = 1,
  kProjectNo = 2,
  kProjectName = 3,
  kLaboratory = 5,
  kFirstSignature = 6,
  kSecondSignature = 7,
  kThirdSignature = 10,
  kDate = 8,
  kSampleNo = 9,
  kBorehole = 11,
  kDepth = 12,
};

/// A colon in front of a label stands behind it on paper.
std::string withColonBehind(const std::string& label) { return label.starts_with(':') ? label.substr(1) + ":" : label; }

/// What the laboratory has put into a slot; empty where it has left the usual text.
std::string ownText(const Settings& settings, Slot slot) {
  const std::string& text = settings.chart.slot.at(slot);
  return text == defaultChartLayout(settings.habits).slot.at(slot) ? std::string() : text;
}

std::string either(const std::string& own, const std::string& usual) { return own.empty() ? usual : own; }

}  // namespace

ChartLabels chartLabels(const Settings& settings) {
  const ChartLayout usual = defaultChartLayout(settings.habits);
  const PageLabels page = pageLabels(settings);
  const auto own = [&](Slot slot) { return ownText(settings, slot); };
  const auto ownOrUsual = [&](Slot slot) { return either(own(slot), usual.slot.at(slot)); };
  const std::string projectNo = settings.toggles.english ? page.projectNo : usual.slot.at(kProjectNo);
  return {.projectNo = withColonBehind(either(own(kProjectNo), projectNo)),
          .projectName = either(own(kProjectName), page.projectName),
          .laboratory = own(kLaboratory),
          .signatures = {ownOrUsual(kFirstSignature), ownOrUsual(kSecondSignature), own(kThirdSignature)},
          .date = ownOrUsual(kDate),
          .sampleNo = either(own(kSampleNo), page.sampleNo),
          .borehole = own(kBorehole),
          .depth = own(kDepth)};
}

std::string chartTitle(const Settings& settings) {
  return either(ownText(settings, kTitle), defaultChartLayout(settings.habits).slot.at(kTitle));
}

std::string chartTitle(const Settings& settings, const TriaxialSampleRecord& record) {
  constexpr std::string_view kTest = "三  轴  试  验";
  std::string title = chartTitle(settings);
  const std::string_view method = methodNames(record).abbreviation;
  if (ownText(settings, kTitle).empty() && !method.empty()) title.insert(kTest.size(), "(" + std::string(method) + ")");
  return title;
}

}  // namespace triaxlab
