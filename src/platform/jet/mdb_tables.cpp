#include "platform/jet/mdb_tables.h"

// The library includes it inside extern "C", where its templates can't stand.
#include <glib.h>
#include <mdbtools.h>

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>

#include "common/text_number.h"

namespace triaxlab::jet {
namespace {

using Handle = std::unique_ptr<MdbHandle, decltype(&mdb_close)>;
using TableDefinition = std::unique_ptr<MdbTableDef, decltype(&mdb_free_tabledef)>;
using LibraryText = std::unique_ptr<char, decltype(&g_free)>;

constexpr std::int64_t kSecondsADay = 86400;

/// A column that is asked for. The bytes of the value are those of the page that the last row was fetched from.
struct Cell {
  MdbHandle* file;
  const MdbColumn* column;

  int size() const { return column->cur_value_len; }
  void* page() const { return file->pg_buf; }
  /// Pre: the value lies on the page, which `isOnPage` tells.
  int at() const { return column->cur_value_start; }
  bool isOnPage(int bytes) const { return at() >= 0 && at() + bytes <= static_cast<int>(file->fmt->pg_size); }
};

/// "yyyy-mm-dd hh:mm:ss" of days since 1899-12-30; nothing for a day that the format doesn't have. The fraction counts
/// onward from midnight, of days before that as well.
std::optional<std::string> dateText(double serial) {
  constexpr double kFirst = -657434, kLast = 2958466;  // 0100-01-01 to the end of 9999-12-31
  if (!(serial >= kFirst && serial < kLast)) return std::nullopt;
  const double wholeDays = std::trunc(serial);
  auto second = static_cast<std::int64_t>(std::llround(std::fabs(serial - wholeDays) * kSecondsADay));
  auto day = static_cast<std::int64_t>(wholeDays) + second / kSecondsADay;
  second %= kSecondsADay;
  using std::chrono::days, std::chrono::sys_days, std::chrono::year_month_day;
  const year_month_day date{sys_days{std::chrono::year{1899} / 12 / 30} + days{day}};
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), second / 3600,
                     second / 60 % 60, second % 60);
}

[[noreturn]] void refuseDamage(const Cell& cell) {
  throw Refusal(fmt::format("列“{}”中有损坏的内容", cell.column->name));
}

// ---- values by their kind

void putByte(const Cell& cell, StreamWriter& into) { into.integer(mdb_get_byte(cell.page(), cell.at())); }
void putShort(const Cell& cell, StreamWriter& into) {
  into.integer(static_cast<std::int16_t>(mdb_get_int16(cell.page(), cell.at())));
}
void putLong(const Cell& cell, StreamWriter& into) {
  into.integer(static_cast<std::int32_t>(mdb_get_int32(cell.page(), cell.at())));
}
void putReal(const Cell& cell, double value, StreamWriter& into) {
  if (!std::isfinite(value)) refuseDamage(cell);
  into.real(value);
}
void putSingle(const Cell& cell, StreamWriter& into) {
  putReal(cell, static_cast<double>(mdb_get_single(cell.page(), cell.at())), into);
}
void putDouble(const Cell& cell, StreamWriter& into) { putReal(cell, mdb_get_double(cell.page(), cell.at()), into); }
/// Ten thousandths in eight bytes.
void putMoney(const Cell& cell, StreamWriter& into) {
  const auto low = static_cast<std::uint32_t>(mdb_get_int32(cell.page(), cell.at()));
  const auto high = static_cast<std::uint32_t>(mdb_get_int32(cell.page(), cell.at() + 4));
  putReal(cell, static_cast<double>(static_cast<std::int64_t>(std::uint64_t{high} << 32 | low)) / 10000, into);
}
void putNumeric(const Cell& cell, StreamWriter& into) {
  const LibraryText text(mdb_numeric_to_string(cell.file, cell.at(), cell.column->col_scale, cell.column->col_prec),
                         &g_free);
  putReal(cell, text ? ParseNumber(text.get()) : 0.0, into);
}
void putDate(const Cell& cell, StreamWriter& into) {
  const auto text = dateText(mdb_get_double(cell.page(), cell.at()));
  if (!text) refuseDamage(cell);
  into.textValue(*text);
}
void putText(const Cell& cell, StreamWriter& into) {
  const LibraryText text(
      mdb_col_to_string(cell.file, cell.page(), cell.at(), cell.column->col_type, cell.column->cur_value_len), &g_free);
  into.textValue(text ? text.get() : "");
}

