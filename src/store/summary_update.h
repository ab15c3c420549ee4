#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/file_update.h"
#include "store/summary_frame.h"
#include "store/workspace.h"

namespace triaxlab {

/// One project's summary file during a save. Touches the fields that this system owns and keeps every other byte, which
/// are the sibling tools'.
class SummaryUpdate {
 public:
  /// Loads head and sample numbers when the file exists. UserError as readSummaryHead.
  SummaryUpdate(FileUpdate& update, const Workspace& workspace, std::string_view projectNo);

  /// Writes the "NO." section, the sampling spot and the "SZ:" section of the sample in a live row; a sample that the
  /// file doesn't know gets a record. False when the file is full, at 9999 samples.
  bool putTriaxial(std::size_t row);

  /// Writes the header with its count, date and titles, if a sample was put.
  void finish();

 private:
  FileUpdate& m_update;
  const Workspace& m_workspace;
  std::string m_projectNo;
  std::filesystem::path m_path;
  SummaryHead m_head;
  std::unordered_map<std::string, std::size_t> m_positions;  // of the first record of each number
  bool m_written = false;
};

}  // namespace triaxlab
