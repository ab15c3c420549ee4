#pragma once

#include <filesystem>

#include "platform/page_device.h"
#include "reports/print_job.h"
#include "reports/report.h"
#include "store/workspace.h"

namespace triaxlab {

// The way of all pages, whatever they show: to a preview, a printer, a PDF file, pictures, a file of drawing
// operations.

/// The sheets of the job: its pages, or two of them side by side on A3.
PageSize sheetSize(const Report& report, const PrintJob& job);

/// Draws the pages that the job asks for on the device and finishes it. Returns their number.
int sendReport(Report& report, const PrintJob& job, PageDevice& device);

/// Where the pictures of the job go: the folder below PTU of the project of the first sample sent. UserError when its
/// project number can't be a folder's name, or the folder is a link or behind one. Pre: the job sends a page.
std::filesystem::path pictureFolder(const Report& report, const PrintJob& job, const Workspace& workspace);

}  // namespace triaxlab
