#include "platform/xls/xlsx_writer.h"

#include <dlfcn.h>
#include <fmt/core.h>
#include <xlsxwriter.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/muted_errors.h"
#include "platform/replaced_file.h"
#include "platform/xls/xlsx_archive.h"

namespace triaxlab {
namespace {

constexpr SheetSize kLargestSheet{1048576, 16384};
constexpr std::time_t kAlwaysTheSameDay = 946684800;  // 2000-01-01, so that equal cells give equal bytes
constexpr double kLabelWidth = 20;                    // digits

/// The library, which is loaded when the first workbook is written: it brings others along, and every start of the
/// program would pay for them.
struct Library {
  decltype(&::workbook_new_opt) newWorkbook;
  decltype(&::workbook_set_properties) setProperties;
  decltype(&::workbook_add_format) addFormat;
  decltype(&::format_set_num_format) setNumberFormat;
  decltype(&::workbook_add_worksheet) addSheet;
  decltype(&::worksheet_set_column) setColumn;
  decltype(&::worksheet_write_number) writeNumber;
  decltype(&::worksheet_write_string) writeText;
  decltype(&::workbook_close) close;
  decltype(&::lxw_workbook_free) free;
};

template <class Function>
void find(void* library, Function& function, const char* name) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (function == nullptr) throw UserError(fmt::format("{} 中没有 {}，不能写 .xlsx。", TRIAXLAB_XLSXWRITER, name));
}

Library loadedLibrary() {
  void* const library = dlopen(TRIAXLAB_XLSXWRITER, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr)
    throw UserError(fmt::format("没有找到 {}，不能写 .xlsx。请安装它，或写成 .xls。", TRIAXLAB_XLSXWRITER));
  Library functions{};
  find(library, functions.newWorkbook, "workbook_new_opt");
  find(library, functions.setProperties, "workbook_set_properties");
  find(library, functions.addFormat, "workbook_add_format");
  find(library, functions.setNumberFormat, "format_set_num_format");
  find(library, functions.addSheet, "workbook_add_worksheet");
  find(library, functions.setColumn, "worksheet_set_column");
  find(library, functions.writeNumber, "worksheet_write_number");
  find(library, functions.writeText, "worksheet_write_string");
  find(library, functions.close, "workbook_close");
  find(library, functions.free, "lxw_workbook_free");
  return functions;
}

const Library& xlsx() {
  static const Library kLibrary = loadedLibrary();
  return kLibrary;
}

/// Readers take "_x0041_" in a text for the character of that number; an escaped "_" in front keeps it as it stands.
std::string escaped(const std::string& text) {
  constexpr std::string_view kEscapedUnderscore = "_x005F_";
  const auto isNumbered = [&text](std::size_t at) {
    constexpr std::size_t kLength = 7;
    if (text.size() - at < kLength || text[at] != '_' || text[at + 1] != 'x' || text[at + kLength - 1] != '_')
      return false;
    constexpr std::string_view kDigits = "0123456789abcdefABCDEF";
    return std::string_view(text).substr(at + 2, 4).find_first_not_of(kDigits) == std::string_view::npos;
  };
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (isNumbered(at))
      result += kEscapedUnderscore;
    else
      result += text[at];
  }
  return result;
}

class XlsxWriter : public SheetWriter {
 public:
  explicit XlsxWriter(const std::filesystem::path& file) : m_file(file), m_workbook(newWorkbook(m_file.beside())) {
    lxw_doc_properties properties{};
    properties.created = kAlwaysTheSameDay;
    xlsx().setProperties(m_workbook.get(), &properties);
    m_textFormat = formatOf("@");
    for (std::size_t decimals = 0; decimals < m_numberFormats.size(); ++decimals)
      m_numberFormats[decimals] = formatOf(decimals == 0 ? "0" : "0." + std::string(decimals, '0'));
  }

  SheetSize largestSheet() const override { return kLargestSheet; }

  void beginSheet(std::string_view name) override {
    rememberSize();
    m_sheet = xlsx().addSheet(m_workbook.get(), std::string(name).c_str());
    if (m_sheet == nullptr) fail();
    xlsx().setColumn(m_sheet, 0, 0, kLabelWidth, nullptr);
    m_row = 0;
  }

  void addRow(std::span<const SheetCell> cells) override {
    for (std::size_t column = 0; column < cells.size(); ++column)
      addCell(static_cast<lxw_col_t>(column), cells[column]);
    ++m_row;
  }

  void finish() override {
    rememberSize();
    errno = 0;
    if (closeSilently() != LXW_NO_ERROR) fail();
    // What the library doesn't notice is a disk without room, as a rule that of the temporary files.
    if (!isWholeXlsx(m_file.beside(), m_sheetSizes)) m_file.fail(ENOSPC);
    m_file.finish();
  }

 private:
  /// A workbook that is not closed; closing it is what writes it.
  struct Drop {
    void operator()(lxw_workbook* workbook) const { xlsx().free(workbook); }
  };

  static lxw_workbook* newWorkbook(const std::filesystem::path& file) {
    // Rows go to a file of their own until the end, so that only one is held in memory.
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    return xlsx().newWorkbook(file.c_str(), &options);
  }

  /// The rows of the sheet that ends, but for the last, which the library still holds.
  void rememberSize() {
    if (m_sheet == nullptr) return;
    const long size = std::ftell(m_sheet->optimize_tmpfile);
    if (size < 0 || std::ferror(m_sheet->optimize_tmpfile) != 0) fail();
    m_sheetSizes.push_back(static_cast<std::uint64_t>(size));
  }

  lxw_error closeSilently() {
    const MutedErrors muted;
    return xlsx().close(m_workbook.release());
  }

  lxw_format* formatOf(const std::string& display) {
    lxw_format* const format = xlsx().addFormat(m_workbook.get());
    xlsx().setNumberFormat(format, display.c_str());
    return format;
  }

  void addCell(lxw_col_t column, const SheetCell& cell) {
    lxw_error error = LXW_NO_ERROR;
    if (const auto* const number = std::get_if<SheetNumber>(&cell))
      error = xlsx().writeNumber(m_sheet, m_row, column, number->value,
                                 m_numberFormats.at(static_cast<std::size_t>(number->decimals)));
    else if (const auto* const text = std::get_if<std::string>(&cell))
      error = xlsx().writeText(m_sheet, m_row, column, escaped(*text).c_str(), m_textFormat);
    if (error != LXW_NO_ERROR) fail();
  }

  [[noreturn]] void fail() const { m_file.fail(errno != 0 ? errno : EIO); }

  ReplacedFile m_file;
  std::unique_ptr<lxw_workbook, Drop> m_workbook;
  lxw_format* m_textFormat = nullptr;
  std::array<lxw_format*, kMostDecimals + 1> m_numberFormats{};
  lxw_worksheet* m_sheet = nullptr;
  lxw_row_t m_row = 0;
  std::vector<std::uint64_t> m_sheetSizes;  // bytes at least, of those that have ended
};

}  // namespace

std::unique_ptr<SheetWriter> makeXlsxWriter(const std::filesystem::path& file) {
  return std::make_unique<XlsxWriter>(behindLinks(file));
}

}  // namespace triaxlab
