#include "exports/export_file.h"

#include <algorithm>

#include "platform/files.h"
#include "store/project/sample_rows.h"

namespace triaxlab {
namespace {

constexpr std::size_t kPiece = 1 << 16;  // bytes that are written at a time

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

}  // namespace

ExportFile::ExportFile(const std::filesystem::path& place, const TableFormat& format, const ExportTables& tables,
                       TableContent content)
    : m_format(format), m_tables(tables), m_content(content), m_file(behindLinks(std::filesystem::absolute(place))) {
  for (const TableColumn& column : tables.columns(content))
    for (std::string& name : namesOf(column)) m_names.push_back(std::move(name));
  m_format.addHeading(m_waiting, m_names);
}

void ExportFile::add(const Workspace& workspace, const Progress& progress) {
  const SampleRows samples(workspace, m_tables.tests);
  for (std::size_t row = 0; row < samples.size(); ++row) {
    tell(progress, row, samples.size());
    if (!samples.isLive(row)) continue;
    TableLine line{workspace, m_tables.tests, row, samples.record(row)};
    if (m_content == TableContent::Results) {
      addLine(line);
      continue;
    }
    for (const Reading& reading : m_tables.readingsOf(line)) {
      line.reading = reading;
      addLine(line);
    }
  }
  tell(progress, samples.size(), samples.size());
}

void ExportFile::addLine(const TableLine& line) {
  m_values.clear();
  for (const TableColumn& column : m_tables.columns(m_content))
    for (std::size_t number = 0; number < std::max<std::size_t>(column.count, 1); ++number)
      std::erase_if(m_values.emplace_back(column.text(line, number)), isControl);
  m_format.addLine(m_waiting, m_names, m_values);
  ++m_lineCount;
  if (m_waiting.size() >= kPiece) write();
}

void ExportFile::write() {
  m_file.write(std::as_bytes(std::span(m_waiting)));
  m_waiting.clear();
}

void ExportFile::finish() {
  write();
  m_file.finish();
}

}  // namespace triaxlab
