#include <random>
#include <span>

#include "k0/charts/ko_chart.h"
#include "k0/charts/stage_chart.h"
#include "platform/files.h"
#include "sessions/k0/ko_samples.h"
#include "sessions/k0/tk0_session.h"
#include "support/fake_dialogs.h"

namespace triaxlab::testing {
namespace {

/// A record as a damaged file may hold it: any bytes, or bytes of which numbers are made.
TK0SampleRecord damagedRecord(std::mt19937& random, bool numberBytes) {
  constexpr std::string_view kNumbers = "0123456789    .-+EeDd";
  TK0SampleRecord record;
  for (std::byte& byte : writableBytesOf(record)) {
    const auto value = random();
    byte = static_cast<std::byte>(numberBytes ? kNumbers[value % kNumbers.size()] : static_cast<char>(value & 0xFF));
  }
  SetText(record.k0.axialPressure[0], "100.0");
  return record;
}

bool liesWithin(const DrawnLine& line, const PlotFrame& frame, double top) {
  for (const TwipPoint end : {line.from, line.to})
    if (end.x < frame.left || end.x > frame.right || end.y < top || end.y > frame.bottom) return false;
  return true;
}

struct Person {
  TK0Session& session;
  std::mt19937& random;

  void moveTheLine() const {
    constexpr ArrowKey kKeys[] = {ArrowKey::Left, ArrowKey::Right, ArrowKey::Up, ArrowKey::Down};
    for (int i = 0; i < 5; ++i) session.key(kKeys[random() % 4]);
    for (int i = 0; i < 3; ++i) {
      const Point place{static_cast<double>(random() % 9000), static_cast<double>(random() % 5100)};
      session.mouseOnKoChart(place, i < 2);
      session.mouseOnStageChart(place, i < 2);
    }
    session.undo();
  }
};

TEST(DamagedRecords, WhateverTheyHoldTheChartsStayInTheirPlots) {
  std::mt19937 random(20240517);
  Workspace workspace;
  FakeDialogs dialogs;
  for (int i = 0; i < 100; ++i) {
    workspace.TK0SampleTable[0] = damagedRecord(random, i % 2 == 0);
    TK0Session session(workspace);
    session.showStage(i % 4 == 0 ? 0 : static_cast<int>(random() % kLoadStages));
    if (i % 3 == 0) session.moveKoLine();
    if (i % 3 == 1) session.moveT90Line();
    Person{session, random}.moveTheLine();
    RecordingSurface ko, stage;
    session.drawKo(ko);
    session.drawStage(stage);
    for (const DrawnLine& line : all<DrawnLine>(ko.operations())) ASSERT_TRUE(liesWithin(line, kKoPlot, 0)) << i;
    for (const DrawnLine& line : all<DrawnLine>(stage.operations()))
      ASSERT_TRUE(liesWithin(line, kStagePlot, kStagePlot.top)) << i;
    for (const DrawnPolyline& curve : all<DrawnPolyline>(stage.operations()))
      for (const TwipPoint point : curve.points)
        ASSERT_TRUE(kStagePlot.contains({static_cast<double>(point.x), static_cast<double>(point.y)})) << i;
    dialogs.answers = {true};
    session.leaveIntervention(dialogs);
  }
}

}  // namespace
}  // namespace triaxlab::testing
