#include "common/little.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace triaxlab {
namespace {

template <class T>
std::array<unsigned char, sizeof(T)> bytesOf(T value) {
  return std::bit_cast<std::array<unsigned char, sizeof(T)>>(Little<T>(value));
}

static_assert(sizeof(Little<std::int16_t>) == 2 && alignof(Little<std::int16_t>) == 1);
static_assert(sizeof(Little<double>) == 8 && alignof(Little<double>) == 1);
static_assert(std::is_trivially_copyable_v<Little<float>>);

TEST(Little, TheLowByteComesFirst) {
  EXPECT_EQ(bytesOf<std::int16_t>(0x1234), (std::array<unsigned char, 2>{0x34, 0x12}));
  EXPECT_EQ(bytesOf<std::int16_t>(-2), (std::array<unsigned char, 2>{0xFE, 0xFF}));
  EXPECT_EQ(bytesOf<std::int32_t>(0x01020304), (std::array<unsigned char, 4>{4, 3, 2, 1}));
  EXPECT_EQ(bytesOf<float>(1.0F), (std::array<unsigned char, 4>{0, 0, 0x80, 0x3F}));
  EXPECT_EQ(bytesOf<double>(-2.0), (std::array<unsigned char, 8>{0, 0, 0, 0, 0, 0, 0, 0xC0}));
}

TEST(Little, EveryShortComesBack) {
  for (int n = -32768; n <= 32767; ++n) {
    Little<std::int16_t> stored;
    stored = static_cast<std::int16_t>(n);
    ASSERT_EQ(stored, n);
  }
}

TEST(Little, AFloatKeepsItsBits) {
  for (const float value : {0.0F, -0.0F, 0.1F, -1e-45F, std::numeric_limits<float>::max(),
                            std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()})
    EXPECT_EQ(std::bit_cast<std::uint32_t>(static_cast<float>(Little<float>(value))),
              std::bit_cast<std::uint32_t>(value));
}

TEST(Little, IsZeroToBeginWith) {
  EXPECT_EQ(Little<std::int32_t>(), 0);
  EXPECT_EQ(Little<float>(), 0.0F);
}

}  // namespace
}  // namespace triaxlab
