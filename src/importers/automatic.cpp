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
#include "importers/field_fill.h"
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

bool hasNewerBlock(const AutomaticEntry& entry) { return entry.entryTail.entryFormat > kLastOlderFormat; }

using Record = TriaxialSampleRecord;
using Raw = AutoSpecimenRecord;

// These go across as they stand whatever reads the file.
constexpr std::tuple kIdentityFields{
    Fill{&Raw::recordProjectNo, &Record::projectNo, shownTextInto},
    Fill{&Raw::recordSampleNo, &Record::sampleNo, shownTextInto},
    Fill{&Raw::testMethod, &Record::testMethod, asItStands},
    Fill{&Raw::shearMode, &Record::shearMode, asItStands},
    Fill{&Raw::recordCodeA, &Record::recordCodeA, asItStands},
    Fill{&Raw::recordCodeB, &Record::recordCodeB, asItStands},
};
constexpr std::tuple kSpecimenFields{
    Fill{&Raw::rawShearRate, &Record::shearRate, asItStands},
    Fill{&Raw::rawCellPressure, &Record::cellPressure, wholeOfTenthsInto},
    Fill{&Raw::rawInitialHeight, &Record::initialHeight, hundredthsInto},
    Fill{&Raw::rawInitialArea, &Record::initialArea, hundredthsInto},
    Fill{&Raw::rawDrainage, &Record::consolidationDrainage, hundredthsInto},
};
constexpr std::tuple kConsolidatedSize{
    Fill{&Raw::rawConsolidatedHeight, &Record::consolidatedHeight, hundredthsInto},
    Fill{&Raw::rawConsolidatedArea, &Record::consolidatedArea, hundredthsInto},
};

/// How the file is read today.
struct CurrentReader {
  static constexpr auto kGathering = TriaxialImportPlan::Gathering::BySample;
  static constexpr auto kSampleFields =
      std::tuple_cat(kIdentityFields, std::tuple(Fill{&Raw::rawStageFlag, &Record::uuAdjustFlag, asItStands}));
  static constexpr std::tuple kReadings{
      Fill{&Raw::rawConsolidationPore, &Record::consolidationPorePressure, readingInto},
      Fill{&Raw::rawConsolidationVolume, &Record::consolidationVolume, signedReadingInto},
  };
  static bool isNewerBlock(const AutomaticEntry& entry) { return hasNewerBlock(entry); }
  static bool hasConsolidatedSize(std::uint8_t testMethod) { return testMethod != kUU; }
  static std::int16_t poreWord(std::int16_t word) { return fromSignAndMagnitude(word); }
  static std::int16_t hundredthsOfOlderVolume(std::int16_t word) { return wholeOfTenths(word); }
  static SectionCorrection correction(const Record& row, std::size_t slot, const Raw& raw, bool newerBlock) {
    if (newerBlock) return {row, slot, DrainedForm::OnInitialArea, raw.shearMode};
    return {row, slot, DrainedForm::ByShearMode};
  }
};

/// How it was read in the first years of the apparatus.
struct FirstReader {
  static constexpr auto kGathering = TriaxialImportPlan::Gathering::OwnRow;
  static constexpr auto kSampleFields = kIdentityFields;
  static constexpr std::tuple kReadings{
      Fill{&Raw::rawConsolidationPore, &Record::consolidationPorePressure, readingInto, 21},
      Fill{&Raw::rawConsolidationVolume, &Record::consolidationVolume, readingInto},
  };
  static bool isNewerBlock(const AutomaticEntry& /*entry*/) { return false; }
  static bool hasConsolidatedSize(std::uint8_t /*testMethod*/) { return true; }
  static std::int16_t poreWord(std::int16_t word) { return word; }
  static std::int16_t hundredthsOfOlderVolume(std::int16_t word) { return toInt16(word / 10.0).value_or(0); }
  struct NoCorrection {
    static double stress(double reading, std::size_t /*row*/, std::int16_t /*volume*/) { return reading; }
  };
  static NoCorrection correction(const Record& /*row*/, std::size_t /*slot*/, const Raw& /*raw*/, bool /*newerBlock*/) {
    return {};
  }
};

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

