#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sheet_writer.h"
#include "triaxial/result_values.h"
#include "triaxial/staged_test.h"
#include "workbooks/sheet_block.h"

namespace triaxlab {

/// The rows at the head of every sample, whatever its test. Texts are UTF-8.
struct SampleHead {
  std::size_t number;  // in the workbook, from 1
  std::string_view projectNoLabel;
  std::string projectNo, sampleNo, testDate;
};
void addSampleHead(SheetBlock& block, const SampleHead& head);

/// 围压, the result values from σ3 to Af, 剪切速率.
inline constexpr std::size_t kSpecimenRows = 1 + std::tuple_size_v<decltype(kResultValues)> + 1;

/// A specimen of a triaxial test in its column of the block.
struct SpecimenColumn {
  std::array<SheetCell, kSpecimenRows> values;
  TestStage stage;  // of which the pressure and the readings count
};

/// What a block of the triaxial workbook tells of a test behind its head, wherever the test comes from.
struct WorkbookTest {
  std::uint8_t testMethod = 0, shearMode = 0;  // as in a record
  SheetCell cohesion = {}, friction = {}, cohesionEff = {}, frictionEff = {};
  std::vector<SpecimenColumn> specimens = {};
};
void addTest(SheetBlock& block, const WorkbookTest& test);

/// A shear rate, 1/1000 %/min; none for 0.
SheetCell shearRateCell(std::int16_t rate);

}  // namespace triaxlab
