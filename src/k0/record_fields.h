#pragma once

#include <tuple>

#include "common/record_fields.h"
#include "k0/record.h"

namespace triaxlab {

constexpr auto fieldsOf(RecordTag<K0SampleRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(K0SampleRecord, projectNo, "", "工程编号, project number; blank in an empty slot"),
      TRIAXLAB_FIELD(K0SampleRecord, sampleNo, "", "土样编号, sample number; blank in an empty slot"),
      TRIAXLAB_FIELD(K0SampleRecord, koAdjusted, "", "not 0: the line was set by hand and isn't fitted any more"),
      TRIAXLAB_FIELD(K0SampleRecord, axialDeformation, "mm", "轴向变形量, axial deformation"),
      TRIAXLAB_FIELD(K0SampleRecord, axialPressure, "kPa", "轴向压力, axial pressure"),
      TRIAXLAB_FIELD(K0SampleRecord, lateralPressure, "kPa", "侧向压力, lateral pressure"),
      TRIAXLAB_FIELD(K0SampleRecord, koValue, "", "Ko, slope of lateral over axial pressure"),
      TRIAXLAB_FIELD(K0SampleRecord, koIntercept, "kPa", "intercept of that line"),
      TRIAXLAB_FIELD(K0SampleRecord, samplingDepth, "", "取土深度, from the summary file"),
      TRIAXLAB_FIELD(K0SampleRecord, spare, "", "written blank"),
  };
}
static_assert(tiles<K0SampleRecord>(243));

/// The K0 record's own fields stand in front of the others.
constexpr auto fieldsOf(RecordTag<TK0SampleRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(TK0SampleRecord, k0, "", "the fields of the K0 record"),
      TRIAXLAB_FIELD(TK0SampleRecord, pressureSeries, "kPa", "压力, lateral pressure in time"),
      TRIAXLAB_FIELD(TK0SampleRecord, deformationSeries, "mm", "变形量, deformation in time"),
      TRIAXLAB_FIELD(TK0SampleRecord, t90Slope, "mm/√min", "slope of the first line of the T90 construction"),
      TRIAXLAB_FIELD(TK0SampleRecord, t90Intercept, "mm", "its deformation at time 0"),
      TRIAXLAB_FIELD(TK0SampleRecord, t90Adjusted, "", "1: that line was set by hand"),
      TRIAXLAB_FIELD(TK0SampleRecord, stageCount, "", "load stages in use, at most 10"),
      TRIAXLAB_FIELD(TK0SampleRecord, timeRowCount, "", "rows of the time series"),
      TRIAXLAB_FIELD(TK0SampleRecord, elapsedSeconds, "s", "time since the stage began; 0: no reading"),
  };
}
static_assert(tiles<TK0SampleRecord>(4881));

}  // namespace triaxlab
