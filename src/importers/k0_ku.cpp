// KGJSJ.KU and HGJSJ.KU, the databases of the two K0 apparatus; the tests of the TK0 table come from HGJSJ.KU as well.
//
// Both are .KU files (see ku_file.h). A data block of KGJSJ.KU is its records one by one, as many as the index entry
// says; one of HGJSJ.KU is a header with a place for each of 64 stations, and the readings behind it. The readers are
// yet to come: this file knows the layouts, and so whose a database is.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "importers/importer.h"
#include "importers/ku_file.h"
#include "importers/raw_layouts.h"
#include "importers/reading_words.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

using K0Entry = KuIndexEntry<FixedText<8>>;  // the tail is not used

constexpr std::size_t kMostStages = 10;

/// The numbers of a station in use. One without a sample number says nothing of its file.
Likeness likenessOfNumbers(std::string_view projectNo, std::string_view sampleNo) {
  if (!isPlainText(projectNo) || !isPlainText(sampleNo)) return Likeness::Impossible;
  return shownText(sampleNo).empty() ? Likeness::Unused : Likeness::Sure;
}

// ---- KGJSJ.KU

// Where the words stand is settled here alone, as long as no apparatus's file has shown it.
struct KgjStationRecord {                 // offset
  FixedText<10> recordProjectNo;          //    0  blank: that of the index
  FixedText<10> recordSampleNo;           //   10  blank: no station
  Little<std::int16_t> stageCount;        //   20
  FixedText<10> reserved22;               //   22
  Words<kMostStages> rawLoad;             //   32  0.001
  Words<kMostStages> rawDeformation;      //   52  0.001 mm
  Words<kMostStages> rawLateralPressure;  //   72  0.001
  FixedText<2044> reserved92;             //   92
};                                        // 2136

constexpr auto fieldsOf(RecordTag<KgjStationRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(KgjStationRecord, recordProjectNo, "", "project number; blank: that of the index"),
      TRIAXLAB_FIELD(KgjStationRecord, recordSampleNo, "", "sample number; blank: no station"),
      TRIAXLAB_FIELD(KgjStationRecord, stageCount, "", "stages, at most 10"),
      TRIAXLAB_FIELD(KgjStationRecord, reserved22, "", "not used"),
      TRIAXLAB_FIELD(KgjStationRecord, rawLoad, "0.001", "axial pressure of each stage"),
      TRIAXLAB_FIELD(KgjStationRecord, rawDeformation, "0.001 mm", "axial deformation of each stage"),
      TRIAXLAB_FIELD(KgjStationRecord, rawLateralPressure, "0.001", "lateral pressure of each stage"),
      TRIAXLAB_FIELD(KgjStationRecord, reserved92, "", "not used"),
  };
}
static_assert(tiles<KgjStationRecord>(2136));

Likeness likenessOf(const KgjStationRecord& raw) {
  const Likeness numbers = likenessOfNumbers(raw.recordProjectNo.view(), raw.recordSampleNo.view());
  if (numbers != Likeness::Sure) return numbers;
  const int stages = raw.stageCount;
  if (stages < 1 || stages > static_cast<int>(kMostStages)) return Likeness::Possible;
  const bool areLoads =
      std::all_of(raw.rawLoad.begin(), raw.rawLoad.begin() + stages, [](int load) { return load > 0; });
  return areLoads ? Likeness::Sure : Likeness::Possible;
}

BlockPlace judgeKgjBlock(const K0Entry& entry, const FileHead& head, Evidence& evidence) {
  return judgeRecords<KgjStationRecord>(head, entry.entryDataOffset.value(), entry.entryGroupCount,
                                        [&](const KgjStationRecord& raw) { evidence.add(likenessOf(raw)); });
}

Recognition recogniseKgj(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeKgjBlock); }

std::vector<RawLayout> kgjLayouts() {
  return {rawLayout<K0Entry>("Index entry"), rawLayout<KgjStationRecord>("Station")};
}

// ---- HGJSJ.KU

constexpr std::size_t kStations = 64;
constexpr std::size_t kLoadRows = 10;

/// Ten bytes of each station, of which these places are known.
using StationFlags = std::array<std::uint8_t, 10>;
enum FlagPlace : std::size_t {
  kKindPlace = 0,  // 0: station empty; 4: K0
};

