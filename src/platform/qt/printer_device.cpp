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
  explicit PrinterDevice(int copies) : m_printer(QPrinterInfo::defaultPrinter()), m_painting(m_printer) {
    m_printer.setFullPage(true);
    m_printer.setResolution(kTwipsPerInch);
    m_printer.setCopyCount(copies);
    m_printer.setDocName("triaxlab");
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
  QPrinter m_printer;
  PagedPainting m_painting;
};

}  // namespace

bool hasPrinter() { return !QPrinterInfo::defaultPrinter().isNull(); }

std::unique_ptr<PageDevice> makePrinterDevice(int copies) { return std::make_unique<PrinterDevice>(copies); }

}  // namespace triaxlab
