#pragma once

#include <vector>

#include "charts/plot.h"
#include "charts/results_box.h"
#include "triaxial/charts/curve_chart.h"

namespace triaxlab {

// What the two envelope pages and the stress path page draw besides curves. Normal stress or circle centre to the
// right, shear stress or circle radius upward, both in kPa with divisions of the same worth.

/// Room for the largest circle.
PlotScale mohrScale(const TriaxialSampleRecord& record);
/// The circles of the stages at failure and the envelopes over them.
void drawMohr(const Plot& plot, const TriaxialSampleRecord& record, const PageResults& results,
              const ChartOptions& options);
/// Cohesion and angle under the names of the test method; none for a method that isn't UU, CU or CD.
std::vector<ResultLine> strengthLines(const TriaxialSampleRecord& record, const PageResults& results,
                                      NumberFormat cohesionFormat);

/// The line through the failure points of a CU sample.
void drawPathLine(const Plot& plot, const PathLine& line, const ChartOptions& options);
std::vector<ResultLine> pathLines(const PathLine& line, NumberFormat cohesionFormat);

}  // namespace triaxlab
