#pragma once

#include <string_view>

#include "common/straight_line.h"
#include "k0/record.h"

namespace triaxlab {

// The line of lateral over axial pressure, both in kPa: its slope is Ko, the coefficient of earth pressure at rest.

/// Fits the line through the stages that have both pressures: least squares in double precision. Stores koValue and
/// koIntercept, or blanks them when fewer than two stages can be used. A line that was set by hand stays.
void fitKoLine(K0SampleRecord& record);
/// The same, and the record takes the depth that the summary file has for the sample.
void fitKoLine(K0SampleRecord& record, std::string_view samplingDepth);

/// The line as the record keeps it.
StraightLine koLineOf(const K0SampleRecord& record);
/// Keeps a line that a person has set; it is no longer fitted.
void storeAdjustedKoLine(K0SampleRecord& record, const StraightLine& line);

}  // namespace triaxlab
