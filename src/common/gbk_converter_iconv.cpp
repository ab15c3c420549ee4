#include <iconv.h>

#include <array>
#include <cerrno>
#include <string>
#include <system_error>

#include "common/gbk_converter.h"
#include "common/user_error.h"

namespace triaxlab {

GbkConverter::GbkConverter() : m_system(iconv_open("UTF-16LE", "GBK")) {
  if (m_system == iconv_t(-1))  // NOLINT(performance-no-int-to-ptr): as POSIX has it
    throw UserError("系统的 GBK 字符转换不能用：" + std::generic_category().message(errno) + "。");
}

GbkConverter::~GbkConverter() { iconv_close(m_system); }

/// The converter takes the characters at once; at a pair that is no character it stops, and is called again behind it.
/// No pair stands for more than one place of UTF-16.
void GbkConverter::fillRow(unsigned lead, Row row) const {
  std::array<char, 2 * kTrails> pairs{};
  for (std::size_t trail = 0; trail < kTrails; ++trail) {
    pairs[2 * trail] = static_cast<char>(kFirstLead + lead);
    pairs[2 * trail + 1] = static_cast<char>(kFirstTrail + trail);
  }
  char* from = pairs.data();
  std::size_t left = pairs.size();
  while (left > 0) {
    const auto first = static_cast<unsigned>(from - pairs.data()) / 2;
    std::array<unsigned char, 2 * kTrails> characters{};
    auto* to = reinterpret_cast<char*>(characters.data());
    std::size_t room = characters.size();
    iconv(m_system, &from, &left, &to, &room);
    const auto behind = static_cast<unsigned>(from - pairs.data()) / 2;
    for (unsigned trail = first; trail < behind; ++trail) {
      const std::size_t at = 2 * std::size_t{trail - first};
      row[trail] = static_cast<char16_t>(characters[at] | characters[at + 1] << 8);
    }
    if (left == 0) break;
    from += 2;
    left -= 2;
    iconv(m_system, nullptr, nullptr, nullptr, nullptr);
  }
}

}  // namespace triaxlab
