#pragma once

#include <memory>

#include "platform/page_devices.h"

namespace triaxlab {

/// True when the system has a printer to send pages to.
bool hasPrinter();

/// See PageDevices::printer.
std::unique_ptr<PageDevice> makePrinterDevice(PrinterJob job, Dialogs& dialogs);

}  // namespace triaxlab
