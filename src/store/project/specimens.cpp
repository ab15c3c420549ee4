#include "store/project/specimens.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <optional>
#include <utility>

namespace triaxlab {
namespace {

using Record = TriaxialSampleRecord;

/// A field with a stage index: `rows` rows of one element a stage. A merge copies the first `mergedRows` of them.
struct StageField {
  std::size_t offset;
  std::size_t elementSize;
  std::size_t rows;
  std::size_t mergedRows;

  std::size_t place(std::size_t row, std::size_t stage) const { return offset + (row * kStages + stage) * elementSize; }
};

template <class T>
constexpr StageField perStage(std::size_t offset, PerStage<T> Record::*, bool merged = true) {
  return {offset, sizeof(T), 1, merged ? 1U : 0U};
}
template <class T, std::size_t Rows>
constexpr StageField rowsOf(std::size_t offset, std::array<PerStage<T>, Rows> Record::*, std::size_t mergedRows) {
  return {offset, sizeof(T), Rows, mergedRows};
}

constexpr std::array kStageFields{
    perStage(offsetof(Record, shearRate), &Record::shearRate),
    perStage(offsetof(Record, cellPressure), &Record::cellPressure),
    perStage(offsetof(Record, initialHeight), &Record::initialHeight),
    perStage(offsetof(Record, consolidatedHeight), &Record::consolidatedHeight),
    perStage(offsetof(Record, initialArea), &Record::initialArea),
    perStage(offsetof(Record, consolidatedArea), &Record::consolidatedArea),
    perStage(offsetof(Record, failureRadius), &Record::failureRadius),
    perStage(offsetof(Record, failureRadiusEff), &Record::failureRadiusEff),
    perStage(offsetof(Record, failureCentre), &Record::failureCentre),
    perStage(offsetof(Record, failureCentreEff), &Record::failureCentreEff),
    perStage(offsetof(Record, failureStrainLimit), &Record::failureStrainLimit),
    perStage(offsetof(Record, consolidationDrainage), &Record::consolidationDrainage),
    perStage(offsetof(Record, ringCoefficient), &Record::ringCoefficient),
    perStage(offsetof(Record, sigma1Failure), &Record::sigma1Failure),
    perStage(offsetof(Record, sigma1FailureEff), &Record::sigma1FailureEff),
    perStage(offsetof(Record, sigma3FailureEff), &Record::sigma3FailureEff),
    rowsOf(offsetof(Record, deviatorStress), &Record::deviatorStress, kShearRows),
    rowsOf(offsetof(Record, sigma1Eff), &Record::sigma1Eff, kShearRows),
    rowsOf(offsetof(Record, sigma3Eff), &Record::sigma3Eff, kShearRows),
    rowsOf(offsetof(Record, porePressure), &Record::porePressure, kShearRows),
    rowsOf(offsetof(Record, consolidationTime), &Record::consolidationTime, 0),
    rowsOf(offsetof(Record, consolidationPorePressure), &Record::consolidationPorePressure, kConsolidationRows),
    rowsOf(offsetof(Record, consolidationVolume), &Record::consolidationVolume, kConsolidationRows),
    // Of the 212 rows of volumeChange a merge takes only those that the consolidation fields have.
    rowsOf(offsetof(Record, volumeChange), &Record::volumeChange, kConsolidationRows),
    rowsOf(offsetof(Record, axialStrain), &Record::axialStrain, kShearRows),
    perStage(offsetof(Record, coefficientB), &Record::coefficientB, false),
    perStage(offsetof(Record, coefficientAf), &Record::coefficientAf, false),
};

/// Bytes [begin, end) of a record that belong to the sample and not to a stage, as a merge copies them.
struct SampleBytes {
  std::size_t begin, end;
};
constexpr std::array kSampleBytes{
    SampleBytes{offsetof(Record, projectNo), offsetof(Record, shearRate)},
    SampleBytes{offsetof(Record, cohesionTenths), offsetof(Record, cellPressure)},
    SampleBytes{offsetof(Record, density), offsetof(Record, failureRadiusEff)},
    SampleBytes{offsetof(Record, soilName), offsetof(Record, failureStrainLimit)},
    SampleBytes{offsetof(Record, adjustedFlag), offsetof(Record, coefficientB)},
    SampleBytes{offsetof(Record, cohesionText), offsetof(Record, reserved)},
};

/// Each byte of a record up to the test date belongs to one of the two tables.
constexpr bool tablesCoverTheRecord() {
  std::size_t covered = 0;
  for (const StageField& field : kStageFields) covered += field.elementSize * field.rows * kStages;
  for (const SampleBytes& bytes : kSampleBytes) covered += bytes.end - bytes.begin;
  return covered + sizeof(Record::testDate) + sizeof(Record::reserved) == sizeof(Record);
}
static_assert(tablesCoverTheRecord());

std::byte* bytesOf(Record& record) { return reinterpret_cast<std::byte*>(&record); }
const std::byte* bytesOf(const Record& record) { return reinterpret_cast<const std::byte*>(&record); }

void exchangeStages(Record& record, std::size_t a, std::size_t b) {
  for (const StageField& field : kStageFields)
    for (std::size_t row = 0; row < field.rows; ++row) {
      std::byte* const first = bytesOf(record) + field.place(row, a);
      std::swap_ranges(first, first + field.elementSize, bytesOf(record) + field.place(row, b));
    }
}

void copyStage(Record& to, std::size_t toStage, const Record& from, std::size_t fromStage) {
  for (const StageField& field : kStageFields)
    for (std::size_t row = 0; row < field.mergedRows; ++row)
      std::memcpy(bytesOf(to) + field.place(row, toStage), bytesOf(from) + field.place(row, fromStage),
                  field.elementSize);
}

std::optional<std::size_t> stageOfPressure(const Record& record, double pressure) {
  for (std::size_t stage = 0; stage < kStages; ++stage)
    if (record.cellPressure[stage].number() == pressure) return stage;
  return std::nullopt;
}

bool belongsBefore(const Record& record, std::size_t later, std::size_t earlier) {
  const double pressure = record.cellPressure[later].number();
  return record.cellPressure[earlier].number() > pressure && pressure > 0.5;
}

}  // namespace

bool specimensAreSorted(const TriaxialSampleRecord& record) {
  for (std::size_t s = 0; s + 1 < kStages; ++s)
    for (std::size_t t = s + 1; t < kStages; ++t)
      if (belongsBefore(record, t, s)) return false;
  return true;
}

void sortSpecimens(TriaxialSampleRecord& record) {
  for (std::size_t s = 0; s + 1 < kStages; ++s)
    for (std::size_t t = s + 1; t < kStages; ++t)
      if (belongsBefore(record, t, s)) exchangeStages(record, s, t);
}

void mergeSpecimens(TriaxialSampleRecord& stored, const TriaxialSampleRecord& row) {
  for (const SampleBytes& part : kSampleBytes)
    std::memcpy(bytesOf(stored) + part.begin, bytesOf(row) + part.begin, part.end - part.begin);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const double pressure = row.cellPressure[stage].number();
    if (pressure == 0) continue;
    std::optional<std::size_t> slot = stageOfPressure(stored, pressure);
    if (!slot) slot = stageOfPressure(stored, 0);
    if (slot) copyStage(stored, *slot, row, stage);
  }
}

}  // namespace triaxlab
