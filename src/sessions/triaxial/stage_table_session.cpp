#include "sessions/triaxial/stage_table_session.h"

#include <algorithm>
#include <utility>

#include "common/gbk.h"
#include "sessions/document_fields.h"
#include "store/test_date.h"
#include "triaxial/curve_page.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

std::string testDate(const Workspace& workspace, const TriaxialSampleRecord& record) {
  return gbkToUtf8(shownTestDate(workspace.dataOf(ProjectKind::Triaxial), record.projectNo.trimmed(),
                                 record.testDate.trimmed(), DateFirst::OfProject));
}

/// Where the specimen of a stage stands now. Of several with one pressure the first stays the first; one that is gone
/// leaves its stage.
std::size_t stageNow(const PerStage<FixedText<6>>& before, std::size_t stage, const PerStage<FixedText<6>>& now) {
  std::ptrdiff_t alikeInFront =
      std::count(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(stage), before[stage]);
  for (std::size_t candidate = 0; candidate < kStages; ++candidate)
    if (now[candidate] == before[stage] && alikeInFront-- == 0) return candidate;
  return stage;
}

}  // namespace

void StageTableSession::load(std::size_t sampleRow, int scrollMax) {
  m_row = sampleRow;
  m_top = 0;
  m_scrollMax = scrollMax;
  m_chosen.reset();
  m_chosen = stage();
  m_pressures = record().cellPressure;
}

void StageTableSession::followRecord(FailureMode mode) {
  m_failureMode = mode;
  const Pressures before = std::exchange(m_pressures, record().cellPressure);
  std::size_t changed = 0;
  for (std::size_t stage = 0; stage < kStages; ++stage) changed += before[stage] == m_pressures[stage] ? 0 : 1;
  // A person types one pressure at a time, and the stage stays; only a save changes several at once.
  if (m_chosen && changed > 1) m_chosen = stageNow(before, *m_chosen, m_pressures);
}

TriaxialSampleRecord& StageTableSession::record() const { return m_workspace.TriaxialSampleTable.at(m_row); }

std::vector<std::size_t> StageTableSession::usedStages() const {
  std::vector<std::size_t> stages;
  for (std::size_t stage = 0; stage < kStages; ++stage)
    if (StageUsed(record(), stage)) stages.push_back(stage);
  return stages;
}

std::optional<std::size_t> StageTableSession::stage() const {
  const std::vector<std::size_t> used = usedStages();
  const bool shown = m_chosen ? StageUsed(record(), *m_chosen) : !used.empty();
  return shown ? m_chosen.value_or(used.front()) : std::optional<std::size_t>();
}

std::size_t StageTableSession::top() const { return static_cast<std::size_t>(m_top); }

void StageTableSession::chooseStage(int entry) {
  const std::vector<std::size_t> stages = usedStages();
  if (entry < 0 || entry >= static_cast<int>(stages.size())) return;
  m_chosen = stages[static_cast<std::size_t>(entry)];
}

void StageTableSession::scroll(int top) { m_top = std::clamp(top, 0, m_scrollMax); }

StageTableState StageTableSession::stageState() const {
  StageTableState state;
  const std::vector<std::size_t> stages = usedStages();
  const std::optional<std::size_t> shown = stage();
  for (std::size_t i = 0; i < stages.size(); ++i) {
    state.stages.push_back("周围压力:" + gbkToUtf8(record().cellPressure[stages[i]].trimmed()));
    if (stages[i] == shown) state.entry = i;
  }
  state.top = m_top;
  state.scrollMax = m_scrollMax;
  return state;
}

TableHeading StageTableSession::heading(std::size_t stage) const {
  return tableHeading(record(), stage, m_workspace.settings.habits.projectNoLabel, testDate(m_workspace, record()));
}

TableFoot StageTableSession::foot(std::size_t stage) const {
  return tableFoot(record(), stage, failureModeOf(record(), CurvePage::StressStrain, m_failureMode));
}

std::array<std::string, 2> StageTableSession::statusPanels() const {
  return triaxlab::statusPanels(m_workspace, ProjectKind::Triaxial, m_row, DateFirst::OfProject);
}

}  // namespace triaxlab
