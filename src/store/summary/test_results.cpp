#include "store/summary/test_results.h"

#include <cmath>

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

}  // namespace

void putTriaxial(SummaryRecord& summary, const TriaxialSampleRecord& record, std::string_view testDate) {
  const StrengthPair pair = strengthOf(record);
  SetText(summary.testDateSz, testDate);
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

void putUnconfined(SummaryRecord& summary, const UnconfinedSampleRecord& record, std::string_view /*testDate*/) {
  SetText(summary.wcTexts[0], record.qu.trimmed());
  SetText(summary.wcTexts[1], record.quRemoulded.trimmed());
}

void blankUnconfined(SummaryRecord& summary) { summary.wcTexts.fill({}); }

/// The field has six places, of which this system uses five.
void putK0(SummaryRecord& summary, const K0SampleRecord& record, std::string_view /*testDate*/) {
  SetText(summary.koValue, cutWhole(record.koValue.trimmed(), 5));
}

void putTK0(SummaryRecord& summary, const TK0SampleRecord& record, std::string_view testDate) {
  putK0(summary, record.k0, testDate);
}

void blankK0(SummaryRecord& summary) { summary.koValue.clear(); }

}  // namespace triaxlab
