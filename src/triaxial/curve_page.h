#pragma once

#include <array>
#include <cstdint>

#include "triaxial/envelope.h"
#include "triaxial/failure.h"
#include "triaxial/record.h"
#include "triaxial/stress_path.h"

namespace triaxlab {

/// The six plots of a triaxial sample; the values are those of `currentCurvePage`.
enum class CurvePage : std::uint8_t {
  StressStrain = 1,              // 主应力差与轴向应变曲线
  StressRatioEnvelope = 2,       // 应力比强度包线
  StressDifferenceEnvelope = 3,  // 应力差强度包线
  StressPath = 4,                // 应力路径曲线
  PorePressure = 5,              // 孔隙压力与轴向应变曲线
  StressRatio = 6,               // 有效应力比与轴向应变曲线
};

inline bool isEnvelopePage(CurvePage page) {
  return page == CurvePage::StressRatioEnvelope || page == CurvePage::StressDifferenceEnvelope;
}

/// All six, in their order.
inline constexpr std::array kCurvePages{
    CurvePage::StressStrain, CurvePage::StressRatioEnvelope, CurvePage::StressDifferenceEnvelope,
    CurvePage::StressPath,   CurvePage::PorePressure,        CurvePage::StressRatio};

/// Whether a method has a page: most show effective stresses, which are those of CU alone.
inline bool hasPage(const TriaxialSampleRecord& record, CurvePage page) {
  return record.testMethod == kCU || page == CurvePage::StressStrain || page == CurvePage::StressDifferenceEnvelope;
}

/// What showing a page works out before anything is drawn.
struct PageResults {
  FailureRows failureRows;
  Envelopes envelopes;  // pages 2 and 3
  PathLine pathLine;    // page 4
};

/// The page that a sample really shows when `wanted` is asked for: UU has no pages above 3 (page 1 takes their place),
/// and only CU has the envelope by stress ratio (page 3 takes its place).
CurvePage pageOf(const TriaxialSampleRecord& record, CurvePage wanted);

/// How a page looks for the failure rows: the envelope pages each in their own way, all others as the menu entry that
/// is `checked` says. Only CU has the ratio of effective stresses.
FailureMode failureModeOf(const TriaxialSampleRecord& record, CurvePage page, FailureMode checked);

/// Runs the failure mode and the page's fits, storing their results in the record as a display of the page does. Every
/// page runs the mode, so that pages, tables and paper agree whatever was looked at before.
PageResults computePage(TriaxialSampleRecord& record, CurvePage page, FailureMode checked, NumberFormat cohesionFormat);

}  // namespace triaxlab
