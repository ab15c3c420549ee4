#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "common/gbk.h"

namespace triaxlab::testing {

/// The formats differ in the sizes of pages, numbers and offsets, and in the encoding of texts.
enum class Jet { Three, Four };

/// Kinds of columns by their numbers in the file.
enum class JetKind : std::uint8_t {
  YesNo = 1,
  Byte = 2,
  Short = 3,
  Long = 4,
  Money = 5,
  Single = 6,
  Double = 7,
  Date = 8,
  Text = 10,
  Ole = 11,
};

struct JetColumnSpec {
  std::string name;
  JetKind kind;
};
/// Nothing is a null. Numbers of every kind are doubles here, dates days since 1899-12-30, texts UTF-8.
using JetCell = std::variant<std::monostate, double, std::string>;
using JetRow = std::vector<JetCell>;

/// Writes a small Jet database: the header, one page of usage maps, the list of tables, and for each table its
/// definition and its rows in the order in which they are given. No indexes, no long values; a definition fits a page,
/// and a row of Jet 3 is below 256 bytes.
class JetBuilder {
 public:
  explicit JetBuilder(Jet version) : m_format(version == Jet::Three ? kThree : kFour), m_version(version) {}

  /// `claimedRows`: what the definition says, if not the number of rows.
  JetBuilder& table(std::string name, std::vector<JetColumnSpec> columns, std::vector<JetRow> rows,
                    std::optional<std::uint32_t> claimedRows = {}) {
    const auto count = static_cast<std::uint32_t>(rows.size());
    m_tables.push_back({std::move(name), std::move(columns), std::move(rows), claimedRows.value_or(count)});
    return *this;
  }

  std::string bytes() const {
    constexpr std::uint32_t kCatalogPage = 2;
    Table catalog{"MSysObjects",
                  {{"Id", JetKind::Long},
                   {"Name", JetKind::Text},
                   {"Type", JetKind::Short},
                   {"Flags", JetKind::Long},
                   {"LvProp", JetKind::Ole}},
                  {},
                  static_cast<std::uint32_t>(m_tables.size())};
    std::string rest;  // pages behind the catalog's definition
    std::vector<std::string> maps;
    const auto nextPage = [&] { return kCatalogPage + 1 + static_cast<std::uint32_t>(rest.size() / m_format.page); };
    const auto put = [&](const Table& table, std::uint32_t definition) {
      const std::uint32_t first = nextPage();
      rest += dataPages(table, definition);
      maps.push_back(usageMap(first, nextPage()));
    };
    std::vector<std::pair<std::size_t, std::size_t>> definitions;  // place in `rest`, table
    for (std::size_t i = 0; i < m_tables.size(); ++i) {
      const std::uint32_t definition = nextPage();
      catalog.rows.push_back({double(definition), m_tables[i].name, 1.0, 0.0, {}});
      definitions.emplace_back(rest.size(), i);
      rest.append(m_format.page, '\0');
      put(m_tables[i], definition);
    }
    put(catalog, kCatalogPage);
    for (const auto& [place, i] : definitions) rest.replace(place, m_format.page, definitionPage(m_tables[i], i));
    return header() + pageOfRows(maps, 0) + definitionPage(catalog, m_tables.size()) + rest;
  }

 private:
  struct Format {
    std::size_t page;
    std::size_t rowCount;  // its place on a data page; the rows' places follow
    std::size_t rows, variableColumns, columns, map, columnEntries;          // places in a definition
    std::size_t entry;                                                       // size of a column's
    std::size_t number, variableNumber, rowNumber, flags, fixedPlace, size;  // places in it
    std::size_t count;                                                       // size of a number of columns in a row
  };
  static constexpr Format kThree{2048, 8, 12, 23, 25, 35, 43, 18, 1, 3, 5, 13, 14, 16, 1};
  static constexpr Format kFour{4096, 12, 16, 43, 45, 55, 63, 25, 5, 7, 9, 15, 21, 23, 2};

  struct Table {
    std::string name;
    std::vector<JetColumnSpec> columns;
    std::vector<JetRow> rows;
    std::uint32_t claimedRows;
  };

