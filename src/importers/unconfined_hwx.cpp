// HWXSJ.KU, the database of the newer unconfined compression apparatus.
//
// A .KU file (see ku_file.h). A data block is a count byte and then specimens one by one, each of which names its
// project and its sample and goes to its side of the row of that sample. The apparatus keeps dial readings of a load
// ring, one each half percent of strain. No file of the apparatus has shown the layout yet: it is taken from
// descriptions.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <vector>

#include "importers/importer.h"
#include "importers/indexed_source.h"
#include "importers/ku_file.h"
#include "importers/raw_layouts.h"
#include "importers/reading_words.h"
#include "importers/unconfined_import.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

using HwxEntry = GroupsIndex::Entry;

constexpr std::size_t kHwxReadings = 42;

// Which words hold height, area and coefficient, what they count and which byte is the undisturbed side is settled here
// alone, as long as no apparatus's file has shown it.
constexpr double kHwxWordsPerCm = 100;
constexpr std::uint8_t kHwxUndisturbed = 1;

struct HwxSpecimenRecord {                  // offset
  std::uint8_t reserved0 = 0;               //   0
  FixedText<10> recordProjectNo;            //   1  blank: that of the index
  FixedText<10> recordSampleNo;             //  11  empty: no specimen
  std::uint8_t specimenSide = 0;            //  21  1: undisturbed
  FixedText<4> reserved22;                  //  22
  Little<std::int16_t> rawHeight;           //  26  0.01 cm
  Little<std::int16_t> rawArea;             //  28  0.01 cm2
  Little<std::int16_t> rawRingCoefficient;  //  30  0.001 N/0.01mm
  FixedText<4> reserved32;                  //  32
  Words<kHwxReadings> rawReading;           //  36  0.1 division, each 0.5 %
};                                          // 120

constexpr auto fieldsOf(RecordTag<HwxSpecimenRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(HwxSpecimenRecord, reserved0, "", "not used"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, recordProjectNo, "", "project number; blank: that of the index"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, recordSampleNo, "", "sample number; empty: no specimen"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, specimenSide, "", "1: undisturbed, else remoulded"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, reserved22, "", "not used"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, rawHeight, "0.01 cm", "height"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, rawArea, "0.01 cm²", "area"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, rawRingCoefficient, "0.001 N/0.01mm", "coefficient of the load ring"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, reserved32, "", "not used"),
      TRIAXLAB_FIELD(HwxSpecimenRecord, rawReading, "0.1 division", "readings of the load ring, one each 0.5 %"),
  };
}
static_assert(tiles<HwxSpecimenRecord>(120));

Likeness likenessOf(const HwxSpecimenRecord& raw) {
  if (shownText(raw.recordSampleNo.view()).empty()) return Likeness::Unused;
  if (!isPlainText(raw.recordSampleNo.view()) || !isPlainText(raw.recordProjectNo.view())) return Likeness::Impossible;
  const bool fits = raw.rawRingCoefficient > 0 && isSizeOfSpecimen(raw.rawHeight, raw.rawArea);
  return fits ? Likeness::Sure : Likeness::Possible;
}

BlockExtent judgeHwxBlock(const HwxEntry& entry, const FileHead& head, Evidence& evidence) {
  return judgeCountedRecords<HwxSpecimenRecord>(head, entry,
                                                [&](const HwxSpecimenRecord& raw) { evidence.add(likenessOf(raw)); });
}

Recognition recogniseHwx(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeHwxBlock); }

// ---- a specimen fills its side of a row

using HwxBlock = SpecimenBlock<HwxSpecimenRecord>;

struct HwxSpecimen {
  const HwxSpecimenRecord* raw;
  UnconfinedIdentity identity;
};

Specimen sideOf(const HwxSpecimenRecord& raw) {
  return raw.specimenSide == kHwxUndisturbed ? Specimen::Undisturbed : Specimen::Remoulded;
}

RawUnconfinedSide contentOf(const HwxSpecimenRecord& raw) {
  return {.height = raw.rawHeight / kHwxWordsPerCm,
          .area = raw.rawArea / kHwxWordsPerCm,
          .ringCoefficient = raw.rawRingCoefficient,
          .reading = raw.rawReading,
          .strain = strainsEachHalfPercent()};
}

UnconfinedIdentity identityOf(const HwxSpecimenRecord& raw, const SourceRow& source) {
  const std::string_view own = shownText(raw.recordProjectNo.view());
  UnconfinedIdentity identity;
  SetText(identity.projectNo, own.empty() ? std::string_view(source.projectNo) : own);
  SetText(identity.sampleNo, shownText(raw.recordSampleNo.view()));
  return identity;
}

struct HwxFormat : GroupsIndex {
  using Record = UnconfinedSampleRecord;
  using Block = HwxBlock;
  using Group = HwxSpecimen;

  static Block readBlock(const File& file, const Entry& entry) {
    Block block;
    block.isWhole = readCounted(file, entry, block.specimens);
    return block;
  }
  static void addGroups(const Block& block, const SourceRow& source, UnconfinedImportPlan& plan,
                        std::vector<Group>& groups) {
    plan.projects.addDate(source);
    for (const HwxSpecimenRecord& raw : block.specimens) {
      if (shownText(raw.recordSampleNo.view()).empty()) continue;
      const UnconfinedIdentity identity = identityOf(raw, source);
      plan.addGroup(identity, UnconfinedImportPlan::Gathering::InPlace);
      groups.push_back({&raw, identity});
    }
  }
  static void fill(const Group& specimen, Record& row) {
    setIdentity(row, specimen.identity);
    fillSide(row, sideOf(*specimen.raw), contentOf(*specimen.raw));
  }
};

std::vector<RawLayout> layouts() {
  return {rawLayout<HwxEntry>("Index entry"), rawLayout<HwxSpecimenRecord>("Specimen")};
}

}  // namespace

extern constinit const Importer kUnconfinedHwxImporter{.id = "unconfined-hwx",
                                                       .menuCommand = "XWUCEXIAN",
                                                       .menuCaption = "新无侧限",
                                                       .form = "OPENFORM30",
                                                       .title = "新无侧限抗压强度试验原始数据库",
                                                       .defaultFile = "HWXSJ.KU",
                                                       .folderField = sourceFolderField(6),
                                                       .messageTitle = "打开新无侧限试验数据",
                                                       .document = kForm4,
                                                       .columns = kGroupsRowColumns,
                                                       .recognise = recogniseHwx,
                                                       .open = openIndexed<HwxFormat>,
                                                       .formatPage = "unconfined-hwx-ku.md",
                                                       .layouts = layouts,
                                                       .noSamples = kNoUnconfinedSamples};

}  // namespace triaxlab
