// HGJSJ.KU, the database of the newer K0 apparatus, into the K0 table and into the TK0 table.
//
// A .KU file (see ku_file.h). A data block is a header with a place for each of 64 stations, and the readings behind
// it, where another 224 bytes may come first. A station's recording mode tells how its readings stand; stations of
// different modes in one block all count from the same place. Not known: where an apparatus has them. Ours is told by
// the members of the records here and the two places readingsOfStageEnds and placeInSeries; a laboratory's file would
// be met by changing them.
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "importers/importer.h"
#include "importers/indexed_source.h"
#include "importers/k0_import.h"
#include "importers/ku_file.h"
#include "importers/pressure_calibration.h"
#include "importers/raw_layouts.h"
#include "importers/reading_words.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

constexpr std::size_t kStations = 64;
constexpr std::size_t kLoadRows = 10;

/// Ten bytes of each station, of which these places are known.
using StationFlags = std::array<std::uint8_t, 10>;
enum FlagPlace : std::size_t {
  kKindPlace = 0,     // StationKind
  kLoadRowPlace = 2,  // modulo 10 the row of the load table, from 1; 0: no loads
  kModePlace = 4,     // RecordingMode
};

enum StationKind : std::uint8_t { kEmptyStation = 0, kK0Station = 4 };
/// What the grid calls a block whose first station in use is of this kind.
constexpr std::array<std::string_view, 6> kKindNames{"", "压缩", "固结", "黄单", "K0", "黄双"};

enum RecordingMode : std::uint8_t {
  kSeriesForTK0 = 1,  // a time series that the K0 table leaves out
  kSeries = 2,        // a time series; the K0 table takes its last row
  kStageEnds = 3,     // the readings at the end of each stage
};

struct HgjBlockHeader {                                   // offset
  FixedText<34> blockLead;                                //    0
  std::array<FixedText<10>, kStations> stationProjectNo;  //   34  blank: that of the index
  std::array<FixedText<10>, kStations> stationSampleNo;   //  674
  std::array<StationFlags, kStations> stationFlags{};     // 1314
  std::array<Words<kLoadStages>, kLoadRows> loadTable;    // 1954  kPa
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
  const std::uint8_t kind = header.stationFlags[station][kKindPlace];
  if (kind == kEmptyStation) return Likeness::Unused;
  const Likeness numbers =
      likenessOfStation(header.stationProjectNo[station].view(), header.stationSampleNo[station].view());
  return numbers == Likeness::Sure && kind >= kKindNames.size() ? Likeness::Possible : numbers;
}

BlockExtent judgeHgjBlock(const K0Entry& entry, const FileHead& head, Evidence& evidence) {
  return judgeRecords<HgjBlockHeader>(head, entry.entryDataOffset.value(), 1, [&](const HgjBlockHeader& header) {
    for (std::size_t station = 0; station < kStations; ++station) evidence.add(likenessOf(header, station));
  });
}

Recognition recogniseHgj(const FileHead& head) { return recogniseKu<FixedText<8>>(head, judgeHgjBlock); }

// ---- the readings

struct StageEndWords {                      // offset
  Little<std::int16_t> rawDeformation;      // 0  0.001 mm
  Little<std::int16_t> reserved2;           // 2
  Little<std::int16_t> rawLateralPressure;  // 4  through the calibration
};                                          // 6

constexpr auto fieldsOf(RecordTag<StageEndWords> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(StageEndWords, rawDeformation, "0.001 mm", "axial deformation at the end of the stage"),
      TRIAXLAB_FIELD(StageEndWords, reserved2, "", "not used"),
      TRIAXLAB_FIELD(StageEndWords, rawLateralPressure, "", "lateral pressure, through the calibration table"),
  };
}
static_assert(tiles<StageEndWords>(6));

struct SeriesWords {                        // offset
  Little<std::int16_t> rawDeformation;      // 0  0.001 mm
  Little<std::int16_t> rawLateralPressure;  // 2  through the calibration
};                                          // 4

