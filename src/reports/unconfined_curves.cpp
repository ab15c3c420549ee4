#include "reports/unconfined_curves.h"

#include "platform/placed_surface.h"
#include "reports/test_pages.h"
#include "unconfined/charts/stress_chart.h"
#include "unconfined/reduction.h"

namespace triaxlab {
namespace {

// Twips of the block.
constexpr double kSampleX = 1400;
constexpr Point kCanvas{400, 0};

void drawCurves(DrawingSurface& surface, const Workspace& workspace, TestBlock block, int lineWeight) {
  const LaboratoryHabits& habits = workspace.settings.habits;
  UnconfinedSampleRecord record = workspace.UnconfinedSampleTable[block.row];
  reduceUnconfinedSample(record, habits.sensitivityFormat());

  printSampleNo(surface, kSampleX, record.sampleNo.trimmed());
  PlacedSurface canvas(surface, kCanvas);
  drawStressChart(canvas, record,
                  {.largestStrain = habits.unconfinedLargestStrain,
                   .halfPeaks = habits.strainAtHalfPeak,
                   .lineWeight = lineWeight});
  drawConstants(canvas, record);
}

constexpr TestPageForm kForm{.title = "无 侧 限 试 验 曲 线",
                             .tests = ProjectKind::Unconfined,
                             .omitsTestDate = &LaboratoryHabits::omitUnconfinedTestDate,
                             .frame = testFrame(13750),
                             .drawBlock = drawCurves};

}  // namespace

constinit const Layout kUnconfinedCurves{
    .id = "unconfined-curve",
    .title = "无侧限试验曲线",
    .kind = ProjectKind::Unconfined,
    .picturePrefix = "WCX",
    .make = [](const PrintJob& job, const Workspace& workspace) { return makeTestPages(kForm, job, workspace); }};

}  // namespace triaxlab
