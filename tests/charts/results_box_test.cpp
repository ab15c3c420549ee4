#include "charts/results_box.h"

#include <array>

#include "support/drawings.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

TEST(ResultsBox, ItsLinesStandBelowEachOther) {
  RecordingSurface surface;
  const ResultsBox box{.corner = {5000, 400}, .opposite = {6900, 1300}, .firstLine = {5060, 460}, .pitch = 280};
  drawResultsBox(surface, box, std::array{ResultLine{" qu = 88.0kpa"}, ResultLine{" St = 2.1"}}, Font{}, 4);
  EXPECT_THAT(all<DrawnBox>(surface.operations()),
              ElementsAre(DrawnBox{{5000, 400}, {6900, 1300}, {Colour::Black, 4}, Colour::LightCyan}));
  EXPECT_THAT(all<DrawnText>(surface.operations()),
              ElementsAre(words(" qu = 88.0kpa", 5060, 460), words(" St = 2.1", 5060, 740)));
}

TEST(ResultsBox, ColoursAreItsOwn) {
  RecordingSurface surface;
  drawResultsBox(surface,
                 {.corner = {3000, 300},
                  .opposite = {4700, 1100},
                  .firstLine = {3060, 350},
                  .pitch = 250,
                  .outline = Colour::Blue,
                  .fill = Colour::White},
                 {}, Font{}, 1);
  EXPECT_THAT(all<DrawnBox>(surface.operations()),
              ElementsAre(DrawnBox{{3000, 300}, {4700, 1100}, {Colour::Blue, 1}, Colour::White}));
}

TEST(ResultsBox, AnAngleHasARaisedMark) {
  RecordingSurface surface;
  drawResultsBox(surface, {.firstLine = {960, 640}, .pitch = 270}, std::array{ResultLine{"φ = 30.0", true}}, Font{}, 1);
  // 9 bytes of 105 behind it, 4 x 10.5 higher.
  EXPECT_THAT(all<DrawnText>(surface.operations()),
              ElementsAre(words("φ = 30.0", 960, 640), sized(10.5 * 0.7, "o", 1905, 598)));
}

}  // namespace
}  // namespace triaxlab::testing
