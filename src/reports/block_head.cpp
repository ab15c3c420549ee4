#include "reports/block_head.h"

#include "common/gbk.h"
#include "store/summary/trial_pit.h"
#include "triaxial/method_names.h"

namespace triaxlab {
namespace {

/// Empty for a sample without a borehole.
std::string boreholeLine(const LaboratoryHabits& habits, const PageLabels& labels, const SampleLocation& location) {
  const std::string_view number = shownBorehole(location.boreholeNo, habits);
  if (number.empty()) return {};
  const std::string& label = habits.trialPitNumber        ? labels.trialPit
                             : habits.printBoreholeNumber ? labels.boreholeNumber
                                                          : labels.borehole;
  return label + gbkToUtf8(number);
}

}  // namespace

std::vector<std::string> blockHead(const Workspace& workspace, const PageLabels& labels, std::size_t row,
                                   BlockPlace place) {
  const TriaxialSampleRecord& record = workspace.TriaxialSampleTable.at(row);
  const SampleLocation& location = workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable.at(row);
  const LaboratoryHabits& habits = workspace.settings.habits;
  const Toggles& toggles = workspace.settings.toggles;
  const bool everywhere = habits.methodAndDepthOnEverySample;
  const bool whole = place.firstOfPage || everywhere;
  const bool withMethod = everywhere || (!habits.omitTestMethod && (place.firstOfPage || !place.pageHasSameMethod));

  std::vector<std::string> lines{labels.sampleNo + gbkToUtf8(record.sampleNo.trimmed())};
  if (std::string line = boreholeLine(habits, labels, location); !line.empty()) lines.push_back(std::move(line));
  lines.push_back(labels.soilName + gbkToUtf8(record.soilName.trimmed()));
  if (toggles.printDensity) lines.push_back(labels.density + gbkToUtf8(record.density.trimmed()));
  if (toggles.printSamplingSpot) lines.push_back(labels.samplingSpot + gbkToUtf8(location.samplingSpot.trimmed()));
  if (whole) lines.push_back(labels.samplingDepth + gbkToUtf8(location.samplingDepth.trimmed()));
  if (const std::string method = briefTestName(record); !method.empty() && withMethod)
    lines.push_back(labels.testMethod + method);
  return lines;
}

}  // namespace triaxlab
