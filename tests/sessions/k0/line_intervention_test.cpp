#include "sessions/k0/line_intervention.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "k0/charts/ko_chart.h"
#include "k0/charts/stage_chart.h"
#include "support/fake_dialogs.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;

// The Ko chart of 110 kPa: 54.5455 twips a kPa to the right, 54.5714 upward. A line of 0.5 goes from (2500, 4120) to
// (8445, 1146).
struct KoLineTest : ::testing::Test {
  LineIntervention intervention;
  const PlotScale scale = koScale({});

  KoLineTest() { intervention.enter(LineMode::Ko, {0.5, 0}); }
  StraightLine line() const { return *intervention.line(); }
  std::optional<DrawnLineOnCanvas> drawn() const {
    const auto ends = koLineOnCanvas(scale, line(), KoLineOf::Person);
    return ends ? std::optional<DrawnLineOnCanvas>({scale, *ends}) : std::nullopt;
  }
  /// With the button down.
  bool mouse(Point place) { return intervention.mouseAt(drawn(), place, true); }
  void dragged(Point from, Point to) {
    mouse(from);
    mouse(to);
    intervention.mouseReleased();
  }
};

TEST_F(KoLineTest, KeysMoveTheLine) {
  intervention.key(ArrowKey::Right);
  EXPECT_EQ(line(), (StraightLine{0.5, 1}));
  intervention.key(ArrowKey::Up);
  EXPECT_EQ(line(), movedLine({0.5, 1}, ArrowKey::Up, kKoMotion));
}

TEST_F(KoLineTest, UndoesAndRedoes) {
  intervention.key(ArrowKey::Right);
  intervention.key(ArrowKey::Right);
  intervention.undo();
  EXPECT_EQ(line().intercept, 1);
  intervention.undo();
  intervention.undo();
  EXPECT_EQ(line().intercept, 0);
  intervention.redo();
  intervention.redo();
  intervention.redo();
  EXPECT_EQ(line().intercept, 2);
}

TEST_F(KoLineTest, AHeldEndIsNoStep) {
  intervention.end();
  intervention.enter(LineMode::Ko, movedLine({1e9, 0}, ArrowKey::Up, kKoMotion));
  EXPECT_FALSE(intervention.key(ArrowKey::Up));
  EXPECT_FALSE(intervention.undo());
  EXPECT_TRUE(intervention.key(ArrowKey::Down));
  EXPECT_TRUE(intervention.undo());
}

TEST_F(KoLineTest, AfterItsEndNothingMoves) {
  intervention.end();
  EXPECT_FALSE(intervention.key(ArrowKey::Right) || intervention.undo() || intervention.redo());
  const Segment before{{2500, 4120}, {8445, 1146}};
  EXPECT_FALSE(intervention.mouseAt(DrawnLineOnCanvas{scale, before}, {5500, 2620}, true));
  EXPECT_FALSE(intervention.mouseAt(DrawnLineOnCanvas{scale, before}, {5500, 2000}, true));
  EXPECT_FALSE(intervention.running());
  EXPECT_EQ(intervention.line(), std::nullopt);
}

TEST_F(KoLineTest, EachModeBeginsWithItsOwnHistory) {
  intervention.key(ArrowKey::Right);
  intervention.end();
  intervention.enter(LineMode::Ko, {0.25, 3});
  intervention.undo();
  EXPECT_EQ(line(), (StraightLine{0.25, 3}));
}

// ---- the mouse

TEST_F(KoLineTest, IsMovedAboutItsMiddleAndTurnedAboutItsEnd) {
  EXPECT_EQ(gripAt(drawn(), {2500, 4120}), LineGrip::Move);
  EXPECT_EQ(gripAt(drawn(), {5472, 2633}), LineGrip::Move);
  EXPECT_EQ(gripAt(drawn(), {8445, 1146}), LineGrip::Turn);
  EXPECT_EQ(gripAt(drawn(), {8445, 1246}), LineGrip::Turn) << "a little beside it";
  EXPECT_EQ(gripAt(drawn(), {8445, 1446}), LineGrip::None);
  EXPECT_EQ(gripAt(std::nullopt, {2500, 4120}), LineGrip::None) << "out of sight";
}

TEST_F(KoLineTest, IsDraggedByWholeKilopascals) {
  // 300 twips are 5.497 kPa.
  dragged({5500, 2620}, {5700, 2320});
  EXPECT_EQ(line(), (StraightLine{0.5, 5}));
  dragged({5500, 2347}, {5500, 2647});
  EXPECT_EQ(line(), (StraightLine{0.5, 0}));
}

