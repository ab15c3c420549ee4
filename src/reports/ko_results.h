#pragma once

#include "reports/layouts.h"

namespace triaxlab {

// The result pages "Ko 试 验 成 果 表": the Ko line of a sample with the table of its load stages, two samples to a
// page.

extern const Layout kK0Results;
extern const Layout kTK0Results;

}  // namespace triaxlab
