#include "store/summary/summary_merge.h"

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>

#include "common/in_memory.h"
#include "common/small_letters.h"
#include "store/project/project_number.h"
#include "store/summary/summary_frame.h"
#include "store/summary/summary_parts.h"

namespace triaxlab {
namespace {

/// What a journal carries of one header or record, by its place in it.
class CarriedParts {
 public:
  /// In ascending order; neighbours become one.
  void add(std::size_t begin, std::span<const std::byte> bytes) {
    const bool goesOn = !m_parts.empty() && m_parts.rbegin()->first + m_parts.rbegin()->second.size() == begin;
    Bytes& part = goesOn ? m_parts.rbegin()->second : m_parts[begin];
    if (!goesOn) part.clear();
    part.insert(part.end(), bytes.begin(), bytes.end());
  }
  bool isEmpty() const { return m_parts.empty(); }

  /// The text in a part; nothing when the journal doesn't carry all of it.
  std::optional<std::string> text(const SummaryPart& part) const {
    auto found = m_parts.upper_bound(part.begin);
    if (found == m_parts.begin()) return std::nullopt;
    --found;
    const auto& [begin, bytes] = *found;
    if (begin + bytes.size() < part.end) return std::nullopt;
    const auto* const places = reinterpret_cast<const char*>(bytes.data());
    return std::string(Trim(std::string_view(places, bytes.size()).substr(part.begin - begin, part.end - part.begin)));
  }
  bool isBlank() const {
    return std::all_of(m_parts.begin(), m_parts.end(), [](const auto& part) {
      return std::all_of(part.second.begin(), part.second.end(), [](std::byte byte) { return byte == std::byte{' '}; });
    });
  }

  /// Puts over an object what `takes` agrees to, asked for each place.
  template <class Takes>
  void putOver(std::span<std::byte> object, Takes takes) const {
    for (const auto& [begin, bytes] : m_parts)
      for (std::size_t i = 0; i < bytes.size(); ++i)
        if (takes(begin + i)) object[begin + i] = bytes[i];
  }

 private:
  std::map<std::size_t, Bytes> m_parts;
};

/// The records by their position at the time of the save.
struct CarriedSummary {
  CarriedParts header;
  std::map<std::size_t, CarriedParts> records;
};

CarriedSummary carriedIn(const SaveJournalFile& journalled, const SaveJournalData& data) {
  CarriedSummary carried;
  for (const SaveJournalPiece& piece : journalled.pieces) {
    std::uint64_t at = piece.offset;
    data.read(piece.dataPosition, piece.size, [&](std::span<const std::byte> bytes) {
      while (!bytes.empty()) {
        const bool isHeader = at < sizeof(SummaryHeader);
        const std::size_t k = isHeader ? 0 : inMemory((at - sizeof(SummaryHeader)) / sizeof(SummaryRecord));
        const std::uint64_t begin = isHeader ? 0 : summaryPosition(k);
        const std::uint64_t end = isHeader ? sizeof(SummaryHeader) : summaryPosition(k + 1);
        const std::size_t size = inMemory(std::min<std::uint64_t>(bytes.size(), end - at));
        (isHeader ? carried.header : carried.records[k]).add(inMemory(at - begin), bytes.first(size));
        bytes = bytes.subspan(size);
        at += size;
      }
    });
  }
  return carried;
}

/// Blank, or a hole that a crash has left, or that begins in it.
bool isFree(std::string_view text) { return text.empty() || text.find('\0') != std::string_view::npos; }

template <class Object>
void clearToHole(Object& object) {
  std::ranges::fill(writableBytesOf(object), std::byte{0});
}

/// The summary file as it stands. What it doesn't hold reads as zeros, which no tool writes.
class StandingSummary {
 public:
  StandingSummary(const std::filesystem::path& dataFolder, const std::filesystem::path& path) {
    clearToHole(header);
    if (!fileExists(path)) return;
    m_file.emplace(File::below(dataFolder, path, File::Mode::Read));
    size = m_file->size();
    m_file->readAt(0, writableBytesOf(header));
    const std::optional<int> claimed = claimedCount(header.sampleCount.view());
    isDamaged = !claimed && !isFree(header.projectNo.trimmed());
    count = static_cast<std::size_t>(claimed.value_or(0));
    for (std::size_t k = 0; k < count && summaryPosition(k) + kSampleNoPart.end <= size; ++k)
      sampleNumbers.emplace_back(record(k).sampleNo.trimmed());
  }

