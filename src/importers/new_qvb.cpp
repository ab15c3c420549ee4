// RSZSJ.KU, the database of the newer QVB triaxial apparatus.
//
// A .KU file (see ku_file.h). A data block is two bytes that are passed over and then specimens one by one; how many
// they are stands in the index entry. The specimens of one sample number, project and method are one sample. The
// apparatus keeps dial readings: a reading times the coefficient of the proving ring is the load, which is put over the
// section that the specimen has at the strain of the reading. A specimen is filled into its row where it stands, so a
// second test at a known pressure leaves of the first what it doesn't write itself. Not known: the reserved places.
#include <fmt/core.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <tuple>
#include <type_traits>
#include <vector>

#include "common/gbk.h"
#include "importers/area_correction.h"
#include "importers/field_fill.h"
#include "importers/importer.h"
#include "importers/indexed_source.h"
#include "importers/ku_file.h"
#include "importers/raw_layouts.h"
#include "importers/reading_words.h"
#include "importers/triaxial_import.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

struct NewQvbTail {                // offset in the entry
  FixedText<2> reserved22;         // 22
  std::uint8_t specimenCount = 0;  // 24  records in the block
  FixedText<5> reserved25;         // 25
};                                 // 30
using NewQvbEntry = KuIndexEntry<NewQvbTail>;

constexpr auto fieldsOf(RecordTag<NewQvbTail> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(NewQvbTail, reserved22, "", "not used"),
      TRIAXLAB_FIELD(NewQvbTail, specimenCount, "", "specimens in the block"),
      TRIAXLAB_FIELD(NewQvbTail, reserved25, "", "not used"),
  };
}
static_assert(tiles<NewQvbTail>(8));

constexpr std::size_t kPoreWords = 51;  // one less than dial readings
constexpr std::size_t kDrainedVolumeWords = 24;

struct NewQvbSpecimenRecord {                         // offset
  std::uint8_t reserved0 = 0;                         //   0
  FixedText<10> recordProjectNo;                      //   1
  FixedText<10> recordSampleNo;                       //  11  empty: no specimen
  std::uint8_t testMethod = 0;                        //  21  TestMethod
  std::uint8_t shearMode = 0;                         //  22  2, 3: a reading each 0.2 %, else each 0.4 %
  FixedText<7> reserved23;                            //  23
  Little<std::int16_t> rawCellPressure;               //  30  0.1 kPa; 0: no specimen
  Little<std::int16_t> rawInitialHeight;              //  32  0.01 cm
  Little<std::int16_t> rawConsolidatedHeight;         //  34  0.01 cm
  Little<std::int16_t> rawInitialArea;                //  36  0.01 cm2
  Little<std::int16_t> rawDrainage;                   //  38  0.01 ml
  Little<std::int16_t> rawShearRate;                  //  40  1/1000 %/min
  Little<std::int16_t> rawRingCoefficient;            //  42  0.001 N/0.01mm
  FixedText<6> reserved44;                            //  44
  ConsolidationWords rawConsolidationPore;            //  50  0.1 kPa, reading k at k² minutes
  Words<kDrainedVolumeWords> rawConsolidationVolume;  // 100  0.01 ml, sign and magnitude
  ShearWords rawDial;                                 // 148  0.1 division
  Words<kPoreWords> rawPore;                          // 252  0.1 kPa, sign and magnitude; same index
  Words<kPoreWords> rawVolume;                        // 354  0.01 ml; same index
  FixedText<44> reserved456;                          // 456
};                                                    // 500

