#pragma once

#include <tuple>

#include "common/record_fields.h"
#include "unconfined/record.h"

namespace triaxlab {

constexpr auto fieldsOf(RecordTag<UnconfinedSampleRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(UnconfinedSampleRecord, projectNo, "", "工程编号, project number; blank in an empty slot"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, sampleNo, "", "土样编号, sample number; blank in an empty slot"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, undisturbedStress, "kPa", "原状σ, stress of the undisturbed specimen"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, remouldedStress, "kPa", "重塑σ, stress of the remoulded specimen"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, undisturbedStrain, "%", "原状ε"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, remouldedStrain, "%", "重塑ε"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, undisturbedReading, "0.01 mm", "原状R, dial reading"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, remouldedReading, "0.01 mm", "重塑R, dial reading"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, sampleHeight, "cm", "试样高度, height: undisturbed, remoulded"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, sampleArea, "cm²", "试样面积, area: undisturbed, remoulded"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, ringCoefficient, "0.001 N/0.01mm",
                     "钢环系数, coefficient of the load ring: undisturbed, remoulded"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, qu, "kPa", "peak strength of the undisturbed specimen"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, quRemoulded, "kPa", "qu′, peak strength of the remoulded specimen"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, sensitivity, "", "St = qu / qu′"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, strainLimit, "0.1 %",
                     "strain up to which the peak is looked for: undisturbed, remoulded"),
      TRIAXLAB_FIELD(UnconfinedSampleRecord, spare, "", "written blank"),
  };
}
static_assert(tiles<UnconfinedSampleRecord>(1924));

}  // namespace triaxlab
