#pragma once

#include "cli/commands.h"
#include "reports/layouts.h"
#include "reports/print_job.h"
#include "store/workspace.h"

namespace triaxlab::cli {

/// The job that the command line asks for; what it doesn't say is as the print dialogs have stored it. UserError for a
/// paper that the layout doesn't have.
PrintJob jobOf(const Print& print, const Layout& layout, const Workspace& workspace);

}  // namespace triaxlab::cli
