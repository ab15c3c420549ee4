#pragma once

#include "reports/layouts.h"

namespace triaxlab {

/// The pages "无侧限抗压强度试验(应变式)": the readings of both specimens of a sample and what they come to, one sample
/// to a page.
extern const Layout kUnconfinedTable;

}  // namespace triaxlab
