#pragma once

#include "common/settings.h"

namespace triaxlab {

/// Texts and margins of the result chart in a laboratory without a szshezhi.txt.
ChartLayout defaultChartLayout(const LaboratoryHabits& habits);

}  // namespace triaxlab
