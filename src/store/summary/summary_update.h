#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "store/project/project_kinds.h"
#include "store/project/sample_rows.h"
#include "store/safety/file_update.h"
#include "store/summary/summary_frame.h"
#include "store/workspace.h"

namespace triaxlab {

/// One project's summary file during a save. Touches the fields that this system owns and keeps every other byte, which
/// are the sibling tools'.
class SummaryUpdate {
 public:
  /// Loads head and sample numbers when the file exists. DamagedSummary and UserError as readSummaryHead.
  SummaryUpdate(FileUpdate& update, const Workspace& workspace, ProjectKind kind, std::string_view projectNo);

  /// Writes the "NO." section, the sampling spot and the results of the sample in a live row of the kind's table; a
  /// sample that the file doesn't know gets a record. False when the file is full, at 9999 samples.
  bool put(const SampleRows& rows, std::size_t row);

  /// Writes the header with its count, date and titles, if a sample was put.
  void finish();

 private:
  void loadFile();
  /// A stored record: what the file's end cuts of it is that of a new one.
  SummaryRecord stored(std::size_t k);
  /// Before the first record is written: blanks in the place of what the file lacks of the records that its header
  /// claims, and not a gap of zero bytes.
  void completeShortFile();
  void writeHeader();

  FileUpdate& m_update;
  const Workspace& m_workspace;
  ProjectKind m_kind;
  std::string m_projectNo;
  std::filesystem::path m_path;
  bool m_isNew = false;
  SummaryHead m_head;
  SummaryHeader m_found;                                       // as the file has it
  std::unordered_map<std::string, std::size_t> m_positions;    // of the first record of each number
  std::optional<std::pair<std::size_t, SummaryRecord>> m_cut;  // the record that the file's end cuts, until it is put
  bool m_written = false;
};

/// Blanks the results of this kind for all samples of a project's summary file but those in `sampleNumbers` (GBK,
/// trimmed); the records stay, since other tools have data in them. A missing file has nothing to blank.
/// DamagedSummary and UserError as readSummaryHead.
void blankDeletedSamples(FileUpdate& update, const Workspace& workspace, ProjectKind kind, std::string_view projectNo,
                         const std::unordered_set<std::string>& sampleNumbers);

}  // namespace triaxlab
