#include "sessions/triaxial/page_steps.h"

#include <array>
#include <cstddef>

namespace triaxlab {
namespace {

constexpr int kTablePages = 6, kTotalTablePages = 3;  // the first three hold total stresses

/// One step round the pages 1 to `count`.
int stepRound(int page, int step, int count) { return (page - 1 + step + count) % count + 1; }

bool isPassedOver(CurvePage page, FailureMode checked) {
  return (page == CurvePage::StressRatioEnvelope && checked != FailureMode::PeakRatio) ||
         (page == CurvePage::StressDifferenceEnvelope && checked != FailureMode::PeakStress);
}

CurvePage stepCu(CurvePage page, int step, FailureMode checked) {
  do page = static_cast<CurvePage>(stepRound(static_cast<int>(page), step, static_cast<int>(kCurvePages.size())));
  while (isPassedOver(page, checked));
  return page;
}

TablePage stepTable(TablePage page, int step, const TriaxialSampleRecord& record) {
  const int count = record.testMethod == kCU ? kTablePages : kTotalTablePages;
  return static_cast<TablePage>(stepRound(static_cast<int>(tablePageFor(record, page)), step, count));
}

}  // namespace

CurvePage pageBefore(CurvePage page, const TriaxialSampleRecord& record, FailureMode checked) {
  if (record.testMethod == kCU) return stepCu(page, -1, checked);
  return page == CurvePage::StressStrain ? CurvePage::StressDifferenceEnvelope : CurvePage::StressStrain;
}

CurvePage pageBehind(CurvePage page, const TriaxialSampleRecord& record, FailureMode checked) {
  if (record.testMethod == kCU) return stepCu(page, +1, checked);
  return page == CurvePage::StressDifferenceEnvelope ? CurvePage::StressStrain : CurvePage::StressDifferenceEnvelope;
}

TablePage tablePageOf(CurvePage page) {
  constexpr std::array<TablePage, kCurvePages.size()> kOpensWith{TablePage::Stresses,     TablePage::Results,
                                                                 TablePage::Results,      TablePage::EffectivePath,
                                                                 TablePage::PorePressure, TablePage::PorePressure};
  return kOpensWith.at(static_cast<std::size_t>(page) - 1);
}

TablePage tablePageFor(const TriaxialSampleRecord& record, TablePage wanted) {
  return record.testMethod != kCU && wanted > TablePage::Stresses ? TablePage::Stresses : wanted;
}

TablePage tablePageBefore(TablePage page, const TriaxialSampleRecord& record) { return stepTable(page, -1, record); }
TablePage tablePageBehind(TablePage page, const TriaxialSampleRecord& record) { return stepTable(page, +1, record); }

}  // namespace triaxlab
