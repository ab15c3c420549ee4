#pragma once

#include "reports/layouts.h"

namespace triaxlab {

/// The sheets "三  轴  试  验  数  据  表": the readings of the shear phase, stage by stage.
extern const Layout kTriaxialTable;

}  // namespace triaxlab