struct JetType {
  int type;
  int size;  // bytes on the page; 0: as long as it is
  ColumnType column;
  void (*put)(const Cell&, StreamWriter&);
};
constexpr std::array kJetTypes{
    JetType{MDB_BYTE, 1, ColumnType::Integer, putByte},       JetType{MDB_INT, 2, ColumnType::Integer, putShort},
    JetType{MDB_LONGINT, 4, ColumnType::Integer, putLong},    JetType{MDB_MONEY, 8, ColumnType::Double, putMoney},
    JetType{MDB_FLOAT, 4, ColumnType::Single, putSingle},     JetType{MDB_DOUBLE, 8, ColumnType::Double, putDouble},
    JetType{MDB_DATETIME, 8, ColumnType::Text, putDate},      JetType{MDB_TEXT, 0, ColumnType::Text, putText},
    JetType{MDB_NUMERIC, 17, ColumnType::Double, putNumeric}, JetType{MDB_MEMO, 0, ColumnType::Text, putText},
};
/// A Yes/No has no bytes of its own: it is its mark for null.
constexpr JetType kYesNo{MDB_BOOL, 0, ColumnType::Integer, nullptr};

const JetType& typeOf(const MdbColumn& column) {
  if (column.col_type == MDB_BOOL) return kYesNo;
  for (const JetType& type : kJetTypes)
    if (type.type == column.col_type) return type;
  throw Refusal(fmt::format("列“{}”不是数值、文字或日期", column.name));
}

struct Column {
  const JetType* type;
  Cell cell;

  void put(StreamWriter& into) const {
    constexpr int kTrue = -1, kFalse = 0;
    if (type == &kYesNo) return into.integer(cell.size() != 0 ? kFalse : kTrue);
    if (cell.size() <= 0) return into.null();
    const int size = type->size != 0 ? type->size : cell.size();
    if (cell.size() < size || !cell.isOnPage(size)) refuseDamage(cell);
    type->put(cell, into);
  }
};

// ---- tables

MdbCatalogEntry* findTable(MdbHandle* file, const std::string& name) {
  for (unsigned i = 0; i < file->num_catalog; ++i) {
    auto* const entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(file->catalog, i));
    if (entry->object_type == MDB_TABLE && g_ascii_strcasecmp(entry->object_name, name.c_str()) == 0) return entry;
  }
  throw Refusal(fmt::format("没有表“{}”", name));
}

TableDefinition openTable(MdbHandle* file, const std::string& name) {
  TableDefinition table(mdb_read_table(findTable(file, name)), &mdb_free_tabledef);
  if (!table || mdb_read_columns(table.get()) == nullptr) throw Refusal(fmt::format("表“{}”已损坏", name));
  return table;
}

Column findColumn(MdbHandle* file, const MdbTableDef& table, const std::string& tableName, const std::string& name) {
  for (unsigned i = 0; i < table.columns->len; ++i) {
    const auto* const column = static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, i));
    if (g_ascii_strcasecmp(column->name, name.c_str()) == 0) return {&typeOf(*column), {file, column}};
  }
  throw Refusal(fmt::format("表“{}”中没有列“{}”", tableName, name));
}

void readTable(MdbHandle* file, const AskedTable& asked, StreamWriter& into) {
  const TableDefinition table = openTable(file, asked.name);
  std::vector<Column> columns;
  for (const std::string& name : asked.columns) columns.push_back(findColumn(file, *table, asked.name, name));
  into.mark(kTableMark);
  for (const Column& column : columns) into.columnType(column.type->column);

  mdb_rewind_table(table.get());
  unsigned rows = 0;
  for (; mdb_fetch_row(table.get()) != 0; ++rows) {
    into.mark(kRowMark);
    for (const Column& column : columns) column.put(into);
  }
  // A database that was not closed properly may say 0; one that says more than it has lost some.
  if (rows < table->num_rows)
    throw Refusal(fmt::format("表“{}”应有{}行，只读出{}行", asked.name, table->num_rows, rows));
}

}  // namespace

void readTables(std::span<std::byte> content, const std::vector<AskedTable>& tables, StreamWriter& into) {
  const Handle file(mdb_open_buffer(content.data(), content.size(), MDB_NOFLAGS), &mdb_close);
  if (!file) throw Refusal("不是这种数据库，或者已损坏");
  if (mdb_read_catalog(file.get(), MDB_TABLE) == nullptr) throw Refusal("数据库的目录已损坏");
  for (const AskedTable& table : tables) readTable(file.get(), table, into);
  into.mark(kEndMark);
}

}  // namespace triaxlab::jet