constexpr auto fieldsOf(RecordTag<SeriesWords> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(SeriesWords, rawDeformation, "0.001 mm", "axial deformation at this time"),
      TRIAXLAB_FIELD(SeriesWords, rawLateralPressure, "", "lateral pressure, through the calibration table"),
  };
}
static_assert(tiles<SeriesWords>(4));

std::vector<RawLayout> hgjLayouts() {
  return {rawLayout<K0Entry>("Index entry"), rawLayout<HgjBlockHeader>("Block header"),
          rawLayout<StageEndWords>("Stage in mode 3"), rawLayout<SeriesWords>("Reading in modes 1 and 2")};
}

using StageEnds = std::array<StageEndWords, kLoadStages>;
/// Seconds since the beginning of a stage, in front of the series.
using ElapsedTimes = std::array<Little<std::int32_t>, kTimeRows>;

/// Mode 3: from station to station the stride of the header, which may be negative; a stage behind the other.
std::int64_t readingsOfStageEnds(std::int64_t readings, const HgjBlockHeader& header, std::size_t station) {
  return readings + static_cast<std::int64_t>(station) * header.stationStride;
}

/// Modes 1 and 2: the time is the slowest, the station the fastest.
constexpr std::size_t placeInSeries(std::size_t row, std::size_t stage, std::size_t station) {
  return (row * kLoadStages + stage) * kStations + station;
}

/// Fills `into` from a place that may lie in front of the file or behind its end; what isn't there stays. True when all
/// is there.
bool readAround(const File& file, std::int64_t place, std::span<std::byte> into) {
  const std::int64_t inFront = std::clamp<std::int64_t>(-place, 0, static_cast<std::int64_t>(into.size()));
  const std::span<std::byte> rest = into.subspan(static_cast<std::size_t>(inFront));
  if (rest.empty()) return into.empty();
  return file.readAt(static_cast<std::uint64_t>(place + inFront), rest) == rest.size() && inFront == 0;
}

// ---- a block

/// What a station of a block has recorded, as far as the file goes.
struct HgjStation {
  std::size_t number;  // from 0
  FixedText<10> sampleNo;
  std::uint8_t mode;
  Words<kLoadStages> loads;  // the first 0 ends them
  StageEnds stageEnds;       // mode 3
};

std::size_t loadCount(const HgjStation& station) {
  const auto* const end = std::ranges::find_if(station.loads, [](std::int16_t load) { return load == 0; });
  return static_cast<std::size_t>(end - station.loads.begin());
}

struct HgjBlock {
  std::string projectNo;
  std::vector<HgjStation> stations;
  ElapsedTimes times{};
  std::vector<SeriesWords> series;  // rowCount rows
  const PressureCalibration* calibration = nullptr;
  bool isWhole = true;

  /// Rows up to the last that has a time.
  std::size_t rowCount() const {
    std::size_t rows = times.size();
    while (rows > 0 && times[rows - 1] == 0) --rows;
    return rows;
  }
  const SeriesWords& reading(std::size_t row, std::size_t stage, const HgjStation& station) const {
    return series[placeInSeries(row, stage, station.number)];
  }
};

/// Where the readings of a workspace's apparatus begin, and what calibrates them.
class HgjAids {
 public:
  explicit HgjAids(const Workspace& workspace)
      : m_readings(sizeof(HgjBlockHeader) + (workspace.settings.toggles.sixteenUnconfined ? kSixteenUnconfined : 0)),
        m_folder(workspace.sourceFolder),
        m_calibration(pathFromText(workspace.sourceFolder)) {}

  /// Behind the beginning of a block.
  std::uint64_t readings() const { return m_readings; }
  const PressureCalibration& calibration() const { return m_calibration; }
  /// The channel of a station is asked for.
  void need(std::size_t station) { m_channels = std::max(m_channels, station + 1); }

