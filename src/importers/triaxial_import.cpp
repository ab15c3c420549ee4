#include "importers/triaxial_import.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "platform/files.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

using Record = TriaxialSampleRecord;

const Record& blank() { return SampleTable<Record>::blank(); }

template <class Rows>
void copyRows(const Rows& from, std::size_t fromSlot, Rows& into, std::size_t intoSlot, std::size_t count) {
  for (std::size_t row = 0; row < count; ++row) into[row][intoSlot] = from[row][fromSlot];
}

/// The fields with a row for each reading, of which a source fills the first `count`.
template <class Work>
void forEachReadingField(Work&& work) {
  work(&Record::consolidationPorePressure, kImportedConsolidationRows);
  work(&Record::consolidationVolume, kImportedConsolidationRows);
  work(&Record::deviatorStress, kImportedShearRows);
  work(&Record::porePressure, kImportedShearRows);
  work(&Record::volumeChange, kImportedShearRows);
}

/// All that a source gives of one specimen but its pressure.
void copySpecimen(const Record& from, std::size_t fromSlot, Record& into, std::size_t intoSlot) {
  into.shearRate[intoSlot] = from.shearRate[fromSlot];
  into.initialHeight[intoSlot] = from.initialHeight[fromSlot];
  into.consolidatedHeight[intoSlot] = from.consolidatedHeight[fromSlot];
  into.initialArea[intoSlot] = from.initialArea[fromSlot];
  into.consolidatedArea[intoSlot] = from.consolidatedArea[fromSlot];
  into.consolidationDrainage[intoSlot] = from.consolidationDrainage[fromSlot];
  into.ringCoefficient[intoSlot] = from.ringCoefficient[fromSlot];
  forEachReadingField(
      [&](auto member, std::size_t count) { copyRows(from.*member, fromSlot, into.*member, intoSlot, count); });
}

std::optional<std::size_t> slotOfPressure(const Record& record, double pressure) {
  for (std::size_t slot = 0; slot < kStages; ++slot)
    if (record.cellPressure[slot].number() == pressure) return slot;
  return std::nullopt;
}

}  // namespace

std::optional<std::size_t> slotForPressure(const TriaxialSampleRecord& row, double pressure) {
  const auto known = slotOfPressure(row, pressure);
  return known ? known : slotOfPressure(row, 0);
}

std::optional<std::size_t> makePlaceForSpecimen(TriaxialSampleRecord& row, double pressure) {
  constexpr std::size_t kFirst = 0;
  if (row.sampleNo.isBlank()) return kFirst;
  if (pressure == 0) return std::nullopt;
  const auto slot = slotForPressure(row, pressure);
  const bool wasWritten = slot && !row.cellPressure[*slot].isBlank();
  if (wasWritten) copySpecimen(blank(), kFirst, row, *slot);
  return slot;
}

// A small part of the record, whose other fields were never touched.
void ImportTarget<Record>::blankAgain(Record& record) {
  constexpr std::size_t kHead = offsetof(Record, deviatorStress);
  std::copy_n(bytesOf(blank()).begin(), kHead, writableBytesOf(record).begin());
  forEachReadingField(
      [&](auto member, std::size_t count) { std::copy_n((blank().*member).begin(), count, (record.*member).begin()); });
}

void ImportTarget<Record>::join(const Record& from, Record& into) {
  for (std::size_t slot = 0; slot < kStages; ++slot) {
    const double pressure = from.cellPressure[slot].number();
    if (pressure == 0) continue;
    const auto place = slotForPressure(into, pressure);
    if (!place) continue;
    copySpecimen(from, slot, into, *place);
    if (into.cellPressure[*place].number() == 0) into.cellPressure[*place] = from.cellPressure[slot];
  }
}

}  // namespace triaxlab
