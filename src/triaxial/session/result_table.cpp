#include "triaxial/session/result_table.h"

#include <algorithm>

#include "triaxial/derived_columns.h"
#include "triaxial/session/typed_text.h"

namespace triaxlab {
namespace {

/// What a stage's two columns beside its strain show.
struct Quantity {
  const char* head;
  DerivedColumn column;
};
using QuantityPair = std::array<Quantity, 2>;

constexpr const char* kStrainHead = "垂直应变";

/// By table page, from the second on.
constexpr std::array<QuantityPair, 5> kQuantities{{
    {{{"(σ1-σ3)/2", DerivedColumn::HalfDifference}, {"(σ1+σ3)/2", DerivedColumn::HalfSum}}},
    {{{"σ1", DerivedColumn::Sigma1}, {"σ1-σ3", DerivedColumn::DeviatorStress}}},
    {{{"孔隙压力(kPa)", DerivedColumn::PorePressure}, {"σ1′/σ3′", DerivedColumn::RatioEff}}},
    {{{"(σ1′-σ3′)/2", DerivedColumn::HalfDifferenceEff}, {"(σ1′+σ3′)/2", DerivedColumn::HalfSumEff}}},
    {{{"σ3′", DerivedColumn::Sigma3Eff}, {"σ1′", DerivedColumn::Sigma1Eff}}},
}};

const QuantityPair& quantitiesOf(TablePage page) {
  return kQuantities.at(static_cast<std::size_t>(page) - static_cast<std::size_t>(TablePage::StressCircle));
}

constexpr std::size_t firstColumnOf(std::size_t stage) { return 1 + 3 * stage; }
/// Results stand in the middle one of the stage's columns.
constexpr std::size_t resultColumnOf(std::size_t stage) { return firstColumnOf(stage) + 1; }
constexpr std::size_t cellIndex(std::size_t line, std::size_t column) { return line * kTableColumns + column; }

}  // namespace

int ResultTable::scrollMax() const {
  const auto rows = static_cast<int>(m_page == TablePage::Results ? kResultRows : kShearRows);
  return rows - kTableLines;
}

int ResultTable::openLabel() const {
  return static_cast<int>(
      cellIndex(m_openCell->row - static_cast<std::size_t>(m_top), resultColumnOf(m_openCell->stage)));
}

void ResultTable::setPage(TablePage page) {
  if (page == m_page) return;
  if (page == TablePage::Results || m_page == TablePage::Results) m_top = 0;
  m_page = page;
  close();
}

void ResultTable::scroll(int top) {
  m_top = std::clamp(top, 0, scrollMax());
  close();
}

void ResultTable::select(int labelIndex) {
  close();
  if (m_page != TablePage::Results || labelIndex < 0 || labelIndex >= kTableCells) return;
  const auto line = static_cast<std::size_t>(labelIndex / kTableColumns);
  const auto column = static_cast<std::size_t>(labelIndex % kTableColumns);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const ResultCell cell{line + static_cast<std::size_t>(m_top), stage};
    if (column == resultColumnOf(stage) && isTyped(cell.row)) m_openCell = cell;
  }
}

void ResultTable::refresh(const TriaxialSampleRecord& record) {
  m_columnHeads.fill({});
  m_cells.fill({});
  if (m_page == TablePage::Results)
    refreshResults(record);
  else
    refreshRows(record);
}

void ResultTable::refreshResults(const TriaxialSampleRecord& record) {
  for (std::size_t line = 0; line < kTableLines; ++line) {
    const std::size_t row = line + static_cast<std::size_t>(m_top);
    m_cells[cellIndex(line, 0)] = resultLabel(row);
    for (std::size_t stage = 0; stage < kStages; ++stage)
      m_cells[cellIndex(line, resultColumnOf(stage))] = shownText(resultText(record, {row, stage}));
  }
}

void ResultTable::refreshRows(const TriaxialSampleRecord& record) {
  const auto& [first, second] = quantitiesOf(m_page);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const std::size_t column = firstColumnOf(stage);
    m_columnHeads[column] = kStrainHead;
    m_columnHeads[column + 1] = first.head;
    m_columnHeads[column + 2] = second.head;
    for (std::size_t line = 0; line < kTableLines; ++line) {
      const std::size_t row = line + static_cast<std::size_t>(m_top), cell = cellIndex(line, column);
      m_cells[cell] = shownText(derivedText(record, stage, row, DerivedColumn::Strain));
      m_cells[cell + 1] = shownText(derivedText(record, stage, row, first.column));
      m_cells[cell + 2] = shownText(derivedText(record, stage, row, second.column));
    }
  }
}

}  // namespace triaxlab
