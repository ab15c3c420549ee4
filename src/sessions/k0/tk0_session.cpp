#include "sessions/k0/tk0_session.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "k0/settlement.h"

namespace triaxlab {

TK0Session::TK0Session(Workspace& workspace) : KoSession(workspace, ProjectKind::TK0) { load(); }

void TK0Session::begin() {
  KoSession::begin();
  m_stage = 0;
  m_rowShown = 0;
}

int TK0Session::lastStage() const { return std::clamp<int>(record().stageCount, 1, static_cast<int>(kLoadStages)) - 1; }

void TK0Session::takePicture() {
  if (std::exchange(m_rowShown, sampleRow()) != sampleRow()) m_stage = 0;
  m_stage = std::min(m_stage, lastStage());
  // The result of the stage is a point of the Ko line.
  m_t90 = computeStageResult(record(), stageIndex());
  KoSession::takePicture();
  m_drawn = record();
}

void TK0Session::showStage(int stage) {
  if (isHeld()) return;
  m_stage = std::clamp(stage, 0, lastStage());
  showSample();
}

StageConstruction TK0Session::construction() const {
  if (mode() != LineMode::T90) return {storedFirstLineOf(m_drawn, stageIndex()), m_t90};
  const StraightLine first = intervention().line().value_or(StraightLine{});
  return {first, constructT90(settlementOf(m_drawn, stageIndex()), first), true};
}

void TK0Session::drawStage(DrawingSurface& surface) const {
  drawStageChart(surface, m_drawn, stageIndex(), construction());
}

void TK0Session::drawStageEdges(DrawingSurface& surface, const ChartView& view) const {
  drawStageChartEdges(surface, m_drawn, stageIndex(), view);
}

std::string TK0Session::stageReadoutAt(Point place) const { return stageReadout(m_drawn, stageIndex(), place); }

/// The stage's pressure follows the line that is moved, also in the table.
std::string TK0Session::readingText(std::size_t row, std::size_t column) const {
  constexpr std::size_t kLateralPressure = 2;
  if (mode() == LineMode::T90 && row == stageIndex() && column == kLateralPressure)
    return FormatNumber(construction().t90.pressure, NumberFormat::Tenths);
  return KoSession::readingText(row, column);
}

// ---- 干预

bool TK0Session::canMoveT90Line() const { return isLoaded(record().k0, stageIndex()); }

void TK0Session::moveT90Line() {
  if (isHeld() || !canMoveT90Line()) return;
  showSample();
  StraightLine first = storedFirstLineOf(m_drawn, stageIndex());
  // A stored line that is no number couldn't be moved any more.
  if (!std::isfinite(first.slope) || !std::isfinite(first.intercept))
    first = firstLineOf(settlementOf(m_drawn, stageIndex()));
  intervention().enter(LineMode::T90, first);
}

void TK0Session::acceptLine(const StraightLine& line) { storeAdjustedT90Line(record(), stageIndex(), line); }

std::optional<DrawnLineOnCanvas> TK0Session::t90LineDrawn() const {
  if (mode() != LineMode::T90) return std::nullopt;
  const PlotScale scale = deformationScale(m_drawn, stageIndex());
  const auto ends = t90LineOnCanvas(scale, construction().first);
  return ends ? std::optional<DrawnLineOnCanvas>({scale, *ends}) : std::nullopt;
}

LineGrip TK0Session::gripOnStageChart(Point place) const { return gripAt(t90LineDrawn(), place); }

}  // namespace triaxlab
