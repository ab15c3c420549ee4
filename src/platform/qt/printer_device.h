#pragma once

#include <memory>

#include "platform/page_devices.h"

namespace triaxlab {

// See PageDevices.

Printers systemPrinters();
std::unique_ptr<PageDevice> makePrinterDevice(PrinterJob job, Dialogs& dialogs);

}  // namespace triaxlab
