#pragma once

#include "reports/layouts.h"

namespace triaxlab {

/// The pages "Ko 试 验 曲 线" of the TK0 test: deformation and pressure of the load stages over the root of time, two
/// stages of a sample to a page.
extern const Layout kStageCurves;

}  // namespace triaxlab
