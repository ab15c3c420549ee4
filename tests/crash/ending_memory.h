#pragma once

#include <cstddef>

namespace triaxlab::testing {

/// As long as it lives, so many allocations of this thread succeed; the next one fails, and those behind it succeed.
class EndingMemory {
 public:
  explicit EndingMemory(std::size_t allocations);
  EndingMemory(const EndingMemory&) = delete;
  EndingMemory& operator=(const EndingMemory&) = delete;
  ~EndingMemory();
  /// One has failed.
  bool hasEnded() const;
};

}  // namespace triaxlab::testing
