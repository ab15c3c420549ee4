#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sheet_writer.h"
#include "platform/xls/records.h"
#include "platform/xls/shared_texts.h"

namespace triaxlab {

/// The two parts of the stream "Workbook".
enum class XlsPart : std::uint16_t { Globals = 0x0005, Sheet = 0x0010 };
void addBegin(RecordBuffer& buffer, XlsPart part);

/// A sheet as records, kept in pieces: one long buffer would be copied each time that it grows.
class XlsSheet {
 public:
  /// Pre: `texts` lives as long as rows are added.
  XlsSheet(std::string_view name, bool isFirst, SharedTexts& texts);

  void addRow(std::span<const SheetCell> cells);
  /// No row comes any more.
  void end();

  const std::u16string& name() const { return m_name; }
  std::size_t size() const { return m_size; }
  const std::vector<Bytes>& pieces() const { return m_pieces; }

 private:
  /// From the first to behind the last, counted from 0.
  struct Extent {
    std::size_t first = 0, end = 0;
    bool isEmpty() const { return end == 0; }
    void take(const Extent& more);
  };
  static Extent columnsOf(std::span<const SheetCell> cells);
  void endBlock();
  void append(const Bytes& bytes);

  std::u16string m_name;
  bool m_isFirst;
  SharedTexts& m_texts;
  std::size_t m_nextRow = 0;
  Extent m_rows, m_columns;                  // with cells
  RecordBuffer m_rowRecords, m_cellRecords;  // of the block of rows that has not ended
  std::vector<Bytes> m_pieces;
  std::size_t m_size = 0;
};

}  // namespace triaxlab
