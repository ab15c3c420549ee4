#include "store/project/old_formats.h"

#include <array>
#include <cstring>

#include "store/safety/leftovers.h"
#include "triaxial/record.h"
#include "unconfined/record.h"

namespace triaxlab {
namespace {

// ---- Triaxial: the record ended where testDate begins today.

constexpr std::size_t kOldTriaxialSize = 38366;
constexpr std::array kTriaxialCopies{FieldCopy{0, 0, offsetof(TriaxialSampleRecord, testDate)}};

// ---- Unconfined: 23 rows in each column, everything else in the same order.

constexpr std::size_t kOldUnconfinedSize = 916;
constexpr std::size_t kOldColumnSize = 23 * sizeof(UnconfinedColumn::value_type);
constexpr std::size_t kColumnsStart = offsetof(UnconfinedSampleRecord, undisturbedStress);
constexpr std::size_t kScalarsStart = offsetof(UnconfinedSampleRecord, sampleHeight);
constexpr std::size_t kOldScalarsStart = kColumnsStart + 6 * kOldColumnSize;

/// Column k of the six, in the order of the record.
constexpr FieldCopy oldColumn(std::size_t k) {
  return {kColumnsStart + k * kOldColumnSize, kColumnsStart + k * sizeof(UnconfinedColumn), kOldColumnSize};
}
constexpr std::array kUnconfinedCopies{
    FieldCopy{0, 0, kColumnsStart},  // projectNo, sampleNo
    oldColumn(0),
    oldColumn(1),
    oldColumn(2),
    oldColumn(3),
    oldColumn(4),
    oldColumn(5),
    FieldCopy{kOldScalarsStart, kScalarsStart, sizeof(UnconfinedSampleRecord) - kScalarsStart},
};

/// The copies take every byte of the old record, in order.
template <std::size_t N>
constexpr bool takeAll(const std::array<FieldCopy, N>& copies, std::size_t oldSize) {
  std::size_t end = 0;
  for (const FieldCopy& copy : copies) {
    if (copy.from != end) return false;
    end += copy.size;
  }
  return end == oldSize;
}
static_assert(takeAll(kTriaxialCopies, kOldTriaxialSize) && takeAll(kUnconfinedCopies, kOldUnconfinedSize));
static_assert(kColumnsStart + 6 * sizeof(UnconfinedColumn) == kScalarsStart);

}  // namespace

Bytes recordOfToday(const OldFormat& format, std::span<const std::byte> blank, std::span<const std::byte> old) {
  Bytes record(blank.begin(), blank.end());
  for (const FieldCopy& copy : format.copies) std::memcpy(&record[copy.to], &old[copy.from], copy.size);
  return record;
}

constinit const OldFormat kOldTriaxialFormat{kOldTriaxialSize, kTriaxialCopies, kUpgradedTriaxialFile};
constinit const OldFormat kOldUnconfinedFormat{kOldUnconfinedSize, kUnconfinedCopies, kUpgradedUnconfinedFile};

}  // namespace triaxlab
