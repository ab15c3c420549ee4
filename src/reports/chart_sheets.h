#pragma once

#include "reports/layouts.h"

namespace triaxlab {

/// The result charts "三  轴  试  验  成  果  图  表": the curves of the samples in rows and columns, with or without
/// the stages below each.
extern const Layout kChartSheets;

}  // namespace triaxlab
