// KZJSJ.KU, the database of the unconfined compression apparatus.
//
// A .KU file (see ku_file.h). A data block is a group count, groups, and behind them a text with long sample numbers; a
// group has an undisturbed and a remoulded specimen, which go to the row of their number each. As a rule that is one
// sample. The apparatus keeps dial readings of a load ring at even strains. Sample numbers are packed decimals. Not
// known: the first byte of a group, the two specimens behind the first of each side, the rest of a specimen.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "importers/importer.h"
#include "importers/indexed_source.h"
#include "importers/ku_file.h"
#include "importers/numbered_groups.h"
#include "importers/raw_layouts.h"
#include "importers/reading_words.h"
#include "importers/unconfined_import.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

using KzjEntry = GroupsIndex::Entry;

constexpr std::size_t kKzjReadings = 23;

struct KzjSideRecord {                      // offset
  Little<std::int16_t> rawHeightWhole;      //  0  cm
  Little<std::int16_t> rawHeightFraction;   //  2  0.01 cm
  Little<std::int16_t> rawAreaWhole;        //  4  cm2
  Little<std::int16_t> rawAreaFraction;     //  6  0.01 cm2
  FixedText<4> reserved8;                   //  8
  Little<std::int16_t> rawRingCoefficient;  // 12  0.001 N/0.01mm
  FixedText<2> reserved14;                  // 14
  Words<kKzjReadings> rawReading;           // 16  0.1 division
  FixedText<2> reserved62;                  // 62
};                                          // 64

constexpr auto fieldsOf(RecordTag<KzjSideRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(KzjSideRecord, rawHeightWhole, "cm", "height, whole part"),
      TRIAXLAB_FIELD(KzjSideRecord, rawHeightFraction, "0.01 cm", "height, hundredths"),
      TRIAXLAB_FIELD(KzjSideRecord, rawAreaWhole, "cm²", "area, whole part"),
      TRIAXLAB_FIELD(KzjSideRecord, rawAreaFraction, "0.01 cm²", "area, hundredths"),
      TRIAXLAB_FIELD(KzjSideRecord, reserved8, "", "not used"),
      TRIAXLAB_FIELD(KzjSideRecord, rawRingCoefficient, "0.001 N/0.01mm", "coefficient of the load ring"),
      TRIAXLAB_FIELD(KzjSideRecord, reserved14, "", "not used"),
      TRIAXLAB_FIELD(KzjSideRecord, rawReading, "0.1 division", "readings of the load ring"),
      TRIAXLAB_FIELD(KzjSideRecord, reserved62, "", "not used"),
  };
}
static_assert(tiles<KzjSideRecord>(64));

struct KzjGroupRecord {                             // offset
  std::uint8_t reserved0 = 0;                       //   0
  std::uint8_t recordKind = 0;                      //   1  5: a reading each 1 %, else each 0.5 %
  std::array<std::uint8_t, 3> packedSampleNo{};     //   2
  std::array<std::uint8_t, 3> packedRemouldedNo{};  //   5
  std::array<KzjSideRecord, 2> sides;               //   8  undisturbed, remoulded
  FixedText<140> reserved136;                       // 136
};                                                  // 276

constexpr auto fieldsOf(RecordTag<KzjGroupRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(KzjGroupRecord, reserved0, "", "not used"),
      TRIAXLAB_FIELD(KzjGroupRecord, recordKind, "", "5: a reading each 1 % of strain, else each 0.5 %"),
      TRIAXLAB_FIELD(KzjGroupRecord, packedSampleNo, "",
                     "sample number of the undisturbed side, packed as in KSZSJ.KU, the last byte first"),
      TRIAXLAB_FIELD(KzjGroupRecord, packedRemouldedNo, "", "that of the remoulded side"),
      TRIAXLAB_FIELD(KzjGroupRecord, sides, "", "the undisturbed side, then the remoulded one"),
      TRIAXLAB_FIELD(KzjGroupRecord, reserved136, "", "not used"),
  };
}
static_assert(tiles<KzjGroupRecord>(276));

Likeness likenessOf(const KzjSideRecord& side) {
  constexpr int kHundredths = 100;
  const auto isFraction = [](int word) { return word >= 0 && word < kHundredths; };
  if (side.rawHeightWhole == 0 && side.rawAreaWhole == 0) return Likeness::Unused;
  const int height = side.rawHeightWhole * kHundredths + side.rawHeightFraction;
  const int area = side.rawAreaWhole * kHundredths + side.rawAreaFraction;
  const bool fits = isFraction(side.rawHeightFraction) && isFraction(side.rawAreaFraction) &&
                    side.rawRingCoefficient > 0 && isSizeOfSpecimen(height, area);
  return fits ? Likeness::Sure : Likeness::Possible;
}

