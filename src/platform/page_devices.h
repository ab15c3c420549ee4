#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"
#include "platform/page_device.h"

namespace triaxlab {

/// What a printer is told of a job.
struct PrinterJob {
  std::string_view title;  // in the list of the printer's jobs, UTF-8
  PageSize size;
  int copies = 1;              // 1 to 99
  std::string_view name = {};  // of the printer, UTF-8; empty: the system's default
};

/// The printers of the system by their names, UTF-8.
struct Printers {
  std::vector<std::string> names;
  std::string usual;  // for whoever doesn't choose; empty: the system has none
};

/// Where a program with windows can send pages.
class PageDevices {
 public:
  virtual ~PageDevices() = default;
  virtual Printers printers() const = 0;
  /// The job's printer, with no further dialog, for pages of one size. When it has no such paper, the person is asked
  /// whether to print all the same; nothing after a No. UserError when there is no printer of the name, or it has been
  /// stopped; finishing the device is one when its queue doesn't take the job. Pre: the job names one, or the system
  /// has a usual one.
  virtual std::unique_ptr<PageDevice> printer(PrinterJob job, Dialogs& dialogs) = 0;
  virtual std::unique_ptr<PageDevice> pdf(const std::filesystem::path& file, const DocumentInfo& information) = 0;
  /// A bitmap a page: `prefix` + n + ".BMP" in the folder, n from 1.
  virtual std::unique_ptr<PageDevice> pictures(const std::filesystem::path& folder, std::string_view prefix) = 0;
};

}  // namespace triaxlab