  Remarks remarks() const {
    if (m_channels == 0) return {};
    if (!m_calibration.isFound())
      return {fmt::format("文件夹“{}”中没有率定表 KGJYBXL1.TB 至 KGJYBXL7.TB，侧向压力都读成0.0。", m_folder)};
    Remarks remarks;
    if (m_calibration.channelCount() < m_channels)
      remarks.push_back(fmt::format("文件夹“{}”中的率定表只有{}个通道，其后各台的侧向压力读成0.0。", m_folder,
                                    m_calibration.channelCount()));
    if (!m_calibration.pointsAscend())
      remarks.push_back(
          fmt::format("文件夹“{}”中率定表的原始读数不是逐点增大，对不上的侧向压力读成0.0，请核对率定表。", m_folder));
    return remarks;
  }

 private:
  static constexpr std::uint64_t kSixteenUnconfined = 224;

  std::uint64_t m_readings;
  std::string m_folder;
  PressureCalibration m_calibration;
  std::size_t m_channels = 0;
};

/// The K0 stations with a sample of the project, or of no project, and their loads.
std::vector<HgjStation> stationsOf(const HgjBlockHeader& header, std::string_view projectNo) {
  std::vector<HgjStation> stations;
  for (std::size_t number = 0; number < kStations; ++number) {
    const StationFlags& flags = header.stationFlags[number];
    const std::string_view ownProject = shownText(header.stationProjectNo[number].view());
    if (flags[kKindPlace] != kK0Station || (!ownProject.empty() && ownProject != projectNo)) continue;
    if (shownText(header.stationSampleNo[number].view()).empty()) continue;
    HgjStation& station = stations.emplace_back();
    station.number = number;
    station.sampleNo = header.stationSampleNo[number];
    station.mode = flags[kModePlace];
    if (const std::size_t row = flags[kLoadRowPlace] % 10U; row > 0) station.loads = header.loadTable[row - 1];
  }
  return stations;
}

// ---- what goes into the tables

/// The modes whose series goes into a record.
constexpr bool takesSeries(RecordTag<K0SampleRecord> /*record*/, std::uint8_t mode) { return mode == kSeries; }
constexpr bool takesSeries(RecordTag<TK0SampleRecord> /*record*/, std::uint8_t mode) {
  return mode == kSeries || mode == kSeriesForTK0;
}

/// A station of a block, as it fills a row.
struct HgjGroup {
  const HgjBlock* block;
  const HgjStation* station;

  template <std::size_t N>
  void setDeformation(FixedText<N>& field, std::int16_t raw) const {
    if (raw != kNoReading) SetNumber(field, raw / 1000.0, NumberFormat::Thousandths);
  }
  template <std::size_t N>
  void setPressure(FixedText<N>& field, std::int16_t raw) const {
    if (raw != kNoReading) SetNumber(field, block->calibration->pressureAt(raw, station->number), NumberFormat::Tenths);
  }
};

/// A first load of 125 stands for 12.5 kPa.
void fillLoads(const HgjStation& station, K0SampleRecord& head) {
  constexpr std::int16_t kTwelveAndAHalf = 125;
  for (std::size_t stage = 0; stage < loadCount(station); ++stage) {
    const std::int16_t load = station.loads[stage];
    if (stage == 0 && load == kTwelveAndAHalf)
      SetNumber(head.axialPressure[stage], load / 10.0, NumberFormat::Tenths);
    else
      SetNumber(head.axialPressure[stage], load, NumberFormat::Whole);
  }
}

void fillStageEnds(const HgjGroup& group, K0SampleRecord& head) {
  for (std::size_t stage = 0; stage < loadCount(*group.station); ++stage) {
    const StageEndWords& end = group.station->stageEnds[stage];
    group.setDeformation(head.axialDeformation[stage], end.rawDeformation);
    group.setPressure(head.lateralPressure[stage], end.rawLateralPressure);
  }
}

