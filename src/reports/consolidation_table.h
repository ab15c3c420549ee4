#pragma once

#include "reports/layouts.h"

namespace triaxlab {

/// The sheets "固  结  数  据  表": the readings of the consolidation, stage by stage; UU samples have none.
extern const Layout kConsolidationTable;

}  // namespace triaxlab
