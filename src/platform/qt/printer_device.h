#pragma once

#include <memory>

#include "platform/page_device.h"

class QPrinter;

namespace triaxlab {

/// True when the system has a printer to send pages to.
bool hasPrinter();

/// The system's default printer, with no further dialog. Pre: hasPrinter(). `copies` is 1 to 99.
std::unique_ptr<PageDevice> makePrinterDevice(int copies);

/// Pages on a printer that somebody else owns and that outlives the device: that of a preview.
std::unique_ptr<PageDevice> makePageDeviceOn(QPrinter& printer);

}  // namespace triaxlab
