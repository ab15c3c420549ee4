// HSZSJ.KU, the database of the fully automatic triaxial apparatus.
//
// A .KU file (see ku_file.h) with two forms of data block, told apart by a byte of the index entry. An older block is
// a group count and then groups of five specimens; a group is one sample. A newer block is a byte that is passed over
// and then specimens one by one; they find their sample by its number. The apparatus works out stresses on the initial
// section, so the stress is corrected for the area here, while it is read. What recordCodeA and recordCodeB mean beyond
// the unscaled stress of codes 12 and 13 is not known; they are carried along.
//
// `auto-old` is the reader of the apparatus's first years. It reads every block as an older one and takes the words as
// they stand: no area correction, no sign coding, no gathering of specimens.
#include <fmt/core.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "common/conversions.h"
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

struct AutomaticTail {             // offset in the entry
  std::uint8_t entryMethod = 0;    // 22  TestMethod
  FixedText<4> entryProjectTail;   // 23  the project number from the seventh place on
  std::uint8_t entryFormat = 0;    // 27  above 10: a newer block, and a character of the project number
  FixedText<2> entryProjectTail2;  // 28  of a newer block
};                                 // 30
using AutomaticEntry = KuIndexEntry<AutomaticTail>;
static_assert(sizeof(AutomaticEntry) == 30 && alignof(AutomaticEntry) == 1);

constexpr auto fieldsOf(RecordTag<AutomaticTail> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(AutomaticTail, entryMethod, "", "1 UU, 2 CU, 3 CD"),
      TRIAXLAB_FIELD(AutomaticTail, entryProjectTail, "", "further places of the project number"),
      TRIAXLAB_FIELD(AutomaticTail, entryFormat, "", "above 10: newer block"),
      TRIAXLAB_FIELD(AutomaticTail, entryProjectTail2, "", "last places of the project number, newer block"),
  };
}
static_assert(tiles<AutomaticTail>(8));

struct AutoSpecimenRecord {                    // offset
  std::uint8_t validMark = 0;                  //   0  255 on a stored specimen; older block only
  std::uint8_t recordCodeA = 0;                //   1
  std::uint8_t recordCodeB = 0;                //   2
  std::uint8_t testMethod = 0;                 //   3  TestMethod
  std::uint8_t shearMode = 0;                  //   4  2: a reading each 0.2 %, else each 0.4 %
  FixedText<10> recordProjectNo;               //   5
  FixedText<10> recordSampleNo;                //  15  empty: no specimen
  Little<std::int16_t> rawCellPressure;        //  25  0.1 kPa
  Little<std::int16_t> rawInitialHeight;       //  27  0.01 cm
  Little<std::int16_t> rawConsolidatedHeight;  //  29  0.01 cm
  Little<std::int16_t> rawInitialArea;         //  31  0.01 cm2
  Little<std::int16_t> rawConsolidatedArea;    //  33  0.01 cm2
  Little<std::int16_t> rawDrainage;            //  35  0.01 ml
  Little<std::int16_t> rawShearRate;           //  37  1/1000 %/min
  std::uint8_t rawStageFlag = 0;               //  39  becomes uuAdjustFlag
  ConsolidationWords rawConsolidationPore;     //  40  0.1 kPa, reading k at k² minutes
  ConsolidationWords rawConsolidationVolume;   //  90  0.01 ml, sign and magnitude
  ShearWords rawStress;                        // 140  0.1 kPa, on the initial section
  ShearWords rawPore;                          // 244  0.1 kPa, sign and magnitude
  ShearWords rawVolume;                        // 348  0.01 ml; in an older block 0.001 ml
  FixedText<8> recordEnd;                      // 452  not used
};                                             // 460

