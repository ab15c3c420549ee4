#include "sessions/triaxial/data_table_session.h"

namespace triaxlab {
namespace {

/// The last reading that can stand on top: sources of 50 readings end there.
int scrollMax(const LaboratoryHabits& habits) { return habits.take50Points ? 35 : 196; }
static_assert(196 + kTableRowsShown == kShearRows);

}  // namespace

DataTableSession::DataTableSession(Workspace& workspace, std::size_t sampleRow) : StageTableSession(workspace) {
  load(sampleRow);
}

void DataTableSession::load(std::size_t sampleRow) {
  StageTableSession::load(sampleRow, scrollMax(m_workspace.settings.habits));
}

DataTableState DataTableSession::state() const {
  DataTableState state{stageState(), std::nullopt};
  const std::optional<std::size_t> shown = stage();
  if (!shown) return state;
  DataTable& table = state.table.emplace();
  table.heading = heading(*shown);
  table.columns = dataTableColumns(record());
  for (std::size_t row = 0; row < kTableRowsShown; ++row)
    table.rows.push_back(dataTableRow(record(), *shown, top() + row));
  table.foot = foot(*shown);
  return state;
}

}  // namespace triaxlab
