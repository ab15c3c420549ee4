#include "windows/send_job.h"

#include <memory>
#include <optional>

#include "platform/qt/page_devices.h"
#include "platform/qt/printer_device.h"
#include "reports/three_in_one.h"

namespace triaxlab {
namespace {

constexpr const char* kPdfExtension = ".pdf";

std::optional<std::filesystem::path> askForPdf(const Workspace& workspace, Dialogs& dialogs) {
  std::optional<std::filesystem::path> file =
      dialogs.chooseFileToSave({.title = "打印到PDF文件",
                                .filter = "PDF Files (*.pdf)|*.pdf|All  Files (*.*)|*.*",
                                .initial = workspace.dataFolder / "print.pdf"});
  if (file && !file->has_extension()) *file += kPdfExtension;
  return file;
}

/// Nothing when the question was cancelled.
std::unique_ptr<PageDevice> deviceFor(const PrintJob& job, const Workspace& workspace, Dialogs& dialogs) {
  if (job.printToPicture) {
    const auto folder = pictureFolderOf(job, workspace);
    return folder ? makePictureDevice(*folder) : nullptr;
  }
  if (hasPrinter()) return makePrinterDevice({threeInOnePageSize(job), job.copies}, dialogs);
  const auto file = askForPdf(workspace, dialogs);
  return file ? makePdfDevice(*file) : nullptr;
}

}  // namespace

void sendThreeInOne(const PrintJob& job, const Workspace& workspace, Dialogs& dialogs) {
  // A job without a page asks for no file.
  if (threeInOnePageCount(job, workspace) == 0) return;
  if (const auto device = deviceFor(job, workspace, dialogs)) runThreeInOne(job, workspace, *device);
}

}  // namespace triaxlab
