#include "workbooks/test_block.h"

#include <algorithm>
#include <span>

#include "common/text_number.h"
#include "triaxial/method_names.h"
#include "triaxial/record.h"
#include "workbooks/cells.h"

namespace triaxlab {
namespace {

constexpr std::array<const char*, kSpecimenRows> kSpecimenLabels{
    "    围压:", "σ3", "σ1f", "σ3f′", "σ1f′", "⊙(σ1+σ3)/2", "R",  "⊙′(σ1′+σ3′)/2", "R′",
    "h0",        "h1", "A0",  "Ac",   "ΔV",   "B",          "Af", "剪切速率"};

/// In front of the values of cohesion and friction, total and effective. A method without a name has none.
using ResultLabels = std::array<const char*, 4>;
constexpr std::array<ResultLabels, 4> kResultLabels{
    {{}, {"Cu = ", "φu = "}, {"Ccu = ", "φcu = ", "C′=", "φ′="}, {"Ccd = ", "φcd = "}}};

void addResults(SheetBlock& block, const WorkbookTest& test) {
  const ResultLabels& labels = kResultLabels[test.testMethod < kResultLabels.size() ? test.testMethod : 0];
  const std::array values{&test.cohesion, &test.friction, &test.cohesionEff, &test.frictionEff};
  std::vector<SheetCell> cells;
  for (std::size_t i = 0; i < labels.size() && labels[i] != nullptr; ++i) {
    cells.emplace_back(labels[i]);
    cells.push_back(*values[i]);
  }
  block.add("试验成果：", std::move(cells));
}

void addSpecimens(SheetBlock& block, const WorkbookTest& test) {
  for (std::size_t row = 0; row < kSpecimenRows; ++row) {
    std::vector<SheetCell> cells;
    for (const SpecimenColumn& specimen : test.specimens) cells.push_back(specimen.values[row]);
    block.add(kSpecimenLabels[row], std::move(cells));
  }
}

// ---- readings

// The first reading starts the clock and the burette.
SheetCell minutesCell(const ConsolidationReading& reading, bool isFirst) {
  return reading.seconds < 1 && !isFirst ? SheetCell() : minutesOfSeconds(reading.seconds);
}
SheetCell porePressureCell(const ConsolidationReading& reading, bool /*isFirst*/) {
  return reading.porePressure == 0 ? SheetCell() : numberCell(reading.porePressure / 10.0, NumberFormat::Tenths);
}
SheetCell drainageCell(const ConsolidationReading& reading, bool isFirst) {
  if (isFirst) return numberCell(0, NumberFormat::Hundredths);
  return reading.volume == 0 ? SheetCell() : numberCell(reading.volume / 100.0, NumberFormat::Hundredths);
}

struct ConsolidationRow {
  const char* label;
  SheetCell (*cell)(const ConsolidationReading& reading, bool isFirst);
};
constexpr std::array kConsolidationRows3{ConsolidationRow{"    时间:", minutesCell},
                                         ConsolidationRow{"固结孔压:", porePressureCell},
                                         ConsolidationRow{"固结排水:", drainageCell}};

void addConsolidation(SheetBlock& block, const WorkbookTest& test) {
  block.add("固结过程");
  if (test.testMethod == kUU) return;
  for (const SpecimenColumn& specimen : test.specimens) {
    std::vector<SheetRow> rows;
    for (const ConsolidationRow& row : kConsolidationRows3) {
      SheetRow& cells = rows.emplace_back(SheetRow{row.label});
      for (const ConsolidationReading& reading : specimen.stage.consolidation)
        cells.push_back(row.cell(reading, cells.size() == 1));
    }
    block.add(rows);
  }
}

struct ShearRow {
  const char* label;
  DerivedColumn column;
  bool effective = false;  // of effective stresses, which CU alone has
};
constexpr std::array kShearRows11{ShearRow{"εi(%):", DerivedColumn::Strain},
                                  ShearRow{"σ1-σ3(kPa):", DerivedColumn::DeviatorStress},
                                  ShearRow{"σ1(kPa):", DerivedColumn::Sigma1},
                                  ShearRow{"(σ1+σ3)/2(kPa):", DerivedColumn::HalfSum},
                                  ShearRow{"(σ1-σ3)/2(kPa):", DerivedColumn::HalfDifference},
                                  ShearRow{"u (kPa):", DerivedColumn::PorePressure},
                                  ShearRow{"σ1′(kPa):", DerivedColumn::Sigma1Eff, true},
                                  ShearRow{"σ3′(kPa):", DerivedColumn::Sigma3Eff, true},
                                  ShearRow{"(σ1′+σ3′)/2(kPa):", DerivedColumn::HalfSumEff, true},
                                  ShearRow{"σ1′/σ3'(kPa):", DerivedColumn::RatioEff, true},
                                  ShearRow{"ΔVi (ml):", DerivedColumn::VolumeChange}};

/// Up to the last reading that has a stress.
std::span<const ShearReading> readingsOf(const TestStage& stage) {
  std::size_t count = stage.shear.size();
  while (count > 0 && stage.shear[count - 1].deviatorStress.number() == 0) --count;
  return std::span(stage.shear).first(count);
}

void addShear(SheetBlock& block, const WorkbookTest& test) {
  block.add("剪切过程");
  for (const SpecimenColumn& specimen : test.specimens) {
    const double pressure = specimen.stage.cellPressure.number();
    std::vector<SheetRow> rows;
    for (const ShearRow& row : kShearRows11) {
      SheetRow& cells = rows.emplace_back(SheetRow{row.label});
      if (row.effective && test.testMethod != kCU) continue;
      for (const ShearReading& reading : readingsOf(specimen.stage))
        cells.push_back(valueCell(derivedText(reading, pressure, row.column)));
    }
    block.add(rows);
  }
}

}  // namespace

void addSampleHead(SheetBlock& block, const SampleHead& head) {
  constexpr int kDigits = 5;
  block.add("    序号:", textCell(FormatPadded(static_cast<std::int64_t>(head.number), kDigits)));
  block.add(std::string(head.projectNoLabel) + ":", textCell(head.projectNo));
  block.add("试样编号:", textCell(std::string_view(head.sampleNo).substr(0, head.sampleNo.find(' '))));
  block.add("试验日期:", textCell(head.testDate));
}

SheetCell shearRateCell(std::int16_t rate) {
  return rate == 0 ? SheetCell() : numberCell(rate / 1000.0, NumberFormat::Thousandths);
}

void addTest(SheetBlock& block, const WorkbookTest& test) {
  const std::string method = methodLine(test.testMethod, test.shearMode);
  block.add("试验方法:", textCell(method.empty() ? method : method + ")"));
  addResults(block, test);
  addSpecimens(block, test);
  addConsolidation(block, test);
  addShear(block, test);
}

}  // namespace triaxlab
