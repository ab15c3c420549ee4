#include "platform/qt/painter_surface.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <QString>
#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/ruled_text.h"
#include "platform/thinned_line.h"

namespace triaxlab {
namespace {

constexpr double kTwipsPerLogicalPixel = 15;
/// What grids are drawn with and nothing else. On a screen it is a hairline: one pixel, however fine or large.
constexpr Stroke kGrid{Colour::Grey, 1};

/// How far a curve of a screen may be off its points. A half-circle has 301 of them, far more than one sees, and each
/// is a join to be drawn.
constexpr double kUnseenPixels = 0.1;

/// The pieces of a text that are set in one go: a prime stands by itself.
std::vector<std::string_view> runsOf(std::string_view utf8) {
  std::vector<std::string_view> runs;
  while (!utf8.empty()) {
    const std::string_view run = utf8.starts_with(kPrime) ? kPrime : utf8.substr(0, utf8.find(kPrime));
    runs.push_back(run);
    utf8.remove_prefix(run.size());
  }
  return runs;
}

QPointF rounded(Point point) { return {std::round(point.x), std::round(point.y)}; }

QRectF rectangle(Point corner, Point opposite) { return QRectF(rounded(corner), rounded(opposite)).normalized(); }

}  // namespace

QColor colourOf(Colour colour) {
  const Rgb rgb = rgbOf(colour);
  return {rgb.red, rgb.green, rgb.blue};
}

PainterSurface::PainterSurface(QPainter& painter, Medium medium)
    : m_painter(painter),
      m_base(painter.transform()),
      m_medium(medium),
      m_pixelTwips(1 / painter.deviceTransform().m11()) {
  m_painter.setRenderHint(QPainter::TextAntialiasing);
}

void PainterSurface::line(Point from, Point to, Stroke stroke) {
  // Rules and grid lines stay sharp; a slanting line is smoothed.
  const QPointF start = rounded(from), end = rounded(to);
  const bool slants = start.x() != end.x() && start.y() != end.y();
  usePen(stroke, slants ? Ink::Curve : stroke == kGrid ? Ink::Grid : Ink::Rule);
  m_painter.setRenderHint(QPainter::Antialiasing, slants);
  m_painter.drawLine(start, end);
}

void PainterSurface::box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) {
  usePen(stroke, Ink::Rule);
  useFill(fill);
  m_painter.setRenderHint(QPainter::Antialiasing, false);
  m_painter.drawRect(rectangle(corner, opposite));
}

void PainterSurface::circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) {
  usePen(stroke, Ink::Curve);
  useFill(fill);
  m_painter.setRenderHint(QPainter::Antialiasing);
  m_painter.drawEllipse(rounded(centre), std::round(radius), std::round(radius));
}

void PainterSurface::polyline(std::span<const Point> points, Stroke stroke) {
  QPolygonF polygon;
  const auto add = [&polygon](Point point) { polygon << rounded(point); };
  if (m_medium == Medium::Screen)
    std::ranges::for_each(thinnedLine(points, kUnseenPixels * m_pixelTwips), add);
  else
    std::ranges::for_each(points, add);
  usePen(stroke, Ink::Curve);
  m_painter.setRenderHint(QPainter::Antialiasing);
  m_painter.drawPolyline(polygon);
}

void PainterSurface::text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) {
  if (utf8.empty()) return;
  m_painter.setFont(fontFor(font));
  m_painter.setPen(colourOf(colour));
  const QPointF place = triaxlab::rounded(upperLeft);
  QTransform toText = QTransform::fromTranslate(place.x(), place.y());
  if (rotated) toText.rotate(-90);
  toText.translate(0, kBaseline * textHeight(font));
  for (const std::string_view run : runsOf(utf8)) {
    drawRun(run, font, toText);
    toText.translate(textWidth(run, font), 0);
  }
}

void PainterSurface::drawRun(std::string_view run, const Font& font, const QTransform& toText) {
  const QString words = QString::fromUtf8(run.data(), static_cast<qsizetype>(run.size()));
  const QFont& face = fontFor(font);
  const QFontMetricsF metrics(face);
  // The face is made in the device's own pixels, where its weight and shape are best, and brought to size by `unit`.
  const double unit = textHeight(font) / face.pixelSize();
  const double natural = metrics.horizontalAdvance(words) * unit;
  const bool isPrime = run == kPrime;
  const double stretch = isPrime ? 1 : stretchTo(textWidth(run, font), natural);
  const double start = isPrime ? -metrics.leftBearing(words.front()) : 0;
  // A document writes each change of the transformation, and most texts need none.
  const QTransform scaled = QTransform(toText).scale(unit * stretch, unit);
  if (scaled.type() <= QTransform::TxTranslate)
    return m_painter.drawText(QPointF(scaled.dx() + start, scaled.dy()), words);
  m_painter.setTransform(scaled * m_base);
  m_painter.drawText(QPointF(start, 0), words);
  m_painter.setTransform(m_base);
}

double PainterSurface::screenWidth(int width, Ink ink) const {
  if (ink == Ink::Grid) return 1;
  const double pixels = std::max(1.0, width * kTwipsPerLogicalPixel / m_pixelTwips);
  // Smoothed, a curve may have any width; half a pixel lets it stand out from the grid where both would have one.
  return ink == Ink::Curve ? pixels + 0.5 : std::round(pixels);
}

void PainterSurface::usePen(Stroke stroke, Ink ink) {
  QPen pen(colourOf(stroke.colour));
  pen.setJoinStyle(Qt::RoundJoin);
  pen.setCapStyle(Qt::FlatCap);
  switch (m_medium) {
    case Medium::Screen:
      // Some pixels wide, all joins look alike, and this one is drawn fastest.
      pen.setJoinStyle(Qt::BevelJoin);
      pen.setCosmetic(true);
      pen.setWidthF(screenWidth(stroke.width, ink));
      break;
    case Medium::Picture:
      pen.setWidthF(std::ceil(stroke.width * kTwipsPerPaperWidth / m_pixelTwips) * m_pixelTwips);
      break;
    case Medium::Paper:
      pen.setWidthF(stroke.width * kTwipsPerPaperWidth);
      break;
  }
  m_painter.setPen(pen);
}

void PainterSurface::useFill(std::optional<Colour> fill) {
  m_painter.setBrush(fill ? QBrush(colourOf(*fill)) : QBrush(Qt::NoBrush));
}

const QFont& PainterSurface::fontFor(const Font& font) {
  const auto [place, isNew] = m_fonts.try_emplace(FontKey{font.name, font.size, font.bold});
  if (isNew) {
    QFont& face = place->second;
    face.setFamily(QString::fromStdString(font.name));
    face.setPixelSize(std::max(1, static_cast<int>(std::lround(textHeight(font) / m_pixelTwips))));
    face.setBold(font.bold);
    // The same widths and line breaks on every device.
    face.setHintingPreference(QFont::PreferNoHinting);
  }
  return place->second;
}

}  // namespace triaxlab
