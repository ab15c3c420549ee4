// The workbook of an unconfined compression project: of each sample the undisturbed and the remoulded specimen.
#include <array>

#include "unconfined/reduction.h"
#include "workbooks/cells.h"
#include "workbooks/sample_blocks.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

using Record = UnconfinedSampleRecord;

// ---- values of a specimen

SheetCell heightCell(const Record& record, Specimen specimen) {
  return valueCell(record.sampleHeight[indexOf(specimen)].view());
}
SheetCell areaCell(const Record& record, Specimen specimen) {
  return valueCell(record.sampleArea[indexOf(specimen)].view());
}
SheetCell ringCell(const Record& record, Specimen specimen) {
  const std::int16_t thousandths = record.ringCoefficient[indexOf(specimen)];
  return thousandths == 0 ? SheetCell() : numberCell(thousandths / 1000.0, NumberFormat::Thousandths);
}
SheetCell peakStrainCell(const Record& record, Specimen specimen) {
  const std::optional<double> strain = strainAtPeak(record, specimen);
  return strain ? numberCell(*strain, NumberFormat::Tenths) : SheetCell();
}

struct SpecimenRow {
  const char* label;
  SheetCell (*cell)(const Record& record, Specimen specimen);
};
constexpr std::array kSpecimenRows4{SpecimenRow{"试样高度(cm):", heightCell}, SpecimenRow{"试样面积(cm²):", areaCell},
                                    SpecimenRow{"钢环系数(N/0.01mm):", ringCell},
                                    SpecimenRow{"峰值应变(%):", peakStrainCell}};

// ---- readings

struct ReadingRow {
  BothSpecimens<const char*> labels;
  const UnconfinedColumn& (*column)(const Record& record, Specimen specimen);
};
constexpr std::array kReadingRows{
    ReadingRow{{"原状ε(%):", "重塑ε(%):"},
               [](const Record& record, Specimen specimen) -> const auto& {return strainOf(record, specimen);
}  // namespace
}  // namespace triaxlab
, ReadingRow{{"原状R(0.01mm):", "重塑R(0.01mm):"},
             [](const Record& record, Specimen specimen) -> const auto& {return readingOf(record, specimen);
}
}
, ReadingRow {
  {"原状σ(kPa):", "重塑σ(kPa):"}, [](const Record& record, Specimen specimen) -> const auto& {
    return stressOf(record, specimen);
  }
}
}
;

/// Up to the last that was read or has a stress: strains stand there for readings that never came.
std::size_t readingCount(const Record& record, Specimen specimen) {
  std::size_t count = kUnconfinedRows;
  while (count > 0 && readingOf(record, specimen)[count - 1].number() == 0 &&
         stressOf(record, specimen)[count - 1].number() == 0)
    --count;
  return count;
}

void addReadings(SheetBlock& block, const Record& record, Specimen specimen) {
  const std::size_t count = readingCount(record, specimen);
  std::vector<SheetRow> rows;
  for (const ReadingRow& row : kReadingRows) {
    SheetRow& cells = rows.emplace_back(SheetRow{row.labels[indexOf(specimen)]});
    for (std::size_t i = 0; i < count; ++i) cells.push_back(valueCell(row.column(record, specimen)[i].view()));
  }
  block.add(rows);
}

void addSample(SheetBlock& block, const Record& record) {
  block.add("试验成果：", {"qu = ", valueCell(record.qu.view()), "qu′ = ", valueCell(record.quRemoulded.view()),
                           "St = ", valueCell(record.sensitivity.view())});
  block.add("试样:", {"原状", "重塑"});
  for (const SpecimenRow& row : kSpecimenRows4) {
    std::vector<SheetCell> cells;
    cells.reserve(kSpecimens.size());
    for (const Specimen specimen : kSpecimens) cells.push_back(row.cell(record, specimen));
    block.add(row.label, std::move(cells));
  }
  block.add("试验过程");
  for (const Specimen specimen : kSpecimens) addReadings(block, record, specimen);
}

void addSamples(const Workspace& workspace, Workbook& workbook, const Progress& progress) {
  addSampleBlocks(workspace, ProjectKind::Unconfined, workbook, progress,
                  [&](SheetBlock& block, std::size_t row) { addSample(block, workspace.UnconfinedSampleTable[row]); });
}

}  // namespace

extern constinit const WorkbookForm kUnconfinedWorkbook{.tests = ProjectKind::Unconfined,
                                                        .question = "保存无侧限数据文件为Excel格式",
                                                        .defaultName = "EXWCX",
                                                        .done = "无侧限试验数据保存完毕",
                                                        .title = "无 侧 限 试 验 数 据 表",
                                                        .addSamples = addSamples};

}  // namespace triaxlab
