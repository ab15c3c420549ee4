#include "store/project/specimens.h"

#include <array>
#include <cstddef>
#include <optional>
#include <type_traits>
#include <utility>

#include "triaxial/record_fields.h"

namespace triaxlab {
namespace {

using Record = TriaxialSampleRecord;

/// How many rows with an element for each stage a member has: readings have many, a measure one, what belongs to the
/// sample as a whole none.
template <class Member>
inline constexpr std::size_t kStageRows = 0;
template <class T>
inline constexpr std::size_t kStageRows<PerStage<T>> = 1;
template <class T, std::size_t Rows>
inline constexpr std::size_t kStageRows<std::array<PerStage<T>, Rows>> = Rows;

template <class Member>
auto& stageRow(Member& member, [[maybe_unused]] std::size_t row) {
  if constexpr (kStageRows<std::remove_const_t<Member>> == 1)
    return member;
  else
    return member[row];
}

/// Calls `visit` with each member that has stages, its number of rows and its offset.
template <class Visit>
void visitStageFields(Visit visit) {
  visitFields<Record>([&](const auto& field) {
    constexpr std::size_t kRows = kStageRows<typename std::decay_t<decltype(field)>::Value>;
    if constexpr (kRows != 0) visit(field.member, kRows, field.offset);
  });
}

/// A merge keeps what the sample holds of these, and of the 212 rows of volumeChange takes those that the consolidation
/// has.
constexpr std::size_t mergedRows(std::size_t offset, std::size_t rows) {
  const bool keeps = offset == offsetof(Record, consolidationTime) || offset == offsetof(Record, coefficientB) ||
                     offset == offsetof(Record, coefficientAf);
  if (keeps) return 0;
  return offset == offsetof(Record, volumeChange) ? kConsolidationRows : rows;
}
constexpr bool isMergedSampleField(std::size_t offset) {
  return offset != offsetof(Record, testDate) && offset != offsetof(Record, reserved);
}

void exchangeStages(Record& record, std::size_t a, std::size_t b) {
  visitStageFields([&](auto member, std::size_t rows, std::size_t /*offset*/) {
    for (std::size_t row = 0; row < rows; ++row) {
      auto& stages = stageRow(record.*member, row);
      std::swap(stages[a], stages[b]);
    }
  });
}

void copyStage(Record& to, std::size_t toStage, const Record& from, std::size_t fromStage) {
  visitStageFields([&](auto member, std::size_t rows, std::size_t offset) {
    for (std::size_t row = 0; row < mergedRows(offset, rows); ++row)
      stageRow(to.*member, row)[toStage] = stageRow(from.*member, row)[fromStage];
  });
}

void copySampleFields(Record& to, const Record& from) {
  visitFields<Record>([&](const auto& field) {
    if constexpr (kStageRows<typename std::decay_t<decltype(field)>::Value> == 0)
      if (isMergedSampleField(field.offset)) to.*field.member = from.*field.member;
  });
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

void mergeIntoStored(TriaxialSampleRecord& stored, const TriaxialSampleRecord& row) {
  copySampleFields(stored, row);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const double pressure = row.cellPressure[stage].number();
    if (pressure == 0) continue;
    std::optional<std::size_t> slot = stageOfPressure(stored, pressure);
    if (!slot) slot = stageOfPressure(stored, 0);
    if (slot) copyStage(stored, *slot, row, stage);
  }
}

}  // namespace triaxlab
