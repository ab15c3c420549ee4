#include <algorithm>
#include <stdexcept>
#include <utility>

#include "common/small_letters.h"
#include "common/text_number.h"
#include "platform/jet_database.h"

namespace triaxlab {
std::optional<double> JetValue::number() const {
  if (m_kind == Kind::Null) return std::nullopt;
  return m_kind == Kind::Text ? ParseNumber(m_text) : m_number;
}

std::optional<double> JetValue::decimal() const {
  return m_kind == Kind::Single ? ThroughSevenDigits(static_cast<float>(m_number)) : number();
}

std::string JetValue::text() const {
  if (m_kind == Kind::Null || m_kind == Kind::Text) return m_text;
  return PlainNumber(*decimal());
}

JetRows::JetRows(std::vector<std::string> columns, std::vector<JetValue> values)
    : m_columns(std::move(columns)),
      m_values(std::move(values)),
      m_count(m_columns.empty() ? 0 : m_values.size() / m_columns.size()) {}

std::size_t JetRows::column(std::string_view name) const {
  const auto found =
      std::ranges::find_if(m_columns, [=](const std::string& column) { return isSameName(column, name); });
  if (found == m_columns.end()) throw std::logic_error("no column " + std::string(name) + " in the query");
  return static_cast<std::size_t>(found - m_columns.begin());
}

std::string JetDatabase::quoted(std::string_view value) {
  std::string inside;
  for (const char c : value) {
    inside += c;
    if (c == '\'') inside += c;
  }
  return inside;
}

std::string JetDatabase::literal(const JetValue& value) {
  if (value.isNull()) return "null";
  return value.isText() ? "'" + quoted(value.text()) + "'" : value.text();
}

}  // namespace triaxlab
