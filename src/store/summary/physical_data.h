#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "store/workspace.h"

namespace triaxlab {

// The physical index values of a sample (物理指标), from the file that the tool for physical tests keeps of a project.
// This system never writes it.

struct PhysicalValue {
  std::string_view label;  // UTF-8; the blanks in front set the labels of a column right-justified
  std::string text;        // GBK, trimmed, as the tool wrote it: a text that is no number is shown as well
  bool operator==(const PhysicalValue&) const = default;
};
/// In the order in which they are shown: depth, water content, density, specific gravity, void ratio, the two limits,
/// the two indices, remark.
using PhysicalValues = std::array<PhysicalValue, 10>;

/// What ZMSJ\<projectNo>.dat knows of the sample (both GBK, blanks around them don't count); of several records of one
/// number the first counts. The values are a help beside the curve and no result of this system, so whatever keeps them
/// away (no file, a file that can't be read or ends early, no such sample) leaves the texts empty and is no error.
PhysicalValues physicalValues(const Workspace& workspace, std::string_view projectNo, std::string_view sampleNo);

}  // namespace triaxlab
