#pragma once

#include <string_view>

#include "k0/record.h"
#include "store/summary/summary_record.h"
#include "triaxial/record.h"
#include "unconfined/record.h"

namespace triaxlab {

// What of a summary record belongs to each kind of test: `put` writes the results of a sample into it, `blank` takes
// them out. All else but its "NO." section and the sampling spot is the other kinds' or the sibling tools'.

void putTriaxial(SummaryRecord& summary, const TriaxialSampleRecord& record, std::string_view testDate);
/// The pairs of the test methods stay.
void blankTriaxial(SummaryRecord& summary);

void putUnconfined(SummaryRecord& summary, const UnconfinedSampleRecord& record, std::string_view testDate);
void blankUnconfined(SummaryRecord& summary);

void putK0(SummaryRecord& summary, const K0SampleRecord& record, std::string_view testDate);
void putTK0(SummaryRecord& summary, const TK0SampleRecord& record, std::string_view testDate);
void blankK0(SummaryRecord& summary);

}  // namespace triaxlab
