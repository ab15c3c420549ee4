#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "common/progress.h"
#include "exports/columns.h"
#include "exports/table_formats.h"
#include "platform/replaced_file.h"
#include "store/workspace.h"

namespace triaxlab {

/// A table for other programs on its way to the disk. What stood in its place stays until `finish`. Values are what the
/// windows show and the records hold; control characters, which tables have no place for, are left out. Every failure
/// is a UserError that names the file.
class ExportFile {
 public:
  /// Format and tables outlive it.
  ExportFile(const std::filesystem::path& place, const TableFormat& format, const ExportTables& tables,
             TableContent content);

  /// The lines of all live samples in the table of these tests.
  void add(const Workspace& workspace, const Progress& progress = {});
  std::size_t lineCount() const { return m_lineCount; }
  void finish();

 private:
  void addLine(const TableLine& line);
  void write();

  const TableFormat& m_format;
  const ExportTables& m_tables;
  TableContent m_content;
  Cells m_names, m_values;
  ReplacedFile m_file;
  std::string m_waiting;  // to be written
  std::size_t m_lineCount = 0;
};

}  // namespace triaxlab
