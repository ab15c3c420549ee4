#include "platform/qt/printer_device.h"

#include <fmt/core.h>

#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

#include "common/user_error.h"
#include "platform/qt/application.h"
#include "platform/qt/paged_painting.h"

namespace triaxlab {
namespace {

constexpr const char* kTitle = "打印";

/// True when the printer knows the paper by name or takes any that isn't larger than its largest. The toolkit itself
/// would send each size to each printer.
bool hasPaper(const QPrinterInfo& printer, const QPageSize& paper) {
  const QList<QPageSize> papers = printer.supportedPageSizes();
  if (std::any_of(papers.begin(), papers.end(), [&](const QPageSize& one) { return one.isEquivalentTo(paper); }))
    return true;
  const QSize largest = printer.maximumPhysicalPageSize().sizePoints(), wanted = paper.sizePoints();
  return printer.supportsCustomPageSizes() && wanted.width() <= largest.width() && wanted.height() <= largest.height();
}

/// Sets paper and orientation; a layout without margins would be refused whole by a printer that can't print up to the
/// edge, and upright A4 come out. So the margins stay those of the printer, and pages cover the paper all the same.
/// False when the printer would print on another paper.
bool setPaper(QPrinter& printer, const QPageLayout& wanted) {
  printer.setPageSize(wanted.pageSize());
  printer.setPageOrientation(wanted.orientation());
  printer.setFullPage(true);
  const QPageLayout set = printer.pageLayout();
  const bool isAsWanted = set.orientation() == wanted.orientation() && set.pageSize().isEquivalentTo(wanted.pageSize());
  // What goes into a file needs no paper.
  return isAsWanted &&
         (printer.outputFormat() == QPrinter::PdfFormat || hasPaper(QPrinterInfo(printer), wanted.pageSize()));
}

/// "A3纸（297×420毫米）", or the measures alone.
std::string nameOf(const QPageSize& paper) {
  const QSizeF size = paper.size(QPageSize::Millimeter);
  const std::string measures = fmt::format("{:.0f}×{:.0f}毫米", size.width(), size.height());
  if (paper.id() == QPageSize::Custom) return measures + "的纸";
  return fmt::format("{}纸（{}）", paper.key().toStdString(), measures);
}

bool printsAllTheSame(const QPrinter& printer, const QPageSize& paper, Dialogs& dialogs) {
  return dialogs.ask(kTitle,
                     fmt::format("打印机“{}”没有{}。\n仍要打印吗？打印机会用它现有的纸，页面可能被缩小或裁去一部分。",
                                 printer.printerName().toStdString(), nameOf(paper)),
                     MessageIcon::Exclamation);
}

class PrinterDevice : public PageDevice {
 public:
  explicit PrinterDevice(QPrinter& printer) : m_printer(printer), m_painting(printer) {
    m_printer.setResolution(kTwipsPerInch);
  }

  DrawingSurface& beginPage(PageSize size) override {
    // Whoever sends pages to paper has been asked about it; a preview shows what comes.
    setPaper(m_printer, layoutOf(size));
    DrawingSurface* const surface = m_painting.beginPage();
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

QPrinterInfo printerOf(const PrinterJob& job) {
  if (job.name.empty()) return QPrinterInfo::defaultPrinter();
  const auto named =
      QPrinterInfo::printerInfo(QString::fromUtf8(job.name.data(), static_cast<qsizetype>(job.name.size())));
  if (named.isNull()) throw UserError(kTitle, fmt::format("没有名为“{}”的打印机，没有打印。", job.name));
  return named;
}

/// Members of this come before the device that draws on the printer.
struct PrinterOfJob {
  explicit PrinterOfJob(const PrinterJob& job) : printer(printerOf(job)) {}
  PaintingApplication application;
  QPrinter printer;
};
class JobDevice : private PrinterOfJob, public PrinterDevice {
 public:
  explicit JobDevice(const PrinterJob& job) : PrinterOfJob(job), PrinterDevice(printer) {
    printer.setCopyCount(job.copies);
    printer.setDocName(QString::fromUtf8(job.title.data(), static_cast<qsizetype>(job.title.size())));
  }
  bool takes(PageSize size, Dialogs& dialogs) {
    const QPageLayout layout = layoutOf(size);
    return setPaper(printer, layout) || printsAllTheSame(printer, layout.pageSize(), dialogs);
  }
};

}  // namespace

bool hasPrinter() { return !QPrinterInfo::defaultPrinter().isNull(); }

std::unique_ptr<PageDevice> makePrinterDevice(PrinterJob job, Dialogs& dialogs) {
  auto device = std::make_unique<JobDevice>(job);
  return device->takes(job.size, dialogs) ? std::move(device) : nullptr;
}

std::unique_ptr<PageDevice> makePageDeviceOn(QPrinter& printer) { return std::make_unique<PrinterDevice>(printer); }

}  // namespace triaxlab
