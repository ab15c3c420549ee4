#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace triaxlab {

/// A length of a file, or a place in one, as that of something in memory. Files have 64 bits for both on every system,
/// memory has those of an address. Whoever asks knows that it fits, or has told the person that it doesn't; a length
/// that fits nowhere is never cut, but std::length_error.
constexpr std::size_t inMemory(std::uint64_t length) {
  if (!std::in_range<std::size_t>(length)) throw std::length_error("a length beyond all memory");
  return static_cast<std::size_t>(length);
}

}  // namespace triaxlab
