#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "common/fixed_text.h"
#include "common/little.h"
#include "common/record_fields.h"
#include "common/user_error.h"
#include "importers/recognition.h"
#include "platform/files.h"

namespace triaxlab {

// The .KU files of the older controllers: a signed 16-bit count, that many index entries of 30 bytes, and further on
// the data blocks that the entries point at. Little-endian; text is GBK. A file that was cut short is read as far as it
// goes: what is missing is blank text and 0.

/// The count of a file is believed up to here; the entries behind are not listed.
inline constexpr int kMostIndexEntries = 100;

/// Stored two words, the high one first, each little-endian.
class HighWordFirst {
 public:
  constexpr HighWordFirst() = default;
  constexpr explicit HighWordFirst(std::uint32_t value)
      : m_high(static_cast<std::uint16_t>(value >> 16)), m_low(static_cast<std::uint16_t>(value)) {}
  constexpr std::uint32_t value() const { return std::uint32_t{m_high} << 16 | std::uint32_t{m_low}; }

 private:
  Little<std::uint16_t> m_high, m_low;
};

/// The last eight bytes of an entry differ by source.
template <class Tail>
struct KuIndexEntry {                  // offset
  std::uint8_t entryFlag = 0;          //  0  not used
  FixedText<6> entryProjectNo;         //  1  the first six places
  FixedText<8> entryDate;              //  7  yyyymmdd
  std::uint8_t entryGroupCount = 0;    // 15  sample groups in the block
  HighWordFirst entryDataOffset;       // 16  where the block begins
  Little<std::int16_t> entryReserved;  // 20  not used
  Tail entryTail;                      // 22
};                                     // 30

inline std::string typeText(RecordTag<HighWordFirst> /*record*/) { return "uint32, two words, the high one first"; }

template <class Tail>
constexpr auto fieldsOf(RecordTag<KuIndexEntry<Tail>> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(KuIndexEntry<Tail>, entryFlag, "", "not used"),
      TRIAXLAB_FIELD(KuIndexEntry<Tail>, entryProjectNo, "", "project number, first six places"),
      TRIAXLAB_FIELD(KuIndexEntry<Tail>, entryDate, "", "test date, yyyymmdd"),
      TRIAXLAB_FIELD(KuIndexEntry<Tail>, entryGroupCount, "", "groups in the block"),
      TRIAXLAB_FIELD(KuIndexEntry<Tail>, entryDataOffset, "", "where the block begins"),
      TRIAXLAB_FIELD(KuIndexEntry<Tail>, entryReserved, "", "not used"),
      TRIAXLAB_FIELD(KuIndexEntry<Tail>, entryTail, "", "not used"),
  };
}

/// What a text box shows of a foreign text: up to the first zero byte, without the blanks around it.
std::string_view shownText(std::string_view text);

/// yyyy/mm/dd of an entry's date, as far as it is one.
std::string slashedEntryDate(const FixedText<8>& entryDate);

/// The sentence for a file that ends in front of what it promises.
std::string cutShortRemark(const std::filesystem::path& path, std::string_view whatIsMissing);

/// Leaves new elements of a vector as the memory was: a file is read over them.
template <class Record>
struct NotBlanked : std::allocator<Record> {
  template <class Other>
  struct rebind {
    using other = NotBlanked<Other>;
  };
  void construct(Record* /*place*/) const noexcept {}
};

/// Records as they stand in a file.
template <class Record>
using RawRecords = std::vector<Record, NotBlanked<Record>>;

/// `count` records from `offset` on; those that the file doesn't have, or not whole, are blank behind its end. True
/// when it has them all.
template <class Record>
bool readRecords(const File& file, std::uint64_t offset, std::size_t count, RawRecords<Record>& records) {
  static_assert(std::is_trivially_copyable_v<Record>);
  records.resize(count);
  const auto bytes = std::as_writable_bytes(std::span(records));
  const std::size_t got = file.readAt(offset, bytes);
  const Record blank;
  for (std::size_t at = got; at < bytes.size();) {
    const auto rest = bytesOf(blank).subspan(at % sizeof blank);
    std::ranges::copy(rest, bytes.begin() + static_cast<std::ptrdiff_t>(at));
    at += rest.size();
  }
  return got == bytes.size();
}

