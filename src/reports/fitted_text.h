#pragma once

#include <string_view>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// Where the texts of a page end at the latest, twips from its left edge.
inline constexpr double kRightMargin = 11500;

/// The font in which a text fits into `room` (twips): as it is, set narrower down to seven tenths, then in smaller
/// sizes down to 7 point. What is longer still keeps that size and goes on beyond.
Font fittedFont(std::string_view utf8, const Font& font, double room);

/// Prints a text from `place` that ends before `right`; nothing for an empty one.
void printFitted(DrawingSurface& surface, Point place, std::string_view utf8, const Font& font,
                 double right = kRightMargin);
/// The same for a text centred on `centreX`.
void printFittedCentred(DrawingSurface& surface, double centreX, double y, std::string_view utf8, const Font& font,
                        double right = kRightMargin);

}  // namespace triaxlab
