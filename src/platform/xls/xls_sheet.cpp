#include "platform/xls/xls_sheet.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>

#include "platform/xls/cell_formats.h"
#include "platform/xls/utf16.h"

namespace triaxlab {
namespace {

using U16 = std::uint16_t;
using U32 = std::uint32_t;

/// Rows whose ROW records stand together in front of their cells.
constexpr std::size_t kRowsOfBlock = 32;
constexpr std::size_t kPieceSize = std::size_t{1} << 20;

void addDimensions(RecordBuffer& buffer, std::size_t firstRow, std::size_t endRow, std::size_t firstColumn,
                   std::size_t endColumn) {
  buffer.add(Record::Dimensions, static_cast<U32>(firstRow), static_cast<U32>(endRow), static_cast<U16>(firstColumn),
             static_cast<U16>(endColumn), U16{0});
}

/// What stands in front of the rows.
RecordBuffer sheetHead() {
  constexpr U16 kLabelWidth = 20 * 256;  // in 1/256 of a digit
  RecordBuffer head;
  addBegin(head, XlsPart::Sheet);
  head.add(Record::ColumnInfo, U16{0}, U16{0}, kLabelWidth, kUsualFormat, U16{0}, U16{0});
  return head;
}

/// The number in 30 bits, if it is one of those that the format has room for: a whole number, a hundredth of one, or
/// one whose lower half is empty. Whoever decodes it must get the same double.
std::optional<U32> shortNumberOf(double value) {
  constexpr double kMost = 536870911;
  constexpr U32 kWhole = 2, kHundredth = 1;
  if (std::fabs(value) <= kMost) {
    const auto whole = static_cast<std::int32_t>(value);
    if (whole == value) return static_cast<U32>(whole) << 2 | kWhole;
  }
  if (const double scaled = std::round(value * 100); std::fabs(scaled) <= kMost && scaled / 100 == value)
    return static_cast<U32>(static_cast<std::int32_t>(scaled)) << 2 | kWhole | kHundredth;
  constexpr std::uint64_t kLowerPart = 0x3FFFFFFFF;
  const auto bits = std::bit_cast<std::uint64_t>(value);
  if ((bits & kLowerPart) == 0) return static_cast<U32>(bits >> 32);
  return std::nullopt;
}

/// The cells of a row as records.
class RowRecords {
 public:
  RowRecords(RecordBuffer& buffer, U16 row, SharedTexts& texts) : m_buffer(buffer), m_row(row), m_texts(texts) {}

  void add(std::span<const SheetCell> cells) {
    for (std::size_t column = 0; column < cells.size(); ++column) addCell(static_cast<U16>(column), cells[column]);
    endRun();
  }

 private:
  struct ShortNumber {
    U16 format;
    U32 bits;
  };

  void addCell(U16 column, const SheetCell& cell) {
    const auto* const number = std::get_if<SheetNumber>(&cell);
    if (number != nullptr)
      if (const auto bits = shortNumberOf(number->value)) {
        if (m_run.empty()) m_runBegins = column;
        m_run.push_back({formatOf(*number), *bits});
        return;
      }
    endRun();
    if (number != nullptr)
      m_buffer.add(Record::Number, m_row, column, formatOf(*number), number->value);
    else if (const auto* const text = std::get_if<std::string>(&cell))
      m_buffer.add(Record::LabelShared, m_row, column, kTextFormat, m_texts.numberOf(*text));
  }

  /// Neighbours stand in one record.
  void endRun() {
    if (m_run.size() == 1)
      m_buffer.add(Record::Rk, m_row, m_runBegins, m_run.front().format, m_run.front().bits);
    else if (!m_run.empty())
      addRun();
    m_run.clear();
  }
  void addRun() {
    m_buffer.begin(Record::MultipleRk);
    m_buffer.put(m_row);
    m_buffer.put(m_runBegins);
    for (const ShortNumber& number : m_run) {
      m_buffer.put(number.format);
      m_buffer.put(number.bits);
    }
    m_buffer.put(static_cast<U16>(m_runBegins + m_run.size() - 1));
    m_buffer.end();
  }

  RecordBuffer& m_buffer;
  U16 m_row;
  SharedTexts& m_texts;
  U16 m_runBegins = 0;
  std::vector<ShortNumber> m_run;
};

}  // namespace

void addBegin(RecordBuffer& buffer, XlsPart part) {
  constexpr U16 kVersion = 0x0600, kBuild = 0x0DBB, kYear = 0x07CC;
  buffer.add(Record::Bof, kVersion, static_cast<U16>(part), kBuild, kYear, U32{0x41}, U32{0x06});
}

XlsSheet::XlsSheet(std::string_view name, bool isFirst, SharedTexts& texts)
    : m_name(utf16Of(name)), m_isFirst(isFirst), m_texts(texts) {
  RecordBuffer head = sheetHead();
  addDimensions(head, 0, 0, 0, 0);
  append(head.bytes());
}

void XlsSheet::Extent::take(const Extent& more) {
  first = isEmpty() ? more.first : std::min(first, more.first);
  end = std::max(end, more.end);
}

XlsSheet::Extent XlsSheet::columnsOf(std::span<const SheetCell> cells) {
  Extent columns;
  for (std::size_t column = 0; column < cells.size(); ++column)
    if (!std::holds_alternative<std::monostate>(cells[column])) columns.take({column, column + 1});
  return columns;
}

void XlsSheet::addRow(std::span<const SheetCell> cells) {
  if (m_nextRow % kRowsOfBlock == 0) endBlock();
  const std::size_t row = m_nextRow++;
  const Extent columns = columnsOf(cells);
  if (columns.isEmpty()) return;
  m_rows.take({row, row + 1});
  m_columns.take(columns);
  constexpr U16 kUsualHeight = 0x00FF, kAlwaysSet = 0x0100;
  m_rowRecords.add(Record::Row, static_cast<U16>(row), static_cast<U16>(columns.first), static_cast<U16>(columns.end),
                   kUsualHeight, U16{0}, U16{0}, kAlwaysSet, kUsualFormat);
  RowRecords(m_cellRecords, static_cast<U16>(row), m_texts).add(cells);
}

void XlsSheet::endBlock() {
  append(m_rowRecords.bytes());
  append(m_cellRecords.bytes());
  m_rowRecords.clear();
  m_cellRecords.clear();
}

void XlsSheet::append(const Bytes& bytes) {
  if (m_pieces.empty() || m_pieces.back().size() + bytes.size() > m_pieces.back().capacity())
    m_pieces.emplace_back().reserve(std::max(kPieceSize, bytes.size()));
  m_pieces.back().insert(m_pieces.back().end(), bytes.begin(), bytes.end());
  m_size += bytes.size();
}

void XlsSheet::end() {
  endBlock();
  // Only now is it known how far the cells reach.
  RecordBuffer dimensions;
  addDimensions(dimensions, m_rows.first, m_rows.end, m_columns.first, m_columns.end);
  std::ranges::copy(dimensions.bytes(), m_pieces.front().begin() + static_cast<std::ptrdiff_t>(sheetHead().size()));
  constexpr U16 kOnDisplay = 0x06B6, kBehind = 0x00B6;
  RecordBuffer rest;
  rest.add(Record::Window2, m_isFirst ? kOnDisplay : kBehind, U16{0}, U16{0}, U32{0x40}, U16{0}, U16{0}, U32{0});
  rest.add(Record::Eof);
  append(rest.bytes());
}

}  // namespace triaxlab
