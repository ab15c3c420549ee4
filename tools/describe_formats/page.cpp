#include "page.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace triaxlab::formats {
namespace {

/// Places that the text takes on a screen where columns are set side by side: a Chinese character takes two.
std::size_t placesOf(std::string_view utf8) {
  std::size_t places = 0;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) places += byte >= 0xE3 ? 2 : 1;  // from U+3000 on
  }
  return places;
}

std::string padded(std::string_view text, std::size_t width) {
  return std::string(text) + std::string(width - std::min(width, placesOf(text)), ' ');
}

}  // namespace

Page::Page(std::string_view title) : m_markdown(fmt::format("# {}\n", title)) {}

void Page::heading(std::string_view title) { m_markdown += fmt::format("\n## {}\n", title); }

void Page::text(std::string_view lines) {
  while (lines.starts_with('\n')) lines.remove_prefix(1);
  while (lines.ends_with('\n')) lines.remove_suffix(1);
  m_markdown += fmt::format("\n{}\n", lines);
}

void Page::table(std::span<const std::string_view> headings, const std::vector<std::vector<std::string>>& rows) {
  // The last column is left as long as it is.
  std::vector<std::size_t> widths;
  for (const std::string_view heading : headings) widths.push_back(placesOf(heading));
  for (const auto& row : rows)
    for (std::size_t i = 0; i + 1 < row.size(); ++i) widths[i] = std::max(widths[i], placesOf(row[i]));
  const auto line = [&](const auto& cells) {
    m_markdown += '|';
    for (std::size_t i = 0; i + 1 < widths.size(); ++i) m_markdown += fmt::format(" {} |", padded(cells[i], widths[i]));
    m_markdown += fmt::format(" {} |", cells[widths.size() - 1]);
    m_markdown += '\n';
  };
  m_markdown += '\n';
  line(headings);
  m_markdown += '|';
  for (const std::size_t width : widths) m_markdown += std::string(width + 2, '-') + '|';
  m_markdown += '\n';
  for (const auto& row : rows) line(row);
}

void Page::fields(const FieldRows& rows, Count count) {
  const bool fromOne = count == Count::FromOne;
  const bool hasUnits = std::any_of(rows.begin(), rows.end(), [](const FieldRow& row) { return !row.unit.empty(); });
  std::vector<std::string_view> headings{fromOne ? "position" : "offset", "size", "field", "type", "unit", "content"};
  std::vector<std::vector<std::string>> cells;
  for (const FieldRow& row : rows)
    cells.push_back({fmt::format("{}", row.offset + (fromOne ? 1 : 0)), fmt::format("{}", row.size),
                     row.name.empty() ? "" : fmt::format("`{}`", row.name), row.type, row.unit, row.content});
  constexpr std::ptrdiff_t kUnit = 4;
  if (!hasUnits) {
    headings.erase(headings.begin() + kUnit);
    for (auto& row : cells) row.erase(row.begin() + kUnit);
  }
  table(headings, cells);
}

void Page::record(const FieldRows& rows, std::size_t size) {
  if (!tile(rows, size)) throw std::logic_error(fmt::format("The fields of a record don't fill {} bytes.", size));
  fields(rows, Count::FromZero);
}

void Page::places(FieldRows rows, Count count) {
  std::sort(rows.begin(), rows.end(), [](const FieldRow& a, const FieldRow& b) { return a.offset < b.offset; });
  for (std::size_t i = 1; i < rows.size(); ++i)
    if (rows[i].offset < rows[i - 1].offset + rows[i - 1].size)
      throw std::logic_error(fmt::format("Two fields lie over each other at {}.", rows[i].offset));
  fields(rows, count);
}

}  // namespace triaxlab::formats