/// The last row of the series is the end of each stage.
void fillSeries(const HgjGroup& group, K0SampleRecord& row) {
  const std::size_t rows = group.block->rowCount();
  for (std::size_t stage = 0; rows > 0 && stage < loadCount(*group.station); ++stage) {
    const SeriesWords& last = group.block->reading(rows - 1, stage, *group.station);
    group.setDeformation(row.axialDeformation[stage], last.rawDeformation);
    group.setPressure(row.lateralPressure[stage], last.rawLateralPressure);
  }
}

/// The lateral pressures of the stages are left to the reduction.
void fillSeries(const HgjGroup& group, TK0SampleRecord& row) {
  const std::size_t rows = group.block->rowCount();
  row.elapsedSeconds = group.block->times;
  row.timeRowCount = static_cast<std::int16_t>(rows);
  for (std::size_t stage = 0; stage < loadCount(*group.station); ++stage)
    for (std::size_t at = 0; at < rows; ++at) {
      const SeriesWords& reading = group.block->reading(at, stage, *group.station);
      group.setDeformation(row.deformationSeries[at][stage], reading.rawDeformation);
      group.setPressure(row.pressureSeries[at][stage], reading.rawLateralPressure);
      if (at + 1 == rows) group.setDeformation(row.k0.axialDeformation[stage], reading.rawDeformation);
    }
}

void setStageCount(K0SampleRecord& /*row*/, std::size_t /*stages*/) {}
void setStageCount(TK0SampleRecord& row, std::size_t stages) { row.stageCount = static_cast<std::int16_t>(stages); }

// ---- the source

/// An entry of the index with the kind of its block's first station in use.
struct HgjEntry {
  K0Entry index;
  std::uint8_t kind = kEmptyStation;
};

std::uint8_t firstKindOf(const File& file, const K0Entry& entry) {
  std::array<StationFlags, kStations> flags{};
  file.readAt(entry.entryDataOffset.value() + offsetof(HgjBlockHeader, stationFlags), writableBytesOf(flags));
  const auto* const used =
      std::ranges::find_if(flags, [](const StationFlags& station) { return station[kKindPlace] != kEmptyStation; });
  return used == flags.end() ? std::uint8_t{kEmptyStation} : (*used)[kKindPlace];
}

template <class SampleRecord>
struct HgjFormat {
  using Record = SampleRecord;
  using Entry = HgjEntry;
  using Block = HgjBlock;
  using Group = HgjGroup;
  using Aids = HgjAids;

  static std::vector<Entry> readIndex(const File& file, Remarks& remarks) {
    std::vector<Entry> entries;
    for (const K0Entry& entry : readKuIndex<FixedText<8>>(file, remarks))
      entries.push_back({entry, firstKindOf(file, entry)});
    return entries;
  }

  static SourceRow gridRow(const Entry& entry) {
    SourceRow row = k0GridRow(entry.index);
    row.cells.emplace_back(entry.kind < kKindNames.size() ? kKindNames[entry.kind] : "");
    return row;
  }

  static Block readBlock(const File& file, const Entry& entry, Aids& aids) {
    const std::uint64_t begin = entry.index.entryDataOffset.value();
    HgjBlockHeader header;
    Block block;
    block.isWhole = file.readAt(begin, writableBytesOf(header)) == sizeof header;
    block.projectNo = shownText(entry.index.entryProjectNo.view());
    block.stations = stationsOf(header, block.projectNo);
    block.calibration = &aids.calibration();
    readSeries(file, begin + aids.readings(), block, aids);
    readStageEnds(file, begin + aids.readings(), header, block, aids);
    return block;
  }

  static void addGroups(const Block& block, const SourceRow& source, ImportPlan<Record>& plan,
                        std::vector<Group>& groups) {
    plan.projects.addDate(source);
    for (const HgjStation& station : block.stations) {
      addStation(plan);
      groups.push_back({&block, &station});
    }
  }

