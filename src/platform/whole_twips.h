#pragma once

#include "platform/drawing_surface.h"

namespace triaxlab {

/// A place as it is drawn: whole twips.
struct TwipPoint {
  int x = 0, y = 0;
  bool operator==(const TwipPoint&) const = default;
};

/// A coordinate as files have it, rounded. What is far outside any paper lies at the edge of all numbers, and so does a
/// coordinate that is no number: it has no place at all.
int wholeTwips(double value);
inline TwipPoint wholeTwips(Point point) { return {wholeTwips(point.x), wholeTwips(point.y)}; }

}  // namespace triaxlab
