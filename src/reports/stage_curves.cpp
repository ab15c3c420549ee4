#include "reports/stage_curves.h"

#include <algorithm>
#include <string>

#include "k0/charts/stage_chart.h"
#include "k0/settlement.h"
#include "platform/placed_surface.h"
#include "reports/test_pages.h"

namespace triaxlab {
namespace {

// Twips of the block.
constexpr double kSampleX = 1950, kStageX = 7000;
constexpr Point kCanvas{900, 0};
constexpr double kScale = 1.5;

std::size_t stagesOf(const Workspace& workspace, std::size_t row) {
  return static_cast<std::size_t>(
      std::clamp<int>(workspace.TK0SampleTable[row].stageCount, 0, static_cast<int>(kLoadStages)));
}

void drawStage(DrawingSurface& surface, const Workspace& workspace, TestBlock block, int lineWeight) {
  TK0SampleRecord record = workspace.TK0SampleTable[block.row];
  const std::size_t stage = block.part;
  const T90 t90 = computeStageResult(record, stage);

  printSampleNo(surface, kSampleX, record.k0.sampleNo.trimmed());
  printSamplingDepth(surface, record.k0.samplingDepth.trimmed());
  surface.text({kStageX, 0}, "第" + std::to_string(stage + 1) + "级", kTestPageFont, Colour::Black);
  PlacedSurface canvas(surface, kCanvas, kScale);
  drawStageChart(canvas, record, stage, {.first = storedFirstLineOf(record, stage), .t90 = t90},
                 {.lineWeight = lineWeight, .scale = kScale});
}

constexpr TestPageForm kForm{.title = "Ko 试 验 曲 线",
                             .tests = ProjectKind::TK0,
                             .omitsTestDate = &LaboratoryHabits::omitTK0TestDate,
                             .frame = testFrame(14000),
                             .partsOf = stagesOf,
                             .drawBlock = drawStage};

}  // namespace

constinit const Layout kStageCurves{
    .id = "tk0-curve",
    .title = "TK0试验曲线",
    .kind = ProjectKind::TK0,
    .picturePrefix = "",
    .make = [](const PrintJob& job, const Workspace& workspace) { return makeTestPages(kForm, job, workspace); }};

}  // namespace triaxlab
