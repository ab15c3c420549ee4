// SDSZSJ.KU, the database that the tool for entering hand-read tests fills.
//
// Unlike the other .KU files it has no count: 100 index entries of 35 bytes, from the beginning; places that were never
// used are blank. The records stand from byte 4000 on, one specimen each, 511 bytes; an entry tells the number of its
// first record and how many it has. The specimens of one sample number, project and method are one sample. The readings
// are stresses on the initial section: the stored ring coefficient, which the tool fills with whatever it had last, has
// no effect. No word holds a sign bit of its own. Not known: the reserved places.
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
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

namespace triaxlab {
namespace {

constexpr std::uint64_t kIndexArea = 4000;

struct ManualIndexEntry {                 // offset
  FixedText<15> indexProjectNo;           //  0  blank: the place is not used
  FixedText<10> indexDate;                // 15  as it was typed
  Little<std::int16_t> indexCount;        // 25  records
  std::uint8_t indexFlag = 0;             // 27  not used
  std::uint8_t reserved28 = 0;            // 28
  Little<std::int32_t> indexFirstRecord;  // 29  its number, from 0
  FixedText<2> reserved33;                // 33
};                                        // 35

constexpr auto fieldsOf(RecordTag<ManualIndexEntry> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(ManualIndexEntry, indexProjectNo, "", "project number; blank: the place is not used"),
      TRIAXLAB_FIELD(ManualIndexEntry, indexDate, "", "test date as it was typed"),
      TRIAXLAB_FIELD(ManualIndexEntry, indexCount, "", "records of the entry"),
      TRIAXLAB_FIELD(ManualIndexEntry, indexFlag, "", "not used"),
      TRIAXLAB_FIELD(ManualIndexEntry, reserved28, "", "not used"),
      TRIAXLAB_FIELD(ManualIndexEntry, indexFirstRecord, "", "number of the first record, from 0"),
      TRIAXLAB_FIELD(ManualIndexEntry, reserved33, "", "not used"),
  };
}
static_assert(tiles<ManualIndexEntry>(35));

struct ManualSpecimenRecord {                  // offset
  FixedText<15> recordProjectNo;               //   0
  FixedText<15> recordSampleNo;                //  15  empty: no specimen
  std::uint8_t testMethod = 0;                 //  30  TestMethod
  std::uint8_t shearMode = 0;                  //  31  2: a reading each 0.2 %, else each 0.4 %
  std::uint8_t stageFlag = 0;                  //  32  becomes uuAdjustFlag
  Little<std::int16_t> rawCellPressure;        //  33  kPa
  Little<std::int16_t> rawInitialHeight;       //  35  0.01 cm
  Little<std::int16_t> rawConsolidatedHeight;  //  37  0.01 cm
  Little<std::int16_t> rawInitialArea;         //  39  0.01 cm2
  FixedText<2> reserved41;                     //  41
  Little<std::int16_t> rawDrainage;            //  43  0.01 ml
  Little<std::int16_t> rawShearRate;           //  45  1/1000 %/min
  Little<std::int16_t> rawRingCoefficient;     //  47  not used
  ConsolidationWords rawConsolidationPore;     //  49  0.1 kPa, reading k at k² minutes
  ConsolidationWords rawConsolidationVolume;   //  99  0.01 ml
  ShearWords rawStress;                        // 149  0.1 kPa, on the initial section
  ShearWords rawPore;                          // 253  0.1 kPa
  ShearWords rawVolume;                        // 357  0.01 ml
  FixedText<50> reserved461;                   // 461
};                                             // 511

constexpr auto fieldsOf(RecordTag<ManualSpecimenRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(ManualSpecimenRecord, recordProjectNo, "", "project number"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, recordSampleNo, "", "sample number; empty: no specimen"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, testMethod, "", "1 UU, 2 CU, 3 CD"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, shearMode, "", "2: a reading each 0.2 %, else each 0.4 %"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, stageFlag, "", "becomes uuAdjustFlag"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawCellPressure, "kPa", "cell pressure"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawInitialHeight, "0.01 cm", "height"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawConsolidatedHeight, "0.01 cm", "height after consolidation"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawInitialArea, "0.01 cm²", "area"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, reserved41, "", "not used"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawDrainage, "0.01 ml", "drained volume"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawShearRate, "1/1000 %/min", "shear rate"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawRingCoefficient, "", "not used: the readings are stresses"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawConsolidationPore, "0.1 kPa",
                     "pore pressure in consolidation; reading k at k² minutes, the last after a day"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawConsolidationVolume, "0.01 ml", "drained volume in consolidation"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawStress, "0.1 kPa",
                     "stress on the initial section; index 0 not used; 0: no reading"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawPore, "0.1 kPa", "pore pressure; same index"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, rawVolume, "0.01 ml", "volume change; same index"),
      TRIAXLAB_FIELD(ManualSpecimenRecord, reserved461, "", "not used"),
  };
}
static_assert(tiles<ManualSpecimenRecord>(511));

