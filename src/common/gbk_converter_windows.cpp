#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <array>

#include "common/gbk_converter.h"
#include "common/user_error.h"

namespace triaxlab {
namespace {

constexpr UINT kCodePage = 936;

/// Windows also maps the pairs that every user may give characters of his own; nobody else could read those.
bool isPrivate(wchar_t character) { return character >= 0xE000 && character <= 0xF8FF; }

}  // namespace

GbkConverter::GbkConverter() {
  if (IsValidCodePage(kCodePage) == 0) throw UserError("系统的 GBK 字符转换不能用：没有代码页 936。");
}

GbkConverter::~GbkConverter() = default;

void GbkConverter::fillRow(unsigned lead, Row row) const {
  for (unsigned trail = 0; trail < kTrails; ++trail) {
    const std::array pair{static_cast<char>(kFirstLead + lead), static_cast<char>(kFirstTrail + trail)};
    std::array<wchar_t, 2> characters{};
    const int count = MultiByteToWideChar(kCodePage, MB_ERR_INVALID_CHARS, pair.data(), static_cast<int>(pair.size()),
                                          characters.data(), static_cast<int>(characters.size()));
    const bool isOne = count == 1 && !isPrivate(characters[0]);
    row[trail] = isOne ? static_cast<char16_t>(characters[0]) : kNoCharacter;
  }
}

}  // namespace triaxlab
