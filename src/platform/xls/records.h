#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "common/little.h"
#include "platform/files.h"

namespace triaxlab {

/// The records of BIFF8 that a workbook of plain cells is made of.
enum class Record : std::uint16_t {
  Eof = 0x000A,
  DateMode = 0x0022,
  Font = 0x0031,
  Continue = 0x003C,
  Window1 = 0x003D,
  CodePage = 0x0042,
  ColumnInfo = 0x007D,
  BoundSheet = 0x0085,
  Country = 0x008C,
  MultipleRk = 0x00BD,
  ExtendedFormat = 0x00E0,
  SharedTexts = 0x00FC,
  LabelShared = 0x00FD,
  SharedTextIndex = 0x00FF,
  Dimensions = 0x0200,
  Number = 0x0203,
  Row = 0x0208,
  Window2 = 0x023E,
  Rk = 0x027E,
  Style = 0x0293,
  Format = 0x041E,
  Bof = 0x0809,
};

/// Data that a record can hold.
inline constexpr std::size_t kMostRecordData = 8224;
inline constexpr std::size_t kRecordHead = 4;

/// Records one behind the other.
class RecordBuffer {
 public:
  const Bytes& bytes() const { return m_bytes; }
  std::size_t size() const { return m_bytes.size(); }
  void clear() { m_bytes.clear(); }

  /// A whole record: the values little-endian, each in its own size.
  template <class... Values>
  void add(Record record, Values... values) {
    put(static_cast<std::uint16_t>(record));
    put(static_cast<std::uint16_t>((sizeof(Values) + ... + 0)));
    (put(values), ...);
  }
  void add(Record record, std::span<const std::byte> data);

  // A record whose size is not known before its end.
  void begin(Record record);
  void end();

  template <class Value>
  void put(Value value) {
    const Little<Value> little = value;
    append(bytesOf(little));
  }
  void append(std::span<const std::byte> bytes) { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }
  /// A flag whether the characters take two bytes each, then the characters.
  void putText(std::u16string_view text, bool wide);
  template <class Value>
  void putAt(std::size_t offset, Value value) {
    const Little<Value> little = value;
    std::ranges::copy(bytesOf(little), m_bytes.begin() + static_cast<std::ptrdiff_t>(offset));
  }

 private:
  Bytes m_bytes;
  std::size_t m_begun = 0;  // the record that has not ended
};

/// Whether a character needs the second byte.
bool isWide(std::u16string_view text);

}  // namespace triaxlab
