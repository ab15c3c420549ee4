// The stream "Workbook": what all sheets share, then sheet by sheet. What they share tells where the sheets begin and
// holds all texts, so the sheets are kept until the last of them is known. A row of numbers takes 6 bytes a cell.
#include "platform/xls/xls_writer.h"

#include <cstdint>
#include <list>
#include <vector>

#include "platform/files.h"
#include "platform/replaced_file.h"
#include "platform/xls/cell_formats.h"
#include "platform/xls/compound_file.h"
#include "platform/xls/records.h"
#include "platform/xls/shared_texts.h"
#include "platform/xls/xls_sheet.h"

namespace triaxlab {
namespace {

using U16 = std::uint16_t;
using U32 = std::uint32_t;

constexpr SheetSize kLargestSheet{65536, 256};

void addWindow(RecordBuffer& buffer) {
  constexpr U16 kWidth = 16000, kHeight = 9000, kScrollBarsAndTabs = 0x38, kSelectedSheets = 1, kTabsWidth = 600;
  buffer.add(Record::Window1, U16{0}, U16{0}, kWidth, kHeight, kScrollBarsAndTabs, U16{0}, U16{0}, kSelectedSheets,
             kTabsWidth);
}

class XlsWriter : public SheetWriter {
 public:
  explicit XlsWriter(const std::filesystem::path& file) : m_file(file) {}

  SheetSize largestSheet() const override { return kLargestSheet; }

  void beginSheet(std::string_view name) override {
    if (!m_sheets.empty()) m_sheets.back().end();
    m_sheets.emplace_back(name, m_sheets.empty(), m_texts);
  }

  void addRow(std::span<const SheetCell> cells) override { m_sheets.back().addRow(cells); }

  void finish() override {
    m_sheets.back().end();
    const RecordBuffer globals = globalRecords();
    std::vector<std::span<const std::byte>> parts{globals.bytes()};
    for (const XlsSheet& sheet : m_sheets) parts.insert(parts.end(), sheet.pieces().begin(), sheet.pieces().end());
    writeCompoundFile(m_file, u"Workbook", parts);
    m_file.finish();
  }

 private:
  RecordBuffer globalRecords() const {
    constexpr U16 kUnicode = 1200, kFrom1900 = 0, kChina = 86;
    RecordBuffer buffer;
    addBegin(buffer, XlsPart::Globals);
    buffer.add(Record::CodePage, kUnicode);
    addWindow(buffer);
    buffer.add(Record::DateMode, kFrom1900);
    addCellFormats(buffer);
    const std::vector<std::size_t> places = addSheetNames(buffer);
    buffer.add(Record::Country, kChina, kChina);
    m_texts.addTo(buffer);
    buffer.add(Record::Eof);
    std::size_t begin = buffer.size();
    auto place = places.begin();
    for (const XlsSheet& sheet : m_sheets) {
      buffer.putAt(*place++, static_cast<U32>(begin));
      begin += sheet.size();
    }
    return buffer;
  }

  /// Returns where it is to be told at which byte each of the sheets begins.
  std::vector<std::size_t> addSheetNames(RecordBuffer& buffer) const {
    std::vector<std::size_t> places;
    for (const XlsSheet& sheet : m_sheets) {
      buffer.begin(Record::BoundSheet);
      places.push_back(buffer.size());
      buffer.put(U32{0});
      buffer.put(U16{0});
      buffer.put(static_cast<std::uint8_t>(sheet.name().size()));
      buffer.putText(sheet.name(), isWide(sheet.name()));
      buffer.end();
    }
    return places;
  }

  ReplacedFile m_file;
  SharedTexts m_texts;
  std::list<XlsSheet> m_sheets;
};

}  // namespace

std::unique_ptr<SheetWriter> makeXlsWriter(const std::filesystem::path& file) {
  return std::make_unique<XlsWriter>(behindLinks(file));
}

}  // namespace triaxlab
