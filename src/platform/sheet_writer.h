#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace triaxlab {

/// A finite number and with how many decimals it is shown.
struct SheetNumber {
  double value = 0;
  int decimals = 0;  // at most kMostDecimals
  bool operator==(const SheetNumber&) const = default;
};
inline constexpr int kMostDecimals = 15;

/// A cell is empty, a text (UTF-8, made by `textCell`) or a number. A text stays one whatever it looks like.
using SheetCell = std::variant<std::monostate, std::string, SheetNumber>;
using SheetRow = std::vector<SheetCell>;  // from column A

/// The text as workbooks can hold it: without control characters, which XML doesn't know, and at most 32767 characters.
/// Without any it is an empty cell.
SheetCell textCell(std::string_view utf8);

/// How much a sheet can hold.
struct SheetSize {
  std::size_t rows, columns;
};

/// A workbook while it is being written, sheet by sheet, row by row. The file appears, or is replaced, whole when it is
/// finished; one that is dropped before leaves nothing. The same rows give the same bytes. Everything that fails is a
/// UserError that names the file.
class SheetWriter {
 public:
  virtual ~SheetWriter() = default;
  virtual SheetSize largestSheet() const = 0;
  /// The rows that follow belong to a new sheet. Its first column is made wide enough for labels.
  virtual void beginSheet(std::string_view name) = 0;
  /// The row below the last one. Pre: a sheet has begun, and has room for it.
  virtual void addRow(std::span<const SheetCell> cells) = 0;
  virtual void finish() = 0;
};

/// Whether the extension, in any case, is that of a workbook: ".xls" or ".xlsx".
bool isWorkbookName(const std::filesystem::path& file);
/// A workbook in the format of the extension. Pre: isWorkbookName(file).
std::unique_ptr<SheetWriter> makeSheetWriter(const std::filesystem::path& file);

}  // namespace triaxlab
