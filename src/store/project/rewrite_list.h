#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "store/project/project_kinds.h"
#include "store/safety/changed_files.h"
#include "store/workspace.h"

namespace triaxlab {

/// What a rewrite has to say when it is done.
struct RewriteReport {
  std::string title;    // "保存三轴文件"
  std::string message;  // "数据保存完毕!"
  /// The samples are in their new order, but the summary file is damaged and stays as it is; one sentence.
  std::vector<std::string> errors;
  /// An upgrade; a short file; no backup; another program's changes written over with nobody there to ask.
  Remarks remarks;
};

/// Writes a project file (name without folder) anew with the samples at these positions (from 0), in this order; those
/// left out are deleted, and without any the file itself. In the project's summary file the results of this kind are
/// blanked for every sample number that the list doesn't have. A triaxial file loses its controlledDocNo until the next
/// save. A file of an old format is upgraded first. The header keeps all but its count.
///
/// A file that another program changed since its samples were listed is rewritten when `mayOverwriteChanges` says so:
/// the positions are those of the list. Before its first change a copy of the file is kept (store/safety/backup.h).
///
/// All or nothing over both files, also for a crash. The new file is made in the applicationFolder (a.….bak).
/// UserError: as openProject; an order with a position that the file doesn't have, or with one twice; a kind whose
/// files are never written; a summary file that can't be read; a full disk; another program at its save; a refusal to
/// write over changes. Nothing has changed then.
RewriteReport rewriteProject(Workspace& workspace, ProjectKind kind, std::string_view fileName,
                             std::span<const std::uint32_t> order, const ChangeQuestion& mayOverwriteChanges = {});

}  // namespace triaxlab
