// KSZSJ.KU, the database of the QVB98 triaxial apparatus.
//
// A .KU file (see ku_file.h). A data block is a group count, groups of four specimens, and behind them a text with long
// sample numbers; a group is one sample. The apparatus keeps dial readings of a proving ring: a reading times the
// ring's coefficient is the load, which is put over the section that the specimen has at the strain of the reading. No
// unit factor is applied, so the stress has the unit that the stored coefficient gives it. Sample numbers are packed
// decimals. Not known: the first 20 bytes of a group and the reserved places of a specimen.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "common/conversions.h"
#include "importers/area_correction.h"
#include "importers/field_fill.h"
#include "importers/importer.h"
#include "importers/indexed_source.h"
#include "importers/ku_file.h"
#include "importers/numbered_groups.h"
#include "importers/raw_layouts.h"
#include "importers/reading_words.h"
#include "importers/triaxial_import.h"

namespace triaxlab {
namespace {

using QvbEntry = GroupsIndex::Entry;

constexpr std::size_t kSlots = 4;
constexpr std::size_t kReadings = 50;

struct QvbSpecimenRecord {                       // offset
  std::array<std::uint8_t, 4> packedSampleNo{};  //   0
  FixedText<2> reserved4;                        //   4
  std::uint8_t testMethod = 0;                   //   6  TestMethod
  FixedText<2> reserved7;                        //   7
  std::uint8_t shearMode = 0;                    //   9  2: a reading each 0.2 %, else each 0.4 %
  Little<std::int16_t> rawCellPressure;          //  10  kPa; 0: no specimen
  Little<std::int16_t> rawInitialHeight;         //  12  0.01 cm
  Little<std::int16_t> rawConsolidatedHeight;    //  14  0.01 cm
  Little<std::int16_t> rawInitialArea;           //  16  0.01 cm2
  Little<std::int16_t> rawDrainage;              //  18  0.01 ml
  Little<std::int16_t> rawRingCoefficient;       //  20  0.001 load per division
  FixedText<10> reserved22;                      //  22
  Words<kReadings> rawDial;                      //  32  divisions; reading i stands at index i
  Little<std::int16_t> rawStartPore;             // 132  kPa, sign and magnitude; 0: not read
  Words<kReadings> rawPore;                      // 134  kPa, sign and magnitude
  Words<kReadings> rawVolume;                    // 234  0.01 ml, sign and magnitude
  FixedText<2> reserved334;                      // 334
};                                               // 336

constexpr auto fieldsOf(RecordTag<QvbSpecimenRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(
          QvbSpecimenRecord, packedSampleNo, "",
          "sample number, two decimals a byte, the high nibble first; 10 is a dash, what lies above adds nothing"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, reserved4, "", "not used"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, testMethod, "", "1 UU, 2 CU, 3 CD"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, reserved7, "", "not used"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, shearMode, "", "2: a reading each 0.2 %, else each 0.4 %"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawCellPressure, "kPa", "cell pressure; 0: no specimen"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawInitialHeight, "0.01 cm", "height"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawConsolidatedHeight, "0.01 cm", "height after consolidation"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawInitialArea, "0.01 cm²", "area"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawDrainage, "0.01 ml", "drained volume"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawRingCoefficient, "0.001", "load of a division"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, reserved22, "", "not used"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawDial, "divisions", "readings of the load ring; 0: no reading"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawStartPore, "kPa",
                     "pore pressure at the start, sign and magnitude; 0: the first of the others"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawPore, "kPa", "pore pressure, sign and magnitude"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, rawVolume, "0.01 ml", "volume change, sign and magnitude"),
      TRIAXLAB_FIELD(QvbSpecimenRecord, reserved334, "", "not used"),
  };
}
static_assert(tiles<QvbSpecimenRecord>(336));

struct QvbGroupRecord {                             // offset
  FixedText<20> unknown;                            //    0
  std::array<QvbSpecimenRecord, kSlots> specimens;  //   20
};                                                  // 1364
static_assert(sizeof(QvbGroupRecord) == 1364 && offsetof(QvbGroupRecord, specimens) == 20);

// ---- the data blocks

using QvbBlock = NumberedGroups<QvbGroupRecord>;

bool isSpecimen(const QvbSpecimenRecord& raw) { return raw.rawCellPressure != 0; }

BlockExtent judgeBlock(const QvbEntry& entry, const FileHead& head, Evidence& evidence) {
  return judgeCountedRecords<QvbGroupRecord>(head, entry, [&](const QvbGroupRecord& group) {
    for (const QvbSpecimenRecord& raw : group.specimens)
      if (isSpecimen(raw)) evidence.add(likenessOfSpecimen(raw.testMethod, raw.rawInitialHeight, raw.rawInitialArea));
  });
}

Recognition recogniseQvb98(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeBlock); }

