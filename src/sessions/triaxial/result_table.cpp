#include "sessions/triaxial/result_table.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "common/gbk.h"
#include "sessions/cell_moves.h"
#include "triaxial/derived_columns.h"

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

// The values of the results page counted from left to right, line by line.
constexpr int kStageCount = static_cast<int>(kStages),
              kResultCount = static_cast<int>(kResultValues.size()) * kStageCount;
constexpr ResultCell resultCell(int number) {
  return {static_cast<std::size_t>(number / kStageCount), static_cast<std::size_t>(number % kStageCount)};
}

}  // namespace

int ResultTable::scrollMax() const { return static_cast<int>(rowCount()) - kTableLines; }

std::size_t ResultTable::rowCount() const { return m_page == TablePage::Results ? kResultValues.size() : kShearRows; }

int ResultTable::textCell() const {
  if (m_page != TablePage::Results) return -1;
  ResultCell cell = m_openCell.value_or(ResultCell{static_cast<std::size_t>(m_top), 0});
  while (!kResultValues.at(cell.row).isTyped()) ++cell.row;
  return static_cast<int>(cellIndex(cell.row - static_cast<std::size_t>(m_top), resultColumnOf(cell.stage)));
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

void ResultTable::select(int index) {
  close();
  if (m_page != TablePage::Results || index < 0 || index >= kTableCells) return;
  const auto line = static_cast<std::size_t>(index / kTableColumns);
  const auto column = static_cast<std::size_t>(index % kTableColumns);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const ResultCell cell{line + static_cast<std::size_t>(m_top), stage};
    if (column == resultColumnOf(stage) && kResultValues.at(cell.row).isTyped()) m_openCell = cell;
  }
}

bool ResultTable::moveCell(int step) {
  int number = static_cast<int>(m_openCell->row) * kStageCount + static_cast<int>(m_openCell->stage);
  do number += step;
  while (number >= 0 && number < kResultCount && !kResultValues.at(resultCell(number).row).isTyped());
  if (number < 0 || number >= kResultCount) return false;
  m_openCell = resultCell(number);
  const auto row = static_cast<int>(m_openCell->row);
  m_top = std::clamp(m_top, row - (kTableLines - 1), row);
  return true;
}

bool ResultTable::key(CellKey key, CursorPlace cursor) {
  if (!m_openCell) return false;
  return moveByKey(
      key, cursor, [this](int step) { moveCell(step * kStageCount); }, [this](int step) { return moveCell(step); });
}

void ResultTable::refresh(const TriaxialSampleRecord& record) {
  m_columnHeads = heads();
  for (std::size_t line = 0; line < kTableLines; ++line) {
    const TableRow texts = rowTexts(record, line + static_cast<std::size_t>(m_top));
    std::ranges::copy(texts, m_cells.begin() + static_cast<std::ptrdiff_t>(cellIndex(line, 0)));
  }
}

ResultTable::TableRow ResultTable::heads() const {
  TableRow heads;
  if (m_page == TablePage::Results) return heads;
  const auto& [first, second] = quantitiesOf(m_page);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const std::size_t column = firstColumnOf(stage);
    heads[column] = kStrainHead;
    heads[column + 1] = first.head;
    heads[column + 2] = second.head;
  }
  return heads;
}

ResultTable::TableRow ResultTable::rowTexts(const TriaxialSampleRecord& record, std::size_t row) const {
  TableRow texts;
  if (m_page == TablePage::Results) {
    texts[0] = kResultValues.at(row).label;
    for (std::size_t stage = 0; stage < kStages; ++stage)
      texts[resultColumnOf(stage)] = gbkToUtf8(kResultValues.at(row).text(record, stage));
    return texts;
  }
  const auto& [first, second] = quantitiesOf(m_page);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const std::size_t column = firstColumnOf(stage);
    texts[column] = gbkToUtf8(derivedText(record, stage, row, DerivedColumn::Strain));
    texts[column + 1] = gbkToUtf8(derivedText(record, stage, row, first.column));
    texts[column + 2] = gbkToUtf8(derivedText(record, stage, row, second.column));
  }
  return texts;
}

std::string ResultTable::wholePage(const TriaxialSampleRecord& record) const {
  const bool ofResults = m_page == TablePage::Results;
  std::vector<std::size_t> columns;  // that the page uses
  TableRow stages;
  if (ofResults) columns.push_back(0);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const std::size_t first = ofResults ? resultColumnOf(stage) : firstColumnOf(stage);
    stages[first] = "P" + std::to_string(stage + 1);
    for (std::size_t column = first; column < first + (ofResults ? 1 : 3); ++column) columns.push_back(column);
  }
  const auto line = [&columns](const TableRow& row) {
    std::string text;
    for (const std::size_t column : columns) text += row[column] + (column == columns.back() ? '\n' : '\t');
    return text;
  };
  std::string text = line(stages);
  if (!ofResults) text += line(heads());
  std::string pending;  // rows without a value, wanted only in front of one that has some
  for (std::size_t row = 0; row < rowCount(); ++row) {
    const TableRow texts = rowTexts(record, row);
    pending += line(texts);
    if (std::ranges::any_of(texts, [](const std::string& cell) { return !cell.empty(); }))
      text += std::exchange(pending, {});
  }
  return text;
}

}  // namespace triaxlab
