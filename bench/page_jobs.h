#pragma once

#include <cstddef>
#include <memory>
#include <stdexcept>

#include "full_sample.h"
#include "reports/chart_sheets.h"
#include "reports/send_report.h"
#include "reports/three_in_one.h"
#include "triaxial/opening_pass.h"

namespace triaxlab {

// Jobs of many pages, each page a full sample.

/// As many curves a sample as a page has blocks, so that each is a page.
struct Job {
  const Layout& layout;
  PrintJob job;
};

inline Job threeInOne() {
  Job made{kThreeInOne, {}};
  made.job.curves.pages = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope};
  return made;
}

inline Job chartSheets() {
  Job made{kChartSheets, {}};
  made.job.curves.pages = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope, CurvePage::StressPath,
                           CurvePage::PorePressure};
  made.job.sheet.rows = made.job.sheet.columns = 2;
  return made;
}

inline Workspace fullSamples(std::size_t count) {
  Workspace workspace;
  for (std::size_t row = 0; row < count; ++row) workspace.TriaxialSampleTable[row] = fullSample(row);
  runOpeningPass(workspace.TriaxialSampleTable.used(), NumberFormat::Whole);
  return workspace;
}

inline void print(const Job& job, const Workspace& workspace, int pages, PageDevice& device) {
  if (sendReport(*job.layout.make(job.job, workspace), job.job, device) != pages)
    throw std::logic_error("not the pages of this benchmark");
}

}  // namespace triaxlab
