#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace triaxlab {

// Names of files, of folders and of the columns of a database are one name in capital and in small letters. These are A
// to Z whatever the locale; every other byte stands for itself.

constexpr char smallLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Names that are equal so are one name.
inline std::string caseless(std::string_view name) {
  std::string result(name);
  std::transform(result.begin(), result.end(), result.begin(), smallLetter);
  return result;
}

inline bool isSameName(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return smallLetter(x) == smallLetter(y); });
}

}  // namespace triaxlab
