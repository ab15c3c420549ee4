#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing_surface.h"
#include "triaxial/session/hand_made_samples.h"

namespace triaxlab {
namespace {

using testing::Contains;
using testing::Not;

/// Keeps the texts and the curves of a drawing.
struct Sketch : DrawingSurface {
  void line(Point, Point, Stroke) override {}
  void box(Point, Point, Stroke, std::optional<Colour>) override {}
  void circle(Point, double, Stroke, std::optional<Colour>) override {}
  void polyline(std::span<const Point> points, Stroke) override { curves.emplace_back(points.begin(), points.end()); }
  void text(Point, std::string_view utf8, const Font&, Colour, bool) override { texts.emplace_back(utf8); }

  std::vector<std::string> texts;
  std::vector<std::vector<Point>> curves;
};

struct CurveSessionPicture : testing::Test {
  SessionFixture fixture{cuSample(), uuSample()};
  CurveSession session{fixture.workspace};
  Sketch drawn() const {
    Sketch sketch;
    session.draw(sketch);
    return sketch;
  }
};

TEST_F(CurveSessionPicture, DrawsThePageOnDisplay) {
  EXPECT_THAT(drawn().texts, Contains("主应力差与轴向应变曲线"));
  EXPECT_EQ(drawn().curves.size(), 2U);  // one a stage
  session.showPage(6);
  EXPECT_THAT(drawn().texts, Contains("有效应力比与轴向应变曲线"));
  session.selectLabel(4);
  EXPECT_THAT(drawn().texts, Contains("主应力差与轴向应变曲线"));
  EXPECT_EQ(drawn().curves.size(), 1U);
}

TEST_F(CurveSessionPicture, DrawsTheAxisOfALargestStressOf120) {
  // Steps of 5 until 14 s is at or above 120: s = 10, labels 0, 20, ... 120.
  EXPECT_THAT(drawn().texts, Contains("120"));
  EXPECT_THAT(drawn().texts, Not(Contains("140")));
}

TEST_F(CurveSessionPicture, CohesionIsShownWithTheLaboratorysDecimals) {
  fixture.workspace.settings.habits.cohesionDecimals = 2;
  session.showPage(3);
  const auto texts = drawn().texts;
  EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), [](const std::string& text) {
    return text.find("0.00") != std::string::npos;
  })) << testing::PrintToString(texts);
}

TEST_F(CurveSessionPicture, StaysAsDrawnUntilTheSampleIsShownAgain) {
  const Sketch before = drawn();
  SetText(fixture.sample(0).deviatorStress[1][1], "900");
  EXPECT_EQ(drawn().curves, before.curves);
  session.edit({BoxName::Text7, 0}, "500");
  EXPECT_EQ(drawn().texts, before.texts);
  session.showPage(1);
  EXPECT_NE(drawn().curves, before.curves);
}

TEST_F(CurveSessionPicture, AnEmptySlotHasItsFrameOnEveryPage) {
  session.selectLabel(20);
  session.keyOnMethodField(1, MethodKey::Two);
  for (int page = 1; page <= 6; ++page) {
    session.showPage(page);
    const Sketch sketch = drawn();
    EXPECT_FALSE(sketch.texts.empty()) << page;
    EXPECT_TRUE(sketch.curves.empty()) << page;
  }
}

}  // namespace
}  // namespace triaxlab
