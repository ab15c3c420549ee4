#include "platform/cairo/cairo_surface.h"

#include <array>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "platform/ruled_text.h"
#include "platform/thinned_line.h"
#include "platform/whole_twips.h"

namespace triaxlab {
namespace {

/// What no eye and no printer tells apart, in twips.
constexpr double kUnseen = 0.75;

/// The shapes of one font, side by side on the baseline, and which bytes of the text each cluster of them stands for,
/// so that the text can be searched and copied.
struct GlyphRun {
  FaceRun run;
  std::vector<cairo_glyph_t> glyphs;
  std::vector<cairo_text_cluster_t> clusters;
};

/// Puts each prime to the left of its place. It becomes one cluster with the signs beside it, for programs that read
/// the text would take the room behind it for a blank. Returns by how much this widens the run.
double placePrimes(GlyphRun& run, cairo_scaled_font_t* font, double size) {
  double widened = 0;
  std::vector<cairo_text_cluster_t> clusters;
  std::size_t byte = 0, glyph = 0;
  bool isBehindPrime = false;
  for (const cairo_text_cluster_t& cluster : run.clusters) {
    const bool isPrime = run.run.text.substr(byte).starts_with(kPrime);
    for (int i = 0; i < cluster.num_glyphs; ++i) run.glyphs.at(glyph + static_cast<std::size_t>(i)).x += widened;
    if (isPrime && cluster.num_glyphs == 1) {
      cairo_text_extents_t extents;
      cairo_scaled_font_glyph_extents(font, &run.glyphs[glyph], 1, &extents);
      run.glyphs[glyph].x -= extents.x_bearing;
      widened += size - extents.x_advance;
    }
    if (!clusters.empty() && (isPrime || isBehindPrime)) {
      clusters.back().num_bytes += cluster.num_bytes;
      clusters.back().num_glyphs += cluster.num_glyphs;
    } else {
      clusters.push_back(cluster);
    }
    isBehindPrime = isPrime;
    byte += static_cast<std::size_t>(cluster.num_bytes);
    glyph += static_cast<std::size_t>(cluster.num_glyphs);
  }
  run.clusters = std::move(clusters);
  return widened;
}

/// From `pen` on, which is moved behind the run. Pre: the context is set to the run's font and this size.
GlyphRun glyphRun(cairo_t* context, const FaceRun& run, double size, double& pen) {
  cairo_scaled_font_t* const font = cairo_get_scaled_font(context);
  cairo_glyph_t* glyphs = nullptr;
  cairo_text_cluster_t* clusters = nullptr;
  int glyphCount = 0, clusterCount = 0;
  cairo_text_cluster_flags_t flags{};
  cairo_scaled_font_text_to_glyphs(font, pen, 0, run.text.data(), static_cast<int>(run.text.size()), &glyphs,
                                   &glyphCount, &clusters, &clusterCount, &flags);
  GlyphRun made{run, {glyphs, glyphs + glyphCount}, {clusters, clusters + clusterCount}};
  cairo_glyph_free(glyphs);
  cairo_text_cluster_free(clusters);
  cairo_text_extents_t extents;
  cairo_scaled_font_glyph_extents(font, made.glyphs.data(), glyphCount, &extents);
  pen += extents.x_advance + placePrimes(made, font, size);
  return made;
}

}  // namespace

CairoSurface::CairoSurface(cairo_t* context, FontFaces& faces) : m_context(context), m_faces(faces) {
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
}

void CairoSurface::line(Point from, Point to, Stroke stroke) { polyline(std::array{from, to}, stroke); }

void CairoSurface::box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) {
  drawHeldTexts();
  const TwipPoint one = wholeTwips(corner), other = wholeTwips(opposite);
  cairo_rectangle(m_context, one.x, one.y, other.x - one.x, other.y - one.y);
  paintPath(stroke, fill);
}

void CairoSurface::circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) {
  drawHeldTexts();
  const TwipPoint middle = wholeTwips(centre);
  cairo_new_sub_path(m_context);
  cairo_arc(m_context, middle.x, middle.y, wholeTwips(radius), 0, 2 * std::numbers::pi);
  cairo_close_path(m_context);
  paintPath(stroke, fill);
}

void CairoSurface::polyline(std::span<const Point> points, Stroke stroke) {
  drawHeldTexts();
  for (const Point& point : thinnedLine(points, kUnseen)) {
    const TwipPoint place = wholeTwips(point);
    cairo_line_to(m_context, place.x, place.y);
  }
  paintPath(stroke, std::nullopt);
}

void CairoSurface::text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) {
  PlacedText text{upperLeft, std::string(utf8), font, colour, rotated};
  if (!m_order.takeMark(text)) drawTexts(m_order.hold(std::move(text)));
}

void CairoSurface::drawHeldTexts() { drawTexts(m_order.release()); }

void CairoSurface::drawTexts(const std::vector<PlacedText>& texts) {
  for (const PlacedText& text : texts) drawText(text);
}

void CairoSurface::drawText(const PlacedText& text) {
  const auto& [upperLeft, utf8, font, colour, rotated] = text;
  useColour(colour);
  const TwipPoint place = wholeTwips(upperLeft);
  cairo_save(m_context);
  cairo_translate(m_context, place.x, place.y);
  if (rotated) cairo_rotate(m_context, -std::numbers::pi / 2);
  const double size = textHeight(font);
  cairo_translate(m_context, 0, kBaseline * size);
  cairo_set_font_size(m_context, size);
  std::vector<GlyphRun> runs;
  double natural = 0;
  for (const FaceRun& run : m_faces.runsOf(utf8, font)) {
    cairo_set_font_face(m_context, run.face);
    runs.push_back(glyphRun(m_context, run, size, natural));
  }
  cairo_scale(m_context, stretchTo(textWidth(utf8, font), natural), 1);
  for (const GlyphRun& run : runs) {
    cairo_set_font_face(m_context, run.run.face);
    cairo_show_text_glyphs(m_context, run.run.text.data(), static_cast<int>(run.run.text.size()), run.glyphs.data(),
                           static_cast<int>(run.glyphs.size()), run.clusters.data(),
                           static_cast<int>(run.clusters.size()), cairo_text_cluster_flags_t{});
  }
  cairo_restore(m_context);
}

void CairoSurface::useColour(Colour colour) {
  constexpr double kFull = 255;
  const Rgb rgb = rgbOf(colour);
  cairo_set_source_rgb(m_context, rgb.red / kFull, rgb.green / kFull, rgb.blue / kFull);
}

void CairoSurface::paintPath(Stroke stroke, std::optional<Colour> fill) {
  if (fill) {
    useColour(*fill);
    cairo_fill_preserve(m_context);
  }
  useColour(stroke.colour);
  cairo_set_line_width(m_context, stroke.width * kTwipsPerPaperWidth);
  cairo_stroke(m_context);
}

}  // namespace triaxlab
