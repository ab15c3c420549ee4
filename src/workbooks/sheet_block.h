#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "platform/sheet_writer.h"

namespace triaxlab {

/// Rows that belong together: one sample of a workbook.
class SheetBlock {
 public:
  /// For sheets of so many columns.
  explicit SheetBlock(std::size_t columns) : m_columns(columns) {}

  const std::vector<SheetRow>& rows() const { return m_rows; }

  /// A label and what stands behind it.
  void add(std::string_view label, SheetCell value = {});
  /// A label and a cell for each specimen or reading; what the sheet has no columns for stands in further rows.
  void add(std::string_view label, std::vector<SheetCell> values);
  /// Rows of readings that are read together, each with its label in front. What the sheet has no columns for stands
  /// below them, in the same rows again.
  void add(std::span<const SheetRow> series);

 private:
  std::size_t m_columns;
  std::vector<SheetRow> m_rows;
};

}  // namespace triaxlab