constexpr auto fieldsOf(RecordTag<AutoSpecimenRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(AutoSpecimenRecord, validMark, "", "255 on a stored specimen; looked at in an older block only"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, recordCodeA, "", "code of the apparatus, meaning unknown"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, recordCodeB, "",
                     "code of the apparatus; 12 and 13 in a newer block: stress in kPa, else unknown"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, testMethod, "", "1 UU, 2 CU, 3 CD"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, shearMode, "", "2: a reading each 0.2 %, else each 0.4 %"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, recordProjectNo, "", "project number"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, recordSampleNo, "", "sample number; empty: no specimen"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawCellPressure, "0.1 kPa", "cell pressure"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawInitialHeight, "0.01 cm", "height"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawConsolidatedHeight, "0.01 cm", "height after consolidation"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawInitialArea, "0.01 cm²", "area"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawConsolidatedArea, "0.01 cm²", "area after consolidation"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawDrainage, "0.01 ml", "drained volume"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawShearRate, "1/1000 %/min", "shear rate"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawStageFlag, "", "becomes uuAdjustFlag"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawConsolidationPore, "0.1 kPa",
                     "pore pressure in consolidation; reading k at k² minutes, the last after a day"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawConsolidationVolume, "0.01 ml",
                     "drained volume in consolidation, sign and magnitude"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawStress, "0.1 kPa",
                     "stress on the initial section; index 0 not used; 0: no reading"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawPore, "0.1 kPa", "pore pressure, sign and magnitude"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, rawVolume, "", "volume change, 0.01 ml; in an older block 0.001 ml"),
      TRIAXLAB_FIELD(AutoSpecimenRecord, recordEnd, "", "not used"),
  };
}
static_assert(tiles<AutoSpecimenRecord>(460));

constexpr std::uint8_t kLastOlderFormat = 10;
constexpr std::uint8_t kValid = 255;

/// What the two readers of the file differ in.
struct Reader {
  bool knowsNewerBlocks;  // and the project numbers of ten places that go with them
  bool undoesSignCoding;  // of pore pressure and consolidation volume
  bool copiesStageFlag;
  bool keepsConsolidatedSizesOfUU;
  std::size_t consolidationPoreRows;
  bool roundsVolumeToEven;  // else half away from zero
  bool correctsForArea;
  bool gathersSpecimens;
};
constexpr Reader kReader{.knowsNewerBlocks = true,
                         .undoesSignCoding = true,
                         .copiesStageFlag = true,
                         .keepsConsolidatedSizesOfUU = false,
                         .consolidationPoreRows = kImportedConsolidationRows,
                         .roundsVolumeToEven = false,
                         .correctsForArea = true,
                         .gathersSpecimens = true};
constexpr Reader kOldReader{.knowsNewerBlocks = false,
                            .undoesSignCoding = false,
                            .copiesStageFlag = false,
                            .keepsConsolidatedSizesOfUU = true,
                            .consolidationPoreRows = 21,
                            .roundsVolumeToEven = true,
                            .correctsForArea = false,
                            .gathersSpecimens = false};

bool isNewerBlock(const AutomaticEntry& entry, const Reader& reader) {
  return reader.knowsNewerBlocks && entry.entryTail.entryFormat > kLastOlderFormat;
}

// ---- the index

/// The places of the project number from the seventh on, put together before they are cut at a zero byte. An entry of a
/// newer block has only one of them in the field where an older one has four.
std::string projectTail(const AutomaticTail& tail, bool newerBlock) {
  if (!newerBlock) return std::string(shownText(tail.entryProjectTail.view()));
  const std::string_view inField = tail.entryProjectTail.trimmed();
  std::string places(inField.empty() ? inField : inField.substr(inField.size() - 1));
  places += static_cast<char>(tail.entryFormat);
  places += tail.entryProjectTail2.view();
  return std::string(shownText(places));
}

std::string methodText(std::uint8_t method) {
  constexpr std::array kMethods{"", "UU", "CU", "CD"};
  return method < kMethods.size() ? kMethods[method] : "";
}

SourceRow rowOf(const AutomaticEntry& entry, const Reader& reader) {
  const bool newerBlock = isNewerBlock(entry, reader);
  SourceRow row;
  row.projectNo = shownText(entry.entryProjectNo.view());
  row.projectNo += projectTail(entry.entryTail, newerBlock);
  row.testDate = slashedEntryDate(entry.entryDate);
  row.cells = {gbkToUtf8(row.projectNo), gbkToUtf8(row.testDate),
               fmt::format("{}{}", entry.entryGroupCount, newerBlock ? "个" : "组"),
               methodText(entry.entryTail.entryMethod)};
  row.projectNo = Trim(row.projectNo);
  return row;
}

// ---- the data blocks

/// A data block as it stands in the file: groups of one specimen (newer) or five (older).
struct AutomaticBlock {
  bool newer = false;
  std::size_t groupSize = kStages;
  std::vector<AutoSpecimenRecord> specimens;
  bool isWhole = true;
};

