// *.SZD, the files of the Nanjing triaxial apparatus.
//
// A file is lines of GBK text that end with a line feed, and blocks of binary readings between them. A block of one
// sample, one specimen each:
//
//     SZ-data                       the marker, alone on its line
//     test date
//     project number
//     sample number
//     nine lines with a number each  what they mean is not known
//     four bytes                     not known
//     pairs of 16-bit words          stress difference, 0.01 kPa, unsigned; the first at a strain of 0, then each 0.1 %
//     71 41, 7A 3D                   two words that end the pairs
//     three bytes                    not known
//     a word                         the high half of the cell pressure in kPa as a 32-bit float
//
// Words are little-endian. What else stands in the file is passed over; a carriage return in front of a line feed
// belongs to the line, so a marker with one is none. The file is read whole and has no selection grid.
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "importers/importer.h"
#include "importers/ku_file.h"
#include "importers/recognition.h"
#include "importers/triaxial_import.h"
#include "platform/files.h"

namespace triaxlab {
namespace {

constexpr std::string_view kMarker = "SZ-data";
constexpr std::size_t kTakenReadings = 201;
constexpr std::size_t kMostPairs = 301;  // without an end mark the readings stop here
constexpr std::size_t kBytesBeforeReadings = 4;
constexpr std::uint16_t kEndMark = 0x7141, kSecondEndMark = 0x7A3D;
constexpr std::size_t kPressureBehindEndMark = 7;  // counted from the beginning of the mark
constexpr std::size_t kWordSize = 2;
/// Row 0 of the table stays blank.
constexpr std::size_t kMostSamples = kTableRows - 1;
constexpr std::uint64_t kLargestFile = 100'000'000;

enum BlockLine : int { kDateLine = 1, kProjectLine = 2, kSampleLine = 3, kLastLine = 12 };

/// The pressures that the apparatus has; another leaves the text blank.
struct PressureWord {
  std::uint16_t word;
  std::string_view kPa;
};
constexpr std::array kPressures{PressureWord{0x4248, "50"}, PressureWord{0x42C8, "100"}, PressureWord{0x4348, "200"},
                                PressureWord{0x4396, "300"}};

/// What a block holds, as far as it goes.
struct NanjingSample {
  FixedText<20> project;  // of the second line
  FixedText<15> projectNo;
  FixedText<14> sampleNo;
  FixedText<6> cellPressure;
  std::optional<std::array<std::uint16_t, kTakenReadings>> readings;  // there when the binary part begins
};

struct NanjingContent {
  std::vector<NanjingSample> samples;
  SourceRow project;    // number and date of the last block, GBK
  bool isWhole = true;  // no block's binary part ends with the file
};

class NanjingScan {
 public:
  explicit NanjingScan(std::string_view bytes) : m_bytes(bytes) {}

  /// Stops at the first sample that has no row any more.
  NanjingContent scan() {
    while (m_content.samples.size() <= kMostSamples) {
      const std::size_t end = m_bytes.find('\n', m_at);
      if (end == std::string_view::npos) break;
      const std::string_view line = m_bytes.substr(m_at, end - m_at);
      m_at = end + 1;
      takeLine(line);
    }
    return std::move(m_content);
  }

 private:
  void takeLine(std::string_view line) {
    auto& samples = m_content.samples;
    if (line == kMarker) {
      samples.emplace_back();
      m_line = 0;
      return;
    }
    if (samples.empty()) return;
    NanjingSample& sample = samples.back();
    switch (++m_line) {
      case kDateLine:
        m_content.project.testDate = line;
        break;
      case kProjectLine:
        m_content.project.projectNo = line;
        SetText(sample.project, line);
        break;
      case kSampleLine:
        SetText(sample.sampleNo, line);
        SetText(sample.projectNo, sample.project.view());
        break;
      case kLastLine:
        m_at += kBytesBeforeReadings;
        takeReadings(sample);
        break;
      default:
        break;
    }
  }

  /// Pairs up to the end mark, and the pressure behind it. Readings that the file doesn't have are 0.
  void takeReadings(NanjingSample& sample) {
    auto& readings = sample.readings.emplace();
    for (std::size_t pair = 0; pair < kMostPairs; ++pair, m_at += 2 * kWordSize) {
      if (m_at + 2 * kWordSize > m_bytes.size()) m_content.isWhole = false;
      if (m_at >= m_bytes.size()) break;
      const std::array words{word(m_at), word(m_at + kWordSize)};
      if (words[0] == kEndMark && words[1] == kSecondEndMark) return takePressure(sample);
      for (std::size_t i = 0; i < words.size(); ++i)
        if (2 * pair + i < readings.size()) readings[2 * pair + i] = words[i];
    }
    m_at = std::min(m_at, m_bytes.size());
  }

