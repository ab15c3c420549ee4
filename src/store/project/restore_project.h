#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// A copy of a project file (store/safety/backup.h), texts UTF-8.
struct ProjectCopy {
  std::string name;
  std::string time;
  std::string sampleCount;
  /// What a restore would change of the file as it is, or why the copy can't be read.
  std::string difference;
  bool isReadable = true;
};

/// The copies of a project file (name without folder), the newest first. UserError: no such file, or the copies can't
/// be looked at.
std::vector<ProjectCopy> listCopies(const Workspace& workspace, ProjectKind kind, std::string_view fileName);

struct RestoreReport {
  /// The project is restored, but not all of its summary file; one sentence each.
  std::vector<std::string> errors;
  Remarks remarks;
};

/// Puts a copy in the place of the project file, in today's format. The file as it was is copied first. The project's
/// summary file follows as with a save: it takes the results of the samples that are restored, and those of samples
/// that are gone are blanked. A document that has the project open still shows what was before; its save asks first.
///
/// All or nothing over both files, also for a crash. UserError: no such file or copy, a damaged copy, no copy of the
/// file as it was, a full disk, another program at its save, a kind whose files are never written. Nothing has changed
/// then.
RestoreReport restoreProject(Workspace& workspace, ProjectKind kind, std::string_view fileName,
                             std::string_view copyName);

}  // namespace triaxlab
