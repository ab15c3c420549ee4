#include <array>
#include <stdexcept>
#include <utility>

#include "common/gbk.h"
#include "sessions/document_fields.h"
#include "sessions/triaxial/curve_session.h"
#include "triaxial/method_names.h"

namespace triaxlab {
namespace {

template <std::size_t N, class TextOf>
std::array<std::string, N> texts(TextOf textOf) {
  std::array<std::string, N> all;
  for (std::size_t i = 0; i < N; ++i) all[i] = textOf(static_cast<int>(i));
  return all;
}

}  // namespace

void CurveSession::fillList(CurveState& state) const {
  const LaboratoryHabits& habits = m_workspace.settings.habits;
  state.list[0] = {"序号", habits.projectNoLabel, habits.sampleNoLabel};
  for (int line = 1; line <= kCurveListLines; ++line) {
    const std::size_t row = m_list.rowOfLine(line);
    const TriaxialSampleRecord& sample = std::as_const(m_workspace).TriaxialSampleTable.at(row);
    state.list[static_cast<std::size_t>(line)] = {std::to_string(row + 1), gbkToUtf8(sample.projectNo.trimmed()),
                                                  gbkToUtf8(sample.sampleNo.trimmed())};
  }
  state.listTop = m_list.top();
  state.listScrollMax = m_list.scrollMax();
  state.selectedLine = m_list.line();
  state.listCell = {m_listCellOpen && !m_intervention.running(), m_list.cell(), inputText({InputName::ListCell})};
}

void CurveSession::fillFields(CurveState& state) const {
  const TriaxialSampleRecord& sample = record();
  state.soilName = inputText({InputName::SoilName});
  state.density = inputText({InputName::Density});
  state.shearMode = shearModeName(sample);
  state.testMethod = methodNames(sample).caption;
  state.cellPressure = texts<kStages>([this](int stage) { return inputText({InputName::CellPressure, stage}); });
  state.borehole = inputText({InputName::Borehole});
  state.samplingDepth = inputText({InputName::SamplingDepth});
  state.samplingSpot = inputText({InputName::SamplingSpot});
  state.strainLimit = m_strainLimitTexts;
  state.locationLabels = locationLabels(m_workspace.settings.habits);
  state.envelopeNote = sample.adjustedFlag != 0 ? "已经干预" : "原始数据";
  state.envelopeNoteVisible = state.strainLimitsVisible = isEnvelopePage(m_page);
  state.strainLimitsEnabled = !m_intervention.running();
  state.consolidationTableVisible = sample.testMethod != kUU;
  state.consolidationTableEnabled = !m_intervention.running();
  state.projectName = inputText({InputName::ProjectName});
  state.processingDate = texts<3>([this](int part) { return inputText({InputName::DatePart, part}); });
  state.secondTitleLine = inputText({InputName::SecondTitleLine});
  state.controlledDocNo = inputText({InputName::ControlledDocNo});
  state.controlledDocNoVisible = m_workspace.settings.habits.controlledDocNo;
}

void CurveSession::fillTable(CurveState& state) const {
  state.columnHeads = m_table.columnHeads();
  state.tableCells = m_table.cells();
  state.tableTop = m_table.top();
  state.tableScrollMax = m_table.scrollMax();
  state.resultCell = {m_table.openCell().has_value(), m_table.textCell(), inputText({InputName::ResultCell})};
}

CurveState CurveSession::state() const {
  CurveState state;
  fillList(state);
  fillFields(state);
  fillTable(state);
  state.statusPanels = statusPanels(m_workspace, ProjectKind::Triaxial, sampleRow());
  const bool ratioPage = record().testMethod == kCU;
  state.ratioEnvelope = {ratioPage, m_checkedMode == FailureMode::PeakRatio};
  state.differenceEnvelope = {true, m_checkedMode == FailureMode::PeakStress};
  state.currentCurvePage = static_cast<std::uint8_t>(m_page);
  state.currentTablePage = static_cast<std::uint8_t>(m_table.page());
  state.intervention = m_intervention.state(record(), m_workspace.settings.habits.sampleNoLabel);
  state.factor = state.intervention.factor;
  state.summand = state.intervention.summand;
  if (m_intervention.running()) state.physicalValues = m_physicalValues;
  return state;
}

const std::string& CurveState::text(Input input) const {
  const auto at = static_cast<std::size_t>(input.index);
  switch (input.name) {
    case InputName::ListCell:
      return listCell.text;
    case InputName::ResultCell:
      return resultCell.text;
    case InputName::SoilName:
      return soilName;
    case InputName::Density:
      return density;
    case InputName::CellPressure:
      return cellPressure.at(at);
    case InputName::StrainLimit:
      return strainLimit.at(at);
    case InputName::Borehole:
      return borehole;
    case InputName::SamplingDepth:
      return samplingDepth;
    case InputName::SamplingSpot:
      return samplingSpot;
    case InputName::ProjectName:
      return projectName;
    case InputName::DatePart:
      return processingDate.at(at);
    case InputName::SecondTitleLine:
      return secondTitleLine;
    case InputName::ControlledDocNo:
      return controlledDocNo;
    case InputName::Factor:
      return factor;
    case InputName::Summand:
      return summand;
  }
  throw std::out_of_range("no input of the curve window");
}

}  // namespace triaxlab
