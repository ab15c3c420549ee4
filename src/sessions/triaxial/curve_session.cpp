#include "sessions/triaxial/curve_session.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "common/gbk.h"
#include "sessions/typed_text.h"
#include "store/summary/physical_data.h"
#include "triaxial/charts/curve_chart.h"
#include "triaxial/measures.h"
#include "triaxial/touching_circles.h"

namespace triaxlab {
namespace {

constexpr std::size_t kLimitWidth = 6;  // bytes that a strain limit takes

}  // namespace

CurveSession::CurveSession(Workspace& workspace)
    : m_workspace(workspace), m_document(workspace, ProjectKind::Triaxial) {
  load();
}

TriaxialSampleRecord& CurveSession::record() const { return m_workspace.TriaxialSampleTable.at(sampleRow()); }

void CurveSession::load() {
  m_list.reset();
  m_listCellOpen =
      std::ranges::none_of(m_workspace.TriaxialSampleTable.used(), [](const auto& record) { return isLive(record); });
  m_page = CurvePage::StressStrain;
  m_table.reset();
  m_intervention.reset();
  m_envelopeJustAccepted = false;
  m_changed = false;
  m_document.load();
  showSample();
}

void CurveSession::showSample() {
  finishTyping();
  m_table.close();
  if (record().testMethod != kCU) m_checkedMode = FailureMode::PeakStress;
  if (const CurvePage page = pageOf(record(), m_page); page != m_page) enterPage(page);
  takePicture();
  setTablePage(m_table.page());
}

void CurveSession::enterPage(CurvePage page) {
  m_page = page;
  m_table.setPage(tablePageOf(page));
}

void CurveSession::takePicture() {
  m_results = {};
  if (isLive(record()))
    m_results = computePage(record(), m_page, m_checkedMode, m_workspace.settings.habits.cohesionFormat());
  if (isEnvelopePage(m_page) && std::exchange(m_envelopeJustAccepted, false) &&
      m_workspace.settings.habits.autoAdjustRawData)
    rescaleToEnvelope(record(), m_results.envelopes.total);
  m_drawn = record();
  const PerStage<double> limits = ClampFailureLimit(m_drawn);
  for (std::size_t stage = 0; stage < kStages; ++stage)
    m_strainLimitTexts[stage] = FormatNumber(limits[stage], NumberFormat::Tenths);
  ++m_pictureNumber;
}

ChartOptions CurveSession::chartOptions() const {
  ChartOptions options;
  options.cohesionFormat = m_workspace.settings.habits.cohesionFormat();
  return options;
}

void CurveSession::draw(DrawingSurface& surface) const {
  ChartOptions options = chartOptions();
  PageResults results = m_results;
  m_intervention.show(options, results);
  drawCurvePage(surface, m_drawn, m_page, results, options);
}

void CurveSession::drawEdges(DrawingSurface& surface, const ChartView& view) const {
  drawPageEdges(surface, m_drawn, m_page, chartOptions(), view);
}

std::string CurveSession::readout(Point place) const {
  if (m_intervention.running() || !kCurvePlot.contains(place)) return {};
  const Point value = scaleOfPage(m_drawn, m_page, chartOptions()).valueAt(place);
  const auto [x, y] = readingsOf(m_page);
  return readoutOf(value, x, y);
}

void CurveSession::setTablePage(TablePage page) {
  m_table.setPage(tablePageFor(record(), page));
  m_table.refresh(record());
}

void CurveSession::selectListCell(int cell) {
  if (m_intervention.running() || !m_list.select(cell)) return;
  m_listCellOpen = true;
  showSample();
}

void CurveSession::scrollList(int top) {
  if (m_intervention.running()) return;
  m_list.scroll(top);
  showSample();
}

bool CurveSession::keyInList(CellKey key, CursorPlace cursor) {
  if (m_intervention.running() || !m_list.key(key, cursor)) return false;
  showSample();
  return true;
}

void CurveSession::showPage(int page) {
  if (m_intervention.running() || page < static_cast<int>(CurvePage::StressStrain) ||
      page > static_cast<int>(CurvePage::StressRatio))
    return;
  const auto wanted = static_cast<CurvePage>(page);
  if (wanted == CurvePage::StressRatioEnvelope) m_checkedMode = FailureMode::PeakRatio;
  if (wanted == CurvePage::StressDifferenceEnvelope) m_checkedMode = FailureMode::PeakStress;
  enterPage(wanted);
  showSample();
}

void CurveSession::previousPage() {
  if (m_intervention.running()) return;
  enterPage(pageBefore(m_page, record(), m_checkedMode));
  showSample();
}

void CurveSession::nextPage() {
  if (m_intervention.running()) return;
  enterPage(pageBehind(m_page, record(), m_checkedMode));
  showSample();
}

void CurveSession::previousTablePage() {
  if (m_intervention.running()) return;
  finishTyping();
  setTablePage(tablePageBefore(m_table.page(), record()));
}

void CurveSession::nextTablePage() {
  if (m_intervention.running()) return;
  finishTyping();
  setTablePage(tablePageBehind(m_table.page(), record()));
}

void CurveSession::scrollTable(int top) {
  finishTyping();
  m_table.scroll(top);
  m_table.refresh(record());
}

void CurveSession::selectTableCell(int cell) {
  finishTyping();
  m_table.select(cell);
  m_table.refresh(record());
}

bool CurveSession::keyInTable(CellKey key, CursorPlace cursor) {
  if (!m_table.key(key, cursor)) return false;
  finishTyping();
  m_table.refresh(record());
  return true;
}

std::optional<EditableField> CurveSession::fieldOf(Input input) const {
  switch (input.name) {
    case InputName::ListCell:
      return listField(m_workspace, sampleRow(), m_list.onProject());
    case InputName::ResultCell:
      return m_table.openCell() ? resultField(record(), *m_table.openCell()) : std::nullopt;
    default:
      return sampleField(m_workspace, m_document, sampleRow(), input);
  }
}

std::string CurveSession::inputText(Input input) const {
  const auto field = fieldOf(input);
  return field ? m_typing.shown(input, field->text) : std::string();
}

std::size_t CurveSession::width(Input input) const {
  if (input.name == InputName::Factor || input.name == InputName::Summand) return Intervention::kNumberWidth;
  if (input.name == InputName::StrainLimit) return kLimitWidth;
  const auto field = fieldOf(input);
  return field ? field->width : 0;
}

void CurveSession::edit(Input input, std::string_view utf8) {
  if (input.name == InputName::Factor) return m_intervention.typeFactor(utf8);
  if (input.name == InputName::Summand) return m_intervention.typeSummand(utf8);
  if (input.name == InputName::StrainLimit) {
    m_strainLimitTexts.at(static_cast<std::size_t>(input.index)) = gbkToUtf8(takenText(utf8, kLimitWidth));
    return;
  }
  const auto field = fieldOf(input);
  if (!field || !m_typing.type(input, *field, utf8)) return;
  m_changed = true;
  if (input.name == InputName::ResultCell) m_table.refresh(record());
}

bool CurveSession::keyOnMethod(MethodField field, MethodKey key) {
  if (m_intervention.running()) return false;
  TriaxialSampleRecord& sample = record();
  if (key == MethodKey::End) {
    sample.uuAdjustFlag = sample.uuAdjustFlag == 0 ? 1 : 0;
  } else if (field == MethodField::TestMethod) {
    sample.testMethod = static_cast<std::uint8_t>(key);
  } else if (key != MethodKey::Three) {
    sample.shearMode = static_cast<std::uint8_t>(key);
  } else {
    return false;
  }
  m_changed = true;
  showSample();
  return true;
}

void CurveSession::applyStrainLimits() {
  if (m_intervention.running()) return;
  finishTyping();
  for (std::size_t stage = 0; stage < kStages; ++stage)
    record().failureStrainLimit[stage] = failureLimitOf(ParseNumber(m_strainLimitTexts[stage]) * 10);
  m_changed = true;
  takePicture();
  m_table.refresh(record());
}

void CurveSession::enterIntervention() {
  if (m_intervention.running() || !canIntervene()) return;
  showSample();
  m_intervention.enter(record(), m_page, m_results);
  readPhysicalValues();
}

void CurveSession::readPhysicalValues() {
  m_physicalValues.clear();
  if (!m_workspace.settings.toggles.showPhysicalIndices) return;
  for (const PhysicalValue& value :
       physicalValues(m_workspace, record().projectNo.trimmed(), record().sampleNo.trimmed()))
    m_physicalValues.push_back({std::string(value.label), gbkToUtf8(value.text)});
}

void CurveSession::leaveIntervention(Dialogs& dialogs) {
  if (!m_intervention.running()) return;
  const bool kept = dialogs.ask("三轴曲线调整", "   曲线已经调整\n保存修改后数据吗？", MessageIcon::Exclamation);
  const TriaxialSampleRecord before = record();
  if (kept) {
    m_intervention.rearrange(record());  // a save that did not get to its end may have sorted the specimens, too
    m_intervention.accept(record(), m_workspace.settings.habits.cohesionFormat());
    m_envelopeJustAccepted = m_intervention.phase() == Phase::Envelope;
  } else {
    m_intervention.drop(record());
  }
  // A sample that was saved while the phase ran is taken back by a No as well.
  if (kept || std::memcmp(&before, &record(), sizeof before) != 0) m_changed = true;
  m_intervention.end();
  const bool wasRescaled = m_envelopeJustAccepted && m_workspace.settings.habits.autoAdjustRawData;
  showSample();
  // The circles of the peaks follow the readings that the first showing has scaled; those of the ratios do not.
  if (wasRescaled && m_page == CurvePage::StressDifferenceEnvelope) showSample();
}

void CurveSession::reprocess() {
  if (m_intervention.running()) return;
  record().adjustedFlag = record().pathAdjustedFlag = 0;
  m_changed = true;
  showSample();
}

void CurveSession::markSaved() {
  m_changed = false;
  if (!m_intervention.running()) return showSample();
  m_intervention.rearrange(record());
  m_drawn = record();
  m_table.refresh(record());
}

}  // namespace triaxlab
