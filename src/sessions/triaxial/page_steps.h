#pragma once

#include <cstdint>

#include "triaxial/curve_page.h"
#include "triaxial/record.h"

namespace triaxlab {

/// The curve page before and behind a page. CU goes round all six but the envelope page whose
/// menu entry isn't the `checked` one, every other method goes between pages 1 and 3.
CurvePage pageBefore(CurvePage page, const TriaxialSampleRecord& record, FailureMode checked);
CurvePage pageBehind(CurvePage page, const TriaxialSampleRecord& record, FailureMode checked);

/// The six pages of the table under the canvas; the values are those of `currentTablePage`.
enum class TablePage : std::uint8_t {
  Results = 1,         // failure values and specimen measures
  StressCircle = 2,    // (σ1-σ3)/2, (σ1+σ3)/2
  Stresses = 3,        // σ1, σ1-σ3
  PorePressure = 4,    // u, σ1′/σ3′
  EffectivePath = 5,   // (σ1′-σ3′)/2, (σ1′+σ3′)/2
  EffectiveStress = 6  // σ3′, σ1′
};

/// The table page that a curve page opens with.
TablePage tablePageOf(CurvePage page);
/// The table page that a sample really shows: what lies above 3 is of effective stresses, which only CU has.
TablePage tablePageFor(const TriaxialSampleRecord& record, TablePage wanted);
/// The table page before and behind a page, round six pages for CU and three for the others.
TablePage tablePageBefore(TablePage page, const TriaxialSampleRecord& record);
TablePage tablePageBehind(TablePage page, const TriaxialSampleRecord& record);

}  // namespace triaxlab
