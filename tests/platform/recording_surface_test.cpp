#include "platform/recording_surface.h"

#include <gtest/gtest.h>

#include <array>

#include "support/drawings.h"

namespace triaxlab {
namespace {

using triaxlab::testing::all;

TEST(RecordingSurface, RoundsToTheNearestTwip) {
  RecordingSurface surface;
  surface.line({972.7, 500}, {972.4, 4299.5}, {Colour::Grey, 1});
  EXPECT_EQ(all<DrawnLine>(surface.operations())[0], (DrawnLine{{973, 500}, {972, 4300}, {Colour::Grey, 1}}));
}

TEST(RecordingSurface, KeepsTheOrder) {
  RecordingSurface surface;
  surface.box({0, 0}, {10, 20}, {}, Colour::LightCyan);
  surface.circle({5, 5}, 2.6, {Colour::LightRed, 1}, std::nullopt);
  surface.textCentred(100, 7, "甲A", {}, Colour::Blue);
  ASSERT_EQ(surface.operations().size(), 3U);
  EXPECT_TRUE(std::holds_alternative<DrawnBox>(surface.operations()[0]));
  EXPECT_EQ(std::get<DrawnCircle>(surface.operations()[1]).radius, 3);
  // 3 GBK bytes of 105 twips: 315 wide, half of it is 157.5.
  EXPECT_EQ(std::get<DrawnText>(surface.operations()[2]).upperLeft, (TwipPoint{-58, 7}));
}

TEST(RecordingSurface, ACoordinateThatIsNoNumberHasAPlaceFarAway) {
  RecordingSurface surface;
  surface.line({1e300, -1e300}, {std::nan(""), 0}, {});
  const DrawnLine drawn = all<DrawnLine>(surface.operations())[0];
  EXPECT_GT(drawn.from.x, 1'000'000);
  EXPECT_LT(drawn.from.y, -1'000'000);
  EXPECT_LT(drawn.to.x, -1'000'000);
}

// The forms of the file of drawing operations, letter for letter.
TEST(DrawingJson, Line) {
  EXPECT_EQ(jsonOf(DrawnLine{{973, 500}, {973, 4300}, {Colour::Grey, 1}}),
            R"({"op": "line", "x1": 973, "y1": 500, "x2": 973, "y2": 4300, "color": 8, "width": 1})");
}

TEST(DrawingJson, BoxWithAndWithoutFill) {
  EXPECT_EQ(jsonOf(DrawnBox{{700, 500}, {6700, 4300}, {Colour::Grey, 4}, std::nullopt}),
            R"({"op": "box", "x1": 700, "y1": 500, "x2": 6700, "y2": 4300, "color": 8, "fill": null})");
  EXPECT_EQ(jsonOf(DrawnBox{{0, 0}, {1, 1}, {Colour::Black, 1}, Colour::LightCyan}),
            R"({"op": "box", "x1": 0, "y1": 0, "x2": 1, "y2": 1, "color": 0, "fill": 11})");
}

TEST(DrawingJson, Circle) {
  EXPECT_EQ(jsonOf(DrawnCircle{{1, 2}, 30, {Colour::LightRed, 1}, std::nullopt}),
            R"({"op": "circle", "x": 1, "y": 2, "r": 30, "color": 12, "fill": null})");
}

TEST(DrawingJson, Polyline) {
  EXPECT_EQ(jsonOf(DrawnPolyline{{{700, 4300}, {809, 3757}, {918, 3486}}, {Colour::LightRed, 1}}),
            R"({"op": "polyline", "points": [[700, 4300], [809, 3757], [918, 3486]], "color": 12, "width": 1})");
}

TEST(DrawingJson, Text) {
  EXPECT_EQ(jsonOf(DrawnText{{2545, 150}, "主应力差与轴向应变曲线", {}, Colour::Black, false}),
            R"({"op": "text", "x": 2545, "y": 150, "text": "主应力差与轴向应变曲线", "font": "宋体", "size": 10.5, )"
            R"("bold": false, "color": 0, "rotated": false})");
  EXPECT_EQ(jsonOf(DrawnText{{-1, 0}, "a\"\\\t", {"@宋体", 19, true}, Colour::Blue, true}),
            R"({"op": "text", "x": -1, "y": 0, "text": "a\"\\\t", "font": "@宋体", "size": 19, )"
            R"("bold": true, "color": 1, "rotated": true})");
}

TEST(DrawingJson, ABrokenTextIsStillJson) {
  const std::string json = jsonOf(DrawnText{{0, 0}, "x\xFFy\x01", {}, Colour::Black, false});
  EXPECT_NE(json.find("\"x\xEF\xBF\xBDy\\u0001\""), std::string::npos) << json;
}

}  // namespace
}  // namespace triaxlab
