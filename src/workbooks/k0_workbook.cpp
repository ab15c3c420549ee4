// The workbooks of K0 and TK0 projects. A TK0 sample has all that a K0 sample has, and how each of its stages settled.
#include <fmt/core.h>

#include <array>

#include "k0/settlement.h"
#include "workbooks/cells.h"
#include "workbooks/sample_blocks.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

/// Up to the last stage that was run.
std::size_t stageCount(const K0SampleRecord& record) {
  std::size_t count = kLoadStages;
  while (count > 0 && !isLoaded(record, count - 1)) --count;
  return count;
}

struct StageRow {
  const char* label;
  PerLoadStage<FixedText<6>> K0SampleRecord::*texts;
};
constexpr std::array kStageRows{StageRow{"轴向变形量(mm):", &K0SampleRecord::axialDeformation},
                                StageRow{"轴向压力(kPa):", &K0SampleRecord::axialPressure},
                                StageRow{"侧向压力(kPa):", &K0SampleRecord::lateralPressure}};

void addStages(SheetBlock& block, const K0SampleRecord& record) {
  block.add("取土深度:", gbkTextCell(record.samplingDepth.view()));
  block.add("试验成果：",
            {"Ko = ", valueCell(record.koValue.view()), "截距(kPa) = ", valueCell(record.koIntercept.view())});
  for (const StageRow& row : kStageRows) {
    std::vector<SheetCell> cells;
    for (std::size_t stage = 0; stage < stageCount(record); ++stage)
      cells.push_back(valueCell((record.*row.texts)[stage].view()));
    block.add(row.label, std::move(cells));
  }
}

// ---- how stages settled

void addT90(SheetBlock& block, const TK0SampleRecord& record) {
  TK0SampleRecord constructed = record;
  const PerLoadStage<T90> results = computeStageResults(constructed);
  std::vector<SheetCell> cells;
  for (std::size_t stage = 0; stage < stageCount(record.k0); ++stage)
    cells.push_back(isLoaded(record.k0, stage) ? numberCell(results[stage].minutes(), NumberFormat::Tenths)
                                               : SheetCell());
  block.add("T90(min):", std::move(cells));
}

/// Row 0 is the zero reading; behind it a time of 0 is none.
std::size_t timeCount(const TK0SampleRecord& record) {
  std::size_t count = kTimeRows;
  while (count > 1 && record.elapsedSeconds[count - 1] == 0) --count;
  return count;
}

void addSettlement(SheetBlock& block, const TK0SampleRecord& record) {
  block.add("沉降过程");
  SheetRow times{"    时间:"};
  const std::size_t count = timeCount(record);
  for (std::size_t row = 0; row < count; ++row) times.push_back(minutesOfSeconds(record.elapsedSeconds[row]));
  block.add(std::span<const SheetRow>(&times, 1));
  for (std::size_t stage = 0; stage < stageCount(record.k0); ++stage) {
    if (!isLoaded(record.k0, stage)) continue;
    std::vector<SheetRow> rows{{fmt::format("第{}级变形量(mm):", stage + 1)},
                               {fmt::format("第{}级压力(kPa):", stage + 1)}};
    for (std::size_t row = 0; row < count; ++row) {
      rows[0].push_back(valueCell(record.deformationSeries[row][stage].view()));
      rows[1].push_back(valueCell(record.pressureSeries[row][stage].view()));
    }
    block.add(rows);
  }
}

void addK0Samples(const Workspace& workspace, Workbook& workbook, const Progress& progress) {
  addSampleBlocks(workspace, ProjectKind::K0, workbook, progress,
                  [&](SheetBlock& block, std::size_t row) { addStages(block, workspace.K0SampleTable[row]); });
}

void addTK0Samples(const Workspace& workspace, Workbook& workbook, const Progress& progress) {
  addSampleBlocks(workspace, ProjectKind::TK0, workbook, progress, [&](SheetBlock& block, std::size_t row) {
    const TK0SampleRecord& record = workspace.TK0SampleTable[row];
    addStages(block, record.k0);
    addT90(block, record);
    addSettlement(block, record);
  });
}

}  // namespace

extern constinit const WorkbookForm kK0Workbook{.tests = ProjectKind::K0,
                                                .question = "保存K0数据文件为Excel格式",
                                                .defaultName = "EXK0",
                                                .done = "K0试验数据保存完毕",
                                                .title = "Ko 试 验 数 据 表",
                                                .addSamples = addK0Samples};
extern constinit const WorkbookForm kTK0Workbook{.tests = ProjectKind::TK0,
                                                 .question = "保存TK0数据文件为Excel格式",
                                                 .defaultName = "EXTK0",
                                                 .done = "TK0试验数据保存完毕",
                                                 .title = "TKo 试 验 数 据 表",
                                                 .addSamples = addTK0Samples};

}  // namespace triaxlab
