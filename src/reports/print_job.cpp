#include "reports/print_job.h"

#include "common/settings.h"

namespace triaxlab {

PrintJob defaultPrintJob(const Settings& settings) {
  PrintJob job;
  job.lineWeight = static_cast<std::int16_t>(settings.lineWeight());
  job.totalCircles = settings.toggles.printTotalCircles;
  job.effectiveCircles = settings.toggles.printEffectiveCircles;
  job.curves = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope};
  return job;
}

}  // namespace triaxlab
