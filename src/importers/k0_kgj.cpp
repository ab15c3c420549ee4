// KGJSJ.KU, the database of the older K0 apparatus.
//
// A .KU file (see ku_file.h). A data block is stations one by one, as many as the index entry says, each of them a
// sample with the loads, deformations and lateral pressures at the end of its stages. Not known: where an apparatus has
// these words. Ours is told in one table of the record's members; a laboratory's file would be met by moving them
// there.
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "common/gbk.h"
#include "importers/importer.h"
#include "importers/indexed_source.h"
#include "importers/k0_import.h"
#include "importers/ku_file.h"
#include "importers/raw_layouts.h"
#include "importers/reading_words.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

// Where the words stand is settled here alone, as long as no apparatus's file has shown it.
struct KgjStationRecord {                 // offset
  FixedText<10> recordProjectNo;          //    0  blank: that of the index
  FixedText<10> recordSampleNo;           //   10  blank: no station
  Little<std::int16_t> stageCount;        //   20
  FixedText<10> reserved22;               //   22
  Words<kLoadStages> rawLoad;             //   32  0.001
  Words<kLoadStages> rawDeformation;      //   52  0.001 mm
  Words<kLoadStages> rawLateralPressure;  //   72  0.001
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
  const Likeness numbers = likenessOfStation(raw.recordProjectNo.view(), raw.recordSampleNo.view());
  if (numbers != Likeness::Sure) return numbers;
  const int stages = raw.stageCount;
  if (stages < 1 || stages > static_cast<int>(kLoadStages)) return Likeness::Possible;
  const bool areLoads =
      std::all_of(raw.rawLoad.begin(), raw.rawLoad.begin() + stages, [](int load) { return load > 0; });
  return areLoads ? Likeness::Sure : Likeness::Possible;
}

BlockExtent judgeKgjBlock(const K0Entry& entry, const FileHead& head, Evidence& evidence) {
  return judgeRecords<KgjStationRecord>(head, entry.entryDataOffset.value(), entry.entryGroupCount,
                                        [&](const KgjStationRecord& raw) { evidence.add(likenessOf(raw)); });
}

Recognition recogniseKgj(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeKgjBlock); }

std::vector<RawLayout> kgjLayouts() {
  return {rawLayout<K0Entry>("Index entry"), rawLayout<KgjStationRecord>("Station")};
}

// ---- a station fills a row

/// A word of each stage, and the field that it goes to through a divisor and a format.
struct StageWords {
  Words<kLoadStages> KgjStationRecord::*raw;
  PerLoadStage<FixedText<6>> K0SampleRecord::*target;
  double divisor;
  NumberFormat format;
};

// All three are told in thousandths. Whether an apparatus means thousandths of a kPa or of a MPa only its file can
// tell: a word of 400 shows as 0.400.
constexpr std::array kStageWords{
    StageWords{&KgjStationRecord::rawLoad, &K0SampleRecord::axialPressure, 1000, NumberFormat::Thousandths},
    StageWords{&KgjStationRecord::rawDeformation, &K0SampleRecord::axialDeformation, 1000, NumberFormat::Thousandths},
    StageWords{&KgjStationRecord::rawLateralPressure, &K0SampleRecord::lateralPressure, 1000,
               NumberFormat::Thousandths},
};

/// All stages of the count are written, words of 0 too.
void fillStages(const KgjStationRecord& raw, K0SampleRecord& row) {
  const auto stages = static_cast<std::size_t>(std::clamp<int>(raw.stageCount, 0, kLoadStages));
  for (const StageWords& words : kStageWords)
    for (std::size_t stage = 0; stage < stages; ++stage) {
      const std::int16_t word = (raw.*words.raw)[stage];
      if (word != kNoReading) SetNumber((row.*words.target)[stage], word / words.divisor, words.format);
    }
}

// ---- the source

/// A station with the project number of its grid row.
struct KgjStation {
  const KgjStationRecord* raw;
  std::string projectNo;
};

struct KgjFormat {
  using Record = K0SampleRecord;
  using Entry = K0Entry;
  using Block = SpecimenBlock<KgjStationRecord>;
  using Group = KgjStation;

  static std::vector<Entry> readIndex(const File& file, Remarks& remarks) {
    return readKuIndex<FixedText<8>>(file, remarks);
  }

  static SourceRow gridRow(const Entry& entry) {
    constexpr std::size_t kBenchWidth = 2;
    SourceRow row = k0GridRow(entry);
    row.cells.push_back(fmt::format("{}", entry.entryGroupCount));
    row.cells.push_back(gbkToUtf8(shownText(entry.entryTail.view().substr(0, kBenchWidth))));
    row.cells.emplace_back("试验数据");
    return row;
  }

  static Block readBlock(const File& file, const Entry& entry) {
    Block block;
    block.isWhole = readRecords(file, entry.entryDataOffset.value(), entry.entryGroupCount, block.specimens);
    return block;
  }

  static void addGroups(const Block& block, const SourceRow& source, ImportPlan<Record>& plan,
                        std::vector<Group>& groups) {
    plan.projects.addDate(source);
    for (const KgjStationRecord& raw : block.specimens) {
      if (shownText(raw.recordSampleNo.view()).empty()) continue;
      const std::string_view own = shownText(raw.recordProjectNo.view());
      addStation(plan);
      groups.push_back({&raw, std::string(own.empty() ? std::string_view(source.projectNo) : own)});
    }
  }

  static void fill(const Group& station, Record& row) {
    SetText(row.projectNo, station.projectNo);
    SetText(row.sampleNo, shownText(station.raw->recordSampleNo.view()));
    fillStages(*station.raw, row);
  }
};

constexpr std::array kColumns{kProjectNoColumn, kDateColumn, SourceColumn{"Ko试验", 900, true},
                              SourceColumn{"台号", 700}, SourceColumn{"数据特征", 1500}};
constexpr std::array<std::size_t, 1> kSameColumns{0};

}  // namespace

extern constinit const Importer kK0KgjImporter{.id = "k0-kgj",
                                               .menuCommand = "k0",
                                               .menuCaption = "K0",
                                               .form = "OPENFORM2",
                                               .title = "KO试验原始数据库",
                                               .defaultFile = "KGJSJ.KU",
                                               .folderField = sourceFolderField(4),
                                               .messageTitle = kK0MessageTitle,
                                               .document = kForm6,
                                               .columns = kColumns,
                                               .recognise = recogniseKgj,
                                               .open = openIndexed<KgjFormat>,
                                               .formatPage = "k0-kgj-ku.md",
                                               .layouts = kgjLayouts,
                                               .lineAbove = true,
                                               .marking = markingOfOneProject(kSameColumns),
                                               .noSamples = kNoK0Data};

}  // namespace triaxlab