BlockExtent judgeKzjBlock(const KzjEntry& entry, const FileHead& head, Evidence& evidence) {
  return judgeCountedRecords<KzjGroupRecord>(head, entry, [&](const KzjGroupRecord& group) {
    for (const KzjSideRecord& side : group.sides) evidence.add(likenessOf(side));
  });
}

Recognition recogniseKzj(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeKzjBlock); }

// ---- a specimen fills its side of a row

using KzjBlock = NumberedGroups<KzjGroupRecord>;

struct KzjSpecimen {
  const KzjGroupRecord* group;
  Specimen side;
  UnconfinedIdentity identity;
};

/// The bytes of a packed number stand in reverse. One of zero bytes, as in a file that was cut, is no number, and there
/// is no specimen; nor is there one whose number has no characters.
std::string sampleNoOf(const KzjBlock& block, std::size_t group, Specimen side) {
  const KzjGroupRecord& raw = block.groups[group];
  auto packed = side == Specimen::Undisturbed ? raw.packedSampleNo : raw.packedRemouldedNo;
  if (std::ranges::all_of(packed, [](std::uint8_t byte) { return byte == 0; })) return {};
  std::ranges::reverse(packed);
  return longSampleNo(block.longSampleNumbers, group).value_or(unpackedNumber(packed));
}

RawUnconfinedSide sideOf(const KzjGroupRecord& group, Specimen specimen) {
  constexpr std::uint8_t kEachPercent = 5;
  const KzjSideRecord& raw = group.sides[indexOf(specimen)];
  return {.height = raw.rawHeightWhole + raw.rawHeightFraction / 100.0,
          .area = raw.rawAreaWhole + raw.rawAreaFraction / 100.0,
          .ringCoefficient = raw.rawRingCoefficient,
          .reading = raw.rawReading,
          .strain = group.recordKind == kEachPercent ? strainsEachPercent() : strainsEachHalfPercent()};
}

struct KzjFormat : GroupsIndex {
  using Record = UnconfinedSampleRecord;
  using Block = KzjBlock;
  using Group = KzjSpecimen;

  static Block readBlock(const File& file, const Entry& entry) {
    return readNumberedGroups<KzjGroupRecord>(file, entry);
  }
  static void addGroups(const Block& block, const SourceRow& source, UnconfinedImportPlan& plan,
                        std::vector<Group>& groups) {
    plan.projects.addDate(source);
    for (std::size_t i = 0; i < block.groups.size(); ++i) {
      for (const Specimen side : kSpecimens) {
        const std::string sampleNo = sampleNoOf(block, i, side);
        if (sampleNo.empty()) continue;
        UnconfinedIdentity identity;
        SetText(identity.projectNo, source.projectNo);
        SetText(identity.sampleNo, sampleNo);
        plan.addGroup(identity, UnconfinedImportPlan::Gathering::InPlace);
        groups.push_back({&block.groups[i], side, identity});
      }
    }
  }
  static void fill(const Group& specimen, Record& row) {
    setIdentity(row, specimen.identity);
    fillSide(row, specimen.side, sideOf(*specimen.group, specimen.side));
  }
};

std::vector<RawLayout> layouts() { return {rawLayout<KzjEntry>("Index entry"), rawLayout<KzjGroupRecord>("Group")}; }

}  // namespace

extern constinit const Importer kUnconfinedKzjImporter{.id = "unconfined-kzj",
                                                       .menuCommand = "WUCEXIAN",
                                                       .menuCaption = "无侧限抗压强度",
                                                       .form = "OPENFORM3",
                                                       .title = "无侧限抗压强度试验原始数据库",
                                                       .defaultFile = "KZJSJ.KU",
                                                       .folderField = sourceFolderField(2),
                                                       .messageTitle = "打开无侧限试验数据",
                                                       .document = kForm4,
                                                       .columns = kGroupsRowColumns,
                                                       .recognise = recogniseKzj,
                                                       .open = openIndexed<KzjFormat>,
                                                       .formatPage = "unconfined-kzj-ku.md",
                                                       .layouts = layouts,
                                                       .lineAbove = true,
                                                       .noSamples = kNoUnconfinedSamples};

}  // namespace triaxlab
