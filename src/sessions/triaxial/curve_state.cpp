#include <array>
#include <utility>

#include "common/gbk.h"
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
  for (int line = 1; line <= kListLines; ++line) {
    const std::size_t row = m_list.rowOfLine(line);
    const TriaxialSampleRecord& sample = std::as_const(m_workspace).TriaxialSampleTable.at(row);
    state.list[static_cast<std::size_t>(line)] = {std::to_string(row + 1), gbkToUtf8(sample.projectNo.trimmed()),
                                                  gbkToUtf8(sample.sampleNo.trimmed())};
  }
  state.listTop = m_list.top();
  state.selectedLine = m_list.line();
  state.text1 = {m_text1Visible && !m_intervention.running(), m_list.labelIndex(), boxText({BoxName::Text1})};
}

void CurveSession::fillFields(CurveState& state) const {
  const TriaxialSampleRecord& sample = record();
  state.text3 = boxText({BoxName::Text3});
  state.text4 = boxText({BoxName::Text4});
  state.text6 = {std::string(shearModeName(sample)), std::string(methodNames(sample).caption)};
  state.text7 = texts<8>([this](int i) { return boxText({BoxName::Text7, i}); });
  state.text8 = m_strainLimitTexts;
  state.locationLabels = locationLabels(m_workspace.settings.habits);
  state.label4 = sample.adjustedFlag != 0 ? "已经干预" : "原始数据";
  state.label4Visible = state.strainLimitsVisible = isEnvelopePage(m_page);
  state.command8Enabled = !m_intervention.running();
  state.command5Visible = sample.testMethod != kUU;
  state.command5Enabled = !m_intervention.running();
  state.text5 = boxText({BoxName::Text5});
  state.textW = texts<4>([this](int i) { return boxText({BoxName::TextW, i}); });
  state.text9 = boxText({BoxName::Text9});
  state.text9Visible = m_workspace.settings.habits.controlledDocNo;
}

void CurveSession::fillTable(CurveState& state) const {
  state.columnHeads = m_table.columnHeads();
  state.label2 = m_table.cells();
  state.tableTop = m_table.top();
  state.tableScrollMax = m_table.scrollMax();
  state.text2 = {m_table.openCell().has_value(), m_table.textLabel(), boxText({BoxName::Text2})};
}

CurveState CurveSession::state() const {
  CurveState state;
  fillList(state);
  fillFields(state);
  fillTable(state);
  state.projectPanel = projectPanel(m_workspace, sampleRow());
  state.datePanel = datePanel(m_workspace, sampleRow());
  const bool ratioPage = record().testMethod == kCU;
  state.QUXIAN2 = {ratioPage, m_checkedMode == FailureMode::PeakRatio};
  state.QUXIAN3 = {true, m_checkedMode == FailureMode::PeakStress};
  state.currentCurvePage = static_cast<std::uint8_t>(m_page);
  state.currentTablePage = static_cast<std::uint8_t>(m_table.page());
  state.intervention = m_intervention.state(record(), m_workspace.settings.habits.sampleNoLabel);
  if (m_intervention.running()) state.physicalValues = m_physicalValues;
  return state;
}

}  // namespace triaxlab
