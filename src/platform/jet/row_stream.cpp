#include "platform/jet/row_stream.h"

#include <bit>

namespace triaxlab::jet {

ColumnType StreamReader::columnType() {
  const std::uint8_t type = byte();
  if (type > static_cast<std::uint8_t>(ColumnType::Text)) throw BrokenStream("column type");
  return static_cast<ColumnType>(type);
}

ValueKind StreamReader::valueKind() {
  const std::uint8_t kind = byte();
  if (kind > static_cast<std::uint8_t>(ValueKind::Text)) throw BrokenStream("kind of value");
  return static_cast<ValueKind>(kind);
}

double StreamReader::real() { return std::bit_cast<double>(word(8)); }

std::string_view StreamReader::text() {
  const auto bytes = take(static_cast<std::size_t>(word(4)));
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::uint64_t StreamReader::word(std::size_t size) {
  const auto bytes = take(size);
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < size; ++i) value |= static_cast<std::uint64_t>(bytes[i]) << (8 * i);
  return value;
}

std::span<const std::byte> StreamReader::take(std::size_t size) {
  if (size > m_rest.size()) throw BrokenStream("end of stream");
  const auto taken = m_rest.first(size);
  m_rest = m_rest.subspan(size);
  return taken;
}

void StreamWriter::integer(std::int64_t value) {
  kind(ValueKind::Integer);
  word(static_cast<std::uint64_t>(value), 8);
}

void StreamWriter::real(double value) {
  kind(ValueKind::Real);
  word(std::bit_cast<std::uint64_t>(value), 8);
}

void StreamWriter::textValue(std::string_view utf8) {
  kind(ValueKind::Text);
  text(utf8);
}

void StreamWriter::text(std::string_view utf8) {
  word(utf8.size(), 4);
  m_bytes += utf8;
}

void StreamWriter::word(std::uint64_t value, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) m_bytes.push_back(static_cast<char>(value >> (8 * i)));
}

}  // namespace triaxlab::jet
