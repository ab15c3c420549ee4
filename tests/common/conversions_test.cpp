#include "common/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace triaxlab {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(ToInt16, EveryIntegerAndItsSurroundings) {
  for (int n = -32768; n <= 32767; ++n) {
    ASSERT_EQ(toInt16(n), n);
    ASSERT_EQ(toInt16(n + 0.499999), n);
    ASSERT_EQ(toInt16(n - 0.499999), n);
    // Half way lie two neighbours; the even one is taken.
    if (n < 32767) {
      ASSERT_EQ(toInt16(n + 0.5), n % 2 == 0 ? n : n + 1);
    }
  }
}

TEST(ToInt16, BeyondTheRangeThereIsNoValue) {
  EXPECT_EQ(toInt16(32767.49), 32767);
  EXPECT_EQ(toInt16(32767.5), std::nullopt);  // the even neighbour is 32768
  EXPECT_EQ(toInt16(-32768.5), -32768);       // the even neighbour is -32768
  EXPECT_EQ(toInt16(-32768.51), std::nullopt);
  for (const double value : {32768.0, 65535.0, -32769.0, 1e300, -1e300, kInfinity, -kInfinity, kNoNumber})
    EXPECT_EQ(toInt16(value), std::nullopt) << value;
}

TEST(ToInt32, TiesAndRange) {
  EXPECT_EQ(toInt32(0.5), 0);
  EXPECT_EQ(toInt32(1.5), 2);
  EXPECT_EQ(toInt32(-2.5), -2);
  EXPECT_EQ(toInt32(123456789.5), 123456790);
  EXPECT_EQ(toInt32(2147483647.0), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(toInt32(2147483647.49), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(toInt32(2147483647.5), std::nullopt);
  EXPECT_EQ(toInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(toInt32(-2147483648.51), std::nullopt);
  for (const double value : {2147483648.0, 1e10, -1e10, kInfinity, -kInfinity, kNoNumber})
    EXPECT_EQ(toInt32(value), std::nullopt) << value;
}

TEST(ToSingle, RoundsOrHasNoValue) {
  EXPECT_EQ(toSingle(0.1), 0.1F);
  EXPECT_EQ(toSingle(-16777217.0), -16777216.0F);  // 25 bits: half way, to even
  EXPECT_EQ(toSingle(1e-60), 0.0F);
  EXPECT_EQ(toSingle(std::numeric_limits<float>::max()), std::numeric_limits<float>::max());
  for (const double value : {1e39, -1e39, kInfinity, kNoNumber}) EXPECT_EQ(toSingle(value), std::nullopt) << value;
}

TEST(Int, IsTheFloor) {
  EXPECT_EQ(Int(3.5), 3);
  EXPECT_EQ(Int(-3.5), -4);
  EXPECT_EQ(Int(-4.0), -4);
  EXPECT_EQ(Int(0.999999), 0);
}

TEST(Quotient, ExistsOnlyWhenItIsANumber) {
  EXPECT_EQ(quotient(1, 4), 0.25);
  EXPECT_EQ(quotient(0, -3), 0);
  EXPECT_EQ(quotient(1, 0), std::nullopt);
  EXPECT_EQ(quotient(0, 0), std::nullopt);
  EXPECT_EQ(quotient(1, -0.0), std::nullopt);
  EXPECT_EQ(quotient(1e300, 1e-300), std::nullopt);
  EXPECT_EQ(quotient(kInfinity, 2), std::nullopt);
  EXPECT_EQ(quotient(kNoNumber, 2), std::nullopt);
  EXPECT_EQ(quotient(1, kNoNumber), std::nullopt);
}

TEST(AssignIf, AnAbandonedStatementLeavesItsTarget) {
  std::int16_t tenths = 7;
  assignIf(tenths, toInt16(40000));
  EXPECT_EQ(tenths, 7);
  assignIf(tenths, toInt16(12.4));
  EXPECT_EQ(tenths, 12);
}

}  // namespace
}  // namespace triaxlab
