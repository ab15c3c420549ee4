#include "importers/numbered_groups.h"

namespace triaxlab {

std::string unpackedNumber(std::span<const std::uint8_t> packed) {
  std::string number;
  const auto add = [&number](int nibble) {
    if (nibble < 10) number += static_cast<char>('0' + nibble);
    if (nibble == 10) number += '-';
  };
  for (const std::uint8_t byte : packed) {
    add(byte >> 4);
    add(byte & 0xF);
  }
  return number;
}

std::optional<std::string> longSampleNo(const LongSampleNumbers& numbers, std::size_t group) {
  constexpr std::string_view kMark = "zmgj";
  constexpr std::size_t kWidth = 10, kMostPacked = 6;
  const std::string_view text = numbers.view();
  const std::size_t at = kMark.size() + group * kWidth;
  if (!text.starts_with(kMark) || at >= text.size()) return std::nullopt;
  std::string_view number = text.substr(at, kWidth);
  number = number.substr(0, number.find('\0'));
  if (Trim(number).size() <= kMostPacked) return std::nullopt;
  return std::string(number);
}

}  // namespace triaxlab
