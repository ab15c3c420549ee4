#include <fmt/core.h>

#include <QBuffer>
#include <QPdfWriter>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/qt/application.h"
#include "platform/qt/page_devices.h"
#include "platform/qt/paged_painting.h"

namespace triaxlab {
namespace {

/// Collects the document in memory (about 12 kB a page), so that no half file is ever seen.
class PdfDevice : public PageDevice {
 public:
  explicit PdfDevice(std::filesystem::path file) : m_file(std::move(file)), m_writer(&m_content), m_painting(m_writer) {
    m_content.open(QIODevice::WriteOnly);
    m_writer.setResolution(kTwipsPerInch);
    m_writer.setCreator("triaxlab");
  }

  DrawingSurface& beginPage(PageSize size) override {
    m_writer.setPageLayout(layoutOf(size));
    DrawingSurface* const surface = m_painting.beginPage();
    if (surface == nullptr) throw UserError(fmt::format("无法生成PDF文件“{}”。", textOfPath(m_file)));
    m_hasPages = true;
    return *surface;
  }

  void endPage() override {}

  void finish() override {
    if (!m_hasPages) return;
    m_painting.end();
    const QByteArray& content = m_content.data();
    writeWholeFile(m_file, std::as_bytes(std::span(content.constData(), static_cast<std::size_t>(content.size()))));
  }

 private:
  PaintingApplication m_application;  // first: all that follows paints
  std::filesystem::path m_file;
  QBuffer m_content;
  QPdfWriter m_writer;
  PagedPainting m_painting;
  bool m_hasPages = false;
};

}  // namespace

std::unique_ptr<PageDevice> makePdfDevice(const std::filesystem::path& file) {
  return std::make_unique<PdfDevice>(file);
}

}  // namespace triaxlab
