#pragma once

#include <array>
#include <span>
#include <string_view>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// The fonts that may take the place of one that is asked for, the best first: those that carry its widths, or come
/// near them. A font that lacks a sign hands on to the next.
inline std::span<const char* const> substitutesOf(std::string_view font) {
  static constexpr std::array kForSong{"SimSun", "NSimSun", "AR PL UMing CN", "Noto Serif CJK SC"};
  // Left to itself a toolkit may take a font of symbols, in which a number is a row of ornaments.
  static constexpr std::array kForArialNarrow{
      "Liberation Sans Narrow", "Nimbus Sans Narrow", "Liberation Sans", "Nimbus Sans", "DejaVu Sans",
      "AR PL UMing CN"};
  if (font == kArialNarrow) return kForArialNarrow;
  return kForSong;
}

}  // namespace triaxlab
