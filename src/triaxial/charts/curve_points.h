#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "charts/plot.h"
#include "platform/drawing_surface.h"
#include "triaxial/curve_adjustment.h"
#include "triaxial/record.h"

namespace triaxlab {

/// The points of each stage's curve, in values of the axes. Stages that are not used have none, and so has a stage
/// without a reading; rows without stress are passed over.
using ChartCurves = PerStage<std::vector<Point>>;

/// Axial strain (%), deviator stress (kPa), from the origin; the working curves of an adjustment, if there is one.
/// A later stage of one specimen begins at its first row, unless the sample's flag says otherwise.
ChartCurves stressStrainCurves(const TriaxialSampleRecord& record, const CurveAdjustment* adjustment);
/// The row at whose strain the selected curve has its point next to a strain (%): the nearer of the two neighbours
/// between which the strain lies, the former of two equally near. Nothing where the curve has no such neighbours or the
/// nearer one is the origin. A test of separate specimens (shear mode 1) has nothing in front of its first reading.
std::optional<std::size_t> rowNextTo(const TriaxialSampleRecord& record, const CurveAdjustment& adjustment,
                                     double strain);
/// Axial strain (%), pore pressure (kPa), from the origin as above.
ChartCurves porePressureCurves(const TriaxialSampleRecord& record);
/// Axial strain (%), ratio of the effective principal stresses, from the origin as above.
ChartCurves stressRatioCurves(const TriaxialSampleRecord& record);
/// Centre and radius of the effective stress circle of each row (kPa).
ChartCurves stressPaths(const TriaxialSampleRecord& record);

}  // namespace triaxlab