constexpr auto fieldsOf(RecordTag<NewQvbSpecimenRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, reserved0, "", "not used"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, recordProjectNo, "", "project number"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, recordSampleNo, "", "sample number; empty: no specimen"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, testMethod, "", "1 UU, 2 CU, 3 CD"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, shearMode, "",
                     "2, 3: a reading each 0.2 %, else each 0.4 %; 3 is kept as 2 with uuAdjustFlag 1"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, reserved23, "", "not used"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawCellPressure, "0.1 kPa", "cell pressure; 0: no specimen"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawInitialHeight, "0.01 cm", "height"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawConsolidatedHeight, "0.01 cm", "height after consolidation"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawInitialArea, "0.01 cm²", "area"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawDrainage, "0.01 ml",
                     "drained volume; beyond ±10000 a stray reading, which counts as 0"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawShearRate, "1/1000 %/min", "shear rate"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawRingCoefficient, "0.001 N/0.01mm", "coefficient of the load ring"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, reserved44, "", "not used"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawConsolidationPore, "0.1 kPa",
                     "pore pressure in consolidation; reading k at k² minutes, the last after a day"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawConsolidationVolume, "0.01 ml",
                     "drained volume in consolidation, sign and magnitude"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawDial, "0.1 division",
                     "readings of the load ring; index 0 not used; 0: no reading"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawPore, "0.1 kPa", "pore pressure, sign and magnitude; same index"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, rawVolume, "0.01 ml", "volume change; same index"),
      TRIAXLAB_FIELD(NewQvbSpecimenRecord, reserved456, "", "not used"),
  };
}
static_assert(tiles<NewQvbSpecimenRecord>(500));

// ---- the index

SourceRow rowOf(const NewQvbEntry& entry) {
  SourceRow row;
  row.projectNo = shownText(entry.entryProjectNo.view());
  row.testDate = slashedEntryDate(entry.entryDate);
  row.cells = {gbkToUtf8(row.projectNo), gbkToUtf8(row.testDate), fmt::format("{}", entry.entryTail.specimenCount)};
  return row;
}

// ---- the data blocks

using NewQvbBlock = SpecimenBlock<NewQvbSpecimenRecord>;

constexpr std::uint64_t kPassedOver = 2;  // bytes in front of the specimens

NewQvbBlock blockOf(const File& file, const NewQvbEntry& entry) {
  NewQvbBlock block;
  const std::uint64_t begin = entry.entryDataOffset.value() + kPassedOver;
  block.isWhole = readRecords(file, begin, entry.entryTail.specimenCount, block.specimens);
  return block;
}

bool isUsed(const NewQvbSpecimenRecord& raw) {
  return raw.rawCellPressure != 0 && !shownText(raw.recordSampleNo.view()).empty();
}

BlockExtent judgeBlock(const NewQvbEntry& entry, const FileHead& head, Evidence& evidence) {
  const std::uint64_t begin = entry.entryDataOffset.value();
  const auto judge = [&](const NewQvbSpecimenRecord& raw) {
    if (isUsed(raw))
      evidence.add(likenessOfSpecimen(raw.recordProjectNo.view(), raw.recordSampleNo.view(), raw.testMethod,
                                      raw.rawInitialHeight, raw.rawInitialArea));
  };
  const std::uint64_t count = entry.entryTail.specimenCount;
  return {begin, judgeRecords<NewQvbSpecimenRecord>(head, begin + kPassedOver, count, judge).end};
}

Recognition recogniseNewQvb(const FileHead& head) { return recogniseKu<NewQvbTail>(head, judgeBlock); }

/// A drainage beyond these bounds is a stray reading.
std::int16_t drainageOf(const NewQvbSpecimenRecord& raw) {
  constexpr std::int16_t kMost = 10000;
  const std::int16_t drainage = raw.rawDrainage;
  return drainage > kMost || drainage < -kMost ? std::int16_t{0} : drainage;
}

/// The stress in kPa from a load in N, on the section that a specimen has at a strain. Nothing without a section.
class LoadCorrection {
 public:
  LoadCorrection(const TriaxialSampleRecord& row, std::size_t slot)
      : m_method(row.testMethod),
        m_initialArea(row.initialArea[slot].number()),
        m_consolidatedArea(row.consolidatedArea[slot].number()),
        m_consolidatedHeight(row.consolidatedHeight[slot].number()) {}

