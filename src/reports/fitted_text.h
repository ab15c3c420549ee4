#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// Where the texts of a page end at the latest, twips from its left edge.
inline constexpr double kRightMargin = 11500;

/// The smallest type of a page, point.
inline constexpr double kSmallestType = 7;

/// The font in which a text fits into `room` (twips): as it is, set narrower down to seven tenths, then in smaller
/// sizes down to the smallest. What is longer still keeps that size and goes on beyond.
Font fittedFont(std::string_view utf8, const Font& font, double room, double smallest = kSmallestType);

/// Prints a text from `place` that ends before `right`; nothing for an empty one.
void printFitted(DrawingSurface& surface, Point place, std::string_view utf8, const Font& font,
                 double right = kRightMargin, double smallest = kSmallestType);
/// Texts beside each other, as many as places; each ends before the next begins, the last before the margin.
void printInLine(DrawingSurface& surface, std::span<const double> x, double y, std::span<const std::string> texts,
                 const Font& font);
/// A text centred on `centreX`.
void printFittedCentred(DrawingSurface& surface, double centreX, double y, std::string_view utf8, const Font& font,
                        double right = kRightMargin);

}  // namespace triaxlab
