#include "platform/xls/utf16.h"

#include <cstddef>
#include <cstdint>

namespace triaxlab {

std::u16string utf16Of(std::string_view utf8) {
  constexpr char32_t kBeyondOneUnit = 0x10000;
  std::u16string units;
  units.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const auto lead = static_cast<std::uint8_t>(utf8[at++]);
    const int more = lead < 0xC0 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    char32_t point = more == 0 ? lead : lead & (0x3FU >> more);
    for (int i = 0; i < more && at < utf8.size(); ++i)
      point = point << 6 | (static_cast<std::uint8_t>(utf8[at++]) & 0x3FU);
    if (point >= kBeyondOneUnit) {
      point -= kBeyondOneUnit;
      units += static_cast<char16_t>(0xD800 + (point >> 10));
      point = 0xDC00 + (point & 0x3FF);
    }
    units += static_cast<char16_t>(point);
  }
  return units;
}

}  // namespace triaxlab
