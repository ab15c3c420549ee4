#include "platform/qt/pdf/pdf_surface.h"

#include <fmt/format.h>

#include <QString>
#include <algorithm>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/qt/painter_surface.h"
#include "platform/qt/ruled_text.h"
#include "platform/thinned_line.h"
#include "platform/whole_twips.h"

namespace triaxlab {
namespace {

/// How far the points of a quarter circle's curve lie from its ends, in its radius.
constexpr double kQuarterCircle = 0.5523;
/// A font without a bold companion is drawn with this outline, in its size.
constexpr double kBoldOutline = 1 / 40.0;
/// What no eye and no printer tells apart, in twips.
constexpr double kUnseen = 0.75;
constexpr int kFilled = 0, kFilledAndOutlined = 2;

/// Up to two digits behind the point, and no more than are needed.
std::string shortNumber(double value) {
  std::string text = fmt::format("{:.2f}", value);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string numbersOf(Colour colour) {
  const QColor rgb = colourOf(colour);
  return shortNumber(rgb.redF()) + ' ' + shortNumber(rgb.greenF()) + ' ' + shortNumber(rgb.blueF());
}

std::string_view paint(bool filled) { return filled ? "B" : "S"; }

}  // namespace

PdfSurface::PdfSurface(PdfFonts& fonts, PageSize size) : m_fonts(fonts) {
  // Twips from the upper left corner; thin lines come out alike wherever they lie between the dots of a screen.
  put("/Even gs 0.05 0 0 -0.05 0 {} cm 1 j\n", shortNumber(size.height / 20.0));
}

void PdfSurface::line(Point from, Point to, Stroke stroke) {
  useStroke(stroke);
  const TwipPoint start = wholeTwips(from), end = wholeTwips(to);
  put("{} {} m {} {} l S\n", start.x, start.y, end.x, end.y);
}

void PdfSurface::box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) {
  useStroke(stroke);
  if (fill) useFill(*fill);
  const TwipPoint one = wholeTwips(corner), other = wholeTwips(opposite);
  put("{} {} {} {} re {}\n", one.x, one.y, other.x - one.x, other.y - one.y, paint(fill.has_value()));
}

void PdfSurface::circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) {
  useStroke(stroke);
  if (fill) useFill(*fill);
  const TwipPoint middle = wholeTwips(centre);
  const long r = wholeTwips(radius), c = wholeTwips(kQuarterCircle * radius);
  const auto quarter = [&](long fromX, long fromY, long toX, long toY) {
    // Each control point lies at a right angle to the radius of its end.
    put("{} {} {} {} {} {} c ", middle.x + fromX * r + toX * c, middle.y + fromY * r + toY * c,
        middle.x + toX * r + fromX * c, middle.y + toY * r + fromY * c, middle.x + toX * r, middle.y + toY * r);
  };
  put("{} {} m ", middle.x + r, middle.y);
  quarter(1, 0, 0, 1);
  quarter(0, 1, -1, 0);
  quarter(-1, 0, 0, -1);
  quarter(0, -1, 1, 0);
  put("h {}\n", paint(fill.has_value()));
}

void PdfSurface::polyline(std::span<const Point> points, Stroke stroke) {
  if (points.empty()) return;
  useStroke(stroke);
  std::string_view step = "m";
  for (const Point& point : thinnedLine(points, kUnseen)) {
    const TwipPoint place = wholeTwips(point);
    put("{} {} {} ", place.x, place.y, step);
    step = "l";
  }
  put("S\n");
}

void PdfSurface::text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) {
  PlacedText text{upperLeft, std::string(utf8), font, colour, rotated};
  if (!m_order.takeMark(text)) drawTexts(m_order.hold(std::move(text)));
}

const std::string& PdfSurface::finish() {
  drawTexts(m_order.release());
  return m_content;
}

void PdfSurface::drawTexts(const std::vector<PlacedText>& texts) {
  for (const PlacedText& text : texts) drawText(text);
}

void PdfSurface::drawText(const PlacedText& text) {
  const auto& [upperLeft, utf8, font, colour, rotated] = text;
  useFill(colour);
  if (font.bold) useLine(colour, kBoldOutline * textHeight(font));
  std::vector<PdfGlyph> glyphs;
  double natural = 0;
  for (const char32_t character : QString::fromStdString(utf8).toUcs4()) {
    glyphs.push_back(m_fonts.glyph(font, character));
    natural += glyphs.back().advance;
  }
  const double size = textHeight(font);
  tell(m_stretch, 100 * stretchTo(textWidth(utf8, font), natural * size), "Tz");
  const auto [x, y] = wholeTwips(upperLeft);
  Point start{static_cast<double>(x), static_cast<double>(y)};
  (rotated ? start.x : start.y) += kBaseline * size;
  put("BT {} {} {} Tm\n", rotated ? "0 -1 -1 0" : "1 0 0 -1", shortNumber(start.x), shortNumber(start.y));
  for (auto first = glyphs.begin(); first != glyphs.end();) {
    const auto end = std::find_if(first, glyphs.end(), [&](const PdfGlyph& glyph) {
      return glyph.font != first->font || glyph.emboldened != first->emboldened;
    });
    drawGlyphs({first, end}, size);
    first = end;
  }
  put("ET\n");
}

void PdfSurface::drawGlyphs(std::span<const PdfGlyph> glyphs, double size) {
  const PdfGlyph& first = glyphs.front();
  if (m_font != first.font || m_size != size) put("/F{} {} Tf\n", first.font, shortNumber(size));
  m_font = first.font;
  m_size = size;
  tell(m_textMode, first.emboldened ? kFilledAndOutlined : kFilled, "Tr");
  put("<");
  for (const PdfGlyph& glyph : glyphs) put("{:04X}", glyph.code);
  put("> Tj\n");
}

void PdfSurface::useStroke(Stroke stroke) {
  drawTexts(m_order.release());  // a shape covers what was drawn before it
  useLine(stroke.colour, stroke.width * kTwipsPerPaperWidth);
}

void PdfSurface::useLine(Colour colour, double width) {
  tell(m_lineColour, numbersOf(colour), "RG");
  tell(m_lineWidth, width, "w");
}

void PdfSurface::useFill(Colour colour) { tell(m_fillColour, numbersOf(colour), "rg"); }

template <class Value>
void PdfSurface::tell(Value& told, const Value& wanted, std::string_view operation) {
  if (told == wanted) return;
  told = wanted;
  if constexpr (std::is_floating_point_v<Value>)
    put("{} {}\n", shortNumber(wanted), operation);
  else
    put("{} {}\n", wanted, operation);
}

template <class... Values>
void PdfSurface::put(fmt::format_string<Values...> form, Values&&... values) {
  fmt::format_to(std::back_inserter(m_content), form, std::forward<Values>(values)...);
}

}  // namespace triaxlab
