#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

#include "platform/recording_surface.h"
#include "sessions/triaxial/hand_made_samples.h"

namespace triaxlab {
namespace {

using testing::Contains;
using testing::Not;

/// The texts and the curves of a drawing.
struct Drawing {
  std::vector<std::string> texts;
  std::vector<DrawnPolyline> curves;

  explicit Drawing(const CurveSession& session) {
    RecordingSurface surface;
    session.draw(surface);
    for (const DrawnOperation& operation : surface.operations()) {
      if (const auto* text = std::get_if<DrawnText>(&operation)) texts.push_back(text->text);
      if (const auto* curve = std::get_if<DrawnPolyline>(&operation)) curves.push_back(*curve);
    }
  }
};

struct CurveSessionPicture : testing::Test {
  SessionFixture fixture{cuSample(), uuSample()};
  CurveSession session{fixture.workspace};
  Drawing drawn() const { return Drawing(session); }
};

TEST_F(CurveSessionPicture, DrawsThePageOnDisplay) {
  EXPECT_THAT(drawn().texts, Contains("主应力差与轴向应变曲线"));
  EXPECT_EQ(drawn().curves.size(), 2U);  // one a stage
  session.showPage(6);
  EXPECT_THAT(drawn().texts, Contains("有效应力比与轴向应变曲线"));
  session.selectListCell(4);
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
  const Drawing before = drawn();
  SetText(fixture.sample(0).deviatorStress[1][1], "900");
  EXPECT_EQ(drawn().curves, before.curves);
  session.edit({InputName::CellPressure, 0}, "500");
  EXPECT_EQ(drawn().texts, before.texts);
  session.showPage(1);
  EXPECT_NE(drawn().curves, before.curves);
}

TEST_F(CurveSessionPicture, AnEmptySlotHasItsFrameOnEveryPage) {
  session.selectListCell(20);
  session.keyOnMethod(MethodField::TestMethod, MethodKey::Two);
  for (int page = 1; page <= 6; ++page) {
    session.showPage(page);
    const Drawing drawing = drawn();
    EXPECT_FALSE(drawing.texts.empty()) << page;
    EXPECT_TRUE(drawing.curves.empty()) << page;
  }
}

}  // namespace
}  // namespace triaxlab
