#pragma once

#include "platform/dialogs.h"
#include "reports/print_job.h"
#include "store/workspace.h"

namespace triaxlab {

/// Sends a job of three-in-one pages where it asks to go: to pictures in the project's folder, to the printer, or, when
/// the system has none, to a PDF file that is asked for; a cancelled question drops the job. UserError when the pages
/// can't be written.
void sendThreeInOne(const PrintJob& job, const Workspace& workspace, Dialogs& dialogs);

}  // namespace triaxlab
