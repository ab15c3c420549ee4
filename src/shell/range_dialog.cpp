#include "shell/range_dialog.h"

#include "shell/sequence_number.h"

namespace triaxlab {

RangeDialog::RangeDialog(int sampleCount) : first("1"), last(std::to_string(sampleCount)) {}

SampleRange RangeDialog::range() const { return limitedRange({sequenceNumber(first), sequenceNumber(last)}); }

}  // namespace triaxlab
