#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "k0/record.h"
#include "platform/recording_surface.h"
#include "support/drawings.h"

namespace triaxlab::testing {

/// Axial and lateral pressures of the first stages.
using Pressures = std::vector<std::pair<std::string_view, std::string_view>>;

inline K0SampleRecord koSample(std::string_view project, std::string_view sample, const Pressures& stages) {
  K0SampleRecord record;
  SetText(record.projectNo, project);
  SetText(record.sampleNo, sample);
  for (std::size_t i = 0; i < stages.size(); ++i) {
    SetText(record.axialPressure[i], stages[i].first);
    SetText(record.lateralPressure[i], stages[i].second);
  }
  return record;
}

/// Ko 0.4 through the origin.
inline K0SampleRecord straightSample(std::string_view sample) {
  return koSample("GC1", sample, {{"100.0", "40.0"}, {"200.0", "80.0"}, {"300.0", "120.0"}});
}

/// The Ko that a chart tells.
inline std::string koOf(const Drawing& drawing) {
  const std::vector<std::string> found = textsWith(drawing, "Ko = ");
  return found.size() == 1 ? found.front().substr(5) : "not once";
}

/// The black lines of a chart, by their width: the Ko line or the first of the T90 construction.
inline std::vector<int> blackLines(const Drawing& drawing) {
  std::vector<int> widths;
  for (const DrawnLine& line : all<DrawnLine>(drawing))
    if (line.stroke.colour == Colour::Black) widths.push_back(line.stroke.width);
  return widths;
}

}  // namespace triaxlab::testing
