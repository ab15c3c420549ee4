#pragma once

#include "reports/layouts.h"

namespace triaxlab {

/// One large curve to a page. No dialog offers
/// it.
extern const Layout kSinglePage;

}  // namespace triaxlab
