#include "platform/jet_database.h"

#include <fmt/core.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <utility>

#include "common/user_error.h"
#include "platform/captured_run.h"
#include "platform/files.h"
#include "platform/jet/row_stream.h"
#include "platform/program_parts.h"

namespace triaxlab {
namespace {

using jet::BrokenStream;
using jet::ColumnType;
using jet::StreamReader;
using jet::ValueKind;

constexpr std::string_view kReaderProgram = "triaxlab-jet-reader";

/// Decides how texts and numbers of a column compare; a single column is told from a double one when it is read back.
constexpr std::string_view declarationOf(ColumnType type) {
  constexpr std::array<std::string_view, 4> kDeclarations{"INTEGER", "FLOAT", "DOUBLE", "TEXT"};
  return kDeclarations[static_cast<std::size_t>(type)];
}

/// What the reading process handed back; a UserError when it handed back nothing of use.
Bytes runReader(const std::filesystem::path& path, std::span<const JetTable> tables, const JetReader& reader) {
  // Whether the file is there and may be read is told as for every other file.
  const File file(path, File::Mode::Read);
  const std::filesystem::path program =
      reader.program.empty() ? programParts().helpers / kReaderProgram : reader.program;
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(reader.time).count();
  std::vector<std::string> arguments{textOfPath(path), std::to_string(reader.memoryBytes), std::to_string(seconds)};
  for (const JetTable& table : tables)
    arguments.push_back(fmt::format("{}={}", table.name, fmt::join(table.columns, ",")));

  CapturedRun run = captureProgram(program, arguments, {reader.time, reader.memoryBytes / 2});
  const std::string name = textOfPath(path);
  switch (run.end) {
    case CapturedRun::End::Done:
      return std::move(run.output);
    case CapturedRun::End::NotStarted:
      throw UserError(fmt::format("程序“{}”不能运行：{}。数据库文件“{}”没有读入。{}", textOfPath(program), run.cause,
                                  name, fileExists(program) ? "" : "请重新安装。"));
    case CapturedRun::End::Lost:
      throw UserError(fmt::format("数据库文件“{}”没有读完：{}。数据没有读入。", name, run.cause));
    case CapturedRun::End::TimedOut:
      throw UserError(fmt::format("数据库文件“{}”读了{}秒没有读完，已经停止，数据没有读入。", name, seconds));
    case CapturedRun::End::TooMuch:
      throw UserError(fmt::format("数据库文件“{}”中的数据太多，没有读入。", name));
    case CapturedRun::End::Failed:
      break;
  }
  throw UserError(fmt::format("数据库文件“{}”已损坏，不能读出，数据没有读入。", name));
}

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

JetValue valueOf(sqlite3_stmt* row, int column, bool isSingle) {
  switch (sqlite3_column_type(row, column)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_TEXT:
      return JetValue(std::string(reinterpret_cast<const char*>(sqlite3_column_text(row, column)),
                                  static_cast<std::size_t>(sqlite3_column_bytes(row, column))));
    default:
      return JetValue(sqlite3_column_double(row, column), isSingle);
  }
}

/// The engine gives the rows of a distinct query in an order of its own.
void sortByFirstColumn(std::vector<JetValue>& values, std::size_t columns) {
  if (columns != 1) throw std::logic_error("only one column is sorted");
  std::ranges::stable_sort(values, {}, &JetValue::text);
}

}  // namespace

/// The wanted tables in an SQLite database in memory.
class JetDatabase::Tables {
 public:
  explicit Tables(std::string fileName) : m_fileName(std::move(fileName)) {
    check(sqlite3_open(":memory:", &m_database));
    execute("begin");
  }
  Tables(const Tables&) = delete;
  Tables& operator=(const Tables&) = delete;
  ~Tables() { sqlite3_close(m_database); }

  void load(std::span<const std::byte> bytes, std::span<const JetTable> tables) {
    try {
      StreamReader stream(bytes);
      char mark = markOf(stream);
      for (const JetTable& table : tables) {
        if (mark != jet::kTableMark) throw BrokenStream("table");
        mark = loadTable(stream, table);
      }
      if (mark != jet::kEndMark || !stream.atEnd()) throw BrokenStream("end");
    } catch (const BrokenStream&) {
      refuse("读出的内容不完整");
    }
    execute("commit");
  }