  SummaryRecord record(std::size_t k) const {
    SummaryRecord record;
    clearToHole(record);
    if (m_file && k < count) m_file->readAt(summaryPosition(k), writableBytesOf(record));
    return record;
  }

  std::uint64_t size = 0;
  SummaryHeader header;
  bool isDamaged = false;  // nobody knows how many records it has
  std::size_t count = 0;
  std::vector<std::string> sampleNumbers;  // of the records that it holds

 private:
  std::optional<File> m_file;
};

class Merging {
 public:
  Merging(const std::filesystem::path& path, const StandingSummary& standing, SummaryMerge& merge)
      : m_path(path), m_standing(standing), m_merge(merge), m_count(standing.count) {
    for (std::size_t k = 0; k < standing.sampleNumbers.size(); ++k)
      if (!isFree(standing.sampleNumbers[k])) m_positions.emplace(standing.sampleNumbers[k], k);
  }

  void merge(const CarriedSummary& carried) {
    if (const std::optional<std::string> why = whyNot(carried.header)) {
      m_merge.remarks.push_back(
          fmt::format("上次保存的成果没有写入成果文件“{}”：{}工程文件已经写完；请处理好成果文件，再"
                      "打开这个工程保存一次。",
                      textOfPath(m_path), *why));
      return;
    }
    for (const auto& [k, parts] : carried.records) putRecord(k, parts);
    putHeader(carried.header);
  }

  /// The pieces are for a file of this path in the journal.
  void finish(const std::string& journalPath) {
    if (!m_tail.empty()) addPiece(m_standing.size, m_tail);
    if (!m_pieces.empty()) m_merge.files.push_back({journalPath, m_pieces});
  }

 private:
  std::optional<std::string> whyNot(const CarriedParts& header) const {
    const std::string_view now = m_standing.header.projectNo.trimmed();
    const std::optional<std::string> then = header.text(kProjectNoPart);
    if (m_standing.isDamaged) return "它的文件头中没有试样总数。";
    const bool isCut = m_standing.size < sizeof(SummaryHeader) && (m_standing.size > 0 || !then);
    if (isCut && !header.text({0, sizeof(SummaryHeader)})) return "它不足一个文件头。";
    if (then && !isFree(now) && now != *then) return fmt::format("它现在属于工程“{}”。", printableText(now));
    return std::nullopt;
  }

  void putRecord(std::size_t k, const CarriedParts& parts) {
    const std::string sampleNo = parts.text(kSampleNoPart).value_or("");
    const std::optional<std::size_t> place = placeOf(sampleNo, k, parts);
    if (!place) return putBlanksBehindEnd(k, parts);
    const SummaryRecord before = m_standing.record(*place);
    SummaryRecord after = mergedOver(before, newSummaryRecord(systemToday()), parts, kOwnRecordParts);
    if (*place != k && isPut(parts)) SetText(after.sequenceNo, FormatPadded(static_cast<std::int64_t>(*place) + 1, 4));
    putChanges(summaryPosition(*place), bytesOf(before), bytesOf(after));
    m_count = std::max(m_count, *place + 1);
    if (!isFree(sampleNo)) m_positions.emplace(sampleNo, *place);
  }

  void putHeader(const CarriedParts& parts) {
    if (parts.isEmpty() && m_count == m_standing.count) return;
    const std::string projectNo = parts.text(kProjectNoPart).value_or("");
    const SummaryHeader& before = m_standing.header;
    SummaryHeader after = mergedOver(before, newSummaryHeader(projectNo, systemToday()), parts, kOwnHeaderParts);
    if (m_count != m_standing.count) SetText(after.sampleCount, FormatPadded(static_cast<std::int64_t>(m_count), 4));
    putChanges(0, bytesOf(before), bytesOf(after));
  }

  /// An object that doesn't stand there is made new. In one that does, the journal has a say in this system's parts,
  /// and where a crash has left a hole.
  template <class Object>
  static Object mergedOver(const Object& before, const Object& madeNew, const CarriedParts& parts,
                           std::span<const SummaryPart> own) {
    const std::span<const std::byte> stands = bytesOf(before);
    const auto isHole = [](std::byte byte) { return byte == std::byte{0}; };
    const bool isNew = std::all_of(stands.begin(), stands.end(), isHole);
    Object after = isNew ? madeNew : before;
    parts.putOver(writableBytesOf(after),
                  [&](std::size_t at) { return isNew || isHole(stands[at]) || isInside(at, own); });
    return after;
  }