  static void fill(const Group& group, Record& row) {
    K0SampleRecord& head = headOf(row);
    SetText(head.projectNo, group.block->projectNo);
    SetText(head.sampleNo, shownText(group.station->sampleNo.view()));
    fillLoads(*group.station, head);
    setStageCount(row, loadCount(*group.station));
    if (group.station->mode == kStageEnds) fillStageEnds(group, head);
    if (takesSeries(RecordTag<Record>(), group.station->mode)) fillSeries(group, row);
  }

 private:
  /// Times, and the rows that have them, when a station takes them. Of what the file's end cuts only readings of loaded
  /// stages are missed.
  static void readSeries(const File& file, std::uint64_t place, Block& block, Aids& aids) {
    std::size_t needed = 0;  // bytes of the series
    const auto takes = [](const HgjStation& station) { return takesSeries(RecordTag<Record>(), station.mode); };
    if (std::ranges::none_of(block.stations, takes)) return;
    if (file.readAt(place, writableBytesOf(block.times)) < sizeof block.times) block.isWhole = false;
    const std::size_t rows = block.rowCount();
    for (const HgjStation& station : block.stations) {
      const std::size_t loads = loadCount(station);
      if (!takes(station) || rows == 0 || loads == 0) continue;
      needed = std::max(needed, (placeInSeries(rows - 1, loads - 1, station.number) + 1) * sizeof(SeriesWords));
      aids.need(station.number);
    }
    block.series.resize(placeInSeries(rows, 0, 0));
    const auto bytes = std::as_writable_bytes(std::span(block.series));
    if (file.readAt(place + sizeof block.times, bytes) < needed) block.isWhole = false;
  }

  static void readStageEnds(const File& file, std::uint64_t place, const HgjBlockHeader& header, Block& block,
                            Aids& aids) {
    for (HgjStation& station : block.stations) {
      const std::size_t loads = loadCount(station);
      if (station.mode != kStageEnds || loads == 0) continue;
      aids.need(station.number);
      const auto used = std::as_writable_bytes(std::span(station.stageEnds).first(loads));
      const auto from = readingsOfStageEnds(static_cast<std::int64_t>(place), header, station.number);
      if (!readAround(file, from, used)) block.isWhole = false;
    }
  }
};

constexpr std::array kColumns{kProjectNoColumn, kDateColumn, SourceColumn{"试验内容", 1000}};
constexpr std::array<std::size_t, 2> kSameColumns{0, 2};

/// What both tables have in common is added to what one has of its own.
constexpr Importer ofHgj(Importer own) {
  own.defaultFile = "HGJSJ.KU";
  own.messageTitle = kK0MessageTitle;
  own.columns = kColumns;
  own.recognise = recogniseHgj;
  own.formatPage = "k0-hgj-ku.md";
  own.layouts = hgjLayouts;
  own.marking = markingOfOneProject(kSameColumns);
  own.noSamples = kNoK0Data;
  return own;
}

}  // namespace

extern constinit const Importer kK0HgjImporter = ofHgj({.id = "k0-hgj",
                                                        .menuCommand = "Xk0",
                                                        .menuCaption = "新K0",
                                                        .form = "OPENFORM20",
                                                        .title = "新KO试验原始数据库",
                                                        .folderField = sourceFolderField(7),
                                                        .document = kForm6,
                                                        .open = openIndexed<HgjFormat<K0SampleRecord>>});

extern constinit const Importer kTK0HgjImporter = ofHgj({.id = "tk0-hgj",
                                                         .menuCommand = "TXk0",
                                                         .menuCaption = "TK0",
                                                         .form = "OPENFORM21",
                                                         .title = "TKO试验原始数据库",
                                                         .folderField = sourceFolderField(8),
                                                         .document = kForm9,
                                                         .open = openIndexed<HgjFormat<TK0SampleRecord>>});

}  // namespace triaxlab
