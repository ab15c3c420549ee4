#pragma once

#include <fmt/format.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing_surface.h"
#include "platform/page_device.h"
#include "platform/qt/pdf/pdf_fonts.h"
#include "platform/qt/pdf/reading_order.h"

namespace triaxlab {

/// Writes what is drawn as the content of a PDF page. What stays as it was, a colour, a width, a font, is told once.
class PdfSurface : public DrawingSurface {
 public:
  PdfSurface(PdfFonts& fonts, PageSize size);

  /// The content of the page; nothing is drawn after it.
  const std::string& finish();

  void line(Point from, Point to, Stroke stroke) override;
  void box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) override;
  void circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) override;
  void polyline(std::span<const Point> points, Stroke stroke) override;
  void text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) override;

 private:
  void drawTexts(const std::vector<PlacedText>& texts);
  void drawText(const PlacedText& text);
  void drawGlyphs(std::span<const PdfGlyph> glyphs, double size);

  template <class... Values>
  void put(fmt::format_string<Values...> form, Values&&... values);
  /// Puts an operation whose value differs from what was told last.
  template <class Value>
  void tell(Value& told, const Value& wanted, std::string_view operation);
  void useStroke(Stroke stroke);
  void useLine(Colour colour, double width);
  void useFill(Colour colour);

  PdfFonts& m_fonts;
  std::string m_content;
  ReadingOrder m_order;
  // What was told last, as a page begins or as nobody wants it.
  std::string m_lineColour, m_fillColour;
  double m_lineWidth = -1, m_size = -1, m_stretch = 100;
  int m_font = 0, m_textMode = 0;
};

}  // namespace triaxlab
