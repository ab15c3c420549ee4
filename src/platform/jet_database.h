#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace triaxlab {

/// A value of a row. A Date/Time is the text "yyyy-mm-dd hh:mm:ss", a Yes/No the number -1 or 0.
class JetValue {
 public:
  JetValue() = default;
  explicit JetValue(double number, bool isSingle = false)
      : m_kind(isSingle ? Kind::Single : Kind::Number), m_number(number) {}
  explicit JetValue(std::string utf8) : m_kind(Kind::Text), m_text(std::move(utf8)) {}

  bool isNull() const { return m_kind == Kind::Null; }
  bool isText() const { return m_kind == Kind::Text; }
  /// What ParseNumber makes of a text; nothing of a null.
  std::optional<double> number() const;
  /// The number as its decimal text reads: that of a single column has seven digits, so 0.2 is 0.2 and not 0.200000003.
  std::optional<double> decimal() const;
  /// UTF-8. A number is its shortest text of 15 digits, 7 of a single column: 8.0 gives "8". A null is empty.
  std::string text() const;

 private:
  enum class Kind : std::uint8_t { Null, Number, Single, Text };
  Kind m_kind = Kind::Null;
  double m_number = 0;
  std::string m_text;
};

/// The rows that a query brought, in their order.
class JetRows {
 public:
  JetRows(std::vector<std::string> columns, std::vector<JetValue> values);

  std::size_t count() const { return m_count; }
  /// The column of this name, its letters in any case. Pre: the query has it.
  std::size_t column(std::string_view name) const;
  /// Pre: row < count().
  const JetValue& at(std::size_t row, std::size_t column) const { return m_values[row * m_columns.size() + column]; }
  const JetValue& at(std::size_t row, std::string_view name) const { return at(row, column(name)); }

 private:
  std::vector<std::string> m_columns;
  std::vector<JetValue> m_values;  // row by row
  std::size_t m_count;
};

/// A table that is wanted of a database, and its columns that are. `order` are the columns that queries select rows by
/// and then sort them by.
struct JetTable {
  std::string_view name;
  std::span<const std::string_view> columns;
  std::span<const std::string_view> order = {};
};

/// The program that reads the bytes of the file, and how far it may go.
struct JetReader {
  std::filesystem::path program;  // empty: the one that stands beside this executable
  std::chrono::milliseconds time{30'000};
  std::size_t memoryBytes = std::size_t{1} << 30;
};

/// A database of Jet 3 or Jet 4 (Access 97 to 2003), as it was when it was opened: the wanted tables are read whole
/// into memory, and queries run on them. The file isn't held open and never written.
///
/// The bytes of the file are read by a process of its own with limited time and memory, so whatever a damaged file does
/// to its reader, this program goes on.
class JetDatabase {
 public:
  /// UserError, one sentence that names the file: it is missing or can't be read, it is no such database, a wanted
  /// table or column isn't there, a table has fewer rows than it says, the reader crashed or did not come to an end.
  JetDatabase(const std::filesystem::path& path, std::span<const JetTable> tables, const JetReader& reader = {});
  JetDatabase(JetDatabase&& other) noexcept;
  JetDatabase& operator=(JetDatabase&& other) noexcept;
  ~JetDatabase();

  /// Runs a query. Texts compare exactly; names of tables and columns are in any case and may stand in brackets. Rows
  /// come in the order in which the file has them where the query sorts nothing, those of "select distinct" in
  /// ascending order of the text's bytes. Pre: the query is one of this program's own.
  JetRows run(std::string_view sql) const;

  /// The inside of a text between apostrophes, so that an apostrophe in a value is data.
  static std::string quoted(std::string_view value);
  /// A value as a query compares with it; a null equals nothing.
  static std::string literal(const JetValue& value);

 private:
  class Tables;
  std::unique_ptr<Tables> m_tables;
};

}  // namespace triaxlab
