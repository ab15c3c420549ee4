#include "ending_memory.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t kNoEnd = std::numeric_limits<std::size_t>::max();
thread_local std::size_t allocationsLeft = kNoEnd;

}  // namespace

// In a file of its own: where a compiler sees them it takes what they do for a mistake.

void* operator new(std::size_t size) {
  if (allocationsLeft != kNoEnd && allocationsLeft-- == 0) throw std::bad_alloc();
  if (void* const memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace triaxlab::testing {

EndingMemory::EndingMemory(std::size_t allocations) { allocationsLeft = allocations; }
EndingMemory::~EndingMemory() { allocationsLeft = kNoEnd; }
// What has counted down past none is what stands for no end.
bool EndingMemory::hasEnded() const { return allocationsLeft == kNoEnd; }

}  // namespace triaxlab::testing
