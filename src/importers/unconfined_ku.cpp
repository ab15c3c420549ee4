// KZJSJ.KU and HWXSJ.KU, the databases of the two unconfined compression apparatus.
//
// Both are .KU files (see ku_file.h). A data block is a count byte and then its records. Those of KZJSJ.KU are groups,
// of which the first two sides are the undisturbed and the remoulded specimen of one sample; those of HWXSJ.KU are
// specimens one by one. The readers are yet to come: this file knows the layouts, and so whose a database is.
#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <vector>

#include "importers/importer.h"
#include "importers/ku_file.h"
#include "importers/raw_layouts.h"
#include "importers/reading_words.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

using UnconfinedEntry = KuIndexEntry<FixedText<8>>;  // the tail is not used

// ---- KZJSJ.KU

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

BlockPlace judgeKzjBlock(const UnconfinedEntry& entry, const FileHead& head, Evidence& evidence) {
  return judgeCountedRecords<KzjGroupRecord>(head, entry, [&](const KzjGroupRecord& group) {
    for (const KzjSideRecord& side : group.sides) evidence.add(likenessOf(side));
  });
}

Recognition recogniseKzj(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeKzjBlock); }

std::vector<RawLayout> kzjLayouts() {
  return {rawLayout<UnconfinedEntry>("Index entry"), rawLayout<KzjGroupRecord>("Group")};
}

// ---- HWXSJ.KU

constexpr std::size_t kHwxReadings = 42;

// Which words hold height, area and coefficient is settled here alone, as long as no apparatus's file has shown it.
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

BlockPlace judgeHwxBlock(const UnconfinedEntry& entry, const FileHead& head, Evidence& evidence) {
  return judgeCountedRecords<HwxSpecimenRecord>(head, entry,
                                                [&](const HwxSpecimenRecord& raw) { evidence.add(likenessOf(raw)); });
}

Recognition recogniseHwx(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeHwxBlock); }

std::vector<RawLayout> hwxLayouts() {
  return {rawLayout<UnconfinedEntry>("Index entry"), rawLayout<HwxSpecimenRecord>("Specimen")};
}

}  // namespace

extern constinit const Importer kUnconfinedKzjImporter{.id = "unconfined-kzj",
                                                       .menuCommand = "WUCEXIAN",
                                                       .menuCaption = "无侧限抗压强度",
                                                       .form = "OPENFORM3",
                                                       .title = "无侧限抗压强度试验原始数据库",
                                                       .defaultFile = "KZJSJ.KU",
                                                       .folderField = sourceFolderField(2),
                                                       .document = kForm4,
                                                       .recognise = recogniseKzj,
                                                       .formatPage = "unconfined-kzj-ku.md",
                                                       .layouts = kzjLayouts,
                                                       .lineAbove = true};

extern constinit const Importer kUnconfinedHwxImporter{.id = "unconfined-hwx",
                                                       .menuCommand = "XWUCEXIAN",
                                                       .menuCaption = "新无侧限",
                                                       .form = "OPENFORM30",
                                                       .title = "新无侧限抗压强度试验原始数据库",
                                                       .defaultFile = "HWXSJ.KU",
                                                       .folderField = sourceFolderField(6),
                                                       .document = kForm4,
                                                       .recognise = recogniseHwx,
                                                       .formatPage = "unconfined-hwx-ku.md",
                                                       .layouts = hwxLayouts};

}  // namespace triaxlab
