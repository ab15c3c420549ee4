#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "platform/sheet_writer.h"
#include "workbooks/sheet_block.h"

namespace triaxlab {

/// A workbook of blocks below each other. One that doesn't fit on what is left of a sheet begins on the next.
class Workbook {
 public:
  explicit Workbook(SheetWriter& writer);

  /// The two rows above all blocks: what the workbook is, and the name of the project (UTF-8).
  void addHead(std::string_view title, std::string_view projectName);
  SheetBlock newBlock() const { return SheetBlock(m_writer.largestSheet().columns); }
  void add(const SheetBlock& block);

 private:
  void beginSheet();

  SheetWriter& m_writer;
  std::size_t m_sheets = 0;
  std::size_t m_rowsLeft = 0;  // on the sheet
};

/// Writes the file that `fill` fills; see SheetWriter. An old file of the name stands until the new one is complete.
/// UserError also when the old one may not be written to. Pre: isWorkbookName(file).
void writeWorkbook(const std::filesystem::path& file, const std::function<void(Workbook& workbook)>& fill);

}  // namespace triaxlab
