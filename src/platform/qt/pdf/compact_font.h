#pragma once

#include <QPainterPath>
#include <span>
#include <string>
#include <string_view>

namespace triaxlab {

/// A shape of a font of 1000 units to its size, y downward, from the origin on the baseline.
struct FontShape {
  int advance = 0;
  QPainterPath outline;
};

/// Lower left and upper right corner, y upward.
struct FontBox {
  int left = 0, bottom = 0, right = 0, top = 0;
};
FontBox boxOf(std::span<const FontShape> shapes);

/// The shapes as a font program (Compact Font Format, told by character identifiers that count from 0): what a PDF has
/// of a font. At least the shape 0, which stands for what is missing.
std::string compactFont(std::string_view name, std::span<const FontShape> shapes);

}  // namespace triaxlab
