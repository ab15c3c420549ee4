#include "platform/drawing_surface.h"

#include <array>

namespace triaxlab {

Rgb rgbOf(Colour colour) {
  static constexpr std::array<Rgb, 16> kPalette{{{0, 0, 0},
                                                 {0, 0, 128},
                                                 {0, 128, 0},
                                                 {0, 128, 128},
                                                 {128, 0, 0},
                                                 {128, 0, 128},
                                                 {128, 128, 0},
                                                 {192, 192, 192},
                                                 {128, 128, 128},
                                                 {0, 0, 255},
                                                 {0, 255, 0},
                                                 {0, 255, 255},
                                                 {255, 0, 0},
                                                 {255, 0, 255},
                                                 {255, 255, 0},
                                                 {255, 255, 255}}};
  return kPalette.at(static_cast<std::size_t>(colour));
}

double textWidth(std::string_view utf8, const Font& font) {
  // A character outside GBK measures as two bytes.
  std::size_t bytes = 0;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t size = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    bytes += lead < 0x80 ? 1 : 2;
    at += size;
  }
  return static_cast<double>(bytes) * (font.name == kArialNarrow ? 8 : 10) * font.size * font.stretch;
}

}  // namespace triaxlab
