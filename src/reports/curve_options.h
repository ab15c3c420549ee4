#pragma once

#include <vector>

#include "common/settings.h"
#include "triaxial/curve_page.h"
#include "triaxial/failure.h"

namespace triaxlab {

/// What is chosen of the curves of triaxial samples.
struct CurveOptions {
  std::vector<CurvePage> pages;                       // in any order; drawn in that of the dialog, each once
  bool totalCircles = true;                           // 总应力圆
  bool effectiveCircles = true;                       // 有效应力圆
  FailureMode checkedMode = FailureMode::PeakStress;  // as the menu of the curve window has it
};

/// The circles of the stored choices, and the curves that a dialog ticks at first: 主应力差与轴向应变曲线 and
/// 应力差强度包线.
CurveOptions defaultCurveOptions(const Settings& settings);

}  // namespace triaxlab
