#pragma once

#include <cstddef>
#include <functional>

namespace triaxlab {

/// Told how far a long piece of work has come, `done` of `total` steps. Called by the thread that works, from the midst
/// of it: what it does must not throw and must not let events run. May be empty.
using Progress = std::function<void(std::size_t done, std::size_t total)>;

inline void tell(const Progress& progress, std::size_t done, std::size_t total) {
  if (progress) progress(done, total);
}

}  // namespace triaxlab
