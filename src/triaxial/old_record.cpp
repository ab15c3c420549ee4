#include "triaxial/old_record.h"

#include <cstring>
#include <span>

#include "triaxial/time_axes.h"

namespace triaxlab {
namespace {

using Record = TriaxialSampleRecord;

static_assert(sizeof(OldTriaxialRecord::sampleAndSpecimens) == offsetof(Record, deviatorStress));
static_assert(sizeof(OldTriaxialRecord::flagsAndCoefficients) ==
              offsetof(Record, testDate) - offsetof(Record, adjustedFlag));
static_assert(kOldConsolidationRows == kImportedConsolidationRows);

template <std::size_t Width, std::size_t OldWidth>
void carry(FixedText<Width>& field, const FixedText<OldWidth>& old) {
  SetText(field, old.view());
}
void carry(Little<std::int16_t>& field, const Little<std::int16_t>& old) { field = old; }
/// Tenths of a percent.
void carry(Little<float>& field, std::uint8_t old) { field = static_cast<float>(old / 10.0); }

template <class Rows, class OldRows>
void carryRows(Rows& rows, const OldRows& old) {
  for (std::size_t row = 0; row < old.size(); ++row)
    for (std::size_t stage = 0; stage < kStages; ++stage) carry(rows[row][stage], old[row][stage]);
}

template <std::size_t Size>
void carryBytes(Record& record, std::size_t offset, const std::array<std::byte, Size>& old) {
  std::memcpy(reinterpret_cast<std::byte*>(&record) + offset, old.data(), Size);
}

}  // namespace

TriaxialSampleRecord currentRecord(const OldTriaxialRecord& old) {
  Record record;
  carryBytes(record, 0, old.sampleAndSpecimens);
  carryRows(record.deviatorStress, old.deviatorStress);
  carryRows(record.sigma1Eff, old.sigma1Eff);
  carryRows(record.sigma3Eff, old.sigma3Eff);
  carryRows(record.porePressure, old.porePressure);
  carryRows(record.consolidationPorePressure, old.consolidationPorePressure);
  carryRows(record.consolidationVolume, old.consolidationVolume);
  carryRows(record.volumeChange, old.volumeChange);
  carryRows(record.axialStrain, old.axialStrain);
  carryBytes(record, offsetof(Record, adjustedFlag), old.flagsAndCoefficients);
  fillConsolidationTimes(record);
  return record;
}

}  // namespace triaxlab
