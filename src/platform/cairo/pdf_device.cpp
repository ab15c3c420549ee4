#include "platform/pdf_device.h"

#include <cairo-pdf.h>
#include <fmt/format.h>

#include <cerrno>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "platform/cairo/cairo_handles.h"
#include "platform/cairo/cairo_surface.h"
#include "platform/cairo/font_faces.h"
#include "platform/chinese_font.h"
#include "platform/replaced_file.h"

namespace triaxlab {
namespace {

constexpr const char* kProgram = "triaxlab " TRIAXLAB_VERSION;
constexpr double kTwipsPerPoint = 20;

/// Where the library's bytes go. It never hears of an error, which it doesn't survive when not even the first byte can
/// be written: the error waits until the library has returned, and what it writes meanwhile goes nowhere.
class PdfFile {
 public:
  explicit PdfFile(const std::filesystem::path& place) : m_file(behindLinks(place)) {}

  static cairo_status_t take(void* file, const unsigned char* bytes, unsigned count) {
    static_cast<PdfFile*>(file)->write(std::as_bytes(std::span(bytes, count)));
    return CAIRO_STATUS_SUCCESS;
  }
  void throwError() const {
    if (m_error) std::rethrow_exception(m_error);
  }
  /// Pre: the library has written all.
  void finish() { m_file.finish(); }
  [[noreturn]] void fail() const { m_file.fail(ENOMEM); }

 private:
  void write(std::span<const std::byte> bytes) try {
    if (!m_error) m_file.write(bytes);
  } catch (...) {
    m_error = std::current_exception();
  }

  ReplacedFile m_file;
  std::exception_ptr m_error;
};

/// A document in the making: a page goes into the file when it ends, the fonts of all pages at the end of the document.
class PdfDocument {
 public:
  PdfDocument(const std::filesystem::path& place, const DocumentInfo& information)
      : m_file(place), m_surface(cairo_pdf_surface_create_for_stream(PdfFile::take, &m_file, 1, 1)) {
    const Date& day = information.created;
    tell(CAIRO_PDF_METADATA_TITLE, information.title);
    tell(CAIRO_PDF_METADATA_SUBJECT, information.subject);
    tell(CAIRO_PDF_METADATA_CREATOR, kProgram);
    tell(CAIRO_PDF_METADATA_CREATE_DATE, fmt::format("{:04}-{:02}-{:02}", day.year, day.month, day.day));
  }

  DrawingSurface& beginPage(PageSize size) {
    ++m_page;
    cairo_pdf_surface_set_size(m_surface.get(), size.width / kTwipsPerPoint, size.height / kTwipsPerPoint);
    // A page's own context: what is set for one page isn't for the next.
    m_context.reset(cairo_create(m_surface.get()));
    cairo_scale(m_context.get(), 1 / kTwipsPerPoint, 1 / kTwipsPerPoint);
    useUnhintedType();
    return m_drawing.emplace(m_context.get(), m_faces);
  }
  void addBookmark(std::string_view title) {
    cairo_pdf_surface_add_outline(m_surface.get(), CAIRO_PDF_OUTLINE_ROOT, std::string(title).c_str(),
                                  fmt::format("page={}", m_page).c_str(), cairo_pdf_outline_flags_t{});
  }
  void endPage() {
    m_drawing->drawHeldTexts();
    cairo_show_page(m_context.get());
    check(cairo_status(m_context.get()));
    m_drawing.reset();
    m_context.reset();
  }
  void finish() {
    cairo_surface_finish(m_surface.get());
    check(cairo_surface_status(m_surface.get()));
    m_file.finish();
  }

 private:
  void tell(cairo_pdf_metadata_t what, const std::string& value) {
    cairo_pdf_surface_set_metadata(m_surface.get(), what, value.c_str());
  }
  /// The shapes and widths of the font itself, which no grid of dots has bent.
  void useUnhintedType() {
    const std::unique_ptr<cairo_font_options_t, GivenBack<cairo_font_options_destroy>> options(
        cairo_font_options_create());
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(m_context.get(), options.get());
  }
  void check(cairo_status_t status) const {
    m_file.throwError();
    if (status != CAIRO_STATUS_SUCCESS) m_file.fail();
  }

  PdfFile m_file;  // first: the surface writes to it to its end
  FontFaces m_faces;
  CairoSurfaceHandle m_surface;
  CairoContext m_context;
  std::optional<CairoSurface> m_drawing;
  int m_page = 0;
};

class PdfDevice : public PageDevice {
 public:
  PdfDevice(std::filesystem::path place, DocumentInfo information)
      : m_place(std::move(place)), m_information(std::move(information)) {
    requireChineseFont();
  }

  DrawingSurface& beginPage(PageSize size) override {
    if (!m_document) m_document.emplace(m_place, m_information);
    return m_document->beginPage(size);
  }
  void bookmark(std::string_view title) override { m_document->addBookmark(title); }
  void endPage() override { m_document->endPage(); }
  void finish() override {
    if (!m_document) return;
    m_document->finish();
    m_document.reset();
  }

 private:
  std::filesystem::path m_place;
  DocumentInfo m_information;
  std::optional<PdfDocument> m_document;  // from the first page to the end
};

}  // namespace

std::unique_ptr<PageDevice> makePdfDevice(const std::filesystem::path& file, const DocumentInfo& information) {
  return std::make_unique<PdfDevice>(file, information);
}

}  // namespace triaxlab
