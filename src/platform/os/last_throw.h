#pragma once

#include <execinfo.h>

#include <algorithm>
#include <array>
#include <span>
#include <typeinfo>

namespace triaxlab {

/// The calls that led to a place.
class Calls {
 public:
  void take() noexcept { m_count = backtrace(m_addresses.data(), static_cast<int>(m_addresses.size())); }
  std::span<void* const> without(int innermost) const {
    return std::span(m_addresses)
        .first(static_cast<std::size_t>(m_count))
        .subspan(static_cast<std::size_t>(std::min(innermost, m_count)));
  }

 private:
  std::array<void*, 48> m_addresses{};
  int m_count = 0;
};

/// Where a thread has thrown its last exception. When somebody handles an exception its calls are long gone.
struct LastThrow {
  const std::type_info* type = nullptr;  // null: none yet
  Calls calls;
};
LastThrow& lastThrow() noexcept;

}  // namespace triaxlab
