#include "platform/qt/qt_page_devices.h"

#include "platform/pdf_device.h"
#include "platform/qt/picture_device.h"
#include "platform/qt/printer_device.h"

namespace triaxlab {

Printers QtPageDevices::printers() const { return systemPrinters(); }

std::unique_ptr<PageDevice> QtPageDevices::printer(PrinterJob job, Dialogs& dialogs) {
  return makePrinterDevice(job, dialogs);
}

std::unique_ptr<PageDevice> QtPageDevices::pdf(const std::filesystem::path& file, const DocumentInfo& information) {
  return makePdfDevice(file, information);
}

std::unique_ptr<PageDevice> QtPageDevices::pictures(const std::filesystem::path& folder, std::string_view prefix) {
  return makePictureDevice(folder, prefix);
}

}  // namespace triaxlab
