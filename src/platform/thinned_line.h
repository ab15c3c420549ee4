#pragma once

#include <span>
#include <vector>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// Those of a line's points that keep it within `tolerance` of where all of them would lead it; the ends always.
std::vector<Point> thinnedLine(std::span<const Point> points, double tolerance);

}  // namespace triaxlab
