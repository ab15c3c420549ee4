#include "common/in_memory.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace triaxlab {
namespace {

constexpr std::uint64_t kWholeMemory = std::numeric_limits<std::size_t>::max();

TEST(InMemory, ALengthThatMemoryCanHaveIsTheSame) {
  static_assert(inMemory(0) == 0);
  static_assert(inMemory(4096) == 4096);
  EXPECT_EQ(inMemory(kWholeMemory), std::numeric_limits<std::size_t>::max());
}

TEST(InMemory, ALongerOneIsNotCut) {
  if (kWholeMemory == std::numeric_limits<std::uint64_t>::max()) GTEST_SKIP() << "memory has the lengths of a file";
  EXPECT_THROW(inMemory(kWholeMemory + 1), std::length_error);
  EXPECT_THROW(inMemory(std::numeric_limits<std::uint64_t>::max()), std::length_error);
}

}  // namespace
}  // namespace triaxlab