TEST_F(KoLineTest, IsTurnedByWholeTenthsOfADegree) {
  // From the end of 0.5, 26.565 degrees, to where the line through it has 45: 184.35 steps.
  const Point end{2500 + 109 * 6000 / 110.0, 4120 - 54.5 * 3820 / 70},
      above{2500 + 60 * 6000 / 110.0, 4120 - 60 * 3820 / 70.0};
  dragged(end, above);
  EXPECT_EQ(line(), turnedLine({0.5, 0}, 184, kKoMotion));
}

TEST_F(KoLineTest, ADragThatComesBackLeavesTheLine) {
  mouse({5500, 2620});
  mouse({5500, 2000});
  mouse({5500, 2620});
  EXPECT_EQ(line(), (StraightLine{0.5, 0}));
}

TEST_F(KoLineTest, ADragIsOneStep) {
  mouse({5500, 2620});
  for (const double y : {2500.0, 2400.0, 2300.0}) mouse({5500, y});
  intervention.mouseReleased();
  EXPECT_EQ(line().intercept, 6) << "320 twips are 5.86 kPa";
  intervention.undo();
  EXPECT_EQ(line().intercept, 0);
  intervention.redo();
  EXPECT_EQ(line().intercept, 6);
}

TEST_F(KoLineTest, BesideTheLineTheMouseTakesHoldOfNothing) {
  mouse({5500, 1000});
  mouse({5500, 2620});
  EXPECT_FALSE(mouse({5500, 500})) << "nor when it comes to the line later";
  intervention.mouseReleased();
  intervention.mouseAt(drawn(), {5500, 2620}, false);
  intervention.mouseAt(drawn(), {5500, 500}, false);
  EXPECT_EQ(line(), (StraightLine{0.5, 0}));
}

TEST_F(KoLineTest, ATurnEndsBeforeTheAxis) {
  mouse({8445, 1146});
  mouse({2501, 300});
  const StraightLine steep = line();
  EXPECT_GT(steep.slope, 500);
  mouse({2500, 300});
  mouse({1000, 300});
  EXPECT_EQ(line(), steep);
}

TEST_F(KoLineTest, AKeyLetsGoOfTheLine) {
  mouse({5500, 2620});
  mouse({5500, 2320});
  intervention.key(ArrowKey::Up);
  const StraightLine turned = line();
  mouse({5500, 1000});
  EXPECT_EQ(line(), turned);
}

// ---- the other line

TEST(T90LineIntervention, IsDraggedAsTheMouseGoes) {
  // Without readings the axis of deformations is 0.32 mm long: 8750 twips a mm, 400 twips a root of a minute. 0.02 x
  // goes from (700, 300) to (4700, 2050).
  const PlotScale scale = deformationScale({}, 0);
  LineIntervention intervention;
  intervention.enter(LineMode::T90, {0.02, 0});
  const auto drawn = [&] { return DrawnLineOnCanvas{scale, *t90LineOnCanvas(scale, *intervention.line())}; };
  intervention.mouseAt(drawn(), {1500, 650}, true);
  intervention.mouseAt(drawn(), {1500, 800}, true);  // 0.01714 mm
  intervention.mouseReleased();
  EXPECT_EQ(*intervention.line(),
            movedLine(movedLine({0.02, 0}, ArrowKey::Left, kT90Motion), ArrowKey::Left, kT90Motion))
      << "downward is more";
  // From 0.02 to where it goes through 0.02 + 0.025 x: 1.14576 to 1.43210 degrees.
  intervention.mouseAt(drawn(), {4700, 300 + 0.22 * 8750}, true);
  intervention.mouseAt(drawn(), {4700, 300 + 0.27 * 8750}, true);
  EXPECT_EQ(*intervention.line(), turnedLine(raisedLine({0.02, 0}, -2, kT90Motion), -3, kT90Motion));
}

TEST(T90LineIntervention, LinesOutOfSightAreMovedByKeysAlone) {
  LineIntervention intervention;
  intervention.enter(LineMode::T90, {1e300, 0});
  intervention.mouseAt(std::nullopt, {1500, 650}, true);
  intervention.mouseAt(std::nullopt, {1500, 900}, true);
  EXPECT_EQ(*intervention.line(), (StraightLine{1e300, 0}));
  intervention.key(ArrowKey::Up);
  EXPECT_NEAR(intervention.line()->slope, 572.96, 0.05) << "the tangent of 89.9 degrees";
}

TEST(LineQuestion, HasATitleOfItsOwn) {
  testing::FakeDialogs dialogs;
  dialogs.answers = {true, false};
  EXPECT_TRUE(asksToKeepLine(dialogs));
  EXPECT_FALSE(asksToKeepLine(dialogs));
  EXPECT_EQ(dialogs.shown.front(), "! [K0曲线调整]    曲线已经调整\n保存修改后数据吗？");
}

}  // namespace
}  // namespace triaxlab
