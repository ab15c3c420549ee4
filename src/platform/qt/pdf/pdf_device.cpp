#include <fmt/format.h>

#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/qt/application.h"
#include "platform/qt/font_lookup.h"
#include "platform/qt/page_devices.h"
#include "platform/qt/pdf/pdf_file.h"
#include "platform/qt/pdf/pdf_fonts.h"
#include "platform/qt/pdf/pdf_surface.h"

namespace triaxlab {
namespace {

constexpr std::string_view kProgram = "triaxlab " TRIAXLAB_VERSION;

struct Bookmark {
  std::string title;
  int page;  // its object
};

/// A document in the making: a page goes into the file when it ends, the fonts of all pages at the end of the document.
class PdfDocument {
 public:
  explicit PdfDocument(const std::filesystem::path& file) : m_file(file) {}

  DrawingSurface& beginPage(PageSize size) {
    m_pages.push_back(m_file.reserve());
    m_size = size;
    return m_surface.emplace(m_fonts, size);
  }
  void addBookmark(std::string_view title) { m_bookmarks.push_back({std::string(title), m_pages.back()}); }
  void endPage();
  void finish(const DocumentInfo& information);

 private:
  void writePageTree();
  /// The bookmarks as an entry of the catalog.
  std::string writeBookmarks();

  PdfFile m_file;
  int m_tree = m_file.reserve(), m_resources = m_file.reserve();
  PdfFonts m_fonts;
  std::vector<int> m_pages;  // their objects
  std::vector<Bookmark> m_bookmarks;
  PageSize m_size;
  std::optional<PdfSurface> m_surface;
};

void PdfDocument::endPage() {
  const int content = m_file.reserve();
  m_file.writeStream(content, "", m_surface->finish());
  m_file.write(
      m_pages.back(),
      fmt::format("<< /Type /Page /Parent {} /MediaBox [0 0 {} {}] /Resources {} /Contents {} >>", pdfReference(m_tree),
                  m_size.width / 20.0, m_size.height / 20.0, pdfReference(m_resources), pdfReference(content)));
  m_surface.reset();
}

void PdfDocument::writePageTree() {
  std::string pages;
  for (const int page : m_pages) pages += pdfReference(page) + ' ';
  m_file.write(m_tree, fmt::format("<< /Type /Pages /Count {} /Kids [{}] >>", m_pages.size(), pages));
}

std::string PdfDocument::writeBookmarks() {
  if (m_bookmarks.empty()) return {};
  const int root = m_file.reserve();
  std::vector<int> items;
  for (std::size_t i = 0; i < m_bookmarks.size(); ++i) items.push_back(m_file.reserve());
  for (std::size_t i = 0; i < items.size(); ++i) {
    const std::string before = i > 0 ? fmt::format(" /Prev {}", pdfReference(items[i - 1])) : "";
    const std::string behind = i + 1 < items.size() ? fmt::format(" /Next {}", pdfReference(items[i + 1])) : "";
    m_file.write(items[i], fmt::format("<< /Title {} /Parent {}{}{} /Dest [{} /Fit] >>", pdfText(m_bookmarks[i].title),
                                       pdfReference(root), before, behind, pdfReference(m_bookmarks[i].page)));
  }
  m_file.write(root, fmt::format("<< /Type /Outlines /First {} /Last {} /Count {} >>", pdfReference(items.front()),
                                 pdfReference(items.back()), items.size()));
  return fmt::format("/Outlines {} /PageMode /UseOutlines ", pdfReference(root));
}

void PdfDocument::finish(const DocumentInfo& information) {
  writePageTree();
  // Thin lines of one width come out alike on a screen, wherever they lie between its dots.
  m_file.write(m_resources, fmt::format("<< {} /ExtGState << /Even << /SA true >> >> >>", m_fonts.write(m_file)));
  const std::string bookmarks = writeBookmarks();
  const int catalog = m_file.reserve(), about = m_file.reserve();
  m_file.write(catalog, fmt::format("<< /Type /Catalog /Pages {} {}/Lang (zh-CN) /ViewerPreferences << "
                                    "/DisplayDocTitle true >> >>",
                                    pdfReference(m_tree), bookmarks));
  const Date& day = information.created;
  m_file.write(about, fmt::format("<< /Title {} /Subject {} /Creator ({}) /Producer ({}) /CreationDate "
                                  "(D:{:04}{:02}{:02}) >>",
                                  pdfText(information.title), pdfText(information.subject), kProgram, kProgram,
                                  day.year, day.month, day.day));
  m_file.finish(catalog, about);
}

class PdfDevice : public PageDevice {
 public:
  PdfDevice(std::filesystem::path file, DocumentInfo information)
      : m_place(std::move(file)), m_information(std::move(information)) {
    requireChineseFont();
  }

  DrawingSurface& beginPage(PageSize size) override {
    if (!m_document) m_document.emplace(m_place);
    return m_document->beginPage(size);
  }
  void bookmark(std::string_view title) override { m_document->addBookmark(title); }
  void endPage() override { m_document->endPage(); }
  void finish() override {
    if (!m_document) return;
    m_document->finish(m_information);
    m_document.reset();
  }

 private:
  PaintingApplication m_application;  // first: all that follows looks for fonts
  std::filesystem::path m_place;
  DocumentInfo m_information;
  std::optional<PdfDocument> m_document;  // from the first page to the end
};

}  // namespace

std::unique_ptr<PageDevice> makePdfDevice(const std::filesystem::path& file, const DocumentInfo& information) {
  return std::make_unique<PdfDevice>(file, information);
}

}  // namespace triaxlab
