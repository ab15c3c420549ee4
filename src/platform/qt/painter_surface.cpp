#include "platform/qt/painter_surface.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <QString>
#include <algorithm>
#include <array>
#include <cmath>

namespace triaxlab {
namespace {

constexpr double kTwipsPerLogicalPixel = 15;
constexpr double kTwipsPerPaperWidth = 1440.0 / 600;
/// Height of the baseline below the upper edge of a text, in its size: that of 宋体, whatever font takes its place.
constexpr double kBaseline = 0.86;

QPointF rounded(Point point) { return {std::round(point.x), std::round(point.y)}; }

QRectF rectangle(Point corner, Point opposite) { return QRectF(rounded(corner), rounded(opposite)).normalized(); }

}  // namespace

QColor colourOf(Colour colour) {
  static constexpr std::array<QRgb, 16> kPalette{0xFF000000, 0xFF000080, 0xFF008000, 0xFF008080, 0xFF800000, 0xFF800080,
                                                 0xFF808000, 0xFFC0C0C0, 0xFF808080, 0xFF0000FF, 0xFF00FF00, 0xFF00FFFF,
                                                 0xFFFF0000, 0xFFFF00FF, 0xFFFFFF00, 0xFFFFFFFF};
  return QColor::fromRgb(kPalette.at(static_cast<std::size_t>(colour)));
}

PainterSurface::PainterSurface(QPainter& painter, Medium medium)
    : m_painter(painter),
      m_base(painter.transform()),
      m_medium(medium),
      m_pixelTwips(1 / painter.deviceTransform().m11()) {
  m_painter.setRenderHint(QPainter::TextAntialiasing);
}

void PainterSurface::line(Point from, Point to, Stroke stroke) {
  usePen(stroke);
  // Rules and grid lines stay sharp; a slanting line is smoothed.
  const QPointF start = rounded(from), end = rounded(to);
  m_painter.setRenderHint(QPainter::Antialiasing, start.x() != end.x() && start.y() != end.y());
  m_painter.drawLine(start, end);
}

void PainterSurface::box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) {
  usePen(stroke);
  useFill(fill);
  m_painter.setRenderHint(QPainter::Antialiasing, false);
  m_painter.drawRect(rectangle(corner, opposite));
}

void PainterSurface::circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) {
  usePen(stroke);
  useFill(fill);
  m_painter.setRenderHint(QPainter::Antialiasing);
  m_painter.drawEllipse(rounded(centre), std::round(radius), std::round(radius));
}

void PainterSurface::polyline(std::span<const Point> points, Stroke stroke) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (const Point& point : points) polygon << rounded(point);
  usePen(stroke);
  m_painter.setRenderHint(QPainter::Antialiasing);
  m_painter.drawPolyline(polygon);
}

void PainterSurface::text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) {
  if (utf8.empty()) return;
  const QString words = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
  const QFont& face = fontFor(font);
  // The face is made in the device's own pixels, where its weight and shape are best, and brought to size by `unit`.
  const double unit = textHeight(font) / face.pixelSize();
  const double natural = QFontMetricsF(face).horizontalAdvance(words) * unit;
  const double ruled = textWidth(utf8, font);
  // Advances differ in the last digits; only a font of other widths is stretched.
  const bool stretched = natural > 0 && std::abs(ruled / natural - 1) > 0.002;
  const QPointF place = triaxlab::rounded(upperLeft);
  const double baseline = kBaseline * textHeight(font);
  m_painter.setFont(face);
  m_painter.setPen(colourOf(colour));
  // A document writes each change of the transformation, and most texts need none.
  if (!rotated && !stretched && unit == 1) return m_painter.drawText(place + QPointF(0, baseline), words);
  QTransform toText = QTransform::fromTranslate(place.x(), place.y());
  if (rotated) toText.rotate(-90);
  toText.translate(0, baseline).scale(stretched ? unit * ruled / natural : unit, unit);
  m_painter.setTransform(toText * m_base);
  m_painter.drawText(QPointF(0, 0), words);
  m_painter.setTransform(m_base);
}

void PainterSurface::usePen(Stroke stroke) {
  QPen pen(colourOf(stroke.colour));
  pen.setJoinStyle(Qt::RoundJoin);
  pen.setCapStyle(Qt::FlatCap);
  if (m_medium == Medium::Screen) {
    pen.setCosmetic(true);
    pen.setWidthF(std::max(1.0, std::round(stroke.width * kTwipsPerLogicalPixel / m_pixelTwips)));
  } else {
    const double smallest = m_medium == Medium::Picture ? m_pixelTwips : 0;
    pen.setWidthF(std::max(stroke.width * kTwipsPerPaperWidth, smallest));
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
