#pragma once

#include <algorithm>
#include <string_view>

#include "common/conversions.h"
#include "common/text_number.h"
#include "store/workspace.h"

namespace triaxlab {

/// A typed sequence number of a sample, 0 to kLargestSampleCount; 0 for a text that begins with no number.
inline int sequenceNumber(std::string_view typed) {
  return toInt16(std::clamp<double>(ParseNumber(typed), 0, kLargestSampleCount)).value_or(0);
}

}  // namespace triaxlab
