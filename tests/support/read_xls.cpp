// The reader of .xls files that the tests trust: it knows nothing of the writer, and forgives nothing.
#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <set>
#include <stdexcept>
#include <string_view>

#include "common/text_number.h"
#include "support/file_bytes.h"
#include "support/read_sheets.h"

namespace triaxlab::testing {
namespace {

using U32 = std::uint32_t;

void demand(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

template <class Number>
Number numberAt(std::string_view bytes, std::size_t at) {
  demand(at + sizeof(Number) <= bytes.size(), "a number behind the end");
  Number number{};
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}
unsigned u8(std::string_view bytes, std::size_t at) { return numberAt<std::uint8_t>(bytes, at); }
unsigned u16(std::string_view bytes, std::size_t at) { return numberAt<std::uint16_t>(bytes, at); }
U32 u32(std::string_view bytes, std::size_t at) { return numberAt<U32>(bytes, at); }

// ---- the compound file

constexpr std::size_t kSector = 512;
constexpr U32 kFree = 0xFFFFFFFF, kEnd = 0xFFFFFFFE, kFatSector = 0xFFFFFFFD, kDifatSector = 0xFFFFFFFC;

class Container {
 public:
  explicit Container(std::string_view file) : m_file(file) {
    demand(file.size() > 2 * kSector && file.size() % kSector == 0, "not whole sectors");
    demand(file.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"), "no signature");
    demand(u16(file, 26) == 3 && u16(file, 28) == 0xFFFE && u16(file, 30) == 9 && u16(file, 32) == 6, "version");
    demand(u32(file, 40) == 0 && u32(file, 56) == 4096, "sizes of the header");
    demand(u32(file, 60) == kEnd && u32(file, 64) == 0, "small sectors where none are");
    m_owned.resize(file.size() / kSector - 1);
    readFat();
  }

  std::string workbook() {
    const std::string directory = chain(u32(m_file, 48));
    demand(nameAt(directory, 0) == "Root Entry" && u8(directory, 66) == 5, "no root");
    demand(u32(directory, 76) == 1 && u32(directory, 116) == kEnd && u32(directory, 120) == 0, "the root's stream");
    demand(nameAt(directory, 128) == "Workbook" && u8(directory, 128 + 66) == 2, "no stream Workbook");
    for (const std::size_t link : {68U, 72U, 76U}) demand(u32(directory, 128 + link) == kFree, "a second stream");
    for (std::size_t entry = 256; entry < directory.size(); entry += 128)
      demand(u8(directory, entry + 66) == 0 && u16(directory, entry + 64) == 0, "an unused entry that is used");
    const std::size_t size = u32(directory, 128 + 120);
    demand(size >= 4096, "a stream that would belong into small sectors");
    const std::string stream = chain(u32(directory, 128 + 116));
    demand(stream.size() >= size && stream.size() - size < kSector, "the chain and the size of the stream");
    for (std::size_t sector = 0; sector < m_fat.size(); ++sector)
      demand(sector < m_owned.size() ? m_owned[sector] : m_fat[sector] == kFree, "a sector of nobody");
    return stream.substr(0, size);
  }

 private:
  std::string_view sector(U32 number) {
    demand(number < m_owned.size(), "a sector behind the end");
    demand(!m_owned[number], "a sector of two owners");
    m_owned[number] = true;
    return m_file.substr((number + std::size_t{1}) * kSector, kSector);
  }

  void readFat() {
    std::vector<U32> places;
    for (std::size_t i = 0; i < 109; ++i) places.push_back(u32(m_file, 76 + 4 * i));
    std::size_t difat = 0;
    std::set<U32> difatSectors;
    for (U32 next = u32(m_file, 68); next != kEnd; ++difat) {
      difatSectors.insert(next);
      const std::string_view words = sector(next);
      for (std::size_t i = 0; i < 127; ++i) places.push_back(u32(words, 4 * i));
      next = u32(words, 508);
    }
    demand(difat == u32(m_file, 72), "the number of DIFAT sectors");
    const std::size_t count = u32(m_file, 44);
    for (std::size_t i = count; i < places.size(); ++i) demand(places[i] == kFree, "FAT sectors behind the last");
    places.resize(count);
    for (const U32 place : places) {
      const std::string_view words = sector(place);
      for (std::size_t i = 0; i < 128; ++i) m_fat.push_back(u32(words, 4 * i));
    }
    demand(m_fat.size() >= m_owned.size(), "a FAT that is too short");
    for (const U32 place : places) demand(m_fat[place] == kFatSector, "a FAT sector that is marked otherwise");
    for (const U32 place : difatSectors) demand(m_fat[place] == kDifatSector, "a DIFAT sector marked otherwise");
  }

  std::string chain(U32 first) {
    std::string content;
    for (U32 next = first; next != kEnd; next = m_fat.at(next)) content += sector(next);
    return content;
  }

  static std::string nameAt(std::string_view directory, std::size_t at) {
    std::string name;
    for (std::size_t i = 0; u16(directory, at + 2 * i) != 0; ++i) name += static_cast<char>(u16(directory, at + 2 * i));
    demand(u16(directory, at + 64) == 2 * (name.size() + 1), "the length of a name");
    return name;
  }

  std::string_view m_file;
  std::vector<U32> m_fat;
  std::vector<bool> m_owned;
};

// ---- the records

struct FoundRecord {
  std::size_t at = 0;
  unsigned id = 0;
  std::string_view data;
  std::size_t end() const { return at + 4 + data.size(); }
};

FoundRecord recordAt(std::string_view stream, std::size_t at) {
  const std::size_t size = u16(stream, at + 2);
  demand(size <= 8224, "a record of more than 8224 bytes");
  demand(at + 4 + size <= stream.size(), "a record behind the end");
  return {at, u16(stream, at), stream.substr(at + 4, size)};
}

std::string utf8Of(const std::u16string& units) {
  std::string utf8;
  for (std::size_t i = 0; i < units.size(); ++i) {
    U32 point = units[i];
    if (point >= 0xD800 && point < 0xDC00) point = 0x10000 + ((point & 0x3FF) << 10) + (units.at(++i) & 0x3FFU);
    const auto more = [&](int shift) { utf8 += static_cast<char>(0x80 | (point >> shift & 0x3F)); };
    if (point < 0x80) {
      utf8 += static_cast<char>(point);
    } else if (point < 0x800) {
      utf8 += static_cast<char>(0xC0 | point >> 6);
      more(0);
    } else if (point < 0x10000) {
      utf8 += static_cast<char>(0xE0 | point >> 12);
      more(6), more(0);
    } else {
      utf8 += static_cast<char>(0xF0 | point >> 18);
      more(12), more(6), more(0);
    }
  }
  return utf8;
}

/// The shared texts with their CONTINUE records.
class TextReader {
 public:
  TextReader(std::string_view stream, const FoundRecord& first) : m_stream(stream), m_record(first), m_at(8) {
    demand(first.data.size() >= 8, "no counts of texts");
    m_cells = u32(first.data, 0);
    const std::size_t count = u32(first.data, 4);
    for (std::size_t i = 0; i < count; ++i) readText();
    demand(m_at == m_record.data.size(), "texts behind the last");
  }
  const FoundRecord& lastRecord() const { return m_record; }
  std::size_t cells() const { return m_cells; }

  std::vector<std::string> texts;
  std::vector<std::pair<std::size_t, std::size_t>> places;  // in the stream, in the record

 private:
  void nextRecord() {
    m_record = recordAt(m_stream, m_record.end());
    demand(m_record.id == 0x003C, "texts that don't go on");
    m_at = 0;
  }

  void readText() {
    if (m_at == m_record.data.size()) nextRecord();
    places.emplace_back(m_record.at + 4 + m_at, 4 + m_at);
    const std::size_t size = u16(m_record.data, m_at);
    m_at += 2;
    demand(size > 0, "an empty text");
    std::u16string text;
    bool wide = flag();
    demand(m_at < m_record.data.size(), "a text cut behind its head");
    while (text.size() < size) {
      if (m_at == m_record.data.size()) {
        nextRecord();
        wide = flag();
      }
      text += static_cast<char16_t>(wide ? u16(m_record.data, m_at) : u8(m_record.data, m_at));
      m_at += wide ? 2 : 1;
    }
    texts.push_back(utf8Of(text));
  }
  bool flag() {
    const unsigned value = u8(m_record.data, m_at++);
    demand(value <= 1, "an unknown flag of a text");
    return value == 1;
  }

  std::string_view m_stream;
  FoundRecord m_record;
  std::size_t m_at, m_cells = 0;
};

std::string shortText(std::string_view data, std::size_t at, std::size_t size) {
  const bool wide = u8(data, at) == 1;
  demand(data.size() == at + 1 + size * (wide ? 2 : 1), "the size of a name");
  std::u16string text;
  for (std::size_t i = 0; i < size; ++i)
    text += static_cast<char16_t>(wide ? u16(data, at + 1 + 2 * i) : u8(data, at + 1 + i));
  return utf8Of(text);
}

class BookReader {
 public:
  explicit BookReader(std::string_view stream) : m_stream(stream) {}

  std::vector<FoundSheet> read() {
    readGlobals();
    for (std::size_t i = 0; i < m_sheets.size(); ++i) {
      demand(m_places[i] == m_end, "a sheet that begins elsewhere than told");
      readSheet(m_sheets[i], i == 0);
    }
    demand(m_labels == m_cells, "the number of cells with texts");
    for (; m_end < m_stream.size(); ++m_end) demand(m_stream[m_end] == 0, "bytes behind the last record");
    return m_sheets;
  }

 private:
  FoundRecord next(unsigned id) {
    const FoundRecord record = recordAt(m_stream, m_end);
    demand(record.id == id, "record " + std::to_string(record.id) + " instead of " + std::to_string(id));
    m_end = record.end();
    return record;
  }
  bool comes(unsigned id) const { return recordAt(m_stream, m_end).id == id; }

  void begin(unsigned part) {
    const std::string_view data = next(0x0809).data;
    demand(data.size() == 16 && u16(data, 0) == 0x0600 && u16(data, 2) == part, "BOF");
  }

  void readGlobals() {
    begin(0x0005);
    demand(u16(next(0x0042).data, 0) == 1200, "CODEPAGE");
    demand(next(0x003D).data.size() == 18, "WINDOW1");
    demand(u16(next(0x0022).data, 0) == 0, "DATEMODE");
    std::size_t fonts = 0;
    for (; comes(0x0031); ++fonts) next(0x0031);
    demand(fonts >= 5, "too few fonts");
    m_displays = {{0, "General"}, {1, "0"}, {2, "0.00"}, {49, "@"}};
    while (comes(0x041E)) {
      const std::string_view data = next(0x041E).data;
      demand(u16(data, 0) >= 164, "an own format of a number that is taken");
      demand(m_displays.emplace(u16(data, 0), shortText(data, 4, u16(data, 2))).second, "a format told twice");
    }
    readCellFormats();
    demand(u16(next(0x0293).data, 0) == 0x8000, "STYLE");
    readNames();
    demand(next(0x008C).data.size() == 4, "COUNTRY");
    readTexts();
    next(0x000A);
  }

  void readCellFormats() {
    while (comes(0x00E0)) {
      const std::string_view data = next(0x00E0).data;
      const bool isStyle = m_formats.size() < 15;
      demand(data.size() == 20 && (u16(data, 4) & 0x4) == (isStyle ? 4U : 0U), "XF");
      demand(m_displays.contains(u16(data, 2)), "a cell format of an unknown display format");
      demand(isStyle || u16(data, 2) == 0 || (u8(data, 9) & 0x4) != 0, "a display format that isn't used");
      m_formats.push_back(m_displays[u16(data, 2)]);
    }
    demand(m_formats.size() > 15 && m_formats[15] == "General", "the usual cell");
  }

  void readNames() {
    while (comes(0x0085)) {
      const std::string_view data = next(0x0085).data;
      demand(u16(data, 4) == 0 && u8(data, 6) <= 31, "a sheet's name");
      m_places.push_back(u32(data, 0));
      m_sheets.push_back({shortText(data, 7, u8(data, 6))});
    }
    demand(!m_sheets.empty(), "no sheets");
  }

  void readTexts() {
    const TextReader reader(m_stream, next(0x00FC));
    m_texts = reader.texts;
    m_cells = reader.cells();
    demand(std::set(m_texts.begin(), m_texts.end()).size() == m_texts.size(), "a text told twice");
    m_end = reader.lastRecord().end();
    const std::string_view index = next(0x00FF).data;
    const std::size_t step = u16(index, 0);
    demand(step >= 8 && index.size() == 2 + 8 * ((m_texts.size() + step - 1) / step), "EXTSST");
    for (std::size_t i = 0; i * step < m_texts.size(); ++i) {
      demand(u32(index, 2 + 8 * i) == reader.places[i * step].first, "EXTSST: place in the stream");
      demand(u16(index, 6 + 8 * i) == reader.places[i * step].second, "EXTSST: place in the record");
    }
  }

  // ---- a sheet

  struct Extent {
    std::size_t first, end;
  };

  void readSheet(FoundSheet& sheet, bool isFirst) {
    begin(0x0010);
    while (comes(0x007D)) demand(next(0x007D).data.size() == 12, "COLINFO");
    const std::string_view dimensions = next(0x0200).data;
    demand(dimensions.size() == 14, "DIMENSIONS");
    long lastRow = -1;
    while (comes(0x0208)) readBlock(sheet, lastRow);
    checkDimensions(sheet, dimensions);
    const std::string_view window = next(0x023E).data;
    demand(window.size() == 18 && ((u16(window, 0) & 0x0200) != 0) == isFirst, "WINDOW2");
    next(0x000A);
  }

  /// Up to 32 rows and then their cells.
  void readBlock(FoundSheet& sheet, long& lastRow) {
    std::map<std::size_t, Extent> rows;
    while (comes(0x0208)) {
      const std::string_view data = next(0x0208).data;
      demand(data.size() == 16 && static_cast<long>(u16(data, 0)) > lastRow, "ROW");
      lastRow = static_cast<long>(u16(data, 0));
      rows[u16(data, 0)] = {u16(data, 2), u16(data, 4)};
    }
    demand(rows.size() <= 32, "a block of more than 32 rows");
    std::pair<std::size_t, std::size_t> last{0, 0};
    std::set<std::size_t> filled;
    while (isCell()) {
      const std::size_t count = sheet.cells.size();
      const auto [row, columns] = readCells(sheet);
      demand(sheet.cells.size() == count + (columns.end - columns.first), "a cell told twice");
      demand(rows.contains(row), "a cell without its row");
      demand(columns.first >= rows[row].first && columns.end <= rows[row].end, "a cell beside its row's columns");
      demand(filled.empty() || std::pair(row, columns.first) > last, "cells out of order");
      last = {row, columns.end - 1};
      filled.insert(row);
    }
    for (const auto& [row, columns] : rows) {
      demand(filled.contains(row), "a row without cells");
      demand(sheet.cells.contains({row, columns.first}) && sheet.cells.contains({row, columns.end - 1}),
             "a row's extent");
    }
  }

  bool isCell() const {
    constexpr std::array kCells{0x00FD, 0x0203, 0x027E, 0x00BD};
    return std::any_of(kCells.begin(), kCells.end(), [this](int id) { return comes(static_cast<unsigned>(id)); });
  }

  std::pair<std::size_t, Extent> readCells(FoundSheet& sheet) {
    const FoundRecord record = recordAt(m_stream, m_end);
    m_end = record.end();
    const std::string_view data = record.data;
    const std::size_t row = u16(data, 0), column = u16(data, 2);
    std::size_t end = column + 1;
    if (record.id == 0x00BD) {
      const std::size_t count = (data.size() - 6) / 6;
      end = u16(data, data.size() - 2) + std::size_t{1};
      demand(data.size() == 6 + 6 * count && count >= 2 && end == column + count, "MULRK");
      for (std::size_t i = 0; i < count; ++i)
        put(sheet, row, column + i, u16(data, 4 + 6 * i), decoded(u32(data, 6 + 6 * i)));
    } else if (record.id == 0x027E) {
      demand(data.size() == 10, "RK");
      put(sheet, row, column, u16(data, 4), decoded(u32(data, 6)));
    } else if (record.id == 0x0203) {
      demand(data.size() == 14, "NUMBER");
      put(sheet, row, column, u16(data, 4), numberAt<double>(data, 6));
    } else {
      demand(data.size() == 10, "LABELSST");
      ++m_labels;
      put(sheet, row, column, u16(data, 4), m_texts.at(u32(data, 6)));
    }
    return {row, {column, end}};
  }

  void put(FoundSheet& sheet, std::size_t row, std::size_t column, std::size_t format,
           const std::variant<std::string, double>& value) {
    demand(column < 256 && format > 15, "the column or the format of a cell");
    sheet.cells[{row, column}] = {value, m_formats.at(format)};
  }

  static double decoded(U32 bits) {
    const double value = (bits & 2) != 0 ? static_cast<double>(static_cast<std::int32_t>(bits) >> 2)
                                         : std::bit_cast<double>(std::uint64_t{bits & ~3U} << 32);
    return (bits & 1) != 0 ? value / 100 : value;
  }

  static void checkDimensions(const FoundSheet& sheet, std::string_view data) {
    Extent columns{256, 0};
    for (const auto& [place, cell] : sheet.cells)
      columns = {std::min(columns.first, place.second), std::max(columns.end, place.second + 1)};
    const bool empty = sheet.cells.empty();
    demand(u32(data, 0) == (empty ? 0 : sheet.cells.begin()->first.first), "the first row");
    demand(u32(data, 4) == (empty ? 0 : sheet.lastRow()), "the last row");
    demand(u16(data, 8) == (empty ? 0 : columns.first) && u16(data, 10) == columns.end, "the columns");
  }

  std::string_view m_stream;
  std::size_t m_end = 0;
  std::map<unsigned, std::string> m_displays;
  std::vector<std::string> m_formats, m_texts;
  std::vector<std::size_t> m_places;
  std::vector<FoundSheet> m_sheets;
  std::size_t m_cells = 0, m_labels = 0;
};

}  // namespace

std::vector<FoundSheet> readXlsStrictly(const std::filesystem::path& file) {
  const std::string bytes = fileBytes(file);
  const std::string stream = Container(bytes).workbook();
  return BookReader(stream).read();
}

std::string FoundSheet::at(std::size_t row, char column) const {
  const auto found = cells.find({row - 1, static_cast<std::size_t>(column - 'A')});
  if (found == cells.end()) return {};
  if (const auto* const text = std::get_if<std::string>(&found->second.value)) return *text;
  const auto decimals = found->second.display.size() < 2 ? 0 : found->second.display.size() - 2;
  return FormatNumber(std::get<double>(found->second.value), static_cast<NumberFormat>(decimals));
}

std::vector<std::string> FoundSheet::row(std::size_t row) const {
  std::vector<std::string> texts;
  for (auto cell = cells.lower_bound({row - 1, 0}); cell != cells.end() && cell->first.first == row - 1; ++cell) {
    texts.resize(cell->first.second + 1);
    texts.back() = at(row, static_cast<char>('A' + cell->first.second));
  }
  return texts;
}

}  // namespace triaxlab::testing
