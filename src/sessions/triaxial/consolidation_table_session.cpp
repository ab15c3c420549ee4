#include "sessions/triaxial/consolidation_table_session.h"

#include <algorithm>
#include <utility>

#include "common/gbk.h"
#include "sessions/typed_text.h"

namespace triaxlab {
namespace {

constexpr int kLastTop = static_cast<int>(kConsolidationRows - kTableRowsShown);
constexpr int kColumns = static_cast<int>(kConsolidationColumns);

std::string takenNumber(std::string_view utf8) {
  return gbkToUtf8(takenText(utf8, ConsolidationTableSession::kNumberWidth));
}

}  // namespace

ConsolidationTableSession::ConsolidationTableSession(Workspace& workspace, std::size_t sampleRow)
    : StageTableSession(workspace) {
  load(sampleRow);
}

void ConsolidationTableSession::load(std::size_t sampleRow) {
  dropTyping();
  m_typedStart.reset();
  StageTableSession::load(sampleRow, kLastTop);
}

void ConsolidationTableSession::chooseStage(int entry) {
  finishTyping();
  StageTableSession::chooseStage(entry);
}

void ConsolidationTableSession::scroll(int top) {
  finishTyping();
  StageTableSession::scroll(top);
}

void ConsolidationTableSession::setEditable(bool editable) {
  if (!editable) dropTyping();
  m_editable = editable;
}

void ConsolidationTableSession::selectCell(int cell) {
  finishTyping();
  if (cell < 0 || cell >= kConsolidationCells) return;
  open(top() + static_cast<std::size_t>(cell / kColumns), static_cast<ConsolidationColumn>(cell % kColumns));
}

void ConsolidationTableSession::open(std::size_t row, ConsolidationColumn column) {
  const std::optional<std::size_t> shown = stage();
  if (!m_editable || !shown || column == ConsolidationColumn::Number) return;
  std::string text = consolidationRow(record(), *shown, row)[static_cast<std::size_t>(column)];
  m_open = OpenCell{*shown, row, column, text, text};
}

void ConsolidationTableSession::moveCell(int rows) {
  if (!m_open) return;
  const ConsolidationColumn column = m_open->column;
  const int row = std::clamp(static_cast<int>(m_open->row) + rows, 0, static_cast<int>(kConsolidationRows) - 1);
  finishTyping();
  const int first = static_cast<int>(top()), last = first + static_cast<int>(kTableRowsShown) - 1;
  if (row < first) StageTableSession::scroll(row);
  if (row > last) StageTableSession::scroll(first + row - last);
  open(static_cast<std::size_t>(row), column);
}

void ConsolidationTableSession::typeCell(std::string_view utf8) {
  if (m_open) m_open->text = takenNumber(utf8);
}

void ConsolidationTableSession::typeStartPorePressure(std::string_view utf8) {
  const std::optional<std::size_t> shown = stage();
  if (!m_editable || !shown) return;
  auto& stored = record().consolidationPorePressure[0].at(*shown);
  const std::int16_t last = stored;
  if (!m_typedStart) m_typedStart = TypedStart{last, {}};
  m_typedStart->text = takenNumber(utf8);
  // A number that is too large leaves what stood before the typing, not what its first digits said.
  stored = m_typedStart->before;
  storeStartPorePressure(record(), *shown, m_typedStart->text);
  if (stored != last) m_changed = true;
}

void ConsolidationTableSession::finishTyping() {
  finishStartPorePressure();
  const std::optional<OpenCell> left = std::exchange(m_open, std::nullopt);
  // The cell shows less than is stored, 95 s as 1.6 min: only what was typed goes back.
  if (!left || left->text == left->before) return;
  if (storeConsolidationReading(record(), left->stage, left->row, left->column, left->text)) m_changed = true;
}

int ConsolidationTableSession::labelOf(const OpenCell& cell) const {
  return static_cast<int>(cell.row - top()) * kColumns + static_cast<int>(cell.column);
}

bool ConsolidationTableSession::takeChange() { return std::exchange(m_changed, false); }

ConsolidationTableState ConsolidationTableSession::state() const {
  ConsolidationTableState state;
  state.stage = stageState();
  const std::optional<std::size_t> shown = stage();
  if (!shown) return state;
  state.editable = m_editable;
  ConsolidationTable& table = state.table.emplace();
  table.heading = heading(*shown);
  for (std::size_t row = 0; row < kTableRowsShown; ++row)
    table.rows.push_back(consolidationRow(record(), *shown, top() + row));
  table.foot = foot(*shown);
  state.startPorePressure = m_typedStart ? m_typedStart->text : table.foot.startPorePressure;
  if (m_open && m_open->stage == *shown) {
    state.openCell = labelOf(*m_open);
    state.cellText = m_open->text;
  }
  return state;
}

}  // namespace triaxlab
