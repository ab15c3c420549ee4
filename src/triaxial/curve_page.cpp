#include "triaxial/curve_page.h"

namespace triaxlab {

CurvePage pageOf(const TriaxialSampleRecord& record, CurvePage wanted) {
  if (record.testMethod == kUU && wanted > CurvePage::StressDifferenceEnvelope) return CurvePage::StressStrain;
  // Without effective stresses the ratio mode would blank the failure values.
  if (record.testMethod != kCU && wanted == CurvePage::StressRatioEnvelope) return CurvePage::StressDifferenceEnvelope;
  return wanted;
}

FailureMode failureModeOf(const TriaxialSampleRecord& record, CurvePage page, FailureMode checked) {
  if (record.testMethod != kCU || page == CurvePage::StressDifferenceEnvelope) return FailureMode::PeakStress;
  return page == CurvePage::StressRatioEnvelope ? FailureMode::PeakRatio : checked;
}

PageResults computePage(TriaxialSampleRecord& record, CurvePage page, FailureMode checked,
                        NumberFormat cohesionFormat) {
  PageResults results;
  results.failureRows = applyFailureMode(record, failureModeOf(record, page, checked));
  if (isEnvelopePage(page)) results.envelopes = envelopesOfPage(record, cohesionFormat);
  if (page == CurvePage::StressPath) results.pathLine = stressPathOfPage(record);
  return results;
}

}  // namespace triaxlab