AutomaticBlock blockOf(const File& file, const AutomaticEntry& entry, const Reader& reader) {
  AutomaticBlock block;
  block.newer = isNewerBlock(entry, reader);
  block.groupSize = block.newer ? 1 : kStages;
  const std::uint64_t start = entry.entryDataOffset.value();
  std::uint8_t groupCount = entry.entryGroupCount;
  if (!block.newer) {
    groupCount = 0;
    block.isWhole = file.readAt(start, writableBytesOf(groupCount)) == sizeof groupCount;
  }
  block.specimens.resize(groupCount * block.groupSize);
  const auto bytes = std::as_writable_bytes(std::span(block.specimens));
  if (file.readAt(start + 1, bytes) < bytes.size()) block.isWhole = false;
  return block;
}

/// Fills one slot of a row from one specimen record.
class SpecimenFiller {
 public:
  SpecimenFiller(const AutoSpecimenRecord& raw, bool newerBlock, const Reader& reader, TriaxialSampleRecord& row,
                 std::size_t slot)
      : m_raw(raw), m_newerBlock(newerBlock), m_reader(reader), m_row(row), m_slot(slot) {}

  void fill() {
    fillIdentity();
    fillMeasures();
    fillConsolidation();
    fillShear();
    if (!m_reader.correctsForArea) return;
    correctStressOnInitialSection(m_row, m_slot, m_newerBlock ? DrainedForm::OnInitialArea : DrainedForm::ByShearMode);
  }

 private:
  void fillIdentity() {
    m_row.shearMode = m_raw.shearMode;
    m_row.recordCodeA = m_raw.recordCodeA;
    m_row.recordCodeB = m_raw.recordCodeB;
    setIdentity(m_row, recordIdentity(m_raw));
    m_row.shearRate[m_slot] = m_raw.rawShearRate;
    if (m_reader.copiesStageFlag) m_row.uuAdjustFlag = m_raw.rawStageFlag;
  }

  void fillMeasures() {
    SetNumber(m_row.cellPressure[m_slot], wholeOfTenths(m_raw.rawCellPressure), NumberFormat::Whole);
    setHundredths(m_row.initialHeight[m_slot], m_raw.rawInitialHeight);
    setHundredths(m_row.initialArea[m_slot], m_raw.rawInitialArea);
    setHundredths(m_row.consolidationDrainage[m_slot], m_raw.rawDrainage);
    if (m_raw.testMethod == kUU && !m_reader.keepsConsolidatedSizesOfUU) return;
    setHundredths(m_row.consolidatedHeight[m_slot], m_raw.rawConsolidatedHeight);
    setHundredths(m_row.consolidatedArea[m_slot], m_raw.rawConsolidatedArea);
  }

  void fillConsolidation() {
    for (std::size_t k = 0; k < m_reader.consolidationPoreRows; ++k)
      m_row.consolidationPorePressure[k][m_slot] = readingOrZero(m_raw.rawConsolidationPore[k]);
    for (std::size_t k = 0; k < kImportedConsolidationRows; ++k)
      m_row.consolidationVolume[k][m_slot] = withSign(readingOrZero(m_raw.rawConsolidationVolume[k]));
  }

  void fillShear() {
    const bool unscaledStress = m_newerBlock && (m_raw.recordCodeB == 12 || m_raw.recordCodeB == 13);
    for (std::size_t reading = 1; reading < kImportedShearRows; ++reading) {
      const std::int16_t stress = m_raw.rawStress[reading], pore = m_raw.rawPore[reading];
      if (stress == 0 || stress == kNoReading) continue;
      const std::size_t row = reading - 1;
      SetNumber(m_row.deviatorStress[row][m_slot], unscaledStress ? stress : wholeOfTenths(stress),
                NumberFormat::Whole);
      if (pore != kNoReading)
        SetNumber(m_row.porePressure[row][m_slot], wholeOfTenths(withSign(pore)), NumberFormat::Whole);
      m_row.volumeChange[row][m_slot] = hundredthsOfVolume(readingOrZero(m_raw.rawVolume[reading]));
    }
  }

  std::int16_t withSign(std::int16_t word) const {
    return m_reader.undoesSignCoding ? fromSignAndMagnitude(word) : word;
  }

  std::int16_t hundredthsOfVolume(std::int16_t word) const {
    if (m_newerBlock) return word;
    if (m_reader.roundsVolumeToEven) return toInt16(word / 10.0).value_or(0);
    return static_cast<std::int16_t>(wholeOfTenths(word));
  }

