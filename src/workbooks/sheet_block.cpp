#include "workbooks/sheet_block.h"

#include <algorithm>
#include <string>
#include <utility>

namespace triaxlab {

void SheetBlock::add(std::string_view label, SheetCell value) {
  m_rows.push_back({std::string(label), std::move(value)});
}

void SheetBlock::add(std::string_view label, std::vector<SheetCell> values) {
  values.insert(values.begin(), std::string(label));
  add(std::span<const SheetRow>(&values, 1));
}

void SheetBlock::add(std::span<const SheetRow> series) {
  const std::size_t values = std::ranges::max(series, {}, &SheetRow::size).size() - 1;
  const std::size_t together = m_columns - 1;
  for (std::size_t first = 0; first == 0 || first < values; first += together) {
    for (const SheetRow& whole : series) {
      SheetRow& row = m_rows.emplace_back(1, whole.front());
      const auto begin = whole.begin() + 1 + static_cast<std::ptrdiff_t>(std::min(first, whole.size() - 1));
      const auto end = whole.begin() + 1 + static_cast<std::ptrdiff_t>(std::min(first + together, whole.size() - 1));
      row.insert(row.end(), begin, end);
    }
  }
}

}  // namespace triaxlab
