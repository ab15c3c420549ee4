#include "sessions/dialogs/print_dialog_session.h"

#include "reports/send_report.h"
#include "sessions/dialogs/error_display.h"

namespace triaxlab {
namespace {

constexpr const char* kPdfExtension = ".pdf";
constexpr const char* kNoPage = "没有可打印的页。";

std::optional<std::filesystem::path> askForPdf(const Workspace& workspace, Dialogs& dialogs) {
  std::optional<std::filesystem::path> file =
      dialogs.chooseFileToSave({.title = "打印到PDF文件",
                                .filter = "PDF Files (*.pdf)|*.pdf|All  Files (*.*)|*.*",
                                .initial = workspace.dataFolder / "print.pdf"});
  if (file && !file->has_extension()) *file += kPdfExtension;
  return file;
}

}  // namespace

void PrintDialogSession::preview(PageDevice& device) const {
  runShowingErrors(m_dialogs, [&] {
    const PrintJob shown = job();
    sendReport(*m_layout.make(shown, m_workspace), shown, device);
  });
}

void PrintDialogSession::send(PageDevices& devices) {
  runShowingErrors(m_dialogs, [&] {
    const PrintJob sent = job();
    const auto report = m_layout.make(sent, m_workspace);
    if (report->pagesOf(sent).isEmpty()) {
      m_remarks.emplace_back(kNoPage);
      return;
    }
    if (const auto device = deviceFor(*report, sent, devices)) sendReport(*report, sent, *device);
  });
}

std::unique_ptr<PageDevice> PrintDialogSession::deviceFor(const Report& report, const PrintJob& job,
                                                          PageDevices& devices) const {
  if (job.printToPicture && !m_layout.picturePrefix.empty())
    return devices.pictures(pictureFolder(report, job, m_workspace), m_layout.picturePrefix);
  if (devices.hasPrinter())
    return devices.printer({.title = m_layout.title, .size = sheetSize(report, job), .copies = job.copies}, m_dialogs);
  const auto file = askForPdf(m_workspace, m_dialogs);
  return file ? devices.pdf(*file) : nullptr;
}

}  // namespace triaxlab