SourceRow rowOf(const AutomaticEntry& entry, bool newerBlock) {
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

constexpr std::size_t groupSize(bool newerBlock) { return newerBlock ? 1 : kStages; }

/// A data block as it stands in the file: groups of one specimen (newer) or five (older).
struct AutomaticBlock {
  bool newer = false;
  RawRecords<AutoSpecimenRecord> specimens;
  bool isWhole = true;
};

AutomaticBlock blockOf(const File& file, const AutomaticEntry& entry, bool newerBlock) {
  AutomaticBlock block;
  block.newer = newerBlock;
  const std::uint64_t start = entry.entryDataOffset.value();
  std::uint8_t groupCount = entry.entryGroupCount;
  if (!newerBlock) {
    groupCount = 0;
    block.isWhole = file.readAt(start, writableBytesOf(groupCount)) == sizeof groupCount;
  }
  if (!readRecords(file, start + 1, groupCount * groupSize(newerBlock), block.specimens)) block.isWhole = false;
  return block;
}

/// The valid mark is looked at in an older block only.
bool isSpecimen(const AutoSpecimenRecord& raw, bool newerBlock) {
  return !shownText(raw.recordSampleNo.view()).empty() && (newerBlock || raw.validMark == kValid);
}

BlockExtent judgeBlock(const AutomaticEntry& entry, const FileHead& head, Evidence& evidence) {
  const bool newer = hasNewerBlock(entry);
  const std::uint64_t start = entry.entryDataOffset.value();
  const std::size_t groups =
      newer ? entry.entryGroupCount : head.at<std::uint8_t>(start).value_or(entry.entryGroupCount);
  const std::size_t count = groups * groupSize(newer);
  const auto judge = [&](const AutoSpecimenRecord& raw) {
    if (isSpecimen(raw, newer))
      evidence.add(likenessOfSpecimen(raw.recordProjectNo.view(), raw.recordSampleNo.view(), raw.testMethod,
                                      raw.rawInitialHeight, raw.rawInitialArea));
  };
  return {start, judgeRecords<AutoSpecimenRecord>(head, start + 1, count, judge).end};
}

/// Readings of the shear phase; without a stress there is none.
template <class Reader>
void fillShear(const AutoSpecimenRecord& raw, bool newerBlock, Record& row, std::size_t slot) {
  const bool unscaledStress = newerBlock && (raw.recordCodeB == 12 || raw.recordCodeB == 13);
  const auto correction = Reader::correction(row, slot, raw, newerBlock);
  for (std::size_t reading = 1; reading < kImportedShearRows; ++reading) {
    const std::int16_t stress = raw.rawStress[reading], pore = raw.rawPore[reading];
    if (readingOrZero(stress) == 0) continue;
    const std::size_t i = reading - 1;
    const std::int16_t rawVolume = readingOrZero(raw.rawVolume[reading]);
    const std::int16_t volume = newerBlock ? rawVolume : Reader::hundredthsOfOlderVolume(rawVolume);
    const std::int16_t read = unscaledStress ? stress : wholeOfTenths(stress);
    SetNumber(row.deviatorStress[i][slot], correction.stress(read, i, volume), NumberFormat::Whole);
    if (pore != kNoReading) wholeOfTenthsInto(row.porePressure[i][slot], Reader::poreWord(pore));
    row.volumeChange[i][slot] = volume;
  }
}

template <class Reader>
void fillSpecimen(const AutoSpecimenRecord& raw, bool newerBlock, Record& row, std::size_t slot) {
  fillFields(raw, row, slot, kSpecimenFields);
  if (Reader::hasConsolidatedSize(raw.testMethod)) fillFields(raw, row, slot, kConsolidatedSize);
  fillFields(raw, row, slot, Reader::kReadings);
  fillShear<Reader>(raw, newerBlock, row, slot);
}

// ---- groups of specimens

/// One specimen of a newer block, or up to five of an older one, as they stand in the file.
struct AutomaticGroup {
  bool inNewerBlock;
  std::span<const AutoSpecimenRecord> slots;

  bool hasSpecimen(std::size_t slot) const { return isSpecimen(slots[slot], inNewerBlock); }
};

/// The last specimen of a group names it. Nothing for a group without one.
std::optional<TriaxialIdentity> identityOf(const AutomaticGroup& group) {
  for (std::size_t slot = group.slots.size(); slot-- > 0;)
    if (group.hasSpecimen(slot)) return recordIdentity<Record>(group.slots[slot]);
  return std::nullopt;
}

// ---- the source

template <class Reader>
struct AutomaticFormat {
  using Record = TriaxialSampleRecord;
  using Entry = AutomaticEntry;
  using Block = AutomaticBlock;
  using Group = AutomaticGroup;

  static std::vector<Entry> readIndex(const File& file, Remarks& remarks) {
    return readKuIndex<AutomaticTail>(file, remarks);
  }
  static SourceRow gridRow(const Entry& entry) { return rowOf(entry, Reader::isNewerBlock(entry)); }
  static Block readBlock(const File& file, const Entry& entry) {
    return blockOf(file, entry, Reader::isNewerBlock(entry));
  }

  /// All groups of a block that take part. An older block leaves a blank row for a group without a specimen; in a newer
  /// block it is no group.
  static void addGroups(const Block& block, const SourceRow& source, TriaxialImportPlan& plan,
                        std::vector<Group>& groups) {
    plan.projects.addDate(source);
    const std::span<const AutoSpecimenRecord> specimens = block.specimens;
    for (std::size_t at = 0; at < specimens.size(); at += groupSize(block.newer)) {
      const Group group{block.newer, specimens.subspan(at, groupSize(block.newer))};
      const auto identity = identityOf(group);
      if (block.newer && !identity) continue;
      const auto gathering = block.newer ? TriaxialImportPlan::Gathering::InPlace : Reader::kGathering;
      plan.addGroup(identity.value_or(TriaxialIdentity{}), gathering);
      groups.push_back(group);
    }
  }

  static void fill(const Group& group, Record& row) {
    if (group.inNewerBlock) return fillOne(group.slots.front(), row);
    for (std::size_t slot = 0; slot < group.slots.size(); ++slot) {
      if (!group.hasSpecimen(slot)) continue;
      fillFields(group.slots[slot], row, slot, Reader::kSampleFields);
      fillSpecimen<Reader>(group.slots[slot], group.inNewerBlock, row, slot);
    }
  }

  /// The first specimen of a sample tells what the sample is.
  static void fillOne(const Raw& raw, Record& row) {
    const auto slot = makePlaceForSpecimen(row, wholeOfTenths(raw.rawCellPressure));
    if (!slot) return;
    if (row.sampleNo.isBlank()) fillFields(raw, row, *slot, Reader::kSampleFields);
    fillSpecimen<Reader>(raw, true, row, *slot);
  }
};

/// The same file for both readers.
Recognition recogniseAutomatic(const FileHead& head) { return recogniseKu<AutomaticTail>(head, judgeBlock); }

constexpr std::array kColumns{kProjectNoColumn, kDateColumn, kGroupsColumn, SourceColumn{"方法", 600}};

std::vector<RawLayout> layouts() {
  return {rawLayout<AutomaticEntry>("Index entry"), rawLayout<AutoSpecimenRecord>("Specimen")};
}

constexpr Importer kShared{.title = "全自动三轴试验原始数据库",
                           .defaultFile = "HSZSJ.KU",
                           .folderField = sourceFolderField(1),
                           .messageTitle = "打开三轴试验数据",
                           .thirdButton = "输出接口数据",
                           .document = kForm1,
                           .columns = kColumns,
                           .recognise = recogniseAutomatic,
                           .formatPage = "automatic-triaxial-ku.md",
                           .layouts = layouts};

constexpr Importer reader(std::string_view id, std::string_view menuCommand, std::string_view menuCaption,
                          std::string_view form, decltype(Importer::open) open) {
  Importer importer = kShared;
  importer.id = id;
  importer.menuCommand = menuCommand;
  importer.menuCaption = menuCaption;
  importer.form = form;
  importer.open = open;
  return importer;
}

}  // namespace

extern constinit const Importer kAutomaticImporter =
    reader("auto", "NEWSZ", "全自动三轴", "OPENFORM0", openIndexed<AutomaticFormat<CurrentReader>>);
extern constinit const Importer kAutomaticOldImporter =
    reader("auto-old", "OLDSZ1", "全自动三轴(老版本)", "OPENFORM0OLD", openIndexed<AutomaticFormat<FirstReader>>);

}  // namespace triaxlab
