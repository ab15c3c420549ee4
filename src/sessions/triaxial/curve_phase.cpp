#include "sessions/triaxial/curve_phase.h"

#include <array>
#include <optional>

#include "common/text_number.h"
#include "triaxial/charts/curve_points.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

constexpr const char* kTitle = "修改三轴试验数据";

bool sameCurve(const TriaxialSampleRecord& a, std::size_t stageOfA, const TriaxialSampleRecord& b,
               std::size_t stageOfB) {
  for (std::size_t row = 0; row < kShearRows; ++row)
    if (a.deviatorStress[row][stageOfA] != b.deviatorStress[row][stageOfB]) return false;
  return true;
}

/// For each stage of `now` the stage that it was before; nothing for a specimen that wasn't there. A stage that has
/// stayed in its place is found first, since unused ones are all alike.
PerStage<std::optional<std::size_t>> formerStages(const TriaxialSampleRecord& before, const TriaxialSampleRecord& now) {
  PerStage<std::optional<std::size_t>> former;
  PerStage<bool> taken{};
  const auto claim = [&](std::size_t stage, std::size_t candidate) {
    if (former[stage] || taken[candidate] || !sameCurve(now, stage, before, candidate)) return;
    former[stage] = candidate;
    taken[candidate] = true;
  };
  for (std::size_t stage = 0; stage < kStages; ++stage) claim(stage, stage);
  for (std::size_t stage = 0; stage < kStages; ++stage)
    for (std::size_t candidate = 0; candidate < kStages; ++candidate) claim(stage, candidate);
  return former;
}

}  // namespace

CurvePhase::CurvePhase(const TriaxialSampleRecord& sample) : m_sampleBackup(sample), m_work(adjustmentOf(sample)) {}

bool CurvePhase::key(ArrowKey key) {
  const int step = key == ArrowKey::Left || key == ArrowKey::Up ? 1 : -1;
  return m_work.change([step](CurveAdjustment& work) { slideCurve(work, step); });
}

bool CurvePhase::undo() {
  endStroke();
  return m_work.undo();
}

bool CurvePhase::redo() {
  endStroke();
  return m_work.redo();
}

void CurvePhase::show(ChartOptions& options, PageResults& /*results*/) const { options.adjustment = &*m_work; }

void CurvePhase::accept(TriaxialSampleRecord& record, NumberFormat /*cohesionFormat*/) const {
  storeAdjustment(record, *m_work);
}

bool CurvePhase::isUsed(std::size_t stage) const { return StageUsed(m_sampleBackup, stage); }

bool CurvePhase::selectStage(std::size_t stage) {
  if (stage >= kStages || !isUsed(stage) || stage == selectedStage()) return false;
  m_work.choose([stage](CurveAdjustment& work) { work.selectedStage = stage; });
  return true;
}

bool CurvePhase::multiply(Dialogs& dialogs) {
  bool makesSense = false;
  const double value = ParseNumber(factor);
  const bool changed = m_work.change([&](CurveAdjustment& work) { makesSense = multiplyCurve(work, value); });
  if (!makesSense) dialogs.message(kTitle, "乘以不合理数据将会得到错误结果...", MessageIcon::Stop);
  return changed;
}

bool CurvePhase::add(Dialogs& dialogs) {
  bool makesSense = false;
  const double value = ParseNumber(summand);
  const bool changed = m_work.change([&](CurveAdjustment& work) { makesSense = addToCurve(work, value); });
  if (!makesSense) dialogs.message(kTitle, "加不合理数据将会得到错误结果...", MessageIcon::None);
  return changed;
}

bool CurvePhase::mouseAt(Point place, bool buttonDown) {
  if (!kCurvePlot.contains(place)) return false;
  ChartOptions options;
  options.adjustment = &*m_work;
  const Point value = scaleOfPage(m_sampleBackup, CurvePage::StressStrain, options).valueAt(place);
  m_readout =
      "x:" + FormatNumber(value.x, NumberFormat::Hundredths) + "   y:" + FormatNumber(value.y, NumberFormat::Tenths);
  if (!buttonDown) return false;
  const std::optional<std::size_t> row = rowNextTo(m_sampleBackup, *m_work, value.x);
  if (!row) return false;
  using Step = WorkingCopy<CurveAdjustment>::Step;
  const bool changed = m_work.change(
      [&](CurveAdjustment& work) {
        setReading(work, *row + static_cast<std::size_t>(work.stageShift[work.selectedStage]), value.y);
      },
      m_strokeGoesOn ? Step::Joined : Step::New);
  m_strokeGoesOn = m_strokeGoesOn || changed;
  return changed;
}

bool CurvePhase::rearrange(const TriaxialSampleRecord& saved) {
  if (saved.cellPressure == m_sampleBackup.cellPressure && saved.deviatorStress == m_sampleBackup.deviatorStress)
    return false;
  const PerStage<std::optional<std::size_t>> former = formerStages(m_sampleBackup, saved);
  CurveAdjustment work = adjustmentOf(saved);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    if (!former[stage]) continue;
    for (std::size_t row = 0; row < kShearRows; ++row)
      work.workCurve[row][stage] = m_work->workCurve[row][*former[stage]];
    work.stageShift[stage] = m_work->stageShift[*former[stage]];
    if (*former[stage] == selectedStage()) work.selectedStage = stage;
  }
  m_sampleBackup = saved;
  m_work = WorkingCopy<CurveAdjustment>(work);
  endStroke();
  return true;
}

}  // namespace triaxlab
