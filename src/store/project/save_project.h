#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "store/project/project_kinds.h"
#include "store/safety/changed_files.h"
#include "store/workspace.h"

namespace triaxlab {

/// By what a technician tells two states of a sample apart; UTF-8.
struct SampleBrief {
  std::string cellPressures;  // "100、200、300"
  std::string soilName;
  bool operator==(const SampleBrief&) const = default;
};

/// One sample of an import that its project file already knows, as Form10 lists it.
struct KnownSample {
  std::size_t row;                 // of the table; keepExisting[row] is the answer
  SampleBrief stored{}, coming{};  // what the file holds, and what the import brings
};

/// Shown at a save of an import: lets the technician set keepExisting for the known samples. All flags are cleared
/// before. False drops the save.
using OverwriteChooser = std::function<bool(Workspace& workspace, const std::vector<KnownSample>& known)>;

/// Title of what a save asks and says.
inline constexpr std::string_view kSaveTitle = "保存数据";

/// What a save has to say when it is done, beside that it is.
struct SaveReport {
  /// The technician has dropped the save of an import: nothing was written, and the import is still pending.
  bool isDropped = false;
  /// What could not be written: a project number that can't be a file name, a damaged file, a full file, each with the
  /// rows that it concerns. Everything else was written.
  std::vector<std::string> errors;
  /// The samples are in their project files, but not their results in these summary files, which are damaged or full.
  std::vector<std::string> summaryErrors;
  /// The samples are saved, but: the texts of the date boxes are not in qvb.sys, a file was too short, there
  /// is no backup, another program's changes were written over with nobody there to ask.
  Remarks remarks;

  /// All that could not be written.
  std::vector<std::string> failures() const;
};

/// Saves the table of a kind into its project files and the summary files, all or nothing on disk. Of the triaxial
/// table the specimens of each saved row are left in order of their pressures, and with the toggle for merging a row
/// holds all that its file does; it alone is saved with a controlledDocNo, and an import of it asks `chooseOverwrites`
/// first. The records are saved as they stand: whoever shows them has reduced them. A file of an old format is upgraded
/// first. A table without a live row writes nothing, and the report says the same. UserError when nothing was written
/// (disk full, no right to write, data folder gone, no row that could be saved, another program at its save); the
/// workspace is then as it was. A damaged summary file is left as it is and keeps no project from being saved.
///
/// A file that another program changed since it was opened is written over when `mayOverwriteChanges` says so. Before
/// the first change a copy of each existing file is kept (store/safety/backup.h).
SaveReport saveProject(Workspace& workspace, ProjectKind kind, const OverwriteChooser& chooseOverwrites,
                       const ChangeQuestion& mayOverwriteChanges = {});

}  // namespace triaxlab
