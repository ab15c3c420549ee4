#include "shell/range_dialog.h"

#include <algorithm>

#include "common/conversions.h"
#include "common/text_number.h"
#include "store/workspace.h"

namespace triaxlab {
namespace {

/// A typed number, held inside the sequence numbers that a file can have.
int sequenceNumber(std::string_view text) {
  return toInt16(std::clamp<double>(ParseNumber(text), 1, kLargestSampleCount)).value_or(1);
}

}  // namespace

RangeDialog::RangeDialog(int sampleCount) : first("1"), last(std::to_string(sampleCount)) {}

SampleRange RangeDialog::range() const { return limitedRange({sequenceNumber(first), sequenceNumber(last)}); }

}  // namespace triaxlab
