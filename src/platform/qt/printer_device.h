#pragma once

#include <memory>

#include "platform/page_device.h"

namespace triaxlab {

/// True when the system has a printer to send pages to.
bool hasPrinter();

/// The system's default printer, with no further dialog. Pre: hasPrinter(). `copies` is 1 to 99.
std::unique_ptr<PageDevice> makePrinterDevice(int copies);

}  // namespace triaxlab
