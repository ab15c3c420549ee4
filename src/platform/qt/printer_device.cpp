#include "platform/qt/printer_device.h"

#include <fmt/core.h>

#include <QPrinter>
#include <QPrinterInfo>

#include "common/user_error.h"
#include "platform/qt/paged_painting.h"

namespace triaxlab {
namespace {

class PrinterDevice : public PageDevice {
 public:
  explicit PrinterDevice(QPrinter& printer) : m_printer(printer), m_painting(printer) {
    m_printer.setFullPage(true);
    m_printer.setResolution(kTwipsPerInch);
  }

  DrawingSurface& beginPage(PageSize size) override {
    DrawingSurface* const surface = m_painting.beginPage(size);
    if (surface == nullptr)
      throw UserError(fmt::format("打印机“{}”不能打印，请检查打印机。", m_printer.printerName().toStdString()));
    return *surface;
  }
  void endPage() override {}
  void finish() override { m_painting.end(); }

 private:
  QPrinter& m_printer;
  PagedPainting m_painting;
};

/// A member of this comes before the device that draws on it.
struct DefaultPrinter {
  QPrinter printer{QPrinterInfo::defaultPrinter()};
};
class DefaultPrinterDevice : private DefaultPrinter, public PrinterDevice {
 public:
  explicit DefaultPrinterDevice(int copies) : PrinterDevice(printer) {
    printer.setCopyCount(copies);
    printer.setDocName("triaxlab");
  }
};

}  // namespace

bool hasPrinter() { return !QPrinterInfo::defaultPrinter().isNull(); }

std::unique_ptr<PageDevice> makePrinterDevice(int copies) { return std::make_unique<DefaultPrinterDevice>(copies); }

std::unique_ptr<PageDevice> makePageDeviceOn(QPrinter& printer) { return std::make_unique<PrinterDevice>(printer); }

}  // namespace triaxlab