// ---- the index

std::vector<ManualIndexEntry> indexOf(const File& file, Remarks& remarks) {
  std::vector<ManualIndexEntry> entries(kMostIndexEntries);
  const auto bytes = std::as_writable_bytes(std::span(entries));
  const std::size_t got = file.readAt(0, bytes);
  entries.resize((got + sizeof(ManualIndexEntry) - 1) / sizeof(ManualIndexEntry));
  if (got != 0 && got < bytes.size()) remarks.push_back(cutShortRemark(file.path(), "索引"));
  return entries;
}

SourceRow rowOf(const ManualIndexEntry& entry) {
  SourceRow row;
  row.projectNo = shownText(entry.indexProjectNo.view());
  row.testDate = shownText(entry.indexDate.view());
  row.cells = {gbkToUtf8(row.projectNo), gbkToUtf8(row.testDate),
               fmt::format("{}", static_cast<std::int16_t>(entry.indexCount))};
  return row;
}

// ---- the records

using ManualBlock = SpecimenBlock<ManualSpecimenRecord>;

/// The records of an entry that the file has, at least in part. One that lies outside is no specimen.
ManualBlock blockOf(const File& file, const ManualIndexEntry& entry) {
  ManualBlock block;
  if (shownText(entry.indexProjectNo.view()).empty()) return block;
  constexpr std::int64_t kSize = sizeof(ManualSpecimenRecord);
  const std::int64_t first = entry.indexFirstRecord, end = first + entry.indexCount;
  const auto area = static_cast<std::int64_t>(file.size()) - static_cast<std::int64_t>(kIndexArea);
  const std::int64_t stored = area <= 0 ? 0 : (area + kSize - 1) / kSize;
  const std::int64_t from = std::max<std::int64_t>(first, 0), to = std::min(end, stored);
  if (from < to) {
    const std::uint64_t begin = kIndexArea + static_cast<std::uint64_t>(from * kSize);
    block.isWhole = readRecords(file, begin, static_cast<std::size_t>(to - from), block.specimens);
  }
  if (end > first && (first < 0 || end > stored)) block.isWhole = false;
  return block;
}

Recognition recogniseManual(const FileHead& head) {
  Evidence evidence;
  for (std::size_t i = 0; i < kMostIndexEntries; ++i) {
    const auto entry = head.at<ManualIndexEntry>(i * sizeof(ManualIndexEntry));
    if (!entry) break;
    if (shownText(entry->indexProjectNo.view()).empty()) continue;
    if (!isPlainText(entry->indexProjectNo.view()) || !isPlainText(entry->indexDate.view()))
      evidence.add(Likeness::Impossible);
    const std::int64_t first = entry->indexFirstRecord, end = first + entry->indexCount;
    const std::int64_t sizeNeeded =
        static_cast<std::int64_t>(kIndexArea) + end * std::int64_t{sizeof(ManualSpecimenRecord)};
    if (first < 0 || end < first || sizeNeeded > static_cast<std::int64_t>(head.fileSize())) {
      evidence.miss();
      continue;
    }
    for (std::int64_t record = first; record < end; ++record) {
      const auto raw =
          head.at<ManualSpecimenRecord>(kIndexArea + static_cast<std::uint64_t>(record) * sizeof(ManualSpecimenRecord));
      if (!raw) break;
      evidence.add(likenessOfSpecimen(raw->recordProjectNo.view(), raw->recordSampleNo.view(), raw->testMethod,
                                      raw->rawInitialHeight, raw->rawInitialArea));
    }
  }
  return evidence.verdict();
}

// ---- a specimen fills its slot of the row of its sample

using Record = TriaxialSampleRecord;
using Raw = ManualSpecimenRecord;

/// As the first specimen of the sample tells it.
constexpr std::tuple kSampleFields{
    Fill{&Raw::recordProjectNo, &Record::projectNo, shownTextInto},
    Fill{&Raw::recordSampleNo, &Record::sampleNo, shownTextInto},
    Fill{&Raw::testMethod, &Record::testMethod, asItStands},
    Fill{&Raw::shearMode, &Record::shearMode, asItStands},
    Fill{&Raw::stageFlag, &Record::uuAdjustFlag, asItStands},
};
constexpr std::tuple kSpecimenFields{
    Fill{&Raw::rawShearRate, &Record::shearRate, asItStands},
    Fill{&Raw::rawCellPressure, &Record::cellPressure, wholeInto},
    Fill{&Raw::rawInitialHeight, &Record::initialHeight, hundredthsInto},
    Fill{&Raw::rawInitialArea, &Record::initialArea, hundredthsInto},
    Fill{&Raw::rawDrainage, &Record::consolidationDrainage, hundredthsInto},
    Fill{&Raw::rawConsolidationPore, &Record::consolidationPorePressure, readingInto},
    Fill{&Raw::rawConsolidationVolume, &Record::consolidationVolume, readingInto},
};

