// The workbook of a triaxial project. What it shows of a sample is what is stored and what tables of readings make of
// it.
#include "common/gbk.h"
#include "store/test_date.h"
#include "triaxial/measures.h"
#include "workbooks/cells.h"
#include "workbooks/sample_blocks.h"
#include "workbooks/test_block.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

std::vector<ConsolidationReading> consolidationOf(const TriaxialSampleRecord& record, std::size_t stage) {
  std::vector<ConsolidationReading> readings;
  std::size_t count = 0;
  for (std::size_t row = 0; row < kConsolidationRows; ++row) {
    const ConsolidationReading& reading = readings.emplace_back(
        ConsolidationReading{record.consolidationTime[row][stage], record.consolidationPorePressure[row][stage],
                             record.consolidationVolume[row][stage]});
    if (reading.seconds != 0 || reading.porePressure != 0 || reading.volume != 0) count = row + 1;
  }
  readings.resize(count);
  return readings;
}

/// B or Af, as the record has it.
SheetCell coefficientCell(float coefficient) {
  return coefficient == 0 ? SheetCell() : valueCell(FormatNumber(coefficient, NumberFormat::Hundredths));
}

SpecimenColumn columnOf(const TriaxialSampleRecord& record, std::size_t stage) {
  SpecimenColumn column;
  const auto cell = [&](std::size_t value) { return valueCell(kResultValues[value].text(record, stage)); };
  constexpr std::size_t kStoredTexts = kResultValues.size() - 2;
  column.values[0] = cell(0);
  for (std::size_t value = 0; value < kStoredTexts; ++value) column.values[1 + value] = cell(value);
  column.values[1 + kStoredTexts] = coefficientCell(record.coefficientB[stage]);
  column.values[2 + kStoredTexts] = coefficientCell(record.coefficientAf[stage]);
  column.values.back() = shearRateCell(record.shearRate[stage]);
  column.stage.cellPressure = record.cellPressure[stage];
  column.stage.consolidation = consolidationOf(record, stage);
  for (std::size_t row = 0; row < kShearRows; ++row) column.stage.shear.push_back(shearReadingOf(record, stage, row));
  return column;
}

/// Nothing beside a cohesion that nobody has found.
SheetCell frictionCell(float angle, const FixedText<9>& cohesion) {
  if (cohesion.isBlank() && angle == 0) return {};
  return valueCell(FormatNumber(angle, NumberFormat::Tenths));
}

WorkbookTest blockOf(const TriaxialSampleRecord& record) {
  WorkbookTest block{.testMethod = record.testMethod,
                     .shearMode = record.shearMode,
                     .cohesion = valueCell(record.cohesionText.view()),
                     .friction = frictionCell(record.frictionAngle, record.cohesionText),
                     .cohesionEff = valueCell(record.cohesionEffText.view()),
                     .frictionEff = frictionCell(record.frictionAngleEff, record.cohesionEffText)};
  for (std::size_t stage = 0; stage < kStages; ++stage)
    if (StageUsed(record, stage)) block.specimens.push_back(columnOf(record, stage));
  return block;
}

void addSamples(const Workspace& workspace, Workbook& workbook, const Progress& progress) {
  addSampleBlocks(workspace, ProjectKind::Triaxial, workbook, progress, [&](SheetBlock& block, std::size_t row) {
    addTest(block, blockOf(workspace.TriaxialSampleTable[row]));
  });
}

}  // namespace

extern constinit const WorkbookForm kTriaxialWorkbook{.tests = ProjectKind::Triaxial,
                                                      .question = "保存三轴数据文件为Excel格式",
                                                      .defaultName = "EXSZ",
                                                      .done = kTriaxialWorkbookDone,
                                                      .title = "三 轴 试 验 数 据 表",
                                                      .addSamples = addSamples};

}  // namespace triaxlab
