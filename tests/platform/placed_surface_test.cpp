#include "platform/placed_surface.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/recording_surface.h"
#include "support/drawings.h"

namespace triaxlab {
namespace {

using triaxlab::testing::all;

struct PlacedSurfaceTest : ::testing::Test {
  RecordingSurface paper;
  PlacedSurface canvas{paper, {600, 1850}, 1.5, 2};
};

TEST_F(PlacedSurfaceTest, ShiftsAndScalesPlacesAndLengths) {
  canvas.line({0, 0}, {100, 20}, {Colour::Grey, 4});
  canvas.box({10, 10}, {20, 30}, {}, std::nullopt);
  canvas.circle({2, 4}, 10, {}, Colour::White);
  canvas.polyline(std::array{Point{0, 0}, Point{2, 2}}, {});
  EXPECT_EQ(all<DrawnLine>(paper.operations())[0], (DrawnLine{{600, 1850}, {750, 1880}, {Colour::Grey, 4}}));
  EXPECT_EQ(all<DrawnBox>(paper.operations())[0], (DrawnBox{{615, 1865}, {630, 1895}, {}, std::nullopt}));
  EXPECT_EQ(all<DrawnCircle>(paper.operations())[0], (DrawnCircle{{603, 1856}, 15, {}, Colour::White}));
  EXPECT_EQ(all<DrawnPolyline>(paper.operations())[0], (DrawnPolyline{{{600, 1850}, {603, 1853}}, {}}));
}

TEST_F(PlacedSurfaceTest, TextsHaveAScaleOfTheirOwn) {
  canvas.text({100, 100}, "σ", {"宋体", 9, true}, Colour::Blue, true);
  EXPECT_EQ(all<DrawnText>(paper.operations())[0],
            (DrawnText{{750, 2000}, "σ", {"宋体", 18, true}, Colour::Blue, true}));
}

TEST_F(PlacedSurfaceTest, OneScaleServesBoth) {
  PlacedSurface larger(paper, {0, 0}, 1.5);
  larger.text({0, 0}, "σ", {"宋体", 10, false}, Colour::Black, false);
  EXPECT_EQ(all<DrawnText>(paper.operations())[0].font.size, 15);
}

}  // namespace
}  // namespace triaxlab
