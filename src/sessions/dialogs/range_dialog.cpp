#include "sessions/dialogs/range_dialog.h"

#include "sessions/dialogs/sequence_number.h"

namespace triaxlab {

RangeDialog::RangeDialog(int sampleCount) : first("1"), last(std::to_string(sampleCount)) {}

SampleRange RangeDialog::range() const { return limitedRange({sequenceNumber(first), sequenceNumber(last)}); }

}  // namespace triaxlab
