#pragma once

#include <cstddef>
#include <optional>

#include "importers/import_plan.h"
#include "triaxial/record.h"
#include "triaxial/time_axes.h"

namespace triaxlab {

/// The slot of a row with this cell pressure, kPa, else the first free one; nothing when all five are taken by others.
std::optional<std::size_t> slotForPressure(const TriaxialSampleRecord& row, double pressure);

/// The slot of a row that a specimen which is a group of its own goes to, blank where an import writes: of a blank row
/// the first, else that of its pressure. Nothing for one without a pressure that isn't the first, and for a sixth.
std::optional<std::size_t> makePlaceForSpecimen(TriaxialSampleRecord& row, double pressure);

/// A group of several specimens that may join a row fills what lies in front of deviatorStress, and of the readings the
/// first kImportedShearRows and kImportedConsolidationRows.
template <>
struct ImportTarget<TriaxialSampleRecord> {
  static constexpr SampleTable<TriaxialSampleRecord> Workspace::*kTable = &Workspace::TriaxialSampleTable;
  static void blankAgain(TriaxialSampleRecord& record);
  /// A specimen replaces the one of its pressure, or takes the first free slot. A sixth pressure finds none and is
  /// dropped in silence, as the technician knows it from five places.
  static void join(const TriaxialSampleRecord& from, TriaxialSampleRecord& into);
  /// The apparatus reads at even strains and at times that everybody knows.
  static void finish(TriaxialSampleRecord& record) { FillSampleTimeAxes(record); }
};

using TriaxialImportPlan = ImportPlan<TriaxialSampleRecord>;
using TriaxialIdentity = SampleIdentity<TriaxialSampleRecord>;

inline void setIdentity(TriaxialSampleRecord& row, const TriaxialIdentity& identity) {
  row.projectNo = identity.projectNo;
  row.sampleNo = identity.sampleNo;
  row.testMethod = identity.testMethod;
}

}  // namespace triaxlab