  const AutoSpecimenRecord& m_raw;
  bool m_newerBlock;
  const Reader& m_reader;
  TriaxialSampleRecord& m_row;
  std::size_t m_slot;
};

// ---- groups of specimens

/// One specimen of a newer block, or up to five of an older one, as they stand in the file.
struct AutomaticGroup {
  bool inNewerBlock;
  std::span<const AutoSpecimenRecord> slots;

  /// The valid mark is looked at in an older block only.
  bool hasSpecimen(std::size_t slot) const {
    const AutoSpecimenRecord& raw = slots[slot];
    return !shownText(raw.recordSampleNo.view()).empty() && (inNewerBlock || raw.validMark == kValid);
  }
};

/// The last specimen of a group names it. Nothing for a group without one.
std::optional<SampleIdentity> identityOf(const AutomaticGroup& group) {
  for (std::size_t slot = group.slots.size(); slot-- > 0;)
    if (group.hasSpecimen(slot)) return recordIdentity(group.slots[slot]);
  return std::nullopt;
}

// ---- the source

struct AutomaticFormat {
  using Entry = AutomaticEntry;
  using Block = AutomaticBlock;
  using Group = AutomaticGroup;

  static std::vector<Entry> readIndex(const File& file, Remarks& remarks) {
    return readKuIndex<AutomaticTail>(file, remarks);
  }
  SourceRow gridRow(const Entry& entry) const { return rowOf(entry, *reader); }
  Block readBlock(const File& file, const Entry& entry) const { return blockOf(file, entry, *reader); }

  /// All groups of a block that take part. An older block leaves a blank row for a group without a specimen; in a newer
  /// block it is no group.
  void addGroups(const Block& block, const SourceRow& source, TriaxialImportPlan& plan,
                 std::vector<Group>& groups) const {
    using Gathering = TriaxialImportPlan::Gathering;
    plan.addProjectDate(source);
    const std::span<const AutoSpecimenRecord> specimens = block.specimens;
    for (std::size_t at = 0; at < specimens.size(); at += block.groupSize) {
      const Group group{block.newer, specimens.subspan(at, block.groupSize)};
      const auto identity = identityOf(group);
      if (block.newer && !identity) continue;
      plan.addGroup(identity.value_or(SampleIdentity{}),
                    reader->gathersSpecimens ? Gathering::BySample : Gathering::OwnRow);
      groups.push_back(group);
    }
  }

  void fill(const Group& group, TriaxialSampleRecord& row) const {
    for (std::size_t slot = 0; slot < group.slots.size(); ++slot)
      if (group.hasSpecimen(slot)) SpecimenFiller(group.slots[slot], group.inNewerBlock, *reader, row, slot).fill();
  }

  const Reader* reader;
};

constexpr std::array kColumns{SourceColumn{"工程编号", 1500}, SourceColumn{"试验日期", 1500},
                              SourceColumn{"组 数", 800}, SourceColumn{"方法", 600}};

template <const Reader& reader>
std::unique_ptr<RawSource> openAutomatic(const std::filesystem::path& path) {
  return std::make_unique<IndexedSource<AutomaticFormat>>(path, AutomaticFormat{&reader});
}

constexpr Importer kShared{.id = "",
                           .menuCommand = "",
                           .form = "",
                           .title = "全自动三轴试验原始数据库",
                           .defaultFile = "HSZSJ.KU",
                           .folderField = sourceFolderField(1),
                           .messageTitle = "打开三轴试验数据",
                           .thirdButton = "输出接口数据",
                           .document = kForm1,
                           .columns = kColumns,
                           .open = nullptr};

constexpr Importer entry(std::string_view id, std::string_view menuCommand, std::string_view form,
                         decltype(Importer::open) open) {
  Importer importer = kShared;
  importer.id = id;
  importer.menuCommand = menuCommand;
  importer.form = form;
  importer.open = open;
  return importer;
}

}  // namespace

extern constinit const Importer kAutomaticImporter = entry("auto", "NEWSZ", "OPENFORM0", openAutomatic<kReader>);
extern constinit const Importer kAutomaticOldImporter =
    entry("auto-old", "OLDSZ1", "OPENFORM0OLD", openAutomatic<kOldReader>);

std::vector<RawLayout> automaticLayouts() {
  return {rawLayout<AutomaticEntry>("Index entry"), rawLayout<AutoSpecimenRecord>("Specimen")};
}

}  // namespace triaxlab
