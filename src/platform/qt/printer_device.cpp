#include "platform/qt/printer_device.h"

#include <fmt/core.h>

#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <cstdint>
#include <filesystem>

#include "common/user_error.h"
#include "platform/chinese_font.h"
#include "platform/files.h"
#include "platform/print_answer.h"
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

[[noreturn]] void refuse(const QPrinter& printer, std::string_view why) {
  throw UserError(kTitle, fmt::format("打印机“{}”没有打印：{}。", printer.printerName().toStdString(), why));
}

/// The toolkit collects a job in the folder of passing files and sends what it could write, be it half a document.
/// Fonts come at its end, so room is kept for them.
void needRoomForJob(const QPrinter& printer) {
  constexpr std::uintmax_t kFontsAndAPage = 8 << 20;
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  const std::filesystem::space_info room = std::filesystem::space(folder, error);
  if (error) refuse(printer, fmt::format("临时文件夹“{}”不能用", textOfPath(folder)));
  if (room.available < kFontsAndAPage) refuse(printer, fmt::format("临时文件夹“{}”所在的磁盘已满", textOfPath(folder)));
}

QPrinterInfo printerOf(const PrinterJob& job) {
  if (job.name.empty()) return QPrinterInfo::defaultPrinter();
  const auto named =
      QPrinterInfo::printerInfo(QString::fromUtf8(job.name.data(), static_cast<qsizetype>(job.name.size())));
  if (named.isNull()) throw UserError(kTitle, fmt::format("没有名为“{}”的打印机，没有打印。", job.name));
  return named;
}

class PrinterDevice : public PageDevice {
 public:
  explicit PrinterDevice(const PrinterJob& job) : m_printer(printerOf(job)), m_painting(m_printer) {
    requireChineseFont();
    // Its queue would take the job and keep it until somebody starts the printer, perhaps days later.
    if (QPrinterInfo(m_printer).state() == QPrinter::Error) refuse(m_printer, "这台打印机已停用，请先启用它");
    needRoomForJob(m_printer);
    m_printer.setResolution(kTwipsPerInch);
    m_printer.setCopyCount(job.copies);
    m_printer.setDocName(QString::fromUtf8(job.title.data(), static_cast<qsizetype>(job.title.size())));
  }
  bool takes(PageSize size, Dialogs& dialogs) {
    const QPageLayout layout = layoutOf(size);
    return setPaper(m_printer, layout) || printsAllTheSame(m_printer, layout.pageSize(), dialogs);
  }

  DrawingSurface& beginPage(PageSize size) override {
    needRoomForJob(m_printer);
    setPaper(m_printer, layoutOf(size));  // about which the person has been asked
    DrawingSurface* const surface = m_painting.beginPage();
    if (surface == nullptr) refuse(m_printer, "请检查打印机");
    return *surface;
  }
  void endPage() override {}
  void finish() override {
    m_painting.end();
    // The pages leave for the print service only now.
    const auto why = whyJobWasRefused();
    if (!why) return;
    const bool isThere = !QPrinterInfo::printerInfo(m_printer.printerName()).isNull();
    refuse(m_printer, isThere ? *why : "找不到这台打印机，它可能已被删除，或者打印服务没有运行");
  }
  void stop() override { finish(); }

 private:
  PaintingApplication m_application;  // first: all that follows paints
  QPrinter m_printer;
  PagedPainting m_painting;
};

}  // namespace

Printers systemPrinters() {
  Printers printers{.names = {}, .usual = QPrinterInfo::defaultPrinterName().toStdString()};
  for (const QString& name : QPrinterInfo::availablePrinterNames()) printers.names.push_back(name.toStdString());
  return printers;
}

std::unique_ptr<PageDevice> makePrinterDevice(PrinterJob job, Dialogs& dialogs) {
  auto device = std::make_unique<PrinterDevice>(job);
  return device->takes(job.size, dialogs) ? std::move(device) : nullptr;
}

}  // namespace triaxlab