/// The load on the section that a specimen has at a strain.
class RingStress {
 public:
  RingStress(const QvbSpecimenRecord& raw, const TriaxialSampleRecord& row, std::size_t slot)
      : m_method(row.testMethod),
        m_coefficient(raw.rawRingCoefficient / 1000.0),
        m_initialArea(row.initialArea[slot].number()),
        m_consolidatedArea(row.consolidatedArea[slot].number()),
        m_consolidatedHeight(raw.rawConsolidatedHeight / 100.0) {}

  /// Nothing when the load or the section comes to 0.
  std::optional<double> stress(std::int16_t dial, double strain, double drained) const {
    const double load = m_coefficient * dial;
    if (load == 0) return std::nullopt;
    return quotient(load, section(strain, drained));
  }

 private:
  /// 0 where there is none.
  double section(double strain, double drained) const {
    switch (m_method) {
      case kUU:
        return quotient(m_initialArea, 1 - strain).value_or(0);
      case kCU:
        return quotient(m_consolidatedArea, 1 - strain).value_or(0);
      case kCD:
        return drainedSection(m_consolidatedArea, m_consolidatedHeight, drained, strain).value_or(0);
      default:
        return 0;
    }
  }

  std::uint8_t m_method;
  double m_coefficient, m_initialArea, m_consolidatedArea, m_consolidatedHeight;
};

/// Strain that the stages before this one have used up: counted on their dial readings, not on the stresses.
double strainOfEarlierDials(const QvbGroupRecord& group, std::size_t slot) {
  double strain = 0;
  for (std::size_t earlier = 0; earlier < slot; ++earlier) {
    const auto& dial = group.specimens[earlier].rawDial;
    std::size_t rows = 1;
    while (rows < kReadings && readingOrZero(dial[rows]) != 0) ++rows;
    strain += static_cast<double>(rows) * 0.002;
  }
  return strain;
}

// ---- a specimen fills its slot of a row

using Record = TriaxialSampleRecord;
using Raw = QvbSpecimenRecord;

constexpr std::tuple kSpecimenFields{
    Fill{&Raw::rawCellPressure, &Record::cellPressure, wholeInto},
    Fill{&Raw::rawInitialHeight, &Record::initialHeight, hundredthsInto},
    Fill{&Raw::rawConsolidatedHeight, &Record::consolidatedHeight, hundredthsInto},
    Fill{&Raw::rawInitialArea, &Record::initialArea, hundredthsInto},
    Fill{&Raw::rawDrainage, &Record::consolidationDrainage, hundredthsInto},
    Fill{&Raw::rawRingCoefficient, &Record::ringCoefficient, thousandthsInto},
};

/// Without a height the volume itself goes into the area.
void fillConsolidatedArea(const Raw& raw, Record& row, std::size_t slot) {
  double area = raw.rawInitialHeight / 100.0 * raw.rawInitialArea / 100 - raw.rawDrainage / 100.0;
  if (raw.rawConsolidatedHeight != 0) area /= raw.rawConsolidatedHeight / 100.0;
  if (area != 0 && row.testMethod != kUU) SetNumber(row.consolidatedArea[slot], area, NumberFormat::Hundredths);
}

/// The record holds tenths of a kPa, the apparatus kPa; a pressure that doesn't fit stays as it is. A start that was
/// not read is looked for among the others, as one of 0 is.
void fillStartPore(const Raw& raw, Record& row, std::size_t slot) {
  constexpr std::size_t kSearched = 49;
  std::int16_t start = readingOrZero(raw.rawStartPore);
  for (std::size_t i = 0; i < kSearched && start == 0; ++i) start = readingOrZero(raw.rawPore[i]);
  start = fromSignAndMagnitude(start);
  row.consolidationPorePressure[0][slot] = toInt16(start * 10.0).value_or(start);
}

bool hasReading(const Raw& raw, std::size_t i) { return readingOrZero(raw.rawDial[i]) != 0; }