  std::optional<double> operator()(double load, double strain, double drained) const {
    switch (m_method) {
      case kUU:
        return undrained(load, strain, m_initialArea);
      case kCU:
        return undrained(load, strain, m_consolidatedArea);
      case kCD:
        if (const auto area = drainedSection(m_consolidatedArea, m_consolidatedHeight, drained, strain))
          return load * kKpaOfNewtonsPerCm2 / *area;
        return std::nullopt;
      default:
        return std::nullopt;
    }
  }

 private:
  static constexpr double kKpaOfNewtonsPerCm2 = 10;

  static std::optional<double> undrained(double load, double strain, double area) {
    if (area == 0) return std::nullopt;
    return (1 - strain) * load * kKpaOfNewtonsPerCm2 / area;
  }

  std::uint8_t m_method;
  double m_initialArea, m_consolidatedArea, m_consolidatedHeight;
};

// ---- a specimen fills the slot of a row that its pressure finds

using Record = TriaxialSampleRecord;
using Raw = NewQvbSpecimenRecord;

constexpr std::tuple kSpecimenFields{
    Fill{&Raw::recordProjectNo, &Record::projectNo, shownTextInto},
    Fill{&Raw::recordSampleNo, &Record::sampleNo, shownTextInto},
    Fill{&Raw::testMethod, &Record::testMethod, asItStands},
    Fill{&Raw::shearMode, &Record::shearMode, asItStands},
    Fill{&Raw::rawShearRate, &Record::shearRate, asItStands},
    Fill{&Raw::rawCellPressure, &Record::cellPressure, wholeOfTenthsInto},
    Fill{&Raw::rawInitialHeight, &Record::initialHeight, hundredthsInto},
    Fill{&Raw::rawInitialArea, &Record::initialArea, hundredthsInto},
    Fill{&Raw::rawConsolidationPore, &Record::consolidationPorePressure, readingInto},
    Fill{&Raw::rawConsolidationVolume, &Record::consolidationVolume, signedReadingInto},
};

/// In mode 3 the stages are sheared as in mode 2, and the axial strain runs on.
void splitShearMode(Record& row) {
  constexpr std::uint8_t kStrainRunsOn = 3, kMultiStage = 2;
  row.uuAdjustFlag = row.shearMode == kStrainRunsOn ? 1 : 0;
  if (row.shearMode == kStrainRunsOn) row.shearMode = kMultiStage;
}

/// Worked out from the drainage, of UU tests as well. Without an initial volume the stored height stands and the area
/// is "0.00".
void fillConsolidatedSize(const Raw& raw, Record& row, std::size_t slot) {
  if (raw.testMethod != kUU) hundredthsInto(row.consolidatedHeight[slot], raw.rawConsolidatedHeight);
  const std::int16_t drainage = drainageOf(raw);
  const auto factors = drainedFactors(raw.rawInitialHeight, raw.rawInitialArea, drainage).value_or(DrainedFactors{});
  const double height = raw.rawInitialHeight / 100.0 * factors.height;
  if (height != 0) SetNumber(row.consolidatedHeight[slot], height, NumberFormat::Hundredths);
  SetNumber(row.consolidatedArea[slot], raw.rawInitialArea / 100.0 * factors.area, NumberFormat::Hundredths);
  SetNumber(row.consolidationDrainage[slot], drainage / 100.0, NumberFormat::Hundredths);
}

bool hasReading(const Raw& raw, std::size_t reading) { return readingOrZero(raw.rawDial[reading]) != 0; }

/// The last dial reading has neither.
void fillPoreAndVolume(const Raw& raw, std::size_t reading, Record& row, std::size_t slot) {
  const std::size_t i = reading - 1;
  const bool exists = reading < kPoreWords;
  if (exists && raw.rawPore[reading] != kNoReading)
    wholeOfTenthsInto(row.porePressure[i][slot], fromSignAndMagnitude(raw.rawPore[reading]));
  row.volumeChange[i][slot] = exists ? readingOrZero(raw.rawVolume[reading]) : std::int16_t{0};
}

