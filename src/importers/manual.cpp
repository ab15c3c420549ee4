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

struct ManualBlock {
  std::vector<ManualSpecimenRecord> specimens;
  bool isWhole = true;
};

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
    block.specimens.resize(static_cast<std::size_t>(to - from));
    const auto bytes = std::as_writable_bytes(std::span(block.specimens));
    block.isWhole = file.readAt(kIndexArea + static_cast<std::uint64_t>(from * kSize), bytes) == bytes.size();
  }
  if (end > first && (first < 0 || end > stored)) block.isWhole = false;
  return block;
}

/// Fills the first slot of a blank row from one specimen record.
class SpecimenFiller {
 public:
  SpecimenFiller(const ManualSpecimenRecord& raw, TriaxialSampleRecord& row) : m_raw(raw), m_row(row) {}

  void fill() {
    fillIdentity();
    fillMeasures();
    fillConsolidatedSize();
    fillConsolidation();
    fillShear();
    correctStressOnInitialSection(m_row, kSlot, DrainedForm::CommonSet);
  }

 private:
  static constexpr std::size_t kSlot = 0;

  void fillIdentity() {
    setIdentity(m_row, recordIdentity(m_raw));
    m_row.shearMode = m_raw.shearMode;
    m_row.uuAdjustFlag = m_raw.stageFlag;
    m_row.shearRate[kSlot] = m_raw.rawShearRate;
  }

  void fillMeasures() {
    SetNumber(m_row.cellPressure[kSlot], m_raw.rawCellPressure, NumberFormat::Whole);
    setHundredths(m_row.initialHeight[kSlot], m_raw.rawInitialHeight);
    setHundredths(m_row.initialArea[kSlot], m_raw.rawInitialArea);
    if (m_raw.testMethod != kUU) setHundredths(m_row.consolidatedHeight[kSlot], m_raw.rawConsolidatedHeight);
    setHundredths(m_row.consolidationDrainage[kSlot], m_raw.rawDrainage);
  }

  /// Worked out from the drainage, of UU tests as well. Without an initial volume the stored height stands and the area
  /// stays blank.
  void fillConsolidatedSize() {
    const auto factors = drainedFactors(m_raw.rawInitialHeight, m_raw.rawInitialArea, m_raw.rawDrainage);
    if (!factors) return;
    const double height = m_raw.rawInitialHeight / 100.0 * factors->height;
    const double area = m_raw.rawInitialArea / 100.0 * factors->area;
    if (height != 0) SetNumber(m_row.consolidatedHeight[kSlot], height, NumberFormat::Hundredths);
    if (area != 0) SetNumber(m_row.consolidatedArea[kSlot], area, NumberFormat::Hundredths);
  }

  void fillConsolidation() {
    for (std::size_t k = 0; k < kImportedConsolidationRows; ++k) {
      m_row.consolidationPorePressure[k][kSlot] = readingOrZero(m_raw.rawConsolidationPore[k]);
      m_row.consolidationVolume[k][kSlot] = readingOrZero(m_raw.rawConsolidationVolume[k]);
    }
  }

  /// Rows whose stress reads as 0 leave no gap: the later ones move up, pore pressure and volume with them.
  void fillShear() {
    std::size_t row = 0;
    for (std::size_t reading = 1; reading < kImportedShearRows; ++reading) {
      const double stress = wholeOfTenths(readingOrZero(m_raw.rawStress[reading]));
      if (stress == 0) continue;
      SetNumber(m_row.deviatorStress[row][kSlot], stress, NumberFormat::Whole);
      if (m_raw.rawPore[reading] != kNoReading)
        SetNumber(m_row.porePressure[row][kSlot], wholeOfTenths(m_raw.rawPore[reading]), NumberFormat::Whole);
      m_row.volumeChange[row][kSlot] = readingOrZero(m_raw.rawVolume[reading]);
      ++row;
    }
  }

  const ManualSpecimenRecord& m_raw;
  TriaxialSampleRecord& m_row;
};

// ---- the source

struct ManualFormat {
  using Entry = ManualIndexEntry;
  using Block = ManualBlock;
  using Group = const ManualSpecimenRecord*;

  static std::vector<Entry> readIndex(const File& file, Remarks& remarks) { return indexOf(file, remarks); }
  static SourceRow gridRow(const Entry& entry) { return rowOf(entry); }
  static Block readBlock(const File& file, const Entry& entry) { return blockOf(file, entry); }

  static void addGroups(const Block& block, const SourceRow& source, TriaxialImportPlan& plan,
                        std::vector<Group>& groups) {
    plan.addProjectDate(source);
    for (const ManualSpecimenRecord& raw : block.specimens) {
      const SampleIdentity identity = recordIdentity(raw);
      if (identity.sampleNo.isBlank()) continue;
      plan.addGroup(identity, TriaxialImportPlan::Gathering::BySample);
      groups.push_back(&raw);
    }
  }

  static void fill(Group raw, TriaxialSampleRecord& row) { SpecimenFiller(*raw, row).fill(); }
};

constexpr std::array kColumns{SourceColumn{"工程编号", 1500}, SourceColumn{"试验日期", 1500},
                              SourceColumn{"试样个数", 1000}};

std::unique_ptr<RawSource> openManual(const std::filesystem::path& path) {
  return std::make_unique<IndexedSource<ManualFormat>>(path);
}

}  // namespace

extern constinit const Importer kManualImporter{.id = "manual",
                                                .menuCommand = "RGSZ",
                                                .form = "OPENFORMZ",
                                                .title = "人工三轴试验原始数据库",
                                                .defaultFile = "SDSZSJ.KU",
                                                .folderField = {0, 0},
                                                .messageTitle = "打开三轴试验数据",
                                                .thirdButton = "",
                                                .document = kForm1,
                                                .columns = kColumns,
                                                .open = openManual};

std::vector<RawLayout> manualLayouts() {
  return {rawLayout<ManualIndexEntry>("Index entry"), rawLayout<ManualSpecimenRecord>("Record")};
}

}  // namespace triaxlab
