#include "sessions/triaxial/intervention.h"

#include <algorithm>
#include <optional>
#include <type_traits>
#include <utility>

#include "common/conversions.h"
#include "common/gbk.h"
#include "sessions/typed_text.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

std::string taken(std::string_view utf8) { return gbkToUtf8(takenText(utf8, Intervention::kNumberWidth)); }

bool hasUsedStage(const TriaxialSampleRecord& sample) {
  for (std::size_t stage = 0; stage < kStages; ++stage)
    if (StageUsed(sample, stage)) return true;
  return false;
}

template <class OnePhase>
constexpr bool kIsNone = std::is_same_v<std::decay_t<OnePhase>, std::monostate>;

void fill(InterventionState&, const std::monostate&) {}

void fill(InterventionState& state, const CurvePhase& phase) {
  state.mousePlace = phase.readout();
  for (std::size_t stage = 0; stage < kStages; ++stage) state.stageEnabled[stage] = phase.isUsed(stage);
  state.selectedStage = phase.selectedStage();
  state.factor = phase.factor;
  state.summand = phase.summand;
  state.keyHelp = {"←、↑ 左移曲线    →、↓ 右移曲线", "鼠标左键 逐点绘制"};
}

void fill(InterventionState& state, const EnvelopePhase& phase) {
  state.envelopeChoice = phase.hasChoice();
  state.effectiveChosen = phase.movesEffective();
  state.keyHelp = {"←、→ 减、加C值", "↑、↓ 加、减φ值0.1度"};
}

void fill(InterventionState& state, const PathPhase&) {
  state.keyHelp = {"←、→ 减、加C′值1.0", "↑、↓ 加、减φ′值0.1度"};
}

}  // namespace

/// Something that every phase knows; the picture has changed if it says so.
template <class Step>
void Intervention::step(const Step& step) {
  const bool changed = std::visit(
      [&](auto& phase) {
        if constexpr (kIsNone<decltype(phase)>)
          return false;
        else
          return step(phase);
      },
      m_phase);
  if (changed) ++m_pictureNumber;
}

/// The same for something that one phase alone knows.
template <class OnePhase, class Step>
void Intervention::stepOf(const Step& step) {
  if (OnePhase* const phase = std::get_if<OnePhase>(&m_phase); phase != nullptr && step(*phase)) ++m_pictureNumber;
}

bool Intervention::isPossible(const TriaxialSampleRecord& sample, CurvePage page) {
  const bool pageHasPhase =
      page <= CurvePage::StressDifferenceEnvelope || (page == CurvePage::StressPath && sample.testMethod == kCU);
  return pageHasPhase && hasUsedStage(sample);
}

void Intervention::enter(const TriaxialSampleRecord& sample, CurvePage page, const PageResults& results) {
  if (page == CurvePage::StressStrain)
    m_phase.emplace<CurvePhase>(sample);
  else if (page == CurvePage::StressPath)
    m_phase.emplace<PathPhase>(results.pathLine);
  else
    m_phase.emplace<EnvelopePhase>(sample, results.envelopes);
  ++m_pictureNumber;
}

void Intervention::accept(TriaxialSampleRecord& record, NumberFormat cohesionFormat) const {
  std::visit(
      [&](const auto& phase) {
        if constexpr (!kIsNone<decltype(phase)>) phase.accept(record, cohesionFormat);
      },
      m_phase);
}

void Intervention::drop(TriaxialSampleRecord& record) const {
  std::visit(
      [&](const auto& phase) {
        if constexpr (!kIsNone<decltype(phase)>) phase.drop(record);
      },
      m_phase);
}

void Intervention::end() {
  m_phase.emplace<std::monostate>();
  ++m_pictureNumber;
}

void Intervention::reset() {
  end();
  m_cohesionStep = 1;
}

void Intervention::key(ArrowKey key) {
  step([&](auto& phase) {
    if constexpr (std::is_same_v<std::decay_t<decltype(phase)>, EnvelopePhase>)
      return phase.key(key, m_cohesionStep);
    else
      return phase.key(key);
  });
}
void Intervention::undo() {
  step([](auto& phase) { return phase.undo(); });
}
void Intervention::redo() {
  step([](auto& phase) { return phase.redo(); });
}

void Intervention::selectStage(std::size_t stage) {
  stepOf<CurvePhase>([stage](CurvePhase& phase) { return phase.selectStage(stage); });
}
void Intervention::typeFactor(std::string_view utf8) {
  if (auto* const phase = std::get_if<CurvePhase>(&m_phase)) phase->factor = taken(utf8);
}
void Intervention::typeSummand(std::string_view utf8) {
  if (auto* const phase = std::get_if<CurvePhase>(&m_phase)) phase->summand = taken(utf8);
}
void Intervention::multiply(Dialogs& dialogs) {
  stepOf<CurvePhase>([&](CurvePhase& phase) { return phase.multiply(dialogs); });
}
void Intervention::add(Dialogs& dialogs) {
  stepOf<CurvePhase>([&](CurvePhase& phase) { return phase.add(dialogs); });
}
void Intervention::mouseAt(Point place, bool buttonDown) {
  stepOf<CurvePhase>([&](CurvePhase& phase) { return phase.mouseAt(place, buttonDown); });
}
void Intervention::mouseReleased() {
  if (auto* const phase = std::get_if<CurvePhase>(&m_phase)) phase->endStroke();
}
void Intervention::rearrange(const TriaxialSampleRecord& saved) {
  stepOf<CurvePhase>([&](CurvePhase& phase) { return phase.rearrange(saved); });
}

void Intervention::chooseEffective(bool effective) {
  stepOf<EnvelopePhase>([&](EnvelopePhase& phase) { return phase.chooseEffective(effective); });
}

void Intervention::askCohesionStep(Dialogs& dialogs) {
  if (phase() != Phase::Envelope) return;
  const std::optional<std::string> typed = dialogs.input("设置三轴C值调整步长", "请输入三轴C值调整步长",
                                                         FormatNumber(m_cohesionStep, NumberFormat::Hundredths));
  const auto step = toSingle(typed ? ParseNumber(*typed) : 0);
  if (step && *step != 0) m_cohesionStep = *step;
}

InterventionState Intervention::state(const TriaxialSampleRecord& sample, std::string_view sampleNoLabel) const {
  InterventionState state;
  state.phase = phase();
  std::visit([&](const auto& phase) { fill(state, phase); }, m_phase);
  state.subject = std::string(sampleNoLabel) + ":" + gbkToUtf8(sample.sampleNo.trimmed());
  if (state.phase == Phase::Curve)
    state.subject += "    σ3:" + gbkToUtf8(sample.cellPressure[state.selectedStage].trimmed()) + " kPa";
  state.keyHelp.back() = "Ctrl+Z 撤销    Ctrl+Y 重做    F4 退出干预";
  state.cohesionStep = "调整步长：" + FormatNumber(m_cohesionStep, NumberFormat::Hundredths);
  return state;
}

void Intervention::show(ChartOptions& options, PageResults& results) const {
  std::visit(
      [&](const auto& phase) {
        if constexpr (!kIsNone<decltype(phase)>) phase.show(options, results);
      },
      m_phase);
}

}  // namespace triaxlab
