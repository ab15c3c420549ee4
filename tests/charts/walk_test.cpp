#include "charts/walk.h"

#include <gtest/gtest.h>

namespace triaxlab {
namespace {

TEST(Walk, TakesAsManySteps) {
  for (const double way : {0.0, 1.0, 2.0, 7.0, 63.0, 64.0, 100.0})
    EXPECT_EQ(stepsUntil(100, [way](double steps) { return steps >= way; }), way);
}

TEST(Walk, MayNeverArrive) {
  EXPECT_EQ(stepsUntil(100, [](double steps) { return steps > 100; }), std::nullopt);
  EXPECT_EQ(stepsUntil(0, [](double steps) { return steps > 0; }), std::nullopt);
  EXPECT_EQ(stepsUntil(-1, [](double) { return false; }), std::nullopt);
}

TEST(Walk, OfAnyLengthIsQuick) {
  int asked = 0;
  EXPECT_EQ(stepsUntil(1e15, [&asked](double steps) { return ++asked, steps >= 123456789012345; }), 123456789012345);
  EXPECT_LT(asked, 60);
}

}  // namespace
}  // namespace triaxlab
