#pragma once

#include <memory>

#include "platform/dialogs.h"
#include "platform/page_device.h"

class QPrinter;

namespace triaxlab {

/// True when the system has a printer to send pages to.
bool hasPrinter();

struct PrinterPaper {
  PageSize size;
  int copies = 1;  // 1 to 99
};

/// The system's default printer, with no further dialog, for pages of one size. When the printer has no such paper, the
/// person is asked whether to print all the same; nothing after a No. Pre: hasPrinter().
std::unique_ptr<PageDevice> makePrinterDevice(PrinterPaper paper, Dialogs& dialogs);

/// Pages on a printer that somebody else owns and that outlives the device: that of a preview.
std::unique_ptr<PageDevice> makePageDeviceOn(QPrinter& printer);

}  // namespace triaxlab
