#include "platform/drawing_surface.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace triaxlab {
namespace {

// Ten twips a byte and point: at 10.5 points a half-width character takes 105 twips, a full-width one 210.
TEST(TextWidth, CountsTheBytesOfGbk) {
  const Font song;
  EXPECT_EQ(textWidth("", song), 0);
  EXPECT_EQ(textWidth("A-1", song), 3 * 105);
  EXPECT_EQ(textWidth("工程编号", song), 8 * 105);
  EXPECT_EQ(textWidth("σ1=100kPa", song), (2 + 8) * 105);
  EXPECT_EQ(textWidth("主应力差", Font{kSong, 12, true}), 8 * 120);
}

TEST(TextWidth, ACharacterOutsideGbkIsTwoBytes) {
  EXPECT_EQ(textWidth("cm²", Font{}), 4 * 105);
  EXPECT_EQ(textWidth("é", Font{}), 2 * 105);
  EXPECT_EQ(textWidth("𠮷", Font{}), 2 * 105);
}

TEST(TextWidth, TheNarrowFontTakesEightTwips) { EXPECT_EQ(textWidth("kPa", Font{kArialNarrow, 10}), 3 * 80); }

/// Remembers where texts were put.
class TextPlaces : public DrawingSurface {
 public:
  std::vector<Point> places;

  void line(Point, Point, Stroke) override {}
  void box(Point, Point, Stroke, std::optional<Colour>) override {}
  void circle(Point, double, Stroke, std::optional<Colour>) override {}
  void polyline(std::span<const Point>, Stroke) override {}
  void text(Point upperLeft, std::string_view, const Font&, Colour, bool) override { places.push_back(upperLeft); }
};

TEST(DrawingSurface, CentresAndAlignsByTheRule) {
  TextPlaces surface;
  const Font font{kSong, 10};
  surface.textCentred(1000, 20, "轴向", font, Colour::Black);       // 400 wide
  surface.textRightAligned(1000, 20, "12.5", font, Colour::Black);  // 400 wide
  EXPECT_EQ(surface.places, (std::vector<Point>{{800, 20}, {600, 20}}));
}

}  // namespace
}  // namespace triaxlab
