#pragma once

#include "reports/layouts.h"

namespace triaxlab {

/// The pages "无 侧 限 试 验 曲 线": stress over strain of both specimens with the results and the specimens'
/// constants, two samples to a page.
extern const Layout kUnconfinedCurves;

}  // namespace triaxlab
