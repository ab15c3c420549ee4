#pragma once

#include "platform/drawing_surface.h"
#include "triaxial/record.h"

namespace triaxlab {

/// Height of the table: a head and a row for each of the five stages.
inline constexpr double kFailureTableHeight = 1800;

/// Draws the values at failure and the measures of the specimens, a row a stage, from x 600 to 11304.
void drawFailureTable(DrawingSurface& surface, double top, const TriaxialSampleRecord& record, int lineWeight);

}  // namespace triaxlab