  JetRows run(std::string_view sql) const {
    const Statement statement = prepare(sql);
    sqlite3_stmt* const row = statement.get();
    const int columns = sqlite3_column_count(row);
    std::vector<std::string> names;
    std::vector<bool> isSingle;
    for (int column = 0; column < columns; ++column) {
      names.emplace_back(sqlite3_column_name(row, column));
      const char* const declared = sqlite3_column_decltype(row, column);
      isSingle.push_back(declared != nullptr && declared == declarationOf(ColumnType::Single));
    }
    std::vector<JetValue> values;
    while (step(row))
      for (int column = 0; column < columns; ++column)
        values.push_back(valueOf(row, column, isSingle[static_cast<std::size_t>(column)]));
    if (sql.starts_with("select distinct ")) sortByFirstColumn(values, names.size());
    return {std::move(names), std::move(values)};
  }

 private:
  [[noreturn]] void refuse(std::string_view why) const {
    throw UserError(fmt::format("数据库文件“{}”不能完整读出：{}。数据没有读入。", m_fileName, why));
  }

  /// The next mark; those that tell why there is nothing more are a UserError.
  char markOf(StreamReader& stream) const {
    const char mark = stream.mark();
    if (mark == jet::kFailureMark) throw UserError(std::string(stream.text()));
    if (mark == jet::kRefusalMark) refuse(stream.text());
    return mark;
  }

  /// Returns the mark behind the table.
  char loadTable(StreamReader& stream, const JetTable& table) {
    std::string columns, places;
    for (const std::string_view column : table.columns) {
      columns += fmt::format(R"({}"{}" {})", columns.empty() ? "" : ", ", column, declarationOf(stream.columnType()));
      places += places.empty() ? "?" : ", ?";
    }
    execute(fmt::format(R"(create table "{}" ({}))", table.name, columns));
    const Statement insert = prepare(fmt::format(R"(insert into "{}" values ({}))", table.name, places));
    char mark = markOf(stream);
    for (; mark == jet::kRowMark; mark = markOf(stream)) {
      for (int column = 1; column <= static_cast<int>(table.columns.size()); ++column)
        bind(insert.get(), column, stream);
      step(insert.get());
      check(sqlite3_reset(insert.get()));
    }
    // Equal rows of an index stand in stored order, as those of a query without one do.
    if (!table.order.empty())
      execute(fmt::format(R"(create index "by order of {0}" on "{0}" ("{1}"))", table.name,
                          fmt::join(table.order, R"(", ")")));
    return mark;
  }

  void bind(sqlite3_stmt* insert, int column, StreamReader& stream) const {
    switch (stream.valueKind()) {
      case ValueKind::Null:
        return check(sqlite3_bind_null(insert, column));
      case ValueKind::Integer:
        return check(sqlite3_bind_int64(insert, column, stream.integer()));
      case ValueKind::Real:
        return check(sqlite3_bind_double(insert, column, stream.real()));
      case ValueKind::Text:
        break;
    }
    const std::string_view text = stream.text();
    check(sqlite3_bind_text64(insert, column, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
  }

  Statement prepare(std::string_view sql) const {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(m_database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr));
    return {statement, &sqlite3_finalize};
  }
  void execute(std::string_view sql) const { step(prepare(sql).get()); }

  /// True when there is a row.
  bool step(sqlite3_stmt* statement) const {
    const int result = sqlite3_step(statement);
    if (result != SQLITE_DONE && result != SQLITE_ROW) check(result);
    return result == SQLITE_ROW;
  }

  void check(int result) const {
    if (result != SQLITE_OK)
      throw UserError(fmt::format("数据库文件“{}”没有读入：{}。", m_fileName, sqlite3_errmsg(m_database)));
  }

  std::string m_fileName;
  sqlite3* m_database = nullptr;
};

JetDatabase::JetDatabase(const std::filesystem::path& path, std::span<const JetTable> tables, const JetReader& reader)
    : m_tables(std::make_unique<Tables>(textOfPath(path))) {
  m_tables->load(runReader(path, tables, reader), tables);
}
JetDatabase::JetDatabase(JetDatabase&& other) noexcept = default;
JetDatabase& JetDatabase::operator=(JetDatabase&& other) noexcept = default;
JetDatabase::~JetDatabase() = default;

JetRows JetDatabase::run(std::string_view sql) const { return m_tables->run(sql); }

}  // namespace triaxlab
