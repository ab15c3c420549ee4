#pragma once

#include <filesystem>
#include <optional>

#include "platform/page_device.h"
#include "reports/print_job.h"
#include "store/workspace.h"

namespace triaxlab {

// The result pages "三  轴  试  验  成  果  曲  线": curve blocks of the samples, two to a page.

/// The size of the job's pages: A4, the dot-matrix form, or two pages side by side on A3.
PageSize threeInOnePageSize(const PrintJob& job);

/// The pages that the job has in all, whatever page range it asks for.
int threeInOnePageCount(const PrintJob& job, const Workspace& workspace);

/// Draws the job's pages on the device and finishes it. The records of the workspace stay as they are. Returns the
/// number of pages sent; 0 when the samples have none of the job's curves. The caller has read the settings that act on
/// pages (ReadIniSettings).
int runThreeInOne(const PrintJob& job, const Workspace& workspace, PageDevice& device);

/// Where the bitmaps of a job go: the folder below PTU of the project of the first sample printed. Nothing when the job
/// prints no sample. UserError when its project number can't be a folder's name.
std::optional<std::filesystem::path> pictureFolderOf(const PrintJob& job, const Workspace& workspace);

}  // namespace triaxlab
