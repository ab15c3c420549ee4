#pragma once

#include <array>
#include <cstring>
#include <string>

namespace triaxlab::testing {

// How a test tells the library in front of a program what to do: settings of the environment (failing_calls.cpp).

/// Loads the library; nothing under a sanitizer, in front of which it can't be loaded.
inline std::string preload() {
#ifdef FAILING_CALLS
  return "LD_PRELOAD=" FAILING_CALLS;
#else
  return {};
#endif
}

/// The calls that look are meant, not those that change something.
inline constexpr const char* kLooks = "FAILING_SIDE=looks";

/// Every look meets one of the errors, and all errors have their turn.
inline std::string errorOfLook(long look) {
  constexpr std::array kErrors{"EIO", "EMFILE", "EACCES", "ESTALE", "ENOMEM"};
  return kErrors[static_cast<std::size_t>(look) % kErrors.size()];
}

/// The number of calls in the file that the library was told to count in.
inline long countedCalls(const std::string& bytes) {
  long calls = 0;
  if (bytes.size() == sizeof calls) std::memcpy(&calls, bytes.data(), sizeof calls);
  return calls;
}

}  // namespace triaxlab::testing