/// Worked out from the drainage, of UU tests as well. Without an initial volume the stored height stands and the area
/// stays blank.
void fillConsolidatedSize(const Raw& raw, Record& row, std::size_t slot) {
  if (raw.testMethod != kUU) hundredthsInto(row.consolidatedHeight[slot], raw.rawConsolidatedHeight);
  const auto factors = drainedFactors(raw.rawInitialHeight, raw.rawInitialArea, raw.rawDrainage);
  if (!factors) return;
  const double height = raw.rawInitialHeight / 100.0 * factors->height;
  const double area = raw.rawInitialArea / 100.0 * factors->area;
  if (height != 0) SetNumber(row.consolidatedHeight[slot], height, NumberFormat::Hundredths);
  if (area != 0) SetNumber(row.consolidatedArea[slot], area, NumberFormat::Hundredths);
}

/// Rows whose stress reads as 0 leave no gap: the later ones move up, pore pressure and volume with them.
void fillShear(const Raw& raw, Record& row, std::size_t slot) {
  const SectionCorrection correction(row, slot, DrainedForm::CommonSet, raw.shearMode);
  std::size_t i = 0;
  for (std::size_t reading = 1; reading < kImportedShearRows; ++reading) {
    const double stress = wholeOfTenths(readingOrZero(raw.rawStress[reading]));
    if (stress == 0) continue;
    const std::int16_t volume = readingOrZero(raw.rawVolume[reading]);
    SetNumber(row.deviatorStress[i][slot], correction.stress(stress, i, volume), NumberFormat::Whole);
    if (raw.rawPore[reading] != kNoReading) wholeOfTenthsInto(row.porePressure[i][slot], raw.rawPore[reading]);
    row.volumeChange[i][slot] = volume;
    ++i;
  }
}

// ---- the source

struct ManualFormat {
  using Record = TriaxialSampleRecord;
  using Entry = ManualIndexEntry;
  using Block = ManualBlock;
  using Group = const ManualSpecimenRecord*;
  static constexpr auto kGathering = TriaxialImportPlan::Gathering::InPlace;

  static std::vector<Entry> readIndex(const File& file, Remarks& remarks) { return indexOf(file, remarks); }
  static SourceRow gridRow(const Entry& entry) { return rowOf(entry); }
  static Block readBlock(const File& file, const Entry& entry) { return blockOf(file, entry); }
  static bool isSpecimen(const ManualSpecimenRecord& raw) { return !shownText(raw.recordSampleNo.view()).empty(); }
  static void addGroups(const Block& block, const SourceRow& source, TriaxialImportPlan& plan,
                        std::vector<Group>& groups) {
    addEachSpecimen<ManualFormat>(block, source, plan, groups);
  }

  static void fill(Group raw, Record& row) {
    const auto slot = makePlaceForSpecimen(row, raw->rawCellPressure);
    if (!slot) return;
    if (row.sampleNo.isBlank()) fillFields(*raw, row, *slot, kSampleFields);
    fillFields(*raw, row, *slot, kSpecimenFields);
    fillConsolidatedSize(*raw, row, *slot);
    fillShear(*raw, row, *slot);
  }
};

constexpr std::array kColumns{kProjectNoColumn, kDateColumn, kSpecimensColumn};

std::vector<RawLayout> layouts() {
  return {rawLayout<ManualIndexEntry>("Index entry"), rawLayout<ManualSpecimenRecord>("Record")};
}

}  // namespace

extern constinit const Importer kManualImporter{.id = "manual",
                                                .menuCommand = "RGSZ",
                                                .menuCaption = "人工输入三轴",
                                                .form = "OPENFORMZ",
                                                .title = "人工三轴试验原始数据库",
                                                .defaultFile = "SDSZSJ.KU",
                                                .messageTitle = "打开三轴试验数据",
                                                .document = kForm1,
                                                .columns = kColumns,
                                                .recognise = recogniseManual,
                                                .open = openIndexed<ManualFormat>,
                                                .formatPage = "manual-triaxial-ku.md",
                                                .layouts = layouts};

}  // namespace triaxlab
