#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace triaxlab {

/// True for a byte that begins a two-byte character of GBK.
constexpr bool isGbkLead(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x81 && value <= 0xFE;
}
/// True for a byte that can be the second of a two-byte character.
constexpr bool isGbkTrail(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x40 && value <= 0xFE && value != 0x7F;
}

/// Bytes that the character at `at` takes: 2 for a whole two-byte character, otherwise 1. Pre: at < gbk.size().
constexpr std::size_t gbkCharacterSize(std::string_view gbk, std::size_t at) {
  return isGbkLead(gbk[at]) && at + 1 < gbk.size() && isGbkTrail(gbk[at + 1]) ? 2 : 1;
}

/// The longest beginning of `gbk` that has at most `width` bytes and ends with a whole character.
constexpr std::string_view cutWhole(std::string_view gbk, std::size_t width) {
  if (gbk.size() <= width) return gbk;
  std::size_t kept = 0;
  while (kept < width) {
    const std::size_t next = kept + gbkCharacterSize(gbk, kept);
    if (next > width) break;
    kept = next;
  }
  return gbk.substr(0, kept);
}

/// A byte that begins no character becomes "?" and counts one: so windows, pages and sentences show what records hold.
std::string gbkToUtf8(std::string_view gbk);

/// A character that GBK lacks becomes `substitute`; so does each byte that is no UTF-8.
std::string utf8ToGbk(std::string_view utf8, char substitute = '?');

/// The GBK text, or nothing when a character has no place in GBK or the text is no UTF-8.
std::optional<std::string> utf8ToGbkExactly(std::string_view utf8);

/// True when every byte of the text belongs to a character that GBK defines.
bool isGbk(std::string_view text);

}  // namespace triaxlab
