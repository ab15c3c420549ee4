#pragma once

#include <cstdint>
#include <span>

#include "importers/import_plan.h"
#include "importers/reading_words.h"
#include "unconfined/record.h"

namespace triaxlab {

template <>
struct ImportTarget<UnconfinedSampleRecord> {
  static constexpr SampleTable<UnconfinedSampleRecord> Workspace::*kTable = &Workspace::UnconfinedSampleTable;
};

using UnconfinedImportPlan = ImportPlan<UnconfinedSampleRecord>;
using UnconfinedIdentity = SampleIdentity<UnconfinedSampleRecord>;

inline void setIdentity(UnconfinedSampleRecord& row, const UnconfinedIdentity& identity) {
  row.projectNo = identity.projectNo;
  row.sampleNo = identity.sampleNo;
}

/// What every unconfined source says when it brought nothing.
inline constexpr ImportMessage kNoUnconfinedSamples{"打开无侧限抗压强度试验原始数据库", "没有无侧限试验数据..."};

// The strains of readings at even steps, as texts.
const UnconfinedColumn& strainsEachPercent();
const UnconfinedColumn& strainsEachHalfPercent();

/// What the controllers of the .KU files keep of a specimen, whatever its layout.
struct RawUnconfinedSide {
  double height, area;                            // cm, cm2
  std::int16_t ringCoefficient;                   // 0.001 N/0.01mm
  std::span<const Little<std::int16_t>> reading;  // 0.1 division
  const UnconfinedColumn& strain;                 // % at each reading
};

/// Fills a side of a row; what the row held of it before is gone.
void fillSide(UnconfinedSampleRecord& row, Specimen specimen, const RawUnconfinedSide& raw);

}  // namespace triaxlab
