#pragma once

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "common/fixed_text.h"
#include "common/little.h"
#include "common/record_fields.h"

namespace triaxlab {

/// A line of a format page.
struct FieldRow {
  std::size_t offset = 0;  // from the start of the record or, for a file of fixed places, of the file
  std::size_t size = 0;
  std::string name;
  std::string type;
  std::string unit;  // empty where there is none
  std::string content;
};
using FieldRows = std::vector<FieldRow>;

// What a type is called on a page. A scalar of another kind gets an overload beside its class.

template <std::size_t N>
std::string typeText(RecordTag<FixedText<N>> /*record*/) {
  return fmt::format("text {}", N);
}
inline std::string typeText(RecordTag<std::uint8_t> /*record*/) { return "byte"; }
inline std::string typeText(RecordTag<std::byte> /*record*/) { return "byte"; }
inline std::string typeText(RecordTag<char> /*record*/) { return "byte"; }
template <class T>
std::string typeText(RecordTag<Little<T>> /*record*/) {
  if (sizeof(T) == 1) return "byte";
  return fmt::format("{}{}",
                     std::is_floating_point_v<T> ? "float"
                     : std::is_signed_v<T>       ? "int"
                                                 : "uint",
                     8 * sizeof(T));
}
template <class T, std::size_t N>
std::string typeText(RecordTag<std::array<T, N>> /*record*/) {
  return fmt::format("{} × {}", N, typeText(RecordTag<T>{}));
}

namespace detail {

template <class T>
struct RecordArray : std::false_type {};
template <DescribedRecord T, std::size_t N>
struct RecordArray<std::array<T, N>> : std::true_type {
  using Element = T;
};

/// Adds the members of a record that begins at `start`; `prefix` goes before their names.
template <DescribedRecord Record>
void addRows(FieldRows& rows, std::size_t start, std::string_view prefix);

/// Adds the row of one member, or those of the records that it consists of.
template <class Value>
void addMember(FieldRows& rows, FieldRow row, std::string_view prefix) {
  if constexpr (DescribedRecord<Value>) {
    addRows<Value>(rows, row.offset, prefix);
  } else if constexpr (RecordArray<Value>::value) {
    using Element = typename RecordArray<Value>::Element;
    for (std::size_t i = 0; i < sizeof(Value) / sizeof(Element); ++i)
      addRows<Element>(rows, row.offset + i * sizeof(Element), fmt::format("{}[{}].", row.name, i));
  } else {
    row.type = typeText(RecordTag<Value>{});
    rows.push_back(std::move(row));
  }
}

template <DescribedRecord Record>
void addRows(FieldRows& rows, std::size_t start, std::string_view prefix) {
  visitFields<Record>([&](const auto& field) {
    using Value = typename std::decay_t<decltype(field)>::Value;
    FieldRow row{
        start + field.offset,      sizeof(Value), fmt::format("{}{}", prefix, field.name), {}, std::string(field.unit),
        std::string(field.content)};
    addMember<Value>(rows, std::move(row), prefix);
  });
}

}  // namespace detail

/// The members of a record as they lie on file. Records in a record show their own members.
template <DescribedRecord Record>
FieldRows fieldRows() {
  FieldRows rows;
  detail::addRows<Record>(rows, 0, "");
  return rows;
}

/// True when the rows follow each other without a hole and end at `size`.
inline bool tile(const FieldRows& rows, std::size_t size) {
  std::size_t end = 0;
  for (const FieldRow& row : rows) {
    if (row.offset != end) return false;
    end += row.size;
  }
  return end == size;
}

}  // namespace triaxlab
