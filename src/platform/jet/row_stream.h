#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace triaxlab::jet {

// What the reading process hands back on its standard output. Marks of one byte, what they announce behind them,
// numbers little-endian:
//
//   'T'  a table begins, in the order in which tables were asked for: a ColumnType for each of its asked columns
//   'R'  a row of it: for each asked column a ValueKind and the value (Integer: 8 bytes; Real: 8 bytes, a double;
//        Text: 4 bytes of length, UTF-8 without zero bytes)
//   'F'  the file can't be read: 4 bytes of length, a sentence that names it, UTF-8; the end
//   'X'  why the database can't be read: 4 bytes of length, part of a sentence, UTF-8; the end
//   'E'  all was read; the end

inline constexpr char kTableMark = 'T', kRowMark = 'R', kFailureMark = 'F', kRefusalMark = 'X', kEndMark = 'E';

enum class ColumnType : std::uint8_t { Integer, Single, Double, Text };
enum class ValueKind : std::uint8_t { Null, Integer, Real, Text };

/// A stream that ends too early or makes no sense.
class BrokenStream : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Takes the parts of a stream one after the other. Every one throws BrokenStream when it isn't there.
class StreamReader {
 public:
  explicit StreamReader(std::span<const std::byte> stream) : m_rest(stream) {}

  char mark() { return static_cast<char>(byte()); }
  ColumnType columnType();
  ValueKind valueKind();
  std::int64_t integer() { return static_cast<std::int64_t>(word(8)); }
  double real();
  /// Points into the stream.
  std::string_view text();
  bool atEnd() const { return m_rest.empty(); }

 private:
  std::uint8_t byte() { return static_cast<std::uint8_t>(take(1)[0]); }
  std::uint64_t word(std::size_t size);
  std::span<const std::byte> take(std::size_t size);

  std::span<const std::byte> m_rest;
};

/// Collects the parts of a stream.
class StreamWriter {
 public:
  void mark(char mark) { m_bytes.push_back(mark); }
  void columnType(ColumnType type) { m_bytes.push_back(static_cast<char>(type)); }
  void null() { kind(ValueKind::Null); }
  void integer(std::int64_t value);
  void real(double value);
  void textValue(std::string_view utf8);
  void text(std::string_view utf8);
  std::string& bytes() { return m_bytes; }

 private:
  void kind(ValueKind kind) { m_bytes.push_back(static_cast<char>(kind)); }
  void word(std::uint64_t value, std::size_t size);

  std::string m_bytes;
};

}  // namespace triaxlab::jet
