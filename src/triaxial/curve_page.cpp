#include "triaxial/curve_page.h"

namespace triaxlab {

CurvePage pageOf(const TriaxialSampleRecord& record, CurvePage wanted) {
  if (record.testMethod == kUU && wanted > CurvePage::StressDifferenceEnvelope) return CurvePage::StressStrain;
  // Without effective stresses the ratio mode would blank the failure values.
  if (record.testMethod != kCU && wanted == CurvePage::StressRatioEnvelope) return CurvePage::StressDifferenceEnvelope;
  return wanted;
}

PageResults computePage(TriaxialSampleRecord& record, CurvePage page, NumberFormat cohesionFormat) {
  PageResults results;
  switch (page) {
    case CurvePage::StressRatioEnvelope:
    case CurvePage::StressDifferenceEnvelope:
      results.failureRows = applyFailureMode(
          record, page == CurvePage::StressRatioEnvelope ? FailureMode::PeakRatio : FailureMode::PeakStress);
      results.envelopes = envelopesOfPage(record, cohesionFormat);
      break;
    case CurvePage::StressPath:
      results.pathLine = stressPathOfPage(record);
      break;
    default:
      break;
  }
  return results;
}

}  // namespace triaxlab
