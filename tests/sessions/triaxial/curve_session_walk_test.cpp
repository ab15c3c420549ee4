#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "platform/recording_surface.h"
#include "sessions/triaxial/hand_made_samples.h"
#include "support/fake_dialogs.h"

namespace triaxlab {
namespace {

/// What holds of the window whatever the person did before.
void expectSoundState(const CurveSession& session, const TriaxialSampleRecord& sample) {
  const CurveState now = session.state();
  const bool cu = sample.testMethod == kCU;
  EXPECT_NE(now.ratioEnvelope.checked, now.differenceEnvelope.checked);
  EXPECT_EQ(now.ratioEnvelope.enabled, cu);
  EXPECT_TRUE(cu || !now.ratioEnvelope.checked);
  EXPECT_TRUE(now.currentCurvePage >= 1 && now.currentCurvePage <= 6);
  EXPECT_TRUE(cu || now.currentCurvePage != 2);
  EXPECT_TRUE(sample.testMethod != kUU || now.currentCurvePage <= 3);
  EXPECT_TRUE(now.currentTablePage >= 1 && now.currentTablePage <= (cu ? 6 : 3));
  EXPECT_EQ(now.tableScrollMax, now.currentTablePage == 1 ? 3 : 200);
  EXPECT_TRUE(now.tableTop >= 0 && now.tableTop <= now.tableScrollMax);
  EXPECT_TRUE(now.listTop >= 0 && now.listTop <= 981);
  EXPECT_EQ(session.sampleRow(), static_cast<std::size_t>(now.listTop + now.selectedLine - 1));
  EXPECT_TRUE(!now.resultCell.visible || now.currentTablePage == 1);
  EXPECT_FALSE(now.intervention.running() && now.listCell.visible);
  EXPECT_EQ(now.intervention.phase == Phase::Envelope,
            now.intervention.running() && now.currentCurvePage >= 2 && now.currentCurvePage <= 3);
}

/// Steps at random, each one that a person can take.
void walk(CurveSession& session, const Workspace& workspace, std::mt19937& random, int steps) {
  const auto any = [&random](int from, int to) { return std::uniform_int_distribution(from, to)(random); };
  const std::array<InputName, 8> inputs{InputName::ListCell,    InputName::ResultCell,  InputName::SoilName,
                                        InputName::Density,     InputName::ProjectName, InputName::CellPressure,
                                        InputName::StrainLimit, InputName::DatePart};
  testing::FakeDialogs dialogs;
  const std::array<const char*, 6> texts{"", "100", "砂土😀", "-1e30", "0.5", "\x01\xFF"};
  const std::vector<std::function<void()>> doings{
      [&] { session.selectListCell(any(-1, 50)); },
      [&] { session.scrollList(any(-5, 3)); },
      [&] {
        session.keyInList(static_cast<CellKey>(any(0, 6)), {any(0, 1) == 1, any(0, 1) == 1});
      },
      [&] { session.showPage(any(0, 7)); },
      [&] { session.previousPage(); },
      [&] { session.nextPage(); },
      [&] { session.previousTablePage(); },
      [&] { session.nextTablePage(); },
      [&] { session.scrollTable(any(-5, 300)); },
      [&] { session.selectTableCell(any(-1, 200)); },
      [&] {
        session.edit({inputs.at(static_cast<std::size_t>(any(0, 7))), any(0, 2)},
                     texts.at(static_cast<std::size_t>(any(0, 5))));
      },
      [&] { session.finishTyping(); },
      [&] { session.keyOnMethod(static_cast<MethodField>(any(0, 1)), static_cast<MethodKey>(any(0, 3))); },
      [&] { session.applyStrainLimits(); },
      [&] { session.markSaved(); },
      [&] { session.reprocess(); },
      [&] { session.enterIntervention(); },
      [&] {
        for (int i = any(0, 60); i > 0; --i) session.intervention().key(static_cast<ArrowKey>(any(0, 3)));
      },
      [&] { any(0, 2) == 0 ? session.intervention().redo() : session.intervention().undo(); },
      [&] { session.intervention().selectStage(static_cast<std::size_t>(any(0, 5))); },
      [&] { session.intervention().chooseEffective(any(0, 1) == 1); },
      [&] {
        session.edit({InputName::Factor}, texts.at(static_cast<std::size_t>(any(0, 5))));
        session.intervention().multiply(dialogs);
      },
      [&] {
        session.edit({InputName::Summand}, texts.at(static_cast<std::size_t>(any(0, 5))));
        session.intervention().add(dialogs);
      },
      [&] {
        session.intervention().mouseAt({double(any(-100, 7100)), double(any(-100, 4800))}, any(0, 1) == 1);
      },
      [&] {
        dialogs.answers = {any(0, 1) == 1};
        session.leaveIntervention(dialogs);
      },
      [&] { session.load(); },
  };
  for (int i = 0; i < steps; ++i) {
    doings.at(static_cast<std::size_t>(any(0, static_cast<int>(doings.size()) - 1)))();
    expectSoundState(session, workspace.TriaxialSampleTable.at(session.sampleRow()));
    RecordingSurface surface;
    session.draw(surface);
    EXPECT_FALSE(surface.operations().empty());
  }
}

TEST(CurveSessionWalk, AnyOrderOfStepsLeavesASoundState) {
  SessionFixture fixture{cuSample(), uuSample(), cdSample(), {}, cuSample("GC2", "T1")};
  CurveSession session(fixture.workspace);
  std::mt19937 random(1);
  walk(session, fixture.workspace, random, 600);
}

TEST(CurveSessionWalk, RecordsOfAnyBytesAreShown) {
  SessionFixture fixture{};
  std::mt19937 random(2);
  for (std::size_t row = 0; row < 8; ++row) {
    TriaxialSampleRecord& sample = fixture.sample(row);
    std::generate_n(writableBytesOf(sample).begin(), sizeof sample,
                    [&random] { return static_cast<std::byte>(random() & 0xFF); });
    SetText(sample.projectNo, "GC1");
    SetText(sample.sampleNo, "T");
    sample.testMethod = static_cast<std::uint8_t>(row % 4);
  }
  CurveSession session(fixture.workspace);
  walk(session, fixture.workspace, random, 300);
}

}  // namespace
}  // namespace triaxlab