/// Volumes lose their sign and move up a row: a row holds the volume that goes with the next dial reading. Those of
/// rows without a dial reading are lost on the way.
void fillPoreAndVolume(const Raw& raw, Record& row, std::size_t slot) {
  std::array<std::int16_t, kReadings + 1> volumes{};
  for (std::size_t i = 0; i < kReadings; ++i) {
    if (!hasReading(raw, i)) continue;
    if (raw.rawPore[i] != kNoReading)
      SetNumber(row.porePressure[i][slot], fromSignAndMagnitude(raw.rawPore[i]), NumberFormat::Hundredths);
    volumes[i] = fromSignAndMagnitude(readingOrZero(raw.rawVolume[i]));
  }
  for (std::size_t i = 0; i < kReadings; ++i)
    row.volumeChange[i][slot] = static_cast<std::int16_t>(std::abs(volumes[i + 1]));
}

void fillStress(const QvbGroupRecord& group, Record& row, std::size_t slot) {
  const Raw& raw = group.specimens[slot];
  const double used = row.shearMode == 2 ? strainOfEarlierDials(group, slot) : 0;
  const double step = shearStep(row.shearMode);
  const RingStress ring(raw, row, slot);
  for (std::size_t i = 0; i < kReadings; ++i) {
    if (!hasReading(raw, i)) continue;
    const double drained = row.volumeChange[i][slot] / 100.0;
    const auto stress = ring.stress(raw.rawDial[i], static_cast<double>(i + 1) * step + used, drained);
    if (stress) SetNumber(row.deviatorStress[i][slot], *stress, NumberFormat::Whole);
  }
}

void fillSpecimen(const QvbGroupRecord& group, Record& row, std::size_t slot) {
  const Raw& raw = group.specimens[slot];
  fillFields(raw, row, slot, kSpecimenFields);
  fillConsolidatedArea(raw, row, slot);
  fillStartPore(raw, row, slot);
  fillPoreAndVolume(raw, row, slot);
  fillStress(group, row, slot);
}

// ---- the source

struct QvbGroup {
  const QvbGroupRecord* record;
  TriaxialIdentity identity;

  bool hasSpecimen(std::size_t slot) const { return isSpecimen(record->specimens[slot]); }
};

/// The first slot names the sample. A group that has none there stays without a name and a method.
TriaxialIdentity identityOf(const QvbBlock& block, std::size_t group, const SourceRow& source) {
  const QvbSpecimenRecord& first = block.groups[group].specimens[0];
  TriaxialIdentity identity;
  if (!isSpecimen(first)) return identity;
  SetText(identity.projectNo, source.projectNo);
  SetText(identity.sampleNo,
          longSampleNo(block.longSampleNumbers, group).value_or(unpackedNumber(first.packedSampleNo)));
  identity.testMethod = first.testMethod;
  return identity;
}

struct Qvb98Format : GroupsIndex {
  using Record = TriaxialSampleRecord;
  using Block = QvbBlock;
  using Group = QvbGroup;

  static Block readBlock(const File& file, const Entry& entry) {
    return readNumberedGroups<QvbGroupRecord>(file, entry);
  }

  /// A group without a specimen takes a row that stays blank.
  static void addGroups(const Block& block, const SourceRow& source, TriaxialImportPlan& plan,
                        std::vector<Group>& groups) {
    for (std::size_t i = 0; i < block.groups.size(); ++i) {
      const Group group{&block.groups[i], identityOf(block, i, source)};
      const auto& slots = group.record->specimens;
      if (std::any_of(slots.begin(), slots.end(), isSpecimen)) plan.projects.setDate(source);
      plan.addGroup(group.identity, TriaxialImportPlan::Gathering::BySample);
      groups.push_back(group);
    }
  }

  static void fill(const Group& group, Record& row) {
    setIdentity(row, group.identity);
    if (group.hasSpecimen(0)) row.shearMode = group.record->specimens[0].shearMode;
    for (std::size_t slot = 0; slot < kSlots; ++slot)
      if (group.hasSpecimen(slot)) fillSpecimen(*group.record, row, slot);
  }
};

std::vector<RawLayout> layouts() {
  return {rawLayout<QvbEntry>("Index entry"), rawLayout<QvbSpecimenRecord>("Specimen")};
}

}  // namespace

extern constinit const Importer kQvb98Importer{.id = "qvb98",
                                               .menuCommand = "OLDSZ",
                                               .menuCaption = "QVB98 三轴",
                                               .form = "OPENFORM1",
                                               .title = "QVB98三轴试验原始数据库",
                                               .defaultFile = "KSZSJ.KU",
                                               .folderField = sourceFolderField(3),
                                               .messageTitle = "打开三轴试验数据",
                                               .document = kForm1,
                                               .columns = kGroupsRowColumns,
                                               .recognise = recogniseQvb98,
                                               .open = openIndexed<Qvb98Format>,
                                               .formatPage = "qvb98-triaxial-ku.md",
                                               .layouts = layouts};

}  // namespace triaxlab
