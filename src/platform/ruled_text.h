#pragma once

#include <string_view>

namespace triaxlab {

// What every device does with the texts of charts and pages, whose widths are ruled whatever font takes 宋体's place.

/// Height of the baseline below the upper edge of a text, in its size: that of 宋体.
inline constexpr double kBaseline = 0.86;

/// In the fonts of the laboratory the mark takes a whole place, in whose middle it would stand far from its symbol: it
/// is drawn at the left of its place.
inline constexpr std::string_view kPrime = "′";

/// What the widths of a font are multiplied by. Advances differ in the last digits; only a font of other widths is
/// stretched.
double stretchTo(double ruledWidth, double naturalWidth);

}  // namespace triaxlab
