#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/field_rows.h"

namespace triaxlab::formats {

/// Where the first column of a table counts from.
enum class Count { FromZero, FromOne };

/// A Markdown page in the making.
class Page {
 public:
  explicit Page(std::string_view title);

  void heading(std::string_view title);
  /// Lines as they stand; the line break at either end doesn't count.
  void text(std::string_view lines);
  /// The members of a record, which fill its `size` bytes. Throws std::logic_error when they don't: a page must not go
  /// out that tells a format wrongly.
  void record(const FieldRows& rows, std::size_t size);
  /// Fields with unused bytes between them, put in order. Throws when two lie over each other.
  void places(FieldRows rows, Count count);
  void table(std::span<const std::string_view> headings, const std::vector<std::vector<std::string>>& rows);

  const std::string& markdown() const { return m_markdown; }

 private:
  void fields(const FieldRows& rows, Count count);

  std::string m_markdown;
};

}  // namespace triaxlab::formats
