#include "workbooks/workbook.h"

#include <fmt/core.h>

#include "platform/files.h"

namespace triaxlab {

Workbook::Workbook(SheetWriter& writer) : m_writer(writer) { beginSheet(); }

void Workbook::beginSheet() {
  m_writer.beginSheet(fmt::format("Sheet{}", ++m_sheets));
  m_rowsLeft = m_writer.largestSheet().rows;
}

void Workbook::addHead(std::string_view title, std::string_view projectName) {
  SheetBlock head = newBlock();
  head.add(title);
  head.add("工程名称：", textCell(projectName));
  add(head);
}

void Workbook::add(const SheetBlock& block) {
  const std::size_t whole = m_writer.largestSheet().rows;
  if (block.rows().size() > m_rowsLeft && m_rowsLeft < whole) beginSheet();
  for (const SheetRow& row : block.rows()) {
    if (m_rowsLeft == 0) beginSheet();
    m_writer.addRow(row);
    --m_rowsLeft;
  }
}

void writeWorkbook(const std::filesystem::path& file, const std::function<void(Workbook& workbook)>& fill) {
  // A new file takes the place of a write-protected one without asking, so that is found out first.
  if (fileExists(file) || folderExists(file)) File(file, File::Mode::Update);
  const std::unique_ptr<SheetWriter> writer = makeSheetWriter(file);
  Workbook workbook(*writer);
  fill(workbook);
  writer->finish();
}

}  // namespace triaxlab