/// The load in N as its text to one decimal reads. Its words, tenths of a division and thousandths of a newton, have a
/// whole product, so it is rounded without the text; only a load that doesn't fit the six places goes through it.
double loadOf(const Raw& raw, std::size_t reading, FixedText<6>& text) {
  constexpr int kMost = 99999, kLeast = -9999;
  const int product = raw.rawDial[reading] * raw.rawRingCoefficient;
  const int tenths = (product + (product < 0 ? -500 : 500)) / 1000;
  if (tenths >= kLeast && tenths <= kMost) return tenths / 10.0;
  return SetAndRead(text, product / 10000.0, NumberFormat::Tenths);
}

/// The readings of the shear phase. Every load becomes a stress, as far as it can be corrected, and so does what an
/// earlier test at this pressure left in a row that has no reading now.
void fillShear(const Raw& raw, Record& row, std::size_t slot) {
  const RowStrains strains(row, slot);
  const LoadCorrection correction(row, slot);
  for (std::size_t reading = 1; reading < kImportedShearRows; ++reading) {
    const std::size_t i = reading - 1;
    FixedText<6>& stress = row.deviatorStress[i][slot];
    const bool isRead = hasReading(raw, reading);
    if (isRead) fillPoreAndVolume(raw, reading, row, slot);
    const double load = isRead ? loadOf(raw, reading, stress) : stress.number();
    std::optional<double> corrected;
    if (load != 0 && i < kCorrectedRows)
      corrected = correction(load, strains.of(i), drainedVolume(row.volumeChange[i][slot]));
    if (corrected)
      SetNumber(stress, *corrected, NumberFormat::Whole);
    else if (isRead)
      SetNumber(stress, load, NumberFormat::Tenths);
  }
}

// ---- the source

struct NewQvbFormat {
  using Record = TriaxialSampleRecord;
  using Entry = NewQvbEntry;
  using Block = NewQvbBlock;
  using Group = const NewQvbSpecimenRecord*;
  static constexpr auto kGathering = TriaxialImportPlan::Gathering::InPlace;

  static std::vector<Entry> readIndex(const File& file, Remarks& remarks) {
    return readKuIndex<NewQvbTail>(file, remarks);
  }
  static SourceRow gridRow(const Entry& entry) { return rowOf(entry); }
  static Block readBlock(const File& file, const Entry& entry) { return blockOf(file, entry); }
  static bool isSpecimen(const NewQvbSpecimenRecord& raw) { return isUsed(raw); }
  static void addGroups(const Block& block, const SourceRow& source, TriaxialImportPlan& plan,
                        std::vector<Group>& groups) {
    addEachSpecimen<NewQvbFormat>(block, source, plan, groups);
  }

  /// A sixth pressure finds no slot and is dropped.
  static void fill(Group raw, Record& row) {
    const auto slot = slotForPressure(row, wholeOfTenths(raw->rawCellPressure));
    if (!slot) return;
    fillFields(*raw, row, *slot, kSpecimenFields);
    splitShearMode(row);
    fillConsolidatedSize(*raw, row, *slot);
    fillShear(*raw, row, *slot);
  }
};

constexpr std::array kColumns{kProjectNoColumn, kDateColumn, kSpecimensColumn};

std::vector<RawLayout> layouts() {
  return {rawLayout<NewQvbEntry>("Index entry"), rawLayout<NewQvbSpecimenRecord>("Specimen")};
}

}  // namespace

extern constinit const Importer kNewQvbImporter{.id = "new-qvb",
                                                .menuCommand = "NEWSZ2",
                                                .menuCaption = "新QVB三轴",
                                                .form = "OPENFORM10",
                                                .title = "新QVB三轴试验原始数据库",
                                                .defaultFile = "RSZSJ.KU",
                                                .folderField = sourceFolderField(5),
                                                .messageTitle = "打开三轴试验数据",
                                                .document = kForm1,
                                                .columns = kColumns,
                                                .recognise = recogniseNewQvb,
                                                .open = openIndexed<NewQvbFormat>,
                                                .formatPage = "new-qvb-triaxial-ku.md",
                                                .layouts = layouts};

}  // namespace triaxlab
