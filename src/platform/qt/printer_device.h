#pragma once

#include <memory>

#include "platform/page_devices.h"

class QPrinter;

namespace triaxlab {

/// True when the system has a printer to send pages to.
bool hasPrinter();

/// See PageDevices::printer.
std::unique_ptr<PageDevice> makePrinterDevice(PrinterJob job, Dialogs& dialogs);

/// Pages on a printer that somebody else owns and that outlives the device: that of a preview.
std::unique_ptr<PageDevice> makePageDeviceOn(QPrinter& printer);

}  // namespace triaxlab
