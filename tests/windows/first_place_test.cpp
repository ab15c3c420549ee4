#include "windows/first_place.h"

#include <gtest/gtest.h>

namespace triaxlab {
namespace {

constexpr QSize kWanted(1120, 760);
constexpr QMargins kFrame(1, 30, 1, 5);  // left, top, right, bottom

TEST(FirstPlace, ALargeScreenHasTheWindowInItsMiddle) {
  EXPECT_EQ(firstPlace({0, 0, 1920, 1080}, kWanted, {}), QRect(400, 160, 1120, 760));
}

TEST(FirstPlace, TheFrameIsPartOfTheSize) {
  EXPECT_EQ(firstPlace({0, 0, 1920, 1080}, kWanted, kFrame), QRect(401, 190, 1118, 725));
}

TEST(FirstPlace, OnASmallerScreenTheWindowFillsWhatIsFreeOfIt) {
  // A bar of 28 pixels at the top leaves 740 of 768; the content begins below the bar and the title.
  EXPECT_EQ(firstPlace({0, 28, 1366, 740}, kWanted, kFrame), QRect(123 + 1, 28 + 30, 1118, 740 - 35));
  EXPECT_EQ(firstPlace({0, 0, 1024, 768}, kWanted, kFrame), QRect(1, 4 + 30, 1022, 725));
  EXPECT_EQ(firstPlace({0, 0, 800, 600}, kWanted, {}), QRect(0, 0, 800, 600));
}

}  // namespace
}  // namespace triaxlab
