#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <type_traits>

namespace triaxlab {

/// A little-endian scalar of a file, kept as its bytes: alignment 1, no padding around it. Zero to begin with.
template <class T>
class Little {
  static_assert(std::is_arithmetic_v<T>);

 public:
  constexpr Little() = default;
  constexpr Little(T value) { *this = value; }  // NOLINT(google-explicit-constructor): stands for the scalar

  constexpr operator T() const {  // NOLINT(google-explicit-constructor)
    Bytes bytes = m_bytes;
    if constexpr (std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
    return std::bit_cast<T>(bytes);
  }
  constexpr Little& operator=(T value) {
    m_bytes = std::bit_cast<Bytes>(value);
    if constexpr (std::endian::native == std::endian::big) std::reverse(m_bytes.begin(), m_bytes.end());
    return *this;
  }

 private:
  using Bytes = std::array<std::byte, sizeof(T)>;
  Bytes m_bytes{};
};

}  // namespace triaxlab
