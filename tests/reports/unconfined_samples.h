#pragma once

#include <string_view>

#include "reports/page_fixture.h"
#include "unconfined/record.h"

namespace triaxlab::testing {

/// Pages of the unconfined test.
struct UnconfinedPageTest : PageTest {
  LaboratoryHabits& habits = workspace.settings.habits;

  /// A sample whose undisturbed specimen has two readings: 8 cm high, 30 cm² wide, under a ring of 1.25 N/0.01mm.
  ///   1.25 x 10 x 80 x 0.99 / 30 = 33.0 kPa, 1.25 x 10 x 100 x 0.98 / 30 = 40.83 kPa.
  UnconfinedSampleRecord& sample(std::size_t row, std::string_view sampleNo) {
    UnconfinedSampleRecord& record = workspace.UnconfinedSampleTable[row];
    SetText(record.projectNo, "P1");
    SetText(record.sampleNo, sampleNo);
    SetText(record.sampleHeight[0], "8.00");
    SetText(record.sampleArea[0], "30.00");
    record.ringCoefficient[0] = 1250;
    SetText(record.undisturbedStrain[0], "1.0");
    SetText(record.undisturbedReading[0], "80.0");
    SetText(record.undisturbedStrain[1], "2.0");
    SetText(record.undisturbedReading[1], "100.0");
    return record;
  }
};

}  // namespace triaxlab::testing
