#include "charts/column_title.h"

#include "support/drawings.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

/// The title of a column of 1000 twips with its middle at 5000: symbol at y 100, unit at y 400.
std::vector<DrawnText> title(const char* symbol) {
  RecordingSurface surface;
  drawColumnTitle(surface, {symbol, "(kPa)"}, 5000, 1000, 100, 400, Font{});
  return all<DrawnText>(surface.operations());
}

TEST(ColumnTitle, SubscriptsAreSmallAndLow) {
  // σ 210 and the small 1, 0.7 x 105 = 73.5: 283.5 wide, from 5000 - 141.75. 8 x 10.5 = 84 lower.
  EXPECT_THAT(title("σ_1"), ElementsAre(words("σ", 4858, 100), sized(10.5 * 0.7, "1", 5068, 184),
                                        words("(kPa)", 5000 - 262, 400)));  // 525 / 2 = 262.5
}

TEST(ColumnTitle, TextGoesOnBehindASubscript) {
  // σ 210, 1 73.5, -σ 315, 3 73.5: 672 wide, from 4664.
  EXPECT_THAT(title("σ_1-σ_3"),
              ElementsAre(words("σ", 4664, 100), sized(10.5 * 0.7, "1", 4874, 184), words("-σ", 4948, 100),
                          sized(10.5 * 0.7, "3", 5263, 184), words("(kPa)", 4738, 400)));
}

TEST(ColumnTitle, APrimeStandsOverItsSubscript) {
  // σ 210 and half of the prime's 210: 315 wide, from 4842.5; both marks at 5052.5.
  EXPECT_THAT(title("σ_1′"), ElementsAre(words("σ", 4843, 100), sized(10.5 * 0.7, "1", 5053, 184),
                                         words("′", 5053, 100), words("(kPa)", 4738, 400)));
}

TEST(ColumnTitle, AWideSymbolIsSetSmaller) {
  // "(", "σ", "+σ", ")/2" are 945, the digits 147: 1092 against 0.9 x 1000. 10.5 x 900 / 1092 = 8.65 point.
  const auto texts = title("(σ_1+σ_3)/2");
  EXPECT_EQ(texts.at(0).font.size, 8.6);
  // On one line with the others: 20 x (10.5 - 8.6) = 38 lower. 1092 x 8.6 / 10.5 = 894.4 wide.
  EXPECT_EQ(texts.at(0).upperLeft, (TwipPoint{4553, 138}));
  EXPECT_EQ(texts.back(), words("(kPa)", 4738, 400)) << "the unit keeps its size";
}

TEST(ColumnTitle, WithoutAUnitThereIsOneLine) {
  RecordingSurface surface;
  drawColumnTitle(surface, {"u", ""}, 5000, 1000, 100, 400, Font{});
  EXPECT_EQ(surface.operations().size(), 1U);
}

}  // namespace
}  // namespace triaxlab::testing
