#include "platform/sheet_writer.h"

#include <algorithm>
#include <array>

#include "common/small_letters.h"
#include "platform/files.h"
#include "platform/xls/xls_writer.h"
#include "platform/xls/xlsx_writer.h"

namespace triaxlab {
namespace {

struct WorkbookFormat {
  std::string_view extension;
  std::unique_ptr<SheetWriter> (*make)(const std::filesystem::path& file);
};
constexpr std::array kFormats{WorkbookFormat{".xls", makeXlsWriter}, WorkbookFormat{".xlsx", makeXlsxWriter}};

const WorkbookFormat* formatOf(const std::filesystem::path& file) {
  const auto* const found =
      std::ranges::find(kFormats, caseless(textOfPath(file.extension())), &WorkbookFormat::extension);
  return found == kFormats.end() ? nullptr : found;
}

bool isControl(char byte) { return static_cast<unsigned char>(byte) < ' ' || byte == 0x7F; }

/// Characters of UTF-16 that the character with this first byte takes: none of a byte that goes on with one.
std::size_t unitsOf(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0xF0 ? 2 : (value & 0xC0) == 0x80 ? 0 : 1;
}

}  // namespace

SheetCell textCell(std::string_view utf8) {
  constexpr std::size_t kMostUnits = 32767;
  std::string kept;
  std::size_t units = 0;
  for (const char byte : utf8) {
    if (isControl(byte)) continue;
    units += unitsOf(byte);
    if (units > kMostUnits) break;
    kept += byte;
  }
  if (kept.empty()) return {};
  return kept;
}

bool isWorkbookName(const std::filesystem::path& file) { return formatOf(file) != nullptr; }

std::unique_ptr<SheetWriter> makeSheetWriter(const std::filesystem::path& file) { return formatOf(file)->make(file); }

}  // namespace triaxlab