  static bool isPut(const CarriedParts& parts) { return !isFree(parts.text(kSequenceNoPart).value_or("")); }

  /// Where it stood, if its number still does; else where its number stands; else, for a sample that was put there, its
  /// old place, if that is free, or behind the last.
  std::optional<std::size_t> placeOf(const std::string& sampleNo, std::size_t k, const CarriedParts& parts) {
    const bool isHeld = k < m_standing.sampleNumbers.size();
    if (isHeld && parts.text(kSampleNoPart) == m_standing.sampleNumbers[k]) return k;
    if (const auto known = m_positions.find(sampleNo); known != m_positions.end()) return known->second;
    if (!isPut(parts)) return std::nullopt;
    if (k < m_standing.count && (!isHeld || isFree(m_standing.sampleNumbers[k]))) return k;
    if (m_count < kMostSummaryRecords) return m_count;
    m_merge.remarks.push_back(fmt::format("成果文件“{}”已有 {} 个试样，试样“{}”没有写入。", textOfPath(m_path), m_count,
                                          printableText(sampleNo)));
    return std::nullopt;
  }

  /// Blanks that stand for claimed records which the file doesn't hold.
  void putBlanksBehindEnd(std::size_t k, const CarriedParts& parts) {
    if (!parts.isBlank() || k >= m_standing.count) return;
    const SummaryRecord before = m_standing.record(k);
    SummaryRecord after = before;
    const std::uint64_t begin = summaryPosition(k);
    parts.putOver(writableBytesOf(after), [&](std::size_t at) { return begin + at >= m_standing.size; });
    putChanges(begin, bytesOf(before), bytesOf(after));
  }

  /// What differs of an object that begins at a place of the file.
  void putChanges(std::uint64_t begin, std::span<const std::byte> before, std::span<const std::byte> after) {
    for (std::size_t at = 0; at < after.size();) {
      std::size_t end = at;
      while (end < after.size() && before[end] != after[end]) ++end;
      if (end > at) put(begin + at, after.subspan(at, end - at));
      at = std::max(end, at + 1);
    }
  }

  void put(std::uint64_t position, std::span<const std::byte> bytes) {
    const std::uint64_t end = m_standing.size;
    const std::uint64_t before = end > position ? end - position : 0;
    const std::size_t inside = inMemory(std::min<std::uint64_t>(bytes.size(), before));
    if (inside > 0) addPiece(position, bytes.first(inside));
    if (inside == bytes.size()) return;
    const std::size_t at = inMemory(position + inside - end);
    m_tail.resize(std::max(m_tail.size(), at + bytes.size() - inside), std::byte{' '});
    std::ranges::copy(bytes.subspan(inside), m_tail.begin() + static_cast<std::ptrdiff_t>(at));
  }

  void addPiece(std::uint64_t position, std::span<const std::byte> bytes) {
    const Bytes& kept = m_merge.bytes.emplace_back(bytes.begin(), bytes.end());
    m_pieces.push_back({position, kept.size(), m_merge.data.append(kept)});
  }

  const std::filesystem::path& m_path;
  const StandingSummary& m_standing;
  SummaryMerge& m_merge;
  std::size_t m_count;
  std::unordered_map<std::string, std::size_t> m_positions;  // of the first record of each number
  std::vector<SaveJournalPiece> m_pieces;
  Bytes m_tail;  // what goes behind the end of the file, blank where nothing is put
};

}  // namespace

bool isSummaryPath(std::string_view path) {
  const std::string name = caseless(path);
  return name.starts_with("zmsj/khz") && name.ends_with(".txt");
}

SummaryMerge mergeSummary(const std::filesystem::path& dataFolder, const SaveJournalFile& journalled,
                          const SaveJournalData& data) {
  const std::filesystem::path path = dataFolder / pathFromText(journalled.path);
  const StandingSummary standing(dataFolder, path);
  SummaryMerge merge;
  Merging merging(path, standing, merge);
  merging.merge(carriedIn(journalled, data));
  merging.finish(journalled.path);
  return merge;
}

}  // namespace triaxlab