  static std::string little(std::uint64_t value, std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i));
    return bytes;
  }
  static void set(std::string& page, std::size_t place, std::uint64_t value, std::size_t size) {
    page.replace(place, size, little(value, size));
  }
  static bool isVariable(JetKind kind) { return kind == JetKind::Text || kind == JetKind::Ole; }
  static std::size_t sizeOf(JetKind kind) {
    switch (kind) {
      case JetKind::Byte:
        return 1;
      case JetKind::Short:
        return 2;
      case JetKind::Long:
      case JetKind::Single:
        return 4;
      case JetKind::Money:
      case JetKind::Double:
      case JetKind::Date:
        return 8;
      default:
        return 0;
    }
  }

  static std::string fixedBytes(JetKind kind, double value) {
    const std::size_t size = sizeOf(kind);
    if (kind == JetKind::Single) return little(std::bit_cast<std::uint32_t>(static_cast<float>(value)), size);
    if (kind == JetKind::Double || kind == JetKind::Date) return little(std::bit_cast<std::uint64_t>(value), size);
    const double scaled = kind == JetKind::Money ? value * 10000 : value;
    return little(static_cast<std::uint64_t>(std::llround(scaled)), size);
  }

  std::string text(std::string_view utf8) const {
    if (m_version == Jet::Three) return utf8ToGbk(utf8);
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size();) {  // characters of up to three bytes
      const auto at = [&](std::size_t k) { return static_cast<unsigned char>(utf8[i + k]); };
      const unsigned first = at(0);
      const unsigned size = first < 0x80 ? 1 : first < 0xE0 ? 2 : 3;
      const unsigned code = size == 1   ? first
                            : size == 2 ? (first & 0x1F) << 6 | (at(1) & 0x3F)
                                        : (first & 0x0F) << 12 | (at(1) & 0x3FU) << 6 | (at(2) & 0x3F);
      bytes += little(code, 2);
      i += size;
    }
    return bytes;
  }

  /// Code page 936 and no key, under the cipher that every header has.
  std::string header() const {
    std::string page(m_format.page, '\0');
    page.replace(0, 4, std::string("\0\1\0\0", 4));
    page.replace(4, 15, "Standard Jet DB");
    set(page, 0x14, m_version == Jet::Three ? 0 : 1, 4);
    set(page, 0x3C, 936, 2);
    constexpr std::string_view kKey = "\xC7\xDA\x39\x6B";
    std::vector<unsigned char> state(256);
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    for (std::size_t i = 0, j = 0; i < 256; ++i) {
      j = (j + state[i] + static_cast<unsigned char>(kKey[i % kKey.size()])) % 256;
      std::swap(state[i], state[j]);
    }
    const std::size_t length = m_version == Jet::Three ? 126 : 128;
    for (std::size_t k = 0, i = 0, j = 0; k < length; ++k) {
      i = (i + 1) % 256;
      j = (j + state[i]) % 256;
      std::swap(state[i], state[j]);
      page[0x18 + k] = static_cast<char>(page[0x18 + k] ^ state[(state[i] + state[j]) % 256]);
    }
    return page;
  }

  /// Bits of pages from 0; those of `first` to the one before `last` are set.
  static std::string usageMap(std::uint32_t first, std::uint32_t last) {
    std::string map(5 + last / 8 + 1, '\0');
    for (std::uint32_t page = first; page < last; ++page)
      map[5 + page / 8] = static_cast<char>(map[5 + page / 8] | 1 << page % 8);
    return map;
  }

  std::string definitionPage(const Table& table, std::size_t mapRow) const {
    const Format& f = m_format;
    std::string page(f.columnEntries, '\0'), entries, names;
    std::size_t variable = 0, fixed = 0;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const auto& [name, kind] = table.columns[i];
      std::string entry(f.entry, '\0');
      entry[0] = static_cast<char>(kind);
      set(entry, f.number, i, 2);
      set(entry, f.rowNumber, i, 2);
      set(entry, f.variableNumber, variable, 2);
      set(entry, f.flags, isVariable(kind) ? 2 : 3, 1);
      set(entry, f.fixedPlace, fixed, 2);
      set(entry, f.size, isVariable(kind) ? 100 : sizeOf(kind), 2);
      if (isVariable(kind)) ++variable;
      fixed += sizeOf(kind);
      entries += entry;
      names += little(text(name).size(), m_version == Jet::Three ? 1 : 2) + text(name);
    }
    set(page, 0, 0x0102, 2);
    set(page, f.rows, table.claimedRows, 4);
    set(page, f.variableColumns, variable, 2);
    set(page, f.columns, table.columns.size(), 2);
    for (const std::size_t map : {f.map, f.map + 4}) set(page, map, 1U << 8 | mapRow, 4);
    page += entries + names;
    page.resize(f.page, '\0');
    return page;
  }

  std::string rowBytes(const Table& table, const JetRow& row) const {
    const std::size_t count = m_format.count;
    std::string fixed, variable, mask((table.columns.size() + 7) / 8, '\0');
    std::size_t fixedSize = 0;
    for (const JetColumnSpec& column : table.columns) fixedSize += sizeOf(column.kind);
    std::string offsets;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const JetKind kind = table.columns[i].kind;
      const auto* const number = std::get_if<double>(&row[i]);
      const auto* const words = std::get_if<std::string>(&row[i]);
      if (isVariable(kind)) {
        offsets.insert(0, little(count + fixedSize + variable.size(), count));
        if (words != nullptr) variable += text(*words);
      } else {
        fixed += number != nullptr ? fixedBytes(kind, *number) : std::string(sizeOf(kind), '\0');
      }
      // Of a Yes/No the mark is the value.
      const bool marked = kind == JetKind::YesNo ? number != nullptr && *number != 0 : row[i].index() != 0;
      if (marked) mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << i % 8);
    }
    std::string bytes = little(table.columns.size(), count) + fixed;
    if (offsets.empty()) return bytes + mask;
    const std::size_t end = count + fixedSize + variable.size();
    return bytes + variable + little(end, count) + offsets + little(offsets.size() / count, count) + mask;
  }

  /// A data page of the table whose definition is on page `definition`.
  std::string pageOfRows(const std::vector<std::string>& rows, std::uint32_t definition) const {
    std::string page(m_format.page, '\0');
    set(page, 0, 0x0101, 2);
    set(page, 4, definition, 4);
    set(page, m_format.rowCount, rows.size(), 2);
    std::size_t place = m_format.page;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      place -= rows[i].size();
      page.replace(place, rows[i].size(), rows[i]);
      set(page, m_format.rowCount + 2 + 2 * i, place, 2);
    }
    return page;
  }

  std::string dataPages(const Table& table, std::uint32_t definition) const {
    std::string pages;
    std::vector<std::string> rows;
    std::size_t used = m_format.rowCount + 2;
    for (const JetRow& row : table.rows) {
      std::string bytes = rowBytes(table, row);
      if (used + bytes.size() + 2 > m_format.page || rows.size() == 255) {
        pages += pageOfRows(rows, definition);
        rows.clear();
        used = m_format.rowCount + 2;
      }
      used += bytes.size() + 2;
      rows.push_back(std::move(bytes));
    }
    return rows.empty() ? pages : pages + pageOfRows(rows, definition);
  }

  Format m_format;
  Jet m_version;
  std::vector<Table> m_tables;
};

}  // namespace triaxlab::testing
