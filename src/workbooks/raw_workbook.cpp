#include "workbooks/raw_workbook.h"

#include <utility>

#include "triaxial/method_names.h"
#include "workbooks/cells.h"
#include "workbooks/test_block.h"
#include "workbooks/workbook.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

/// Those of the result values that a controller measures; the others are found later.
using StageValue = FixedText<6> TestStage::*;
constexpr StageValue kFoundLater = nullptr;
constexpr std::array<StageValue, std::tuple_size_v<decltype(kResultValues)>> kStageValues{
    &TestStage::cellPressure,
    kFoundLater,
    kFoundLater,
    kFoundLater,
    kFoundLater,
    kFoundLater,
    kFoundLater,
    kFoundLater,
    &TestStage::initialHeight,
    &TestStage::consolidatedHeight,
    &TestStage::initialArea,
    &TestStage::consolidatedArea,
    &TestStage::consolidationDrainage,
    kFoundLater,
    kFoundLater};

SpecimenColumn columnOf(TestStage stage, std::int16_t shearRate) {
  SpecimenColumn column;
  const auto cell = [&stage](StageValue value) {
    return value != kFoundLater ? valueCell((stage.*value).view()) : SheetCell();
  };
  column.values.front() = cell(kStageValues.front());
  for (std::size_t value = 0; value < kStageValues.size(); ++value)
    column.values[1 + value] = cell(kStageValues[value]);
  column.values.back() = shearRateCell(shearRate);
  column.stage = std::move(stage);
  return column;
}

void addRawTest(SheetBlock& block, StagedTest test, std::size_t number, std::string_view projectNoLabel) {
  addSampleHead(block, {.number = number,
                        .projectNoLabel = projectNoLabel,
                        .projectNo = test.projectNo,
                        .sampleNo = test.sampleNo,
                        .testDate = test.testDate});
  block.add("工程名称:", textCell(test.projectName));
  block.add("保存时间:", textCell(test.savedOn));
  block.add("试样座面积:", valueCellOfUtf8(test.baseArea));
  block.add("试样类型:", textCell(test.kind));
  block.add("固结方法:", valueCellOfUtf8(test.consolidation));
  block.add("试验方法:", textCell(methodNames(test.testMethod).abbreviation));
  WorkbookTest told{.testMethod = test.testMethod, .shearMode = test.shearMode};
  for (TestStage& stage : test.stages) told.specimens.push_back(columnOf(std::move(stage), test.shearRate));
  addTest(block, told);
}

}  // namespace

void writeRawTests(const std::filesystem::path& file, std::size_t count,
                   const std::function<StagedTest(std::size_t index)>& test, std::string_view projectNoLabel,
                   const Progress& progress) {
  writeWorkbook(file, [&](Workbook& workbook) {
    const std::string_view title = workbookFormOf(ProjectKind::Triaxial).title;
    if (count == 0) workbook.addHead(title, "");
    for (std::size_t i = 0; i < count; ++i) {
      StagedTest next = test(i);
      if (i == 0) workbook.addHead(title, next.projectName);
      SheetBlock block = workbook.newBlock();
      addRawTest(block, std::move(next), i + 1, projectNoLabel);
      workbook.add(block);
      tell(progress, i + 1, count);
    }
  });
}

}  // namespace triaxlab
