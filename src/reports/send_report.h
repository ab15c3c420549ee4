#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "platform/page_device.h"
#include "reports/job_range.h"
#include "reports/print_job.h"
#include "reports/report.h"
#include "store/workspace.h"

namespace triaxlab {

// The way of all pages, whatever they show: to a preview, a printer, a PDF file, pictures, a file of drawing
// operations.

/// The sheets of the job: its pages, or two of them side by side on A3.
PageSize sheetSize(const Report& report, const PrintJob& job);

/// What the job puts on each sheet of paper, the same on every device and in a preview. Report and job outlive it.
class Sheets {
 public:
  Sheets(Report& report, const PrintJob& job);

  PageSize size() const { return sheetSize(m_report, m_job); }
  int count() const;
  /// Draws sheet 1 to count().
  void draw(DrawingSurface& surface, int sheet) const;
  /// Pages on the first sheets.
  int pagesOn(int sheets) const;
  /// The numbers of the pages on a sheet.
  NumberRange pages(int sheet) const;
  /// The project of the first sample on it, GBK, trimmed.
  std::string_view projectNo(int sheet) const;

 private:
  int pagesOfSheet() const { return m_job.sideBySide() ? 2 : 1; }

  Report& m_report;
  const PrintJob& m_job;
  NumberRange m_pages;
};

/// Told how many of the sheets have been sent, by the thread that sends them; an answer of false stops the job. May be
/// empty.
using SheetProgress = std::function<bool(int sent, int sheets)>;

/// Draws the sheets of the job on the device, with a bookmark where a sample begins, and finishes it, or stops it.
/// Returns the number of pages.
int sendReport(Report& report, const PrintJob& job, PageDevice& device, const SheetProgress& goesOn = {});

/// Where the pictures of the job go: the folder below PTU of the project of the first sample sent. UserError when its
/// project number can't be a folder's name, or the folder is a link or behind one. Pre: the job sends a page.
std::filesystem::path pictureFolder(const Report& report, const PrintJob& job, const Workspace& workspace);

}  // namespace triaxlab