/// The records of a block that begins with a byte that counts them. True when the file has them all.
template <class Record, class Entry>
bool readCounted(const File& file, const Entry& entry, RawRecords<Record>& records) {
  const std::uint64_t start = entry.entryDataOffset.value();
  std::uint8_t count = 0;
  const bool hasCount = file.readAt(start, writableBytesOf(count)) == sizeof count;
  return readRecords(file, start + sizeof count, count, records) && hasCount;
}

/// The entries that the count promises, at most 100, and the file holds. An entry that the end cuts counts.
template <class Tail>
std::vector<KuIndexEntry<Tail>> readKuIndex(const File& file, Remarks& remarks) {
  using Entry = KuIndexEntry<Tail>;
  static_assert(tiles<Entry>(30));

  Little<std::int16_t> count;
  const std::size_t countBytes = file.readAt(0, writableBytesOf(count));
  const int wanted = count < kMostIndexEntries ? int{count} : kMostIndexEntries;
  if (wanted <= 0) return {};

  std::vector<Entry> entries(static_cast<std::size_t>(wanted));
  const auto bytes = std::as_writable_bytes(std::span(entries));
  const std::size_t got = countBytes < sizeof count ? 0 : file.readAt(sizeof count, bytes);
  entries.resize((got + sizeof(Entry) - 1) / sizeof(Entry));
  if (got < bytes.size()) remarks.push_back(cutShortRemark(file.path(), "索引"));
  return entries;
}

/// Where the block of an index entry lies.
struct BlockExtent {
  std::uint64_t begin, end;
};

/// True when the blocks lie in the file and none reaches into another.
bool blocksFit(std::vector<BlockExtent> blocks, std::uint64_t fileSize);

/// Most of what stands in the dates of an index are digits; of one whose count is wrong those of the first entry are.
bool areEntryDates(std::string_view places);

/// Shows each of the `count` records from `begin` on to `judge`, as far as the head has them, and returns where they
/// lie.
template <class Record, class Judge>
BlockExtent judgeRecords(const FileHead& head, std::uint64_t begin, std::uint64_t count, Judge judge) {
  for (std::uint64_t i = 0; i < count; ++i) {
    const auto record = head.at<Record>(begin + i * sizeof(Record));
    if (!record) break;
    judge(*record);
  }
  return {begin, begin + count * sizeof(Record)};
}

/// The same for a block that begins with a byte that counts its records.
template <class Record, class Entry, class Judge>
BlockExtent judgeCountedRecords(const FileHead& head, const Entry& entry, Judge judge) {
  const std::uint64_t begin = entry.entryDataOffset.value();
  const std::uint8_t count = head.at<std::uint8_t>(begin).value_or(entry.entryGroupCount);
  return {begin, judgeRecords<Record>(head, begin + sizeof count, count, judge).end};
}

/// Judges a file by its index and the specimens that its head holds. `judgeBlock(entry, head, evidence)` adds those of
/// an entry and returns where they lie.
template <class Tail, class JudgeBlock>
Recognition recogniseKu(const FileHead& head, JudgeBlock judgeBlock) {
  using Entry = KuIndexEntry<Tail>;
  const int count = head.at<Little<std::int16_t>>(0).value_or(std::int16_t{0});
  if (count == 0) return Recognition::Damaged;  // an index without entries says nothing of its apparatus
  Evidence evidence;
  std::string dates;
  std::vector<BlockExtent> blocks;
  for (int i = 0; i < std::min(count, kMostIndexEntries); ++i) {
    const auto entry = head.at<Entry>(sizeof(std::int16_t) + static_cast<std::uint64_t>(i) * sizeof(Entry));
    if (!entry) break;
    dates += entry->entryDate.view();
    blocks.push_back(judgeBlock(*entry, head, evidence));
  }
  if (!areEntryDates(dates)) return Recognition::NotMine;
  if (!blocksFit(std::move(blocks), head.fileSize())) evidence.miss();
  return evidence.verdict();
}

}  // namespace triaxlab
