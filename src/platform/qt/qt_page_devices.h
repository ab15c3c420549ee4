#pragma once

#include "platform/page_devices.h"

namespace triaxlab {

/// The printers and files of a program with windows.
class QtPageDevices : public PageDevices {
 public:
  Printers printers() const override;
  std::unique_ptr<PageDevice> printer(PrinterJob job, Dialogs& dialogs) override;
  std::unique_ptr<PageDevice> pdf(const std::filesystem::path& file, const DocumentInfo& information) override;
  std::unique_ptr<PageDevice> pictures(const std::filesystem::path& folder, std::string_view prefix) override;
};

}  // namespace triaxlab
