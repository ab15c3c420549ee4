#pragma once

#include <cstddef>
#include <cstdint>

#include "triaxial/record.h"

namespace triaxlab {

/// The largest number of rows by which a curve can be slid to the left.
inline constexpr std::int16_t kLargestShift = 50;

/// The working copies of a stress-strain curve while a person corrects it. Edits change the curve of the selected stage
/// and leave the sample alone.
struct CurveAdjustment {
  ShearRows<FixedText<6>> workCurve;    // drawn in place of deviatorStress, kPa
  PerStage<std::int16_t> stageShift{};  // rows by which a curve slides to the left, 0 to kLargestShift
  std::size_t selectedStage = 0;
  bool operator==(const CurveAdjustment&) const = default;
};

/// The curves of the sample as they are, its first used stage selected.
CurveAdjustment adjustmentOf(const TriaxialSampleRecord& record);

/// One row to the left (`step` 1) or to the right (-1); held within 0 to kLargestShift.
void slideCurve(CurveAdjustment& adjustment, int step);

/// False, and no change, for a factor of 0 and for 50 or more: such data are wrong. Rows without stress become "0.0".
bool multiplyCurve(CurveAdjustment& adjustment, double factor);

/// Adds kPa to the first ten rows and to all others under stress. False, and no change, for 0.
bool addToCurve(CurveAdjustment& adjustment, double summand);

/// Puts the reading of a row of the working curve to a stress, kPa. Exactly 0 is not written.
void setReading(CurveAdjustment& adjustment, std::size_t row, double stress);

/// What a person has made of the curves becomes the sample's. Each stage moves up by its shift, effective stresses,
/// pore pressure and volume with it, and the rows that become free at the end are blank. The strain column stays, so
/// the curve loses its beginning. The effective stresses then follow the new curve, as they will when the file is
/// opened again.
void storeAdjustment(TriaxialSampleRecord& record, const CurveAdjustment& adjustment);

}  // namespace triaxlab
