#include "reports/print_job.h"

namespace triaxlab {

PageSize usualPage(const PrintJob& job) { return job.dotMatrix() && !job.sideBySide() ? kDotMatrixPage : kA4; }

CurveOptions defaultCurveOptions(const Settings& settings) {
  return {.pages = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope},
          .totalCircles = settings.toggles.printTotalCircles,
          .effectiveCircles = settings.toggles.printEffectiveCircles};
}

PrintJob defaultPrintJob(const Settings& settings) {
  PrintJob job;
  job.lineWeight = static_cast<std::int16_t>(settings.lineWeight());
  job.curves = defaultCurveOptions(settings);
  return job;
}

}  // namespace triaxlab