  void takePressure(NanjingSample& sample) {
    m_at += kPressureBehindEndMark;
    const std::uint16_t stored = word(m_at);
    m_at += kWordSize;
    if (m_at > m_bytes.size()) m_content.isWhole = false;
    m_at = std::min(m_at, m_bytes.size());
    const auto* const known = std::find_if(kPressures.begin(), kPressures.end(),
                                           [=](const PressureWord& pressure) { return pressure.word == stored; });
    if (known != kPressures.end()) SetText(sample.cellPressure, known->kPa);
  }

  /// Bytes beyond the end are 0.
  std::uint16_t word(std::size_t at) const {
    const auto byte = [this](std::size_t place) {
      return place < m_bytes.size() ? static_cast<std::uint8_t>(m_bytes[place]) : std::uint8_t{0};
    };
    return static_cast<std::uint16_t>(byte(at) | byte(at + 1) << 8);
  }

  std::string_view m_bytes;
  std::size_t m_at = 0;
  int m_line = 0;  // lines since the last marker
  NanjingContent m_content;
};

void fillRow(const NanjingSample& sample, TriaxialSampleRecord& row) {
  row.projectNo = sample.projectNo;
  row.sampleNo = sample.sampleNo;
  row.cellPressure[0] = sample.cellPressure;
  if (!sample.readings) return;
  for (std::size_t i = 0; i < kTakenReadings; ++i) {
    const int tenths = ((*sample.readings)[i] + 5) / 10;  // as the format "0.0" rounds the hundredths
    SetNumber(row.deviatorStress[i][0], tenths / 10.0, NumberFormat::Tenths);
    row.axialStrain[i][0] = static_cast<float>(static_cast<double>(i) / 10);
  }
}

// ---- the source

class NanjingSource : public RawSource {
 public:
  /// The file is opened to find out whether it is there.
  explicit NanjingSource(std::filesystem::path path) : m_path(std::move(path)) {
    const File file(m_path, File::Mode::Read);
  }

  /// One row without cells: the file, which is read whole or not at all.
  std::span<const SourceRow> rows() const override { return m_rows; }
  const Remarks& remarks() const override { return m_remarks; }

  /// Leaves rawImportPending as it is, and the strain axis to the readings.
  ImportReport read(std::span<const std::size_t> /*marked*/, Workspace& workspace,
                    const Progress& progress) const override {
    const Bytes bytes = readWholeFile(m_path, kLargestFile);
    const NanjingContent content = NanjingScan({reinterpret_cast<const char*>(bytes.data()), bytes.size()}).scan();
    if (content.samples.size() > kMostSamples)
      throw UserError(fmt::format("文件“{}”中的试样超过{}个，数据没有读入。", textOfPath(m_path), kMostSamples));
    TriaxialImportPlan plan(TriaxialImportPlan::Axes::OfSource);
    plan.projects.addDate(content.project);
    plan.addBlankRow();
    for (std::size_t i = 0; i < content.samples.size(); ++i) plan.addGroup({}, TriaxialImportPlan::Gathering::OwnRow);
    const auto fill = [&](std::size_t number, TriaxialSampleRecord& row) { fillRow(content.samples[number], row); };
    return plan.carryOut(workspace, fill, remarksOn(content), progress);
  }

 private:
  Remarks remarksOn(const NanjingContent& content) const {
    if (content.samples.empty())
      return {fmt::format("文件“{}”中没有“{}”标记，没有读到试样。", textOfPath(m_path), kMarker)};
    if (!content.isWhole) return {cutShortRemark(m_path, "最后一个试样的数据")};
    return {};
  }

  std::filesystem::path m_path;
  std::array<SourceRow, 1> m_rows;
  Remarks m_remarks;
};

/// The first marker may stand far behind in the file, or be missing.
Recognition recogniseNanjing(const FileHead& head) {
  const std::string line = std::string(kMarker) + "\n";
  const bool hasMarker = head.text().starts_with(line) || head.text().find("\n" + line) != std::string_view::npos;
  return hasMarker ? Recognition::Mine : Recognition::Damaged;
}

std::unique_ptr<RawSource> openNanjing(const std::filesystem::path& path) {
  return std::make_unique<NanjingSource>(path);
}

}  // namespace

extern constinit const Importer kNanjingImporter{.id = "nanjing",
                                                 .menuCommand = "OPENNJ",
                                                 .title = "南京三轴原始数据文件",
                                                 .defaultFile = "*.SZD",
                                                 .messageTitle = "打开三轴试验数据",
                                                 .document = kForm1,
                                                 .recognise = recogniseNanjing,
                                                 .open = openNanjing,
                                                 .formatPage = "nanjing-triaxial-szd.md",
                                                 .fileDialogTitle = "打开南京三轴原始数据文件"};

}  // namespace triaxlab
