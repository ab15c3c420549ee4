#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "reports/print_job.h"
#include "reports/report.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// One layout of pages: all that its callers must know of it.
struct Layout {
  std::string_view id;             // on the command line; never renamed
  std::string_view title;          // of what it prints, UTF-8
  ProjectKind kind;                // whose samples it shows, as they stand in the table
  std::string_view picturePrefix;  // of the names of its pictures; empty: it makes none, and goes on paper all the same
  bool hasPageSetup = false;       // sheets as PrintJob::sheet has them; else the usual page
  /// Lays the job out. The workspace outlives the report; the settings that act on pages have been read
  /// (ReadPageSettings).
  std::unique_ptr<Report> (*make)(const PrintJob& job, const Workspace& workspace);
};

/// The layouts of this version.
std::span<const Layout* const> layouts();
/// Null when this version has no such layout.
const Layout* layoutOfId(std::string_view id);

}  // namespace triaxlab
