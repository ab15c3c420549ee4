#include "common/gbk.h"

#include <array>
#include <cstdint>
#include <string>

#include "common/gbk_converter.h"

namespace triaxlab {
namespace {

constexpr char16_t kNoCharacter = GbkConverter::kNoCharacter;
constexpr unsigned kFirstLead = GbkConverter::kFirstLead, kFirstTrail = GbkConverter::kFirstTrail;
constexpr std::size_t kLeads = GbkConverter::kLeads, kTrails = GbkConverter::kTrails;
constexpr char16_t kEuro = 0x20AC;  // what code page 936 has at the single byte 0x80

/// Both directions of the code page. The system's converter fills them once; records are full of cut and foreign
/// bytes, at which it would stop, so the texts themselves are converted by the loops below.
struct CodePage {
  std::array<char16_t, kLeads * kTrails> toUnicode{};
  std::array<std::uint16_t, 0x10000> fromUnicode{};

  CodePage() {
    const GbkConverter converter;
    for (unsigned lead = 0; lead < kLeads; ++lead) {
      const GbkConverter::Row row(toUnicode.data() + lead * kTrails, kTrails);
      converter.fillRow(lead, row);
      for (unsigned trail = 0; trail < kTrails; ++trail)
        if (row[trail] != kNoCharacter)
          fromUnicode[row[trail]] = static_cast<std::uint16_t>((kFirstLead + lead) << 8 | (kFirstTrail + trail));
    }
    fromUnicode[kEuro] = 0x80;
  }

  char16_t twoBytes(char lead, char trail) const {
    const unsigned l = static_cast<unsigned char>(lead) - kFirstLead,
                   t = static_cast<unsigned char>(trail) - kFirstTrail;
    return l < kLeads && t < kTrails ? toUnicode[l * kTrails + t] : kNoCharacter;
  }
};

const CodePage& codePage() {
  static const CodePage page;
  return page;
}

void appendUtf8(std::string& text, char32_t character) {
  const auto put = [&text](unsigned byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0 | character >> 6);
    put(0x80 | (character & 0x3F));
  } else {
    put(0xE0 | character >> 12);
    put(0x80 | (character >> 6 & 0x3F));
    put(0x80 | (character & 0x3F));
  }
}

constexpr char32_t kMalformed = 0xFFFFFFFF;

/// Takes one character off the front of a UTF-8 text that is not empty; overlong forms, surrogates and stray bytes are
/// malformed and take one byte.
char32_t takeUtf8(std::string_view& text) {
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  std::size_t size = 1;
  char32_t character = lead, smallest = 0;
  if (lead >= 0x80) {
    size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    smallest = size == 4 ? 0x10000 : size == 3 ? 0x800 : 0x80;
    character = lead & (0x7FU >> size);
    bool whole = lead >= 0xC2 && lead <= 0xF4 && text.size() >= size;
    for (std::size_t i = 1; whole && i < size; ++i) {
      whole = (byte(i) & 0xC0) == 0x80;
      character = character << 6 | (byte(i) & 0x3F);
    }
    if (!whole || character < smallest || character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) {
      text.remove_prefix(1);
      return kMalformed;
    }
  }
  text.remove_prefix(size);
  return character;
}

/// Converts and calls `lacking()` for what GBK doesn't have; stops when that returns false.
template <class Lacking>
std::string convertToGbk(std::string_view utf8, Lacking lacking) {
  const CodePage& page = codePage();
  std::string gbk;
  gbk.reserve(utf8.size());
  while (!utf8.empty()) {
    const char32_t character = takeUtf8(utf8);
    if (character < 0x80) {
      gbk += static_cast<char>(character);
      continue;
    }
    const std::uint16_t code = character < 0x10000 ? page.fromUnicode[character] : std::uint16_t{0};
    if (code > 0xFF) gbk += static_cast<char>(code >> 8);
    if (code != 0)
      gbk += static_cast<char>(code & 0xFF);
    else if (!lacking(gbk))
      return gbk;
  }
  return gbk;
}

}  // namespace

std::string gbkToUtf8(std::string_view gbk) {
  const CodePage& page = codePage();
  std::string utf8;
  utf8.reserve(gbk.size() + gbk.size() / 2);
  for (std::size_t at = 0; at < gbk.size();) {
    const char byte = gbk[at];
    if (static_cast<unsigned char>(byte) < 0x80) {
      utf8 += byte;
      ++at;
      continue;
    }
    const char16_t character = at + 1 < gbk.size() ? page.twoBytes(byte, gbk[at + 1]) : kNoCharacter;
    if (character != kNoCharacter) {
      appendUtf8(utf8, character);
      at += 2;
    } else {
      appendUtf8(utf8, static_cast<unsigned char>(byte) == 0x80 ? kEuro : U'?');
      ++at;
    }
  }
  return utf8;
}

std::string utf8ToGbk(std::string_view utf8, char substitute) {
  return convertToGbk(utf8, [substitute](std::string& gbk) {
    gbk += substitute;
    return true;
  });
}

std::optional<std::string> utf8ToGbkExactly(std::string_view utf8) {
  bool exact = true;
  std::string gbk = convertToGbk(utf8, [&exact](std::string&) { return exact = false; });
  if (!exact) return std::nullopt;
  return gbk;
}

bool isGbk(std::string_view text) {
  const CodePage& page = codePage();
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte <= 0x80) {
      ++at;
    } else if (at + 1 < text.size() && page.twoBytes(text[at], text[at + 1]) != kNoCharacter) {
      at += 2;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace triaxlab