struct HgjBlockHeader {                                   // offset
  FixedText<34> blockLead;                                //    0
  std::array<FixedText<10>, kStations> stationProjectNo;  //   34  blank: that of the index
  std::array<FixedText<10>, kStations> stationSampleNo;   //  674
  std::array<StationFlags, kStations> stationFlags{};     // 1314
  std::array<Words<kMostStages>, kLoadRows> loadTable;    // 1954  kPa
  FixedText<20> blockTitle;                               // 2154
  Little<std::int16_t> stationStride;                     // 2174  bytes from station to station, mode 3
  FixedText<10> blockTail1;                               // 2176
  FixedText<72> blockTail2;                               // 2186
  FixedText<3> blockEnd;                                  // 2258
};                                                        // 2261

constexpr auto fieldsOf(RecordTag<HgjBlockHeader> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(HgjBlockHeader, blockLead, "", "not used"),
      TRIAXLAB_FIELD(HgjBlockHeader, stationProjectNo, "", "project number of each station; blank: that of the index"),
      TRIAXLAB_FIELD(HgjBlockHeader, stationSampleNo, "", "sample number of each station"),
      TRIAXLAB_FIELD(HgjBlockHeader, stationFlags, "", "ten bytes of each station, see above"),
      TRIAXLAB_FIELD(HgjBlockHeader, loadTable, "kPa", "ten rows of stage loads; a first load of 125 stands for 12.5"),
      TRIAXLAB_FIELD(HgjBlockHeader, blockTitle, "", "not used"),
      TRIAXLAB_FIELD(HgjBlockHeader, stationStride, "", "bytes from station to station in mode 3"),
      TRIAXLAB_FIELD(HgjBlockHeader, blockTail1, "", "not used"),
      TRIAXLAB_FIELD(HgjBlockHeader, blockTail2, "", "not used"),
      TRIAXLAB_FIELD(HgjBlockHeader, blockEnd, "", "not used"),
  };
}
static_assert(tiles<HgjBlockHeader>(2261));

Likeness likenessOf(const HgjBlockHeader& header, std::size_t station) {
  constexpr std::uint8_t kEmpty = 0, kLastKind = 5;
  const std::uint8_t kind = header.stationFlags[station][kKindPlace];
  if (kind == kEmpty) return Likeness::Unused;
  const Likeness numbers =
      likenessOfNumbers(header.stationProjectNo[station].view(), header.stationSampleNo[station].view());
  return numbers == Likeness::Sure && kind > kLastKind ? Likeness::Possible : numbers;
}

BlockPlace judgeHgjBlock(const K0Entry& entry, const FileHead& head, Evidence& evidence) {
  return judgeRecords<HgjBlockHeader>(head, entry.entryDataOffset.value(), 1, [&](const HgjBlockHeader& header) {
    for (std::size_t station = 0; station < kStations; ++station) evidence.add(likenessOf(header, station));
  });
}

Recognition recogniseHgj(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeHgjBlock); }

std::vector<RawLayout> hgjLayouts() {
  return {rawLayout<K0Entry>("Index entry"), rawLayout<HgjBlockHeader>("Block header")};
}

}  // namespace

extern constinit const Importer kK0KgjImporter{.id = "k0-kgj",
                                               .menuCommand = "k0",
                                               .menuCaption = "K0",
                                               .form = "OPENFORM2",
                                               .title = "KO试验原始数据库",
                                               .defaultFile = "KGJSJ.KU",
                                               .folderField = sourceFolderField(4),
                                               .document = kForm6,
                                               .recognise = recogniseKgj,
                                               .formatPage = "k0-kgj-ku.md",
                                               .layouts = kgjLayouts,
                                               .lineAbove = true};

extern constinit const Importer kK0HgjImporter{.id = "k0-hgj",
                                               .menuCommand = "Xk0",
                                               .menuCaption = "新K0",
                                               .form = "OPENFORM20",
                                               .title = "新KO试验原始数据库",
                                               .defaultFile = "HGJSJ.KU",
                                               .folderField = sourceFolderField(7),
                                               .document = kForm6,
                                               .recognise = recogniseHgj,
                                               .formatPage = "k0-hgj-ku.md",
                                               .layouts = hgjLayouts};

/// The same file into the TK0 table.
extern constinit const Importer kTK0HgjImporter{.id = "tk0-hgj",
                                                .menuCommand = "TXk0",
                                                .menuCaption = "TK0",
                                                .form = "OPENFORM21",
                                                .title = "TKO试验原始数据库",
                                                .defaultFile = "HGJSJ.KU",
                                                .folderField = sourceFolderField(8),
                                                .document = kForm9,
                                                .recognise = recogniseHgj,
                                                .formatPage = "k0-hgj-ku.md",
                                                .layouts = hgjLayouts};

}  // namespace triaxlab
