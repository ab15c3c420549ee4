#include "importers/triaxial_import.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "common/fixed_text.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

using Record = TriaxialSampleRecord;

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

/// Blanks what a source may have filled: a small part of the record, whose other fields were never touched.
void blankAgain(Record& record) {
  static const Record kBlank;
  constexpr std::size_t kHead = offsetof(Record, deviatorStress);
  std::copy_n(bytesOf(kBlank).begin(), kHead, writableBytesOf(record).begin());
  forEachReadingField(
      [&](auto member, std::size_t count) { std::copy_n((kBlank.*member).begin(), count, (record.*member).begin()); });
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

/// A sixth pressure finds no free slot and is dropped in silence, as the technician knows it from five places.
void mergeSpecimens(const Record& from, Record& into) {
  for (std::size_t slot = 0; slot < kStages; ++slot) {
    const double pressure = from.cellPressure[slot].number();
    if (pressure == 0) continue;
    const auto place = slotForPressure(into, pressure);
    if (!place) continue;
    copySpecimen(from, slot, into, *place);
    if (into.cellPressure[*place].number() == 0) into.cellPressure[*place] = from.cellPressure[slot];
  }
}

}  // namespace

std::optional<std::size_t> slotForPressure(const TriaxialSampleRecord& row, double pressure) {
  const auto known = slotOfPressure(row, pressure);
  return known ? known : slotOfPressure(row, 0);
}

void TriaxialImportPlan::addProjectDate(const SourceRow& source) {
  if (m_projectDates.size() == kProjectDateRows)
    throw UserError("选中的工程太多，最多只能处理101个，数据没有读入。请减少选中的行。");
  ProjectDate& date = m_projectDates.emplace_back();
  SetText(date.projectNo, source.projectNo);
  SetText(date.testDate, source.testDate);
}

void TriaxialImportPlan::setProjectDate(const SourceRow& source) {
  ProjectDate wanted;
  SetText(wanted.projectNo, source.projectNo);
  const auto known = std::find_if(m_projectDates.begin(), m_projectDates.end(),
                                  [&](const ProjectDate& row) { return row.projectNo == wanted.projectNo; });
  if (known == m_projectDates.end()) return addProjectDate(source);
  SetText(known->testDate, source.testDate);
}

void TriaxialImportPlan::setOnlyProjectDate(const SourceRow& source) {
  m_projectDates.clear();
  addProjectDate(source);
}

void TriaxialImportPlan::setProjectName(std::string_view projectNo, std::string_view name) {
  // It is looked up by the number that the records hold, which is cut at the field's width.
  FixedText<sizeof(Record::projectNo)> inRecords;
  SetText(inRecords, Trim(projectNo));
  m_projectNames.insert_or_assign(std::string(inRecords.trimmed()), std::string(Trim(name)));
}

void TriaxialImportPlan::addGroup(const SampleIdentity& identity, Gathering gathering) {
  m_places.push_back(placeOf(identity, gathering));
}

TriaxialImportPlan::Place TriaxialImportPlan::placeOf(const SampleIdentity& identity, Gathering gathering) {
  if (gathering != Gathering::OwnRow)
    if (const auto same = m_rowOfSample.find(identity); same != m_rowOfSample.end())
      return {same->second, true, gathering};
  if (m_rowCount == kTableRows) throw UserError("选中的试样超过1001个，数据没有读入。请减少选中的行，分几次处理。");
  m_rowOfSample.try_emplace(identity, m_rowCount);
  return {m_rowCount++, false, gathering};
}

ImportReport TriaxialImportPlan::carryOut(Workspace& workspace, const Fill& fill, Remarks remarks,
                                          const Progress& progress) const {
  auto& table = workspace.TriaxialSampleTable;
  table.clear();
  workspace.clearLocations();
  workspace.clearProjectDates();
  std::copy(m_projectDates.begin(), m_projectDates.end(), workspace.ProjectDateTable.begin());
  workspace.importedProjectNames = m_projectNames;

  Record specimens;
  // A row is made in the moment when it is filled, while it is at hand: the table is far larger than the caches.
  for (std::size_t group = 0; group < m_places.size(); ++group) {
    const Place& place = m_places[group];
    if (place.joins && place.gathering == Gathering::BySample) {
      blankAgain(specimens);
      fill(group, specimens);
      mergeSpecimens(specimens, table[place.row]);
    } else {
      fill(group, table[place.row]);
    }
    tell(progress, group + 1, m_places.size());
  }
  if (m_axes == TimeAxes::Even) std::ranges::for_each(table.used(), FillSampleTimeAxes);
  workspace.rawImportPending = true;
  return {m_rowCount, std::move(remarks)};
}

}  // namespace triaxlab
