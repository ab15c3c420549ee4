#pragma once

#include "reports/layouts.h"

namespace triaxlab {

/// The result pages "三  轴  试  验  成  果  曲  线": curve blocks of the samples, two to a page. A report without a
/// page when the samples have none of the job's curves.
extern const Layout kThreeInOne;

}  // namespace triaxlab
