#pragma once

#include <string_view>
#include <vector>

#include "platform/page_device.h"
#include "reports/layouts.h"
#include "reports/print_job.h"
#include "reports/report.h"
#include "store/workspace.h"

namespace triaxlab {

/// The projects whose samples a job sends, each once, in the order of its pages. GBK, trimmed.
std::vector<std::string_view> projectsOf(const Report& report, const PrintJob& job);

/// What a document of the job tells of itself: what it shows, of which projects, and the day. UserError when the
/// summary file of a project can't be read.
DocumentInfo documentInfo(const Layout& layout, const Report& report, const PrintJob& job, const Workspace& workspace);

}  // namespace triaxlab
