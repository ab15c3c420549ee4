#include "store/summary/summary_sections.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "store/project/sample_rows.h"

namespace triaxlab {
namespace {

void setAngle(FixedText<4>& field, float degrees) {
  if (std::isfinite(degrees)) SetText(field, FormatNumber(degrees, NumberFormat::Tenths));
}

StrengthPair strengthOf(const TriaxialSampleRecord& record) {
  StrengthPair pair;
  if (record.frictionAngle != 0 || record.cohesionTenths != 0) {
    SetText(pair.cohesion, record.cohesionText.trimmed());
    setAngle(pair.frictionAngle, record.frictionAngle);
  }
  if (record.testMethod == kCU) {  // written as they stand: 0.0 for an angle that was never found
    SetText(pair.cohesionEff, record.cohesionEffText.trimmed());
    setAngle(pair.frictionAngleEff, record.frictionAngleEff);
  }
  return pair;
}

void putTriaxial(SummaryRecord& summary, const Workspace& workspace, std::size_t row) {
  const TriaxialSampleRecord& record = workspace.TriaxialSampleTable[row];
  const StrengthPair pair = strengthOf(record);
  SetText(summary.testDateSz, testDateOf(workspace, ProjectKind::Triaxial, row));
  SetNumber(summary.testMethod, record.testMethod, NumberFormat::Whole);
  summary.cSz = pair.cohesion;
  summary.phiSz = pair.frictionAngle;
  summary.cEffSz = pair.cohesionEff;
  summary.phiEffSz = pair.frictionAngleEff;
  if (record.cellPressure[0].number() == 0) return;
  summary.strengthByMethod.fill({});
  if (record.testMethod >= 1 && record.testMethod <= summary.strengthByMethod.size())
    summary.strengthByMethod[record.testMethod - 1U] = pair;
}

void blankTriaxial(SummaryRecord& summary) {
  summary.testMethod.clear();
  summary.cSz.clear();
  summary.phiSz.clear();
  summary.cEffSz.clear();
  summary.phiEffSz.clear();
}

void putUnconfined(SummaryRecord& summary, const Workspace& workspace, std::size_t row) {
  const UnconfinedSampleRecord& record = workspace.UnconfinedSampleTable[row];
  SetText(summary.wcTexts[0], record.qu.trimmed());
  SetText(summary.wcTexts[1], record.quRemoulded.trimmed());
}

void blankUnconfined(SummaryRecord& summary) { summary.wcTexts.fill({}); }

/// The field has six places, of which this system uses five.
void setKo(SummaryRecord& summary, const K0SampleRecord& record) {
  SetText(summary.koValue, cutWhole(record.koValue.trimmed(), 5));
}

void putK0(SummaryRecord& summary, const Workspace& workspace, std::size_t row) {
  setKo(summary, workspace.K0SampleTable[row]);
}

void putTK0(SummaryRecord& summary, const Workspace& workspace, std::size_t row) {
  setKo(summary, workspace.TK0SampleTable[row].k0);
}

void blankKo(SummaryRecord& summary) { summary.koValue.clear(); }

struct ResultsOfKind {
  ProjectKind kind;
  void (*put)(SummaryRecord&, const Workspace&, std::size_t row);
  void (*blank)(SummaryRecord&);
};
constexpr std::array kResults{
    ResultsOfKind{ProjectKind::Triaxial, putTriaxial, blankTriaxial},
    ResultsOfKind{ProjectKind::Unconfined, putUnconfined, blankUnconfined},
    ResultsOfKind{ProjectKind::K0, putK0, blankKo},
    ResultsOfKind{ProjectKind::TK0, putTK0, blankKo},
};

const ResultsOfKind& resultsOf(ProjectKind kind) {
  const ProjectKind document = infoOf(kind).documentKind;
  return *std::find_if(kResults.begin(), kResults.end(),
                       [document](const ResultsOfKind& results) { return results.kind == document; });
}

}  // namespace

void putResults(SummaryRecord& summary, const Workspace& workspace, ProjectKind kind, std::size_t row) {
  resultsOf(kind).put(summary, workspace, row);
}

void blankResults(SummaryRecord& summary, ProjectKind kind) { resultsOf(kind).blank(summary); }

std::string testDateOf(const Workspace& workspace, ProjectKind kind, std::size_t row) {
  const SampleRows rows(workspace, kind);
  std::string date;
  if (infoOf(kind).documentKind == ProjectKind::Triaxial) date = workspace.TriaxialSampleTable[row].testDate.trimmed();
  if (date.empty()) date = workspace.projectTestDate(rows.projectNo(row)).value_or("");
  if (date.empty()) date = slashed(workspace.today());
  std::replace(date.begin(), date.end(), '-', '/');
  return date;
}

}  // namespace triaxlab
